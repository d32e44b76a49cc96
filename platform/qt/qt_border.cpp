#include "platform/qt/qt_border.h"

namespace zk {

int BorderPixels(int16_t border_style, int16_t appearance) {
  return border_style == 0 ? 0 : (appearance == 1 ? 2 : 1);
}

void PaintBorder(QPainter& painter, const QRect& area, const QPalette& colors, int16_t border_style,
                 int16_t appearance) {
  if (border_style == 0) return;
  if (appearance == 0) {
    painter.setPen(Qt::black);
    painter.drawRect(area.adjusted(0, 0, -1, -1));  // a rectangle's outline lies outside it
    return;
  }
  // A sunken edge: shadow above and left, light below and right, twice.
  auto edge = [&](const QRect& r, const QColor& top_left, const QColor& bottom_right) {
    painter.setPen(top_left);
    painter.drawLine(r.topLeft(), r.topRight());
    painter.drawLine(r.topLeft(), r.bottomLeft());
    painter.setPen(bottom_right);
    painter.drawLine(r.bottomLeft(), r.bottomRight());
    painter.drawLine(r.topRight(), r.bottomRight());
  };
  edge(area, colors.color(QPalette::Dark), colors.color(QPalette::Light));
  edge(area.adjusted(1, 1, -1, -1), colors.color(QPalette::Shadow),
       colors.color(QPalette::Midlight));
}

}  // namespace zk
