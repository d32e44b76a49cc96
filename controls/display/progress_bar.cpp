#include "controls/display/progress_bar.h"

#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "foundation/debug_utils.h"
#include "foundation/flag_scope.h"
#include "foundation/low_level_utils.h"
#include "foundation/zk_error.h"
#include "framework/caption_input.h"
#include "framework/layout_steps.h"

namespace zk {
namespace {

std::u16string DecimalText(int64_t value) {
  const std::string digits = std::to_string(value);
  return std::u16string(digits.begin(), digits.end());
}

// The fraction with the number pattern "0%": a hundred times it, rounded to a whole number
// (halves away from zero, as number patterns round), and a percent sign. A progress left
// outside a changed scale can lie far beyond 100 %; 64 bits hold every such value.
std::u16string PercentText(double fraction) {
  return DecimalText(std::llround(fraction * 100)) + u"%";
}

// round(free space) halved, the remainder dropped. Raises ZKError 6 when the free space does
// not fit in 32 bits.
double HalfOf(double free_space) {
  return static_cast<double>(MLowLevelUtils::RoundToInt32(free_space) / 2);
}

// Where a caption of `length` goes along the bar's axis (size `extent`, the level at `level`),
// for an anchor. `grows_up` tells whether the bar grows toward larger coordinates (left to
// right, top to bottom).
double AlongAxis(zktProgressBarAnchor anchor, bool grows_up, double extent, double level,
                 double length) {
  // Just past the level, toward ScaleMax, kept inside the far edge; or just before it, ending
  // at the level, kept inside the near edge.
  const auto past_level = [&] { return level + length < extent ? level : extent - length; };
  const auto before_level = [&] { return level - length > 0 ? level - length : 0.0; };
  switch (anchor) {
    case zktPAnchorCenter:
      return HalfOf(extent - length);
    case zktPAnchorScaleMax:
      return grows_up ? extent - length : 0;
    case zktPAnchorScaleMin:
      return grows_up ? 0 : extent - length;
    case zktPAnchorAboveLevel:
      return grows_up ? past_level() : before_level();
    case zktPAnchorBelowLevel:
      return grows_up ? before_level() : past_level();
  }
  return HalfOf(extent - length);
}

PictureRef PictureFrom(const Variant& value) {
  const ObjectRef object = value.ToObject();
  PictureRef picture = std::dynamic_pointer_cast<zk::Picture>(object);
  if (object && !picture) throw ZKError::TypeMismatch();
  return picture;
}

Variant PictureValue(const PictureRef& picture) {
  return Variant(ObjectRef(picture));
}

MemberInfo PictureMember() {
  MemberInfo info;
  info.name = u"Picture";
  info.get = [](ZKControl& control, std::span<const Variant>) {
    return PictureValue(static_cast<ZKProgessBar&>(control).Picture());
  };
  info.set = [](ZKControl& control, const Variant& value, std::span<const Variant>) {
    static_cast<ZKProgessBar&>(control).SetPicture(PictureFrom(value));
  };
  return info;
}

}  // namespace

ZKProgessBar::ZKProgessBar(IControlSite& site)
    : ZKControl(site),
      lbl_progress_(Surface().CreateLabel()),
      caption_mouse_(site, *lbl_progress_, MouseDown, MouseMove, MouseUp) {
  // A flat surface: the border is the single line that BorderStyle offers.
  Surface().SetAppearance(0);
  Surface().SetBackColor(system_color::kWindowBackground);
  lbl_progress_->SetBackStyle(0);  // the bar shows behind the caption
  lbl_progress_->SetAutoSize(true);
  lbl_progress_->SetUseMnemonic(false);
  lbl_progress_->SetCaption(u"0");
  lbl_progress_->SetForeColor(system_color::kWindowText);
  lbl_progress_->SetFont(Font()->Description());
  ConnectInput();
}

ZKProgessBar::~ZKProgessBar() = default;

void ZKProgessBar::ConnectInput() {
  ISurface& surface = Surface();
  ILabelElement& label = *lbl_progress_;
  connections_.reserve(11);
  connections_.push_back(surface.Resized().Connect([this] { Layout(); }));
  ConnectCaptionInput(*this, surface, label, caption_mouse_, connections_);
}

const PropertyTable& ZKProgessBar::Properties() const {
  using property_rows::Member;
  using property_rows::Property;
  using P = ZKProgessBar;
  using PictureRow = property_rows::Row<P, Variant>;
  // Rows in the interface order; the bag reads and writes in its own order (the numbers).
  static const PropertyTable table(
      {
          Property(u"BackColor", &P::BackColor, &P::SetBackColor)
              .Archive(7)
              .New(ColorValue(system_color::kWindowBackground))
              .Bag(ColorValue(system_color::kWindowBackground), 1)
              .Store([](P& c, OLE_COLOR v) { c.Surface().SetBackColor(v); }),
          Property(u"ForeColor", &P::ForeColor, &P::SetForeColor)
              .Archive(9)
              .New(ColorValue(system_color::kWindowText))
              .Bag(ColorValue(system_color::kWindowText), 2)
              .Store([](P& c, OLE_COLOR v) { c.lbl_progress_->SetForeColor(v); }),
          Common<P>(u"Font", dispatch_id::kFont)
              .Archive(11)
              .New(Ambient::kFont, InitBy::kSetter)
              .Bag(Ambient::kFont, 3),
          Property(u"BorderStyle", &P::BorderStyle, &P::SetBorderStyle)
              .Archive(8)
              .New(Variant(int32_t{zktBSNone}))
              .Bag(Variant(int32_t{zktBSNone}), 4)
              .Store([](P& c, zktCmdBorderStyle v) {
                c.Surface().SetBorderStyle(static_cast<int16_t>(v));
              }),
          Common<P>(u"Enabled").Bag(Variant(true), 5),
          Common<P>(u"DesignMode").Archive(13).Bag(Variant(false), 6),
          Property(u"Caption", &P::Caption, &P::SetCaption, dispatch_id::kCaption)
              .Archive(12)
              .New(u"0")
              .Bag(u"0", 7)
              .Store([](P& c, const std::u16string& v) { c.lbl_progress_->SetCaption(v); }),
          Property(u"Progress", &P::Progress, &P::SetProgress)
              .Archive(1)
              .New(Variant(int32_t{0}))
              .Bag(Variant(int32_t{0}), 8)
              .Store(&P::progress_),
          Property(u"ScaleMax", &P::ScaleMax, &P::SetScaleMax)
              .Archive(6)
              .New(Variant(int32_t{100}))
              .Bag(Variant(int32_t{100}), 9)
              .Store(&P::scale_max_),
          Property(u"ScaleMin", &P::ScaleMin, &P::SetScaleMin)
              .Archive(5)
              .New(Variant(int32_t{0}))
              .Bag(Variant(int32_t{0}), 14)
              .Store(&P::scale_min_),
          Property(u"Direction", &P::Direction, &P::SetDirection)
              .Archive(3)
              .New(Variant(int32_t{zktPBLeftToRight}))
              .Bag(Variant(int32_t{zktPBLeftToRight}), 10)
              .Store(&P::direction_),
          Property(u"Percentage", &P::Percentage, &P::SetPercentage)
              .Archive(2)
              .New(Variant(false))
              .Bag(Variant(false), 11)
              .Store(&P::percentage_),
          Property(u"ShowProgress", &P::ShowProgress, &P::SetShowProgress)
              .Archive(4)
              .New(Variant(true))
              .Bag(Variant(true), 12)
              .Store(&P::show_progress_),
          Property(u"BarColor", &P::BarColor, &P::SetBarColor)
              .Archive(10)
              .New(ColorValue(0xFF0000))
              .Bag(ColorValue(0xFF0000), 13)
              .Store(&P::bar_color_),
          Common<P>(u"ControlGroup").Archive(14).Bag(u"", 15),
          PictureRow(Member(PictureMember()))
              .Bag(PictureValue(nullptr), 16)
              .Store([](P& c, const Variant& v) { c.Surface().SetPicture(PictureFrom(v)); }),
          Property(u"CaptionAnchor", &P::CaptionAnchor, &P::SetCaptionAnchor)
              .Archive(15)
              .New(Variant(int32_t{zktPAnchorCenter}))
              .Bag(Variant(int32_t{zktPAnchorCenter}), 17)
              .Store(&P::caption_anchor_),
          Common<P>(u"hWnd"),
          Common<P>(u"Refresh"),
          Common<P>(u"Clone"),
          Common<P>(u"GetArchiveStr"),
          Common<P>(u"ParseArchiveStr"),
          Common<P>(u"PopupMenu"),
          Common<P>(u"ExtraProp"),
          Common<P>(u"ExtraAction"),
      },
      {u"Click", u"MouseDown", u"MouseMove", u"MouseUp", u"DblClick"});
  return table;
}

OLE_COLOR ZKProgessBar::BackColor() const {
  return Surface().BackColor();
}

void ZKProgessBar::SetBackColor(OLE_COLOR New_BackColor) {
  Surface().SetBackColor(New_BackColor);
  Changed(u"BackColor", Effect::kRedraw);
}

OLE_COLOR ZKProgessBar::ForeColor() const {
  return lbl_progress_->ForeColor();
}

void ZKProgessBar::SetForeColor(OLE_COLOR New_ForeColor) {
  lbl_progress_->SetForeColor(New_ForeColor);
  Changed(u"ForeColor", Effect::kRedraw);
}

zktCmdBorderStyle ZKProgessBar::BorderStyle() const {
  return static_cast<zktCmdBorderStyle>(Surface().BorderStyle());
}

void ZKProgessBar::SetBorderStyle(zktCmdBorderStyle New_BorderStyle) {
  if (New_BorderStyle != zktBSNone && New_BorderStyle != zktBSSolid) return;
  Surface().SetBorderStyle(static_cast<int16_t>(New_BorderStyle));
  Changed(u"BorderStyle");
  // The inner area changed size: the bar and the caption are fitted to it again with the
  // range and the caption's text they have, so a border never counts as a redraw of the value.
  const FlagScope keep(keep_caption_text_);
  PaintBar();
  UpdateCaption();
}

std::u16string ZKProgessBar::Caption() const {
  return lbl_progress_->Caption();
}

void ZKProgessBar::SetCaption(std::u16string New_Caption) {
  lbl_progress_->SetCaption(New_Caption);
  const FlagScope keep(keep_caption_text_);
  Changed(u"Caption", Effect::kRedraw);
}

void ZKProgessBar::SetProgress(int32_t New_Progress) {
  if (New_Progress < scale_min_ || New_Progress > scale_max_) return;
  progress_ = New_Progress;
  Changed(u"Progress", Effect::kRedraw);
}

void ZKProgessBar::SetScaleMax(int32_t New_ScaleMax) {
  scale_max_ = New_ScaleMax;
  RecomputeRange();
  Changed(u"ScaleMax", Effect::kRedraw);
}

void ZKProgessBar::SetScaleMin(int32_t New_ScaleMin) {
  scale_min_ = New_ScaleMin;
  RecomputeRange();
  Changed(u"ScaleMin");
}

void ZKProgessBar::SetDirection(zktPBDirection New_Direction) {
  if (New_Direction < zktPBLeftToRight || New_Direction > zktPBTopToBottom) return;
  direction_ = New_Direction;
  Changed(u"Direction", Effect::kRedraw);
}

void ZKProgessBar::SetPercentage(bool New_Percentage) {
  percentage_ = New_Percentage;
  Changed(u"Percentage", Effect::kRedraw);
}

void ZKProgessBar::SetShowProgress(bool New_ShowProgress) {
  show_progress_ = New_ShowProgress;
  Changed(u"ShowProgress", Effect::kRedraw);
}

void ZKProgessBar::SetBarColor(OLE_COLOR New_BarColor) {
  bar_color_ = New_BarColor;
  Changed(u"BarColor", Effect::kRedraw);
}

PictureRef ZKProgessBar::Picture() const {
  return Surface().Picture();
}

void ZKProgessBar::SetPicture(PictureRef New_Picture) {
  Surface().SetPicture(std::move(New_Picture));
  Changed(u"Picture", Effect::kRedraw);
}

void ZKProgessBar::SetCaptionAnchor(zktProgressBarAnchor New_CaptionAnchor) {
  if (New_CaptionAnchor < zktPAnchorCenter || New_CaptionAnchor > zktPAnchorBelowLevel) return;
  caption_anchor_ = New_CaptionAnchor;
  Changed(u"CaptionAnchor");
  UpdateCaption();
}

void ZKProgessBar::RecomputeRange() {
  const int64_t range = int64_t{scale_max_} - int64_t{scale_min_};
  if (range > std::numeric_limits<int32_t>::max() || range < std::numeric_limits<int32_t>::min()) {
    throw ZKError::Overflow();
  }
  range_ = range == 0 ? 1 : static_cast<int32_t>(range);
}

double ZKProgessBar::Fraction() const {
  return (static_cast<double>(progress_) - static_cast<double>(scale_min_)) / range_;
}

void ZKProgessBar::PaintBar() {
  ISurface& surface = Surface();
  IgnoringFailure([&] {
    const double f = Fraction();
    const double w = surface.ScaleWidth();
    const double h = surface.ScaleHeight();
    surface.Cls();
    switch (direction_) {
      case zktPBLeftToRight:
        surface.FillRect(0, 0, f * w, h, bar_color_);
        break;
      case zktPBRightToLeft:
        surface.FillRect(w - f * w, 0, w, h, bar_color_);
        break;
      case zktPBBottomToTop:
        surface.FillRect(0, h - f * h, w, h, bar_color_);
        break;
      case zktPBTopToBottom:
        surface.FillRect(0, 0, w, f * h, bar_color_);
        break;
    }
  });
}

void ZKProgessBar::Redraw() {
  RecomputeRange();
  PaintBar();
  UpdateCaption();
}

void ZKProgessBar::UpdateCaption() {
  try {
    if (show_progress_ && !keep_caption_text_) {
      lbl_progress_->SetCaption(percentage_ ? PercentText(Fraction()) : DecimalText(progress_));
    }
    PlaceCaption();
  } catch (...) {
    MDebugUtils::TraceError(Name(), u"UpdateCaption");
  }
}

void ZKProgessBar::PlaceCaption() {
  ILabelElement& label = *lbl_progress_;
  const ISurface& surface = Surface();
  const double w = surface.ScaleWidth();
  const double h = surface.ScaleHeight();
  const double lw = label.Width();
  const double lh = label.Height();
  const double f = Fraction();
  double left = 0;
  double top = 0;
  switch (direction_) {
    case zktPBLeftToRight:
    case zktPBRightToLeft: {
      const bool grows_right = direction_ == zktPBLeftToRight;
      const double level = grows_right ? f * w : w - f * w;
      left = AlongAxis(caption_anchor_, grows_right, w, level, lw);
      top = HalfOf(h - lh);
      break;
    }
    case zktPBBottomToTop:
    case zktPBTopToBottom: {
      const bool grows_down = direction_ == zktPBTopToBottom;
      const double level = grows_down ? f * h : h - f * h;
      left = HalfOf(w - lw);
      top = AlongAxis(caption_anchor_, grows_down, h, level, lh);
      break;
    }
    default:
      // A direction read unchecked from stored properties: the caption stays centred.
      left = HalfOf(w - lw);
      top = HalfOf(h - lh);
      break;
  }
  label.Move(left, top, lw, lh);
}

void ZKProgessBar::DrawBarTraced(std::u16string_view procedure) {
  try {
    Redraw();
  } catch (...) {
    MDebugUtils::TraceError(Name(), procedure);
  }
}

void ZKProgessBar::Layout() {
  if (laying_out_) return;
  const FlagScope guard(laying_out_);
  ISurface& surface = Surface();
  const ILabelElement& label = *lbl_progress_;
  // The control is never smaller than its caption; the size it grows by is what the inner
  // area lacks.
  IgnoringFailure([&] {
    if (surface.ScaleWidth() < label.Width()) {
      surface.SetSize(surface.Width() + label.Width() - surface.ScaleWidth(), surface.Height());
    }
  });
  IgnoringFailure([&] {
    if (surface.ScaleHeight() < label.Height()) {
      surface.SetSize(surface.Width(), surface.Height() + label.Height() - surface.ScaleHeight());
    }
  });
  DrawBarTraced(u"Resize");
}

void ZKProgessBar::OnFontChanged() {
  lbl_progress_->SetFont(Font()->Description());
  Layout();
}

void ZKProgessBar::OnEnabledChanged(bool enabled) {
  lbl_progress_->SetEnabled(enabled);
}

void ZKProgessBar::AfterInitProperties() {
  Layout();
}

void ZKProgessBar::AfterReadProperties() {
  lbl_progress_->SetFont(Font()->Description());
  lbl_progress_->SetEnabled(Enabled());
  DrawBarTraced(u"ReadProperties");
}

}  // namespace zk
