#pragma once

#include <map>

#include "foundation/signal.h"
#include "platform/common/platform_recorder.h"
#include "platform/screen.h"

namespace zk {

// A screen of 1920 x 1080 pixels at 15 twips per pixel (96 dpi) unless a test says otherwise;
// the pointer is virtual and beeps are counted in the recorder.
class HeadlessScreen final : public IScreen {
 public:
  explicit HeadlessScreen(PlatformRecorder& recorder);

  double TwipsPerPixelX() const override { return twips_per_pixel_x_; }
  double TwipsPerPixelY() const override { return twips_per_pixel_y_; }
  void SetTwipsPerPixel(double x, double y);

  int16_t MousePointer() const override { return mouse_pointer_; }
  void SetMousePointer(int16_t shape) override { mouse_pointer_ = shape; }

  PixelPoint CursorPos() const override { return cursor_; }
  // Clamped to the screen, as a real pointer is.
  bool SetCursorPos(int32_t x, int32_t y) override;
  // Raised after the pointer moved (SetCursorPos), so that a window being dragged follows it.
  Signal<>& CursorMoved() { return cursor_moved_; }
  // The user lets the mouse button go: ends a drag by the window's body.
  void ReleaseButton() { button_released_.Emit(); }
  Signal<>& ButtonReleased() { return button_released_; }

  int32_t SystemMetric(int32_t index) const override;
  void SetSystemMetric(int32_t index, int32_t value) { metrics_[index] = value; }

  void Beep() override { ++recorder_.beeps; }

 private:
  PlatformRecorder& recorder_;
  double twips_per_pixel_x_ = 15.0;
  double twips_per_pixel_y_ = 15.0;
  int16_t mouse_pointer_ = 0;
  PixelPoint cursor_;
  Signal<> cursor_moved_;
  Signal<> button_released_;
  std::map<int32_t, int32_t> metrics_;
};

}  // namespace zk
