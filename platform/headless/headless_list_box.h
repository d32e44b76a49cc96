#pragma once

#include <memory>

#include "platform/common/list_box_state.h"
#include "platform/common/mouse_dispatcher.h"
#include "platform/elements.h"
#include "platform/headless/headless_element.h"
#include "platform/headless/headless_key_window.h"

namespace zk {

class HeadlessPlatform;

// A list box of the headless platform: the shared list box rules over a window of the class
// "ListBox" in the window tree, without pixels. On a surface it lies among the surface's windows
// (it gets the mouse over its area) and takes the control's keys as a text box does; made
// without a surface (null `windows` and `keys`) it is a bare window that answers its messages.
class HeadlessListBox final : public ListBoxState<HeadlessElement<IListBoxElement>>,
                              public IMouseWindow,
                              public HeadlessKeyWindow {
 public:
  HeadlessListBox(HeadlessPlatform& platform, WindowHandle parent,
                  std::weak_ptr<MouseDispatcher> windows = {},
                  std::weak_ptr<HeadlessKeyFocus> keys = {});
  ~HeadlessListBox() override;

  void Move(double left, double top, double width, double height) override;
  void Refresh() override {}
  void BringToFront() override;
  bool SetFocus() override;
  bool HasFocus() const override;

  bool TakesMouseAt(double x, double y) const override;
  void DeliverMouse(MouseAction action, int16_t button, int16_t shift, float x, float y) override;
  void DeliverKey(int16_t key_code, int16_t shift, int16_t character) override;
  void KeysChanged(bool has_keys) override { UserFocus(has_keys); }

 protected:
  // A box that is hidden or disabled gives up the keys: the control's own window keeps them.
  void Changed() override;

 private:
  HeadlessPlatform& platform_;
  std::weak_ptr<MouseDispatcher> windows_;
  std::weak_ptr<HeadlessKeyFocus> keys_;
};

}  // namespace zk
