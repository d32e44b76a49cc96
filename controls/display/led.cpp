#include "controls/display/led.h"

#include <utility>

#include "framework/variant_conversion.h"

namespace zk {
namespace {

using automation::Property;
using variant_conversion::ToVariant;

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

const AutomationTable& ZKLed::Automation() const {
  static const AutomationTable table(
      {
          CommonMember(u"Enabled"),
          Property(u"Lit", &ZKLed::Lit, &ZKLed::SetLit),
          Property(u"LedShape", &ZKLed::LedShape, &ZKLed::SetLedShape),
          Property(u"ColorOn", &ZKLed::ColorOn, &ZKLed::SetColorOn),
          Property(u"ColorOff", &ZKLed::ColorOff, &ZKLed::SetColorOff),
          CommonMember(u"DesignMode"),
          CommonMember(u"hWnd"),
          Property(u"BorderWidth", &ZKLed::BorderWidth, &ZKLed::SetBorderWidth),
          CommonMember(u"PopupMenu"),
          CommonMember(u"Clone"),
          CommonMember(u"GetArchiveStr"),
          CommonMember(u"ParseArchiveStr"),
          CommonMember(u"ControlGroup"),
          Property(u"FlashEnabled", &ZKLed::FlashEnabled, &ZKLed::SetFlashEnabled),
          Property(u"FlashInterval", &ZKLed::FlashInterval, &ZKLed::SetFlashInterval),
          CommonMember(u"ExtraProp"),
          CommonMember(u"ExtraAction"),
      },
      {u"Click", u"Change", u"MouseUp", u"MouseDown"});
  return table;
}

std::span<const ArchiveField> ZKLed::ArchiveFields() const {
  static const std::array<ArchiveField, 9> fields = {{
      {ArchiveKind::kNumber, u"LedShape"},
      {ArchiveKind::kNumber, u"ColorOn"},
      {ArchiveKind::kNumber, u"ColorOff"},
      {ArchiveKind::kBool, u"Lit"},
      {ArchiveKind::kNumber, u"BorderWidth"},
      {ArchiveKind::kBool, u"FlashEnabled"},
      {ArchiveKind::kNumber, u"FlashInterval"},
      {ArchiveKind::kBool, u"DesignMode"},
      {ArchiveKind::kText, u"ControlGroup"},
  }};
  return fields;
}

void ZKLed::SetLit(bool New_Lit) {
  const bool changed = New_Lit != lit_;
  lit_ = New_Lit;
  shp_led_->SetFillColor(lit_ ? color_on_ : color_off_);
  NotifyChanged(u"Lit");
  if (changed) Change.Raise();
}

int16_t ZKLed::LedShape() const {
  return shp_led_->Shape();
}

void ZKLed::SetLedShape(int16_t New_LedShape) {
  if (New_LedShape < shape_code::kRectangle || New_LedShape > shape_code::kRoundedSquare) return;
  shp_led_->SetShape(New_LedShape);
  Layout();
  NotifyChanged(u"LedShape");
}

void ZKLed::SetColorOn(OLE_COLOR New_ColorOn) {
  color_on_ = New_ColorOn;
  if (lit_) shp_led_->SetFillColor(color_on_);
  NotifyChanged(u"ColorOn");
}

void ZKLed::SetColorOff(OLE_COLOR New_ColorOff) {
  color_off_ = New_ColorOff;
  if (!lit_) shp_led_->SetFillColor(color_off_);
  NotifyChanged(u"ColorOff");
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
  NotifyChanged(u"BorderWidth");
}

void ZKLed::ApplyFlashing() {
  if (!Site().Ambient().UserMode()) return;  // a lamp being designed never flashes
  timer_.SetInterval(flash_interval_);
  timer_.SetEnabled(flash_enabled_);
}

void ZKLed::SetFlashEnabled(bool New_FlashEnabled) {
  flash_enabled_ = New_FlashEnabled;
  ApplyFlashing();
  NotifyChanged(u"FlashEnabled");
}

void ZKLed::SetFlashInterval(int32_t New_FlashInterval) {
  if (New_FlashInterval < 0) return;
  flash_interval_ = New_FlashInterval;
  timer_.SetInterval(flash_interval_);
  NotifyChanged(u"FlashInterval");
}

void ZKLed::Layout() {
  try {
    shp_led_->Move(0, 0, Surface().ScaleWidth(), Surface().ScaleHeight());
  } catch (...) {
    // A lamp that cannot be placed keeps its last place.
  }
}

void ZKLed::InitProperties() {
  lit_ = false;
  color_off_ = 16777215;
  color_on_ = 65280;
  shp_led_->SetShape(shape_code::kCircle);
  border_width_ = 1;
  ApplyOutline();
  StoreDesignMode(false);
  StoreControlGroup({});
  flash_enabled_ = false;
  flash_interval_ = 500;
}

void ZKLed::ReadProperties(IPropertyBag& bag) {
  Surface().SetEnabled(bag.ReadProperty(u"Enabled", Variant(true)).ToBool());
  lit_ = bag.ReadProperty(u"Lit", Variant(false)).ToBool();
  color_on_ = bag.ReadProperty(u"ColorOn", Variant(int32_t{65280})).ToColor();
  color_off_ = bag.ReadProperty(u"ColorOff", Variant(int32_t{16777215})).ToColor();
  shp_led_->SetShape(bag.ReadProperty(u"LedShape", Variant(int32_t{3})).ToInt16());
  StoreDesignMode(bag.ReadProperty(u"DesignMode", Variant(false)).ToBool());
  border_width_ = bag.ReadProperty(u"BorderWidth", Variant(int32_t{1})).ToInt16();
  StoreControlGroup(bag.ReadProperty(u"ControlGroup", Variant(u"")).ToText());
  flash_enabled_ = bag.ReadProperty(u"FlashEnabled", Variant(false)).ToBool();
  flash_interval_ = bag.ReadProperty(u"FlashInterval", Variant(int32_t{500})).ToInt32();
  shp_led_->SetBorderWidth(1);
  shp_led_->SetFillColor(lit_ ? color_on_ : color_off_);
  ApplyOutline();
  ApplyFlashing();
}

void ZKLed::WriteProperties(IPropertyBag& bag) {
  bag.WriteProperty(u"Enabled", Variant(Enabled()), Variant(true));
  bag.WriteProperty(u"Lit", Variant(lit_), Variant(false));
  bag.WriteProperty(u"ColorOn", ToVariant(color_on_), Variant(int32_t{65280}));
  bag.WriteProperty(u"ColorOff", ToVariant(color_off_), Variant(int32_t{16777215}));
  bag.WriteProperty(u"LedShape", ToVariant(LedShape()), Variant(int32_t{3}));
  bag.WriteProperty(u"DesignMode", Variant(DesignMode()), Variant(false));
  bag.WriteProperty(u"BorderWidth", ToVariant(border_width_), Variant(int32_t{1}));
  bag.WriteProperty(u"ControlGroup", Variant(ControlGroup()), Variant(u""));
  bag.WriteProperty(u"FlashEnabled", Variant(flash_enabled_), Variant(false));
  bag.WriteProperty(u"FlashInterval", Variant(flash_interval_), Variant(int32_t{500}));
}

}  // namespace zk
