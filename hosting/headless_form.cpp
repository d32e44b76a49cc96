#include "hosting/headless_form.h"

#include <algorithm>
#include <utility>

#include "foundation/dispatch_object.h"
#include "foundation/zk_error.h"
#include "hosting/send_keys.h"
#include "platform/common/popup_window_base.h"
#include "platform/window_messages.h"

namespace zk {

HeadlessForm::HeadlessForm(HeadlessPlatform& platform)
    : Form(platform, platform.Recorder()),
      platform_(platform),
      window_(platform.Windows().CreateWindow(0, u"Form", {0, 0, 640, 480})) {
  platform_.Windows().ActivateWindow(window_);
}

HeadlessForm::~HeadlessForm() {
  RemoveAll();
  platform_.Windows().DestroyWindow(window_);
}

std::unique_ptr<IControlSite> HeadlessForm::CreateSite(const ControlKind& kind,
                                                       std::u16string_view name,
                                                       IControlSite* container) {
  HeadlessSurface* holder =
      container != nullptr ? &static_cast<HeadlessControlSite&>(*container).Surface() : nullptr;
  auto site = std::make_unique<HeadlessControlSite>(platform_, AmbientProperties(), window_,
                                                    std::u16string(name), holder);
  if (kind.container) {
    site->SetContainedControls(
        [this, holder_name = std::u16string(name)] { return ContainedControls(holder_name); });
  }
  return site;
}

void HeadlessForm::SetTwipsPerPixel(double twips_per_pixel) {
  platform_.Screen().SetTwipsPerPixel(twips_per_pixel, twips_per_pixel);
}

HeadlessControlSite* HeadlessForm::FindSite(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  return placed ? static_cast<HeadlessControlSite*>(placed->site.get()) : nullptr;
}

HeadlessForm::Placed* HeadlessForm::FocusedPlaced() {
  // The control whose surface has the form's focus: a control placed anew never has it, even
  // where a removed one that had it lived before.
  for (Placed& placed : PlacedControls()) {
    if (static_cast<HeadlessControlSite&>(*placed.site).Surface().FormFocus()) return &placed;
  }
  return nullptr;
}

ZKControl* HeadlessForm::FocusedControl() {
  Placed* placed = FocusedPlaced();
  return placed ? placed->control.get() : nullptr;
}

void HeadlessForm::DeliverMouse(std::u16string_view name, MouseAction action, int16_t button,
                                int16_t shift, float x, float y) {
  HeadlessControlSite* site = FindSite(name);
  if (site == nullptr) throw ZKError(error_number::kInvalidProcedureCall, u"No such control");
  if (action == MouseAction::kDown || action == MouseAction::kDoubleDown) {
    // A press on a window makes it the active one, as on a desktop.
    Activate();
    Placed* placed = FindPlaced(name);
    // The press gives the focus to the part under it (or the control's own text box there);
    // on the control's windowless area the focus inside the control stays where it was.
    bool here = false;
    HeadlessSurface* inner = site->Surface().PressFocusTarget(x, y, here);
    // Over a control inside a container, the press is that control's.
    if (inner != nullptr) {
      if (Placed* holder = PlacedWithSurface(inner->Root())) {
        placed = holder;
        if (inner == &inner->Root() && !here) inner = nullptr;
      }
    }
    // A control (or part) that refuses to let the focus go keeps the press, and its release,
    // from reaching the other one.
    if (placed && CanFocus(*placed) && !SetFocusTo(placed, inner, here)) {
      swallow_release_ = true;
      return;
    }
  }
  if (action == MouseAction::kUp && std::exchange(swallow_release_, false)) return;
  site->Surface().Deliver(action, button, shift, x, y);
}

bool HeadlessForm::SetFocusTo(Placed* placed, HeadlessSurface* inner, bool here) {
  Placed* current = FocusedPlaced();
  if (placed == current) return placed == nullptr || inner == nullptr || inner->MoveFocusHere(here);
  // The control that has the focus validates before it lets it go.
  if (!MayLeave(current ? current->control.get() : nullptr)) return false;
  if (current) static_cast<HeadlessControlSite&>(*current->site).Surface().SetFormFocus(false);
  // Without the focus yet, the control only remembers where inside it the focus goes.
  if (inner != nullptr) inner->MoveFocusHere(here);
  if (placed) static_cast<HeadlessControlSite&>(*placed->site).Surface().SetFormFocus(true);
  return true;
}

bool HeadlessForm::Focus(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  if (placed == nullptr) throw ZKError(error_number::kInvalidProcedureCall, u"No such control");
  if (!CanFocus(*placed)) return false;
  Activate();
  SetFocusTo(placed);  // a control that keeps the focus is not an error of the caller
  return true;
}

void HeadlessForm::TypeKeys(std::u16string_view keys) {
  for (KeyStroke stroke : ParseSendKeys(keys)) {
    if (stroke.key_code == 9 && (stroke.shift & 6) == 0) {
      if (OfferTab(FocusedControl(), stroke.shift)) continue;
      // The form moves the focus on Tab.
      if (Placed* next = NextInTabOrder(FocusedControl(), (stroke.shift & 1) != 0))
        SetFocusTo(next);
      continue;
    }
    if (DeliverAccessKey(stroke)) continue;
    ZKControl* focused = FocusedControl();
    HeadlessControlSite* site = focused ? FindSite(focused->Name()) : nullptr;
    if (site == nullptr) continue;  // nothing has the focus: the keys go nowhere
    site->Surface().DeliverKey(stroke.key_code, stroke.shift, stroke.character);
  }
}

void HeadlessForm::Wheel(std::u16string_view name, int32_t delta,
                         std::optional<std::pair<float, float>> at) {
  HeadlessControlSite* site = FindSite(name);
  if (site == nullptr) throw ZKError(error_number::kInvalidProcedureCall, u"No such control");
  // The turn travels in the upper 16 bits of the message's first value.
  const auto wparam =
      static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint16_t>(delta)) << 16);
  const WindowHandle window =
      at ? site->Surface().WindowAt(at->first, at->second) : site->Surface().hWnd();
  platform_.Windows().SendMessage(window, window_message::kMouseWheel, wparam, 0);
}

void HeadlessForm::Wait(int32_t milliseconds) {
  platform_.Advance(milliseconds);
}

void HeadlessForm::DeliverPopupMouse(IPopupWindow& popup, MouseAction action, int16_t button,
                                     int16_t shift, float x, float y) {
  MovePointerOver(popup, x, y);
  // A window being dragged has the mouse until the button goes up.
  const auto* dragged = dynamic_cast<const PopupWindowBase*>(&popup);
  if (dragged != nullptr && dragged->Dragging()) {
    if (action == MouseAction::kUp) platform_.Screen().ReleaseButton();
    return;
  }
  auto& surface = static_cast<HeadlessSurface&>(popup.Site().Surface());
  if (action == MouseAction::kDown || action == MouseAction::kDoubleDown) {
    if (popup.Visible()) platform_.Windows().ActivateWindow(popup.hWnd());
    bool here = false;
    if (HeadlessSurface* inner = surface.PressFocusTarget(x, y, here)) inner->MoveFocusHere(here);
  }
  surface.Deliver(action, button, shift, x, y);
}

void HeadlessForm::TypePopupKeys(IPopupWindow& popup, std::u16string_view keys) {
  auto& surface = static_cast<HeadlessSurface&>(popup.Site().Surface());
  for (const KeyStroke& stroke : ParseSendKeys(keys)) {
    // A key may close the window, or destroy it with its control: the rest go nowhere.
    if (!popup.Visible()) return;
    surface.DeliverKey(stroke.key_code, stroke.shift, stroke.character);
  }
}

void HeadlessForm::Activate() {
  platform_.Windows().ActivateWindow(window_);
}

}  // namespace zk
