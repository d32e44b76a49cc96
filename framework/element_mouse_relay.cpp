#include "framework/element_mouse_relay.h"

#include "framework/layout_steps.h"

namespace zk {

ElementMouseRelay::ElementMouseRelay(IControlSite& site, IElement& element, MouseEvent& down,
                                     MouseEvent& move, MouseEvent& up)
    : site_(site), element_(element), down_(down), move_(move), up_(up) {}

void ElementMouseRelay::Connect(std::vector<ScopedConnection>& connections) {
  connections.push_back(
      element_.MouseDown().Connect([this](int16_t button, int16_t shift, float x, float y) {
        if (before_down_) before_down_();
        Relay(down_, button, shift, x, y);
      }));
  connections.push_back(
      element_.MouseMove().Connect([this](int16_t button, int16_t shift, float x, float y) {
        // The host's tooltip belongs to the whole control, so it shows over the element too.
        IgnoringFailure([&] {
          element_.SetToolTipText(site_.Extender().GetProperty(u"ToolTipText").ToText());
        });
        Relay(move_, button, shift, x, y);
      }));
  connections.push_back(
      element_.MouseUp().Connect([this](int16_t button, int16_t shift, float x, float y) {
        if (before_up_) before_up_();
        Relay(up_, button, shift, x, y);
      }));
}

void ElementMouseRelay::Relay(MouseEvent& event, int16_t button, int16_t shift, float x, float y) {
  // The element reports its own coordinates; the host gets the control's.
  x += static_cast<float>(element_.Left());
  y += static_cast<float>(element_.Top());
  event.Raise(button, shift, x, y);
}

}  // namespace zk
