#include "controls/display/label.h"

#include <array>
#include <utility>

#include "foundation/low_level_utils.h"
#include "platform/platform.h"

namespace zk {
namespace {

using automation::Property;
using automation::ReadOnlyProperty;

// Runs one step of a layout; a step that fails is skipped and the layout goes on.
template <typename Step>
void LayoutStep(Step step) {
  try {
    step();
  } catch (...) {
  }
}

// round(free space) halved with the remainder dropped: odd free space rounds toward zero.
double HalfOf(double free_space) {
  return static_cast<double>(MLowLevelUtils::RoundToInt32(free_space) / 2);
}

double MarginTwips(int32_t pixels, double twips_per_pixel) {
  if (pixels <= 0) return 0;
  return MLowLevelUtils::RoundHalfEven(twips_per_pixel * pixels);
}

Variant ColorVariant(OLE_COLOR color) {
  return variant_conversion::ToVariant(color);
}

Variant Read(IPropertyBag& bag, std::u16string_view key, const Variant& default_value) {
  return bag.ReadProperty(key, default_value);
}

}  // namespace

ZKLabel::ZKLabel(IControlSite& site)
    : ZKControl(site),
      lbl_label_(Surface().CreateLabel()),
      ambient_back_color_(
          site.Ambient(), [this](OLE_COLOR color) { SetBackColor(color); },
          [this](std::u16string_view property) { NotifyChanged(property); }) {
  lbl_label_->SetBackStyle(0);  // the surface's colour shows behind the text
  lbl_label_->SetAutoSize(true);
  lbl_label_->SetCaption(u"Label");
  lbl_label_->SetFont(Font()->Description());
  ConnectInput();
}

ZKLabel::~ZKLabel() = default;

void ZKLabel::ConnectInput() {
  ISurface& surface = Surface();
  ILabelElement& label = *lbl_label_;
  // Handlers capture one pointer, so that none of them needs a heap block of its own.
  connections_.reserve(11);
  connections_.push_back(surface.Resized().Connect([this] { Layout(); }));
  connections_.push_back(ForwardTo(surface.Click(), Click));
  connections_.push_back(ForwardTo(surface.DblClick(), DblClick));
  connections_.push_back(ForwardTo(label.Click(), Click));
  connections_.push_back(ForwardTo(label.DblClick(), DblClick));
  connections_.push_back(ForwardTo(surface.MouseDown(), MouseDown));
  connections_.push_back(ForwardTo(surface.MouseMove(), MouseMove));
  connections_.push_back(ForwardTo(surface.MouseUp(), MouseUp));
  connections_.push_back(
      label.MouseDown().Connect([this](int16_t button, int16_t shift, float x, float y) {
        RaiseFromText(MouseDown, button, shift, x, y);
      }));
  connections_.push_back(
      label.MouseUp().Connect([this](int16_t button, int16_t shift, float x, float y) {
        RaiseFromText(MouseUp, button, shift, x, y);
      }));
  connections_.push_back(
      label.MouseMove().Connect([this](int16_t button, int16_t shift, float x, float y) {
        // The host's tooltip belongs to the control; copying it lets it show over the text too.
        try {
          lbl_label_->SetToolTipText(Site().Extender().GetProperty(u"ToolTipText").ToText());
        } catch (...) {
        }
        RaiseFromText(MouseMove, button, shift, x, y);
      }));
}

void ZKLabel::RaiseFromText(ControlEvent<int16_t&, int16_t&, float&, float&>& event, int16_t button,
                            int16_t shift, float x, float y) {
  // The text element reports its own coordinates; the host gets the control's.
  x += static_cast<float>(lbl_label_->Left());
  y += static_cast<float>(lbl_label_->Top());
  event.Raise(button, shift, x, y);
}

const AutomationTable& ZKLabel::Automation() const {
  static const AutomationTable table(
      {
          Property(u"ForeColor", &ZKLabel::ForeColor, &ZKLabel::SetForeColor),
          CommonMember(u"Enabled"),
          Property(u"BorderStyle", &ZKLabel::BorderStyle, &ZKLabel::SetBorderStyle),
          CommonMember(u"Refresh"),
          Property(u"Alignment", &ZKLabel::Alignment, &ZKLabel::SetAlignment),
          Property(u"Appearance", &ZKLabel::Appearance, &ZKLabel::SetAppearance),
          Property(u"Caption", &ZKLabel::Caption, &ZKLabel::SetCaption, dispatch_id::kCaption),
          CommonMember(u"hWnd"),
          CommonMember(u"PopupMenu"),
          Property(u"UseMnemonic", &ZKLabel::UseMnemonic, &ZKLabel::SetUseMnemonic),
          CommonMember(u"DesignMode"),
          CommonMember(u"Clone"),
          CommonMember(u"GetArchiveStr"),
          CommonMember(u"ParseArchiveStr"),
          Property(u"AutoSize", &ZKLabel::AutoSize, &ZKLabel::SetAutoSize, dispatch_id::kAutoSize),
          Property(u"BackColor", &ZKLabel::BackColor, &ZKLabel::SetBackColor),
          CommonMember(u"ControlGroup"),
          Property(u"AmbientBackColor", &ZKLabel::AmbientBackColor, &ZKLabel::SetAmbientBackColor),
          Property(u"WordWrap", &ZKLabel::WordWrap, &ZKLabel::SetWordWrap),
          Property(u"VerticalAlignment", &ZKLabel::VerticalAlignment,
                   &ZKLabel::SetVerticalAlignment),
          Property(u"BorderMargin", &ZKLabel::BorderMargin, &ZKLabel::SetBorderMargin),
          CommonMember(u"Font", dispatch_id::kFont),
          CommonMember(u"ExtraProp"),
          CommonMember(u"ExtraAction"),
      },
      {u"Click", u"DblClick", u"MouseMove", u"MouseUp", u"MouseDown"});
  return table;
}

std::span<const ArchiveField> ZKLabel::ArchiveFields() const {
  static const std::array<ArchiveField, 16> fields = {{
      {ArchiveKind::kText, u"Caption"},
      {ArchiveKind::kNumber, u"Alignment"},
      {ArchiveKind::kNumber, u"VerticalAlignment"},
      {ArchiveKind::kBool, u"AutoSize"},
      {ArchiveKind::kNumber, u"Appearance"},
      // The surface's pointer shape: carried by the archive, though no property offers it.
      {ArchiveKind::kNumber, u"",
       [](ZKControl& control) {
         return Variant(int32_t{static_cast<ZKLabel&>(control).Surface().MousePointer()});
       },
       [](ZKControl& control, const Variant& value) {
         static_cast<ZKLabel&>(control).Surface().SetMousePointer(value.ToInt16());
       },
       u"the surface's pointer shape"},
      {ArchiveKind::kNumber, u"BackColor"},
      {ArchiveKind::kBool, u"AmbientBackColor"},
      {ArchiveKind::kNumber, u"BorderStyle"},
      {ArchiveKind::kNumber, u"BorderMargin"},
      {ArchiveKind::kNumber, u"ForeColor"},
      {ArchiveKind::kFont, u"Font"},
      {ArchiveKind::kBool, u"UseMnemonic"},
      {ArchiveKind::kBool, u"WordWrap"},
      {ArchiveKind::kBool, u"DesignMode"},
      {ArchiveKind::kText, u"ControlGroup"},
  }};
  return fields;
}

std::u16string ZKLabel::Caption() const {
  return lbl_label_->Caption();
}

void ZKLabel::SetCaption(std::u16string New_Caption) {
  lbl_label_->SetCaption(New_Caption);
  NotifyChanged(u"Caption");
  Layout();
}

zktTextAlignment ZKLabel::Alignment() const {
  return static_cast<zktTextAlignment>(lbl_label_->Alignment());
}

void ZKLabel::SetAlignment(zktTextAlignment New_Alignment) {
  if (New_Alignment < zktTextAlignLeft || New_Alignment > zktTextAlignCenter) return;
  lbl_label_->SetAlignment(static_cast<int16_t>(New_Alignment));
  NotifyChanged(u"Alignment");
  Layout();
}

void ZKLabel::SetVerticalAlignment(zktTextVerticalAlignment New_VerticalAlignment) {
  if (New_VerticalAlignment < zktTextVAlignTop || New_VerticalAlignment > zktTextVAlignCenter) {
    return;
  }
  vertical_alignment_ = New_VerticalAlignment;
  NotifyChanged(u"VerticalAlignment");
  Layout();
}

void ZKLabel::SetAutoSize(bool New_AutoSize) {
  auto_size_ = New_AutoSize;
  NotifyChanged(u"AutoSize");
  Layout();
}

zktAppearance ZKLabel::Appearance() const {
  return static_cast<zktAppearance>(Surface().Appearance());
}

void ZKLabel::SetAppearance(zktAppearance New_Appearance) {
  if (New_Appearance != zktApFlat && New_Appearance != zktAp3d) return;
  Surface().SetAppearance(static_cast<int16_t>(New_Appearance));
  // The surface resets its colour with the appearance; a label that follows the container
  // takes the container's colour again.
  ambient_back_color_.Reapply();
  NotifyChanged(u"Appearance");
}

OLE_COLOR ZKLabel::BackColor() const {
  return Surface().BackColor();
}

void ZKLabel::SetBackColor(OLE_COLOR New_BackColor) {
  ambient_back_color_.BeforeBackColorWrite();
  Surface().SetBackColor(New_BackColor);
  NotifyChanged(u"BackColor");
}

void ZKLabel::SetAmbientBackColor(bool New_AmbientBackColor) {
  ambient_back_color_.Set(New_AmbientBackColor);
}

zktCmdBorderStyle ZKLabel::BorderStyle() const {
  return static_cast<zktCmdBorderStyle>(Surface().BorderStyle());
}

void ZKLabel::SetBorderStyle(zktCmdBorderStyle New_BorderStyle) {
  if (New_BorderStyle != zktBSNone && New_BorderStyle != zktBSSolid) return;
  Surface().SetBorderStyle(static_cast<int16_t>(New_BorderStyle));
  NotifyChanged(u"BorderStyle");
}

void ZKLabel::SetBorderMargin(int32_t New_BorderMargin) {
  if (New_BorderMargin < 0) return;
  border_margin_ = New_BorderMargin;
  NotifyChanged(u"BorderMargin");
  Layout();
}

OLE_COLOR ZKLabel::ForeColor() const {
  return lbl_label_->ForeColor();
}

void ZKLabel::SetForeColor(OLE_COLOR New_ForeColor) {
  lbl_label_->SetForeColor(New_ForeColor);
  NotifyChanged(u"ForeColor");
}

bool ZKLabel::UseMnemonic() const {
  return lbl_label_->UseMnemonic();
}

void ZKLabel::SetUseMnemonic(bool New_UseMnemonic) {
  lbl_label_->SetUseMnemonic(New_UseMnemonic);
  NotifyChanged(u"UseMnemonic");
}

bool ZKLabel::WordWrap() const {
  return lbl_label_->WordWrap();
}

void ZKLabel::SetWordWrap(bool New_WordWrap) {
  lbl_label_->SetWordWrap(New_WordWrap);
  NotifyChanged(u"WordWrap");
  Layout();
}

void ZKLabel::OnFontChanged() {
  lbl_label_->SetFont(Font()->Description());
  Layout();
}

void ZKLabel::OnEnabledChanged(bool enabled) {
  lbl_label_->SetEnabled(enabled);
}

void ZKLabel::OnAmbientChanged(std::u16string_view property) {
  ambient_back_color_.OnAmbientChanged(property);
}

void ZKLabel::Layout() {
  if (laying_out_) return;
  laying_out_ = true;
  ISurface& surface = Surface();
  ILabelElement& label = *lbl_label_;
  double mx = 0;
  double my = 0;
  LayoutStep([&] {
    const IScreen& screen = CurrentPlatform().Screen();
    mx = MarginTwips(border_margin_, screen.TwipsPerPixelX());
    my = MarginTwips(border_margin_, screen.TwipsPerPixelY());
  });
  if (auto_size_) {
    LayoutStep([&] { label.SetAutoSize(true); });
    LayoutStep([&] { label.Move(0, 0, label.Width(), label.Height()); });
    LayoutStep([&] { surface.SetSize(label.Width(), label.Height()); });
  } else {
    const double width = surface.Width();
    const double height = surface.Height();
    LayoutStep([&] { label.SetAutoSize(false); });
    LayoutStep([&] { label.SetHeight(height > 2 * my ? height - 2 * my : 0); });
    LayoutStep([&] { label.SetWidth(width > 2 * mx ? width - 2 * mx : 0); });
    LayoutStep([&] { label.SetAutoSize(true); });
    LayoutStep([&] {
      label.SetCaption(label.Caption());
      label.Refresh();
    });
    LayoutStep([&] {
      switch (label.Alignment()) {
        case zktTextAlignLeft:
          label.SetLeft(mx);
          break;
        case zktTextAlignRight:
          label.SetLeft(width - (label.Width() + mx));
          break;
        case zktTextAlignCenter:
          label.SetLeft(HalfOf(width - label.Width()));
          break;
      }
    });
    LayoutStep([&] {
      switch (vertical_alignment_) {
        case zktTextVAlignTop:
          label.SetTop(my);
          break;
        case zktTextVAlignBottom:
          label.SetTop(height - (label.Height() + my));
          break;
        case zktTextVAlignCenter:
          label.SetTop(HalfOf(height - label.Height()));
          break;
      }
    });
  }
  laying_out_ = false;
}

void ZKLabel::InitProperties() {
  IAmbientProperties& ambient = Site().Ambient();
  Surface().SetAppearance(zktAp3d);
  Surface().SetBorderStyle(zktBSNone);
  lbl_label_->SetCaption(u"Label");
  lbl_label_->SetAlignment(zktTextAlignLeft);
  lbl_label_->SetUseMnemonic(true);
  lbl_label_->SetWordWrap(false);
  SetBackColor(ambient.BackColor());
  SetForeColor(ambient.ForeColor());
  SetFont(ambient.Font());
  ambient_back_color_.Store(true);
  StoreControlGroup({});
  StoreDesignMode(false);
  vertical_alignment_ = zktTextVAlignCenter;
  border_margin_ = 2;
  auto_size_ = false;
  Layout();
}

void ZKLabel::ReadProperties(IPropertyBag& bag) {
  using variant_conversion::FromVariant;
  ISurface& surface = Surface();
  ILabelElement& label = *lbl_label_;
  label.SetForeColor(Read(bag, u"ForeColor", ColorVariant(system_color::kButtonText)).ToColor());
  surface.SetEnabled(Read(bag, u"Enabled", Variant(true)).ToBool());
  if (FontRef font = FromVariant<FontRef>(Read(bag, u"Font", Variant(Site().Ambient().Font())))) {
    AdoptFont(font->Clone());
  }
  label.SetFont(Font()->Description());
  surface.SetBorderStyle(Read(bag, u"BorderStyle", Variant(int32_t{0})).ToInt16());
  label.SetAlignment(Read(bag, u"Alignment", Variant(int32_t{0})).ToInt16());
  surface.SetAppearance(Read(bag, u"Appearance", Variant(int32_t{1})).ToInt16());
  label.SetCaption(Read(bag, u"Caption", Variant(u"Label")).ToText());
  label.SetUseMnemonic(Read(bag, u"UseMnemonic", Variant(true)).ToBool());
  StoreDesignMode(Read(bag, u"DesignMode", Variant(false)).ToBool());
  auto_size_ = Read(bag, u"AutoSize", Variant(false)).ToBool();
  surface.SetBackColor(
      Read(bag, u"BackColor", ColorVariant(system_color::kWindowBackground)).ToColor());
  StoreControlGroup(Read(bag, u"ControlGroup", Variant(u"")).ToText());
  ambient_back_color_.Store(Read(bag, u"AmbientBackColor", Variant(true)).ToBool());
  label.SetWordWrap(Read(bag, u"WordWrap", Variant(false)).ToBool());
  vertical_alignment_ = static_cast<zktTextVerticalAlignment>(
      Read(bag, u"VerticalAlignment", Variant(int32_t{2})).ToInt32());
  border_margin_ = Read(bag, u"BorderMargin", Variant(int32_t{2})).ToInt32();
  label.SetEnabled(surface.Enabled());
  Layout();
}

void ZKLabel::WriteProperties(IPropertyBag& bag) {
  using variant_conversion::ToVariant;
  bag.WriteProperty(u"ForeColor", ToVariant(ForeColor()), ColorVariant(system_color::kButtonText));
  bag.WriteProperty(u"Enabled", Variant(Enabled()), Variant(true));
  bag.WriteProperty(u"Font", Variant(Font()), Variant(Site().Ambient().Font()));
  bag.WriteProperty(u"BorderStyle", ToVariant(BorderStyle()), Variant(int32_t{0}));
  bag.WriteProperty(u"Alignment", ToVariant(Alignment()), Variant(int32_t{0}));
  bag.WriteProperty(u"Appearance", ToVariant(Appearance()), Variant(int32_t{1}));
  bag.WriteProperty(u"Caption", Variant(Caption()), Variant(u"Label"));
  bag.WriteProperty(u"UseMnemonic", Variant(UseMnemonic()), Variant(true));
  bag.WriteProperty(u"DesignMode", Variant(DesignMode()), Variant(false));
  bag.WriteProperty(u"AutoSize", Variant(AutoSize()), Variant(false));
  bag.WriteProperty(u"BackColor", ToVariant(BackColor()),
                    ColorVariant(system_color::kWindowBackground));
  bag.WriteProperty(u"ControlGroup", Variant(ControlGroup()), Variant(u""));
  bag.WriteProperty(u"AmbientBackColor", Variant(AmbientBackColor()), Variant(true));
  bag.WriteProperty(u"WordWrap", Variant(WordWrap()), Variant(false));
  bag.WriteProperty(u"VerticalAlignment", ToVariant(VerticalAlignment()), Variant(int32_t{2}));
  bag.WriteProperty(u"BorderMargin", Variant(BorderMargin()), Variant(int32_t{2}));
}

}  // namespace zk
