#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/dispatch_object.h"
#include "foundation/signal.h"
#include "framework/automation.h"
#include "framework/control_event.h"
#include "framework/property_table.h"
#include "platform/host.h"
#include "platform/std_font.h"

namespace zk {

// The contract that every control carries: the common members, automation by name, the archive
// string, cloning, the font copy, the event observer and the property-changed notification.
class ZKControl : public DispatchObject {
 public:
  explicit ZKControl(IControlSite& site);
  ~ZKControl() override;
  ZKControl(const ZKControl&) = delete;
  ZKControl& operator=(const ZKControl&) = delete;

  // The control's class name ("ZKLabel").
  virtual std::u16string_view Kind() const = 0;
  // Its properties, methods and events, declared once.
  virtual const PropertyTable& Properties() const = 0;
  // Its properties, methods and events by name.
  const AutomationTable& Automation() const { return Properties().Automation(); }

  // The name the host gave the control (the extender's Name); the source of its traces.
  std::u16string Name() const;

  const std::u16string& ControlGroup() const { return control_group_; }
  void SetControlGroup(std::u16string New_ControlGroup);
  bool DesignMode() const { return design_mode_; }
  virtual void SetDesignMode(bool New_DesignMode);
  // The surface's enabled state; a write also reaches the inner elements that take input.
  virtual bool Enabled() const;
  virtual void SetEnabled(bool New_Enabled);
  // The control's window; a control built of parts may report the window of one of them.
  virtual int32_t hWnd() const;
  virtual void Refresh();
  // The popup window that the control shows under `name` (a choice list calls its list window
  // "ListWindow"), so that a host or a script can drive that window's input as the user would;
  // null when the control has no window of that name (the name is compared ignoring case).
  virtual IPopupWindow* NamedPopup(std::u16string_view /*name*/) { return nullptr; }
  void PopupMenu(const Variant& Menu = {}, const Variant& Flags = {}, const Variant& X = {},
                 const Variant& Y = {}, const Variant& DefaultMenu = {});
  // Makes this control a copy of `p_obj` (any control of the same kind) through its archive
  // string, asked for by name. A null object raises error 91, one without GetArchiveStr 438.
  virtual void Clone(const ObjectRef& p_obj);
  // The archive string; the empty text (and a trace) when an element cannot be built.
  virtual std::u16string GetArchiveStr();
  // Applies an archive string through the public setters; false (and a trace) at the first
  // element that is missing or refused, with the elements before it applied.
  virtual bool ParseArchiveStr(std::u16string_view p_str);
  // Extension points: every name is accepted and nothing happens.
  std::u16string ExtraProp(std::u16string_view p_propname) const;
  void SetExtraProp(std::u16string_view p_propname, const Variant& value);
  std::u16string ExtraAction(std::u16string_view p_action, const Variant& p_args = {});

  // The control's own font object (never a caller's).
  const FontRef& Font() const { return font_; }
  // Takes a copy of New_Font; a null font is traced ("Font (SET)") and changes nothing.
  void SetFont(FontRef New_Font);

  // Design-time persistence through the host's property bag, driven by the property table:
  // a new control takes the table's new-control values, a loaded one stores what the bag holds
  // (notifying nothing), and writing persists every row with its default.
  void InitProperties();
  virtual void ReadProperties(IPropertyBag& bag);
  virtual void WriteProperties(IPropertyBag& bag);

  // The elements of the archive string after the extender block, in their order.
  std::span<const ArchiveField> ArchiveFields() const { return Properties().ArchiveFields(); }

  // Every event the control raises, with its arguments.
  EventObserver& EventRaised() { return event_raised_; }

  Variant GetProperty(std::u16string_view name, std::span<const Variant> index = {}) override;
  void SetProperty(std::u16string_view name, const Variant& value,
                   std::span<const Variant> index = {}) override;
  Variant CallMethod(std::u16string_view name, std::span<Variant> args = {}) override;

  // A member that every control publishes, by its name (ControlGroup, DesignMode, Enabled,
  // hWnd, Refresh, PopupMenu, Clone, GetArchiveStr, ParseArchiveStr, ExtraProp, ExtraAction,
  // Font), for the controls' own tables in their interface order. Enabled carries its standard
  // identifier; `dispid` gives another member one.
  static MemberInfo CommonMember(std::u16string_view name, int32_t dispid = 0);
  // The table row of a common member. ControlGroup, DesignMode, Enabled and Font store bag
  // values on the control (Font as a copy of the bag's font); ControlGroup and DesignMode come
  // with their universal new-control value and bag default (empty, false), Enabled with its bag
  // default (true) and Font with the container's font as both.
  static PropertyRow CommonRow(std::u16string_view name, int32_t dispid = 0);
  template <typename C>
  static property_rows::Row<C, Variant> Common(std::u16string_view name, int32_t dispid = 0) {
    return property_rows::Row<C, Variant>(CommonRow(name, dispid));
  }

 protected:
  IControlSite& Site() { return site_; }
  const IControlSite& Site() const { return site_; }
  ISurface& Surface() { return site_.Surface(); }
  const ISurface& Surface() const { return site_.Surface(); }

  // What a property change does to the control besides notifying the host.
  enum class Effect { kNone, kRedraw, kLayout };
  // The end of every successful setter: tells the host that `property` changed, then lays the
  // control out or redraws it as `effect` says.
  void Changed(std::u16string_view property, Effect effect = Effect::kNone);
  // Tells the host that a property changed.
  void NotifyChanged(std::u16string_view property);
  // The control's layout (its resize handler) and its redraw of the current state.
  virtual void Layout() {}
  virtual void Redraw() {}

  // After the table gave a new control its values, and after a bag was read: what the control
  // does once with all its values in place (the enabled state given to inner elements, the
  // layout ...).
  virtual void AfterInitProperties() {}
  virtual void AfterReadProperties() {}

  // The trace procedure of a failed parse at `element` ("ParseArchiveStr (el: 3)").
  virtual std::u16string ParseFailureProcedure(int element) const;

  // The control's font became another object or changed: give it to the inner elements and
  // lay out.
  virtual void OnFontChanged() {}
  // The inner elements that react to input take the enabled state.
  virtual void OnEnabledChanged(bool /*enabled*/) {}
  // The container changed an ambient property.
  virtual void OnAmbientChanged(std::u16string_view /*property*/) {}

  // Makes `font` the control's font object without notifying (reading stored properties).
  void AdoptFont(FontRef font);
  // Stores the common fields without notifying (reading stored properties).
  void StoreControlGroup(std::u16string group) { control_group_ = std::move(group); }
  void StoreDesignMode(bool design_mode) { design_mode_ = design_mode; }

  // Expires when the control is destroyed. A host's handler may remove the control from its
  // form inside any event that the control raises: input code that goes on after raising one
  // holds the token across the call and stops when it expired.
  std::weak_ptr<const char> LifeToken() const { return life_; }

 private:
  IControlSite& site_;
  std::u16string control_group_;
  bool design_mode_ = false;
  FontRef font_;
  ScopedConnection font_connection_;
  ScopedConnection ambient_connection_;
  EventObserver event_raised_;
  std::shared_ptr<const char> life_ = std::make_shared<const char>(0);
};

}  // namespace zk
