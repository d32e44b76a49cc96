#pragma once

#include <QImage>
#include <QPointer>
#include <QRectF>
#include <QWidget>
#include <memory>
#include <utility>
#include <vector>

#include "platform/common/form_extender.h"
#include "platform/common/mouse_dispatcher.h"
#include "platform/common/persistent_drawing.h"
#include "platform/common/surface_base.h"

class QPainter;

namespace zk {

class QtPlatform;

// An element that the surface paints itself (a windowless element: label, shape, line, image).
class QtPaintedElement {
 public:
  virtual ~QtPaintedElement() = default;
  // Paints the element into `area`, pixels of the control's widget.
  virtual void Paint(QPainter& painter, const QRectF& area) const = 0;
};

// A control's area on a Qt form: a widget placed by the control's extender that paints the back
// colour, the background picture and the persistent drawing, its windowless elements and the
// border (one pixel, or a two-pixel sunken edge with
// the 3-D appearance), and reports mouse, keys and focus. Windowless elements are painted by the
// surface and get their mouse events from it, as a container does for its light-weight
// controls; elements with a window of their own (text boxes, lists) are child widgets. The
// surface of a part is a child widget of its owner's, placed in twips of the owner's inner area;
// so is the surface of a control that the form placed inside a container control, which stays
// a control of the form of its own (its focus is not its container's).
// The focus inside a control is Qt's focus: a surface holds it while Qt's focus widget is its
// widget or inside it, and the part that the focus goes to is the widget's focus proxy.
class QtSurface final : public PersistentDrawing<SurfaceBase> {
 public:
  // The surface of a control on a form (`form` is the form's widget), or inside the surface of
  // the container control `container`.
  QtSurface(QtPlatform& platform, FormExtender& extender, QWidget* form, bool can_focus,
            QtSurface* container = nullptr);
  // The surface of a part of the control whose surface is `owner`.
  QtSurface(QtPlatform& platform, FormExtender& extender, QtSurface& owner);
  ~QtSurface() override;

  // The surface whose widget is `widget` or holds it (the innermost one), or null.
  static QtSurface* SurfaceOf(const QWidget* widget);

  QWidget* Widget() const { return widget_; }
  QtPlatform& Platform() const { return platform_; }
  // The inner area's origin inside the widget, in pixels (the border's width).
  int BorderPixels() const;
  // Converts between twips of the inner area and pixels of the widget.
  QPointF ToPixels(double x, double y) const;
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

  // Windowless elements register while they live; the last one added is on top.
  void AddPaintedElement(IElement* element, const QtPaintedElement* painted);
  void RemovePaintedElement(IElement* element);
  // The place of an element in the widget's pixels.
  QRectF PixelArea(const IElement& element) const;
  // Puts a windowless element above the others.
  void BringPaintedToFront(IElement* element);
  // Repaints the widget (after an element changed).
  void Update();
  // A child widget (a text box) that takes the control's focus reports it here.
  void ChildFocus(bool /*focused*/) { RefreshFocus(); }
  // Follows Qt's focus: the surface (of this control's tree) that has it becomes the end of
  // the focus path, and the surfaces raise GotFocus and LostFocus as they gain or lose it.
  void RefreshFocus();
  // The widget of the surface's own window that takes the focus when the surface does (a text
  // box or a list box; null for the surface's widget itself), also while a part has it.
  QWidget* OwnFocusWidget() const;
  void SetOwnFocusWidget(QWidget* widget);
  // Where a press on `widget` (inside this control) puts the focus inside the control: on a
  // part (along the parts it remembers, `here` false), on the surface whose text box or list
  // box it is (`here` true; that box gets the surface's focus from now on), or nowhere new
  // (null) on the control's own area.
  QtSurface* PressFocusTarget(QWidget* widget, bool& here);

 protected:
  bool CanTakeFocus() const override;
  bool ShouldHoldFocus() const override;
  void TakeFocusNow() override;
  void FocusPartChanged() override;
  void DrawingChanged() override;

 private:
  class ControlWidget;
  friend class ControlWidget;
  QtSurface(QtPlatform& platform, FormExtender& extender, QtSurface* owner, QtSurface* container,
            QWidget* parent, bool can_focus);
  void FollowExtender(std::u16string_view property);
  // Places the widgets of the parts and of the contained controls again (after the border
  // changed).
  void PlacePartWidgets();
  // Whether every container around the control is shown (true on the form itself).
  bool ContainersShown() const;
  // Whether Qt's focus widget is this surface's widget or lies inside it and belongs to this
  // control (not to a control placed inside it).
  bool HoldsFocusWidget(const QWidget* focus) const;
  // Paints the background picture and the persistent drawing into the inner area.
  void PaintDrawing(QPainter& painter) const;

  QtPlatform& platform_;
  FormExtender& extender_;
  // The container control's surface that this control lies in (null on the form), and the
  // surfaces of the controls that lie in this one.
  QtSurface* container_ = nullptr;
  std::vector<QtSurface*> contained_;
  // Cleared by the widget's destructor: a closing form may delete it before the surface.
  QWidget* widget_ = nullptr;
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
  Signal<int16_t> access_key_press_;
  Signal<bool> shown_;
  OLE_COLOR mask_color_ = 0x80000008;
  MouseDispatcher dispatcher_;
  std::vector<std::pair<IElement*, const QtPaintedElement*>> painted_;
  // The background picture as an image, made when the picture is set.
  const zk::Picture* picture_shown_ = nullptr;
  QImage picture_image_;
  // The focus proxy that the widget had before a part became it (a text box's editor).
  QPointer<QWidget> own_focus_proxy_;
  bool proxy_is_part_ = false;
};

}  // namespace zk
