#include "platform/headless/headless_popup_window.h"

#include "platform/window_messages.h"

namespace zk {

std::unique_ptr<IPopupWindow> HeadlessControlSite::MakePopup(HeadlessPlatform& platform,
                                                             FormAmbient& ambient,
                                                             HeadlessSurface& owner) {
  return std::make_unique<HeadlessPopupWindow>(platform, ambient, owner);
}

HeadlessPopupWindow::HeadlessPopupWindow(HeadlessPlatform& platform, FormAmbient& ambient,
                                         HeadlessSurface& owner)
    : PopupWindowBase(platform, platform.Windows()),
      platform_(platform),
      owner_window_(owner.hWnd()),
      window_(platform.Windows().CreateWindow(0, u"Popup", {0, 0, 0, 0})),
      site_(std::make_unique<HeadlessControlSite>(platform, ambient, window_,
                                                  HeadlessControlSite::InPopup{})) {
  Attach();
}

HeadlessPopupWindow::~HeadlessPopupWindow() {
  Detach();
  site_.reset();
  platform_.Windows().DestroyWindow(window_);
}

WindowHandle HeadlessPopupWindow::OwnerFormWindow() const {
  // The owner's window may be gone already when its control is being destroyed.
  const HeadlessWindowSystem& windows = platform_.Windows();
  WindowHandle top = owner_window_;
  if (!windows.IsWindow(top)) return 0;
  while (windows.Parent(top) != 0)
    top = windows.Parent(top);
  return top;
}

void HeadlessPopupWindow::ShowWindow(bool shown) {
  HeadlessWindowSystem& windows = platform_.Windows();
  const int32_t style = windows.GetWindowLong(window_, window_long::kStyle);
  windows.SetWindowLong(window_, window_long::kStyle,
                        shown ? style | window_style::kVisible : style & ~window_style::kVisible);
  if (shown) windows.BringToTop(window_);
  // The keys go to the shown window, as they would to an active one.
  site_->Surface().SetFormFocus(shown);
}

void HeadlessPopupWindow::PlaceWindow(const PixelRect& rect, double width, double height) {
  platform_.Windows().MoveWindow(window_, rect);
  site_->Surface().SetSize(width, height);
}

void HeadlessPopupWindow::RunModalLoop(const std::shared_ptr<bool>& alive) {
  // A copy: the callback may replace itself, or destroy this window, while it runs.
  const HeadlessPlatform::ModalCallback callback = platform_.GetModalCallback();
  if (callback && *alive) callback(*this);
}

void HeadlessPopupWindow::DragStarted() {
  // The drag has the mouse from now on: the press that started it ends without a release.
  site_->Surface().CancelPress();
  HeadlessScreen& screen = platform_.Screen();
  cursor_moved_ = screen.CursorMoved().Connect([this] { FollowPointer(); });
  button_released_ = screen.ButtonReleased().Connect([this] { EndDrag(); });
}

void HeadlessPopupWindow::DragEnded() {
  cursor_moved_.Disconnect();
  button_released_.Disconnect();
}

}  // namespace zk
