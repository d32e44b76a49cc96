#pragma once

#include <span>
#include <string_view>

#include "foundation/variant.h"

namespace zk {

// An object whose members are reached by name, as late-bound automation reaches them.
// Names compare without regard to ASCII case. Every operation throws ZKError 438 (member not
// found) for a name the object does not offer; an implementation overrides what it offers.
class DispatchObject {
 public:
  virtual ~DispatchObject() = default;

  // Reads a property; `index` holds the arguments of an indexed property.
  virtual Variant GetProperty(std::u16string_view name, std::span<const Variant> index = {});
  // Writes a property (a value holding an object is an object assignment).
  virtual void SetProperty(std::u16string_view name, const Variant& value,
                           std::span<const Variant> index = {});
  // Calls a method. Arguments are passed by reference: the method may change them.
  virtual Variant CallMethod(std::u16string_view name, std::span<Variant> args = {});
};

// ASCII case-insensitive equality, the rule of member names.
bool MemberNameEquals(std::u16string_view a, std::u16string_view b) noexcept;

}  // namespace zk
