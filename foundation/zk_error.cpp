#include "foundation/zk_error.h"

#include <utility>

#include "foundation/text_encoding.h"

namespace zk {

ZKError::ZKError(int32_t number, std::u16string description, std::u16string source)
    : number_(number),
      description_(std::move(description)),
      source_(std::move(source)),
      what_(Utf16ToUtf8(description_)) {}

ZKError ZKError::Overflow() {
  return ZKError(error_number::kOverflow, u"Overflow");
}

ZKError ZKError::DivisionByZero() {
  return ZKError(error_number::kDivisionByZero, u"Division by zero");
}

ZKError ZKError::TypeMismatch() {
  return ZKError(error_number::kTypeMismatch, u"Type mismatch");
}

ZKError ZKError::InvalidPropertyValue() {
  return ZKError(error_number::kInvalidPropertyValue, u"Invalid property value");
}

ZKError ZKError::MemberNotFound() {
  return ZKError(error_number::kMemberNotFound, u"Object doesn't support this property or method");
}

}  // namespace zk
