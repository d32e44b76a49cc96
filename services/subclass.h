#pragma once

#include <cstdint>

#include "foundation/signal.h"
#include "platform/types.h"

namespace zk {

// Stands for one hooked window: it sees each message of the window before (BeforeEvent) and,
// when propagating, after (AfterEvent) the window's previous procedure handled it. Without
// Propagate the window's own procedure never sees the messages, so a user sets Propagate
// before Hook. Not copyable, because the window registry refers to the object by address.
class ZKCSubclass {
 public:
  // uMsg, wParam, lParam.
  using MessageSignal = Signal<uint32_t, int32_t, int32_t>;

  ZKCSubclass() = default;
  ZKCSubclass(const ZKCSubclass&) = delete;
  ZKCSubclass& operator=(const ZKCSubclass&) = delete;
  ~ZKCSubclass();

  // The hooked window and its previous procedure; both 0 when not hooked.
  WindowHandle hWnd() const { return window_; }
  int32_t PrevWndProc() const { return previous_procedure_; }
  bool Propagate() const { return propagate_; }
  void SetPropagate(bool New_Propagate) { propagate_ = New_Propagate; }

  // Hooks `window`; false (and nothing changed) for window 0, when already hooked or when the
  // platform refuses.
  bool Hook(WindowHandle window);
  // Gives the window back its previous procedure; false when not hooked or the platform
  // refuses. The object counts as unhooked afterwards in both cases.
  bool Unhook();

  MessageSignal& BeforeEvent() { return before_event_; }
  MessageSignal& AfterEvent() { return after_event_; }

 private:
  WindowHandle window_ = 0;
  int32_t previous_procedure_ = 0;
  bool propagate_ = false;
  MessageSignal before_event_;
  MessageSignal after_event_;
};

}  // namespace zk
