// A slider holds a timer (the jogs' auto-repeat), a window observer (the wheel) and three parts.
// Here the slider, its window and its form go in every order, also from inside the handlers of
// what the slider is raising: a Change raised by the auto-repeat's tick that removes the slider,
// the slider's window destroyed under it, a form destroyed while the repeat runs. Afterwards no
// timer runs, no registry points at anything, and time and messages pass without effect.

#include <gtest/gtest.h>

#include <memory>

#include "controls/display/led.h"
#include "services/subclass_procs.h"
#include "services/timer_procs.h"
#include "tests/slider/slider_fixture.h"

namespace zk {
namespace {

// 2460 x 300 twips with jogs of 300 at each end: x = 2300 presses the increment jog.
constexpr float kIncrementX = 2300;
constexpr float kJogY = 150;

class SliderLifetimeTest : public SliderTest {
 protected:
  ZKSlider& PlaceRunning() {
    ZKSlider& slider = Place(u"S", 2460, 300);
    EXPECT_NE(slider.ObservedWindow(), 0);
    return slider;
  }

  void ExpectNothingLeft() {
    EXPECT_EQ(platform_.Timers().RunningCount(), 0u);
    EXPECT_FALSE(MCTTimeProcs::RegistryExists());
    EXPECT_FALSE(MSubclass::RegistryExists());
    // Time and input pass without anything left to reach.
    platform_.Advance(2000);
    if (form_.FindControl(u"S") != nullptr) form_.Wheel(u"S", -120);
  }
};

// The host's Change handler removes the slider: at the press itself, at the first tick of the
// repeat, or at a later one.
TEST_F(SliderLifetimeTest, AChangeHandlerMayRemoveTheSliderFromInsideTheRepeat) {
  for (int remove_at : {1, 2, 5}) {
    SCOPED_TRACE(remove_at);
    ZKSlider& slider = PlaceRunning();
    int changes = 0;
    ScopedConnection remover = slider.Change.Connect([&] {
      if (++changes == remove_at) form_.RemoveControl(u"S");
    });
    Press(u"S", kIncrementX, kJogY);
    if (remove_at > 1) {
      ASSERT_NE(form_.FindControl(u"S"), nullptr);
      EXPECT_TRUE(slider.Repeating());
    }
    platform_.Advance(500 + 30 * remove_at);
    EXPECT_EQ(changes, remove_at);
    EXPECT_EQ(form_.FindControl(u"S"), nullptr);
    // No window holds the mouse captured.
    const WindowHandle capture = platform_.Windows().Capture();
    EXPECT_TRUE(capture == 0 || platform_.Windows().IsWindow(capture));
    ExpectNothingLeft();
    EXPECT_EQ(changes, remove_at);
  }
}

TEST_F(SliderLifetimeTest, TheSlidersWindowMayDieBeforeTheSlider) {
  ZKSlider& slider = PlaceRunning();
  const WindowHandle window = slider.hWnd();
  Press(u"S", kIncrementX, kJogY);
  ASSERT_TRUE(slider.Repeating());
  ASSERT_TRUE(platform_.Windows().DestroyWindow(window));
  // The observer heard its window's last message and let go of it.
  EXPECT_EQ(slider.ObservedWindow(), 0);
  EXPECT_FALSE(MSubclass::RegistryExists());
  platform_.Advance(600);
  EXPECT_TRUE(form_.RemoveControl(u"S"));
  ExpectNothingLeft();
}

// The form goes first, with a slider repeating and a lamp flashing on it; then the platform
// scope ends with the fixture.
TEST_F(SliderLifetimeTest, AFormMayGoWhileItsControlsTimersRun) {
  for (bool repeating : {false, true}) {
    auto form = std::make_unique<HeadlessForm>(platform_);
    auto& slider = static_cast<ZKSlider&>(form->AddControl(u"ZKSlider", u"T"));
    form->MoveControl(u"T", 0, 0, 2460, 300);
    auto& lamp = static_cast<ZKLed&>(form->AddControl(u"ZKLed", u"L"));
    lamp.SetFlashInterval(100);
    lamp.SetFlashEnabled(true);
    if (repeating) {
      form->DeliverMouse(u"T", MouseAction::kDown, 1, 0, kIncrementX, kJogY);
      ASSERT_TRUE(slider.Repeating());
    }
    platform_.Advance(550);
    EXPECT_EQ(platform_.Timers().RunningCount(), repeating ? 2u : 1u);
    form.reset();
    ExpectNothingLeft();
  }
}

}  // namespace
}  // namespace zk
