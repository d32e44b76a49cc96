#pragma once

#include <functional>
#include <string_view>

#include "platform/host.h"

namespace zk {

// The rule of controls whose back colour follows the container's until the host gives them one
// (the flag AmbientBackColor): an explicit BackColor write switches the flag off, switching it
// on takes the container's colour at once, and the container's later colour changes are
// followed while it is on. The colour is always applied through the control's own BackColor
// setter, with a guard that tells the setter that the write is not an explicit one.
class AmbientBackColorBinding {
 public:
  // `set_back_color` is the control's public BackColor setter; `notify` its property-changed
  // notification.
  AmbientBackColorBinding(IAmbientProperties& ambient,
                          std::function<void(OLE_COLOR)> set_back_color,
                          std::function<void(std::u16string_view)> notify);

  bool Value() const { return value_; }
  // Stores the flag without applying or notifying (reading stored properties, a new control).
  void Store(bool value) { value_ = value; }
  // The AmbientBackColor setter.
  void Set(bool New_AmbientBackColor);
  // To be called first by the BackColor setter: an explicit write turns the flag off.
  void BeforeBackColorWrite();
  // The container's ambient property changed.
  void OnAmbientChanged(std::u16string_view property);
  // Applies the container's colour again when the flag is on (after the surface reset it).
  void Reapply();

 private:
  void ApplyAmbientColor();

  IAmbientProperties& ambient_;
  std::function<void(OLE_COLOR)> set_back_color_;
  std::function<void(std::u16string_view)> notify_;
  bool value_ = true;
  bool updating_ = false;
};

}  // namespace zk
