#include "controls/display/led.h"

#include <utility>

#include "framework/variant_conversion.h"

namespace zk {
namespace {

constexpr int16_t kLargestBorder = 8192;

}  // namespace

ZKLed::ZKLed(IControlSite& site) : ZKControl(site), shp_led_(Surface().CreateShape()) {
  // The lamp as designed: a white circle with a thin outline, until it is lit or loaded.
  shp_led_->SetShape(shape_code::kCircle);
  shp_led_->SetFillStyle(0);
  shp_led_->SetFillColor(color_off_);
  shp_led_->SetBorderColor(0);
  ApplyOutline();
  Layout();
  ISurface& surface = Surface();
  connections_.push_back(surface.Resized().Connect([this] { Layout(); }));
  connections_.push_back(ForwardTo(surface.Click(), Click));
  connections_.push_back(ForwardTo(surface.MouseDown(), MouseDown));
  connections_.push_back(ForwardTo(surface.MouseUp(), MouseUp));
  connections_.push_back(timer_.Timer().Connect([this] {
    if (!terminating_) SetLit(!lit_);
  }));
}

ZKLed::~ZKLed() {
  // A tick that is already on its way must not switch a lamp that is going.
  terminating_ = true;
  timer_.SetEnabled(false);
}

const PropertyTable& ZKLed::Properties() const {
  using property_rows::Property;
  static const PropertyTable table(
      {
          Common<ZKLed>(u"Enabled").Bag(Variant(true), 1),
          Property(u"Lit", &ZKLed::Lit, &ZKLed::SetLit)
              .Archive(4)
              .New(Variant(false))
              .Bag(Variant(false), 2)
              .Store(&ZKLed::lit_),
          Property(u"LedShape", &ZKLed::LedShape, &ZKLed::SetLedShape)
              .Archive(1)
              .New(Variant(int32_t{shape_code::kCircle}))
              .Bag(Variant(int32_t{3}), 5)
              .Store([](ZKLed& c, int16_t v) { c.shp_led_->SetShape(v); }),
          Property(u"ColorOn", &ZKLed::ColorOn, &ZKLed::SetColorOn)
              .Archive(2)
              .New(Variant(int32_t{65280}))
              .Bag(Variant(int32_t{65280}), 3)
              .Store(&ZKLed::color_on_),
          Property(u"ColorOff", &ZKLed::ColorOff, &ZKLed::SetColorOff)
              .Archive(3)
              .New(Variant(int32_t{16777215}))
              .Bag(Variant(int32_t{16777215}), 4)
              .Store(&ZKLed::color_off_),
          Common<ZKLed>(u"DesignMode").Archive(8).Bag(Variant(false), 6),
          Common<ZKLed>(u"hWnd"),
          Property(u"BorderWidth", &ZKLed::BorderWidth, &ZKLed::SetBorderWidth)
              .Archive(5)
              .New(Variant(int32_t{1}))
              .Bag(Variant(int32_t{1}), 7)
              .Store(&ZKLed::border_width_),
          Common<ZKLed>(u"PopupMenu"),
          Common<ZKLed>(u"Clone"),
          Common<ZKLed>(u"GetArchiveStr"),
          Common<ZKLed>(u"ParseArchiveStr"),
          Common<ZKLed>(u"ControlGroup").Archive(9).Bag(u"", 8),
          Property(u"FlashEnabled", &ZKLed::FlashEnabled, &ZKLed::SetFlashEnabled)
              .Archive(6)
              .New(Variant(false))
              .Bag(Variant(false), 9)
              .Store(&ZKLed::flash_enabled_),
          Property(u"FlashInterval", &ZKLed::FlashInterval, &ZKLed::SetFlashInterval)
              .Archive(7)
              .New(Variant(int32_t{500}))
              .Bag(Variant(int32_t{500}), 10)
              .Store(&ZKLed::flash_interval_),
          Common<ZKLed>(u"ExtraProp"),
          Common<ZKLed>(u"ExtraAction"),
      },
      {u"Click", u"Change", u"MouseUp", u"MouseDown"});
  return table;
}

void ZKLed::SetLit(bool New_Lit) {
  const bool changed = New_Lit != lit_;
  lit_ = New_Lit;
  shp_led_->SetFillColor(lit_ ? color_on_ : color_off_);
  Changed(u"Lit");
  if (changed) Change.Raise();
}

int16_t ZKLed::LedShape() const {
  return shp_led_->Shape();
}

void ZKLed::SetLedShape(int16_t New_LedShape) {
  if (New_LedShape < shape_code::kRectangle || New_LedShape > shape_code::kRoundedSquare) return;
  shp_led_->SetShape(New_LedShape);
  Changed(u"LedShape", Effect::kLayout);
}

void ZKLed::SetColorOn(OLE_COLOR New_ColorOn) {
  color_on_ = New_ColorOn;
  if (lit_) shp_led_->SetFillColor(color_on_);
  Changed(u"ColorOn");
}

void ZKLed::SetColorOff(OLE_COLOR New_ColorOff) {
  color_off_ = New_ColorOff;
  if (!lit_) shp_led_->SetFillColor(color_off_);
  Changed(u"ColorOff");
}

void ZKLed::ApplyOutline() {
  if (border_width_ >= 1) {
    shp_led_->SetBorderStyle(line_style::kInsideSolid);
    shp_led_->SetBorderWidth(border_width_);
  } else {
    shp_led_->SetBorderStyle(line_style::kTransparent);
  }
}

void ZKLed::SetBorderWidth(int16_t New_BorderWidth) {
  if (New_BorderWidth < 0 || New_BorderWidth > kLargestBorder) return;
  border_width_ = New_BorderWidth;
  ApplyOutline();
  Changed(u"BorderWidth");
}

void ZKLed::ApplyFlashing() {
  if (!Site().Ambient().UserMode()) return;  // a lamp being designed never flashes
  timer_.SetInterval(flash_interval_);
  timer_.SetEnabled(flash_enabled_);
}

void ZKLed::SetFlashEnabled(bool New_FlashEnabled) {
  flash_enabled_ = New_FlashEnabled;
  ApplyFlashing();
  Changed(u"FlashEnabled");
}

void ZKLed::SetFlashInterval(int32_t New_FlashInterval) {
  if (New_FlashInterval < 0) return;
  flash_interval_ = New_FlashInterval;
  timer_.SetInterval(flash_interval_);
  Changed(u"FlashInterval");
}

void ZKLed::Layout() {
  try {
    shp_led_->Move(0, 0, Surface().ScaleWidth(), Surface().ScaleHeight());
  } catch (...) {
    // A lamp that cannot be placed keeps its last place.
  }
}

void ZKLed::AfterInitProperties() {
  ApplyOutline();
}

void ZKLed::AfterReadProperties() {
  shp_led_->SetBorderWidth(1);
  shp_led_->SetFillColor(lit_ ? color_on_ : color_off_);
  ApplyOutline();
  ApplyFlashing();
}

}  // namespace zk
