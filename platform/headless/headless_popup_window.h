#pragma once

#include "platform/common/popup_window_base.h"
#include "platform/headless/headless_control_site.h"

namespace zk {

// A popup window in the headless window tree: a top-level window (class "Popup") holding a
// site whose surface fills it. A modal show runs the platform's modal callback in place of a
// message loop; while dragged by its body the window follows the headless pointer until the
// button is released (HeadlessScreen::ReleaseButton). While shown, the window's surface has
// the keys (DeliverKey on its site's surface).
class HeadlessPopupWindow final : public PopupWindowBase {
 public:
  HeadlessPopupWindow(HeadlessPlatform& platform, FormAmbient& ambient, HeadlessSurface& owner);
  ~HeadlessPopupWindow() override;

  HeadlessControlSite& Site() override { return *site_; }
  WindowHandle hWnd() const override { return window_; }

 protected:
  void ShowWindow(bool shown) override;
  void PlaceWindow(const PixelRect& rect, double width, double height) override;
  void RunModalLoop(const std::shared_ptr<bool>& alive) override;
  void EndModalLoop() override {}
  WindowHandle OwnerFormWindow() const override;
  void DragStarted() override;
  void DragEnded() override;

 private:
  HeadlessPlatform& platform_;
  WindowHandle owner_window_;
  WindowHandle window_;
  std::unique_ptr<HeadlessControlSite> site_;
  ScopedConnection cursor_moved_;
  ScopedConnection button_released_;
};

}  // namespace zk
