#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

namespace zk {

class DispatchObject;
using ObjectRef = std::shared_ptr<DispatchObject>;

// The value of a late-bound property, argument or property-bag entry. Conversions follow the
// platform's rules: true is -1 as a number, numbers convert to integers rounding halves to
// even, and a value that does not convert raises the platform's error (13 type mismatch,
// 6 overflow, 424 object required).
class Variant {
 public:
  enum class Type { kEmpty, kBoolean, kInteger, kDouble, kString, kObject };

  Variant() = default;
  Variant(bool value) : value_(value) {}                             // NOLINT: implicit by design
  Variant(int32_t value) : value_(value) {}                          // NOLINT
  Variant(double value) : value_(value) {}                           // NOLINT
  Variant(std::u16string value) : value_(std::move(value)) {}        // NOLINT
  Variant(const char16_t* value) : value_(std::u16string(value)) {}  // NOLINT
  Variant(ObjectRef value) : value_(std::move(value)) {}             // NOLINT
  template <typename T>
  requires std::is_base_of_v<DispatchObject, T> Variant(std::shared_ptr<T> value)
      : value_(ObjectRef(std::move(value))) {}  // NOLINT

  Type type() const noexcept { return static_cast<Type>(value_.index()); }
  bool IsEmpty() const noexcept { return type() == Type::kEmpty; }
  bool IsObject() const noexcept { return type() == Type::kObject; }
  bool IsNumeric() const noexcept;  // boolean, integer or double

  bool ToBool() const;
  double ToDouble() const;
  int32_t ToInt32() const;
  int16_t ToInt16() const;
  // A colour: the number taken as a signed 32-bit value (or 0 to &HFFFFFFFF), as bits.
  uint32_t ToColor() const;
  // Booleans as "True"/"False", numbers as plain decimal text with a leading zero.
  std::u16string ToText() const;
  // The object; an empty variant gives a null reference, other values raise 424.
  ObjectRef ToObject() const;

  bool operator==(const Variant& other) const = default;

 private:
  std::variant<std::monostate, bool, int32_t, double, std::u16string, ObjectRef> value_;
};

}  // namespace zk
