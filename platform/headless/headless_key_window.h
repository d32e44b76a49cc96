#pragma once

#include <cstdint>

namespace zk {

class HeadlessSurface;

// A window of a headless control that takes the control's keys (a text box, a list box) while
// the focus inside the control is on the control's own window and the window is the one chosen
// for the keys.
class HeadlessKeyWindow {
 public:
  virtual ~HeadlessKeyWindow() = default;
  // One key stroke: the key code, the modifier keys and the typed character (0 for none).
  virtual void DeliverKey(int16_t key_code, int16_t shift, int16_t character) = 0;
  // The window gained or lost the keys.
  virtual void KeysChanged(bool /*has_keys*/) {}
};

// Which of a surface's windows takes its keys, shared with those windows (a window may outlive
// its surface).
struct HeadlessKeyFocus {
  HeadlessSurface* surface = nullptr;   // null once the surface has gone
  HeadlessKeyWindow* target = nullptr;  // where the keys go while the surface has them
  HeadlessKeyWindow* holder = nullptr;  // the window that was told last that it has them
  uint32_t holder_changes = 0;          // counts the changes of the holder
};

}  // namespace zk
