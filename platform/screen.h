#pragma once

#include <cstdint>

#include "platform/types.h"

namespace zk {

// The screen: its scale, the mouse pointer and the system measures.
class IScreen {
 public:
  virtual ~IScreen() = default;

  // Twips (1/1440 inch) per screen pixel; 15 on a 96 dpi screen.
  virtual double TwipsPerPixelX() const = 0;
  virtual double TwipsPerPixelY() const = 0;

  // The pointer shape shown over the application (mouse_pointer constants).
  virtual int16_t MousePointer() const = 0;
  virtual void SetMousePointer(int16_t shape) = 0;

  // The pointer's position in screen pixels.
  virtual PixelPoint CursorPos() const = 0;
  // Moves the pointer; false when the platform refuses.
  virtual bool SetCursorPos(int32_t x, int32_t y) = 0;

  // A system measure by its index (system_metric constants); 0 for an unknown index.
  virtual int32_t SystemMetric(int32_t index) const = 0;

  // The platform's default beep.
  virtual void Beep() = 0;
};

}  // namespace zk
