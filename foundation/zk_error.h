#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace zk {

// The error numbers of the platform that hosts and scripts rely on.
namespace error_number {
inline constexpr int32_t kInvalidProcedureCall = 5;
inline constexpr int32_t kOverflow = 6;
inline constexpr int32_t kOutOfMemory = 7;
inline constexpr int32_t kSubscriptOutOfRange = 9;
inline constexpr int32_t kDivisionByZero = 11;
inline constexpr int32_t kTypeMismatch = 13;
inline constexpr int32_t kInternalError = 51;
inline constexpr int32_t kFileNotFound = 53;
inline constexpr int32_t kObjectRequired = 424;
inline constexpr int32_t kInvalidPropertyValue = 380;
inline constexpr int32_t kMemberNotFound = 438;
inline constexpr int32_t kInvalidPicture = 481;
}  // namespace error_number

// An error that reaches the caller of a property write or method, as the platform's
// error objects do: a number, a description and the source that raised it.
class ZKError : public std::exception {
 public:
  ZKError(int32_t number, std::u16string description, std::u16string source = {});

  int32_t Number() const noexcept { return number_; }
  const std::u16string& Description() const noexcept { return description_; }
  const std::u16string& Source() const noexcept { return source_; }
  // UTF-8 form of the description, for std::exception users.
  const char* what() const noexcept override { return what_.c_str(); }

  // The platform's standard errors, with their usual descriptions.
  static ZKError Overflow();
  static ZKError DivisionByZero();
  static ZKError TypeMismatch();
  static ZKError InvalidPropertyValue();
  static ZKError MemberNotFound();

 private:
  int32_t number_;
  std::u16string description_;
  std::u16string source_;
  std::string what_;
};

}  // namespace zk
