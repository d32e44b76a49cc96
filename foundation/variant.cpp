#include "foundation/variant.h"

#include <cmath>

#include "foundation/dispatch_object.h"
#include "foundation/low_level_utils.h"
#include "foundation/string_utils.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

std::u16string_view TrimBlanks(std::u16string_view text) {
  while (!text.empty() && text.front() == u' ')
    text.remove_prefix(1);
  while (!text.empty() && text.back() == u' ')
    text.remove_suffix(1);
  return text;
}

}  // namespace

bool Variant::IsNumeric() const noexcept {
  const Type t = type();
  return t == Type::kBoolean || t == Type::kInteger || t == Type::kDouble;
}

double Variant::ToDouble() const {
  switch (type()) {
    case Type::kEmpty:
      return 0.0;
    case Type::kBoolean:
      return std::get<bool>(value_) ? -1.0 : 0.0;
    case Type::kInteger:
      return std::get<int32_t>(value_);
    case Type::kDouble:
      return std::get<double>(value_);
    case Type::kString: {
      const std::u16string& text = std::get<std::u16string>(value_);
      if (MStringUtils::IsNumberText(text)) return MStringUtils::ParseNumberText(text, u".");
      const std::u16string_view trimmed = TrimBlanks(text);
      if (MemberNameEquals(trimmed, u"True")) return -1.0;
      if (MemberNameEquals(trimmed, u"False")) return 0.0;
      throw ZKError::TypeMismatch();
    }
    case Type::kObject:
      break;
  }
  throw ZKError::TypeMismatch();
}

bool Variant::ToBool() const {
  if (type() == Type::kBoolean) return std::get<bool>(value_);
  return ToDouble() != 0.0;
}

int32_t Variant::ToInt32() const {
  if (type() == Type::kInteger) return std::get<int32_t>(value_);
  return MLowLevelUtils::RoundToInt32(ToDouble());
}

int16_t Variant::ToInt16() const {
  return MLowLevelUtils::RoundToInt16(ToDouble());
}

uint32_t Variant::ToColor() const {
  const double value = MLowLevelUtils::RoundHalfEven(ToDouble());
  // Colours travel as signed 32-bit numbers (system colours are negative); the unsigned
  // spelling of the same bits is accepted too.
  if (value >= 2147483648.0 && value <= 4294967295.0) return static_cast<uint32_t>(value);
  return static_cast<uint32_t>(MLowLevelUtils::RoundToInt32(value));
}

std::u16string Variant::ToText() const {
  switch (type()) {
    case Type::kEmpty:
      return {};
    case Type::kBoolean:
      return std::get<bool>(value_) ? u"True" : u"False";
    case Type::kInteger:
    case Type::kDouble:
      return MStringUtils::FormatNumberText(ToDouble(), u".", -1, false);
    case Type::kString:
      return std::get<std::u16string>(value_);
    case Type::kObject:
      break;
  }
  throw ZKError::TypeMismatch();
}

ObjectRef Variant::ToObject() const {
  if (type() == Type::kObject) return std::get<ObjectRef>(value_);
  if (type() == Type::kEmpty) return nullptr;
  throw ZKError(error_number::kObjectRequired, u"Object required");
}

}  // namespace zk
