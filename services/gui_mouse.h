#pragma once

#include <cstdint>
#include <optional>

namespace zk {

// The mouse as an object. It remembers the pointer shape it replaced first and puts that shape
// back when it is destroyed, so holding one for a busy operation restores the pointer after it.
class CGuiMouse {
 public:
  CGuiMouse() = default;
  CGuiMouse(const CGuiMouse&) = delete;
  CGuiMouse& operator=(const CGuiMouse&) = delete;
  ~CGuiMouse();

  // The pointer's position in screen pixels.
  int32_t X() const;
  int32_t Y() const;
  // Move the pointer along one axis, keeping the other coordinate.
  void SetX(int32_t x);
  void SetY(int32_t y);
  void SetMousePos(int32_t x, int32_t y);

  // Sets the screen's pointer shape (taken as 16 bits); the first call saves the shape shown
  // before it.
  void SetMousePointer(int32_t new_pointer);

 private:
  std::optional<int16_t> saved_pointer_;
};

}  // namespace zk
