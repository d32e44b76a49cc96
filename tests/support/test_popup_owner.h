#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/buttons/color_button.h"
#include "controls/text/text_edit.h"
#include "framework/constituent.h"
#include "framework/control.h"
#include "platform/popup_window.h"
#include "services/timer.h"

namespace zk {

// A control that owns a popup window, for the tests of popup windows: the window holds two
// colour buttons ("cmdOk", "cmdCancel") side by side under a text edit ("tedValue"), 120 twips
// from its edges; a press on the window's background around them drags the window (DragWindow).
// Open shows it below the control, modal or modeless; a click on either button hides it, and so
// does another window becoming active while it is shown, which a watch notices on its next tick
// (every 100 ms), as a drop-down list does. Every close is raised as PopupClosed with its
// reason (the button's name, "focus", or "code" for ClosePopup).
class ZKTestPopupOwner final : public ZKControl {
 public:
  explicit ZKTestPopupOwner(IControlSite& site);
  ~ZKTestPopupOwner() override;

  std::u16string_view Kind() const override { return u"ZKTestPopupOwner"; }
  const PropertyTable& Properties() const override;

  // Places the window under the control (twips of the screen, as wide as the control and 1200
  // twips high) and shows it; false when a modeless show was refused.
  bool Open(bool modal);
  void ClosePopup();
  bool PopupVisible() const;
  int32_t PopupWindow() const;
  // Whether the window is the application's active window.
  bool PopupActive() const;
  // The window's place from the control's top-left corner, twips (the same wherever the form
  // lies on the screen).
  double PopupX() const;
  double PopupY() const;
  // The window's text edit's text.
  std::u16string PopupText() const;

  IPopupWindow& Popup() { return *popup_; }
  // The window is "ListWindow", as a choice list calls its own.
  IPopupWindow* NamedPopup(std::u16string_view name) override;
  ZKColorButton& OkButton() { return *cmd_ok_; }
  ZKColorButton& CancelButton() { return *cmd_cancel_; }
  ZKTextEdit& ValueEdit() { return *ted_value_; }
  ISurface& ValueSurface() { return ted_value_.Surface(); }
  ISurface& OkSurface() { return cmd_ok_.Surface(); }
  ISurface& CancelSurface() { return cmd_cancel_.Surface(); }

  ControlEvent<std::u16string> PopupClosed{EventRaised(), u"PopupClosed"};
  // The platform's activation signal as the control sees it: whether the window that became
  // active is the control's popup window (window handles differ between platforms).
  ControlEvent<bool> WindowActivated{EventRaised(), u"WindowActivated"};

 protected:
  void Layout() override;

 private:
  void CloseFor(std::u16string reason);
  void Watch();

  // The window outlives its parts, which lie on its site.
  std::unique_ptr<IPopupWindow> popup_;
  Constituent<ZKTextEdit> ted_value_;
  Constituent<ZKColorButton> cmd_ok_;
  Constituent<ZKColorButton> cmd_cancel_;
  ZKCTimer focus_watch_;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
