#include "platform/qt/qt_line.h"

#include "platform/qt/qt_colors.h"

namespace zk {

void QtLine::Paint(QPainter& painter, const QRectF&) const {
  if (border_style_ == line_style::kTransparent || border_width_ <= 0) return;
  QPen pen(ToQColor(border_color_, Surface().Widget()->palette()), border_width_);
  pen.setCapStyle(Qt::FlatCap);
  if (border_style_ == line_style::kDash) pen.setStyle(Qt::DashLine);
  if (border_style_ == line_style::kDot) pen.setStyle(Qt::DotLine);
  painter.setPen(pen);
  painter.drawLine(Surface().ToPixels(x1_, y1_), Surface().ToPixels(x2_, y2_));
}

}  // namespace zk
