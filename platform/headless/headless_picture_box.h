#pragma once

#include <memory>

#include "platform/common/mouse_dispatcher.h"
#include "platform/common/picture_box_state.h"
#include "platform/elements.h"
#include "platform/headless/headless_element.h"

namespace zk {

class HeadlessPlatform;

// A picture box of the headless platform: a window of the class "PictureBox" in the window tree
// that lies among its surface's windows and makes its own clicks.
class HeadlessPictureBox final : public PictureBoxState<HeadlessElement<IPictureBoxElement>>,
                                 public IMouseWindow {
 public:
  HeadlessPictureBox(HeadlessPlatform& platform, WindowHandle parent,
                     std::weak_ptr<MouseDispatcher> windows);
  ~HeadlessPictureBox() override;

  void Move(double left, double top, double width, double height) override;
  void Refresh() override {}
  void BringToFront() override;

  bool TakesMouseAt(double x, double y) const override;
  void DeliverMouse(MouseAction action, int16_t button, int16_t shift, float x, float y) override;

 private:
  HeadlessPlatform& platform_;
  std::weak_ptr<MouseDispatcher> windows_;
  // The box's own events, raised as a surface raises its own.
  MouseDispatcher own_clicks_;
};

}  // namespace zk
