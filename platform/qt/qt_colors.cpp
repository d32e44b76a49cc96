#include "platform/qt/qt_colors.h"

#include <array>

namespace zk {
namespace {

// The classic system colours by index, for the indexes that have no palette role here.
constexpr std::array<QRgb, 31> kClassicSystemColors = {
    0xFFC8C8C8, 0xFF000000, 0xFF99B4D1, 0xFFBFCDDB, 0xFFF0F0F0, 0xFFFFFFFF, 0xFF646464, 0xFF000000,
    0xFF000000, 0xFF000000, 0xFFB4B4B4, 0xFFF4F7FC, 0xFFABABAB, 0xFF0078D7, 0xFFFFFFFF, 0xFFF0F0F0,
    0xFFA0A0A0, 0xFF6D6D6D, 0xFF000000, 0xFF000000, 0xFFFFFFFF, 0xFF696969, 0xFFE3E3E3, 0xFF000000,
    0xFFFFFFE1, 0xFF000000, 0xFF0066CC, 0xFFB9D1EA, 0xFFD7E4F2, 0xFFF0F0F0, 0xFF000000};

}  // namespace

QColor ToQColor(OLE_COLOR color, const QPalette& palette) {
  if ((color & 0x80000000u) == 0) {
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
  }
  const uint32_t index = color & 0xFFFFu;
  switch (index) {
    case 5:  // window background
      return palette.color(QPalette::Base);
    case 8:  // window text
      return palette.color(QPalette::Text);
    case 11:  // inactive border
      return palette.color(QPalette::Mid);
    case 15:  // button face
      return palette.color(QPalette::Button);
    case 18:  // button text
      return palette.color(QPalette::ButtonText);
    case 16:  // button shadow
      return palette.color(QPalette::Dark);
    case 20:  // button highlight
      return palette.color(QPalette::Light);
    default:
      return index < kClassicSystemColors.size() ? QColor::fromRgb(kClassicSystemColors[index])
                                                 : QColor(Qt::black);
  }
}

}  // namespace zk
