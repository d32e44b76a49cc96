#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/signal.h"
#include "platform/font_catalogue.h"
#include "platform/picture.h"
#include "platform/types.h"

namespace zk {

// Mouse arguments as the platform reports them: the buttons (1 left, 2 right, 4 middle), the
// modifier keys (1 Shift, 2 Ctrl, 4 Alt) and the position in twips, relative to the element.
using MouseSignal = Signal<int16_t, int16_t, float, float>;

// The mouse actions that input can deliver to a control (tests and scripts synthesise them).
// A click is not an action of its own: a release over the element that the press went to
// clicks it, and the second press of a double click raises DblClick instead of MouseDown.
enum class MouseAction { kDown, kMove, kUp, kDoubleDown };

// What every child element of a control has: a place in twips relative to the control's inner
// area, visibility, enabled state, a tooltip and the mouse events of its own area.
class IElement {
 public:
  virtual ~IElement() = default;

  virtual double Left() const = 0;
  virtual double Top() const = 0;
  virtual double Width() const = 0;
  virtual double Height() const = 0;
  virtual void Move(double left, double top, double width, double height) = 0;
  void SetLeft(double left) { Move(left, Top(), Width(), Height()); }
  void SetTop(double top) { Move(Left(), top, Width(), Height()); }
  void SetWidth(double width) { Move(Left(), Top(), width, Height()); }
  void SetHeight(double height) { Move(Left(), Top(), Width(), height); }

  virtual bool Visible() const = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual bool Enabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual std::u16string ToolTipText() const = 0;
  virtual void SetToolTipText(std::u16string_view text) = 0;
  // Repaints the element now.
  virtual void Refresh() = 0;
  // Puts the element above its siblings: a windowless element above the other windowless
  // elements of its surface, an element with a window (a text box) above the other windows
  // on the surface (parts included). Windowless elements always lie below every window.
  virtual void BringToFront() = 0;
  // Whether the element gets mouse input; elements that only draw (shapes, lines) let it
  // through to what lies below.
  virtual bool TakesMouse() const { return true; }

  virtual Signal<>& Click() = 0;
  virtual Signal<>& DblClick() = 0;
  virtual MouseSignal& MouseDown() = 0;
  virtual MouseSignal& MouseMove() = 0;
  virtual MouseSignal& MouseUp() = 0;
};

// A text label. With automatic sizing on it fits its text: without word wrap both width and
// height fit the (one-line, or CR LF separated) text; with word wrap it keeps its width and fits
// its height to the wrapped text. With UseMnemonic an "&" marks the next character as the access
// key and "&&" shows one "&".
class ILabelElement : public IElement {
 public:
  virtual std::u16string Caption() const = 0;
  virtual void SetCaption(std::u16string_view caption) = 0;
  // 0 left, 1 right, 2 centre.
  virtual int16_t Alignment() const = 0;
  virtual void SetAlignment(int16_t alignment) = 0;
  virtual OLE_COLOR ForeColor() const = 0;
  virtual void SetForeColor(OLE_COLOR color) = 0;
  virtual OLE_COLOR BackColor() const = 0;
  virtual void SetBackColor(OLE_COLOR color) = 0;
  // 0 transparent (the surface shows through), 1 opaque.
  virtual int16_t BackStyle() const = 0;
  virtual void SetBackStyle(int16_t style) = 0;
  virtual FontDescription Font() const = 0;
  virtual void SetFont(const FontDescription& font) = 0;
  virtual bool WordWrap() const = 0;
  virtual void SetWordWrap(bool word_wrap) = 0;
  virtual bool UseMnemonic() const = 0;
  virtual void SetUseMnemonic(bool use_mnemonic) = 0;
  virtual bool AutoSize() const = 0;
  virtual void SetAutoSize(bool auto_size) = 0;
};

// The border line styles of shapes and lines.
namespace line_style {
inline constexpr int16_t kTransparent = 0;
inline constexpr int16_t kSolid = 1;
inline constexpr int16_t kDash = 2;
inline constexpr int16_t kDot = 3;
inline constexpr int16_t kInsideSolid = 6;
}  // namespace line_style

// A filled outline shape (shape_code: rectangle, square, oval, circle, rounded rectangle,
// rounded square); squares and circles take the smaller side and sit centred. The border is
// BorderWidth pixels wide; "inside solid" keeps it within the element's bounds. A shape takes no
// mouse input.
class IShapeElement : public IElement {
 public:
  virtual int16_t Shape() const = 0;
  virtual void SetShape(int16_t shape) = 0;
  virtual OLE_COLOR FillColor() const = 0;
  virtual void SetFillColor(OLE_COLOR color) = 0;
  // 0 solid fill, 1 transparent (no fill).
  virtual int16_t FillStyle() const = 0;
  virtual void SetFillStyle(int16_t style) = 0;
  virtual OLE_COLOR BorderColor() const = 0;
  virtual void SetBorderColor(OLE_COLOR color) = 0;
  virtual int16_t BorderWidth() const = 0;
  virtual void SetBorderWidth(int16_t width) = 0;
  // line_style constants.
  virtual int16_t BorderStyle() const = 0;
  virtual void SetBorderStyle(int16_t style) = 0;
  bool TakesMouse() const override { return false; }
};

// A straight line from (X1, Y1) to (X2, Y2), twips; its place is the box around its ends.
class ILineElement : public IElement {
 public:
  virtual double X1() const = 0;
  virtual double Y1() const = 0;
  virtual double X2() const = 0;
  virtual double Y2() const = 0;
  virtual void SetPoints(double x1, double y1, double x2, double y2) = 0;
  virtual OLE_COLOR BorderColor() const = 0;
  virtual void SetBorderColor(OLE_COLOR color) = 0;
  virtual int16_t BorderWidth() const = 0;
  virtual void SetBorderWidth(int16_t width) = 0;
  virtual int16_t BorderStyle() const = 0;
  virtual void SetBorderStyle(int16_t style) = 0;
  bool TakesMouse() const override { return false; }
};

// A picture holder without a frame. Unless it stretches, it takes the size of its picture.
class IImageElement : public IElement {
 public:
  virtual PictureRef Picture() const = 0;
  virtual void SetPicture(PictureRef picture) = 0;
  virtual bool Stretch() const = 0;
  virtual void SetStretch(bool stretch) = 0;
};

// A text box with its own window: one line, or several lines (line breaks, CR LF, are part of
// the text). Positions and lengths count UTF-16 units. While its control has the focus, the
// keys go to the box: KeyDown, then KeyPress with the typed character, then KeyUp; handlers may
// change the key code or the character, and a code or character set to 0 is dropped before the
// box acts on it. Every change of the text raises Change, whoever made it, and so does every
// text the program sets, even the one already shown. What keys do to the text is the same on
// every platform (TextBoxEditor). The box takes back its last edit (a run of typing counts as
// one) on the undo message (window_message::kEditUndo) sent to its window; a second undo takes
// back the undo. Changing the alignment recreates the box's window, which starts over without
// a length limit.
class ITextBoxElement : public IElement {
 public:
  virtual WindowHandle hWnd() const = 0;
  virtual bool MultiLine() const = 0;

  virtual std::u16string Text() const = 0;
  virtual void SetText(std::u16string_view text) = 0;
  // The caret, or the start of the selection; writes are kept within the text.
  virtual int32_t SelStart() const = 0;
  virtual void SetSelStart(int32_t start) = 0;
  virtual int32_t SelLength() const = 0;
  virtual void SetSelLength(int32_t length) = 0;
  virtual std::u16string SelText() const = 0;
  // Replaces the selection (or inserts at the caret) and puts the caret after the new text.
  virtual void SetSelText(std::u16string_view text) = 0;
  // The most units that typing may make the text hold; 0 for no limit.
  virtual int32_t MaxLength() const = 0;
  virtual void SetMaxLength(int32_t length) = 0;
  // A read-only box still moves its caret and selection.
  virtual bool Locked() const = 0;
  virtual void SetLocked(bool locked) = 0;
  // The character shown instead of each character of the text; empty shows the text.
  virtual std::u16string PasswordChar() const = 0;
  virtual void SetPasswordChar(std::u16string_view character) = 0;
  // 0 left, 1 right, 2 centre.
  virtual int16_t Alignment() const = 0;
  virtual void SetAlignment(int16_t alignment) = 0;
  virtual OLE_COLOR ForeColor() const = 0;
  virtual void SetForeColor(OLE_COLOR color) = 0;
  virtual OLE_COLOR BackColor() const = 0;
  virtual void SetBackColor(OLE_COLOR color) = 0;
  virtual FontDescription Font() const = 0;
  virtual void SetFont(const FontDescription& font) = 0;
  // 0 flat, 1 3-D.
  virtual int16_t Appearance() const = 0;
  virtual void SetAppearance(int16_t appearance) = 0;
  // 0 none, 1 a border.
  virtual int16_t BorderStyle() const = 0;
  virtual void SetBorderStyle(int16_t style) = 0;
  // The selection is hidden while the box does not have the focus.
  virtual bool HideSelection() const = 0;

  virtual Signal<>& Change() = 0;
  virtual Signal<int16_t&, int16_t&>& KeyDown() = 0;
  virtual Signal<int16_t&>& KeyPress() = 0;
  virtual Signal<int16_t&, int16_t&>& KeyUp() = 0;
};

// A list box with a window of its own: one column of text rows in the order the control gives
// them (the box sorts nothing), at most one of them current. Rows are RowHeight pixels high;
// VisibleRows whole rows fit between the borders (and above a horizontal scroll bar). A vertical
// scroll bar shows while the rows do not all fit, and the window's style has
// window_style::kVerticalScrollBar set exactly then; a horizontal one shows while the
// HorizontalExtent is wider than the rows' area. The box answers the list messages sent to its
// window: kListGetItemHeight, kListSetItemHeight (1 to 255 pixels, else kListError) and
// kListSetHorizontalExtent; kVScroll acts as its scroll bar does.
//
// Click is raised after every change of the current row, whoever made it: the program
// (SetListIndex), the keys (Up, Down, Left, Right, PgUp, PgDn, Home, End) or the mouse (a press
// of the left button on a row makes it current and raises Click even when it already was).
// Scroll is raised when the user moves the first visible row with the scroll bar, or with the
// keys or the mouse as they bring the current row into view. The mouse wheel (kMouseWheel to the
// window: three rows a notch) scrolls without Scroll: a control that follows the wheel observes
// the message on the box's window, after the box handled it. The program's changes of the rows
// and of TopIndex raise nothing. While the control has the focus and the box has it inside the
// control, the keys go to the box: KeyDown (a handler may change the code, or set it to 0 so
// that the box does nothing with it), KeyPress with the typed character, KeyUp.
class IListBoxElement : public IElement {
 public:
  virtual WindowHandle hWnd() const = 0;

  virtual int32_t ListCount() const = 0;
  // The text of a row; empty outside the rows.
  virtual std::u16string List(int32_t index) const = 0;
  // Replaces the text of a row; false (and nothing changes) outside the rows.
  virtual bool SetList(int32_t index, std::u16string_view text) = 0;
  // Inserts a row before `index` (-1 or ListCount: after the last); false for other indexes.
  // The current row stays current, its index moving with it.
  virtual bool AddItem(std::u16string_view text, int32_t index) = 0;
  // Removes a row; false outside the rows. Removing the current row leaves none current.
  virtual bool RemoveItem(int32_t index) = 0;
  // Removes every row; none is current and the first row is on top.
  virtual void Clear() = 0;

  // The current row, -1 for none.
  virtual int32_t ListIndex() const = 0;
  // Makes a row current (-1: none) and scrolls it into view; false for an index outside -1 to
  // ListCount - 1. Click follows when the current row changed.
  virtual bool SetListIndex(int32_t index) = 0;
  // The first visible row.
  virtual int32_t TopIndex() const = 0;
  // Scrolls as near to having that row on top as the rows allow (the last row does not go above
  // the bottom); false for an index outside the rows (0 is accepted in an empty box).
  virtual bool SetTopIndex(int32_t index) = 0;
  // The whole rows that fit in the box.
  virtual int32_t VisibleRows() const = 0;

  virtual OLE_COLOR ForeColor() const = 0;
  virtual void SetForeColor(OLE_COLOR color) = 0;
  virtual OLE_COLOR BackColor() const = 0;
  virtual void SetBackColor(OLE_COLOR color) = 0;
  // A new font gives the rows the height of its line.
  virtual FontDescription Font() const = 0;
  virtual void SetFont(const FontDescription& font) = 0;
  // 0 flat, 1 3-D.
  virtual int16_t Appearance() const = 0;
  virtual void SetAppearance(int16_t appearance) = 0;
  // 0 none, 1 a border (one pixel flat, two in 3-D).
  virtual int16_t BorderStyle() const = 0;
  virtual void SetBorderStyle(int16_t style) = 0;
  // The height of every row, pixels; SetRowHeight accepts 1 to 255.
  virtual int32_t RowHeight() const = 0;
  virtual bool SetRowHeight(int32_t pixels) = 0;
  // How wide the rows may be scrolled sideways, pixels; 0 for no horizontal scrolling.
  virtual int32_t HorizontalExtent() const = 0;
  virtual void SetHorizontalExtent(int32_t pixels) = 0;

  // Moves the focus inside the control to the box (see ISurface::SetFocus, of which this is the
  // box's form); while the control does not have the form's focus, the box is remembered as
  // where the focus goes when it comes. False when the focus could not move.
  virtual bool SetFocus() = 0;
  // True while the box has the keys.
  virtual bool HasFocus() const = 0;

  virtual Signal<>& Scroll() = 0;
  virtual Signal<int16_t&, int16_t&>& KeyDown() = 0;
  virtual Signal<int16_t&>& KeyPress() = 0;
  virtual Signal<int16_t&, int16_t&>& KeyUp() = 0;
  // Raised as the box gains and loses the keys.
  virtual Signal<>& GotFocus() = 0;
  virtual Signal<>& LostFocus() = 0;
};

// A picture box: a rectangle with a window of its own, filled with its back colour inside an
// optional border. It lies above the windowless elements and gets the mouse over its area.
class IPictureBoxElement : public IElement {
 public:
  virtual WindowHandle hWnd() const = 0;
  virtual OLE_COLOR BackColor() const = 0;
  virtual void SetBackColor(OLE_COLOR color) = 0;
  // 0 none, 1 a border (one pixel flat, two in 3-D).
  virtual int16_t BorderStyle() const = 0;
  virtual void SetBorderStyle(int16_t style) = 0;
  // 0 flat, 1 3-D.
  virtual int16_t Appearance() const = 0;
  virtual void SetAppearance(int16_t appearance) = 0;
};

}  // namespace zk
