#pragma once

#include <QMetaObject>

#include "platform/common/platform_recorder.h"
#include "platform/screen.h"

namespace zk {

// The screen of the Qt platform: twips per pixel from the primary screen's logical resolution
// (a form may scale it), the real pointer (QCursor) and the application's default beep.
class QtScreen final : public IScreen {
 public:
  explicit QtScreen(PlatformRecorder& recorder);
  ~QtScreen() override;
  QtScreen(const QtScreen&) = delete;
  QtScreen& operator=(const QtScreen&) = delete;

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
  // Every layout and paint asks for the scale: it is read once, and again after the primary
  // screen or its resolution changed.
  void ReadScale() const;
  void ForgetScale() const;

  PlatformRecorder& recorder_;
  double override_ = 0;
  mutable double scale_x_ = 0;  // 0 until read
  mutable double scale_y_ = 0;
  QMetaObject::Connection primary_changed_;
  mutable QMetaObject::Connection resolution_changed_;
  int16_t mouse_pointer_ = 0;
  bool cursor_overridden_ = false;
};

}  // namespace zk
