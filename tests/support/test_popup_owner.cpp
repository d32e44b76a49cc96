#include "support/test_popup_owner.h"

#include <algorithm>
#include <utility>

#include "platform/platform.h"
#include "services/gui_utils.h"

namespace zk {
namespace {

using automation::Method;
using automation::RequiredArgument;

constexpr double kPopupHeight = 1200;
// The window's background shows around the parts: pressing there drags the window.
constexpr double kMargin = 120;

ZKTestPopupOwner& Self(ZKControl& control) {
  return static_cast<ZKTestPopupOwner&>(control);
}

}  // namespace

ZKTestPopupOwner::ZKTestPopupOwner(IControlSite& site)
    : ZKControl(site),
      popup_(site.CreatePopupWindow()),
      ted_value_(popup_->Site(), u"tedValue"),
      cmd_ok_(popup_->Site(), u"cmdOk"),
      cmd_cancel_(popup_->Site(), u"cmdCancel") {
  cmd_ok_->SetCaption(u"OK");
  cmd_cancel_->SetCaption(u"Cancel");
  connections_.push_back(cmd_ok_->Click.Connect([this] { CloseFor(u"cmdOk"); }));
  connections_.push_back(cmd_cancel_->Click.Connect([this] { CloseFor(u"cmdCancel"); }));
  connections_.push_back(popup_->Site().Surface().Resized().Connect([this] { Layout(); }));
  connections_.push_back(
      popup_->Site().Surface().MouseDown().Connect([this](int16_t button, int16_t, float, float) {
        if (button == 1) MGuiUtils::DragWindow(popup_->hWnd());
      }));
  connections_.push_back(CurrentPlatform().Windows().Activated().Connect(
      [this](WindowHandle window) { WindowActivated.Raise(window == popup_->hWnd()); }));
  connections_.push_back(focus_watch_.Timer().Connect([this] { Watch(); }));
  focus_watch_.SetInterval(100);
}

ZKTestPopupOwner::~ZKTestPopupOwner() = default;

void ZKTestPopupOwner::Layout() {
  ISurface& surface = popup_->Site().Surface();
  const double width = std::max(surface.ScaleWidth() - 2 * kMargin, 0.0);
  const double height = std::max(surface.ScaleHeight() - 2 * kMargin, 0.0);
  ted_value_.Move(kMargin, kMargin, width, height / 2);
  cmd_ok_.Move(kMargin, kMargin + height / 2, width / 2, height / 2);
  cmd_cancel_.Move(kMargin + width / 2, kMargin + height / 2, width / 2, height / 2);
}

bool ZKTestPopupOwner::Open(bool modal) {
  IPlatform& platform = CurrentPlatform();
  PixelRect rect;
  platform.Windows().GetWindowRect(Surface().hWnd(), rect);
  const double x_twips = platform.Screen().TwipsPerPixelX();
  const double y_twips = platform.Screen().TwipsPerPixelY();
  popup_->Move(rect.left * x_twips, rect.bottom * y_twips, Surface().Width(), kPopupHeight);
  if (!modal) {
    if (!popup_->Show(false)) return false;
    focus_watch_.SetEnabled(true);
    return true;
  }
  focus_watch_.SetEnabled(true);
  // The control may be destroyed while the loop runs: nothing of it is touched afterwards.
  return popup_->Show(true);
}

void ZKTestPopupOwner::ClosePopup() {
  CloseFor(u"code");
}

void ZKTestPopupOwner::CloseFor(std::u16string reason) {
  if (!popup_->Visible()) return;
  focus_watch_.SetEnabled(false);
  popup_->Hide();
  PopupClosed.Raise(std::move(reason));
}

void ZKTestPopupOwner::Watch() {
  if (!popup_->Visible()) {
    focus_watch_.SetEnabled(false);
    return;
  }
  if (CurrentPlatform().Windows().GetActiveWindow() != popup_->hWnd()) CloseFor(u"focus");
}

IPopupWindow* ZKTestPopupOwner::NamedPopup(std::u16string_view name) {
  return MemberNameEquals(name, u"ListWindow") ? popup_.get() : nullptr;
}

bool ZKTestPopupOwner::PopupVisible() const {
  return popup_->Visible();
}

int32_t ZKTestPopupOwner::PopupWindow() const {
  return popup_->hWnd();
}

bool ZKTestPopupOwner::PopupActive() const {
  return CurrentPlatform().Windows().GetActiveWindow() == popup_->hWnd();
}

double ZKTestPopupOwner::PopupX() const {
  IPlatform& platform = CurrentPlatform();
  PixelRect rect;
  platform.Windows().GetWindowRect(Surface().hWnd(), rect);
  return popup_->Left() - rect.left * platform.Screen().TwipsPerPixelX();
}

double ZKTestPopupOwner::PopupY() const {
  IPlatform& platform = CurrentPlatform();
  PixelRect rect;
  platform.Windows().GetWindowRect(Surface().hWnd(), rect);
  return popup_->Top() - rect.top * platform.Screen().TwipsPerPixelY();
}

std::u16string ZKTestPopupOwner::PopupText() const {
  return ted_value_->Text();
}

const PropertyTable& ZKTestPopupOwner::Properties() const {
  using C = ZKTestPopupOwner;
  using property_rows::Member;
  using property_rows::ReadOnly;
  static const PropertyTable table(
      {
          ReadOnly(u"PopupVisible", &C::PopupVisible),
          ReadOnly(u"PopupWindow", &C::PopupWindow),
          ReadOnly(u"PopupActive", &C::PopupActive),
          ReadOnly(u"PopupX", &C::PopupX),
          ReadOnly(u"PopupY", &C::PopupY),
          ReadOnly(u"PopupText", &C::PopupText),
          Member(Method(u"Open",
                        [](ZKControl& control, std::span<Variant> args) {
                          return Variant(Self(control).Open(RequiredArgument(args, 0).ToBool()));
                        })),
          Member(Method(u"ClosePopup",
                        [](ZKControl& control, std::span<Variant>) {
                          Self(control).ClosePopup();
                          return Variant();
                        })),
          CommonRow(u"hWnd"),
          CommonRow(u"Font"),
      },
      {u"PopupClosed", u"WindowActivated"});
  return table;
}

}  // namespace zk
