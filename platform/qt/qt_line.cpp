#include "platform/qt/qt_line.h"

#include "platform/qt/qt_colors.h"

namespace zk {

void QtLine::Paint(QPainter& painter, const QRectF&) const {
  if (BorderStyle() == line_style::kTransparent || BorderWidth() <= 0) return;
  QPen pen(ToQColor(BorderColor(), Surface().Widget()->palette()), BorderWidth());
  pen.setCapStyle(Qt::FlatCap);
  if (BorderStyle() == line_style::kDash) pen.setStyle(Qt::DashLine);
  if (BorderStyle() == line_style::kDot) pen.setStyle(Qt::DotLine);
  painter.setPen(pen);
  painter.drawLine(Surface().ToPixels(X1(), Y1()), Surface().ToPixels(X2(), Y2()));
}

}  // namespace zk
