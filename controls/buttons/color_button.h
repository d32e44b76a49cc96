#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "enumerations/enumerations.h"
#include "framework/control.h"
#include "framework/element_mouse_relay.h"
#include "platform/elements.h"

namespace zk {

// An owner-drawn push or toggle button: a coloured outline shape with a caption on it. The
// selected state has its own face colour, caption and caption colour, a disabled push button
// its own face colour, and the focus shows as a border that is ShowFocus pixels wider.
class ZKColorButton : public ZKControl {
 public:
  explicit ZKColorButton(IControlSite& site);
  ~ZKColorButton() override;

  std::u16string_view Kind() const override { return u"ZKColorButton"; }
  const PropertyTable& Properties() const override;

  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string New_Caption);
  // 0 to 4; other values are ignored.
  zktButTextAlignment Alignment() const { return alignment_; }
  void SetAlignment(zktButTextAlignment New_Alignment);
  // zktButton or zktToggle; other values are ignored. Value stays as it is.
  zktButBehavior Behavior() const { return behavior_; }
  void SetBehavior(zktButBehavior New_Behavior);
  OLE_COLOR BackColor() const { return back_color_; }
  void SetBackColor(OLE_COLOR New_BackColor);
  OLE_COLOR SelectedColor() const { return selected_color_; }
  void SetSelectedColor(OLE_COLOR New_SelectedColor);
  // zktBSNone switches the border line off, zktBSSolid on; other values are ignored.
  zktCmdBorderStyle BorderStyle() const { return border_style_; }
  void SetBorderStyle(zktCmdBorderStyle New_BorderStyle);
  // Pixels, 1 to 8192; other values are ignored.
  int16_t BorderWidth() const;
  void SetBorderWidth(int16_t New_BorderWidth);
  OLE_COLOR BorderColor() const;
  void SetBorderColor(OLE_COLOR New_BorderColor);
  OLE_COLOR ForeColor() const { return fore_color_; }
  void SetForeColor(OLE_COLOR New_ForeColor);
  OLE_COLOR SelectedForeColor() const { return selected_fore_color_; }
  void SetSelectedForeColor(OLE_COLOR New_SelectedForeColor);
  OLE_COLOR MaskColor() const;
  void SetMaskColor(OLE_COLOR New_MaskColor);
  // Every value other than zktToggleUnselected is stored as zktToggleSelected; no event.
  zktToggleValue Value() const { return value_; }
  void SetValue(zktToggleValue New_Value);
  const std::u16string& CaptionSelected() const { return caption_selected_; }
  void SetCaptionSelected(std::u16string New_CaptionSelected);
  OLE_COLOR DisabledBackColor() const { return disabled_back_color_; }
  void SetDisabledBackColor(OLE_COLOR New_DisabledBackColor);
  // A shape_code value; others are ignored.
  int16_t Shape() const;
  void SetShape(int16_t New_Shape);
  // Extra border pixels while focused; ignored unless 0 <= BorderWidth + value <= 8192.
  int32_t ShowFocus() const { return show_focus_; }
  void SetShowFocus(int32_t New_ShowFocus);
  int32_t hDC() const;

  ControlEvent<> Click{EventRaised(), u"Click"};
  ControlEvent<> DblClick{EventRaised(), u"DblClick"};
  ControlEvent<int16_t&, int16_t&> KeyDown{EventRaised(), u"KeyDown"};
  ControlEvent<int16_t&> KeyPress{EventRaised(), u"KeyPress"};
  ControlEvent<int16_t&, int16_t&> KeyUp{EventRaised(), u"KeyUp"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseDown{EventRaised(), u"MouseDown"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseMove{EventRaised(), u"MouseMove"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseUp{EventRaised(), u"MouseUp"};

  // The inner elements, for hosts and tests that look at what is drawn.
  const IShapeElement& FaceElement() const { return *shp_border_; }
  const IShapeElement& FocusElement() const { return *shp_focus_; }
  const ILabelElement& CaptionElement() const { return *lbl_caption_; }

 protected:
  // The property rows of every button, with `extra` after ShowFocus. The bag places of the
  // button's rows are multiples of ten, so that `extra` can take the places between them.
  static std::vector<PropertyRow> ButtonRows(std::vector<PropertyRow> extra = {});
  static std::vector<std::u16string_view> ButtonEvents();

  bool Selected() const { return value_ != zktToggleUnselected; }
  // The caption margins: BorderWidth + 5 pixels, in twips.
  double MarginX() const;
  double MarginY() const;

  // Redraw shows the state: face colour, focus outline colour and the caption laid out.
  void Redraw() override;
  // The layout fits the shapes to the inner area and redraws; re-entry is refused.
  void Layout() override;
  // Clicks and mouse input of an inner element become the control's own, in control
  // coordinates, with the host's tooltip copied into the element so that it shows over it too.
  void HandleMouseOf(IElement& element);

  // Steps that a button with pictures adds to the colour button's.
  virtual void BeforeRedraw() {}
  virtual void AfterResize(double /*width*/, double /*height*/) {}
  virtual void AfterAlignmentChanged() { Redraw(); }
  // Where the caption of size (label_width, label_height) goes in an inner area of
  // (width, height), as (left, top).
  virtual std::pair<double, double> CaptionPlace(double width, double height, double label_width,
                                                 double label_height) const;
  // The inner elements that take input follow the control's enabled state.
  virtual void EnableInputElements(bool enabled);
  void OnFontChanged() override;
  void OnEnabledChanged(bool enabled) override;
  void AfterInitProperties() override;
  void AfterReadProperties() override;

 private:
  void ConnectInput();
  void LayoutCaption(const std::u16string& text, OLE_COLOR color);
  OLE_COLOR FaceColor() const;
  void Press();
  void Release();
  void Clicked();
  void FocusReceived();
  void FocusLost();

  std::unique_ptr<IShapeElement> shp_border_;
  std::unique_ptr<IShapeElement> shp_focus_;
  std::unique_ptr<ILabelElement> lbl_caption_;
  zktToggleValue value_ = zktToggleUnselected;
  zktButBehavior behavior_ = zktButton;
  OLE_COLOR back_color_ = 0x8000000F;
  OLE_COLOR selected_color_ = 0x808080;
  OLE_COLOR disabled_back_color_ = 0x8000000B;
  OLE_COLOR fore_color_ = 0x80000012;
  OLE_COLOR selected_fore_color_ = 0x80000012;
  std::u16string caption_ = u"Button";
  std::u16string caption_selected_;
  zktButTextAlignment alignment_ = zktButTextAlignCenter;
  zktCmdBorderStyle border_style_ = zktBSSolid;
  int32_t show_focus_ = 1;
  // What the caption label shows and where, as last laid out.
  std::u16string laid_out_text_;
  OLE_COLOR laid_out_color_ = 0;
  double caption_left_ = 0;
  double caption_top_ = 0;
  bool resizing_ = false;
  std::vector<std::unique_ptr<ElementMouseRelay>> element_mice_;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
