#include "controls/display/frame.h"

#include <utility>

#include "foundation/low_level_utils.h"
#include "framework/caption_input.h"
#include "framework/layout_steps.h"
#include "platform/platform.h"

namespace zk {
namespace {

constexpr int16_t kMaxBorderPixels = 8192;

// round(free space) halved with the remainder dropped: odd free space rounds toward zero.
double HalfOf(double free_space) {
  return static_cast<double>(MLowLevelUtils::RoundToInt32(free_space) / 2);
}

double PixelsToTwips(int32_t pixels, double twips_per_pixel) {
  return MLowLevelUtils::RoundHalfEven(twips_per_pixel * pixels);
}

}  // namespace

ZKFrame::ZKFrame(IControlSite& site)
    : ZKControl(site),
      shp_border_(Surface().CreateShape()),
      lbl_label_(Surface().CreateLabel()),
      ambient_back_color_(
          site.Ambient(), [this](OLE_COLOR color) { SetBackColor(color); },
          [this](std::u16string_view property) { NotifyChanged(property); }),
      caption_mouse_(site, *lbl_label_, MouseDown, MouseMove, MouseUp) {
  shp_border_->Move(0, 0, 0, 0);
  shp_border_->SetShape(shape_code::kRectangle);
  shp_border_->SetFillStyle(1);  // the surface shows through the border's inside
  // Drawn inside the border's bounds, so that its inside begins at its top plus its width.
  shp_border_->SetBorderStyle(line_style::kInsideSolid);
  shp_border_->SetBorderWidth(1);
  shp_border_->SetBorderColor(border_color_);
  // An opaque caption hides the stretch of the top line that it sits on.
  lbl_label_->SetBackStyle(1);
  lbl_label_->SetAutoSize(true);
  lbl_label_->SetCaption(u"Label");
  lbl_label_->SetFont(Font()->Description());
  ConnectInput();
}

ZKFrame::~ZKFrame() = default;

void ZKFrame::ConnectInput() {
  ISurface& surface = Surface();
  ILabelElement& caption = *lbl_label_;
  connections_.reserve(11);
  connections_.push_back(surface.Resized().Connect([this] { Layout(); }));
  ConnectCaptionInput(*this, surface, caption, caption_mouse_, connections_);
}

const PropertyTable& ZKFrame::Properties() const {
  using property_rows::Internal;
  using property_rows::Property;
  using property_rows::ReadOnly;
  using F = ZKFrame;
  // The bag reads and writes in orders of their own (the last two numbers of Bag): Appearance
  // is read first, because the surface resets its colour with it.
  static const PropertyTable table(
      {
          Property(u"ForeColor", &F::ForeColor, &F::SetForeColor)
              .Archive(13)
              .New(Ambient::kForeColor, InitBy::kSetter)
              .Bag(ColorValue(system_color::kButtonText), 2, 1)
              .Store([](F& c, OLE_COLOR v) { c.lbl_label_->SetForeColor(v); }),
          // The bag's value goes to the caption; the enabling procedure at the end of reading
          // gives it to the frame and to what it holds.
          Common<F>(u"Enabled").Bag(Variant(true), 3, 2).Store([](F& c, const Variant& v) {
            c.lbl_label_->SetEnabled(v.ToBool());
          }),
          Common<F>(u"Font")
              .Archive(14)
              .New(Ambient::kFont, InitBy::kSetter)
              .Bag(Ambient::kFont, 4, 3),
          Property(u"BorderStyle", &F::BorderStyle, &F::SetBorderStyle)
              .Archive(8)
              .Bag(Variant(int32_t{1}), 5, 4)
              .Store([](F& c, zktCmdBorderStyle v) { c.shp_border_->SetVisible(v == zktBSSolid); }),
          Common<F>(u"Refresh"),
          Property(u"Alignment", &F::Alignment, &F::SetAlignment)
              .Archive(2)
              .Bag(Variant(int32_t{0}), 6, 5)
              .Store([](F& c, zktTextAlignment v) {
                c.lbl_label_->SetAlignment(static_cast<int16_t>(v));
              }),
          // A new frame is flat, so that it takes the container's colour; the bag's default
          // is 3-D.
          Property(u"Appearance", &F::Appearance, &F::SetAppearance)
              .Archive(4)
              .New(Variant(int32_t{zktApFlat}))
              .Bag(Variant(int32_t{1}), 1, 6)
              .Store([](F& c, zktAppearance v) { c.ApplyAppearance(v); }),
          Property(u"Caption", &F::Caption, &F::SetCaption, dispatch_id::kCaption)
              .Archive(1)
              .Bag(u"Label", 7, 7)
              .Store([](F& c, const std::u16string& v) { c.lbl_label_->SetCaption(v); }),
          Common<F>(u"hWnd"),
          Common<F>(u"PopupMenu"),
          Property(u"UseMnemonic", &F::UseMnemonic, &F::SetUseMnemonic)
              .Archive(15)
              .Bag(Variant(true), 8, 8)
              .Store([](F& c, bool v) { c.lbl_label_->SetUseMnemonic(v); }),
          Common<F>(u"DesignMode").Archive(17).Bag(Variant(false), 10, 9),
          Common<F>(u"Clone"),
          Common<F>(u"GetArchiveStr"),
          Common<F>(u"ParseArchiveStr"),
          // An explicit colour turns AmbientBackColor off; the flag comes after it everywhere.
          Property(u"BackColor", &F::BackColor, &F::SetBackColor)
              .Archive(6)
              .New(Ambient::kBackColor, InitBy::kSetter)
              .Bag(ColorValue(system_color::kButtonFace), 9, 10)
              .Store([](F& c, OLE_COLOR v) { c.Surface().SetBackColor(v); }),
          Common<F>(u"ControlGroup").Archive(18).Bag(u"", 12, 11),
          Property(u"AmbientBackColor", &F::AmbientBackColor, &F::SetAmbientBackColor)
              .Archive(7)
              .New(Variant(true))
              .Bag(Variant(true), 11, 12)
              .Store([](F& c, bool v) { c.ambient_back_color_.Store(v); }),
          Property(u"WordWrap", &F::WordWrap, &F::SetWordWrap)
              .Archive(16)
              .Bag(Variant(false), 13, 13)
              .Store([](F& c, bool v) { c.lbl_label_->SetWordWrap(v); }),
          Property(u"BorderMargin", &F::BorderMargin, &F::SetBorderMargin)
              .Archive(10)
              .New(Variant(int32_t{5}))
              .Bag(Variant(int32_t{5}), 14, 14)
              .Store(&F::border_margin_),
          Property(u"VerticalAlignment", &F::VerticalAlignment, &F::SetVerticalAlignment)
              .Archive(3)
              .New(Variant(int32_t{zktTextVAlignCenter}))
              .Bag(Variant(int32_t{2}), 15, 15)
              .Store(&F::vertical_alignment_),
          Property(u"BorderColor", &F::BorderColor, &F::SetBorderColor)
              .Archive(11)
              .New(ColorValue(0))
              .Bag(ColorValue(0), 16, 16)
              .Store([](F& c, OLE_COLOR v) {
                c.border_color_ = v;
                c.shp_border_->SetBorderColor(v);
              }),
          Property(u"BorderDisables", &F::BorderDisables, &F::SetBorderDisables)
              .Archive(12)
              .New(Variant(false))
              .Bag(Variant(false), 18, 17)
              .Store(&F::border_disables_),
          Property(u"BorderWidth", &F::BorderWidth, &F::SetBorderWidth)
              .Archive(9)
              .Bag(Variant(int32_t{1}), 17, 18)
              .Store([](F& c, int16_t v) { c.shp_border_->SetBorderWidth(v); }),
          ReadOnly(u"TopBorderOffset", &F::TopBorderOffset),
          Property(u"BorderShape", &F::BorderShape, &F::SetBorderShape)
              .Archive(19)
              .Bag(Variant(int32_t{0}), 19, 19)
              .Store([](F& c, int16_t v) { c.shp_border_->SetShape(v); }),
          Common<F>(u"ExtraProp"),
          Common<F>(u"ExtraAction"),
          // The surface's pointer shape: carried by the archive, though no property offers it.
          Internal<F, int16_t>(ArchiveKind::kNumber)
              .Archive(5)
              .Describe(u"the surface's pointer shape")
              .Stored([](F& c) { return int32_t{c.Surface().MousePointer()}; })
              .Store([](F& c, int16_t v) { c.Surface().SetMousePointer(v); }),
      },
      {u"Click", u"DblClick", u"MouseMove", u"MouseUp", u"MouseDown"});
  return table;
}

bool ZKFrame::Enabled() const {
  return lbl_label_->Enabled();
}

void ZKFrame::SetEnabled(bool New_Enabled) {
  ApplyEnabled(New_Enabled);
  Changed(u"Enabled");
}

void ZKFrame::ApplyEnabled(bool enabled) {
  Surface().SetEnabled(enabled);
  lbl_label_->SetEnabled(enabled);
  // By name, as a host's late-bound call would: an object without Enabled stops the procedure
  // with error 438, and what follows it (the border too) stays as it was.
  const Variant value(enabled);
  for (const ObjectRef& contained : Site().ContainedControls()) {
    if (contained) contained->SetProperty(u"Enabled", value);
  }
  shp_border_->SetBorderColor(enabled || !border_disables_ ? border_color_
                                                           : system_color::kInactiveBorder);
}

OLE_COLOR ZKFrame::ForeColor() const {
  return lbl_label_->ForeColor();
}

void ZKFrame::SetForeColor(OLE_COLOR New_ForeColor) {
  lbl_label_->SetForeColor(New_ForeColor);
  Changed(u"ForeColor");
}

zktCmdBorderStyle ZKFrame::BorderStyle() const {
  return shp_border_->Visible() ? zktBSSolid : zktBSNone;
}

void ZKFrame::SetBorderStyle(zktCmdBorderStyle New_BorderStyle) {
  if (New_BorderStyle != zktBSNone && New_BorderStyle != zktBSSolid) return;
  shp_border_->SetVisible(New_BorderStyle == zktBSSolid);
  Changed(u"BorderStyle");
}

zktTextAlignment ZKFrame::Alignment() const {
  return static_cast<zktTextAlignment>(lbl_label_->Alignment());
}

void ZKFrame::SetAlignment(zktTextAlignment New_Alignment) {
  if (New_Alignment < zktTextAlignLeft || New_Alignment > zktTextAlignCenter) return;
  lbl_label_->SetAlignment(static_cast<int16_t>(New_Alignment));
  Changed(u"Alignment", Effect::kLayout);
}

zktAppearance ZKFrame::Appearance() const {
  return static_cast<zktAppearance>(Surface().Appearance());
}

void ZKFrame::SetAppearance(zktAppearance New_Appearance) {
  if (New_Appearance != zktApFlat && New_Appearance != zktAp3d) return;
  ApplyAppearance(New_Appearance);
  // A frame that follows the container takes the container's colour again (a flat one shows
  // it; a 3-D one keeps the colour that the appearance gave it).
  ambient_back_color_.Reapply();
  Changed(u"Appearance");
}

void ZKFrame::ApplyAppearance(zktAppearance appearance) {
  Surface().SetAppearance(static_cast<int16_t>(appearance));
  // The caption's appearance resets its back colour as the surface's resets the surface's, so
  // that the caption never stands out from the face around it.
  lbl_label_->SetBackColor(Surface().BackColor());
}

std::u16string ZKFrame::Caption() const {
  return lbl_label_->Caption();
}

void ZKFrame::SetCaption(std::u16string New_Caption) {
  lbl_label_->SetCaption(New_Caption);
  Changed(u"Caption", Effect::kLayout);
}

bool ZKFrame::UseMnemonic() const {
  return lbl_label_->UseMnemonic();
}

void ZKFrame::SetUseMnemonic(bool New_UseMnemonic) {
  lbl_label_->SetUseMnemonic(New_UseMnemonic);
  Changed(u"UseMnemonic");
}

OLE_COLOR ZKFrame::BackColor() const {
  return Surface().BackColor();
}

void ZKFrame::SetBackColor(OLE_COLOR New_BackColor) {
  ambient_back_color_.BeforeBackColorWrite();
  if (Appearance() == zktApFlat) {
    Surface().SetBackColor(New_BackColor);
    lbl_label_->SetBackColor(New_BackColor);
  }
  Changed(u"BackColor");
}

void ZKFrame::SetAmbientBackColor(bool New_AmbientBackColor) {
  ambient_back_color_.Set(New_AmbientBackColor);
}

bool ZKFrame::WordWrap() const {
  return lbl_label_->WordWrap();
}

void ZKFrame::SetWordWrap(bool New_WordWrap) {
  lbl_label_->SetWordWrap(New_WordWrap);
  Changed(u"WordWrap", Effect::kLayout);
}

void ZKFrame::SetBorderMargin(int32_t New_BorderMargin) {
  if (New_BorderMargin < 0) return;
  border_margin_ = New_BorderMargin;
  Changed(u"BorderMargin", Effect::kLayout);
}

void ZKFrame::SetVerticalAlignment(zktTextVerticalAlignment New_VerticalAlignment) {
  if (New_VerticalAlignment < zktTextVAlignTop || New_VerticalAlignment > zktTextVAlignCenter) {
    return;
  }
  vertical_alignment_ = New_VerticalAlignment;
  Changed(u"VerticalAlignment", Effect::kLayout);
}

void ZKFrame::SetBorderColor(OLE_COLOR New_BorderColor) {
  border_color_ = New_BorderColor;
  shp_border_->SetBorderColor(New_BorderColor);
  Changed(u"BorderColor");
}

void ZKFrame::SetBorderDisables(bool New_BorderDisables) {
  border_disables_ = New_BorderDisables;
  ApplyEnabled(Enabled());
  Changed(u"BorderDisables");
}

int16_t ZKFrame::BorderWidth() const {
  return shp_border_->BorderWidth();
}

void ZKFrame::SetBorderWidth(int16_t New_BorderWidth) {
  if (New_BorderWidth < 1 || New_BorderWidth > kMaxBorderPixels) return;
  shp_border_->SetBorderWidth(New_BorderWidth);
  Changed(u"BorderWidth", Effect::kLayout);
}

int16_t ZKFrame::BorderShape() const {
  return shp_border_->Shape();
}

void ZKFrame::SetBorderShape(int16_t New_BorderShape) {
  if (New_BorderShape < shape_code::kRectangle || New_BorderShape > shape_code::kRoundedSquare) {
    return;
  }
  shp_border_->SetShape(New_BorderShape);
  Changed(u"BorderShape", Effect::kLayout);
}

void ZKFrame::OnFontChanged() {
  lbl_label_->SetFont(Font()->Description());
  Layout();
}

void ZKFrame::OnAmbientChanged(std::u16string_view property) {
  ambient_back_color_.OnAmbientChanged(property);
}

void ZKFrame::Layout() {
  if (laying_out_) return;
  const FlagScope guard(laying_out_);
  ISurface& surface = Surface();
  ILabelElement& caption = *lbl_label_;
  IShapeElement& border = *shp_border_;
  double tpp_x = 0;
  double tpp_y = 0;
  double bx = 0;
  double by = 0;
  double mx = 0;
  double my = 0;
  IgnoringFailure([&] {
    const IScreen& screen = CurrentPlatform().Screen();
    tpp_x = screen.TwipsPerPixelX();
    tpp_y = screen.TwipsPerPixelY();
    bx = PixelsToTwips(border.BorderWidth(), tpp_x);
    by = PixelsToTwips(border.BorderWidth(), tpp_y);
    if (border_margin_ > 0) {
      mx = PixelsToTwips(border_margin_, tpp_x);
      my = PixelsToTwips(border_margin_, tpp_y);
    }
  });
  const double width = surface.ScaleWidth();
  const double height = surface.ScaleHeight();
  if (caption.Caption().empty()) {
    IgnoringFailure([&] { caption.SetVisible(false); });
    IgnoringFailure([&] { border.Move(0, 0, width, height); });
  } else {
    IgnoringFailure([&] {
      caption.SetCaption(caption.Caption());
      caption.Refresh();
    });
    IgnoringFailure([&] {
      switch (caption.Alignment()) {
        case zktTextAlignLeft:
          caption.SetLeft(mx + bx);
          break;
        case zktTextAlignRight:
          caption.SetLeft(width - (caption.Width() + mx + bx));
          break;
        case zktTextAlignCenter:
          caption.SetLeft(HalfOf(width - caption.Width()));
          break;
      }
    });
    double border_top = 0;
    IgnoringFailure([&] {
      switch (vertical_alignment_) {
        case zktTextVAlignBottom:  // inside the border, below its top line
          caption.SetTop(my + by);
          border_top = 0;
          break;
        case zktTextVAlignCenter:  // the top line runs through the middle of the caption
          caption.SetTop(0);
          border_top = HalfOf(caption.Height());
          break;
        case zktTextVAlignTop:  // the border starts below the caption
          caption.SetTop(0);
          border_top = caption.Height() + my;
          break;
      }
    });
    IgnoringFailure([&] { border.Move(0, border_top, width, height - border_top); });
    IgnoringFailure([&] { caption.SetVisible(true); });
  }
  IgnoringFailure([&] {
    top_border_offset_ = static_cast<float>(border.Top() + border.BorderWidth() * tpp_x);
  });
}

void ZKFrame::AfterInitProperties() {
  Layout();
}

void ZKFrame::AfterReadProperties() {
  lbl_label_->SetFont(Font()->Description());
  // A flat frame's caption shows the surface's colour; a 3-D one kept its appearance's.
  if (Appearance() == zktApFlat) lbl_label_->SetBackColor(Surface().BackColor());
  ApplyEnabled(lbl_label_->Enabled());
  Layout();
}

}  // namespace zk
