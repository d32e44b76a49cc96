// What the mouse, the keys, the wheel and the auto-repeat do to a slider on the headless form.
#include <gtest/gtest.h>

#include <vector>

#include "foundation/zk_error.h"
#include "services/subclass_procs.h"
#include "tests/slider/slider_fixture.h"

namespace zk {
namespace {

// 2460 x 300 twips with a 360-twip thumb: jogs of 300 at each end and a 1500-twip track. The
// thumb's centre follows the mouse, so x = 480 + 15 * value.
class SliderInputTest : public SliderTest {
 protected:
  ZKSlider& PlaceTrack(zktSBDirection direction = zktSBLeftToRight) {
    const bool upright = direction == zktSBTopToBottom || direction == zktSBBottomtoTop;
    ZKSlider& slider = Place(u"S", upright ? 300 : 2460, upright ? 2460 : 300);
    slider.SetSliderWidth(360);
    slider.SetDirection(direction);
    Events();
    Notified();
    return slider;
  }
  static constexpr float kIncrementX = 2300;
  static constexpr float kDecrementX = 150;
};

TEST_F(SliderInputTest, HoldingTheIncrementJogRepeatsUpToTheLimit) {
  ZKSlider& slider = PlaceTrack();
  slider.SetValue(98);
  Events();
  Press(u"S", kIncrementX, 150);
  EXPECT_EQ(slider.Value(), 99);
  EXPECT_EQ(Events(), (std::vector<std::u16string>{u"Change", u"MouseDown(1, 0, 2300, 150)"}));
  platform_.Advance(499);
  EXPECT_EQ(slider.Value(), 99);
  platform_.Advance(1);
  EXPECT_EQ(slider.Value(), 100);
  EXPECT_EQ(Changes(), 1);
  platform_.Advance(1000);
  EXPECT_EQ(Changes(), 0);
  EXPECT_TRUE(slider.Repeating());
  Release(u"S", kIncrementX, 150);
  EXPECT_FALSE(slider.Repeating());
  EXPECT_EQ(Events(), (std::vector<std::u16string>{u"MouseUp(1, 0, 2300, 150)", u"Click"}));
  EXPECT_EQ(platform_.Timers().RunningCount(), 0u);
}

TEST_F(SliderInputTest, TheRepeatComesAfterHalfASecondThenEvery30Milliseconds) {
  struct Step {
    int32_t wait;
    double value;
  };
  const std::vector<Step> steps = {{0, 1},  {500, 2},  {29, 2},   {1, 3},
                                   {30, 4}, {300, 14}, {1000, 14}};
  ZKSlider& slider = PlaceTrack();
  Press(u"S", kIncrementX, 150);
  for (const Step& step : steps) {
    if (step.wait == 1000) Release(u"S", kIncrementX, 150);
    platform_.Advance(step.wait);
    EXPECT_EQ(slider.Value(), step.value) << step.wait;
  }
}

TEST_F(SliderInputTest, APressAtALimitRepeatsNothing) {
  ZKSlider& slider = PlaceTrack();
  Press(u"S", kDecrementX, 150);
  EXPECT_TRUE(slider.Repeating());
  platform_.Advance(2000);
  EXPECT_EQ(slider.Value(), 0);
  EXPECT_EQ(Events(), (std::vector<std::u16string>{u"MouseDown(1, 0, 150, 150)"}));
  Release(u"S", kDecrementX, 150);
  EXPECT_FALSE(slider.Repeating());
}

TEST_F(SliderInputTest, OnlyTheLeftButtonOutsideDesignModeStepsAJog) {
  ZKSlider& slider = PlaceTrack();
  slider.SetValue(50);
  Events();
  Press(u"S", kIncrementX, 150, 2);
  EXPECT_FALSE(slider.Repeating());
  Release(u"S", kIncrementX, 150, 2);
  EXPECT_EQ(Events(), (std::vector<std::u16string>{u"MouseDown(2, 0, 2300, 150)",
                                                   u"MouseUp(2, 0, 2300, 150)", u"Click"}));
  slider.SetDesignMode(true);
  Press(u"S", kIncrementX, 150);
  platform_.Advance(1000);
  Release(u"S", kIncrementX, 150);
  EXPECT_EQ(slider.Value(), 50);
  EXPECT_EQ(Changes(), 0);
  EXPECT_TRUE(slider.Thumb().DesignMode());
}

TEST_F(SliderInputTest, RightToLeftTheDecrementJogAndTheLeftKeyRaiseTheValue) {
  ZKSlider& slider = PlaceTrack(zktSBRightToLeft);
  slider.SetValue(50);
  const double left = Box(slider, u"cmdSlider").left;
  Press(u"S", kDecrementX, 150);
  Release(u"S", kDecrementX, 150);
  EXPECT_EQ(slider.Value(), 51);
  EXPECT_LT(Box(slider, u"cmdSlider").left, left);
  form_.Focus(u"S");
  form_.TypeKeys(u"{LEFT}");
  EXPECT_EQ(slider.Value(), 52);
  EXPECT_LT(Box(slider, u"cmdSlider").left, left - 15);
}

TEST_F(SliderInputTest, APressOnTheTrackPutsTheThumbsCentreThere) {
  struct Row {
    float x;
    double value;
  };
  const std::vector<Row> rows = {
      {480, 0}, {1980, 100}, {1230, 50}, {1237, 50}, {1238, 51}, {310, 0}, {2150, 100},
  };
  for (const Row& row : rows) {
    ZKSlider& slider = PlaceTrack();
    slider.SetValue(row.value == 0 ? 100 : 0);
    Events();
    Press(u"S", row.x, 150);
    Release(u"S", row.x, 150);
    EXPECT_EQ(slider.Value(), row.value) << row.x;
    const PartBox thumb = Box(slider, u"cmdSlider");
    EXPECT_NEAR(thumb.left + thumb.width / 2, 480 + 15 * row.value, 0.5) << row.x;
    const std::u16string at = Variant(double{row.x}).ToText();
    EXPECT_EQ(Events(),
              (std::vector<std::u16string>{u"Change", u"MouseDown(1, 0, " + at + u", 150)",
                                           u"MouseUp(1, 0, " + at + u", 150)", u"Click"}))
        << row.x;
    form_.RemoveControl(u"S");
  }
}

TEST_F(SliderInputTest, DraggingTheThumbCarriesItsCentreWithTheMouse) {
  ZKSlider& slider = PlaceTrack();
  slider.SetValue(20);  // the thumb covers 600 to 960
  Events();
  Press(u"S", 700, 150);  // on the thumb, left of its centre
  EXPECT_EQ(slider.Value(), 15);
  Drag(u"S", 1000, 150);
  EXPECT_EQ(slider.Value(), 35);
  Drag(u"S", 1000, 200);  // across the track nothing changes
  Drag(u"S", 5000, 150);
  EXPECT_EQ(slider.Value(), 100);
  Drag(u"S", -500, 150);
  EXPECT_EQ(slider.Value(), 0);
  Release(u"S", -500, 150);
  // Without a button held, moving over the thumb only reports the mouse.
  Drag(u"S", 600, 150, 0);
  EXPECT_EQ(slider.Value(), 0);
  EXPECT_EQ(Events(), (std::vector<std::u16string>{
                          u"Change",
                          u"MouseDown(1, 0, 700, 150)",
                          u"Change",
                          u"MouseMove(1, 0, 1000, 150)",
                          u"MouseMove(1, 0, 1000, 200)",
                          u"Change",
                          u"MouseMove(1, 0, 5000, 150)",
                          u"Change",
                          u"MouseMove(1, 0, -500, 150)",
                          u"MouseUp(1, 0, -500, 150)",
                          u"MouseMove(0, 0, 600, 150)",
                      }));
  // While designing, the thumb does not follow a drag; a press still takes the value.
  slider.SetDesignMode(true);
  Press(u"S", 500, 150);
  EXPECT_EQ(slider.Value(), 1);
  Drag(u"S", 1500, 150);
  EXPECT_EQ(slider.Value(), 1);
  Release(u"S", 1500, 150);
}

TEST_F(SliderInputTest, DraggingAnUprightThumb) {
  for (zktSBDirection direction : {zktSBTopToBottom, zktSBBottomtoTop}) {
    ZKSlider& slider = PlaceTrack(direction);
    const bool down = direction == zktSBTopToBottom;
    const float middle = 480 + 15 * 50;
    // A press on the track brings the thumb; a second press takes hold of it.
    Press(u"S", 150, middle);
    Release(u"S", 150, middle);
    EXPECT_EQ(slider.Value(), 50);
    Press(u"S", 150, middle);
    EXPECT_EQ(Box(slider, u"cmdSlider").top, down ? 300 + 750 : 2460 - 660 - 750);
    Drag(u"S", 150, middle + 150);
    EXPECT_EQ(slider.Value(), down ? 60 : 40);
    Drag(u"S", 2000, middle - 300);  // sideways does not matter
    EXPECT_EQ(slider.Value(), down ? 30 : 70);
    Release(u"S", 150, middle);
    form_.RemoveControl(u"S");
  }
}

TEST_F(SliderInputTest, ArrowKeysByOrientation) {
  struct Row {
    zktSBDirection direction;
    const char16_t* keys;
    double value;
  };
  const std::vector<Row> rows = {
      {zktSBLeftToRight, u"{LEFT}", 49},  {zktSBLeftToRight, u"{RIGHT}", 51},
      {zktSBLeftToRight, u"{UP}", 50},    {zktSBLeftToRight, u"{DOWN}", 50},
      {zktSBRightToLeft, u"{LEFT}", 51},  {zktSBRightToLeft, u"{RIGHT}", 49},
      {zktSBTopToBottom, u"{UP}", 49},    {zktSBTopToBottom, u"{DOWN}", 51},
      {zktSBTopToBottom, u"{LEFT}", 50},  {zktSBTopToBottom, u"{RIGHT}", 50},
      {zktSBBottomtoTop, u"{UP}", 51},    {zktSBBottomtoTop, u"{DOWN}", 49},
      {zktSBLeftToRight, u"{HOME}a", 50},
  };
  for (const Row& row : rows) {
    ZKSlider& slider = PlaceTrack(row.direction);
    slider.SetValue(50);
    form_.Focus(u"S");
    form_.TypeKeys(row.keys);
    EXPECT_EQ(slider.Value(), row.value) << row.direction << " " << Utf8(row.keys);
    form_.RemoveControl(u"S");
  }
}

TEST_F(SliderInputTest, KeysOfEveryButtonAreTheSlidersOwn) {
  ZKSlider& slider = PlaceTrack();
  slider.SetValue(50);
  Events();
  int16_t right = 39;
  int16_t shift = 1;
  for (ZKColorButton* part : {&slider.DecrementJog(), &slider.IncrementJog(), &slider.Thumb()}) {
    part->KeyDown.Raise(right, shift);
    int16_t character = 'x';
    part->KeyPress.Raise(character);
    part->KeyUp.Raise(right, shift);
  }
  EXPECT_EQ(slider.Value(), 53);
  const std::vector<std::u16string> one = {u"Change", u"KeyDown(39, 1)", u"KeyPress(120)",
                                           u"KeyUp(39, 1)"};
  std::vector<std::u16string> three;
  for (int i = 0; i < 3; ++i)
    three.insert(three.end(), one.begin(), one.end());
  EXPECT_EQ(Events(), three);
  // Typed keys reach the thumb, which has the focus, and come out the same way.
  form_.Focus(u"S");
  form_.TypeKeys(u"{RIGHT}");
  EXPECT_EQ(Events(), (std::vector<std::u16string>{u"Change", u"KeyDown(39, 0)", u"KeyUp(39, 0)"}));
}

TEST_F(SliderInputTest, TheWheelByOrientation) {
  struct Row {
    zktSBDirection direction;
    int32_t delta;
    double value;
  };
  const std::vector<Row> rows = {
      {zktSBLeftToRight, -120, 49}, {zktSBLeftToRight, 120, 51},  {zktSBLeftToRight, 1, 51},
      {zktSBLeftToRight, 0, 50},    {zktSBRightToLeft, -120, 51}, {zktSBRightToLeft, 240, 49},
      {zktSBTopToBottom, 120, 49},  {zktSBTopToBottom, -120, 51}, {zktSBTopToBottom, 0, 50},
      {zktSBBottomtoTop, 120, 51},  {zktSBBottomtoTop, -1, 49},
  };
  for (const Row& row : rows) {
    ZKSlider& slider = PlaceTrack(row.direction);
    slider.SetValue(50);
    form_.Wheel(u"S", row.delta);
    EXPECT_EQ(slider.Value(), row.value) << row.direction << " " << row.delta;
    form_.RemoveControl(u"S");
  }
}

TEST_F(SliderInputTest, TheWheelIsWatchedWhileShownInRunMode) {
  ZKSlider& slider = PlaceTrack();
  slider.SetValue(50);
  const WindowHandle window = slider.hWnd();
  EXPECT_EQ(slider.ObservedWindow(), window);
  form_.FindExtender(u"S")->SetProperty(u"Visible", Variant(false));
  EXPECT_EQ(slider.ObservedWindow(), 0);
  form_.Wheel(u"S", 120);
  EXPECT_EQ(slider.Value(), 50);
  form_.FindExtender(u"S")->SetProperty(u"Visible", Variant(true));
  EXPECT_EQ(slider.ObservedWindow(), window);
  form_.Wheel(u"S", 120);
  EXPECT_EQ(slider.Value(), 51);
  // Hiding stops a jog's repeat as well.
  Press(u"S", kIncrementX, 150);
  EXPECT_TRUE(slider.Repeating());
  form_.FindExtender(u"S")->SetProperty(u"Visible", Variant(false));
  EXPECT_FALSE(slider.Repeating());
  // A form being designed never hooks its sliders.
  form_.SetAmbient(u"UserMode", Variant(false));
  ZKSlider& designed = Place(u"D");
  EXPECT_EQ(designed.ObservedWindow(), 0);
  form_.Wheel(u"D", 120);
  EXPECT_EQ(designed.Value(), 0);
  // A slider that goes leaves no hooked window behind.
  form_.RemoveAll();
  EXPECT_FALSE(MSubclass::RegistryExists());
}

TEST_F(SliderInputTest, TheFocusGoesToTheThumb) {
  ZKSlider& slider = PlaceTrack();
  form_.Focus(u"S");
  EXPECT_TRUE(slider.PartSurface(u"cmdSlider")->HasFocus());
  EXPECT_TRUE(slider.PartSurface(u"cmdDecrement")->SetFocus());
  EXPECT_TRUE(slider.PartSurface(u"cmdSlider")->HasFocus());
  EXPECT_FALSE(slider.PartSurface(u"cmdDecrement")->HasFocus());
  Press(u"S", kIncrementX, 150);
  Release(u"S", kIncrementX, 150);
  EXPECT_TRUE(slider.PartSurface(u"cmdSlider")->HasFocus());
  // From another control, a press on a jog brings the focus to the thumb too.
  form_.AddControl(u"ZKColorButton", u"Other");
  form_.Focus(u"Other");
  EXPECT_FALSE(slider.PartSurface(u"cmdSlider")->HasFocus());
  Press(u"S", kDecrementX, 150);
  Release(u"S", kDecrementX, 150);
  EXPECT_EQ(form_.FocusedControl(), &slider);
  EXPECT_TRUE(slider.PartSurface(u"cmdSlider")->HasFocus());
}

TEST_F(SliderInputTest, TheHostsTooltipIsCopiedToTheButtonUnderTheMouse) {
  ZKSlider& slider = PlaceTrack();
  form_.FindExtender(u"S")->SetProperty(u"ToolTipText", Variant(u"Volume"));
  auto tip = [&](std::u16string_view part) {
    return slider.PartExtender(part)->GetProperty(u"ToolTipText").ToText();
  };
  Drag(u"S", kIncrementX, 150, 0);
  EXPECT_EQ(tip(u"cmdIncrement"), u"Volume");
  EXPECT_EQ(tip(u"cmdSlider"), u"");
  Drag(u"S", 600, 150, 0);
  EXPECT_EQ(tip(u"cmdSlider"), u"Volume");
  EXPECT_EQ(tip(u"cmdDecrement"), u"");
  Drag(u"S", kDecrementX, 150, 0);
  EXPECT_EQ(tip(u"cmdDecrement"), u"Volume");
}

TEST_F(SliderInputTest, EventsAreNumberedInTheirOrderAndComeFromEveryPiece) {
  ZKSlider& slider = PlaceTrack();
  const std::vector<std::u16string_view> names = {u"KeyDown",   u"KeyPress", u"KeyUp",
                                                  u"Click",     u"DblClick", u"MouseDown",
                                                  u"MouseMove", u"MouseUp",  u"Change"};
  const auto events = slider.Automation().Events();
  ASSERT_EQ(events.size(), names.size());
  for (size_t i = 0; i < names.size(); ++i) {
    EXPECT_EQ(events[i].name, names[i]);
    EXPECT_EQ(events[i].dispid, static_cast<int32_t>(i + 1));
  }
  // A double click on the track, on a jog and on the thumb.
  for (float x : {1500.0f, kDecrementX, 500.0f}) {
    Press(u"S", x, 150);
    Release(u"S", x, 150);
    form_.DeliverMouse(u"S", MouseAction::kDoubleDown, 1, 0, x, 150);
    Release(u"S", x, 150);
    std::vector<std::u16string> raised;
    for (const std::u16string& event : Events()) {
      if (event == u"Click" || event == u"DblClick") raised.push_back(event);
    }
    EXPECT_EQ(raised, (std::vector<std::u16string>{u"Click", u"DblClick"})) << x;
  }
}

TEST_F(SliderInputTest, AFailingValueEndsTheInputThatAskedForIt) {
  ZKSlider& slider = PlaceTrack();
  slider.SetValue(50);
  Press(u"S", kIncrementX, 150);
  Events();
  // A quantum that rounds to 0 makes every change divide by zero.
  slider.SetMinInterval(0.4);
  platform_.Advance(530);
  EXPECT_TRUE(slider.Repeating());  // the repeat goes on until the jog is released
  Release(u"S", kIncrementX, 150);
  EXPECT_EQ(Traces(), (std::vector<std::u16string>{u"Timer | 11", u"Timer | 11"}));
  Events();
  Press(u"S", kIncrementX, 150);
  EXPECT_FALSE(slider.Repeating());
  Release(u"S", kIncrementX, 150);
  Press(u"S", 1500, 150);
  Release(u"S", 1500, 150);
  form_.Focus(u"S");
  form_.TypeKeys(u"{RIGHT}");
  form_.Wheel(u"S", 120);
  EXPECT_EQ(slider.Value(), 51);
  // The mouse and key events that the failure ended are not raised; the rest are.
  EXPECT_EQ(Events(),
            (std::vector<std::u16string>{u"MouseUp(1, 0, 2300, 150)", u"Click",
                                         u"MouseUp(1, 0, 1500, 150)", u"Click", u"KeyUp(39, 0)"}));
  EXPECT_EQ(Traces(), (std::vector<std::u16string>{u"MouseDown | 11", u"MouseDown | 11",
                                                   u"KeyDown | 11", u"Wheel | 11"}));
  // A program's write hears the error itself.
  try {
    slider.SetValue(10);
    ADD_FAILURE() << "no error";
  } catch (const ZKError& error) {
    EXPECT_EQ(error.Number(), 11);
  }
  EXPECT_EQ(slider.Value(), 51);
}

}  // namespace
}  // namespace zk
