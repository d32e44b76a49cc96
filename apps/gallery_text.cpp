#include <string>

#include "apps/gallery_place.h"
#include "apps/gallery_sections.h"
#include "controls/display/label.h"
#include "controls/text/multi_line_text_edit.h"
#include "controls/text/text_edit.h"
#include "hosting/form.h"

namespace zk {
namespace {

constexpr double kTitleHeight = 300;
constexpr double kRowHeight = 450;
constexpr double kEditHeight = 315;
constexpr double kLabelWidth = 900;
constexpr double kColumnGap = 150;

// One entry of the section: what it shows, and how its editor is set up.
struct TextSample {
  std::u16string_view name;
  std::u16string_view caption;
  std::u16string_view text;
  zktTextDataType data_type = zktTDText;
};

}  // namespace

void BuildTextGallery(Form& form, double left, double top, double width, double height) {
  auto& title =
      static_cast<ZKLabel&>(Place(form, u"ZKLabel", u"TextTitle", left, top, width, kTitleHeight));
  title.SetCaption(u"Text edits: typed values, checked on leaving");
  title.SetVerticalAlignment(zktTextVAlignTop);
  title.SetBorderMargin(0);

  const double column = (width - kColumnGap) / 2;
  const double edit_width = column - kLabelWidth;
  // Nine one-line editors fill two columns top to bottom; the multi-line one takes the last
  // place and whatever height is left below it.
  const TextSample samples[] = {
      {u"TextPlain", u"Text", u"Free text"},
      {u"TextInteger", u"Integer", u"-42", zktTDInteger},
      {u"TextDecimal", u"Decimal ,", u"3,1415", zktTDDecimal},
      {u"TextDate", u"Date", u"12/05/2005", zktTDDate},
      {u"TextTime", u"Time", u"10:30:15", zktTDHour},
      {u"TextDateTime", u"Date+time", u"1/5/2005 9:30", zktTDDateHour},
      {u"TextPattern", u"Pattern", u"12-ab"},
      {u"TextUpper", u"Upper", u"forced upper"},
      {u"TextPassword", u"Password", u"secret"},
  };
  int index = 0;
  for (const TextSample& sample : samples) {
    const double x = left + (index / 5) * (column + kColumnGap);
    const double y = top + kTitleHeight + (index % 5) * kRowHeight;
    auto& label = static_cast<ZKLabel&>(Place(
        form, u"ZKLabel", std::u16string(sample.name) + u"Name", x, y, kLabelWidth, kEditHeight));
    label.SetCaption(std::u16string(sample.caption));
    label.SetBorderMargin(0);
    auto& edit = static_cast<ZKTextEdit&>(
        Place(form, u"ZKTextEdit", sample.name, x + kLabelWidth, y, edit_width, kEditHeight));
    edit.SetDataType(sample.data_type);
    ++index;
  }
  auto edit = [&form](std::u16string_view name) -> ZKTextEdit& {
    return static_cast<ZKTextEdit&>(*form.FindControl(name));
  };
  edit(u"TextDecimal").SetDecimalSep(u",");
  edit(u"TextDecimal").SetArrowKeyIncrement(0.5);
  edit(u"TextInteger").SetArrowKeyIncrement(1);
  edit(u"TextInteger").SetAlignment(zktTextAlignRight);
  edit(u"TextPattern").SetTextFormat(u"##-??");
  edit(u"TextUpper").SetForceTextCase(zktTForceUpperCase);
  edit(u"TextPassword").SetPasswordChar(u"*");
  edit(u"TextDate").SetAppearance(zktAp3d);
  // The texts go in last, so that the case forcing and the alignment show on them.
  for (const TextSample& sample : samples)
    edit(sample.name).SetText(std::u16string(sample.text));

  const double x = left + column + kColumnGap;
  const double y = top + kTitleHeight + 4 * kRowHeight;
  auto& label = static_cast<ZKLabel&>(
      Place(form, u"ZKLabel", u"TextMultiLineName", x, y, kLabelWidth, kEditHeight));
  label.SetCaption(u"Multi-line");
  label.SetBorderMargin(0);
  const double multi_height = top + height - y > kEditHeight ? top + height - y : kEditHeight;
  auto& multi =
      static_cast<ZKMultiLineTextEdit&>(Place(form, u"ZKMultiLineTextEdit", u"TextMultiLine",
                                              x + kLabelWidth, y, edit_width, multi_height));
  multi.SetText(u"First line\r\nSecond line");
}

}  // namespace zk
