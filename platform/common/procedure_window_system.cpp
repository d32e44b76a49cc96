#include "platform/common/procedure_window_system.h"

#include <utility>

#include "platform/window_messages.h"

namespace zk {

ProcedureWindowSystem::ProcedureWindowSystem(int32_t first_procedure_address)
    : procedures_(first_procedure_address) {
  class_procedure_ = RegisterWindowProcedure(
      [this](WindowHandle window, uint32_t message, int32_t wparam, int32_t lparam) {
        return ClassProcedure(window, message, wparam, lparam);
      });
}

int32_t ProcedureWindowSystem::GetWindowLong(WindowHandle window, int32_t index) const {
  // Finding a window changes nothing; the lookup is shared with the writers.
  const WindowState* state = const_cast<ProcedureWindowSystem*>(this)->FindState(window, true);
  if (state == nullptr) return 0;
  if (index == window_long::kStyle) return state->style;
  if (index == window_long::kWindowProcedure) return state->procedure;
  return 0;
}

int32_t ProcedureWindowSystem::SetWindowLong(WindowHandle window, int32_t index, int32_t value) {
  WindowState* state = FindState(window, true);
  if (state == nullptr) return 0;
  if (index == window_long::kStyle) return std::exchange(state->style, value);
  if (index == window_long::kWindowProcedure) {
    if (!procedures_.Contains(value)) return 0;
    return std::exchange(state->procedure, value);
  }
  return 0;
}

int32_t ProcedureWindowSystem::SendMessage(WindowHandle window, uint32_t message, int32_t wparam,
                                           int32_t lparam) {
  const WindowState* state = FindState(window, false);
  if (state == nullptr) return 0;
  return CallWindowProc(state->procedure, window, message, wparam, lparam);
}

int32_t ProcedureWindowSystem::CallWindowProc(int32_t address, WindowHandle window,
                                              uint32_t message, int32_t wparam, int32_t lparam) {
  return procedures_.Call(address, window, message, wparam, lparam);
}

int32_t ProcedureWindowSystem::RegisterWindowProcedure(WindowProcedure procedure) {
  return procedures_.Register(std::move(procedure));
}

void ProcedureWindowSystem::ReleaseWindowProcedure(int32_t address) {
  if (address != class_procedure_) procedures_.Release(address);
}

void ProcedureWindowSystem::SetClassHandler(WindowHandle window, WindowProcedure handler) {
  if (WindowState* state = FindState(window, false)) state->class_handler = std::move(handler);
}

void ProcedureWindowSystem::OnClassProcedure(WindowHandle, uint32_t, int32_t, int32_t) {}

int32_t ProcedureWindowSystem::DefaultClassAnswer(WindowHandle, uint32_t, int32_t, int32_t) {
  return 0;
}

int32_t ProcedureWindowSystem::ClassProcedure(WindowHandle window, uint32_t message, int32_t wparam,
                                              int32_t lparam) {
  OnClassProcedure(window, message, wparam, lparam);
  const WindowState* state = FindState(window, false);
  if (state == nullptr) return 0;
  if (state->class_handler) {
    const WindowProcedure handler = state->class_handler;  // it may go while it runs
    return handler(window, message, wparam, lparam);
  }
  return DefaultClassAnswer(window, message, wparam, lparam);
}

bool ProcedureWindowSystem::ActivateWindow(WindowHandle window) {
  if (!IsWindow(window)) return false;
  NoteActivated(window);
  RequestActivation(window);
  return true;
}

void ProcedureWindowSystem::NoteActivated(WindowHandle window) {
  if (window == active_window_) return;
  active_window_ = window;
  activated_.Emit(window);
}

void ProcedureWindowSystem::RequestActivation(WindowHandle /*window*/) {}

}  // namespace zk
