#pragma once

#include <QPainter>
#include <string>

#include "platform/elements.h"
#include "platform/qt/qt_surface.h"

namespace zk {

// The state and events that every painted element of a Qt surface shares, over the element
// interface `Base`: it registers with the surface while it lives and asks for a repaint after
// every change of its place or look.
template <typename Base>
class QtPaintedBase : public Base, public QtPaintedElement {
 public:
  explicit QtPaintedBase(QtSurface& surface) : surface_(surface) {
    surface_.AddPaintedElement(this, this);
  }
  ~QtPaintedBase() override { surface_.RemovePaintedElement(this); }
  QtPaintedBase(const QtPaintedBase&) = delete;
  QtPaintedBase& operator=(const QtPaintedBase&) = delete;

  double Left() const override { return left_; }
  double Top() const override { return top_; }
  double Width() const override { return width_; }
  double Height() const override { return height_; }
  void Move(double left, double top, double width, double height) override {
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    Changed();
  }
  bool Visible() const override { return visible_; }
  void SetVisible(bool visible) override {
    visible_ = visible;
    Changed();
  }
  bool Enabled() const override { return enabled_; }
  void SetEnabled(bool enabled) override {
    enabled_ = enabled;
    Changed();
  }
  std::u16string ToolTipText() const override { return tool_tip_text_; }
  void SetToolTipText(std::u16string_view text) override { tool_tip_text_ = text; }
  void Refresh() override {
    if (QWidget* widget = surface_.Widget()) widget->repaint();
  }

  Signal<>& Click() override { return click_; }
  Signal<>& DblClick() override { return dbl_click_; }
  MouseSignal& MouseDown() override { return mouse_down_; }
  MouseSignal& MouseMove() override { return mouse_move_; }
  MouseSignal& MouseUp() override { return mouse_up_; }

 protected:
  void Changed() { surface_.Update(); }
  // Sets the size alone (an element that fits itself to its content); the caller repaints.
  void SetSize(double width, double height) {
    width_ = width;
    height_ = height;
  }
  QtSurface& Surface() const { return surface_; }

 private:
  QtSurface& surface_;
  double left_ = 0;
  double top_ = 0;
  double width_ = 0;
  double height_ = 0;
  bool visible_ = true;
  bool enabled_ = true;
  std::u16string tool_tip_text_;
  Signal<> click_;
  Signal<> dbl_click_;
  MouseSignal mouse_down_;
  MouseSignal mouse_move_;
  MouseSignal mouse_up_;
};

}  // namespace zk
