#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "controls/control_kinds.h"
#include "framework/control.h"
#include "hosting/form_file.h"
#include "hosting/send_keys.h"
#include "platform/common/form_ambient.h"
#include "platform/common/platform_recorder.h"
#include "platform/elements.h"

namespace zk {

class IPlatform;

// A form that hosts controls as a form designer and a running program do: it places controls
// (a new one gets InitProperties, a loaded one ReadProperties), keeps each one's extender, saves
// and loads all of them as a form file, and delivers input on the platform's event path. The
// platform of a concrete form supplies the sites, the ambient properties and the input.
class Form {
 public:
  // `recorder` is where the platform keeps the property-changed notifications.
  Form(IPlatform& platform, PlatformRecorder& recorder);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  // Places a new control of that kind as a designer does; it comes last in the tab order.
  // Throws ZKError 5 for an unknown kind or a name that is taken or not a name.
  //
  // The form keeps the controls' TabIndex values numbered 0, 1, 2 ... without gaps, as a form
  // designer does: writing a control's TabIndex moves it to that place in the tab order and
  // renumbers the others (an index beyond the last puts it last); removing a control closes
  // its gap; a loaded form file keeps the order of its saved values.
  ZKControl& AddControl(std::u16string_view kind, std::u16string_view name);
  // Places a new control of that kind inside the placed control `container`, as a designer
  // drops a control on a container: its window lies in the container's surface, its Left and
  // Top count from the container's inner area, it moves and hides with the container and goes
  // when the container goes. It is still a control of the form: it has a place of its own in
  // the form's tab order (placed last, as AddControl places). The kind and the name are checked
  // as AddControl checks them; no control of the container's name raises ZKError 424, and a
  // control whose kind cannot hold others raises 438 and places nothing.
  ZKControl& AddControlInside(std::u16string_view kind, std::u16string_view name,
                              std::u16string_view container);
  // The name of the container control that the control lies in; empty for a control on the
  // form itself and for a name that is not placed.
  std::u16string ContainerOf(std::u16string_view name);
  // The controls placed inside the container `name` (directly, not inside others within it),
  // in the order of their placement, as the container's site reports them.
  std::vector<ObjectRef> ContainedControls(std::u16string_view name);
  // Whether the control can be seen: it and every container around it are visible.
  bool IsShown(std::u16string_view name);
  ZKControl* FindControl(std::u16string_view name);
  // The control as a shared reference, for passing it on as an object (null when not placed).
  std::shared_ptr<ZKControl> ControlRef(std::u16string_view name);
  // The host-side properties of a placed control, by name.
  DispatchObject* FindExtender(std::u16string_view name);
  std::vector<ZKControl*> Controls();
  // Places a control at a new position and size (twips) in one step, as a designer's drag
  // does: the control lays itself out once. False when no control has that name; a negative
  // size raises ZKError 380 and moves nothing.
  bool MoveControl(std::u16string_view name, double left, double top, double width, double height);
  // Removes one control with everything placed inside it (false when there is none of that
  // name), or all of them.
  bool RemoveControl(std::u16string_view name);
  void RemoveAll();

  // The form file of every control (WriteProperties), the controls inside a container nested
  // in its block, and its reverse: the form's controls are replaced by those of the file
  // (ReadProperties), each placed where its block lies. A file that cannot be read (or that
  // nests controls in a kind that holds none) changes nothing and raises ZKError 31037.
  std::string SaveText();
  void LoadText(std::string_view text);

  // The form's ambient properties (those of a classic desktop form by default).
  FormAmbient& AmbientProperties() { return ambient_; }
  // The ambient properties by name: BackColor, ForeColor, Font, UserMode, the screen's
  // TwipsPerPixel and the application's NonModalAllowed (whether popup windows may be shown
  // modeless). Writes of the form's own properties raise the ambient-change notification.
  Variant Ambient(std::u16string_view name);
  void SetAmbient(std::u16string_view name, const Variant& value);

  // Input, at (x, y) twips in the control's coordinates.
  virtual void DeliverMouse(std::u16string_view name, MouseAction action, int16_t button,
                            int16_t shift, float x, float y) = 0;
  // Gives the focus to the control; false when it cannot take it.
  virtual bool Focus(std::u16string_view name) = 0;
  // Types the keys (SendKeys notation) into the control that has the focus.
  virtual void TypeKeys(std::u16string_view keys) = 0;
  // Turns the mouse wheel by `delta` (120 a notch, toward the user negative) over the control:
  // its own window gets it, or with a place (x, y twips in the control's coordinates) the
  // window under that point (a list box of the control, a part).
  virtual void Wheel(std::u16string_view name, int32_t delta,
                     std::optional<std::pair<float, float>> at = std::nullopt) = 0;
  // Lets the given milliseconds pass, delivering what falls due.
  virtual void Wait(int32_t milliseconds) = 0;

  // Input to a popup window that a placed control shows (ZKControl::NamedPopup), at (x, y)
  // twips of the window's inner area. The screen's pointer goes there first, so that a window
  // dragged by its body follows it; while the window is dragged, moves and the release are the
  // drag's and reach nothing else. A press moves the focus inside the window to the part under
  // it.
  virtual void DeliverPopupMouse(IPopupWindow& popup, MouseAction action, int16_t button,
                                 int16_t shift, float x, float y) = 0;
  // Types the keys (SendKeys notation) into the popup window: to the part that has the focus
  // inside it, or the window's own surface. The form's Tab order and default and cancel keys
  // have no part in it.
  virtual void TypePopupKeys(IPopupWindow& popup, std::u16string_view keys) = 0;
  // Makes the form's window the active window of the application.
  virtual void Activate() = 0;

  // The property-changed notifications since the last call, oldest first.
  std::vector<std::pair<std::u16string, std::u16string>> TakePropertyChanges();

 protected:
  struct Placed {
    std::u16string name;
    const ControlKind* kind;
    // The name of the container control it lies in; empty on the form itself.
    std::u16string container;
    std::unique_ptr<IControlSite> site;
    std::shared_ptr<ZKControl> control;
    // Follows writes of the control's TabIndex (goes before the site that raises them).
    ScopedConnection tab_index_watch;
  };

  // A new site for a control of that kind and name, with its extender prepared (sizes
  // excepted) and its window on the form, or in the surface of the site `container` (a site
  // that this form made) when given. The site of a container kind reports ContainedControls().
  virtual std::unique_ptr<IControlSite> CreateSite(const ControlKind& kind,
                                                   std::u16string_view name,
                                                   IControlSite* container) = 0;
  // Scales the screen (twips per pixel) where the platform allows it.
  virtual void SetTwipsPerPixel(double twips_per_pixel) = 0;
  std::vector<Placed>& PlacedControls() { return placed_; }
  // The controls that the Tab key visits, in tab order (over the whole form, the controls
  // inside containers included): enabled, visible, inside shown and enabled containers, able to
  // take the focus and with TabStop set.
  std::vector<Placed*> TabOrder();
  bool CanFocus(Placed& placed);
  // Whether every container around the control is visible and enabled.
  bool ContainersLetThrough(const Placed& placed);
  // The placed control whose site has that surface, or null.
  Placed* PlacedWithSurface(const ISurface& surface);
  // Asks the control that has the focus whether it may leave; false keeps the focus there.
  bool MayLeave(ZKControl* focused);
  // Enter goes to the form's default control and Escape to its cancel control, as access keys;
  // true when such a control took the key.
  bool DeliverAccessKey(const KeyStroke& stroke);
  // Tab (with `shift` 1 for Shift+Tab) is offered to the focused control when it takes Tab, as
  // KeyDown(9, Shift) on its own surface; true when a handler used it (set the code to 0), so
  // that the form's focus stays.
  bool OfferTab(const ZKControl* focused, int16_t shift);
  // The next control in tab order after `current` (or before it), wrapping around.
  Placed* NextInTabOrder(const ZKControl* current, bool backwards);
  Placed* FindPlaced(std::u16string_view name);
  void Reindex();
  IPlatform& Platform() { return platform_; }
  // Puts the screen's pointer over (x, y), twips of the popup window's inner area.
  void MovePointerOver(IPopupWindow& popup, float x, float y);

 private:
  // Places a control on the form, or inside `container` (the name of a placed container).
  Placed& Place(const ControlKind& kind, std::u16string_view name,
                const MemoryPropertyBag* extender_values, std::u16string_view container);
  // Places the file's control and, inside it, what its block nests.
  void PlaceFromFile(FormFileControl& entry, std::u16string_view container);
  // The kind of a control about to be placed under `name`; raises ZKError 5 for an unknown
  // kind or a name that is taken or not a name.
  const ControlKind& NewControlKind(std::u16string_view kind, std::u16string_view name);
  // Puts the control whose extender is `moved` at `place` in the tab order (last when beyond
  // it) and numbers every control by its place.
  void MoveInTabOrder(const DispatchObject* moved, int32_t place);
  // Numbers the controls 0, 1, 2 ... in the order of their present TabIndex values (placement
  // order among equal values).
  void RenumberTabOrder() { MoveInTabOrder(nullptr, 0); }

  IPlatform& platform_;
  PlatformRecorder& recorder_;
  FormAmbient ambient_;
  std::vector<Placed> placed_;
  // Placed controls by their name in lower case, for quick lookups on large forms.
  std::unordered_map<std::u16string, size_t> index_;
  // Set while the form writes TabIndex values itself.
  bool renumbering_ = false;
};

}  // namespace zk
