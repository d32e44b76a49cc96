#pragma once

#include <cstdint>

#include "platform/common/window_procedures.h"
#include "platform/window_system.h"

namespace zk {

// What every window system does the same way: each window keeps its style bits and its current
// procedure, messages go to that procedure, procedures are called by address, and every window
// starts with the class procedure, which hands messages to the window's class handler if it
// has one. A platform adds where its windows are and how they look.
class ProcedureWindowSystem : public IWindowSystem {
 public:
  int32_t GetWindowLong(WindowHandle window, int32_t index) const override;
  int32_t SetWindowLong(WindowHandle window, int32_t index, int32_t value) override;
  int32_t SendMessage(WindowHandle window, uint32_t message, int32_t wparam,
                      int32_t lparam) override;
  int32_t CallWindowProc(int32_t address, WindowHandle window, uint32_t message, int32_t wparam,
                         int32_t lparam) override;
  int32_t RegisterWindowProcedure(WindowProcedure procedure) override;
  void ReleaseWindowProcedure(int32_t address) override;

  // Gives a window behaviour of its own: its class procedure hands every message to `handler`
  // (an edit box answering the undo message, for instance).
  void SetClassHandler(WindowHandle window, WindowProcedure handler);

  // The active window is the one the platform last reported (NoteActivated) or that was
  // activated through ActivateWindow.
  WindowHandle GetActiveWindow() const override { return active_window_; }
  bool ActivateWindow(WindowHandle window) override;
  Signal<WindowHandle>& Activated() override { return activated_; }
  // The platform reports that `window` (0 for none) became active; Activated is raised when it
  // is another window than before.
  void NoteActivated(WindowHandle window);

 protected:
  // The part of a window that this class keeps.
  struct WindowState {
    int32_t style = 0;
    int32_t procedure = 0;
    WindowProcedure class_handler;
  };

  // Procedure addresses are handed out from `first_procedure_address` on.
  explicit ProcedureWindowSystem(int32_t first_procedure_address);

  // The state of a window, null for no window. `for_longs`: the caller reads or writes a
  // window long, which a platform may refuse for a window that is being destroyed.
  virtual WindowState* FindState(WindowHandle window, bool for_longs) = 0;
  // Runs first in the class procedure (a platform may note that it ran).
  virtual void OnClassProcedure(WindowHandle window, uint32_t message, int32_t wparam,
                                int32_t lparam);
  // The class procedure's answer to a message of a window without a class handler.
  virtual int32_t DefaultClassAnswer(WindowHandle window, uint32_t message, int32_t wparam,
                                     int32_t lparam);

  // Asks the platform to activate a known window (ActivateWindow has recorded it already).
  virtual void RequestActivation(WindowHandle window);
  // The address of the class procedure, which new windows start with.
  int32_t ClassProcedureAddress() const { return class_procedure_; }

 private:
  int32_t ClassProcedure(WindowHandle window, uint32_t message, int32_t wparam, int32_t lparam);

  WindowProcedureTable procedures_;
  int32_t class_procedure_ = 0;
  WindowHandle active_window_ = 0;
  Signal<WindowHandle> activated_;
};

}  // namespace zk
