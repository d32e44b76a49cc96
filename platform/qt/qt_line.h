#pragma once

#include <algorithm>
#include <cmath>

#include "platform/qt/qt_painted_element.h"

namespace zk {

// A line painted by the control's surface.
class QtLine final : public QtPaintedBase<ILineElement> {
 public:
  explicit QtLine(QtSurface& surface) : QtPaintedBase(surface) {}

  double X1() const override { return x1_; }
  double Y1() const override { return y1_; }
  double X2() const override { return x2_; }
  double Y2() const override { return y2_; }
  void SetPoints(double x1, double y1, double x2, double y2) override {
    x1_ = x1;
    y1_ = y1;
    x2_ = x2;
    y2_ = y2;
    QtPaintedBase::Move(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1));
  }
  // Moving a line moves both of its ends.
  void Move(double left, double top, double width, double height) override {
    SetPoints(left, top, left + width, top + height);
  }
  OLE_COLOR BorderColor() const override { return border_color_; }
  void SetBorderColor(OLE_COLOR color) override {
    border_color_ = color;
    Changed();
  }
  int16_t BorderWidth() const override { return border_width_; }
  void SetBorderWidth(int16_t width) override {
    border_width_ = width;
    Changed();
  }
  int16_t BorderStyle() const override { return border_style_; }
  void SetBorderStyle(int16_t style) override {
    border_style_ = style;
    Changed();
  }

  void Paint(QPainter& painter, const QRectF& area) const override;

 private:
  double x1_ = 0;
  double y1_ = 0;
  double x2_ = 0;
  double y2_ = 0;
  OLE_COLOR border_color_ = 0x80000008;
  int16_t border_width_ = 1;
  int16_t border_style_ = line_style::kSolid;
};

}  // namespace zk
