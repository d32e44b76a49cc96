#pragma once

#include <cstdint>

#include "platform/elements.h"

namespace zk {

// What a picture box is on every platform, over the platform's element base `Base` (an
// ElementState of IPictureBoxElement): its window, back colour, border and appearance. A
// platform adds its window and how the box is drawn (Changed() runs after every change).
template <typename Base>
class PictureBoxState : public Base {
 public:
  WindowHandle hWnd() const override { return window_; }
  OLE_COLOR BackColor() const override { return back_color_; }
  void SetBackColor(OLE_COLOR color) override {
    back_color_ = color;
    this->Changed();
  }
  int16_t BorderStyle() const override { return border_style_; }
  void SetBorderStyle(int16_t style) override {
    border_style_ = style;
    this->Changed();
  }
  int16_t Appearance() const override { return appearance_; }
  void SetAppearance(int16_t appearance) override {
    appearance_ = appearance;
    this->Changed();
  }
  // The border's width in pixels.
  int32_t BorderPixels() const { return border_style_ == 0 ? 0 : (appearance_ == 1 ? 2 : 1); }

 protected:
  void SetWindow(WindowHandle window) { window_ = window; }

 private:
  WindowHandle window_ = 0;
  OLE_COLOR back_color_ = 0x8000000F;
  int16_t border_style_ = 1;
  int16_t appearance_ = 1;
};

}  // namespace zk
