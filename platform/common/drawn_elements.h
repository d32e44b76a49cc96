#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/elements.h"

namespace zk {

// The state of the drawn elements that is the same on every platform, over a platform's
// element base `Base` (which keeps the place and offers Changed(), called after every change
// of the look).

// The outline of shapes and lines: colour, width and style.
template <typename Base>
class OutlinedElement : public Base {
 public:
  using Base::Base;

  OLE_COLOR BorderColor() const override { return border_color_; }
  void SetBorderColor(OLE_COLOR color) override { Set(border_color_, color); }
  int16_t BorderWidth() const override { return border_width_; }
  void SetBorderWidth(int16_t width) override { Set(border_width_, width); }
  int16_t BorderStyle() const override { return border_style_; }
  void SetBorderStyle(int16_t style) override { Set(border_style_, style); }

 protected:
  template <typename T>
  void Set(T& field, T value) {
    field = value;
    this->Changed();
  }

 private:
  OLE_COLOR border_color_ = 0x80000008;
  int16_t border_width_ = 1;
  int16_t border_style_ = line_style::kSolid;
};

// A shape: its kind and fill, and its outline.
template <typename Base>
class ShapeElement : public OutlinedElement<Base> {
 public:
  using OutlinedElement<Base>::OutlinedElement;

  int16_t Shape() const override { return shape_; }
  void SetShape(int16_t shape) override { this->Set(shape_, shape); }
  OLE_COLOR FillColor() const override { return fill_color_; }
  void SetFillColor(OLE_COLOR color) override { this->Set(fill_color_, color); }
  int16_t FillStyle() const override { return fill_style_; }
  void SetFillStyle(int16_t style) override { this->Set(fill_style_, style); }

 private:
  int16_t shape_ = 0;
  OLE_COLOR fill_color_ = 0;
  int16_t fill_style_ = 1;
};

// A line: its two ends, whose box is its place, and its outline.
template <typename Base>
class LineElement : public OutlinedElement<Base> {
 public:
  using OutlinedElement<Base>::OutlinedElement;

  double X1() const override { return x1_; }
  double Y1() const override { return y1_; }
  double X2() const override { return x2_; }
  double Y2() const override { return y2_; }
  void SetPoints(double x1, double y1, double x2, double y2) override {
    x1_ = x1;
    y1_ = y1;
    x2_ = x2;
    y2_ = y2;
    Base::Move(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1));
  }
  // Moving a line moves both of its ends.
  void Move(double left, double top, double width, double height) override {
    SetPoints(left, top, left + width, top + height);
  }

 private:
  double x1_ = 0;
  double y1_ = 0;
  double x2_ = 0;
  double y2_ = 0;
};

}  // namespace zk
