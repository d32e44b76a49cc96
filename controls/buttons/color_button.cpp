#include "controls/buttons/color_button.h"

#include <array>
#include <utility>

#include "foundation/low_level_utils.h"
#include "framework/layout_steps.h"
#include "platform/platform.h"
#include "services/gui_utils.h"

namespace zk {
namespace {

constexpr int32_t kMaxBorderPixels = 8192;
// Pixels between the border line and a caption that sits at an edge.
constexpr int32_t kCaptionGapPixels = 5;

int16_t LineStyleOf(zktCmdBorderStyle style) {
  return style == zktBSNone ? line_style::kTransparent : line_style::kInsideSolid;
}

}  // namespace

ZKColorButton::ZKColorButton(IControlSite& site)
    : ZKControl(site),
      shp_border_(Surface().CreateShape()),
      shp_focus_(Surface().CreateShape()),
      lbl_caption_(Surface().CreateLabel()) {
  shp_border_->Move(0, 0, 0, 0);
  shp_border_->SetFillStyle(0);
  shp_border_->SetShape(shape_code::kRectangle);
  shp_border_->SetBorderStyle(line_style::kInsideSolid);
  shp_border_->SetBorderWidth(1);
  shp_border_->SetBorderColor(1);
  // The focus outline only draws a wider border over the face; the face shows through it.
  shp_focus_->Move(0, 0, 0, 0);
  shp_focus_->SetFillStyle(1);
  shp_focus_->SetBorderStyle(line_style::kInsideSolid);
  shp_focus_->SetVisible(false);
  lbl_caption_->SetAutoSize(true);
  lbl_caption_->SetAlignment(0);
  lbl_caption_->SetBackStyle(0);
  lbl_caption_->SetCaption(u"Button");
  lbl_caption_->SetFont(Font()->Description());
  ConnectInput();
  Layout();
}

ZKColorButton::~ZKColorButton() = default;

void ZKColorButton::ConnectInput() {
  ISurface& surface = Surface();
  connections_.push_back(surface.Resized().Connect([this] { Layout(); }));
  connections_.push_back(surface.Click().Connect([this] { Clicked(); }));
  connections_.push_back(ForwardTo(surface.DblClick(), DblClick));
  connections_.push_back(
      surface.MouseDown().Connect([this](int16_t button, int16_t shift, float x, float y) {
        Press();
        MouseDown.Raise(button, shift, x, y);
      }));
  connections_.push_back(ForwardTo(surface.MouseMove(), MouseMove));
  connections_.push_back(
      surface.MouseUp().Connect([this](int16_t button, int16_t shift, float x, float y) {
        Release();
        MouseUp.Raise(button, shift, x, y);
      }));
  connections_.push_back(ForwardTo(surface.KeyDown(), KeyDown));
  connections_.push_back(ForwardTo(surface.KeyPress(), KeyPress));
  connections_.push_back(ForwardTo(surface.KeyUp(), KeyUp));
  // The host sends Enter to its default button and Escape to its cancel button.
  connections_.push_back(surface.AccessKeyPress().Connect([this](int16_t key) {
    if (key == 13 || key == 27) Clicked();
  }));
  connections_.push_back(surface.GotFocus().Connect([this] { FocusReceived(); }));
  connections_.push_back(surface.LostFocus().Connect([this] { FocusLost(); }));
  HandleMouseOf(*lbl_caption_);
}

void ZKColorButton::HandleMouseOf(IElement& element) {
  connections_.push_back(element.Click().Connect([this] { Clicked(); }));
  connections_.push_back(ForwardTo(element.DblClick(), DblClick));
  auto relay = std::make_unique<ElementMouseRelay>(Site(), element, MouseDown, MouseMove, MouseUp);
  relay->BeforeDown([this] { Press(); });
  relay->BeforeUp([this] { Release(); });
  relay->Connect(connections_);
  element_mice_.push_back(std::move(relay));
}

std::vector<PropertyRow> ZKColorButton::ButtonRows(std::vector<PropertyRow> extra) {
  using property_rows::Internal;
  using property_rows::Property;
  using property_rows::ReadOnly;
  using C = ZKColorButton;
  const Variant button_text = ColorValue(system_color::kButtonText);
  std::vector<PropertyRow> rows = {
      Property(u"Caption", &C::Caption, &C::SetCaption, dispatch_id::kCaption)
          .Archive(1)
          .New(u"Button")
          .Bag(u"Text", 60)
          .Store(&C::caption_),
      // Read first and written after BorderStyle.
      Property(u"Alignment", &C::Alignment, &C::SetAlignment)
          .Archive(2)
          .New(Variant(int32_t{zktButTextAlignCenter}))
          .Bag(Variant(int32_t{2}), 10, 165)
          .Store(&C::alignment_),
      Property(u"Behavior", &C::Behavior, &C::SetBehavior)
          .Archive(3)
          .New(Variant(int32_t{zktButton}))
          .Bag(Variant(int32_t{0}), 90)
          .Store(&C::behavior_),
      Property(u"BackColor", &C::BackColor, &C::SetBackColor)
          .Archive(4)
          .New(ColorValue(system_color::kButtonFace))
          .Bag(ColorValue(system_color::kButtonFace), 80)
          .Store(&C::back_color_),
      Property(u"SelectedColor", &C::SelectedColor, &C::SetSelectedColor)
          .Archive(5)
          .New(ColorValue(0x808080))
          .Bag(ColorValue(0x808080), 70)
          .Store(&C::selected_color_),
      Property(u"BorderStyle", &C::BorderStyle, &C::SetBorderStyle)
          .Archive(6)
          .New(Variant(int32_t{zktBSSolid}))
          .Bag(Variant(int32_t{1}), 160)
          .Store(&C::border_style_),
      Property(u"BorderWidth", &C::BorderWidth, &C::SetBorderWidth)
          .Archive(7)
          .New(Variant(int32_t{1}))
          .Bag(Variant(int32_t{1}), 130)
          .Store([](C& c, int16_t v) { c.shp_border_->SetBorderWidth(v); }),
      Property(u"BorderColor", &C::BorderColor, &C::SetBorderColor)
          .Archive(8)
          .New(ColorValue(1))
          .Bag(ColorValue(system_color::kWindowText), 150)
          .Store([](C& c, OLE_COLOR v) { c.shp_border_->SetBorderColor(v); }),
      Property(u"ForeColor", &C::ForeColor, &C::SetForeColor)
          .Archive(9)
          .New(button_text)
          .Bag(button_text, 20)
          .Store(&C::fore_color_),
      Property(u"SelectedForeColor", &C::SelectedForeColor, &C::SetSelectedForeColor)
          .Archive(10)
          .New(button_text)
          .Bag(button_text, 30)
          .Store(&C::selected_fore_color_),
      Property(u"MaskColor", &C::MaskColor, &C::SetMaskColor)
          .Archive(11)
          .Bag(ColorValue(system_color::kWindowText), 110)
          .Store([](C& c, OLE_COLOR v) { c.Surface().SetMaskColor(v); }),
      Common<C>(u"Font").Archive(12).Bag(Ambient::kFont, 50),
      Property(u"Value", &C::Value, &C::SetValue)
          .Archive(13)
          .New(Variant(int32_t{zktToggleUnselected}))
          .Bag(Variant(int32_t{0}), 100)
          .Store(&C::value_),
      Property(u"CaptionSelected", &C::CaptionSelected, &C::SetCaptionSelected)
          .Archive(14)
          .New(u"")
          .Bag(u"", 180)
          .Store(&C::caption_selected_),
      Common<C>(u"DesignMode").Archive(15).Bag(Variant(false), 140),
      Common<C>(u"ControlGroup").Archive(16).Bag(u"", 170),
      Property(u"DisabledBackColor", &C::DisabledBackColor, &C::SetDisabledBackColor)
          .Archive(17)
          .New(ColorValue(system_color::kInactiveBorder))
          .Bag(ColorValue(system_color::kInactiveBorder), 190)
          .Store(&C::disabled_back_color_),
      Property(u"Shape", &C::Shape, &C::SetShape)
          .Archive(18)
          .New(Variant(int32_t{shape_code::kRectangle}))
          .Bag(Variant(int32_t{0}), 200)
          .Store([](C& c, int16_t v) { c.shp_border_->SetShape(v); }),
      Property(u"ShowFocus", &C::ShowFocus, &C::SetShowFocus)
          .Archive(19)
          .New(Variant(int32_t{1}))
          .Bag(Variant(int32_t{1}), 210)
          .Store(&C::show_focus_),
  };
  for (PropertyRow& row : extra)
    rows.push_back(std::move(row));
  rows.push_back(Common<C>(u"Enabled").Bag(Variant(true), 40));
  rows.push_back(ReadOnly(u"hDC", &C::hDC));
  for (std::u16string_view common : {u"hWnd", u"Refresh", u"PopupMenu", u"Clone", u"GetArchiveStr",
                                     u"ParseArchiveStr", u"ExtraProp", u"ExtraAction"}) {
    rows.push_back(CommonRow(common));
  }
  // The same bag key holds the border line's own style before the property: the property is
  // written last, so reading both gives back what was written.
  rows.push_back(Internal<C, int16_t>(ArchiveKind::kNumber)
                     .Key(u"BorderStyle")
                     .New(Variant(int32_t{line_style::kInsideSolid}))
                     .Bag(Variant(int32_t{line_style::kInsideSolid}), 120)
                     .Stored([](C& c) { return int32_t{c.shp_border_->BorderStyle()}; })
                     .Store([](C& c, int16_t v) { c.shp_border_->SetBorderStyle(v); }));
  return rows;
}

std::vector<std::u16string_view> ZKColorButton::ButtonEvents() {
  return {u"Click", u"DblClick",  u"KeyDown",   u"KeyPress",
          u"KeyUp", u"MouseDown", u"MouseMove", u"MouseUp"};
}

const PropertyTable& ZKColorButton::Properties() const {
  static const PropertyTable table(ButtonRows(), ButtonEvents());
  return table;
}

// ---- Properties ----

void ZKColorButton::SetCaption(std::u16string New_Caption) {
  caption_ = std::move(New_Caption);
  Changed(u"Caption", Effect::kRedraw);
}

void ZKColorButton::SetAlignment(zktButTextAlignment New_Alignment) {
  if (New_Alignment < zktButTextAlignLeft || New_Alignment > zktButTextAlignCenterTop) return;
  alignment_ = New_Alignment;
  Changed(u"Alignment");
  AfterAlignmentChanged();
}

void ZKColorButton::SetBehavior(zktButBehavior New_Behavior) {
  if (New_Behavior != zktButton && New_Behavior != zktToggle) return;
  behavior_ = New_Behavior;
  Changed(u"Behavior", Effect::kRedraw);
}

void ZKColorButton::SetBackColor(OLE_COLOR New_BackColor) {
  back_color_ = New_BackColor;
  Changed(u"BackColor", Effect::kRedraw);
}

void ZKColorButton::SetSelectedColor(OLE_COLOR New_SelectedColor) {
  selected_color_ = New_SelectedColor;
  Changed(u"SelectedColor", Effect::kRedraw);
}

void ZKColorButton::SetBorderStyle(zktCmdBorderStyle New_BorderStyle) {
  if (New_BorderStyle != zktBSNone && New_BorderStyle != zktBSSolid) return;
  border_style_ = New_BorderStyle;
  shp_border_->SetBorderStyle(LineStyleOf(New_BorderStyle));
  Changed(u"BorderStyle", Effect::kLayout);
}

int16_t ZKColorButton::BorderWidth() const {
  return shp_border_->BorderWidth();
}

void ZKColorButton::SetBorderWidth(int16_t New_BorderWidth) {
  if (New_BorderWidth < 1 || New_BorderWidth > kMaxBorderPixels) return;
  shp_border_->SetBorderWidth(New_BorderWidth);
  Changed(u"BorderWidth", Effect::kLayout);
}

OLE_COLOR ZKColorButton::BorderColor() const {
  return shp_border_->BorderColor();
}

void ZKColorButton::SetBorderColor(OLE_COLOR New_BorderColor) {
  shp_border_->SetBorderColor(New_BorderColor);
  Changed(u"BorderColor", Effect::kRedraw);
}

void ZKColorButton::SetForeColor(OLE_COLOR New_ForeColor) {
  fore_color_ = New_ForeColor;
  Changed(u"ForeColor", Effect::kRedraw);
}

void ZKColorButton::SetSelectedForeColor(OLE_COLOR New_SelectedForeColor) {
  selected_fore_color_ = New_SelectedForeColor;
  Changed(u"SelectedForeColor", Effect::kRedraw);
}

OLE_COLOR ZKColorButton::MaskColor() const {
  return Surface().MaskColor();
}

void ZKColorButton::SetMaskColor(OLE_COLOR New_MaskColor) {
  // The mask only matters to pictures drawn on the surface: nothing to redraw.
  Surface().SetMaskColor(New_MaskColor);
  Changed(u"MaskColor");
}

void ZKColorButton::SetValue(zktToggleValue New_Value) {
  value_ = New_Value == zktToggleUnselected ? zktToggleUnselected : zktToggleSelected;
  Changed(u"Value", Effect::kRedraw);
}

void ZKColorButton::SetCaptionSelected(std::u16string New_CaptionSelected) {
  caption_selected_ = std::move(New_CaptionSelected);
  Changed(u"CaptionSelected", Effect::kRedraw);
}

void ZKColorButton::SetDisabledBackColor(OLE_COLOR New_DisabledBackColor) {
  disabled_back_color_ = New_DisabledBackColor;
  Changed(u"DisabledBackColor", Effect::kRedraw);
}

int16_t ZKColorButton::Shape() const {
  return shp_border_->Shape();
}

void ZKColorButton::SetShape(int16_t New_Shape) {
  if (New_Shape < shape_code::kRectangle || New_Shape > shape_code::kRoundedSquare) return;
  shp_border_->SetShape(New_Shape);
  Changed(u"Shape", Effect::kLayout);
}

void ZKColorButton::SetShowFocus(int32_t New_ShowFocus) {
  const int32_t focused_width = BorderWidth() + New_ShowFocus;
  if (focused_width < 0 || focused_width > kMaxBorderPixels) return;
  show_focus_ = New_ShowFocus;
  Changed(u"ShowFocus", Effect::kLayout);
}

int32_t ZKColorButton::hDC() const {
  return Surface().hDC();
}

void ZKColorButton::OnFontChanged() {
  lbl_caption_->SetFont(Font()->Description());
  Redraw();
}

void ZKColorButton::OnEnabledChanged(bool enabled) {
  EnableInputElements(enabled);
  Redraw();
}

void ZKColorButton::EnableInputElements(bool enabled) {
  lbl_caption_->SetEnabled(enabled);
}

// ---- Drawing ----

double ZKColorButton::MarginX() const {
  return (BorderWidth() + kCaptionGapPixels) * CurrentPlatform().Screen().TwipsPerPixelX();
}

double ZKColorButton::MarginY() const {
  return (BorderWidth() + kCaptionGapPixels) * CurrentPlatform().Screen().TwipsPerPixelY();
}

OLE_COLOR ZKColorButton::FaceColor() const {
  // A disabled toggle button still tells its state; a disabled push button has no state.
  if (!Enabled() && behavior_ == zktButton) return disabled_back_color_;
  return Selected() ? selected_color_ : back_color_;
}

void ZKColorButton::Redraw() {
  IgnoringFailure([&] { BeforeRedraw(); });
  IgnoringFailure([&] { lbl_caption_->SetEnabled(Enabled()); });
  IgnoringFailure([&] {
    const OLE_COLOR face = FaceColor();
    shp_border_->SetFillColor(face);
    Surface().SetBackColor(face);
  });
  IgnoringFailure([&] { shp_focus_->SetBorderColor(shp_border_->BorderColor()); });
  if (Selected()) {
    LayoutCaption(caption_selected_.empty() ? caption_ : caption_selected_, selected_fore_color_);
  } else {
    LayoutCaption(caption_, fore_color_);
  }
}

std::pair<double, double> ZKColorButton::CaptionPlace(double width, double height,
                                                      double label_width,
                                                      double label_height) const {
  const double mx = MarginX();
  const double my = MarginY();
  switch (alignment_) {
    case zktButTextAlignLeft:
      return {mx, (height - label_height) / 2};
    case zktButTextAlignRight:
      return {width - mx - label_width, (height - label_height) / 2};
    case zktButTextAlignCenterBottom:
      return {(width - label_width) / 2, height - label_height - my};
    case zktButTextAlignCenterTop:
      return {(width - label_width) / 2, my};
    case zktButTextAlignCenter:
    default:
      return {(width - label_width) / 2, (height - label_height) / 2};
  }
}

void ZKColorButton::LayoutCaption(const std::u16string& text, OLE_COLOR color) {
  laid_out_text_ = text;
  laid_out_color_ = color;
  IgnoringFailure([&] {
    if (text.empty()) return;  // an empty caption keeps its last place
    lbl_caption_->SetCaption(text);
    const auto [left, top] = CaptionPlace(Surface().ScaleWidth(), Surface().ScaleHeight(),
                                          lbl_caption_->Width(), lbl_caption_->Height());
    caption_left_ = left;
    caption_top_ = top;
  });
  IgnoringFailure([&] {
    lbl_caption_->SetForeColor(laid_out_color_);
    lbl_caption_->SetCaption(laid_out_text_);
    lbl_caption_->Move(caption_left_, caption_top_, lbl_caption_->Width(), lbl_caption_->Height());
  });
}

void ZKColorButton::Layout() {
  if (resizing_) return;
  resizing_ = true;
  double width = 0;
  double height = 0;
  IgnoringFailure([&] {
    width = MLowLevelUtils::RoundHalfEven(Surface().ScaleWidth());
    height = MLowLevelUtils::RoundHalfEven(Surface().ScaleHeight());
  });
  IgnoringFailure([&] { shp_border_->Move(0, 0, width, height); });
  IgnoringFailure([&] {
    shp_focus_->SetShape(shp_border_->Shape());
    const int32_t focused_width = BorderWidth() + show_focus_;
    shp_focus_->SetBorderWidth(focused_width > 0 ? static_cast<int16_t>(focused_width) : 1);
    shp_focus_->Move(0, 0, width, height);
  });
  Redraw();
  IgnoringFailure([&] { AfterResize(width, height); });
  resizing_ = false;
}

// ---- Input ----

void ZKColorButton::Press() {
  // While designing, the button shows the state it is given and never takes one by itself.
  if (behavior_ != zktButton || DesignMode()) return;
  value_ = zktToggleSelected;
  Redraw();
}

void ZKColorButton::Release() {
  if (behavior_ != zktButton || DesignMode()) return;
  value_ = zktToggleUnselected;
  Redraw();
}

void ZKColorButton::Clicked() {
  if (behavior_ == zktToggle && !DesignMode()) {
    value_ = Selected() ? zktToggleUnselected : zktToggleSelected;
    Redraw();
  }
  Click.Raise();
}

void ZKColorButton::FocusReceived() {
  if (show_focus_ == 0) return;
  // The wider focus outline takes the place of the border line until the focus goes.
  shp_border_->SetBorderStyle(line_style::kTransparent);
  if (BorderWidth() + show_focus_ > 0) shp_focus_->SetVisible(true);
}

void ZKColorButton::FocusLost() {
  shp_focus_->SetVisible(false);
  SetBorderStyle(border_style_);
}

// ---- Persistence ----

void ZKColorButton::AfterInitProperties() {
  lbl_caption_->SetFont(Font()->Description());
  Layout();
}

void ZKColorButton::AfterReadProperties() {
  lbl_caption_->SetFont(Font()->Description());
  EnableInputElements(Enabled());
  Layout();
}

}  // namespace zk
