#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/common/procedure_window_system.h"

namespace zk {

// A message that reached a window's own (class) procedure.
struct MessageRecord {
  WindowHandle window = 0;
  uint32_t message = 0;
  int32_t wparam = 0;
  int32_t lparam = 0;
  bool operator==(const MessageRecord&) const = default;
};

// An in-memory window tree. A window's rectangle is kept relative to its parent's client area
// (the screen for a top-level window); windows have no non-client frame, so the client area is
// the whole window. Every window starts with its class procedure, which records the messages
// it receives and hands them to the window's class handler (the element that owns the window:
// a list box answers the list box messages).
class HeadlessWindowSystem final : public ProcedureWindowSystem {
 public:
  HeadlessWindowSystem();
  ~HeadlessWindowSystem() override;

  // Creates a window and returns its handle; 0 when the parent does not exist.
  WindowHandle CreateWindow(WindowHandle parent, std::u16string class_name, PixelRect bounds,
                            int32_t style = 0);
  // Destroys the window and its children: kDestroy to the window, then its children are
  // destroyed, then kNcDestroy, each through the window's current procedure.
  bool DestroyWindow(WindowHandle window);
  bool MoveWindow(WindowHandle window, PixelRect bounds);
  WindowHandle Parent(WindowHandle window) const;
  // The window's children from the bottom of the stack to its top: in creation order, except
  // that BringToTop puts a window above its siblings.
  std::vector<WindowHandle> Children(WindowHandle window) const;
  bool BringToTop(WindowHandle window);
  size_t WindowCount() const { return windows_.size(); }

  void SetActiveWindow(WindowHandle window) { active_window_ = window; }
  void SetCapture(WindowHandle window) { capture_ = window; }
  WindowHandle Capture() const { return capture_; }

  // The messages that windows' class procedures received, oldest first.
  const std::vector<MessageRecord>& DeliveredMessages() const { return delivered_; }
  void ClearDeliveredMessages() { delivered_.clear(); }

  bool IsWindow(WindowHandle window) const override;
  bool GetWindowRect(WindowHandle window, PixelRect& rect) const override;
  bool ScreenToClient(WindowHandle window, PixelPoint& point) const override;
  bool ReleaseCapture() override;
  WindowHandle GetActiveWindow() const override { return active_window_; }

 private:
  struct Window : WindowState {
    WindowHandle parent = 0;
    std::u16string class_name;
    PixelRect bounds;
    // The place in the stack of its siblings: the higher, the nearer the top.
    uint64_t stack_order = 0;
  };

  WindowState* FindState(WindowHandle window, bool for_longs) override;
  // Records the message (the class procedure receives it).
  void OnClassProcedure(WindowHandle window, uint32_t message, int32_t wparam,
                        int32_t lparam) override;
  PixelPoint ClientOrigin(WindowHandle window) const;

  std::map<WindowHandle, Window> windows_;
  WindowHandle next_handle_ = 0x00010010;
  uint64_t next_stack_order_ = 1;
  WindowHandle active_window_ = 0;
  WindowHandle capture_ = 0;
  std::vector<MessageRecord> delivered_;
};

}  // namespace zk
