#pragma once

#include <QEventLoop>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <memory>

#include "platform/common/popup_window_base.h"
#include "platform/qt/qt_control_site.h"

namespace zk {

// A popup window of the Qt platform: a frameless tool window whose transient parent is the
// owner's form (Qt::Popup would grab the input and close itself on a click elsewhere), holding
// a site whose surface fills it. A modal show runs a nested event loop that quits when the
// window hides. While dragged by its body the window grabs the mouse and follows the pointer
// until the button is released.
class QtPopupWindow final : public PopupWindowBase {
 public:
  QtPopupWindow(QtPlatform& platform, FormAmbient& ambient, QtSurface& owner);
  ~QtPopupWindow() override;

  QtControlSite& Site() override { return *site_; }
  WindowHandle hWnd() const override { return window_; }
  QWidget* Widget() const { return widget_.get(); }

 protected:
  void ShowWindow(bool shown) override;
  void PlaceWindow(const PixelRect& rect, double width, double height) override;
  void RunModalLoop(const std::shared_ptr<bool>& alive) override;
  void EndModalLoop() override;
  WindowHandle OwnerFormWindow() const override;
  void DragStarted() override;
  void DragEnded() override;

 private:
  class DragFilter;

  QtPlatform& platform_;
  QPointer<QWidget> owner_;
  std::unique_ptr<QWidget> widget_;
  WindowHandle window_ = 0;
  std::unique_ptr<DragFilter> drag_filter_;
  std::unique_ptr<QtControlSite> site_;
  QEventLoop* loop_ = nullptr;
};

}  // namespace zk
