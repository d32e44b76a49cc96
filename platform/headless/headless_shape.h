#pragma once

#include "platform/elements.h"
#include "platform/headless/headless_element.h"

namespace zk {

// A shape element of the headless platform: it keeps what it would draw.
class HeadlessShape : public HeadlessElement<IShapeElement> {
 public:
  int16_t Shape() const override { return shape_; }
  void SetShape(int16_t shape) override { shape_ = shape; }
  OLE_COLOR FillColor() const override { return fill_color_; }
  void SetFillColor(OLE_COLOR color) override { fill_color_ = color; }
  int16_t FillStyle() const override { return fill_style_; }
  void SetFillStyle(int16_t style) override { fill_style_ = style; }
  OLE_COLOR BorderColor() const override { return border_color_; }
  void SetBorderColor(OLE_COLOR color) override { border_color_ = color; }
  int16_t BorderWidth() const override { return border_width_; }
  void SetBorderWidth(int16_t width) override { border_width_ = width; }
  int16_t BorderStyle() const override { return border_style_; }
  void SetBorderStyle(int16_t style) override { border_style_ = style; }
  void Refresh() override {}

 private:
  int16_t shape_ = 0;
  OLE_COLOR fill_color_ = 0;
  int16_t fill_style_ = 1;
  OLE_COLOR border_color_ = 0x80000008;
  int16_t border_width_ = 1;
  int16_t border_style_ = line_style::kSolid;
};

}  // namespace zk
