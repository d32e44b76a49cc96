#pragma once

#include "platform/platform_recorder.h"
#include "platform/screen.h"

namespace zk {

// The screen of the Qt platform: twips per pixel from the primary screen's logical resolution
// (a form may scale it), the real pointer (QCursor) and the application's default beep.
class QtScreen final : public IScreen {
 public:
  explicit QtScreen(PlatformRecorder& recorder);

  double TwipsPerPixelX() const override;
  double TwipsPerPixelY() const override;
  // Overrides the screen's scale (0 returns to the screen's own).
  void SetTwipsPerPixel(double twips_per_pixel) { override_ = twips_per_pixel; }

  int16_t MousePointer() const override { return mouse_pointer_; }
  void SetMousePointer(int16_t shape) override;
  PixelPoint CursorPos() const override;
  bool SetCursorPos(int32_t x, int32_t y) override;
  int32_t SystemMetric(int32_t index) const override;
  void Beep() override;

 private:
  PlatformRecorder& recorder_;
  double override_ = 0;
  int16_t mouse_pointer_ = 0;
  bool cursor_overridden_ = false;
};

}  // namespace zk
