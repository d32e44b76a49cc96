#pragma once

#include <span>
#include <string_view>

#include "foundation/dispatch_object.h"
#include "foundation/variant.h"

namespace zk {

// What the names of a script stand for: the objects it drives by name, their host-side
// properties, the ambient values of "form." and the functions it can call. A form gives its
// controls; a test can give objects of its own.
class ScriptScope {
 public:
  virtual ~ScriptScope() = default;

  // The object of that name (a placed control), or null when there is none.
  virtual ObjectRef FindObject(std::u16string_view name) = 0;
  // The host-side properties (Name, Top, Left ...) of `object` when the host keeps them for it,
  // or null.
  virtual DispatchObject* ExtenderOf(const DispatchObject& object) = 0;
  // The ambient values by name (form.BackColor); errors as the host raises them.
  virtual Variant Ambient(std::u16string_view name) = 0;
  virtual void SetAmbient(std::u16string_view name, const Variant& value) = 0;
  // Calls the function of that name (LoadPicture("file")); an omitted argument is an empty
  // value. An unknown function raises ZKError 35.
  virtual Variant CallFunction(std::u16string_view name, std::span<Variant> args) = 0;
};

}  // namespace zk
