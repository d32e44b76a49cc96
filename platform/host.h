#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "foundation/dispatch_object.h"
#include "foundation/signal.h"
#include "foundation/variant.h"
#include "platform/std_font.h"
#include "platform/surface.h"
#include "platform/types.h"

namespace zk {

// The container's ambient properties, which a control follows by default.
class IAmbientProperties {
 public:
  virtual ~IAmbientProperties() = default;
  virtual OLE_COLOR BackColor() const = 0;
  virtual OLE_COLOR ForeColor() const = 0;
  // The container's font. Controls take a clone of it, never the object itself.
  virtual FontRef Font() const = 0;
  // True at run time, false while a form is being designed.
  virtual bool UserMode() const = 0;
  // Raised with the ambient property's name ("BackColor" ...) after it changed.
  virtual Signal<std::u16string_view>& AmbientChanged() = 0;
};

// Design-time persistence of one control: values by key, each with a default.
class IPropertyBag {
 public:
  virtual ~IPropertyBag() = default;
  // The stored value, or `default_value` when the key is not stored.
  virtual Variant ReadProperty(std::u16string_view key, const Variant& default_value) = 0;
  // Stores the value; a value equal to the default is not stored (a stored one is removed).
  virtual void WriteProperty(std::u16string_view key, const Variant& value,
                             const Variant& default_value) = 0;
};

// What the host gives one placed control.
class IControlSite {
 public:
  virtual ~IControlSite() = default;
  // The host-side properties of the placed control (Name, Top, Left, Width, Height, Visible,
  // Default, Cancel, Enabled, ToolTipText, TabIndex, TabStop), reached by name. A property
  // the host does not offer for this control raises error 438.
  virtual DispatchObject& Extender() = 0;
  virtual IAmbientProperties& Ambient() = 0;
  // The control's own area and the factory of its child elements.
  virtual ISurface& Surface() = 0;
  // Tells the host that a property changed, so that it marks the form as changed.
  virtual void PropertyChanged(std::u16string_view property) = 0;

  // A site for a part: another control of the library that this control is built from. The
  // part's window is a child of this control's surface and lies above its windowless elements;
  // its extender is private to this control and offers Name (read-only), Left, Top, Width,
  // Height (twips of this control's inner area), Visible, Enabled and ToolTipText, any other
  // name raising error 438; it shares this control's ambient properties and their change
  // notification; its property-changed notifications go nowhere. The part must be destroyed
  // before its site, and the site before this control's own site.
  virtual std::unique_ptr<IControlSite> CreateChildSite(std::u16string_view name) = 0;

  // The controls that the host placed inside this control, when its kind is a container: their
  // automation objects, in the host's order (the order of placement). Empty for a control that
  // holds nothing, and for a part.
  virtual std::vector<ObjectRef> ContainedControls() = 0;
};

}  // namespace zk
