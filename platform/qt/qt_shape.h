#pragma once

#include "platform/common/drawn_elements.h"
#include "platform/qt/qt_painted_element.h"

namespace zk {

// A shape painted by the control's surface: rectangles, squares, ovals, circles and rounded
// ones, filled or not, with a border of a colour, width and style.
class QtShape final : public ShapeElement<QtPaintedBase<IShapeElement>> {
 public:
  explicit QtShape(QtSurface& surface) : ShapeElement(surface) {}

  void Paint(QPainter& painter, const QRectF& area) const override;
};

}  // namespace zk
