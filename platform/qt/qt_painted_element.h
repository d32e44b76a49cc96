#pragma once

#include <QPainter>

#include "platform/common/element_state.h"
#include "platform/qt/qt_surface.h"

namespace zk {

// A windowless element that a Qt surface paints, over the element interface `Base`: it
// registers with the surface while it lives and asks for a repaint after every change of its
// place or look.
template <typename Base>
class QtPaintedBase : public ElementState<Base>, public QtPaintedElement {
 public:
  explicit QtPaintedBase(QtSurface& surface) : surface_(surface) {
    surface_.AddPaintedElement(this, this);
  }
  ~QtPaintedBase() override { surface_.RemovePaintedElement(this); }
  QtPaintedBase(const QtPaintedBase&) = delete;
  QtPaintedBase& operator=(const QtPaintedBase&) = delete;

  void Refresh() override {
    if (QWidget* widget = surface_.Widget()) widget->repaint();
  }
  void BringToFront() override { surface_.BringPaintedToFront(this); }

 protected:
  void Changed() override { surface_.Update(); }
  QtSurface& Surface() const { return surface_; }

 private:
  QtSurface& surface_;
};

}  // namespace zk
