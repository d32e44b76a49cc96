#pragma once

#include <memory>
#include <vector>

#include "platform/common/form_extender.h"
#include "platform/common/mouse_dispatcher.h"
#include "platform/common/persistent_drawing.h"
#include "platform/common/surface_base.h"
#include "platform/headless/headless_key_window.h"

namespace zk {

class HeadlessPlatform;

// A control's area on a headless form: a window in the form's window tree, sized by the
// control's extender. A border takes one pixel on each side (two with the 3-D appearance).
// The surface of a part is a window inside its owner's surface, placed in twips of the owner's
// inner area; so is the surface of a control that the form placed inside a container control,
// which stays a control of the form of its own. Mouse input delivered with Deliver() goes to the
// topmost window under the point (a part's surface or a contained control's, which passes it on in
// its own coordinates, a text box or a list box), else to the topmost visible and enabled
// windowless element under it (the one created last), in that element's coordinates, or to the
// surface itself. The form says when the control has its focus (SetFormFocus); the focus inside the
// control follows the focus path. Nothing is painted: the persistent drawing is kept as the list of
// rectangles drawn (DrawnRects).
class HeadlessSurface final : public PersistentDrawing<SurfaceBase>, public IMouseWindow {
 public:
  // The surface of a control on a form, in the form's window, or inside the surface of the
  // container control `container`.
  HeadlessSurface(HeadlessPlatform& platform, FormExtender& extender, WindowHandle form_window,
                  HeadlessSurface* container = nullptr);
  // The surface of a part of the control whose surface is `owner`.
  HeadlessSurface(HeadlessPlatform& platform, FormExtender& extender, HeadlessSurface& owner);
  ~HeadlessSurface() override;

  WindowHandle hWnd() const override { return window_; }
  int32_t hDC() const override { return window_ + 1; }
  double Width() const override { return extender_.Width(); }
  double Height() const override { return extender_.Height(); }
  double ScaleWidth() const override;
  double ScaleHeight() const override;
  void SetSize(double width, double height) override;

  OLE_COLOR BackColor() const override { return back_color_; }
  void SetBackColor(OLE_COLOR color) override { back_color_ = color; }
  int16_t BorderStyle() const override { return border_style_; }
  void SetBorderStyle(int16_t style) override;
  int16_t Appearance() const override { return appearance_; }
  void SetAppearance(int16_t appearance) override;
  bool Enabled() const override { return enabled_; }
  void SetEnabled(bool enabled) override;
  int16_t MousePointer() const override { return mouse_pointer_; }
  void SetMousePointer(int16_t shape) override { mouse_pointer_ = shape; }

  void Refresh() override { ++refresh_count_; }
  void BringToFront() override;
  void PopupMenu(const Variant& menu, const Variant& flags, const Variant& x, const Variant& y,
                 const Variant& default_menu) override;

  OLE_COLOR MaskColor() const override { return mask_color_; }
  void SetMaskColor(OLE_COLOR color) override { mask_color_ = color; }

  std::unique_ptr<ILabelElement> CreateLabel() override;
  std::unique_ptr<IShapeElement> CreateShape() override;
  std::unique_ptr<ILineElement> CreateLine() override;
  std::unique_ptr<IImageElement> CreateImage() override;
  std::unique_ptr<ITextBoxElement> CreateTextBox(bool multi_line) override;
  std::unique_ptr<IListBoxElement> CreateListBox() override;
  std::unique_ptr<IPictureBoxElement> CreatePictureBox() override;

  Signal<>& Resized() override { return resized_; }
  Signal<>& Click() override { return click_; }
  Signal<>& DblClick() override { return dbl_click_; }
  MouseSignal& MouseDown() override { return mouse_down_; }
  MouseSignal& MouseMove() override { return mouse_move_; }
  MouseSignal& MouseUp() override { return mouse_up_; }
  Signal<int16_t&, int16_t&>& KeyDown() override { return key_down_; }
  Signal<int16_t&>& KeyPress() override { return key_press_; }
  Signal<int16_t&, int16_t&>& KeyUp() override { return key_up_; }
  Signal<int16_t>& AccessKeyPress() override { return access_key_press_; }
  Signal<bool>& Shown() override { return shown_; }
  // The windowless elements in drawing order (the last one on top).
  const std::vector<IElement*>& Elements() const { return elements_->Elements(); }

  // Delivers one key stroke to the control: to the end of its focus path (a part, or the
  // control itself), there to the window that takes its keys (a text box or a list box: the one
  // created, pressed or given the focus last) when it has one, else to the surface's key events.
  void DeliverKey(int16_t key_code, int16_t shift, int16_t character);
  // Tells the window that takes the keys that it has them, or no longer has them, as the focus
  // came to or left the surface's own window or the keys moved to another window.
  void UpdateKeyHolder();

  // Delivers one mouse action at (x, y), twips in the control's inner coordinates. While a
  // button is held, the window or element it was pressed on keeps the mouse (as a captured
  // window does).
  void Deliver(MouseAction action, int16_t button, int16_t shift, float x, float y);
  // The window system took the mouse from the press that is held (see MouseDispatcher).
  void CancelPress() { elements_->CancelPress(); }

  // Where a press at (x, y) (inner twips) puts the focus inside the control: on a part (and
  // along the parts it remembers, `here` false), on the surface whose text box or list box lies
  // there (`here` true; that box takes the keys from now on), or nowhere new (null) when it lies
  // on the control's windowless area. Over a control placed inside this one the answer lies in
  // that control (its own surface with `here` false, or a surface of its parts): the root of the
  // answer tells whose it is.
  HeadlessSurface* PressFocusTarget(double x, double y, bool& here);
  // The deepest window under (x, y), inner twips: a box's window, a part's (or a contained
  // control's) window or the control's own. Where a wheel turned over that point goes.
  WindowHandle WindowAt(double x, double y) const;
  // Whether every container around the control is shown and enabled, so that the control can
  // be reached at all (true for a control placed on the form itself).
  bool ContainersLetThrough() const;
  // The form gives its focus to the control or takes it away.
  void SetFormFocus(bool focused);
  bool FormFocus() const { return form_focus_; }

  // The window of a part, as its owner's dispatcher sees it.
  bool TakesMouseAt(double x, double y) const override;
  void DeliverMouse(MouseAction action, int16_t button, int16_t shift, float x, float y) override;

  int RefreshCount() const { return refresh_count_; }
  int PopupMenuCount() const { return popup_menu_count_; }

 protected:
  bool CanTakeFocus() const override;
  bool ShouldHoldFocus() const override;
  void TakeFocusNow() override;
  void FocusPartChanged() override { UpdateKeyHolder(); }
  void HoldsFocusChanged() override { UpdateKeyHolder(); }

 private:
  HeadlessSurface(HeadlessPlatform& platform, FormExtender& extender, HeadlessSurface* owner,
                  HeadlessSurface* container, WindowHandle parent_window);
  HeadlessSurface* OwnerSurface() const;
  double BorderTwips(double twips_per_pixel) const;
  int32_t BorderPixels() const;
  // Places the window where the extender says, inside its parent's inner area.
  PixelRect WindowBounds() const;
  void FollowExtender(std::u16string_view property);
  // Places the windows of the parts and of the contained controls again (after the border
  // changed).
  void PlacePartWindows();

  HeadlessPlatform& platform_;
  FormExtender& extender_;
  // The container control's surface that this control lies in (null on the form), and the
  // surfaces of the controls that lie in this one.
  HeadlessSurface* container_ = nullptr;
  std::vector<HeadlessSurface*> contained_;
  WindowHandle window_ = 0;
  OLE_COLOR back_color_;
  int16_t border_style_ = 0;
  int16_t appearance_ = 1;
  bool enabled_ = true;
  bool form_focus_ = false;
  int16_t mouse_pointer_ = 0;
  int refresh_count_ = 0;
  int popup_menu_count_ = 0;
  double last_width_ = 0;
  double last_height_ = 0;
  std::shared_ptr<MouseDispatcher> elements_;
  ScopedConnection extender_connection_;
  Signal<> resized_;
  Signal<> click_;
  Signal<> dbl_click_;
  MouseSignal mouse_down_;
  MouseSignal mouse_move_;
  MouseSignal mouse_up_;
  Signal<int16_t&, int16_t&> key_down_;
  Signal<int16_t&> key_press_;
  Signal<int16_t&, int16_t&> key_up_;
  Signal<int16_t> access_key_press_;
  Signal<bool> shown_;
  OLE_COLOR mask_color_ = 0x80000008;
  // The window that takes the control's keys, shared with the windows that may take them.
  std::shared_ptr<HeadlessKeyFocus> keys_ = std::make_shared<HeadlessKeyFocus>();
};

}  // namespace zk
