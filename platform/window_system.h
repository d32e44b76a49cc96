#pragma once

#include <cstdint>
#include <functional>

#include "foundation/signal.h"
#include "platform/types.h"

namespace zk {

// A window procedure: handles one message and returns its result.
using WindowProcedure =
    std::function<int32_t(WindowHandle window, uint32_t message, int32_t wparam, int32_t lparam)>;

// Windows as the controls see them: handles, rectangles, style bits, messages and replaceable
// window procedures. Every window has a procedure; a procedure is named by a 32-bit address
// that the window system hands out, so that a procedure can be swapped in and the previous one
// called later (window subclassing).
class IWindowSystem {
 public:
  virtual ~IWindowSystem() = default;

  virtual bool IsWindow(WindowHandle window) const = 0;
  // The window's outer rectangle in screen pixels; false for an unknown window.
  virtual bool GetWindowRect(WindowHandle window, PixelRect& rect) const = 0;
  // Converts a screen point into the window's client coordinates; false for an unknown window.
  virtual bool ScreenToClient(WindowHandle window, PixelPoint& point) const = 0;

  // Reads a window value (window_long constants); 0 for an unknown window or index.
  virtual int32_t GetWindowLong(WindowHandle window, int32_t index) const = 0;
  // Replaces a window value and returns the previous one; 0 when it fails. For
  // window_long::kWindowProcedure the value must be an address from RegisterWindowProcedure.
  virtual int32_t SetWindowLong(WindowHandle window, int32_t index, int32_t value) = 0;

  // Sends a message to the window's current procedure and returns its result (0 for an
  // unknown window).
  virtual int32_t SendMessage(WindowHandle window, uint32_t message, int32_t wparam,
                              int32_t lparam) = 0;
  // Calls the procedure at `address` directly (0 for an unknown address).
  virtual int32_t CallWindowProc(int32_t address, WindowHandle window, uint32_t message,
                                 int32_t wparam, int32_t lparam) = 0;

  // Makes a procedure callable through an address; the address stays valid until released.
  virtual int32_t RegisterWindowProcedure(WindowProcedure procedure) = 0;
  virtual void ReleaseWindowProcedure(int32_t address) = 0;

  // Ends the mouse capture of any window; true on success.
  virtual bool ReleaseCapture() = 0;
  // The active top-level window of the application, 0 when none is active.
  virtual WindowHandle GetActiveWindow() const = 0;
  // Makes the top-level window the active one; false for an unknown window.
  virtual bool ActivateWindow(WindowHandle window) = 0;
  // Raised with the new active window (0 for none) each time another window becomes active.
  virtual Signal<WindowHandle>& Activated() = 0;
};

}  // namespace zk
