#include <string>
#include <vector>

#include "apps/gallery_sections.h"
#include "controls/display/label.h"
#include "controls/display/progress_bar.h"
#include "controls/slider/slider.h"
#include "foundation/low_level_utils.h"
#include "foundation/string_utils.h"
#include "hosting/form.h"

namespace zk {
namespace {

constexpr double kPixel = 15;  // twips at the gallery's 96 dpi
constexpr double kRow = 32 * kPixel;
constexpr double kThickness = 25 * kPixel;

ZKControl& Place(Form& form, std::u16string_view kind, std::u16string_view name, double left,
                 double top, double width, double height) {
  ZKControl& control = form.AddControl(kind, name);
  DispatchObject& extender = *form.FindExtender(name);
  extender.SetProperty(u"Left", Variant(left));
  extender.SetProperty(u"Top", Variant(top));
  extender.SetProperty(u"Width", Variant(width));
  extender.SetProperty(u"Height", Variant(height));
  return control;
}

ZKSlider& PlaceSlider(Form& form, std::u16string_view name, double left, double top, double width,
                      double height) {
  return static_cast<ZKSlider&>(Place(form, u"ZKSlider", name, left, top, width, height));
}

ZKLabel& PlaceNote(Form& form, std::u16string_view name, double left, double top, double width,
                   double height, std::u16string_view caption) {
  auto& note = static_cast<ZKLabel&>(Place(form, u"ZKLabel", name, left, top, width, height));
  note.SetCaption(std::u16string(caption));
  note.SetBorderMargin(0);
  return note;
}

// The label that shows a slider's value follows it for as long as the gallery runs.
std::vector<ScopedConnection>& Bindings() {
  static std::vector<ScopedConnection> bindings;
  return bindings;
}

}  // namespace

void BuildSliderGallery(Form& form, double left, double top, double width, double /*height*/) {
  auto& title = PlaceNote(form, u"SliderTitle", left, top, width, 300,
                          u"Sliders: drag a thumb, click the track, hold a jog, use the arrow keys "
                          u"or the wheel");
  title.SetVerticalAlignment(zktTextVAlignTop);

  const double column = 5100;
  double row = top + 360;

  auto& plain = PlaceSlider(form, u"SldLeftToRight", left, row, column, kThickness);
  plain.SetShowValue(true);
  plain.SetShowGuide(true);
  plain.SetGuideColor(0x808080);
  plain.SetSliderBackColor(0xF0D8A8);
  plain.SetValue(40);
  PlaceNote(form, u"SldLeftToRightNote", left + column + 120, row, 2700, kThickness,
            u"Left to right, guide");

  row += kRow;
  auto& decimals = PlaceSlider(form, u"SldRightToLeft", left, row, column, kThickness);
  decimals.SetDirection(zktSBRightToLeft);
  decimals.SetMax(1);
  decimals.SetStep(0.01);
  decimals.SetDecimals(2);
  decimals.SetDecimalSep(u",");
  decimals.SetPadDecimals(true);
  decimals.SetShowValue(true);
  decimals.SetSliderWidth(600);
  decimals.SetBorderStyle(zktBSSolid);
  decimals.SetSliderBackColor(0xB8E8C8);
  decimals.SetValue(0.25);
  PlaceNote(form, u"SldRightToLeftNote", left + column + 120, row, 2700, kThickness,
            u"Right to left, \",\" decimals, border");

  row += kRow;
  auto& captioned = PlaceSlider(form, u"SldCaption", left, row, column, kThickness);
  captioned.SetCaption(u"Volume");
  captioned.SetSliderWidth(1050);
  captioned.SetShowGuide(true);
  captioned.SetGuideWidth(3);
  captioned.SetGuideColor(0xC06020);
  captioned.SetJogsShape(shape_code::kRoundedRectangle);
  captioned.SetSliderShape(shape_code::kRoundedRectangle);
  captioned.SetJogsBackColor(0xE8E8E8);
  captioned.SetSliderBackColor(0xC06020);
  captioned.SetSliderForeColor(0xFFFFFF);
  captioned.SetBackColor(0xF4F4F4);
  captioned.SetValue(70);
  PlaceNote(form, u"SldCaptionNote", left + column + 120, row, 2700, kThickness,
            u"A caption on the thumb");

  row += kRow;
  auto& bound = PlaceSlider(form, u"SldBound", left, row, column, kThickness);
  bound.SetStep(5);
  bound.SetMinInterval(5);
  bound.SetShowGuide(true);
  // A progress bar and a label follow it.
  auto& bar = static_cast<ZKProgessBar&>(
      Place(form, u"ZKProgessBar", u"SldBoundBar", left + column + 120, row, 1200, kThickness));
  bar.SetShowProgress(true);
  auto& follower =
      PlaceNote(form, u"SldBoundValue", left + column + 1440, row, 1380, kThickness, u"");
  auto show = [&bound, &bar, &follower] {
    const double value = bound.Value();
    bar.SetProgress(MLowLevelUtils::RoundToInt32(value));
    follower.SetCaption(MStringUtils::FormatNumberText(value, u".", -1, false) + u", steps of 5");
  };
  Bindings().push_back(bound.Change.Connect(show));
  bound.SetValue(25);

  row += kRow;
  auto& disabled = PlaceSlider(form, u"SldDisabled", left, row, column, kThickness);
  disabled.SetShowValue(true);
  disabled.SetValue(60);
  disabled.SetEnabled(false);
  PlaceNote(form, u"SldDisabledNote", left + column + 120, row, 2700, kThickness, u"Disabled");

  // Upright sliders beside them.
  const double upright_left = left + column + 2940;
  const double upright_height = 5 * kRow - (kRow - kThickness);
  auto& down =
      PlaceSlider(form, u"SldTopToBottom", upright_left, top + 360, 30 * kPixel, upright_height);
  down.SetDirection(zktSBTopToBottom);
  down.SetShowValue(true);
  down.SetShowGuide(true);
  down.SetSliderBackColor(0xA8D8F0);
  down.SetValue(30);
  auto& up = PlaceSlider(form, u"SldBottomToTop", upright_left + 40 * kPixel, top + 360,
                         30 * kPixel, upright_height);
  up.SetDirection(zktSBBottomtoTop);
  up.SetShowValue(true);
  up.SetShowGuide(true);
  up.SetBorderStyle(zktBSSolid);
  up.SetSliderBackColor(0xA8D8F0);
  up.SetValue(75);
  auto& upright_note =
      PlaceNote(form, u"SldUprightNote", upright_left + 90 * kPixel, top + 360, 2700,
                upright_height, u"Top to bottom, and bottom to top with a border");
  upright_note.SetWordWrap(true);
  upright_note.SetVerticalAlignment(zktTextVAlignTop);
}

}  // namespace zk
