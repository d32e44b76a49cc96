#pragma once

#include <cstdint>
#include <memory>

#include "foundation/signal.h"
#include "foundation/variant.h"
#include "platform/elements.h"
#include "platform/types.h"

namespace zk {

// The control's own on-screen area: its window, size, back colour, border and appearance,
// enabled state, repaint and pop-up menu, and the factory of its child elements. Its mouse
// events report positions in twips relative to the inner area.
class ISurface {
 public:
  virtual ~ISurface() = default;

  virtual WindowHandle hWnd() const = 0;
  virtual int32_t hDC() const = 0;

  // Outer size in twips, as the host's extender reports it.
  virtual double Width() const = 0;
  virtual double Height() const = 0;
  // Inner size in twips: the outer size less the border.
  virtual double ScaleWidth() const = 0;
  virtual double ScaleHeight() const = 0;
  // Resizes the control; the host's extender follows and Resized is raised.
  virtual void SetSize(double width, double height) = 0;

  virtual OLE_COLOR BackColor() const = 0;
  virtual void SetBackColor(OLE_COLOR color) = 0;
  // 0 none, 1 a one-pixel border.
  virtual int16_t BorderStyle() const = 0;
  virtual void SetBorderStyle(int16_t style) = 0;
  // 0 flat, 1 3-D. Changing it resets the back colour to the appearance's own default
  // (button face for 3-D, window background for flat), as the classic surface does.
  virtual int16_t Appearance() const = 0;
  virtual void SetAppearance(int16_t appearance) = 0;
  virtual bool Enabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  // The pointer shape over the surface (mouse_pointer constants).
  virtual int16_t MousePointer() const = 0;
  virtual void SetMousePointer(int16_t shape) = 0;

  virtual void Refresh() = 0;
  // Puts the window above its siblings: a part above the other parts of its control, a
  // control above the other controls of its form.
  virtual void BringToFront() = 0;
  // Shows a pop-up menu; the arguments are passed on unchanged.
  virtual void PopupMenu(const Variant& menu, const Variant& flags, const Variant& x,
                         const Variant& y, const Variant& default_menu) = 0;

  // The colour that drawn pictures treat as transparent.
  virtual OLE_COLOR MaskColor() const = 0;
  virtual void SetMaskColor(OLE_COLOR color) = 0;

  // The surface is painted in layers: the back colour, the background picture (at the inner
  // area's top left corner, in its own size), the persistent drawing, then the child elements.
  // The picture; null for none.
  virtual PictureRef Picture() const = 0;
  virtual void SetPicture(PictureRef picture) = 0;
  // The persistent drawing survives repaints until it is cleared. Cls clears it, so that the
  // back colour and the picture show again.
  virtual void Cls() = 0;
  // Fills the rectangle between the corners (x1, y1) and (x2, y2), twips of the inner area, in
  // any order, with `color`, over what was drawn before (plain copy). What lies outside the
  // inner area is not shown; a corner that is not a number draws nothing.
  virtual void FillRect(double x1, double y1, double x2, double y2, OLE_COLOR color) = 0;

  // Child elements, drawn in creation order (the last one on top).
  virtual std::unique_ptr<ILabelElement> CreateLabel() = 0;
  virtual std::unique_ptr<IShapeElement> CreateShape() = 0;
  virtual std::unique_ptr<ILineElement> CreateLine() = 0;
  virtual std::unique_ptr<IImageElement> CreateImage() = 0;
  // A text box; while it exists, the control's keys go to it instead of to the surface.
  virtual std::unique_ptr<ITextBoxElement> CreateTextBox(bool multi_line) = 0;
  // A list box; the keys go to it as to a text box, and to the box or text box created last
  // until one of them is pressed or given the focus.
  virtual std::unique_ptr<IListBoxElement> CreateListBox() = 0;
  virtual std::unique_ptr<IPictureBoxElement> CreatePictureBox() = 0;

  // The focus inside a control. The form gives its focus to a control as a whole; inside it,
  // the focus belongs to the control's own surface or to one of its parts (and so on, for parts
  // made of parts), and the keys go there. SetFocus on a part's surface moves the focus inside
  // the control to that part (on the control's own surface, back to the control's own window):
  // the surfaces that lose it validate first (Validate on the outermost one that loses it,
  // which asks its parts that lose it before its own handlers), then they raise LostFocus,
  // innermost first, and the ones that gain it GotFocus, outermost first. While the control
  // does not have the form's focus nothing is raised: the surface is remembered as the one that
  // gets the focus when the control next gets it. False, and nothing changes, when the surface
  // (or the part it lies in) is hidden or disabled, or when a surface refused to let the focus
  // go.
  virtual bool SetFocus() = 0;
  // True while the focus is on this surface or inside one of its parts.
  virtual bool HasFocus() const = 0;
  // Whether the control takes part in the Tab key. By default it does not, and the form moves
  // its focus to the next control on Tab. A control that takes Tab is offered the key first, as
  // KeyDown(9, Shift) on its own surface (whichever part has the focus inside it); a handler
  // that uses the key (to move the focus to another part) sets the key code to 0, and the form
  // then leaves its focus where it is. Only the control that has the form's focus is asked: its
  // parts are its own business, whatever their surfaces say.
  virtual bool TakesTab() const = 0;
  virtual void SetTakesTab(bool takes_tab) = 0;

  // Raised after the size changed (by the host or by SetSize).
  virtual Signal<>& Resized() = 0;
  virtual Signal<>& Click() = 0;
  virtual Signal<>& DblClick() = 0;
  virtual MouseSignal& MouseDown() = 0;
  virtual MouseSignal& MouseMove() = 0;
  virtual MouseSignal& MouseUp() = 0;
  // Keys while the control has the focus: key code and modifier keys (1 Shift, 2 Ctrl, 4 Alt)
  // for KeyDown and KeyUp, the character code for KeyPress. Handlers may change the values;
  // a KeyPress character set to 0 is not typed.
  virtual Signal<int16_t&, int16_t&>& KeyDown() = 0;
  virtual Signal<int16_t&>& KeyPress() = 0;
  virtual Signal<int16_t&, int16_t&>& KeyUp() = 0;
  // Raised as the surface gains and loses the focus (see SetFocus): for a control, when the
  // form's focus comes and goes; for a part, also as the focus moves inside its control.
  virtual Signal<>& GotFocus() = 0;
  virtual Signal<>& LostFocus() = 0;
  // An access key that the host delivers to the control: Enter (13) to the form's default
  // control and Escape (27) to its cancel control.
  virtual Signal<int16_t>& AccessKeyPress() = 0;
  // The host shows or hides the control.
  virtual Signal<bool>& Shown() = 0;
  // Raised by the host before the focus leaves the control (and on a part's surface before the
  // focus leaves the part for another part of its control); a handler that sets the flag keeps
  // the focus where it is. The part that has the focus inside the control is asked as well,
  // before the control's own handlers.
  virtual Signal<bool&>& Validate() = 0;
};

}  // namespace zk
