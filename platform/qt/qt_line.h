#pragma once

#include "platform/common/drawn_elements.h"
#include "platform/qt/qt_painted_element.h"

namespace zk {

// A line painted by the control's surface.
class QtLine final : public LineElement<QtPaintedBase<ILineElement>> {
 public:
  explicit QtLine(QtSurface& surface) : LineElement(surface) {}

  void Paint(QPainter& painter, const QRectF& area) const override;
};

}  // namespace zk
