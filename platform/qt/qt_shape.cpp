#include "platform/qt/qt_shape.h"

#include <QPainterPath>
#include <algorithm>

#include "platform/qt/qt_colors.h"
#include "platform/types.h"

namespace zk {

void QtShape::Paint(QPainter& painter, const QRectF& area) const {
  QRectF bounds = area;
  // Squares and circles take the smaller side and sit centred.
  if (shape_ == shape_code::kSquare || shape_ == shape_code::kCircle ||
      shape_ == shape_code::kRoundedSquare) {
    const qreal side = std::min(bounds.width(), bounds.height());
    bounds = QRectF(bounds.center().x() - side / 2, bounds.center().y() - side / 2, side, side);
  }
  const QPalette& colors = Surface().Widget()->palette();
  const bool bordered = border_style_ != line_style::kTransparent && border_width_ > 0;
  const qreal pen_width = bordered ? border_width_ : 0;
  // The border lies within the bounds, so that the control's edge shows all of it.
  const QRectF outline =
      bounds.adjusted(pen_width / 2, pen_width / 2, -pen_width / 2, -pen_width / 2);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing,
                        shape_ != shape_code::kRectangle && shape_ != shape_code::kSquare);
  if (bordered) {
    QPen pen(ToQColor(border_color_, colors), pen_width);
    pen.setJoinStyle(Qt::MiterJoin);
    if (border_style_ == line_style::kDash) pen.setStyle(Qt::DashLine);
    if (border_style_ == line_style::kDot) pen.setStyle(Qt::DotLine);
    painter.setPen(pen);
  } else {
    painter.setPen(Qt::NoPen);
  }
  painter.setBrush(fill_style_ == 0 ? QBrush(ToQColor(fill_color_, colors)) : QBrush(Qt::NoBrush));
  const qreal radius = std::min(outline.width(), outline.height()) / 6;
  switch (shape_) {
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
