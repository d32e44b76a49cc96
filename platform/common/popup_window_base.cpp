#include "platform/common/popup_window_base.h"

#include <algorithm>
#include <cmath>

#include "foundation/low_level_utils.h"
#include "platform/window_messages.h"

namespace zk {
namespace {

// Places far outside every screen are kept within a range that pixels can count.
constexpr double kFarthestPixel = 1.0e8;

int32_t ToPixels(double twips, double twips_per_pixel) {
  return MLowLevelUtils::RoundToInt32(
      std::clamp(twips / twips_per_pixel, -kFarthestPixel, kFarthestPixel));
}

}  // namespace

PopupWindowBase::PopupWindowBase(IPlatform& platform, ProcedureWindowSystem& windows)
    : platform_(platform), windows_(windows) {}

PopupWindowBase::~PopupWindowBase() = default;

void PopupWindowBase::Attach() {
  windows_.SetClassHandler(
      hWnd(), [this](WindowHandle, uint32_t message, int32_t wparam, int32_t) -> int32_t {
        if (message != window_message::kNcLeftButtonDown || wparam != window_message::kHitCaption) {
          return 0;
        }
        // The pointer is where the press was: the window keeps its offset from it while dragged.
        drag_pointer_ = platform_.Screen().CursorPos();
        const PixelRect place = PixelPlace();
        drag_origin_ = {place.left, place.top};
        dragging_ = true;
        DragStarted();
        return 0;
      });
}

void PopupWindowBase::Detach() {
  *alive_ = false;
  EndDrag();
  visible_ = false;
  if (modal_depth_ > 0) EndModalLoop();
  if (windows_.GetActiveWindow() == hWnd()) windows_.NoteActivated(OwnerFormWindow());
}

PixelRect PopupWindowBase::PixelPlace() const {
  const double x_twips = platform_.Screen().TwipsPerPixelX();
  const double y_twips = platform_.Screen().TwipsPerPixelY();
  const int32_t left = ToPixels(left_, x_twips);
  const int32_t top = ToPixels(top_, y_twips);
  return {left, top, left + ToPixels(width_, x_twips), top + ToPixels(height_, y_twips)};
}

void PopupWindowBase::Move(double left, double top, double width, double height) {
  if (std::isnan(left) || std::isnan(top) || std::isnan(width) || std::isnan(height)) return;
  left_ = left;
  top_ = top;
  width_ = std::max(width, 0.0);
  height_ = std::max(height, 0.0);
  PlaceWindow(PixelPlace(), width_, height_);
}

bool PopupWindowBase::Show(bool modal) {
  if (!modal && !platform_.NonModalAllowed()) return false;
  if (!visible_) {
    visible_ = true;
    ShowWindow(true);
  }
  windows_.ActivateWindow(hWnd());
  if (!modal) return true;
  // The window may go inside the loop (its owner destroyed by a handler): from then on nothing
  // of it is touched.
  const std::shared_ptr<bool> alive = alive_;
  ++modal_depth_;
  RunModalLoop(alive);
  if (!*alive) return true;
  --modal_depth_;
  // A window still shown when the loop ended (a loop that was left some other way) is hidden,
  // so that the caller never sees a modal window left open.
  Hide();
  return true;
}

void PopupWindowBase::Hide() {
  EndDrag();
  if (!visible_) return;
  visible_ = false;
  ShowWindow(false);
  if (windows_.GetActiveWindow() == hWnd()) windows_.ActivateWindow(OwnerFormWindow());
  if (modal_depth_ > 0) EndModalLoop();
}

void PopupWindowBase::FollowPointer() {
  if (!dragging_) return;
  const PixelPoint pointer = platform_.Screen().CursorPos();
  const double x_twips = platform_.Screen().TwipsPerPixelX();
  const double y_twips = platform_.Screen().TwipsPerPixelY();
  left_ = (drag_origin_.x + pointer.x - drag_pointer_.x) * x_twips;
  top_ = (drag_origin_.y + pointer.y - drag_pointer_.y) * y_twips;
  PlaceWindow(PixelPlace(), width_, height_);
}

void PopupWindowBase::EndDrag() {
  if (!dragging_) return;
  dragging_ = false;
  DragEnded();
}

}  // namespace zk
