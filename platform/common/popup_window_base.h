#pragma once

#include <memory>

#include "foundation/signal.h"
#include "platform/common/procedure_window_system.h"
#include "platform/platform.h"
#include "platform/popup_window.h"

namespace zk {

// What a popup window does on every platform: its place in screen twips, the visible state,
// the refused modeless show, the modal show that returns once the window hides (and survives
// the window's destruction inside the loop), the owner's form becoming active again, and the
// drag by the body (message 161 with the caption hit): from then on the window follows the
// pointer until the drag ends. A platform adds how the window shows, where it lies, how a
// modal loop runs and where the pointer's moves come from.
class PopupWindowBase : public IPopupWindow {
 public:
  PopupWindowBase(const PopupWindowBase&) = delete;
  PopupWindowBase& operator=(const PopupWindowBase&) = delete;
  ~PopupWindowBase() override;

  double Left() const override { return left_; }
  double Top() const override { return top_; }
  double Width() const override { return width_; }
  double Height() const override { return height_; }
  void Move(double left, double top, double width, double height) override;
  bool Visible() const override { return visible_; }
  bool Show(bool modal) override;
  void Hide() override;

  // True from a drag's start (message 161 with the caption hit) to its end.
  bool Dragging() const { return dragging_; }

 protected:
  PopupWindowBase(IPlatform& platform, ProcedureWindowSystem& windows);

  // Called by the platform's constructor once the window exists: the window starts answering
  // the drag message.
  void Attach();
  // Called first by the platform's destructor: hides the window, ends a modal loop and a drag.
  void Detach();

  // The pointer moved while dragging: the window keeps the offset it had from the pointer.
  void FollowPointer();
  void EndDrag();

  // Shows or hides the platform's window.
  virtual void ShowWindow(bool shown) = 0;
  // Puts the platform's window at `rect`, screen pixels, and gives the site's surface the size.
  virtual void PlaceWindow(const PixelRect& rect, double width, double height) = 0;
  // Runs the modal loop; returns when the window hides or goes. Must not touch the window after
  // a destruction inside the loop (`alive` turned false).
  virtual void RunModalLoop(const std::shared_ptr<bool>& alive) = 0;
  // Ends the modal loop that runs (a hidden or destroyed window).
  virtual void EndModalLoop() = 0;
  // The top-level window of the owner's form, which becomes active when the window hides.
  virtual WindowHandle OwnerFormWindow() const = 0;
  // A drag starts and ends: a platform starts and stops listening to the pointer.
  virtual void DragStarted() {}
  virtual void DragEnded() {}

  IPlatform& Platform() { return platform_; }

 private:
  PixelRect PixelPlace() const;

  IPlatform& platform_;
  ProcedureWindowSystem& windows_;
  double left_ = 0;
  double top_ = 0;
  double width_ = 0;
  double height_ = 0;
  bool visible_ = false;
  int modal_depth_ = 0;
  bool dragging_ = false;
  PixelPoint drag_pointer_;
  PixelPoint drag_origin_;
  // Turns false when the window goes, so that a modal show returning afterwards knows it.
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace zk
