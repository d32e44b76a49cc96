#pragma once

#include <cstdint>

// The window messages, indexes and style bits that the controls exchange with windows. They
// keep their classic numeric values so that code and traces read the same on every platform.
namespace zk::window_message {

inline constexpr uint32_t kDestroy = 2;             // WM_DESTROY
inline constexpr uint32_t kSetFocus = 7;            // WM_SETFOCUS
inline constexpr uint32_t kKillFocus = 8;           // WM_KILLFOCUS
inline constexpr uint32_t kNcDestroy = 130;         // WM_NCDESTROY: the last message of a window
inline constexpr uint32_t kNcLeftButtonDown = 161;  // WM_NCLBUTTONDOWN
inline constexpr uint32_t kKeyDown = 256;           // WM_KEYDOWN
inline constexpr uint32_t kKeyUp = 257;             // WM_KEYUP
inline constexpr uint32_t kChar = 258;              // WM_CHAR
inline constexpr uint32_t kTimer = 275;             // WM_TIMER
inline constexpr uint32_t kVScroll = 277;           // WM_VSCROLL
inline constexpr uint32_t kMouseMove = 512;         // WM_MOUSEMOVE
inline constexpr uint32_t kLeftButtonDown = 513;    // WM_LBUTTONDOWN
inline constexpr uint32_t kLeftButtonUp = 514;      // WM_LBUTTONUP
inline constexpr uint32_t kMouseWheel = 522;        // WM_MOUSEWHEEL
inline constexpr uint32_t kEditUndo = 199;          // EM_UNDO
inline constexpr uint32_t kListSetHorizontalExtent = 404;  // LB_SETHORIZONTALEXTENT
inline constexpr uint32_t kListSetItemHeight = 416;        // LB_SETITEMHEIGHT
inline constexpr uint32_t kListGetItemHeight = 417;        // LB_GETITEMHEIGHT

// Answer of a list box to a request it cannot satisfy.
inline constexpr int32_t kListError = -1;  // LB_ERR
// Hit-test code of a window's caption, for kNcLeftButtonDown.
inline constexpr int32_t kHitCaption = 2;  // HTCAPTION

}  // namespace zk::window_message

namespace zk::window_long {
inline constexpr int32_t kWindowProcedure = -4;  // GWL_WNDPROC
inline constexpr int32_t kStyle = -16;           // GWL_STYLE
}  // namespace zk::window_long

namespace zk::window_style {
inline constexpr int32_t kVerticalScrollBar = 0x00200000;    // WS_VSCROLL, bit 21
inline constexpr int32_t kHorizontalScrollBar = 0x00100000;  // WS_HSCROLL
inline constexpr int32_t kChild = 0x40000000;                // WS_CHILD
inline constexpr int32_t kVisible = 0x10000000;              // WS_VISIBLE
}  // namespace zk::window_style

namespace zk::system_metric {
inline constexpr int32_t kScreenWidth = 0;             // SM_CXSCREEN
inline constexpr int32_t kScreenHeight = 1;            // SM_CYSCREEN
inline constexpr int32_t kVerticalScrollWidth = 2;     // SM_CXVSCROLL
inline constexpr int32_t kHorizontalScrollHeight = 3;  // SM_CYHSCROLL
}  // namespace zk::system_metric

// The scroll bar requests of kVScroll, in the low word of its first value.
namespace zk::scroll_request {
inline constexpr int32_t kLineUp = 0;         // SB_LINEUP
inline constexpr int32_t kLineDown = 1;       // SB_LINEDOWN
inline constexpr int32_t kPageUp = 2;         // SB_PAGEUP
inline constexpr int32_t kPageDown = 3;       // SB_PAGEDOWN
inline constexpr int32_t kThumbPosition = 4;  // SB_THUMBPOSITION: to the row in the high word
inline constexpr int32_t kThumbTrack = 5;     // SB_THUMBTRACK: likewise, while dragged
inline constexpr int32_t kTop = 6;            // SB_TOP
inline constexpr int32_t kBottom = 7;         // SB_BOTTOM
}  // namespace zk::scroll_request
