#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "platform/elements.h"

namespace zk {

// Routes the mouse input of a control's surface to its windowless elements (labels, shapes,
// images), as a container does for the elements it paints: the topmost visible and enabled
// element under the point gets the event in its own coordinates, the surface the rest. While a
// button is held, the element it was pressed on keeps the mouse; a release over that element
// clicks it, and the second press of a double click raises DblClick instead of MouseDown.
class MouseDispatcher {
 public:
  struct SurfaceEvents {
    Signal<>* click;
    Signal<>* dbl_click;
    MouseSignal* down;
    MouseSignal* move;
    MouseSignal* up;
  };

  // `surface_size` gives the inner area's width and height (twips): a release outside it clicks
  // nothing.
  MouseDispatcher(SurfaceEvents surface, std::function<std::pair<double, double>()> surface_size)
      : surface_(surface), surface_size_(std::move(surface_size)) {}

  // Elements in creation order: the one added last is on top.
  void Add(IElement* element) { elements_.push_back(element); }
  void Remove(IElement* element);
  const std::vector<IElement*>& Elements() const { return elements_; }
  IElement* TopmostAt(double x, double y) const;

  // One action at (x, y) twips in the surface's inner coordinates.
  void Deliver(MouseAction action, int16_t button, int16_t shift, float x, float y);

 private:
  SurfaceEvents surface_;
  std::function<std::pair<double, double>()> surface_size_;
  std::vector<IElement*> elements_;
  IElement* pressed_element_ = nullptr;
  bool pressed_ = false;
  bool click_pending_ = false;
};

}  // namespace zk
