#include "controls/slider/slider.h"

#include <cmath>
#include <limits>
#include <memory>
#include <utility>

#include "foundation/debug_utils.h"
#include "foundation/dispatch_object.h"
#include "foundation/flag_scope.h"
#include "foundation/low_level_utils.h"
#include "foundation/zk_error.h"
#include "framework/layout_steps.h"
#include "platform/platform.h"
#include "platform/window_messages.h"

namespace zk {
namespace {

using automation::Method;

constexpr int16_t kLeftButton = 1;
constexpr int16_t kArrowLeft = 37;
constexpr int16_t kArrowUp = 38;
constexpr int16_t kArrowRight = 39;
constexpr int16_t kArrowDown = 40;
constexpr int16_t kLargestGuide = 8192;
// The jogs' arrows, and the face they are drawn in when that face is installed.
constexpr std::u16string_view kArrowFace = u"Wingdings 3";
constexpr std::u16string_view kPlainFace = u"MS Sans Serif";
// Points the jogs' glyphs are larger than the control's font.
constexpr double kGlyphGrowth = 4;
// The auto-repeat of a held jog: the first repeat, then the ones after it (ms).
constexpr int32_t kFirstRepeat = 500;
constexpr int32_t kNextRepeats = 30;

// A part is a window, and a window lies on whole pixels. The slider puts its parts there itself,
// so that the place it reads back (and adds to the coordinates of a part's mouse events) is
// where the window really is, on every platform.
double OnWholePixels(double twips, double twips_per_pixel) {
  if (!(twips_per_pixel > 0)) return twips;
  return MLowLevelUtils::RoundHalfEven(twips / twips_per_pixel) * twips_per_pixel;
}

ZKSlider& Self(ZKControl& control) {
  return static_cast<ZKSlider&>(control);
}

}  // namespace

ZKSlider::ZKSlider(IControlSite& site)
    : ZKControl(site),
      cmd_decrement_(site, u"cmdDecrement"),
      cmd_increment_(site, u"cmdIncrement"),
      cmd_slider_(site, u"cmdSlider"),
      lin_guide_(Surface().CreateLine()),
      shp_border_(Surface().CreateShape()),
      ambient_back_color_(
          site.Ambient(), [this](OLE_COLOR color) { SetBackColor(color); },
          [this](std::u16string_view property) { NotifyChanged(property); }) {
  ambient_back_color_.Store(false);
  lin_guide_->SetBorderWidth(1);
  lin_guide_->SetBorderColor(0);
  lin_guide_->SetVisible(false);
  // The border only frames: the control's background shows through it.
  shp_border_->SetShape(shape_code::kRectangle);
  shp_border_->SetFillStyle(1);
  shp_border_->SetBorderStyle(line_style::kSolid);
  shp_border_->SetBorderWidth(1);
  shp_border_->SetBorderColor(system_color::kWindowText);
  shp_border_->SetVisible(false);
  cmd_slider_->SetCaption(u"");
  // The window's own procedure must still run: the wheel is only watched.
  subclass_.SetPropagate(true);
  timer_.SetInterval(kFirstRepeat);
  ConnectParts();
  Surface().SetBackColor(back_color_);
  Layout();
}

ZKSlider::~ZKSlider() {
  timer_.SetEnabled(false);
  subclass_.Unhook();
}

// ---- Wiring ----

void ZKSlider::ConnectParts() {
  ISurface& surface = Surface();
  connections_.push_back(surface.Resized().Connect([this] { Layout(); }));
  connections_.push_back(ForwardTo(surface.Click(), Click));
  connections_.push_back(ForwardTo(surface.DblClick(), DblClick));
  connections_.push_back(
      surface.MouseDown().Connect([this](int16_t button, int16_t shift, float x, float y) {
        ControlMouseDown(button, shift, x, y);
      }));
  connections_.push_back(ForwardTo(surface.MouseMove(), MouseMove));
  connections_.push_back(ForwardTo(surface.MouseUp(), MouseUp));
  connections_.push_back(surface.KeyDown().Connect(
      [this](int16_t& key_code, int16_t& shift) { HandleKeyDown(key_code, shift); }));
  connections_.push_back(ForwardTo(surface.KeyPress(), KeyPress));
  connections_.push_back(ForwardTo(surface.KeyUp(), KeyUp));
  connections_.push_back(surface.GotFocus().Connect([this] { FocusThumb(); }));
  connections_.push_back(surface.Shown().Connect([this](bool shown) { OnShown(shown); }));
  connections_.push_back(timer_.Timer().Connect([this] { RepeatTick(); }));
  connections_.push_back(subclass_.AfterEvent().Connect(
      [this](uint32_t message, int32_t wparam, int32_t) { WindowMessage(message, wparam); }));

  ConnectButton(cmd_decrement_);
  ConnectButton(cmd_increment_);
  ConnectButton(cmd_slider_);
  ConnectJog(cmd_decrement_, false);
  ConnectJog(cmd_increment_, true);
  ZKColorButton& thumb = *cmd_slider_;
  connections_.push_back(
      thumb.MouseDown.Connect([this](int16_t& button, int16_t& shift, float& x, float& y) {
        const Bounds at = BoundsOf(cmd_slider_);
        ControlMouseDown(button, shift, x + static_cast<float>(at.left),
                         y + static_cast<float>(at.top));
      }));
  connections_.push_back(
      thumb.MouseMove.Connect([this](int16_t& button, int16_t& shift, float& x, float& y) {
        ThumbMove(button, shift, x, y);
      }));
  connections_.push_back(
      thumb.MouseUp.Connect([this](int16_t& button, int16_t& shift, float& x, float& y) {
        const Bounds at = BoundsOf(cmd_slider_);
        float cx = x + static_cast<float>(at.left);
        float cy = y + static_cast<float>(at.top);
        MouseUp.Raise(button, shift, cx, cy);
      }));
}

void ZKSlider::ConnectButton(Button& button) {
  ZKColorButton& part = *button;
  connections_.push_back(part.Click.Connect([this] { Click.Raise(); }));
  connections_.push_back(part.DblClick.Connect([this] { DblClick.Raise(); }));
  connections_.push_back(part.KeyDown.Connect(
      [this](int16_t& key_code, int16_t& shift) { HandleKeyDown(key_code, shift); }));
  connections_.push_back(
      part.KeyPress.Connect([this](int16_t& key_ascii) { KeyPress.Raise(key_ascii); }));
  connections_.push_back(part.KeyUp.Connect(
      [this](int16_t& key_code, int16_t& shift) { KeyUp.Raise(key_code, shift); }));
  // Runs before the part's own mouse handling below: the tooltip is there when it shows.
  connections_.push_back(part.MouseMove.Connect(
      [this, &button](int16_t&, int16_t&, float&, float&) { CopyToolTip(button); }));
}

void ZKSlider::ConnectJog(Button& jog, bool increment) {
  ZKColorButton& part = *jog;
  connections_.push_back(part.MouseDown.Connect(
      [this, &jog, increment](int16_t& button, int16_t& shift, float& x, float& y) {
        JogDown(jog, increment, button, shift, x, y);
      }));
  connections_.push_back(
      part.MouseMove.Connect([this, &jog](int16_t& button, int16_t& shift, float& x, float& y) {
        const Bounds at = BoundsOf(jog);
        float cx = x + static_cast<float>(at.left);
        float cy = y + static_cast<float>(at.top);
        MouseMove.Raise(button, shift, cx, cy);
      }));
  connections_.push_back(
      part.MouseUp.Connect([this, &jog](int16_t& button, int16_t& shift, float& x, float& y) {
        JogUp(jog, button, shift, x, y);
      }));
  // The thumb takes the keys: a jog that gets the focus passes it on.
  connections_.push_back(jog.Surface().GotFocus().Connect([this] { FocusThumb(); }));
}

const ZKSlider::Button* ZKSlider::FindPart(std::u16string_view name) const {
  for (const Button* part : {&cmd_decrement_, &cmd_increment_, &cmd_slider_}) {
    if (MemberNameEquals((*part)->Name(), name)) return part;
  }
  return nullptr;
}

DispatchObject* ZKSlider::PartExtender(std::u16string_view name) const {
  const Button* part = FindPart(name);
  return part ? &part->Extender() : nullptr;
}

ISurface* ZKSlider::PartSurface(std::u16string_view name) const {
  const Button* part = FindPart(name);
  return part ? &part->Surface() : nullptr;
}

// ---- Automation ----

const PropertyTable& ZKSlider::Properties() const {
  using property_rows::Member;
  using property_rows::Property;
  using property_rows::ReadOnly;
  using C = ZKSlider;
  const Variant window_text = ColorValue(system_color::kWindowText);
  static const PropertyTable table(
      {
          Common<C>(u"Enabled").Bag(Variant(true)),
          Common<C>(u"Font").Archive(21).New(Ambient::kFont, InitBy::kSetter).Bag(Ambient::kFont),
          Property(u"BorderStyle", &C::BorderStyle, &C::SetBorderStyle)
              .Archive(20)
              .New(Variant(int32_t{zktBSNone}))
              .Bag(Variant(int32_t{0}))
              .Store(&C::border_style_),
          Property(u"Direction", &C::Direction, &C::SetDirection)
              .Archive(1)
              .New(Variant(int32_t{zktSBLeftToRight}))
              .Bag(Variant(int32_t{0}))
              .Store([](C& c, zktSBDirection v) { c.model_.StoredValues().Direction = v; }),
          Property(u"SliderForeColor", &C::SliderForeColor, &C::SetSliderForeColor)
              .Archive(2)
              .Bag(window_text)
              .Store([](C& c, OLE_COLOR v) { c.cmd_slider_->SetForeColor(v); }),
          // The increment jog copies the decrement jog's colours once both are read.
          Property(u"JogsBackColor", &C::JogsBackColor, &C::SetJogsBackColor)
              .Archive(5)
              .Bag(ColorValue(0))
              .Store([](C& c, OLE_COLOR v) { c.cmd_decrement_->SetBackColor(v); }),
          Property(u"SliderBackColor", &C::SliderBackColor, &C::SetSliderBackColor)
              .Archive(3)
              .Bag(ColorValue(0))
              .Store([](C& c, OLE_COLOR v) { c.cmd_slider_->SetBackColor(v); }),
          Property(u"JogsForeColor", &C::JogsForeColor, &C::SetJogsForeColor)
              .Archive(4)
              .Bag(window_text)
              .Store([](C& c, OLE_COLOR v) { c.cmd_decrement_->SetForeColor(v); }),
          Property(u"Min", &C::Min, &C::SetMin)
              .Archive(7)
              .New(Variant(0.0))
              .Bag(Variant(0.0))
              .Store([](C& c, double v) { c.model_.StoredValues().Min = v; }),
          Property(u"Max", &C::Max, &C::SetMax)
              .Archive(8)
              .New(Variant(100.0))
              .Bag(Variant(100.0))
              .Store([](C& c, double v) { c.model_.StoredValues().Max = v; }),
          Property(u"Step", &C::Step, &C::SetStep)
              .Archive(9)
              .New(Variant(1.0))
              .Bag(Variant(1.0))
              .Store([](C& c, double v) { c.model_.StoredValues().Step = v; }),
          Common<C>(u"DesignMode")
              .Archive(22)
              .Bag(Variant(false))
              .Store([](C& c, const Variant& v) {
                c.StoreDesignMode(v.ToBool());
                for (Button* part : {&c.cmd_decrement_, &c.cmd_increment_, &c.cmd_slider_})
                  (*part)->SetDesignMode(v.ToBool());
              }),
          Property(u"Value", &C::Value, &C::SetValue)
              .Archive(16)
              .New(Variant(0.0))
              .Bag(Variant(0.0))
              .Store([](C& c, double v) { c.model_.StoredValues().Value = v; }),
          Property(u"SliderWidth", &C::SliderWidth, &C::SetSliderWidth)
              .Archive(10)
              .New(Variant(350.0))
              .Bag(Variant(350.0))
              .Store([](C& c, double v) {
                if (std::fabs(v) <= std::numeric_limits<float>::max())
                  c.slider_width_ = static_cast<float>(v);
              }),
          Property(u"ShowValue", &C::ShowValue, &C::SetShowValue)
              .Archive(12)
              .New(Variant(false))
              .Bag(Variant(false))
              .Store([](C& c, bool v) { c.model_.StoredValues().ShowValue = v; }),
          Property(u"DecimalSep", &C::DecimalSep, &C::SetDecimalSep)
              .Archive(14)
              .New(u".")
              .Bag(u".")
              .Store([](C& c, const std::u16string& v) { c.model_.StoredValues().DecimalSep = v; }),
          Property(u"Decimals", &C::Decimals, &C::SetDecimals)
              .Archive(15)
              .New(Variant(int32_t{0}))
              .Bag(Variant(int32_t{0}))
              .Store([](C& c, int16_t v) { c.model_.StoredValues().Decimals = v; }),
          Property(u"PadDecimals", &C::PadDecimals, &C::SetPadDecimals)
              .Archive(13)
              .New(Variant(false))
              .Bag(Variant(false))
              .Store([](C& c, bool v) { c.model_.StoredValues().PadDecimals = v; }),
          Property(u"AmbientBackColor", &C::AmbientBackColor, &C::SetAmbientBackColor)
              .Archive(19)
              .New(Variant(false))
              .Bag(Variant(false))
              .Store([](C& c, bool v) { c.ambient_back_color_.Store(v); }),
          Property(u"ShowGuide", &C::ShowGuide, &C::SetShowGuide)
              .Archive(17)
              .New(Variant(false))
              .Bag(Variant(false))
              .Store(&C::show_guide_),
          Property(u"GuideWidth", &C::GuideWidth, &C::SetGuideWidth)
              .Archive(11)
              .Bag(Variant(int32_t{1}))
              .Store([](C& c, int16_t v) { c.lin_guide_->SetBorderWidth(v); }),
          Property(u"GuideColor", &C::GuideColor, &C::SetGuideColor)
              .Archive(6)
              .Bag(ColorValue(0))
              .Store([](C& c, OLE_COLOR v) { c.lin_guide_->SetBorderColor(v); }),
          Common<C>(u"hWnd"),
          Property(u"BackColor", &C::BackColor, &C::SetBackColor)
              .Archive(18)
              .New(ColorValue(0xFFFFFF))
              .Bag(ColorValue(0xFFFFFF))
              .Store(&C::back_color_),
          Common<C>(u"Clone"),
          Common<C>(u"GetArchiveStr"),
          Common<C>(u"ParseArchiveStr"),
          ReadOnly(u"hDC", &C::hDC),
          Common<C>(u"ControlGroup").Archive(23).Bag(u""),
          Common<C>(u"Refresh"),
          // The increment jog copies the decrement jog's shape.
          Property(u"JogsShape", &C::JogsShape, &C::SetJogsShape)
              .Archive(24)
              .Bag(Variant(int32_t{0}))
              .Store([](C& c, int16_t v) {
                c.cmd_decrement_->SetShape(v);
                c.cmd_increment_->SetShape(c.cmd_decrement_->Shape());
              }),
          Property(u"SliderShape", &C::SliderShape, &C::SetSliderShape)
              .Archive(25)
              .Bag(Variant(int32_t{0}))
              .Store([](C& c, int16_t v) { c.cmd_slider_->SetShape(v); }),
          Property(u"Caption", &C::Caption, &C::SetCaption, dispatch_id::kCaption)
              .Archive(26)
              .New(u"")
              .Bag(u"")
              .Store(&C::caption_),
          Common<C>(u"ExtraProp"),
          Common<C>(u"ExtraAction"),
          Property(u"ShowFocus", &C::ShowFocus, &C::SetShowFocus)
              .Archive(27)
              .Bag(Variant(int32_t{0}))
              .Store([](C& c, int32_t v) { c.cmd_slider_->SetShowFocus(v); }),
          Member(Method(u"IncrementValue",
                        [](ZKControl& control, std::span<Variant>) {
                          Self(control).IncrementValue();
                          return Variant();
                        })),
          Member(Method(u"DecrementValue",
                        [](ZKControl& control, std::span<Variant>) {
                          Self(control).DecrementValue();
                          return Variant();
                        })),
          Property(u"MinInterval", &C::MinInterval, &C::SetMinInterval)
              .Archive(28)
              .New(Variant(0.0))
              .Bag(Variant(0.0))
              .Store([](C& c, double v) { c.model_.StoredValues().MinInterval = v; }),
      },
      {u"KeyDown", u"KeyPress", u"KeyUp", u"Click", u"DblClick", u"MouseDown", u"MouseMove",
       u"MouseUp", u"Change"});
  return table;
}

// ---- Properties ----

void ZKSlider::SetBorderStyle(zktCmdBorderStyle New_BorderStyle) {
  if (New_BorderStyle != zktBSNone && New_BorderStyle != zktBSSolid) return;
  border_style_ = New_BorderStyle;
  Changed(u"BorderStyle", Effect::kLayout);
}

void ZKSlider::SetDirection(zktSBDirection New_Direction) {
  if (!model_.SetDirection(New_Direction)) return;
  Changed(u"Direction", Effect::kLayout);
}

OLE_COLOR ZKSlider::SliderForeColor() const {
  return cmd_slider_->ForeColor();
}

void ZKSlider::SetSliderForeColor(OLE_COLOR New_SliderForeColor) {
  cmd_slider_->SetForeColor(New_SliderForeColor);
  Changed(u"SliderForeColor");
}

OLE_COLOR ZKSlider::SliderBackColor() const {
  return cmd_slider_->BackColor();
}

void ZKSlider::SetSliderBackColor(OLE_COLOR New_SliderBackColor) {
  cmd_slider_->SetBackColor(New_SliderBackColor);
  Changed(u"SliderBackColor");
}

OLE_COLOR ZKSlider::JogsForeColor() const {
  return cmd_decrement_->ForeColor();
}

void ZKSlider::SetJogsForeColor(OLE_COLOR New_JogsForeColor) {
  cmd_decrement_->SetForeColor(New_JogsForeColor);
  cmd_increment_->SetForeColor(New_JogsForeColor);
  Changed(u"JogsForeColor");
}

OLE_COLOR ZKSlider::JogsBackColor() const {
  return cmd_decrement_->BackColor();
}

void ZKSlider::SetJogsBackColor(OLE_COLOR New_JogsBackColor) {
  cmd_decrement_->SetBackColor(New_JogsBackColor);
  cmd_increment_->SetBackColor(New_JogsBackColor);
  Changed(u"JogsBackColor");
}

void ZKSlider::SetMin(double New_Min) {
  model_.SetMin(New_Min);
  PlaceThumb();
  Changed(u"Min");
}

void ZKSlider::SetMax(double New_Max) {
  model_.SetMax(New_Max);
  PlaceThumb();
  Changed(u"Max");
}

void ZKSlider::SetStep(double New_Step) {
  model_.SetStep(New_Step);
  Changed(u"Step");
}

void ZKSlider::ValueChanged() {
  PlaceThumb();
  NotifyChanged(u"Value");
  Change.Raise();
}

void ZKSlider::SetValue(double New_Value) {
  if (model_.WriteValue(New_Value)) ValueChanged();
}

void ZKSlider::SetMinInterval(double New_MinInterval) {
  if (!model_.SetMinInterval(New_MinInterval)) return;
  Changed(u"MinInterval");
}

void ZKSlider::IncrementValue() {
  if (model_.IncrementValue()) ValueChanged();
}

void ZKSlider::DecrementValue() {
  if (model_.DecrementValue()) ValueChanged();
}

void ZKSlider::SetDesignMode(bool New_DesignMode) {
  ZKControl::SetDesignMode(New_DesignMode);
  for (Button* part : {&cmd_decrement_, &cmd_increment_, &cmd_slider_})
    (*part)->SetDesignMode(New_DesignMode);
}

void ZKSlider::SetSliderWidth(double New_SliderWidth) {
  if (!(New_SliderWidth > 0)) return;
  if (New_SliderWidth > std::numeric_limits<float>::max()) throw ZKError::Overflow();
  slider_width_ = static_cast<float>(New_SliderWidth);
  Changed(u"SliderWidth", Effect::kLayout);
}

void ZKSlider::SetShowValue(bool New_ShowValue) {
  model_.StoredValues().ShowValue = New_ShowValue;
  PlaceThumb();
  Changed(u"ShowValue");
}

void ZKSlider::SetDecimalSep(std::u16string New_DecimalSep) {
  model_.StoredValues().DecimalSep = std::move(New_DecimalSep);
  PlaceThumb();
  Changed(u"DecimalSep");
}

void ZKSlider::SetDecimals(int16_t New_Decimals) {
  model_.SetDecimals(New_Decimals);
  PlaceThumb();
  Changed(u"Decimals");
}

void ZKSlider::SetPadDecimals(bool New_PadDecimals) {
  model_.StoredValues().PadDecimals = New_PadDecimals;
  PlaceThumb();
  Changed(u"PadDecimals");
}

void ZKSlider::SetCaption(std::u16string New_Caption) {
  caption_ = std::move(New_Caption);
  PlaceThumb();
  Changed(u"Caption");
}

void ZKSlider::SetAmbientBackColor(bool New_AmbientBackColor) {
  ambient_back_color_.Set(New_AmbientBackColor);
}

void ZKSlider::SetBackColor(OLE_COLOR New_BackColor) {
  ambient_back_color_.BeforeBackColorWrite();
  back_color_ = New_BackColor;
  NotifyChanged(u"BackColor");
  ApplyEnabledLook();
}

void ZKSlider::SetShowGuide(bool New_ShowGuide) {
  show_guide_ = New_ShowGuide;
  Changed(u"ShowGuide", Effect::kLayout);
}

int16_t ZKSlider::GuideWidth() const {
  return lin_guide_->BorderWidth();
}

void ZKSlider::SetGuideWidth(int16_t New_GuideWidth) {
  if (New_GuideWidth < 1 || New_GuideWidth > kLargestGuide) return;
  lin_guide_->SetBorderWidth(New_GuideWidth);
  Changed(u"GuideWidth");
}

OLE_COLOR ZKSlider::GuideColor() const {
  return lin_guide_->BorderColor();
}

void ZKSlider::SetGuideColor(OLE_COLOR New_GuideColor) {
  lin_guide_->SetBorderColor(New_GuideColor);
  Changed(u"GuideColor");
}

int16_t ZKSlider::JogsShape() const {
  return cmd_decrement_->Shape();
}

void ZKSlider::SetJogsShape(int16_t New_JogsShape) {
  cmd_decrement_->SetShape(New_JogsShape);
  cmd_increment_->SetShape(New_JogsShape);
  Changed(u"JogsShape");
}

int16_t ZKSlider::SliderShape() const {
  return cmd_slider_->Shape();
}

void ZKSlider::SetSliderShape(int16_t New_SliderShape) {
  cmd_slider_->SetShape(New_SliderShape);
  Changed(u"SliderShape");
}

int32_t ZKSlider::ShowFocus() const {
  return cmd_slider_->ShowFocus();
}

void ZKSlider::SetShowFocus(int32_t New_ShowFocus) {
  cmd_slider_->SetShowFocus(New_ShowFocus);
  Changed(u"ShowFocus");
}

int32_t ZKSlider::hDC() const {
  return Surface().hDC();
}

// ---- Layout ----

ZKSlider::Bounds ZKSlider::*ZKSlider::PlaceOf(const Button& part) const {
  if (&part == &cmd_decrement_) return &ZKSlider::decrement_at_;
  if (&part == &cmd_increment_) return &ZKSlider::increment_at_;
  return &ZKSlider::thumb_at_;
}

const ZKSlider::Bounds& ZKSlider::BoundsOf(const Button& part) const {
  return this->*PlaceOf(part);
}

void ZKSlider::PlacePart(Button& part, double left, double top, double width, double height) {
  const IScreen& screen = CurrentPlatform().Screen();
  const double x = screen.TwipsPerPixelX();
  const double y = screen.TwipsPerPixelY();
  const Bounds at{OnWholePixels(left, x), OnWholePixels(top, y), OnWholePixels(width, x),
                  OnWholePixels(height, y)};
  part.Move(at.left, at.top, at.width, at.height);
  // Only the slider moves its parts (their extenders are its own): it keeps where they are.
  this->*PlaceOf(part) = at;
}

bool ZKSlider::Horizontal() const {
  return Direction() == zktSBLeftToRight || Direction() == zktSBRightToLeft;
}

bool ZKSlider::Vertical() const {
  return Direction() == zktSBTopToBottom || Direction() == zktSBBottomtoTop;
}

SliderMeasures ZKSlider::Measure() const {
  const Bounds decrement = BoundsOf(cmd_decrement_);
  const Bounds increment = BoundsOf(cmd_increment_);
  const Bounds thumb = BoundsOf(cmd_slider_);
  SliderMeasures measures;
  measures.inner_width = Surface().ScaleWidth();
  measures.inner_height = Surface().ScaleHeight();
  measures.decrement_jog_width = decrement.width;
  measures.decrement_jog_height = decrement.height;
  measures.increment_jog_width = increment.width;
  measures.thumb_width = thumb.width;
  measures.thumb_height = thumb.height;
  measures.slider_width = slider_width_;
  return measures;
}

void ZKSlider::Layout() {
  if (laying_out_) return;
  const FlagScope guard(laying_out_);
  const double width = Surface().ScaleWidth();
  const double height = Surface().ScaleHeight();
  IgnoringFailure([&] {
    if (border_style_ == zktBSSolid) shp_border_->Move(0, 0, width, height);
    shp_border_->SetVisible(border_style_ == zktBSSolid);
  });
  const double guide = lin_guide_->BorderWidth();
  const Bounds thumb = BoundsOf(cmd_slider_);
  if (Horizontal()) {
    IgnoringFailure([&] {
      if (show_guide_) {
        const double y = height / 2 - guide / 2;
        lin_guide_->SetPoints(0, y, width, y);
      }
    });
    IgnoringFailure([&] { PlacePart(cmd_decrement_, 0, 0, height, height); });
    IgnoringFailure([&] { PlacePart(cmd_increment_, width - height, 0, height, height); });
    IgnoringFailure([&] { PlacePart(cmd_slider_, thumb.left, thumb.top, slider_width_, height); });
  } else if (Vertical()) {
    IgnoringFailure([&] {
      if (show_guide_) {
        const double x = width / 2 - guide / 2;
        lin_guide_->SetPoints(x, 0, x, height);
      }
    });
    IgnoringFailure([&] { PlacePart(cmd_decrement_, 0, 0, width, width); });
    IgnoringFailure([&] { PlacePart(cmd_increment_, 0, height - width, width, width); });
    IgnoringFailure([&] { PlacePart(cmd_slider_, thumb.left, thumb.top, width, slider_width_); });
  }
  IgnoringFailure([&] { lin_guide_->SetVisible(show_guide_); });
  IgnoringFailure([&] { model_.UpdateTrackLength(Measure()); });
  PlaceThumb();
}

void ZKSlider::PlaceThumb() {
  IgnoringFailure([&] {
    const std::optional<double> position = model_.ThumbPosition(Measure());
    if (!position) return;
    const Bounds thumb = BoundsOf(cmd_slider_);
    if (Horizontal()) {
      PlacePart(cmd_slider_, *position, 0, thumb.width, thumb.height);
    } else {
      PlacePart(cmd_slider_, 0, *position, thumb.width, thumb.height);
    }
  });
  IgnoringFailure([&] { cmd_slider_->SetCaption(ShowValue() ? model_.ThumbText() : caption_); });
  IgnoringFailure([&] { Refresh(); });
}

void ZKSlider::UpdateJogGlyphs() {
  try {
    cmd_slider_->SetFont(Font());
    const double size = Font()->Size() + kGlyphGrowth;
    for (Button* jog : {&cmd_decrement_, &cmd_increment_}) {
      (*jog)->SetFont(Font());
      (*jog)->Font()->SetSize(size);
      (*jog)->Font()->SetName(kArrowFace);
    }
    const bool arrows = MemberNameEquals(cmd_decrement_->Font()->Name(), kArrowFace) &&
                        MemberNameEquals(cmd_increment_->Font()->Name(), kArrowFace);
    if (!arrows) {
      // Without the arrows' face the jogs say what they do in a face every form has.
      for (Button* jog : {&cmd_decrement_, &cmd_increment_}) {
        (*jog)->Font()->SetName(kPlainFace);
        (*jog)->Font()->SetSize(size);
      }
      cmd_decrement_->SetCaption(u"-");
      cmd_increment_->SetCaption(u"+");
    } else if (Vertical()) {
      cmd_decrement_->SetCaption(u"p");  // arrows up and down in that face
      cmd_increment_->SetCaption(u"q");
    } else {
      cmd_decrement_->SetCaption(u"t");  // arrows left and right
      cmd_increment_->SetCaption(u"u");
    }
  } catch (...) {
    return;  // a font the jogs refuse ends the update where it is
  }
  Layout();
}

void ZKSlider::ApplyEnabledLook() {
  const bool enabled = Enabled();
  for (Button* part : {&cmd_decrement_, &cmd_increment_, &cmd_slider_})
    IgnoringFailure([&] { (*part)->SetEnabled(enabled); });
  if (enabled) {
    Surface().SetBackColor(back_color_);
  } else if (!AmbientBackColor()) {
    Surface().SetBackColor(system_color::kInactiveBorder);
  }
}

void ZKSlider::OnFontChanged() {
  UpdateJogGlyphs();
}

void ZKSlider::OnEnabledChanged(bool /*enabled*/) {
  ApplyEnabledLook();
}

void ZKSlider::OnAmbientChanged(std::u16string_view property) {
  ambient_back_color_.OnAmbientChanged(property);
}

void ZKSlider::AfterInitProperties() {
  ApplyEnabledLook();
  Layout();
}

void ZKSlider::AfterReadProperties() {
  cmd_increment_->SetForeColor(cmd_decrement_->ForeColor());
  cmd_increment_->SetBackColor(cmd_decrement_->BackColor());
  IgnoringFailure([&] { model_.RecomputeRange(); });
  UpdateJogGlyphs();
  ApplyEnabledLook();
  Layout();
}

// ---- Input ----

template <typename Action>
bool ZKSlider::FromInput(std::u16string_view procedure, Action&& action) {
  try {
    std::forward<Action>(action)();
    return true;
  } catch (...) {
    MDebugUtils::TraceError(Name(), procedure);
    return false;
  }
}

void ZKSlider::ControlMouseDown(int16_t button, int16_t shift, float x, float y) {
  // A press on the track, or on the thumb itself, puts the thumb's centre under the mouse.
  if ((button & kLeftButton) != 0 && !jog_mouse_) {
    // The host's Change handler may remove the slider from its form.
    const std::weak_ptr<const char> life = LifeToken();
    const bool done = FromInput(u"MouseDown", [&] {
      if (model_.WriteValueAt(x, y, Measure())) ValueChanged();
    });
    if (!done || life.expired()) return;
  }
  MouseDown.Raise(button, shift, x, y);
}

void ZKSlider::JogDown(Button& jog, bool increment, int16_t button, int16_t shift, float x,
                       float y) {
  const Bounds at = BoundsOf(jog);
  // The host's Change and MouseDown handlers may remove the slider from its form: then
  // nothing of it is touched again (the repeat would start on a timer that is gone).
  const std::weak_ptr<const char> life = LifeToken();
  if ((button & kLeftButton) != 0 && !DesignMode()) {
    const double before = Value();
    const bool done = FromInput(u"MouseDown", [&] {
      if (increment) {
        IncrementValue();
      } else {
        DecrementValue();
      }
    });
    if (!done || life.expired()) return;
    // 0 at a limit: the timer runs, and the value stays.
    repeat_step_ = Value() - before;
    timer_.SetInterval(kFirstRepeat);
    timer_.SetEnabled(true);
  }
  struct FromJog {
    const std::weak_ptr<const char>& life;
    bool& flag;
    ~FromJog() {
      if (!life.expired()) flag = false;
    }
  } from_jog{life, jog_mouse_};
  jog_mouse_ = true;
  ControlMouseDown(button, shift, x + static_cast<float>(at.left), y + static_cast<float>(at.top));
}

void ZKSlider::JogUp(Button& jog, int16_t button, int16_t shift, float x, float y) {
  timer_.SetEnabled(false);
  const Bounds at = BoundsOf(jog);
  float cx = x + static_cast<float>(at.left);
  float cy = y + static_cast<float>(at.top);
  MouseUp.Raise(button, shift, cx, cy);
}

void ZKSlider::RepeatTick() {
  timer_.SetInterval(kNextRepeats);
  FromInput(u"Timer", [&] { SetValue(Value() + repeat_step_); });
}

void ZKSlider::ThumbMove(int16_t button, int16_t shift, float x, float y) {
  const Bounds at = BoundsOf(cmd_slider_);
  float cx = x + static_cast<float>(at.left);
  float cy = y + static_cast<float>(at.top);
  // The thumb holds the mouse while its button is down: dragging moves its centre along.
  if ((button & kLeftButton) != 0 && !DesignMode()) {
    const std::weak_ptr<const char> life = LifeToken();
    const bool done = FromInput(u"MouseMove", [&] {
      if (model_.WriteValueAt(cx, cy, Measure())) ValueChanged();
    });
    if (!done || life.expired()) return;
  }
  MouseMove.Raise(button, shift, cx, cy);
}

void ZKSlider::HandleKeyDown(int16_t& key_code, int16_t& shift) {
  const std::weak_ptr<const char> life = LifeToken();
  const bool done = FromInput(u"KeyDown", [&] {
    if (Horizontal()) {
      if (key_code == kArrowLeft) DecrementValue();
      if (key_code == kArrowRight) IncrementValue();
    } else if (Vertical()) {
      if (key_code == kArrowUp) DecrementValue();
      if (key_code == kArrowDown) IncrementValue();
    }
  });
  if (done && !life.expired()) KeyDown.Raise(key_code, shift);
}

void ZKSlider::WindowMessage(uint32_t message, int32_t wparam) {
  if (message != window_message::kMouseWheel) return;
  const int16_t turn = MLowLevelUtils::HiWord(wparam);
  FromInput(u"Wheel", [&] {
    if (Horizontal()) {
      if (turn < 0) DecrementValue();
      if (turn >= 1) IncrementValue();
    } else if (Vertical()) {
      // Away from the user (positive) moves the thumb up.
      if (turn > 0) DecrementValue();
      if (turn < 0) IncrementValue();
    }
  });
}

void ZKSlider::FocusThumb() {
  IgnoringFailure([&] {
    if (!cmd_slider_.Surface().HasFocus()) cmd_slider_.Surface().SetFocus();
  });
}

void ZKSlider::CopyToolTip(Button& button) {
  IgnoringFailure([&] {
    button.Extender().SetProperty(u"ToolTipText",
                                  Site().Extender().GetProperty(u"ToolTipText").ToText());
  });
}

void ZKSlider::OnShown(bool shown) {
  subclass_.Unhook();
  if (shown) {
    IgnoringFailure([&] {
      if (Site().Ambient().UserMode()) subclass_.Hook(hWnd());
    });
  } else {
    timer_.SetEnabled(false);
  }
}

}  // namespace zk
