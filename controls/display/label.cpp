#include "controls/display/label.h"

#include <array>
#include <utility>

#include "foundation/low_level_utils.h"
#include "framework/caption_input.h"
#include "framework/layout_steps.h"
#include "platform/platform.h"

namespace zk {
namespace {

// round(free space) halved with the remainder dropped: odd free space rounds toward zero.
double HalfOf(double free_space) {
  return static_cast<double>(MLowLevelUtils::RoundToInt32(free_space) / 2);
}

double MarginTwips(int32_t pixels, double twips_per_pixel) {
  if (pixels <= 0) return 0;
  return MLowLevelUtils::RoundHalfEven(twips_per_pixel * pixels);
}

}  // namespace

ZKLabel::ZKLabel(IControlSite& site)
    : ZKControl(site),
      lbl_label_(Surface().CreateLabel()),
      ambient_back_color_(
          site.Ambient(), [this](OLE_COLOR color) { SetBackColor(color); },
          [this](std::u16string_view property) { NotifyChanged(property); }),
      text_mouse_(site, *lbl_label_, MouseDown, MouseMove, MouseUp) {
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
  ConnectCaptionInput(*this, surface, label, text_mouse_, connections_);
}

const PropertyTable& ZKLabel::Properties() const {
  using property_rows::Internal;
  using property_rows::Property;
  using L = ZKLabel;
  static const PropertyTable table(
      {
          Property(u"ForeColor", &L::ForeColor, &L::SetForeColor)
              .Archive(11)
              .New(Ambient::kForeColor, InitBy::kSetter)
              .Bag(ColorValue(system_color::kButtonText), 1)
              .Store([](L& c, OLE_COLOR v) { c.lbl_label_->SetForeColor(v); }),
          Common<L>(u"Enabled").Bag(Variant(true), 2),
          Property(u"BorderStyle", &L::BorderStyle, &L::SetBorderStyle)
              .Archive(9)
              .New(Variant(int32_t{zktBSNone}))
              .Bag(Variant(int32_t{0}), 4)
              .Store([](L& c, zktCmdBorderStyle v) {
                c.Surface().SetBorderStyle(static_cast<int16_t>(v));
              }),
          Common<L>(u"Refresh"),
          Property(u"Alignment", &L::Alignment, &L::SetAlignment)
              .Archive(2)
              .New(Variant(int32_t{zktTextAlignLeft}))
              .Bag(Variant(int32_t{0}), 5)
              .Store([](L& c, zktTextAlignment v) {
                c.lbl_label_->SetAlignment(static_cast<int16_t>(v));
              }),
          // The surface resets its colour with the appearance: stored before BackColor.
          Property(u"Appearance", &L::Appearance, &L::SetAppearance)
              .Archive(5)
              .New(Variant(int32_t{zktAp3d}))
              .Bag(Variant(int32_t{1}), 6)
              .Store([](L& c, zktAppearance v) {
                c.Surface().SetAppearance(static_cast<int16_t>(v));
              }),
          Property(u"Caption", &L::Caption, &L::SetCaption, dispatch_id::kCaption)
              .Archive(1)
              .New(u"Label")
              .Bag(u"Label", 7)
              .Store([](L& c, const std::u16string& v) { c.lbl_label_->SetCaption(v); }),
          Common<L>(u"hWnd"),
          Common<L>(u"PopupMenu"),
          Property(u"UseMnemonic", &L::UseMnemonic, &L::SetUseMnemonic)
              .Archive(13)
              .New(Variant(true))
              .Bag(Variant(true), 8)
              .Store([](L& c, bool v) { c.lbl_label_->SetUseMnemonic(v); }),
          Common<L>(u"DesignMode").Archive(15).Bag(Variant(false), 9),
          Common<L>(u"Clone"),
          Common<L>(u"GetArchiveStr"),
          Common<L>(u"ParseArchiveStr"),
          Property(u"AutoSize", &L::AutoSize, &L::SetAutoSize, dispatch_id::kAutoSize)
              .Archive(4)
              .New(Variant(false))
              .Bag(Variant(false), 10)
              .Store(&L::auto_size_),
          // An explicit colour turns AmbientBackColor off; the flag is stored after it.
          Property(u"BackColor", &L::BackColor, &L::SetBackColor)
              .Archive(7)
              .New(Ambient::kBackColor, InitBy::kSetter)
              .Bag(ColorValue(system_color::kWindowBackground), 11)
              .Store([](L& c, OLE_COLOR v) { c.Surface().SetBackColor(v); }),
          Common<L>(u"ControlGroup").Archive(16).Bag(u"", 12),
          Property(u"AmbientBackColor", &L::AmbientBackColor, &L::SetAmbientBackColor)
              .Archive(8)
              .New(Variant(true))
              .Bag(Variant(true), 13)
              .Store([](L& c, bool v) { c.ambient_back_color_.Store(v); }),
          Property(u"WordWrap", &L::WordWrap, &L::SetWordWrap)
              .Archive(14)
              .New(Variant(false))
              .Bag(Variant(false), 14)
              .Store([](L& c, bool v) { c.lbl_label_->SetWordWrap(v); }),
          Property(u"VerticalAlignment", &L::VerticalAlignment, &L::SetVerticalAlignment)
              .Archive(3)
              .New(Variant(int32_t{zktTextVAlignCenter}))
              .Bag(Variant(int32_t{2}), 15)
              .Store(&L::vertical_alignment_),
          Property(u"BorderMargin", &L::BorderMargin, &L::SetBorderMargin)
              .Archive(10)
              .New(Variant(int32_t{2}))
              .Bag(Variant(int32_t{2}), 16)
              .Store(&L::border_margin_),
          Common<L>(u"Font", dispatch_id::kFont)
              .Archive(12)
              .New(Ambient::kFont, InitBy::kSetter)
              .Bag(Ambient::kFont, 3),
          Common<L>(u"ExtraProp"),
          Common<L>(u"ExtraAction"),
          // The surface's pointer shape: carried by the archive, though no property offers it.
          Internal<L, int16_t>(ArchiveKind::kNumber)
              .Archive(6)
              .Describe(u"the surface's pointer shape")
              .Stored([](L& c) { return int32_t{c.Surface().MousePointer()}; })
              .Store([](L& c, int16_t v) { c.Surface().SetMousePointer(v); }),
      },
      {u"Click", u"DblClick", u"MouseMove", u"MouseUp", u"MouseDown"});
  return table;
}

std::u16string ZKLabel::Caption() const {
  return lbl_label_->Caption();
}

void ZKLabel::SetCaption(std::u16string New_Caption) {
  lbl_label_->SetCaption(New_Caption);
  Changed(u"Caption", Effect::kLayout);
}

zktTextAlignment ZKLabel::Alignment() const {
  return static_cast<zktTextAlignment>(lbl_label_->Alignment());
}

void ZKLabel::SetAlignment(zktTextAlignment New_Alignment) {
  if (New_Alignment < zktTextAlignLeft || New_Alignment > zktTextAlignCenter) return;
  lbl_label_->SetAlignment(static_cast<int16_t>(New_Alignment));
  Changed(u"Alignment", Effect::kLayout);
}

void ZKLabel::SetVerticalAlignment(zktTextVerticalAlignment New_VerticalAlignment) {
  if (New_VerticalAlignment < zktTextVAlignTop || New_VerticalAlignment > zktTextVAlignCenter) {
    return;
  }
  vertical_alignment_ = New_VerticalAlignment;
  Changed(u"VerticalAlignment", Effect::kLayout);
}

void ZKLabel::SetAutoSize(bool New_AutoSize) {
  auto_size_ = New_AutoSize;
  Changed(u"AutoSize", Effect::kLayout);
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
  Changed(u"Appearance");
}

OLE_COLOR ZKLabel::BackColor() const {
  return Surface().BackColor();
}

void ZKLabel::SetBackColor(OLE_COLOR New_BackColor) {
  ambient_back_color_.BeforeBackColorWrite();
  Surface().SetBackColor(New_BackColor);
  Changed(u"BackColor");
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
  Changed(u"BorderStyle");
}

void ZKLabel::SetBorderMargin(int32_t New_BorderMargin) {
  if (New_BorderMargin < 0) return;
  border_margin_ = New_BorderMargin;
  Changed(u"BorderMargin", Effect::kLayout);
}

OLE_COLOR ZKLabel::ForeColor() const {
  return lbl_label_->ForeColor();
}

void ZKLabel::SetForeColor(OLE_COLOR New_ForeColor) {
  lbl_label_->SetForeColor(New_ForeColor);
  Changed(u"ForeColor");
}

bool ZKLabel::UseMnemonic() const {
  return lbl_label_->UseMnemonic();
}

void ZKLabel::SetUseMnemonic(bool New_UseMnemonic) {
  lbl_label_->SetUseMnemonic(New_UseMnemonic);
  Changed(u"UseMnemonic");
}

bool ZKLabel::WordWrap() const {
  return lbl_label_->WordWrap();
}

void ZKLabel::SetWordWrap(bool New_WordWrap) {
  lbl_label_->SetWordWrap(New_WordWrap);
  Changed(u"WordWrap", Effect::kLayout);
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
  const FlagScope guard(laying_out_);
  ISurface& surface = Surface();
  ILabelElement& label = *lbl_label_;
  double mx = 0;
  double my = 0;
  IgnoringFailure([&] {
    const IScreen& screen = CurrentPlatform().Screen();
    mx = MarginTwips(border_margin_, screen.TwipsPerPixelX());
    my = MarginTwips(border_margin_, screen.TwipsPerPixelY());
  });
  if (auto_size_) {
    IgnoringFailure([&] { label.SetAutoSize(true); });
    IgnoringFailure([&] { label.Move(0, 0, label.Width(), label.Height()); });
    IgnoringFailure([&] { surface.SetSize(label.Width(), label.Height()); });
  } else {
    const double width = surface.Width();
    const double height = surface.Height();
    IgnoringFailure([&] { label.SetAutoSize(false); });
    IgnoringFailure([&] { label.SetHeight(height > 2 * my ? height - 2 * my : 0); });
    IgnoringFailure([&] { label.SetWidth(width > 2 * mx ? width - 2 * mx : 0); });
    IgnoringFailure([&] { label.SetAutoSize(true); });
    IgnoringFailure([&] {
      label.SetCaption(label.Caption());
      label.Refresh();
    });
    IgnoringFailure([&] {
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
    IgnoringFailure([&] {
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
}

void ZKLabel::AfterInitProperties() {
  Layout();
}

void ZKLabel::AfterReadProperties() {
  lbl_label_->SetFont(Font()->Description());
  lbl_label_->SetEnabled(Enabled());
  Layout();
}

}  // namespace zk
