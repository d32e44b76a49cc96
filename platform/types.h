#pragma once

#include <cstdint>

namespace zk {

// A 32-bit colour: 0x00BBGGRR, or a system colour when the high bit is set.
using OLE_COLOR = uint32_t;

// A window of the platform, as a 32-bit handle; 0 is no window.
using WindowHandle = int32_t;

struct PixelPoint {
  int32_t x = 0;
  int32_t y = 0;
  bool operator==(const PixelPoint&) const = default;
};

// Left, top, right and bottom edges in pixels (right and bottom exclusive).
struct PixelRect {
  int32_t left = 0;
  int32_t top = 0;
  int32_t right = 0;
  int32_t bottom = 0;
  int32_t Width() const { return right - left; }
  int32_t Height() const { return bottom - top; }
  bool operator==(const PixelRect&) const = default;
};

// System colours: the high bit set, the system colour index in the low byte.
namespace system_color {
inline constexpr OLE_COLOR kWindowBackground = 0x80000005;
inline constexpr OLE_COLOR kWindowText = 0x80000008;
inline constexpr OLE_COLOR kInactiveBorder = 0x8000000B;
inline constexpr OLE_COLOR kButtonFace = 0x8000000F;
inline constexpr OLE_COLOR kButtonText = 0x80000012;
}  // namespace system_color

// Shapes of the platform's shape element, shared by every control that draws one.
namespace shape_code {
inline constexpr int16_t kRectangle = 0;
inline constexpr int16_t kSquare = 1;
inline constexpr int16_t kOval = 2;
inline constexpr int16_t kCircle = 3;
inline constexpr int16_t kRoundedRectangle = 4;
inline constexpr int16_t kRoundedSquare = 5;
}  // namespace shape_code

// Pointer shapes of the screen.
namespace mouse_pointer {
inline constexpr int16_t kDefault = 0;
inline constexpr int16_t kArrow = 1;
inline constexpr int16_t kCrosshair = 2;
inline constexpr int16_t kIbeam = 3;
inline constexpr int16_t kSizeNESW = 6;
inline constexpr int16_t kSizeNS = 7;
inline constexpr int16_t kSizeNWSE = 8;
inline constexpr int16_t kSizeWE = 9;
inline constexpr int16_t kUpArrow = 10;
inline constexpr int16_t kHourglass = 11;
inline constexpr int16_t kNoDrop = 12;
inline constexpr int16_t kSizeAll = 15;
}  // namespace mouse_pointer

}  // namespace zk
