#pragma once

#include <string>
#include <string_view>

#include "platform/elements.h"

namespace zk {

// The state and events that every element has on every platform, over the element interface
// `Base`: its place (twips), visibility, enabled state, tooltip and mouse signals. A platform
// that draws its elements overrides Changed(), which runs after every change of place or look.
template <typename Base>
class ElementState : public Base {
 public:
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

  Signal<>& Click() override { return click_; }
  Signal<>& DblClick() override { return dbl_click_; }
  MouseSignal& MouseDown() override { return mouse_down_; }
  MouseSignal& MouseMove() override { return mouse_move_; }
  MouseSignal& MouseUp() override { return mouse_up_; }

  // True when the point (twips, in the parent's inner coordinates) lies on the element.
  // The size is read through Width and Height: an element that fits itself to its content
  // (a label) fits before it is hit.
  bool Contains(double x, double y) const {
    return x >= left_ && y >= top_ && x < left_ + Width() && y < top_ + Height();
  }

 protected:
  virtual void Changed() {}
  // Sets the size alone (an element that fits itself to its content); the caller repaints.
  void SetSize(double width, double height) {
    width_ = width;
    height_ = height;
  }

 private:
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
