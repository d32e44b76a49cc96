#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "foundation/variant.h"
#include "platform/std_font.h"

// Conversions between typed property values and the variants of late-bound calls. Integers
// take the variant's rounding (halves to even) and its overflow error; colours keep their bits
// and travel as signed 32-bit numbers, as hosts see OLE_COLOR values.
namespace zk::variant_conversion {

template <typename T>
Variant ToVariant(const T& value) {
  using V = std::remove_cvref_t<T>;
  if constexpr (std::is_same_v<V, bool>) {
    return Variant(value);
  } else if constexpr (std::is_same_v<V, uint32_t>) {
    return Variant(static_cast<int32_t>(value));
  } else if constexpr (std::is_enum_v<V>) {
    return Variant(static_cast<int32_t>(value));
  } else if constexpr (std::is_integral_v<V>) {
    return Variant(static_cast<int32_t>(value));
  } else if constexpr (std::is_floating_point_v<V>) {
    return Variant(static_cast<double>(value));
  } else if constexpr (std::is_same_v<V, std::u16string> ||
                       std::is_same_v<V, std::u16string_view>) {
    return Variant(std::u16string(value));
  } else if constexpr (std::is_same_v<V, Variant>) {
    return value;
  } else {
    return Variant(ObjectRef(value));
  }
}

template <typename T>
T FromVariant(const Variant& value) {
  if constexpr (std::is_same_v<T, bool>) {
    return value.ToBool();
  } else if constexpr (std::is_same_v<T, uint32_t>) {
    return value.ToColor();
  } else if constexpr (std::is_same_v<T, int16_t>) {
    return value.ToInt16();
  } else if constexpr (std::is_enum_v<T>) {
    return static_cast<T>(value.ToInt32());
  } else if constexpr (std::is_same_v<T, int32_t>) {
    return value.ToInt32();
  } else if constexpr (std::is_same_v<T, float>) {
    return static_cast<float>(value.ToDouble());
  } else if constexpr (std::is_same_v<T, double>) {
    return value.ToDouble();
  } else if constexpr (std::is_same_v<T, std::u16string>) {
    return value.ToText();
  } else if constexpr (std::is_same_v<T, Variant>) {
    return value;
  } else if constexpr (std::is_same_v<T, FontRef>) {
    return std::dynamic_pointer_cast<StdFont>(value.ToObject());
  } else {
    static_assert(std::is_same_v<T, ObjectRef>, "no conversion from a variant to this type");
    return value.ToObject();
  }
}

}  // namespace zk::variant_conversion
