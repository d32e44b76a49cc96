#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "platform/elements.h"

namespace zk {

// A child with a window of its own on a surface (a text box, the surface of a part): it lies
// above every windowless element, gets the mouse actions over it in its own right and makes
// its own clicks.
class IMouseWindow {
 public:
  virtual ~IMouseWindow() = default;
  // Whether the window takes the mouse at (x, y), twips in its parent's inner coordinates:
  // shown, enabled and over the point.
  virtual bool TakesMouseAt(double x, double y) const = 0;
  // One action at (x, y), twips in the parent's inner coordinates.
  virtual void DeliverMouse(MouseAction action, int16_t button, int16_t shift, float x,
                            float y) = 0;
};

// Routes the mouse input of a control's surface to its children, as a container does: the
// topmost window under the point (a text box or a part) gets the action as it is, else the
// topmost visible and enabled windowless element (labels, shapes, images) gets the event in its
// own coordinates, and the surface the rest. While a button is held, the window or element it
// was pressed on keeps the mouse; a release over that element clicks it, and the second press
// of a double click raises DblClick instead of MouseDown.
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

  // Windowless elements in creation order: the one added last is on top.
  void Add(IElement* element) { elements_.push_back(element); }
  void Remove(IElement* element);
  const std::vector<IElement*>& Elements() const { return elements_; }
  IElement* TopmostAt(double x, double y) const;
  // Windows, likewise: the one added last is on top.
  void AddWindow(IMouseWindow* window) { windows_.push_back(window); }
  void RemoveWindow(IMouseWindow* window);
  const std::vector<IMouseWindow*>& Windows() const { return windows_; }
  IMouseWindow* WindowAt(double x, double y) const;
  // Puts an element above the other elements, or a window above the other windows.
  void BringToFront(IElement* element);
  void BringToFront(IMouseWindow* window);

  // One action at (x, y) twips in the surface's inner coordinates.
  void Deliver(MouseAction action, int16_t button, int16_t shift, float x, float y);
  // The window system took the mouse from the press that is held (a window dragged by its
  // body): the press ends here, without a release or a click.
  void CancelPress() {
    pressed_ = false;
    click_pending_ = false;
    pressed_element_ = nullptr;
    pressed_window_ = nullptr;
  }

 private:
  SurfaceEvents surface_;
  std::function<std::pair<double, double>()> surface_size_;
  std::vector<IElement*> elements_;
  std::vector<IMouseWindow*> windows_;
  IElement* pressed_element_ = nullptr;
  IMouseWindow* pressed_window_ = nullptr;
  bool pressed_ = false;
  bool click_pending_ = false;
};

}  // namespace zk
