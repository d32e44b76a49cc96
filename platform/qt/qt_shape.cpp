#include "platform/qt/qt_shape.h"

#include <QPainterPath>
#include <algorithm>

#include "platform/qt/qt_colors.h"
#include "platform/types.h"

namespace zk {

void QtShape::Paint(QPainter& painter, const QRectF& area) const {
  QRectF bounds = area;
  // Squares and circles take the smaller side and sit centred.
  if (Shape() == shape_code::kSquare || Shape() == shape_code::kCircle ||
      Shape() == shape_code::kRoundedSquare) {
    const qreal side = std::min(bounds.width(), bounds.height());
    bounds = QRectF(bounds.center().x() - side / 2, bounds.center().y() - side / 2, side, side);
  }
  const QPalette& colors = Surface().Widget()->palette();
  const bool bordered = BorderStyle() != line_style::kTransparent && BorderWidth() > 0;
  const qreal pen_width = bordered ? BorderWidth() : 0;
  // The border lies within the bounds, so that the control's edge shows all of it.
  const QRectF outline =
      bounds.adjusted(pen_width / 2, pen_width / 2, -pen_width / 2, -pen_width / 2);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing,
                        Shape() != shape_code::kRectangle && Shape() != shape_code::kSquare);
  if (bordered) {
    QPen pen(ToQColor(BorderColor(), colors), pen_width);
    pen.setJoinStyle(Qt::MiterJoin);
    if (BorderStyle() == line_style::kDash) pen.setStyle(Qt::DashLine);
    if (BorderStyle() == line_style::kDot) pen.setStyle(Qt::DotLine);
    painter.setPen(pen);
  } else {
    painter.setPen(Qt::NoPen);
  }
  painter.setBrush(FillStyle() == 0 ? QBrush(ToQColor(FillColor(), colors)) : QBrush(Qt::NoBrush));
  const qreal radius = std::min(outline.width(), outline.height()) / 6;
  switch (Shape()) {
    case shape_code::kOval:
    case shape_code::kCircle:
      painter.drawEllipse(outline);
      break;
    case shape_code::kRoundedRectangle:
    case shape_code::kRoundedSquare:
      painter.drawRoundedRect(outline, radius, radius);
      break;
    default:
      painter.drawRect(outline);
      break;
  }
  painter.restore();
}

}  // namespace zk
