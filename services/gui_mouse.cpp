#include "services/gui_mouse.h"

#include "platform/platform.h"
#include "services/gui_utils.h"

namespace zk {

CGuiMouse::~CGuiMouse() {
  if (!saved_pointer_) return;
  try {
    if (HasCurrentPlatform()) CurrentPlatform().Screen().SetMousePointer(*saved_pointer_);
  } catch (...) {
    // A destructor must not throw; the pointer simply stays as it is.
  }
}

int32_t CGuiMouse::X() const {
  return MGuiUtils::GetMouseX(0);
}

int32_t CGuiMouse::Y() const {
  return MGuiUtils::GetMouseY(0);
}

void CGuiMouse::SetX(int32_t x) {
  MGuiUtils::SetMousePos(x, Y());
}

void CGuiMouse::SetY(int32_t y) {
  MGuiUtils::SetMousePos(X(), y);
}

void CGuiMouse::SetMousePos(int32_t x, int32_t y) {
  MGuiUtils::SetMousePos(x, y);
}

void CGuiMouse::SetMousePointer(int32_t new_pointer) {
  IScreen& screen = CurrentPlatform().Screen();
  if (!saved_pointer_) saved_pointer_ = screen.MousePointer();
  // Only the low 16 bits name a pointer shape.
  screen.SetMousePointer(static_cast<int16_t>(new_pointer & 0xFFFF));
}

}  // namespace zk
