#pragma once

#include "platform/qt/qt_painted_element.h"

namespace zk {

// A shape painted by the control's surface: rectangles, squares, ovals, circles and rounded
// ones, filled or not, with a border of a colour, width and style.
class QtShape final : public QtPaintedBase<IShapeElement> {
 public:
  explicit QtShape(QtSurface& surface) : QtPaintedBase(surface) {}

  int16_t Shape() const override { return shape_; }
  void SetShape(int16_t shape) override { Set(shape_, shape); }
  OLE_COLOR FillColor() const override { return fill_color_; }
  void SetFillColor(OLE_COLOR color) override { Set(fill_color_, color); }
  int16_t FillStyle() const override { return fill_style_; }
  void SetFillStyle(int16_t style) override { Set(fill_style_, style); }
  OLE_COLOR BorderColor() const override { return border_color_; }
  void SetBorderColor(OLE_COLOR color) override { Set(border_color_, color); }
  int16_t BorderWidth() const override { return border_width_; }
  void SetBorderWidth(int16_t width) override { Set(border_width_, width); }
  int16_t BorderStyle() const override { return border_style_; }
  void SetBorderStyle(int16_t style) override { Set(border_style_, style); }

  void Paint(QPainter& painter, const QRectF& area) const override;

 private:
  template <typename T>
  void Set(T& field, T value) {
    field = value;
    Changed();
  }

  int16_t shape_ = 0;
  OLE_COLOR fill_color_ = 0;
  int16_t fill_style_ = 1;
  OLE_COLOR border_color_ = 0x80000008;
  int16_t border_width_ = 1;
  int16_t border_style_ = line_style::kSolid;
};

}  // namespace zk
