#pragma once

#include <functional>

namespace zk {

// What a host's extender offers the control it belongs to beyond its properties by name. A
// control built of parts uses it on its parts' extenders: the part's own Enabled becomes the
// extender's, as a form binds it, and the part moves in one step instead of four property
// writes (one layout, not four). An extender without it is driven by name only.
class IBindableExtender {
 public:
  virtual ~IBindableExtender() = default;

  // Enabled belongs to the control when it has that property: the extender then reads and
  // writes it through these functions instead of keeping its own flag.
  virtual void BindEnabled(std::function<bool()> get, std::function<void(bool)> set) = 0;
  // Places the control (twips of its container's inner area) with one notification.
  virtual void Move(double left, double top, double width, double height) = 0;
};

}  // namespace zk
