#include "controls/buttons/color_button.h"

#include <array>
#include <utility>

#include "foundation/gui_utils.h"
#include "foundation/low_level_utils.h"
#include "platform/platform.h"

namespace zk {
namespace {

using automation::Property;
using automation::ReadOnlyProperty;

constexpr int32_t kMaxBorderPixels = 8192;
// Pixels between the border line and a caption that sits at an edge.
constexpr int32_t kCaptionGapPixels = 5;

// Drawing steps never stop the control: one that fails is skipped and the next one runs.
template <typename Step>
void Ignoring(Step step) {
  try {
    step();
  } catch (...) {
  }
}

Variant Color(OLE_COLOR color) {
  return variant_conversion::ToVariant(color);
}

Variant Number(int32_t value) {
  return Variant(value);
}

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
  Resize();
}

ZKColorButton::~ZKColorButton() = default;

void ZKColorButton::ConnectInput() {
  ISurface& surface = Surface();
  connections_.push_back(surface.Resized().Connect([this] { Resize(); }));
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
  auto shifted = [&element](float& x, float& y) {
    x += static_cast<float>(element.Left());
    y += static_cast<float>(element.Top());
  };
  connections_.push_back(element.Click().Connect([this] { Clicked(); }));
  connections_.push_back(ForwardTo(element.DblClick(), DblClick));
  connections_.push_back(
      element.MouseDown().Connect([this, shifted](int16_t button, int16_t shift, float x, float y) {
        shifted(x, y);
        Press();
        MouseDown.Raise(button, shift, x, y);
      }));
  connections_.push_back(
      element.MouseUp().Connect([this, shifted](int16_t button, int16_t shift, float x, float y) {
        shifted(x, y);
        Release();
        MouseUp.Raise(button, shift, x, y);
      }));
  connections_.push_back(element.MouseMove().Connect(
      [this, &element, shifted](int16_t button, int16_t shift, float x, float y) {
        // The host's tooltip belongs to the whole control, so it shows over the element too.
        Ignoring([&] {
          element.SetToolTipText(Site().Extender().GetProperty(u"ToolTipText").ToText());
        });
        shifted(x, y);
        MouseMove.Raise(button, shift, x, y);
      }));
}

std::vector<MemberInfo> ZKColorButton::ButtonMembers(std::vector<MemberInfo> extra) {
  using C = ZKColorButton;
  std::vector<MemberInfo> members = {
      Property(u"Caption", &C::Caption, &C::SetCaption, dispatch_id::kCaption),
      Property(u"Alignment", &C::Alignment, &C::SetAlignment),
      Property(u"Behavior", &C::Behavior, &C::SetBehavior),
      Property(u"BackColor", &C::BackColor, &C::SetBackColor),
      Property(u"SelectedColor", &C::SelectedColor, &C::SetSelectedColor),
      Property(u"BorderStyle", &C::BorderStyle, &C::SetBorderStyle),
      Property(u"BorderWidth", &C::BorderWidth, &C::SetBorderWidth),
      Property(u"BorderColor", &C::BorderColor, &C::SetBorderColor),
      Property(u"ForeColor", &C::ForeColor, &C::SetForeColor),
      Property(u"SelectedForeColor", &C::SelectedForeColor, &C::SetSelectedForeColor),
      Property(u"MaskColor", &C::MaskColor, &C::SetMaskColor),
      CommonMember(u"Font"),
      Property(u"Value", &C::Value, &C::SetValue),
      Property(u"CaptionSelected", &C::CaptionSelected, &C::SetCaptionSelected),
      CommonMember(u"DesignMode"),
      CommonMember(u"ControlGroup"),
      Property(u"DisabledBackColor", &C::DisabledBackColor, &C::SetDisabledBackColor),
      Property(u"Shape", &C::Shape, &C::SetShape),
      Property(u"ShowFocus", &C::ShowFocus, &C::SetShowFocus),
  };
  for (MemberInfo& member : extra)
    members.push_back(std::move(member));
  members.push_back(CommonMember(u"Enabled"));
  members.push_back(ReadOnlyProperty(u"hDC", &C::hDC));
  for (std::u16string_view common : {u"hWnd", u"Refresh", u"PopupMenu", u"Clone", u"GetArchiveStr",
                                     u"ParseArchiveStr", u"ExtraProp", u"ExtraAction"}) {
    members.push_back(CommonMember(common));
  }
  return members;
}

std::vector<std::u16string_view> ZKColorButton::ButtonEvents() {
  return {u"Click", u"DblClick",  u"KeyDown",   u"KeyPress",
          u"KeyUp", u"MouseDown", u"MouseMove", u"MouseUp"};
}

const AutomationTable& ZKColorButton::Automation() const {
  static const AutomationTable table(ButtonMembers(), ButtonEvents());
  return table;
}

std::span<const ArchiveField> ZKColorButton::ArchiveFields() const {
  static const std::array<ArchiveField, 19> fields = {{
      {ArchiveKind::kText, u"Caption"},
      {ArchiveKind::kNumber, u"Alignment"},
      {ArchiveKind::kNumber, u"Behavior"},
      {ArchiveKind::kNumber, u"BackColor"},
      {ArchiveKind::kNumber, u"SelectedColor"},
      {ArchiveKind::kNumber, u"BorderStyle"},
      {ArchiveKind::kNumber, u"BorderWidth"},
      {ArchiveKind::kNumber, u"BorderColor"},
      {ArchiveKind::kNumber, u"ForeColor"},
      {ArchiveKind::kNumber, u"SelectedForeColor"},
      {ArchiveKind::kNumber, u"MaskColor"},
      {ArchiveKind::kFont, u"Font"},
      {ArchiveKind::kNumber, u"Value"},
      {ArchiveKind::kText, u"CaptionSelected"},
      {ArchiveKind::kBool, u"DesignMode"},
      {ArchiveKind::kText, u"ControlGroup"},
      {ArchiveKind::kNumber, u"DisabledBackColor"},
      {ArchiveKind::kNumber, u"Shape"},
      {ArchiveKind::kNumber, u"ShowFocus"},
  }};
  return fields;
}

// ---- Properties ----

void ZKColorButton::SetCaption(std::u16string New_Caption) {
  caption_ = std::move(New_Caption);
  NotifyChanged(u"Caption");
  Redraw();
}

void ZKColorButton::SetAlignment(zktButTextAlignment New_Alignment) {
  if (New_Alignment < zktButTextAlignLeft || New_Alignment > zktButTextAlignCenterTop) return;
  alignment_ = New_Alignment;
  NotifyChanged(u"Alignment");
  AfterAlignmentChanged();
}

void ZKColorButton::SetBehavior(zktButBehavior New_Behavior) {
  if (New_Behavior != zktButton && New_Behavior != zktToggle) return;
  behavior_ = New_Behavior;
  NotifyChanged(u"Behavior");
  Redraw();
}

void ZKColorButton::SetBackColor(OLE_COLOR New_BackColor) {
  back_color_ = New_BackColor;
  NotifyChanged(u"BackColor");
  Redraw();
}

void ZKColorButton::SetSelectedColor(OLE_COLOR New_SelectedColor) {
  selected_color_ = New_SelectedColor;
  NotifyChanged(u"SelectedColor");
  Redraw();
}

void ZKColorButton::SetBorderStyle(zktCmdBorderStyle New_BorderStyle) {
  if (New_BorderStyle != zktBSNone && New_BorderStyle != zktBSSolid) return;
  border_style_ = New_BorderStyle;
  shp_border_->SetBorderStyle(LineStyleOf(New_BorderStyle));
  NotifyChanged(u"BorderStyle");
  Resize();
}

int16_t ZKColorButton::BorderWidth() const {
  return shp_border_->BorderWidth();
}

void ZKColorButton::SetBorderWidth(int16_t New_BorderWidth) {
  if (New_BorderWidth < 1 || New_BorderWidth > kMaxBorderPixels) return;
  shp_border_->SetBorderWidth(New_BorderWidth);
  NotifyChanged(u"BorderWidth");
  Resize();
}

OLE_COLOR ZKColorButton::BorderColor() const {
  return shp_border_->BorderColor();
}

void ZKColorButton::SetBorderColor(OLE_COLOR New_BorderColor) {
  shp_border_->SetBorderColor(New_BorderColor);
  NotifyChanged(u"BorderColor");
  Redraw();
}

void ZKColorButton::SetForeColor(OLE_COLOR New_ForeColor) {
  fore_color_ = New_ForeColor;
  NotifyChanged(u"ForeColor");
  Redraw();
}

void ZKColorButton::SetSelectedForeColor(OLE_COLOR New_SelectedForeColor) {
  selected_fore_color_ = New_SelectedForeColor;
  NotifyChanged(u"SelectedForeColor");
  Redraw();
}

OLE_COLOR ZKColorButton::MaskColor() const {
  return Surface().MaskColor();
}

void ZKColorButton::SetMaskColor(OLE_COLOR New_MaskColor) {
  // The mask only matters to pictures drawn on the surface: nothing to redraw.
  Surface().SetMaskColor(New_MaskColor);
  NotifyChanged(u"MaskColor");
}

void ZKColorButton::SetValue(zktToggleValue New_Value) {
  value_ = New_Value == zktToggleUnselected ? zktToggleUnselected : zktToggleSelected;
  NotifyChanged(u"Value");
  Redraw();
}

void ZKColorButton::SetCaptionSelected(std::u16string New_CaptionSelected) {
  caption_selected_ = std::move(New_CaptionSelected);
  NotifyChanged(u"CaptionSelected");
  Redraw();
}

void ZKColorButton::SetDisabledBackColor(OLE_COLOR New_DisabledBackColor) {
  disabled_back_color_ = New_DisabledBackColor;
  NotifyChanged(u"DisabledBackColor");
  Redraw();
}

int16_t ZKColorButton::Shape() const {
  return shp_border_->Shape();
}

void ZKColorButton::SetShape(int16_t New_Shape) {
  if (New_Shape < shape_code::kRectangle || New_Shape > shape_code::kRoundedSquare) return;
  shp_border_->SetShape(New_Shape);
  NotifyChanged(u"Shape");
  Resize();
}

void ZKColorButton::SetShowFocus(int32_t New_ShowFocus) {
  const int32_t focused_width = BorderWidth() + New_ShowFocus;
  if (focused_width < 0 || focused_width > kMaxBorderPixels) return;
  show_focus_ = New_ShowFocus;
  NotifyChanged(u"ShowFocus");
  Resize();
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
  Ignoring([&] { BeforeRedraw(); });
  Ignoring([&] { lbl_caption_->SetEnabled(Enabled()); });
  Ignoring([&] {
    const OLE_COLOR face = FaceColor();
    shp_border_->SetFillColor(face);
    Surface().SetBackColor(face);
  });
  Ignoring([&] { shp_focus_->SetBorderColor(shp_border_->BorderColor()); });
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
  Ignoring([&] {
    if (text.empty()) return;  // an empty caption keeps its last place
    lbl_caption_->SetCaption(text);
    const auto [left, top] = CaptionPlace(Surface().ScaleWidth(), Surface().ScaleHeight(),
                                          lbl_caption_->Width(), lbl_caption_->Height());
    caption_left_ = left;
    caption_top_ = top;
  });
  Ignoring([&] {
    lbl_caption_->SetForeColor(laid_out_color_);
    lbl_caption_->SetCaption(laid_out_text_);
    lbl_caption_->Move(caption_left_, caption_top_, lbl_caption_->Width(), lbl_caption_->Height());
  });
}

void ZKColorButton::Resize() {
  if (resizing_) return;
  resizing_ = true;
  double width = 0;
  double height = 0;
  Ignoring([&] {
    width = MLowLevelUtils::RoundHalfEven(Surface().ScaleWidth());
    height = MLowLevelUtils::RoundHalfEven(Surface().ScaleHeight());
  });
  Ignoring([&] { shp_border_->Move(0, 0, width, height); });
  Ignoring([&] {
    shp_focus_->SetShape(shp_border_->Shape());
    const int32_t focused_width = BorderWidth() + show_focus_;
    shp_focus_->SetBorderWidth(focused_width > 0 ? static_cast<int16_t>(focused_width) : 1);
    shp_focus_->Move(0, 0, width, height);
  });
  Redraw();
  Ignoring([&] { AfterResize(width, height); });
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

void ZKColorButton::InitProperties() {
  caption_ = u"Button";
  alignment_ = zktButTextAlignCenter;
  behavior_ = zktButton;
  back_color_ = system_color::kButtonFace;
  selected_color_ = 0x808080;
  border_style_ = zktBSSolid;
  shp_border_->SetBorderStyle(LineStyleOf(border_style_));
  shp_border_->SetBorderWidth(1);
  shp_border_->SetBorderColor(1);
  fore_color_ = system_color::kButtonText;
  selected_fore_color_ = system_color::kButtonText;
  value_ = zktToggleUnselected;
  caption_selected_.clear();
  StoreDesignMode(false);
  StoreControlGroup({});
  disabled_back_color_ = system_color::kInactiveBorder;
  shp_border_->SetShape(shape_code::kRectangle);
  show_focus_ = 1;
  AdoptFont(MGuiUtils::CloneFont(Site().Ambient().Font()));
  lbl_caption_->SetFont(Font()->Description());
  Resize();
}

void ZKColorButton::ReadProperties(IPropertyBag& bag) {
  auto read = [&bag](std::u16string_view key, const Variant& default_value) {
    return bag.ReadProperty(key, default_value);
  };
  ISurface& surface = Surface();
  alignment_ = static_cast<zktButTextAlignment>(read(u"Alignment", Number(2)).ToInt32());
  fore_color_ = read(u"ForeColor", Color(system_color::kButtonText)).ToColor();
  selected_fore_color_ = read(u"SelectedForeColor", Color(system_color::kButtonText)).ToColor();
  surface.SetEnabled(read(u"Enabled", Variant(true)).ToBool());
  if (FontRef font = variant_conversion::FromVariant<FontRef>(
          read(u"Font", Variant(Site().Ambient().Font())))) {
    AdoptFont(font->Clone());
  }
  lbl_caption_->SetFont(Font()->Description());
  caption_ = read(u"Caption", Variant(u"Text")).ToText();
  selected_color_ = read(u"SelectedColor", Color(0x808080)).ToColor();
  back_color_ = read(u"BackColor", Color(system_color::kButtonFace)).ToColor();
  behavior_ = static_cast<zktButBehavior>(read(u"Behavior", Number(0)).ToInt32());
  value_ = static_cast<zktToggleValue>(read(u"Value", Number(0)).ToInt32());
  ReadPropertiesAfterValue(bag);
  surface.SetMaskColor(read(u"MaskColor", Color(system_color::kWindowText)).ToColor());
  // The same key holds the border line's own style first and the property after it; the
  // property is written last, so reading both gives back what was written.
  shp_border_->SetBorderStyle(read(u"BorderStyle", Number(line_style::kInsideSolid)).ToInt16());
  shp_border_->SetBorderWidth(read(u"BorderWidth", Number(1)).ToInt16());
  StoreDesignMode(read(u"DesignMode", Variant(false)).ToBool());
  shp_border_->SetBorderColor(read(u"BorderColor", Color(system_color::kWindowText)).ToColor());
  border_style_ = static_cast<zktCmdBorderStyle>(read(u"BorderStyle", Number(1)).ToInt32());
  StoreControlGroup(read(u"ControlGroup", Variant(u"")).ToText());
  caption_selected_ = read(u"CaptionSelected", Variant(u"")).ToText();
  disabled_back_color_ = read(u"DisabledBackColor", Color(system_color::kInactiveBorder)).ToColor();
  shp_border_->SetShape(read(u"Shape", Number(0)).ToInt16());
  show_focus_ = read(u"ShowFocus", Number(1)).ToInt32();
  EnableInputElements(surface.Enabled());
  Resize();
}

void ZKColorButton::WriteProperties(IPropertyBag& bag) {
  using variant_conversion::ToVariant;
  bag.WriteProperty(u"ForeColor", Color(fore_color_), Color(system_color::kButtonText));
  bag.WriteProperty(u"SelectedForeColor", Color(selected_fore_color_),
                    Color(system_color::kButtonText));
  bag.WriteProperty(u"Enabled", Variant(Enabled()), Variant(true));
  bag.WriteProperty(u"Font", Variant(Font()), Variant(Site().Ambient().Font()));
  bag.WriteProperty(u"Caption", Variant(caption_), Variant(u"Text"));
  bag.WriteProperty(u"SelectedColor", Color(selected_color_), Color(0x808080));
  bag.WriteProperty(u"BackColor", Color(back_color_), Color(system_color::kButtonFace));
  bag.WriteProperty(u"Behavior", ToVariant(behavior_), Number(0));
  bag.WriteProperty(u"Value", ToVariant(value_), Number(0));
  WritePropertiesAfterValue(bag);
  bag.WriteProperty(u"MaskColor", Color(MaskColor()), Color(system_color::kWindowText));
  bag.WriteProperty(u"BorderStyle", Number(shp_border_->BorderStyle()),
                    Number(line_style::kInsideSolid));
  bag.WriteProperty(u"BorderWidth", Number(BorderWidth()), Number(1));
  bag.WriteProperty(u"DesignMode", Variant(DesignMode()), Variant(false));
  bag.WriteProperty(u"BorderColor", Color(BorderColor()), Color(system_color::kWindowText));
  bag.WriteProperty(u"BorderStyle", ToVariant(border_style_), Number(1));
  bag.WriteProperty(u"Alignment", ToVariant(alignment_), Number(2));
  bag.WriteProperty(u"ControlGroup", Variant(ControlGroup()), Variant(u""));
  bag.WriteProperty(u"CaptionSelected", Variant(caption_selected_), Variant(u""));
  bag.WriteProperty(u"DisabledBackColor", Color(disabled_back_color_),
                    Color(system_color::kInactiveBorder));
  bag.WriteProperty(u"Shape", Number(Shape()), Number(0));
  bag.WriteProperty(u"ShowFocus", Number(show_focus_), Number(1));
}

}  // namespace zk
