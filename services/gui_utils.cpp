#include "services/gui_utils.h"

#include "foundation/dispatch_object.h"
#include "foundation/low_level_utils.h"
#include "platform/platform.h"
#include "platform/window_messages.h"

namespace zk::MGuiUtils {
namespace {

PixelPoint MousePosition(WindowHandle window) {
  IPlatform& platform = CurrentPlatform();
  PixelPoint point = platform.Screen().CursorPos();
  if (window != 0) platform.Windows().ScreenToClient(window, point);
  return point;
}

}  // namespace

void SelectAllText(DispatchObject& control) noexcept {
  try {
    const int32_t length = static_cast<int32_t>(control.GetProperty(u"Text").ToText().size());
    control.SetProperty(u"SelStart", Variant(int32_t{0}));
    control.SetProperty(u"SelLength", Variant(length));
  } catch (...) {
    // Not a text-holding control: nothing to select.
  }
}

FontRef CloneFont(const FontRef& font) {
  return font ? font->Clone() : nullptr;
}

int32_t GetMouseX(WindowHandle window) {
  return MousePosition(window).x;
}

int32_t GetMouseY(WindowHandle window) {
  return MousePosition(window).y;
}

void SetMousePos(int32_t x, int32_t y) {
  CurrentPlatform().Screen().SetCursorPos(x, y);
}

void SetListHorizontalExtent(WindowHandle list_box, int32_t extent) {
  CurrentPlatform().Windows().SendMessage(list_box, window_message::kListSetHorizontalExtent,
                                          extent, 0);
}

int32_t GetListItemHeight(WindowHandle list_box, bool in_twips) {
  IPlatform& platform = CurrentPlatform();
  const int32_t height =
      platform.Windows().SendMessage(list_box, window_message::kListGetItemHeight, 0, 0);
  if (!in_twips) return height;
  return MLowLevelUtils::RoundToInt32(height * platform.Screen().TwipsPerPixelY());
}

bool SetListItemHeight(WindowHandle list_box, int32_t height) {
  return CurrentPlatform().Windows().SendMessage(list_box, window_message::kListSetItemHeight, 0,
                                                 height) != window_message::kListError;
}

std::array<int32_t, 4> GetWindowRectArray(WindowHandle window) {
  PixelRect rect;
  CurrentPlatform().Windows().GetWindowRect(window, rect);
  return {rect.left, rect.top, rect.right, rect.bottom};
}

void DragWindow(WindowHandle window) {
  IWindowSystem& windows = CurrentPlatform().Windows();
  windows.ReleaseCapture();
  windows.SendMessage(window, window_message::kNcLeftButtonDown, window_message::kHitCaption, 0);
}

bool HasVerticalScrollBar(WindowHandle window) {
  return (CurrentPlatform().Windows().GetWindowLong(window, window_long::kStyle) &
          window_style::kVerticalScrollBar) != 0;
}

}  // namespace zk::MGuiUtils
