#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "foundation/signal.h"
#include "framework/control_event.h"
#include "platform/elements.h"
#include "platform/host.h"

namespace zk {

// Makes the mouse input of an inner element the control's own: MouseDown, MouseMove and MouseUp
// are raised on the control with the element's left and top added to X and Y, and on every move
// the host's tooltip for the control is copied into the element first, so that it shows over the
// element too. The relay lives as long as the control; its connections capture only the relay.
class ElementMouseRelay {
 public:
  using MouseEvent = ControlEvent<int16_t&, int16_t&, float&, float&>;

  ElementMouseRelay(IControlSite& site, IElement& element, MouseEvent& down, MouseEvent& move,
                    MouseEvent& up);
  ElementMouseRelay(const ElementMouseRelay&) = delete;
  ElementMouseRelay& operator=(const ElementMouseRelay&) = delete;

  // What the control does itself before it raises MouseDown or MouseUp (a button's press).
  void BeforeDown(std::function<void()> step) { before_down_ = std::move(step); }
  void BeforeUp(std::function<void()> step) { before_up_ = std::move(step); }

  // Connects the element's three mouse signals; the connections go to `connections`.
  void Connect(std::vector<ScopedConnection>& connections);

 private:
  void Relay(MouseEvent& event, int16_t button, int16_t shift, float x, float y);

  IControlSite& site_;
  IElement& element_;
  MouseEvent& down_;
  MouseEvent& move_;
  MouseEvent& up_;
  std::function<void()> before_down_;
  std::function<void()> before_up_;
};

}  // namespace zk
