#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "controls/buttons/color_button.h"
#include "enumerations/enumerations.h"
#include "framework/ambient_back_color.h"
#include "framework/constituent.h"
#include "framework/control.h"
#include "models/slider_value_model.h"
#include "platform/elements.h"
#include "services/subclass.h"
#include "services/timer.h"

namespace zk {

// A horizontal or vertical slider built from three colour buttons: a decrement jog at the left
// or top end, an increment jog at the right or bottom end, and the thumb between them, which
// shows the value or a caption. A guide line may run along the middle and a rectangle may
// frame the whole. The value and its arithmetic are SliderValueModel's; the control lays the
// pieces out and turns the mouse (a press on the track, dragging the thumb, holding a jog with
// auto-repeat), the arrow keys and the mouse wheel into value changes.
class ZKSlider final : public ZKControl {
 public:
  explicit ZKSlider(IControlSite& site);
  ~ZKSlider() override;

  std::u16string_view Kind() const override { return u"ZKSlider"; }
  const PropertyTable& Properties() const override;

  // zktBSNone or zktBSSolid (the border rectangle); other values are ignored.
  zktCmdBorderStyle BorderStyle() const { return border_style_; }
  void SetBorderStyle(zktCmdBorderStyle New_BorderStyle);
  // 0 to 3; other values are ignored. The jogs keep their glyphs until the next glyph update
  // (a Font write, a change of the font, reading stored properties).
  zktSBDirection Direction() const { return model_.Direction(); }
  void SetDirection(zktSBDirection New_Direction);
  // The thumb's caption colour and face colour.
  OLE_COLOR SliderForeColor() const;
  void SetSliderForeColor(OLE_COLOR New_SliderForeColor);
  OLE_COLOR SliderBackColor() const;
  void SetSliderBackColor(OLE_COLOR New_SliderBackColor);
  // Both jogs' caption and face colours (read from the decrement jog).
  OLE_COLOR JogsForeColor() const;
  void SetJogsForeColor(OLE_COLOR New_JogsForeColor);
  OLE_COLOR JogsBackColor() const;
  void SetJogsBackColor(OLE_COLOR New_JogsBackColor);

  // The limits: the thumb is placed again, which brings Value within them silently. Errors of
  // the model (6) reach the caller.
  double Min() const { return model_.Min(); }
  void SetMin(double New_Min);
  double Max() const { return model_.Max(); }
  void SetMax(double New_Max);
  // Never below MinInterval.
  double Step() const { return model_.Step(); }
  void SetStep(double New_Step);
  // The value write of the model; Change when it stored a value. A MinInterval that rounds to
  // 0 raises 11, a value beyond the integers of quantisation 6, with nothing changed.
  double Value() const { return model_.Value(); }
  void SetValue(double New_Value);
  // The quantum of Value; negative values are ignored.
  double MinInterval() const { return model_.MinInterval(); }
  void SetMinInterval(double New_MinInterval);
  void IncrementValue();
  void DecrementValue();

  // Also given to the three buttons.
  void SetDesignMode(bool New_DesignMode) override;
  // The thumb's length along the track, twips; 0 or less is ignored, beyond a 32-bit float 6.
  float SliderWidth() const { return slider_width_; }
  void SetSliderWidth(double New_SliderWidth);
  // The thumb shows the value (formatted with DecimalSep, Decimals, PadDecimals) or Caption.
  bool ShowValue() const { return model_.Values().ShowValue; }
  void SetShowValue(bool New_ShowValue);
  const std::u16string& DecimalSep() const { return model_.Values().DecimalSep; }
  void SetDecimalSep(std::u16string New_DecimalSep);
  // -1 (all decimals) or more; lower values are taken as -1.
  int16_t Decimals() const { return model_.Decimals(); }
  void SetDecimals(int16_t New_Decimals);
  bool PadDecimals() const { return model_.Values().PadDecimals; }
  void SetPadDecimals(bool New_PadDecimals);
  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string New_Caption);

  // Following the container's back colour; an explicit BackColor switches it off.
  bool AmbientBackColor() const { return ambient_back_color_.Value(); }
  void SetAmbientBackColor(bool New_AmbientBackColor);
  // The background while enabled.
  OLE_COLOR BackColor() const { return back_color_; }
  void SetBackColor(OLE_COLOR New_BackColor);

  bool ShowGuide() const { return show_guide_; }
  void SetShowGuide(bool New_ShowGuide);
  // The guide line's width in pixels, 1 to 8192; other values are ignored.
  int16_t GuideWidth() const;
  void SetGuideWidth(int16_t New_GuideWidth);
  OLE_COLOR GuideColor() const;
  void SetGuideColor(OLE_COLOR New_GuideColor);

  // The jogs' and the thumb's shape codes (read from the decrement jog and the thumb); the
  // buttons ignore codes they do not have.
  int16_t JogsShape() const;
  void SetJogsShape(int16_t New_JogsShape);
  int16_t SliderShape() const;
  void SetSliderShape(int16_t New_SliderShape);
  // The thumb's focus border (extra pixels while it has the focus).
  int32_t ShowFocus() const;
  void SetShowFocus(int32_t New_ShowFocus);
  int32_t hDC() const;

  ControlEvent<int16_t&, int16_t&> KeyDown{EventRaised(), u"KeyDown"};
  ControlEvent<int16_t&> KeyPress{EventRaised(), u"KeyPress"};
  ControlEvent<int16_t&, int16_t&> KeyUp{EventRaised(), u"KeyUp"};
  ControlEvent<> Click{EventRaised(), u"Click"};
  ControlEvent<> DblClick{EventRaised(), u"DblClick"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseDown{EventRaised(), u"MouseDown"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseMove{EventRaised(), u"MouseMove"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseUp{EventRaised(), u"MouseUp"};
  ControlEvent<> Change{EventRaised(), u"Change"};

  // The pieces, for hosts and tests that look at what is shown or drive a part directly.
  ZKColorButton& DecrementJog() const { return *cmd_decrement_; }
  ZKColorButton& IncrementJog() const { return *cmd_increment_; }
  ZKColorButton& Thumb() const { return *cmd_slider_; }
  // A part's extender (its place in twips of the inner area, its tooltip) and its surface, by
  // the part's name ("cmdDecrement", "cmdIncrement", "cmdSlider"); null for another name.
  DispatchObject* PartExtender(std::u16string_view name) const;
  ISurface* PartSurface(std::u16string_view name) const;
  const ILineElement& GuideLine() const { return *lin_guide_; }
  const IShapeElement& BorderShape() const { return *shp_border_; }
  // The length along which the thumb's leading edge travels, twips.
  double TrackLength() const { return model_.TrackLength(); }
  // The auto-repeat of the jogs is running.
  bool Repeating() const { return timer_.Enabled(); }
  // The window the mouse wheel is observed on, 0 while it is not.
  WindowHandle ObservedWindow() const { return subclass_.hWnd(); }

 protected:
  void Layout() override;
  void OnFontChanged() override;
  void OnEnabledChanged(bool enabled) override;
  void OnAmbientChanged(std::u16string_view property) override;
  void AfterInitProperties() override;
  void AfterReadProperties() override;

 private:
  using Button = Constituent<ZKColorButton>;
  struct Bounds {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
  };

  const Button* FindPart(std::u16string_view name) const;
  void ConnectParts();
  void ConnectButton(Button& button);
  void ConnectJog(Button& jog, bool increment);
  // Where a part is, as the slider last placed it (twips of the inner area).
  const Bounds& BoundsOf(const Button& part) const;
  Bounds ZKSlider::*PlaceOf(const Button& part) const;
  void PlacePart(Button& part, double left, double top, double width, double height);
  SliderMeasures Measure() const;
  bool Horizontal() const;
  bool Vertical() const;

  // Brings Value within the limits, moves the thumb there and gives it its text.
  void PlaceThumb();
  void UpdateJogGlyphs();
  void ApplyEnabledLook();
  // After the value changed: the thumb follows, the host hears "Value", and Change is raised.
  void ValueChanged();
  // Runs one value change that input asked for; a failure ends the handling (false) and is
  // traced, never raised into the platform.
  template <typename Action>
  bool FromInput(std::u16string_view procedure, Action&& action);

  void JogDown(Button& jog, bool increment, int16_t button, int16_t shift, float x, float y);
  void JogUp(Button& jog, int16_t button, int16_t shift, float x, float y);
  void ThumbMove(int16_t button, int16_t shift, float x, float y);
  void ControlMouseDown(int16_t button, int16_t shift, float x, float y);
  void HandleKeyDown(int16_t& key_code, int16_t& shift);
  void RepeatTick();
  void WindowMessage(uint32_t message, int32_t wparam);
  void FocusThumb();
  void CopyToolTip(Button& button);
  void OnShown(bool shown);

  SliderValueModel model_;
  Button cmd_decrement_;
  Button cmd_increment_;
  Button cmd_slider_;
  std::unique_ptr<ILineElement> lin_guide_;
  std::unique_ptr<IShapeElement> shp_border_;
  AmbientBackColorBinding ambient_back_color_;
  ZKCTimer timer_;
  ZKCSubclass subclass_;
  Bounds decrement_at_;
  Bounds increment_at_;
  Bounds thumb_at_;
  std::u16string caption_;
  OLE_COLOR back_color_ = 0xFFFFFF;
  zktCmdBorderStyle border_style_ = zktBSNone;
  float slider_width_ = 350;
  bool show_guide_ = false;
  // The change that the last jog press made, repeated by the timer.
  double repeat_step_ = 0;
  // Set while a jog hands its press to the control's own mouse-down handling.
  bool jog_mouse_ = false;
  bool laying_out_ = false;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
