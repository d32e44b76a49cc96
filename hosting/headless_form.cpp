#include "hosting/headless_form.h"

#include <algorithm>

#include "foundation/dispatch_object.h"
#include "foundation/zk_error.h"
#include "hosting/send_keys.h"
#include "platform/window_messages.h"

namespace zk {

HeadlessForm::HeadlessForm(HeadlessPlatform& platform)
    : Form(platform),
      platform_(platform),
      ambient_(platform.NewFont()),
      window_(platform.Windows().CreateWindow(0, u"Form", {0, 0, 640, 480})) {
  platform_.Windows().SetActiveWindow(window_);
}

HeadlessForm::~HeadlessForm() {
  RemoveAll();
  platform_.Windows().DestroyWindow(window_);
}

std::unique_ptr<IControlSite> HeadlessForm::CreateSite(const ControlKind& kind,
                                                       std::u16string_view name) {
  auto site =
      std::make_unique<HeadlessControlSite>(platform_, ambient_, window_, std::u16string(name));
  site->Extender().OfferDefaultAndCancel(kind.default_and_cancel);
  return site;
}

void HeadlessForm::BindExtender(IControlSite& site, ZKControl& control) {
  static_cast<HeadlessControlSite&>(site).Extender().BindEnabled(
      [&control] { return control.Enabled(); },
      [&control](bool enabled) { control.SetEnabled(enabled); });
}

HeadlessControlSite* HeadlessForm::FindSite(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  return placed ? static_cast<HeadlessControlSite*>(placed->site.get()) : nullptr;
}

ZKControl* HeadlessForm::FocusedControl() {
  for (Placed& placed : PlacedControls()) {
    if (placed.control.get() == focused_) return focused_;
  }
  return nullptr;  // the focused control is gone
}

Variant HeadlessForm::Ambient(std::u16string_view name) {
  if (MemberNameEquals(name, u"BackColor"))
    return variant_conversion::ToVariant(ambient_.BackColor());
  if (MemberNameEquals(name, u"ForeColor"))
    return variant_conversion::ToVariant(ambient_.ForeColor());
  if (MemberNameEquals(name, u"Font")) return Variant(ambient_.Font());
  if (MemberNameEquals(name, u"UserMode")) return Variant(ambient_.UserMode());
  if (MemberNameEquals(name, u"TwipsPerPixel")) {
    return Variant(platform_.Screen().TwipsPerPixelX());
  }
  throw ZKError::MemberNotFound();
}

void HeadlessForm::SetAmbient(std::u16string_view name, const Variant& value) {
  if (MemberNameEquals(name, u"BackColor")) return ambient_.SetBackColor(value.ToColor());
  if (MemberNameEquals(name, u"ForeColor")) return ambient_.SetForeColor(value.ToColor());
  if (MemberNameEquals(name, u"UserMode")) return ambient_.SetUserMode(value.ToBool());
  if (MemberNameEquals(name, u"Font")) {
    FontRef font = variant_conversion::FromVariant<FontRef>(value);
    if (!font) throw ZKError(error_number::kObjectRequired, u"Object required");
    return ambient_.SetFont(font->Clone());
  }
  if (MemberNameEquals(name, u"TwipsPerPixel")) {
    const double twips = value.ToDouble();
    if (!(twips >= 1 && twips <= 1440)) throw ZKError::InvalidPropertyValue();
    return platform_.Screen().SetTwipsPerPixel(twips, twips);
  }
  throw ZKError::MemberNotFound();
}

void HeadlessForm::DeliverMouse(std::u16string_view name, MouseAction action, int16_t button,
                                int16_t shift, float x, float y) {
  HeadlessControlSite* site = FindSite(name);
  if (site == nullptr) throw ZKError(error_number::kInvalidProcedureCall, u"No such control");
  if (action == MouseAction::kDown) {
    Placed* placed = FindPlaced(name);
    if (placed && CanFocus(*placed)) SetFocusTo(placed);
  }
  site->Surface().Deliver(action, button, shift, x, y);
}

bool HeadlessForm::CanFocus(Placed& placed) {
  if (!placed.kind->can_focus || !placed.control->Enabled()) return false;
  return placed.site->Extender().GetProperty(u"Visible").ToBool();
}

void HeadlessForm::SetFocusTo(Placed* placed) {
  ZKControl* next = placed ? placed->control.get() : nullptr;
  if (next == focused_) return;
  if (ZKControl* previous = FocusedControl()) {
    if (HeadlessControlSite* site = FindSite(previous->Name())) site->Surface().LostFocus().Emit();
  }
  focused_ = next;
  if (placed) static_cast<HeadlessControlSite&>(*placed->site).Surface().GotFocus().Emit();
}

bool HeadlessForm::Focus(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  if (placed == nullptr) throw ZKError(error_number::kInvalidProcedureCall, u"No such control");
  if (!CanFocus(*placed)) return false;
  SetFocusTo(placed);
  return true;
}

void HeadlessForm::MoveFocus(bool backwards) {
  std::vector<Placed*> order;
  for (Placed& placed : PlacedControls()) {
    bool tab_stop = false;
    try {
      tab_stop = placed.site->Extender().GetProperty(u"TabStop").ToBool();
    } catch (const ZKError&) {
    }
    if (tab_stop && CanFocus(placed)) order.push_back(&placed);
  }
  if (order.empty()) return;
  std::stable_sort(order.begin(), order.end(), [](Placed* a, Placed* b) {
    return a->site->Extender().GetProperty(u"TabIndex").ToInt32() <
           b->site->Extender().GetProperty(u"TabIndex").ToInt32();
  });
  auto current = std::find_if(order.begin(), order.end(),
                              [this](Placed* p) { return p->control.get() == focused_; });
  size_t index = 0;
  if (current != order.end()) {
    const size_t at = static_cast<size_t>(current - order.begin());
    index = backwards ? (at + order.size() - 1) % order.size() : (at + 1) % order.size();
  } else if (backwards) {
    index = order.size() - 1;
  }
  SetFocusTo(order[index]);
}

void HeadlessForm::TypeKeys(std::u16string_view keys) {
  for (KeyStroke stroke : ParseSendKeys(keys)) {
    if (stroke.key_code == 9 && (stroke.shift & 6) == 0) {
      MoveFocus((stroke.shift & 1) != 0);  // the form moves the focus on Tab
      continue;
    }
    ZKControl* focused = FocusedControl();
    HeadlessControlSite* site = focused ? FindSite(focused->Name()) : nullptr;
    if (site == nullptr) continue;  // nothing has the focus: the keys go nowhere
    HeadlessSurface& surface = site->Surface();
    int16_t key_code = stroke.key_code;
    int16_t shift = stroke.shift;
    surface.KeyDown().Emit(key_code, shift);
    if (stroke.character != 0) {
      int16_t character = stroke.character;
      surface.KeyPress().Emit(character);
    }
    key_code = stroke.key_code;
    shift = stroke.shift;
    surface.KeyUp().Emit(key_code, shift);
  }
}

void HeadlessForm::Wheel(std::u16string_view name, int32_t delta) {
  HeadlessControlSite* site = FindSite(name);
  if (site == nullptr) throw ZKError(error_number::kInvalidProcedureCall, u"No such control");
  // The turn travels in the upper 16 bits of the message's first value.
  const auto wparam =
      static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint16_t>(delta)) << 16);
  platform_.Windows().SendMessage(site->Surface().hWnd(), window_message::kMouseWheel, wparam, 0);
}

void HeadlessForm::Wait(int32_t milliseconds) {
  platform_.Advance(milliseconds);
}

std::vector<std::pair<std::u16string, std::u16string>> HeadlessForm::TakePropertyChanges() {
  std::vector<std::pair<std::u16string, std::u16string>> changes;
  for (const PropertyChangeRecord& record : platform_.Recorder().property_changes) {
    changes.emplace_back(record.control, record.property);
  }
  platform_.Recorder().property_changes.clear();
  return changes;
}

}  // namespace zk
