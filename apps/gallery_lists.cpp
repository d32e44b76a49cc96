#include <string>

#include "apps/gallery_sections.h"
#include "controls/display/label.h"
#include "controls/lists/edit_list.h"
#include "foundation/text_encoding.h"
#include "hosting/form.h"

namespace zk {
namespace {

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

ZKEditList& PlaceList(Form& form, std::u16string_view name, double left, double top, double width,
                      double height) {
  return static_cast<ZKEditList&>(Place(form, u"ZKEditList", name, left, top, width, height));
}

void PlaceNote(Form& form, std::u16string_view name, double left, double top, double width,
               std::u16string_view caption) {
  auto& note = static_cast<ZKLabel&>(Place(form, u"ZKLabel", name, left, top, width, 270));
  note.SetCaption(std::u16string(caption));
  note.SetBorderMargin(0);
  note.SetVerticalAlignment(zktTextVAlignTop);
}

std::u16string Number(int value) {
  return Utf8ToUtf16(std::to_string(value));
}

// A date of the year 2024, day `day` counted from 1 January, as "dd/mm/yyyy".
std::u16string DateOf(int day) {
  static constexpr int kMonthDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  int month = 0;
  day %= 366;
  while (day >= kMonthDays[month])
    day -= kMonthDays[month++];
  const auto two = [](int value) { return value < 10 ? u"0" + Number(value) : Number(value); };
  return two(day + 1) + u"/" + two(month + 1) + u"/2024";
}

}  // namespace

void BuildListGallery(Form& form, double left, double top, double width, double height) {
  const double gap = 120;
  const double note = 300;
  const double half = (width - gap) / 2;
  const double box = (height - 2 * (note + gap)) / 2;

  PlaceNote(form, u"ListTitleLeft", left, top, half,
            u"Edit lists: tags on the left; click a cell");
  auto& fruits = PlaceList(form, u"ElsTagsLeft", left, top + note, half, box);
  fruits.SetShowTags(true);
  fruits.SetTagColumnWidth(900);
  fruits.SetLocked(false);
  fruits.SetSortOrder(zktSortAtoZ);
  const char16_t* fruit_rows[][2] = {
      {u"Apple", u"A-01"}, {u"Banana", u"B-07"}, {u"Cherry", u"C-12"}, {u"Damson", u"D-03"},
      {u"Elder", u"E-44"}, {u"Fig", u"F-20"},    {u"Grape", u"G-05"},  {u"Hawthorn", u"H-61"},
      {u"Kiwi", u"K-02"},  {u"Lemon", u"L-15"}};
  for (const auto& row : fruit_rows)
    fruits.AddItem(row[0], Variant(), row[1]);
  fruits.SetListIndex(2);

  PlaceNote(form, u"ListTitleRight", left + half + gap, top, half,
            u"Tags on the right, editable amounts");
  auto& amounts = PlaceList(form, u"ElsTagsRight", left + half + gap, top + note, half, box);
  amounts.SetShowTags(true);
  amounts.SetTagColumnPosition(zktTagPosRight);
  amounts.SetTagColumnWidth(1200);
  amounts.SetEditTags(true);
  amounts.SetLocked(false);
  amounts.SetTagDataType(zktTDDecimal);
  amounts.SetTagBackColor(0xFFF0E0);  // light blue (blue, green, red)
  amounts.SetBorderStyle(zktBSNone);
  amounts.SetAppearance(zktAp3d);
  const char16_t* amount_rows[][2] = {{u"Rent", u"1200.00"},     {u"Power", u"84.50"},
                                      {u"Water", u"31.20"},      {u"Phone", u"19.99"},
                                      {u"Insurance", u"46.75"},  {u"Transport", u"62.00"},
                                      {u"Groceries", u"310.40"}, {u"Books", u"24.90"}};
  for (const auto& row : amount_rows)
    amounts.AddItem(row[0], Variant(), row[1]);

  const double second = top + note + box + gap;
  PlaceNote(form, u"ListTitleMany", left, second, half,
            u"400 rows, dates in the tag column");
  auto& many = PlaceList(form, u"ElsManyRows", left, second + note, half, box);
  many.SetShowTags(true);
  many.SetTagColumnWidth(1300);
  many.SetTagDataType(zktTDDate);
  many.SetLocked(false);
  many.SetEditTags(true);
  many.SetAppearance(zktAp3d);
  many.SetHorizontalScrollBar(2);
  for (int row = 0; row < 400; ++row) {
    many.AddItem(u"Delivery " + Number(row + 1), Variant(), DateOf((row * 37) % 366));
  }
  many.SetTopIndex(120);

  PlaceNote(form, u"ListTitleDisabled", left + half + gap, second, half, u"Disabled");
  auto& disabled = PlaceList(form, u"ElsDisabled", left + half + gap, second + note, half, box);
  disabled.SetShowTags(true);
  disabled.SetTagColumnWidth(700);
  for (int row = 0; row < 6; ++row)
    disabled.AddItem(u"Entry " + Number(row + 1));
  disabled.SetListIndex(1);
  disabled.SetEnabled(false);
}

}  // namespace zk
