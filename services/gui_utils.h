#pragma once

#include <array>
#include <cstdint>

#include "platform/std_font.h"
#include "platform/types.h"

namespace zk {
class DispatchObject;
}

// Window-system helpers that several controls share; thin wrappers over the platform
// (CurrentPlatform()) that pass its answers through unchanged.
namespace zk::MGuiUtils {

// Sets SelStart to 0 and SelLength to the length of Text, by name; a control without those
// members is left alone.
void SelectAllText(DispatchObject& control) noexcept;

// A copy made by the font's own clone operation; a missing font gives none.
FontRef CloneFont(const FontRef& font);

// The pointer's position: in screen pixels for window 0, else in that window's client pixels.
int32_t GetMouseX(WindowHandle window);
int32_t GetMouseY(WindowHandle window);
// Moves the pointer to a position in screen pixels.
void SetMousePos(int32_t x, int32_t y);

// Lets a list box scroll sideways over `extent` pixels.
void SetListHorizontalExtent(WindowHandle list_box, int32_t extent);
// A list box's row height in pixels, or in twips (rounded, halves to even) with `in_twips`.
int32_t GetListItemHeight(WindowHandle list_box, bool in_twips);
// Sets a list box's row height in pixels; false when the list box refuses it.
bool SetListItemHeight(WindowHandle list_box, int32_t height);

// Left, top, right and bottom of the window in screen pixels (zeros for an unknown window).
std::array<int32_t, 4> GetWindowRectArray(WindowHandle window);

// Lets the user drag the window by its body, as if by its title bar.
void DragWindow(WindowHandle window);

// True when the window's style has the vertical scroll bar bit.
bool HasVerticalScrollBar(WindowHandle window);

}  // namespace zk::MGuiUtils
