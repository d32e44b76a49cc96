#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

#include "platform/form_extender.h"
#include "platform/surface.h"

namespace zk {

class QtPlatform;

// A control's area on a Qt form: a widget placed by the control's extender that paints the back
// colour and the border (one pixel, or a two-pixel sunken edge with the 3-D appearance) and
// reports mouse, keys and focus. Child elements are widgets inside it, placed in twips relative
// to the inner area.
class QtSurface final : public ISurface {
 public:
  QtSurface(QtPlatform& platform, FormExtender& extender, QWidget* form, bool can_focus);
  ~QtSurface() override;

  QWidget* Widget() const { return widget_.data(); }
  QtPlatform& Platform() const { return platform_; }
  // The inner area's origin inside the widget, in pixels (the border's width).
  int BorderPixels() const;
  // Converts between twips of the inner area and pixels of the widget.
  QPoint ToPixels(double x, double y) const;
  double XToTwips(double pixels) const;
  double YToTwips(double pixels) const;

  WindowHandle hWnd() const override { return window_; }
  int32_t hDC() const override { return window_ + 1; }
  double Width() const override { return extender_.Width(); }
  double Height() const override { return extender_.Height(); }
  double ScaleWidth() const override;
  double ScaleHeight() const override;
  void SetSize(double width, double height) override;

  OLE_COLOR BackColor() const override { return back_color_; }
  void SetBackColor(OLE_COLOR color) override;
  int16_t BorderStyle() const override { return border_style_; }
  void SetBorderStyle(int16_t style) override;
  int16_t Appearance() const override { return appearance_; }
  void SetAppearance(int16_t appearance) override;
  bool Enabled() const override;
  void SetEnabled(bool enabled) override;
  int16_t MousePointer() const override { return mouse_pointer_; }
  void SetMousePointer(int16_t shape) override;
  void Refresh() override;
  void PopupMenu(const Variant& menu, const Variant& flags, const Variant& x, const Variant& y,
                 const Variant& default_menu) override;

  std::unique_ptr<ILabelElement> CreateLabel() override;

  Signal<>& Resized() override { return resized_; }
  Signal<>& Click() override { return click_; }
  Signal<>& DblClick() override { return dbl_click_; }
  MouseSignal& MouseDown() override { return mouse_down_; }
  MouseSignal& MouseMove() override { return mouse_move_; }
  MouseSignal& MouseUp() override { return mouse_up_; }
  Signal<int16_t&, int16_t&>& KeyDown() override { return key_down_; }
  Signal<int16_t&>& KeyPress() override { return key_press_; }
  Signal<int16_t&, int16_t&>& KeyUp() override { return key_up_; }
  Signal<>& GotFocus() override { return got_focus_; }
  Signal<>& LostFocus() override { return lost_focus_; }

  // Raised when the element widgets must be placed again (the border changed).
  Signal<>& PlacementChanged() { return placement_changed_; }

 private:
  class ControlWidget;
  friend class ControlWidget;
  void FollowExtender(std::u16string_view property);

  QtPlatform& platform_;
  FormExtender& extender_;
  QPointer<QWidget> widget_;
  WindowHandle window_ = 0;
  OLE_COLOR back_color_ = 0x8000000F;
  int16_t border_style_ = 0;
  int16_t appearance_ = 1;
  int16_t mouse_pointer_ = 0;
  double last_width_ = 0;
  double last_height_ = 0;
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
  Signal<> got_focus_;
  Signal<> lost_focus_;
  Signal<> placement_changed_;
};

}  // namespace zk
