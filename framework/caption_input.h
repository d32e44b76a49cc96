#pragma once

#include <vector>

#include "foundation/signal.h"
#include "framework/control_event.h"
#include "framework/element_mouse_relay.h"
#include "platform/elements.h"
#include "platform/surface.h"

namespace zk {

// Makes the input of a control whose surface shows one caption element the control's own: the
// clicks of the surface and of the caption, the surface's mouse events, and the caption's mouse
// events shifted by its place (through `caption_mouse`). The connections go to `connections`,
// which the control keeps as long as it lives.
template <typename Control>
void ConnectCaptionInput(Control& control, ISurface& surface, ILabelElement& caption,
                         ElementMouseRelay& caption_mouse,
                         std::vector<ScopedConnection>& connections) {
  connections.push_back(ForwardTo(surface.Click(), control.Click));
  connections.push_back(ForwardTo(surface.DblClick(), control.DblClick));
  connections.push_back(ForwardTo(caption.Click(), control.Click));
  connections.push_back(ForwardTo(caption.DblClick(), control.DblClick));
  connections.push_back(ForwardTo(surface.MouseDown(), control.MouseDown));
  connections.push_back(ForwardTo(surface.MouseMove(), control.MouseMove));
  connections.push_back(ForwardTo(surface.MouseUp(), control.MouseUp));
  caption_mouse.Connect(connections);
}

}  // namespace zk
