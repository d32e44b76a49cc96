#pragma once

#include "platform/types.h"

namespace zk {

class IControlSite;

// A borderless top-level window that a control owns (a drop-down list, a prompt window). It
// lies above the form, has no caption, and moves and sizes in twips of the screen. Its site's
// surface fills the window: the control puts elements on that surface and parts on child sites
// of that site. The window starts hidden.
class IPopupWindow {
 public:
  virtual ~IPopupWindow() = default;

  // The window's own site: its surface fills the window and is the owner of the parts made
  // with its CreateChildSite. It has no placement on the form; its property-changed
  // notifications go nowhere.
  virtual IControlSite& Site() = 0;
  virtual WindowHandle hWnd() const = 0;

  // The window's place, twips of the screen.
  virtual double Left() const = 0;
  virtual double Top() const = 0;
  virtual double Width() const = 0;
  virtual double Height() const = 0;
  // Moves and sizes the window; a size below zero counts as zero, a value that is not a number
  // leaves the window where it is.
  virtual void Move(double left, double top, double width, double height) = 0;

  virtual bool Visible() const = 0;
  // Shows the window above its owner's form and makes it the active window. Modeless, it
  // returns at once: false, and nothing is shown, when the application does not allow modeless
  // windows (IPlatform::NonModalAllowed). Modal, it runs a nested message loop and returns
  // (true) once the window is hidden; the window may be destroyed before it returns.
  virtual bool Show(bool modal) = 0;
  // Hides the window (ending a modal loop); the owner's form becomes active again when the
  // window was the active one.
  virtual void Hide() = 0;
};

}  // namespace zk
