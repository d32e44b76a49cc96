// A slider's properties: what each write checks and notifies, the back colour that follows the
// container, the 29-element archive string in its order, the property bag and Clone.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/archive_utils.h"
#include "foundation/zk_error.h"
#include "hosting/archive_explainer.h"
#include "platform/common/memory_property_bag.h"
#include "tests/slider/slider_fixture.h"

namespace zk {
namespace {

// The elements of a control's archive string after the extender block.
std::vector<std::u16string> Fields(ZKControl& control) {
  std::vector<std::u16string> elements =
      MArchiveUtils::ArchiveSplitElements(control.GetArchiveStr());
  elements.erase(elements.begin());
  return elements;
}

// Gives a slider a value other than the new control's for every archived property.
void MakeUnusual(ZKSlider& slider) {
  slider.SetDirection(zktSBBottomtoTop);
  slider.SetSliderForeColor(0x112233);
  slider.SetSliderBackColor(0x445566);
  slider.SetJogsForeColor(0x778899);
  slider.SetJogsBackColor(0xAABBCC);
  slider.SetGuideColor(0x0000FF);
  slider.SetMin(-20);
  slider.SetMax(80);
  slider.SetStep(2.5);
  slider.SetSliderWidth(420.5);
  slider.SetGuideWidth(3);
  slider.SetShowValue(true);
  slider.SetPadDecimals(true);
  slider.SetDecimalSep(u",");
  slider.SetDecimals(2);
  slider.SetValue(12.75);
  slider.SetShowGuide(true);
  slider.SetBackColor(0xE0FFE0);
  slider.SetBorderStyle(zktBSSolid);
  FontRef font = slider.Font()->Clone();
  font->SetName(u"Arial");
  font->SetSize(10);
  font->SetBold(true);
  slider.SetFont(font);
  slider.SetDesignMode(true);
  slider.SetControlGroup(u"audio");
  slider.SetJogsShape(shape_code::kOval);
  slider.SetSliderShape(shape_code::kRoundedRectangle);
  slider.SetCaption(u"Level");
  slider.SetShowFocus(2);
  slider.SetMinInterval(0.75);
}

TEST_F(SliderTest, ANewSlidersArchiveString) {
  ZKSlider& slider = Place(u"S");
  const std::vector<std::u16string> expected = {u"0",
                                                u"-2147483630",
                                                u"-2147483633",
                                                u"-2147483630",
                                                u"-2147483633",
                                                u"0",
                                                u"0",
                                                u"100",
                                                u"1",
                                                u"350",
                                                u"1",
                                                u"F",
                                                u"F",
                                                u"\".\"",
                                                u"0",
                                                u"0",
                                                u"F",
                                                u"16777215",
                                                u"F",
                                                u"0",
                                                u"\"MS Sans Serif\"#8.25#F#F#F#F",
                                                u"F",
                                                u"\"\"",
                                                u"0",
                                                u"0",
                                                u"\"\"",
                                                u"1",
                                                u"0"};
  EXPECT_EQ(Fields(slider), expected);
  EXPECT_EQ(slider.ArchiveFields().size(), 28u);
}

TEST_F(SliderTest, TheArchiveStringCarriesEveryPropertyToAnotherSlider) {
  ZKSlider& source = Place(u"Source");
  MakeUnusual(source);
  form_.MoveControl(u"Source", 120, 240, 450, 3015);
  ZKSlider& copy = Place(u"Copy");
  Events();
  ASSERT_TRUE(copy.ParseArchiveStr(source.GetArchiveStr()));
  EXPECT_EQ(Fields(copy), Fields(source));
  EXPECT_EQ(copy.Value(), 12.75);
  EXPECT_EQ(copy.Direction(), zktSBBottomtoTop);
  EXPECT_EQ(copy.Font()->Name(), u"Arial");
  EXPECT_EQ(copy.IncrementJog().BackColor(), 0xAABBCCu);
  EXPECT_EQ(copy.IncrementJog().Shape(), shape_code::kOval);
  EXPECT_EQ(copy.Thumb().Caption(), u"12,75");
  DispatchObject& extender = *form_.FindExtender(u"Copy");
  EXPECT_EQ(extender.GetProperty(u"Left").ToDouble(), 120);
  EXPECT_EQ(extender.GetProperty(u"Height").ToDouble(), 3015);
  EXPECT_EQ(extender.GetProperty(u"Name").ToText(), u"Copy");
  EXPECT_EQ(Changes(), 1);
  // Clone does the same by name.
  ZKSlider& clone = Place(u"Clone");
  Variant argument(form_.ControlRef(u"Source"));
  clone.CallMethod(u"Clone", std::span<Variant>(&argument, 1));
  EXPECT_EQ(Fields(clone), Fields(source));
}

TEST_F(SliderTest, ArchiveElementsApplyInTheirOrder) {
  struct Row {
    const char* what;
    // Element index and its text, over a new slider's string.
    std::vector<std::pair<size_t, std::u16string>> elements;
    double value;
    bool ambient;
    OLE_COLOR back_color;
  };
  const std::vector<Row> rows = {
      {"Value within the archived Max", {{8, u"200"}, {16, u"150"}}, 150, false, 0xFFFFFF},
      {"Value clamped to the archived Max", {{8, u"100"}, {16, u"150"}}, 100, false, 0xFFFFFF},
      {"Value clamped to the archived Min", {{7, u"10"}, {16, u"5"}}, 10, false, 0xFFFFFF},
      {"Value below 0 within the archived Min", {{7, u"-10"}, {16, u"-5"}}, -5, false, 0xFFFFFF},
      // BackColor switches AmbientBackColor off; its own element, read after it, switches it
      // back on and takes the container's colour.
      {"AmbientBackColor after BackColor",
       {{18, u"255"}, {19, u"T"}},
       0,
       true,
       system_color::kButtonFace},
      {"BackColor alone", {{18, u"255"}}, 0, false, 255},
  };
  for (const Row& row : rows) {
    ZKSlider& slider = Place(u"S");
    std::vector<std::u16string> elements =
        MArchiveUtils::ArchiveSplitElements(slider.GetArchiveStr());
    for (const auto& [index, text] : row.elements)
      elements[index] = text;
    EXPECT_TRUE(slider.ParseArchiveStr(MArchiveUtils::ArchiveJoinElements(elements))) << row.what;
    EXPECT_EQ(slider.Value(), row.value) << row.what;
    EXPECT_EQ(slider.AmbientBackColor(), row.ambient) << row.what;
    EXPECT_EQ(slider.BackColor(), row.back_color) << row.what;
    form_.RemoveControl(u"S");
  }
}

TEST_F(SliderTest, ArchiveStringsThatFail) {
  ZKSlider& slider = Place(u"S");
  const std::vector<std::u16string> full =
      MArchiveUtils::ArchiveSplitElements(slider.GetArchiveStr());
  // Only the first five elements: elements 1 to 4 are applied.
  std::vector<std::u16string> first(full.begin(), full.begin() + 5);
  first[1] = u"1";
  first[4] = u"255";
  EXPECT_FALSE(slider.ParseArchiveStr(MArchiveUtils::ArchiveJoinElements(first)));
  EXPECT_EQ(slider.Direction(), zktSBTopToBottom);
  EXPECT_EQ(slider.JogsForeColor(), 255u);
  EXPECT_EQ(Traces(), (std::vector<std::u16string>{u"ParseArchiveStr (el: 5) | 9"}));
  // A refused value is no failure: the write ignores it and the string is taken.
  std::vector<std::u16string> refused = full;
  refused[1] = u"9";
  refused[11] = u"9000";
  EXPECT_TRUE(slider.ParseArchiveStr(MArchiveUtils::ArchiveJoinElements(refused)));
  EXPECT_EQ(slider.Direction(), zktSBTopToBottom);
  EXPECT_EQ(slider.JogsForeColor(), system_color::kButtonText);
  EXPECT_EQ(slider.GuideWidth(), 1);
  // A value that cannot be quantised stops the string there, with the elements before it
  // applied; elements beyond the 29th are ignored.
  slider.SetMinInterval(0.4);
  std::vector<std::u16string> quantised = full;
  quantised[8] = u"60";
  quantised[16] = u"30";
  quantised.push_back(u"surplus");
  EXPECT_FALSE(slider.ParseArchiveStr(MArchiveUtils::ArchiveJoinElements(quantised)));
  EXPECT_EQ(slider.Max(), 60);
  EXPECT_EQ(slider.Value(), 0);
  EXPECT_EQ(Traces(), (std::vector<std::u16string>{u"ParseArchiveStr (el: 16) | 11"}));
  slider.SetMinInterval(0);
  EXPECT_TRUE(slider.ParseArchiveStr(MArchiveUtils::ArchiveJoinElements(quantised)));
  EXPECT_EQ(slider.Value(), 30);
}

TEST_F(SliderTest, RefusedWritesChangeAndNotifyNothing) {
  struct Row {
    std::u16string_view property;
    Variant value;
  };
  const std::vector<Row> rows = {
      {u"BorderStyle", Variant(int32_t{2})}, {u"BorderStyle", Variant(int32_t{-1})},
      {u"Direction", Variant(int32_t{4})},   {u"Direction", Variant(int32_t{-1})},
      {u"SliderWidth", Variant(0.0)},        {u"SliderWidth", Variant(-350.0)},
      {u"GuideWidth", Variant(int32_t{0})},  {u"GuideWidth", Variant(int32_t{8193})},
      {u"GuideWidth", Variant(int32_t{-1})}, {u"MinInterval", Variant(-0.5)},
  };
  for (const Row& row : rows) {
    ZKSlider& slider = Place(u"S");
    const std::vector<std::u16string> before = Fields(slider);
    slider.SetProperty(row.property, row.value);
    EXPECT_EQ(Fields(slider), before) << Utf8(row.property);
    EXPECT_EQ(Notified(), std::vector<std::u16string>{}) << Utf8(row.property);
    form_.RemoveControl(u"S");
  }
  // The limits of what is taken.
  const std::vector<Row> taken = {
      {u"GuideWidth", Variant(int32_t{1})},  {u"GuideWidth", Variant(int32_t{8192})},
      {u"SliderWidth", Variant(0.5)},        {u"Direction", Variant(int32_t{3})},
      {u"BorderStyle", Variant(int32_t{1})}, {u"MinInterval", Variant(0.0)},
  };
  for (const Row& row : taken) {
    ZKSlider& slider = Place(u"S");
    slider.SetProperty(row.property, row.value);
    EXPECT_TRUE(MemoryPropertyBag::SameValue(slider.GetProperty(row.property), row.value))
        << Utf8(row.property);
    EXPECT_EQ(Notified(), std::vector<std::u16string>{std::u16string(row.property)});
    form_.RemoveControl(u"S");
  }
  // Beyond a 32-bit float the thumb's length overflows.
  ZKSlider& slider = Place(u"S");
  EXPECT_THROW(slider.SetProperty(u"SliderWidth", Variant(1e39)), ZKError);
  EXPECT_EQ(slider.SliderWidth(), 350);
}

TEST_F(SliderTest, WhatEachWriteNotifiesAndChanges) {
  struct Row {
    std::u16string_view property;
    Variant value;
    std::vector<std::u16string> notified;
    int changes;
  };
  const std::vector<Row> rows = {
      {u"Value", Variant(5.0), {u"Value"}, 1},
      {u"Value", Variant(0.0), {}, 0},
      {u"Min", Variant(10.0), {u"Min"}, 0},
      {u"Max", Variant(-10.0), {u"Max"}, 0},
      {u"BackColor", Variant(int32_t{255}), {u"AmbientBackColor", u"BackColor"}, 0},
      {u"AmbientBackColor", Variant(true), {u"BackColor", u"AmbientBackColor"}, 0},
      {u"Decimals", Variant(int32_t{-5}), {u"Decimals"}, 0},
      {u"JogsShape", Variant(int32_t{9}), {u"JogsShape"}, 0},
      {u"Caption", Variant(u"x"), {u"Caption"}, 0},
      {u"Enabled", Variant(false), {u"Enabled"}, 0},
      {u"DesignMode", Variant(true), {u"DesignMode"}, 0},
      {u"ShowGuide", Variant(true), {u"ShowGuide"}, 0},
      {u"GuideColor", Variant(int32_t{255}), {u"GuideColor"}, 0},
      {u"ShowFocus", Variant(int32_t{3}), {u"ShowFocus"}, 0},
  };
  for (const Row& row : rows) {
    ZKSlider& slider = Place(u"S");
    slider.SetProperty(row.property, row.value);
    EXPECT_EQ(Notified(), row.notified) << Utf8(row.property);
    EXPECT_EQ(Changes(), row.changes) << Utf8(row.property);
    form_.RemoveControl(u"S");
  }
  // Limits bring the value along without telling anyone.
  ZKSlider& slider = Place(u"S");
  slider.SetValue(50);
  Events();
  slider.SetMax(40);
  EXPECT_EQ(slider.Value(), 40);
  slider.SetMax(100);
  slider.SetMin(45);
  EXPECT_EQ(slider.Value(), 45);
  EXPECT_EQ(Changes(), 0);
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"Value", u"Max", u"Max", u"Min"}));
}

TEST_F(SliderTest, ColoursShapesAndFocusGoToTheirButtons) {
  ZKSlider& slider = Place(u"S");
  slider.SetJogsBackColor(0x102030);
  slider.SetJogsForeColor(0x405060);
  slider.SetSliderBackColor(0x708090);
  slider.SetSliderForeColor(0xA0B0C0);
  slider.SetJogsShape(shape_code::kCircle);
  slider.SetSliderShape(shape_code::kOval);
  slider.SetShowFocus(4);
  for (const ZKColorButton* jog : {&slider.DecrementJog(), &slider.IncrementJog()}) {
    EXPECT_EQ(jog->BackColor(), 0x102030u);
    EXPECT_EQ(jog->ForeColor(), 0x405060u);
    EXPECT_EQ(jog->Shape(), shape_code::kCircle);
  }
  EXPECT_EQ(slider.Thumb().BackColor(), 0x708090u);
  EXPECT_EQ(slider.Thumb().ForeColor(), 0xA0B0C0u);
  EXPECT_EQ(slider.Thumb().Shape(), shape_code::kOval);
  EXPECT_EQ(slider.Thumb().ShowFocus(), 4);
  // What the buttons refuse, the slider reports as the buttons have it.
  slider.SetJogsShape(7);
  slider.SetShowFocus(-9);
  EXPECT_EQ(slider.JogsShape(), shape_code::kCircle);
  EXPECT_EQ(slider.ShowFocus(), 4);
}

TEST_F(SliderTest, TheBackColourFollowsTheContainerWhileAsked) {
  ZKSlider& slider = Place(u"S");
  EXPECT_FALSE(slider.AmbientBackColor());
  EXPECT_EQ(slider.BackColor(), 0xFFFFFFu);
  form_.SetAmbient(u"BackColor", Variant(int32_t{0xC0C0C0}));
  EXPECT_EQ(slider.BackColor(), 0xFFFFFFu);
  slider.SetAmbientBackColor(true);
  EXPECT_EQ(slider.BackColor(), 0xC0C0C0u);
  form_.SetAmbient(u"BackColor", Variant(int32_t{0x80FF80}));
  EXPECT_EQ(slider.BackColor(), 0x80FF80u);
  EXPECT_TRUE(slider.AmbientBackColor());
  EXPECT_EQ(form_.FindSite(u"S")->Surface().BackColor(), 0x80FF80u);
  slider.SetBackColor(0x0000FF);
  EXPECT_FALSE(slider.AmbientBackColor());
  form_.SetAmbient(u"BackColor", Variant(int32_t{0x123456}));
  EXPECT_EQ(slider.BackColor(), 0x0000FFu);
}

TEST_F(SliderTest, AFontWithoutAnObjectIsTracedAndChangesNothing) {
  ZKSlider& slider = Place(u"S");
  const FontRef font = slider.Font();
  slider.SetFont(nullptr);
  EXPECT_EQ(slider.Font(), font);
  EXPECT_EQ(Traces(), (std::vector<std::u16string>{u"Font (SET) | -1"}));
  EXPECT_EQ(Notified(), std::vector<std::u16string>{});
  // The slider keeps a copy of a font it is given.
  FontRef given = font->Clone();
  given->SetSize(14);
  slider.SetFont(given);
  given->SetSize(20);
  EXPECT_EQ(slider.Font()->Size(), 14);
  EXPECT_EQ(slider.DecrementJog().Font()->Size(), 18);
}

TEST_F(SliderTest, ThePropertyBagKeepsEveryValueAndReadingNotifiesNothing) {
  ZKSlider& source = Place(u"Source");
  MakeUnusual(source);
  MemoryPropertyBag bag;
  source.WriteProperties(bag);
  // The keys in the order they are written.
  std::vector<std::u16string> keys;
  for (const auto& [key, value] : bag.Entries())
    keys.push_back(key);
  EXPECT_EQ(keys, (std::vector<std::u16string>{u"Font",          u"BorderStyle",
                                               u"Direction",     u"SliderForeColor",
                                               u"JogsBackColor", u"SliderBackColor",
                                               u"JogsForeColor", u"Min",
                                               u"Max",           u"Step",
                                               u"DesignMode",    u"Value",
                                               u"SliderWidth",   u"ShowValue",
                                               u"DecimalSep",    u"Decimals",
                                               u"PadDecimals",   u"ShowGuide",
                                               u"GuideWidth",    u"GuideColor",
                                               u"BackColor",     u"ControlGroup",
                                               u"JogsShape",     u"SliderShape",
                                               u"Caption",       u"ShowFocus",
                                               u"MinInterval"}));
  ZKSlider& loaded = Place(u"Loaded");
  Events();
  loaded.ReadProperties(bag);
  EXPECT_EQ(Notified(), std::vector<std::u16string>{});
  EXPECT_EQ(Events(), std::vector<std::u16string>{});
  EXPECT_EQ(Fields(loaded), Fields(source));
  // Read values are placed at once: the range, the glyphs, the enabled look and the layout.
  EXPECT_EQ(Box(loaded, u"cmdSlider"), Box(source, u"cmdSlider"));
  EXPECT_EQ(loaded.IncrementJog().ForeColor(), 0x778899u);
  EXPECT_TRUE(loaded.Thumb().DesignMode());
}

TEST_F(SliderTest, ReadingStoresWithoutTheChecksOfTheWrites) {
  ZKSlider& slider = Place(u"S");
  MemoryPropertyBag bag;
  bag.Store(u"Decimals", Variant(int32_t{-7}));
  bag.Store(u"Step", Variant(0.25));
  bag.Store(u"MinInterval", Variant(2.0));
  bag.Store(u"Value", Variant(250.0));
  bag.Store(u"JogsBackColor", Variant(int32_t{0x00FF00}));
  bag.Store(u"Enabled", Variant(false));
  slider.ReadProperties(bag);
  EXPECT_EQ(slider.Decimals(), -7);
  EXPECT_EQ(slider.Step(), 0.25);
  EXPECT_EQ(slider.MinInterval(), 2);
  // Placing the thumb brings the value within the limits.
  EXPECT_EQ(slider.Value(), 100);
  EXPECT_EQ(slider.IncrementJog().BackColor(), 0x00FF00u);
  EXPECT_FALSE(slider.Thumb().Enabled());
  EXPECT_EQ(form_.FindSite(u"S")->Surface().BackColor(), system_color::kInactiveBorder);
}

TEST_F(SliderTest, MethodsAndMembersByName) {
  ZKSlider& slider = Place(u"S");
  slider.SetValue(10);
  slider.CallMethod(u"IncrementValue");
  slider.CallMethod(u"IncrementValue");
  slider.CallMethod(u"DecrementValue");
  EXPECT_EQ(slider.Value(), 11);
  EXPECT_EQ(slider.GetProperty(u"hWnd").ToInt32(), form_.FindSite(u"S")->Surface().hWnd());
  EXPECT_EQ(slider.GetProperty(u"hDC").ToInt32(), form_.FindSite(u"S")->Surface().hDC());
  EXPECT_EQ(slider.GetProperty(u"ExtraProp", std::vector<Variant>{Variant(u"x")}).ToText(), u"");
  EXPECT_EQ(slider.Automation().Find(u"Caption")->dispid, dispatch_id::kCaption);
  EXPECT_EQ(slider.Automation().Find(u"Enabled")->dispid, dispatch_id::kEnabled);
  EXPECT_NE(slider.Automation().Find(u"Font")->dispid, dispatch_id::kFont);
  // The slider has no pop-up menu of its own.
  try {
    slider.CallMethod(u"PopupMenu");
    ADD_FAILURE() << "PopupMenu answered";
  } catch (const ZKError& error) {
    EXPECT_EQ(error.Number(), 438);
  }
}

TEST_F(SliderTest, TheArchiveExplainerKnowsTheSlidersElements) {
  ZKSlider& slider = Place(u"S");
  slider.SetDecimalSep(u",");
  const std::vector<std::u16string> lines =
      ExplainArchive(form_, u"zkslider", slider.GetArchiveStr());
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.front(), u"ZKSlider: 29 elements expected, 29 found");
  auto line_of = [&](std::u16string_view start) {
    for (const std::u16string& line : lines) {
      if (line.starts_with(start)) return line;
    }
    return std::u16string();
  };
  EXPECT_NE(line_of(u"  1  Direction"), u"");
  EXPECT_NE(line_of(u" 14  DecimalSep").find(u"\",\""), std::u16string::npos);
  EXPECT_NE(line_of(u" 28  MinInterval"), u"");
  EXPECT_EQ(lines.back(), u"ParseArchiveStr: True");
}

}  // namespace
}  // namespace zk
