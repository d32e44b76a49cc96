// Where the slider puts its pieces: jogs, thumb, guide and border in both orientations, the
// track they leave, the glyphs on the jogs and the thumb's text.
#include <gtest/gtest.h>

#include <vector>

#include "platform/common/memory_property_bag.h"
#include "tests/slider/slider_fixture.h"

namespace zk {
namespace {

TEST_F(SliderTest, LaysOutEachDirection) {
  struct Row {
    const char* what;
    zktSBDirection direction;
    double width;
    double height;
    double value;
    PartBox decrement;
    PartBox increment;
    PartBox thumb;
    double track;
  };
  // 2460 twips long with a 360-twip thumb and 300-twip jogs: a 1500-twip track, 15 twips (a
  // pixel) for each unit of the range.
  const std::vector<Row> rows = {
      {"left to right",
       zktSBLeftToRight,
       2460,
       300,
       20,
       {0, 0, 300, 300},
       {2160, 0, 300, 300},
       {600, 0, 360, 300},
       1500},
      {"right to left",
       zktSBRightToLeft,
       2460,
       300,
       20,
       {0, 0, 300, 300},
       {2160, 0, 300, 300},
       {1500, 0, 360, 300},
       1500},
      {"top to bottom",
       zktSBTopToBottom,
       300,
       2460,
       20,
       {0, 0, 300, 300},
       {0, 2160, 300, 300},
       {0, 600, 300, 360},
       1500},
      {"bottom to top",
       zktSBBottomtoTop,
       300,
       2460,
       20,
       {0, 0, 300, 300},
       {0, 2160, 300, 300},
       {0, 1500, 300, 360},
       1500},
      {"at Max, right to left",
       zktSBRightToLeft,
       2460,
       300,
       100,
       {0, 0, 300, 300},
       {2160, 0, 300, 300},
       {300, 0, 360, 300},
       1500},
      {"at Max, bottom to top",
       zktSBBottomtoTop,
       300,
       2460,
       100,
       {0, 0, 300, 300},
       {0, 2160, 300, 300},
       {0, 300, 300, 360},
       1500},
      // The parts are windows and lie on whole pixels: 310 twips is 21 pixels (315 twips).
      {"sizes between pixels",
       zktSBLeftToRight,
       2455,
       310,
       0,
       {0, 0, 315, 315},
       {2145, 0, 315, 315},
       {315, 0, 360, 315},
       2455 - 630 - 360},
      // Lying across, an upright slider's track is what is left of its width: none.
      {"a horizontal slider standing",
       zktSBLeftToRight,
       300,
       2460,
       0,
       {0, 0, 2460, 2460},
       {-2160, 0, 2460, 2460},
       {2460, 0, 360, 2460},
       0},
  };
  for (const Row& row : rows) {
    ZKSlider& slider = Place(u"S", row.width, row.height);
    slider.SetSliderWidth(360);
    slider.SetDirection(row.direction);
    slider.SetValue(row.value);
    EXPECT_EQ(Box(slider, u"cmdDecrement"), row.decrement) << row.what;
    EXPECT_EQ(Box(slider, u"cmdIncrement"), row.increment) << row.what;
    EXPECT_EQ(Box(slider, u"cmdSlider"), row.thumb) << row.what;
    EXPECT_EQ(slider.TrackLength(), row.track) << row.what;
    form_.RemoveControl(u"S");
  }
}

TEST_F(SliderTest, TurningTheSliderMovesEveryPiece) {
  ZKSlider& slider = Place(u"S", 2460, 2460);
  slider.SetSliderWidth(360);
  slider.SetValue(50);
  EXPECT_EQ(Box(slider, u"cmdIncrement"), (PartBox{0, 0, 2460, 2460}));
  form_.MoveControl(u"S", 0, 0, 300, 2460);
  slider.SetDirection(zktSBTopToBottom);
  EXPECT_EQ(Box(slider, u"cmdDecrement"), (PartBox{0, 0, 300, 300}));
  EXPECT_EQ(Box(slider, u"cmdIncrement"), (PartBox{0, 2160, 300, 300}));
  EXPECT_EQ(Box(slider, u"cmdSlider"), (PartBox{0, 300 + 750, 300, 360}));
  // A new size lays it out again.
  form_.MoveControl(u"S", 0, 0, 300, 1710);
  EXPECT_EQ(slider.TrackLength(), 750);
  EXPECT_EQ(Box(slider, u"cmdIncrement"), (PartBox{0, 1410, 300, 300}));
  EXPECT_EQ(Box(slider, u"cmdSlider"), (PartBox{0, 300 + 375, 300, 360}));
  // A longer thumb leaves a shorter track.
  slider.SetSliderWidth(510);
  EXPECT_EQ(slider.TrackLength(), 600);
  EXPECT_EQ(Box(slider, u"cmdSlider"), (PartBox{0, 600, 300, 510}));
}

TEST_F(SliderTest, GuideAndBorder) {
  struct Row {
    zktSBDirection direction;
    double width;
    double height;
    int16_t guide_width;
    double x1, y1, x2, y2;
  };
  // The guide runs along the middle, moved back by half its width.
  const std::vector<Row> rows = {
      {zktSBLeftToRight, 3000, 300, 1, 0, 149.5, 3000, 149.5},
      {zktSBRightToLeft, 3000, 300, 4, 0, 148, 3000, 148},
      {zktSBTopToBottom, 450, 3000, 1, 224.5, 0, 224.5, 3000},
      {zktSBBottomtoTop, 450, 3000, 3, 223.5, 0, 223.5, 3000},
  };
  for (const Row& row : rows) {
    ZKSlider& slider = Place(u"S", row.width, row.height);
    EXPECT_FALSE(slider.GuideLine().Visible());
    EXPECT_FALSE(slider.BorderShape().Visible());
    slider.SetDirection(row.direction);
    slider.SetGuideWidth(row.guide_width);
    slider.SetShowGuide(true);
    slider.SetBorderStyle(zktBSSolid);
    const ILineElement& guide = slider.GuideLine();
    EXPECT_TRUE(guide.Visible());
    EXPECT_EQ(guide.X1(), row.x1);
    EXPECT_EQ(guide.Y1(), row.y1);
    EXPECT_EQ(guide.X2(), row.x2);
    EXPECT_EQ(guide.Y2(), row.y2);
    EXPECT_EQ(guide.BorderWidth(), row.guide_width);
    const IShapeElement& border = slider.BorderShape();
    EXPECT_TRUE(border.Visible());
    EXPECT_EQ((PartBox{border.Left(), border.Top(), border.Width(), border.Height()}),
              (PartBox{0, 0, row.width, row.height}));
    slider.SetShowGuide(false);
    slider.SetBorderStyle(zktBSNone);
    EXPECT_FALSE(guide.Visible());
    EXPECT_FALSE(border.Visible());
    form_.RemoveControl(u"S");
  }
}

TEST_F(SliderTest, JogGlyphsFallBackToPlusAndMinusWithoutTheArrowFace) {
  ZKSlider& slider = Place(u"S");
  const ZKColorButton& decrement = slider.DecrementJog();
  const ZKColorButton& increment = slider.IncrementJog();
  EXPECT_EQ(decrement.Caption(), u"-");
  EXPECT_EQ(increment.Caption(), u"+");
  for (const ZKColorButton* jog : {&decrement, &increment}) {
    EXPECT_EQ(jog->Font()->Name(), u"MS Sans Serif");
    EXPECT_EQ(jog->Font()->Size(), 8.25 + 4);
  }
  // The thumb writes in the control's own font, a copy of it.
  EXPECT_EQ(slider.Thumb().Font()->Description(), slider.Font()->Description());
  EXPECT_NE(slider.Thumb().Font(), slider.Font());
  // The font's own change is followed.
  slider.Font()->SetSize(12);
  EXPECT_EQ(decrement.Font()->Size(), 16);
  EXPECT_EQ(slider.Thumb().Font()->Size(), 12);
}

TEST_F(SliderTest, JogGlyphsAreArrowsInTheirFaceAndFollowTheDirectionAtTheNextUpdate) {
  platform_.Fonts().InstallFace(u"Wingdings 3");
  ZKSlider& slider = Place(u"S");
  const ZKColorButton& decrement = slider.DecrementJog();
  const ZKColorButton& increment = slider.IncrementJog();
  EXPECT_EQ(decrement.Caption(), u"t");
  EXPECT_EQ(increment.Caption(), u"u");
  EXPECT_EQ(decrement.Font()->Name(), u"Wingdings 3");
  EXPECT_EQ(increment.Font()->Size(), 12.25);
  // Turned upright, the jogs keep their glyphs until the font is set again.
  slider.SetDirection(zktSBTopToBottom);
  EXPECT_EQ(decrement.Caption(), u"t");
  slider.SetFont(slider.Font());
  EXPECT_EQ(decrement.Caption(), u"p");
  EXPECT_EQ(increment.Caption(), u"q");
  // Reading stored properties updates them too.
  MemoryPropertyBag bag;
  bag.Store(u"Direction", Variant(int32_t{zktSBRightToLeft}));
  slider.ReadProperties(bag);
  EXPECT_EQ(decrement.Caption(), u"t");
  EXPECT_EQ(increment.Caption(), u"u");
}

TEST_F(SliderTest, AFontTheJogsCannotGrowKeepsTheirGlyphs) {
  ZKSlider& slider = Place(u"S");
  FontRef huge = slider.Font()->Clone();
  huge->SetSize(2158);  // four points more is beyond any font
  slider.SetFont(huge);
  EXPECT_EQ(slider.Font()->Size(), 2158);
  EXPECT_EQ(slider.Thumb().Font()->Size(), 2158);
  EXPECT_EQ(slider.DecrementJog().Font()->Size(), 2158);
  EXPECT_EQ(slider.DecrementJog().Caption(), u"-");
}

TEST_F(SliderTest, TheThumbShowsTheValueOrTheCaption) {
  struct Row {
    bool show_value;
    int16_t decimals;
    bool pad;
    std::u16string sep;
    std::u16string text;
  };
  const std::vector<Row> rows = {
      {false, 0, false, u".", u"Drag"},   {true, 0, false, u".", u"12"},
      {true, 2, false, u",", u"12,34"},   {true, -1, false, u",", u"12,3456"},
      {true, 5, true, u".", u"12.34560"}, {true, 1, false, u".", u"12.3"},
  };
  for (const Row& row : rows) {
    ZKSlider& slider = Place(u"S");
    slider.SetValue(12.3456);
    slider.SetCaption(u"Drag");
    slider.SetDecimals(row.decimals);
    slider.SetPadDecimals(row.pad);
    slider.SetDecimalSep(row.sep);
    slider.SetShowValue(row.show_value);
    EXPECT_EQ(slider.Thumb().Caption(), row.text);
    form_.RemoveControl(u"S");
  }
  // A new value is shown at once.
  ZKSlider& slider = Place(u"S");
  slider.SetShowValue(true);
  slider.SetValue(77);
  EXPECT_EQ(slider.Thumb().Caption(), u"77");
  slider.IncrementValue();
  EXPECT_EQ(slider.Thumb().Caption(), u"78");
}

TEST_F(SliderTest, TheEnabledLook) {
  struct Row {
    bool enabled;
    bool ambient;
    OLE_COLOR background;
  };
  // The form's colour is button face; the slider's own is a pale yellow here.
  const std::vector<Row> rows = {
      {true, false, 0xC0FFFF},
      {false, false, system_color::kInactiveBorder},
      {true, true, system_color::kButtonFace},
      {false, true, system_color::kButtonFace},
  };
  for (const Row& row : rows) {
    ZKSlider& slider = Place(u"S");
    slider.SetBackColor(0xC0FFFF);
    slider.SetAmbientBackColor(row.ambient);
    slider.SetEnabled(row.enabled);
    EXPECT_EQ(form_.FindSite(u"S")->Surface().BackColor(), row.background)
        << row.enabled << row.ambient;
    for (const ZKColorButton* part :
         {&slider.DecrementJog(), &slider.IncrementJog(), &slider.Thumb()}) {
      EXPECT_EQ(part->Enabled(), row.enabled);
    }
    slider.SetEnabled(true);
    EXPECT_EQ(form_.FindSite(u"S")->Surface().BackColor(), row.ambient ? 0x8000000Fu : 0xC0FFFFu);
    form_.RemoveControl(u"S");
  }
}

TEST_F(SliderTest, ADirectionFromTheBagThatIsNoneLeavesThePiecesAndHasNoTrack) {
  ZKSlider& slider = Place(u"S", 2460, 300);
  slider.SetSliderWidth(360);
  slider.SetValue(20);
  const PartBox thumb = Box(slider, u"cmdSlider");
  MemoryPropertyBag bag;
  slider.WriteProperties(bag);
  bag.Store(u"Direction", Variant(int32_t{7}));
  slider.ReadProperties(bag);
  EXPECT_EQ(slider.Direction(), 7);
  EXPECT_EQ(Box(slider, u"cmdSlider"), thumb);
  EXPECT_EQ(slider.TrackLength(), 0);
  // Nothing moves it: no key, no jog, and a press on the track cannot divide by its length.
  form_.Focus(u"S");
  form_.TypeKeys(u"{LEFT}{RIGHT}{UP}{DOWN}");
  slider.IncrementValue();
  Press(u"S", 1000, 150);
  EXPECT_EQ(slider.Value(), 20);
  EXPECT_EQ(Traces(), (std::vector<std::u16string>{u"MouseDown | 11"}));
}

}  // namespace
}  // namespace zk
