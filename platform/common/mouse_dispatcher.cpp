#include "platform/common/mouse_dispatcher.h"

#include <algorithm>

namespace zk {
namespace {

bool Inside(const IElement& element, double x, double y) {
  return x >= element.Left() && y >= element.Top() && x < element.Left() + element.Width() &&
         y < element.Top() + element.Height();
}

}  // namespace

void MouseDispatcher::Remove(IElement* element) {
  std::erase(elements_, element);
  if (pressed_element_ == element) pressed_element_ = nullptr;
}

void MouseDispatcher::RemoveWindow(IMouseWindow* window) {
  std::erase(windows_, window);
  if (pressed_window_ == window) {
    pressed_window_ = nullptr;
    pressed_ = false;
  }
}

IMouseWindow* MouseDispatcher::WindowAt(double x, double y) const {
  for (auto it = windows_.rbegin(); it != windows_.rend(); ++it) {
    if ((*it)->TakesMouseAt(x, y)) return *it;
  }
  return nullptr;
}

void MouseDispatcher::BringToFront(IElement* element) {
  auto found = std::find(elements_.begin(), elements_.end(), element);
  if (found != elements_.end()) std::rotate(found, found + 1, elements_.end());
}

void MouseDispatcher::BringToFront(IMouseWindow* window) {
  auto found = std::find(windows_.begin(), windows_.end(), window);
  if (found != windows_.end()) std::rotate(found, found + 1, windows_.end());
}

IElement* MouseDispatcher::TopmostAt(double x, double y) const {
  for (auto it = elements_.rbegin(); it != elements_.rend(); ++it) {
    if ((*it)->Visible() && (*it)->Enabled() && (*it)->TakesMouse() && Inside(**it, x, y)) {
      return *it;
    }
  }
  return nullptr;
}

void MouseDispatcher::Deliver(MouseAction action, int16_t button, int16_t shift, float x, float y) {
  // A window makes its own clicks: it gets the actions as they are, and keeps the mouse from
  // its press to the release.
  IMouseWindow* window = pressed_window_ != nullptr ? pressed_window_
                         : pressed_                 ? nullptr
                                                    : WindowAt(x, y);
  if (window != nullptr) {
    if (action == MouseAction::kDown || action == MouseAction::kDoubleDown) {
      pressed_ = true;
      pressed_window_ = window;
    } else if (action == MouseAction::kUp) {
      pressed_ = false;
      pressed_window_ = nullptr;
    }
    window->DeliverMouse(action, button, shift, x, y);
    return;
  }
  IElement* element = pressed_ ? pressed_element_ : TopmostAt(x, y);
  const float element_x = element ? x - static_cast<float>(element->Left()) : x;
  const float element_y = element ? y - static_cast<float>(element->Top()) : y;
  switch (action) {
    case MouseAction::kDown:
      pressed_ = true;
      click_pending_ = true;
      pressed_element_ = element;
      (element ? element->MouseDown() : *surface_.down).Emit(button, shift, element_x, element_y);
      break;
    case MouseAction::kDoubleDown:
      pressed_ = true;
      click_pending_ = false;  // the release that ends a double click clicks nothing
      pressed_element_ = element;
      (element ? element->DblClick() : *surface_.dbl_click).Emit();
      break;
    case MouseAction::kMove:
      (element ? element->MouseMove() : *surface_.move).Emit(button, shift, element_x, element_y);
      break;
    case MouseAction::kUp: {
      const bool clicks = pressed_ && click_pending_;
      pressed_ = false;
      click_pending_ = false;
      pressed_element_ = nullptr;
      (element ? element->MouseUp() : *surface_.up).Emit(button, shift, element_x, element_y);
      bool over = element ? Inside(*element, x, y) : TopmostAt(x, y) == nullptr;
      if (over && element == nullptr && surface_size_) {
        const auto [width, height] = surface_size_();
        over = x >= 0 && y >= 0 && x < width && y < height;
      }
      if (clicks && over) (element ? element->Click() : *surface_.click).Emit();
      break;
    }
  }
}

}  // namespace zk
