// Timers on a platform that refuses to start or stop them, and timers destroyed by the handlers
// of their own ticks: the registry never points at a destroyed object, a refused start leaves
// the timer stopped, and no tick reaches a timer that is gone.

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>

#include "platform/headless/headless_platform.h"
#include "platform/headless_fixture.h"
#include "services/timer.h"
#include "services/timer_procs.h"

namespace zk {
namespace {

// The headless timers, except that starting or stopping can be refused as a platform out of
// timer resources (or with a window already gone) refuses it.
class RefusingTimers final : public ITimerService {
 public:
  explicit RefusingTimers(HeadlessTimerService& inner) : inner_(inner) {}
  int32_t SetTimer(int32_t interval, TimerProcedure procedure) override {
    ++set_calls;
    return refuse_start ? 0 : inner_.SetTimer(interval, procedure);
  }
  bool KillTimer(int32_t id) override { return refuse_kill ? false : inner_.KillTimer(id); }

  bool refuse_start = false;
  bool refuse_kill = false;
  int set_calls = 0;

 private:
  HeadlessTimerService& inner_;
};

class RefusingPlatform final : public IPlatform {
 public:
  IScreen& Screen() override { return inner.Screen(); }
  IWindowSystem& Windows() override { return inner.Windows(); }
  std::shared_ptr<const IFontCatalogue> FontCatalogue() override { return inner.FontCatalogue(); }
  IPictureLoader& Pictures() override { return inner.Pictures(); }
  ILocale& Locale() override { return inner.Locale(); }
  ITimerService& Timers() override { return timers; }

  HeadlessPlatform inner{HeadlessOptions{u"en-US"}};
  RefusingTimers timers{inner.Timers()};
};

struct CountedTimer {
  ZKCTimer timer;
  int ticks = 0;
  ScopedConnection counter = timer.Timer().Connect([this] { ++ticks; });
};

class TimerFaultTest : public testing::Test {
 protected:
  RefusingPlatform platform_;
  PlatformScope scope_{platform_};
};

TEST_F(TimerFaultTest, RefusedStartLeavesTheTimerStoppedAndALaterStartWorks) {
  CountedTimer counted;
  platform_.timers.refuse_start = true;
  counted.timer.SetEnabled(true);
  EXPECT_EQ(platform_.timers.set_calls, 1);
  EXPECT_FALSE(counted.timer.Enabled());
  EXPECT_FALSE(MCTTimeProcs::RegistryExists());
  platform_.inner.Advance(5000);
  EXPECT_EQ(counted.ticks, 0);

  // A new interval does not start a timer that never ran.
  counted.timer.SetInterval(200);
  EXPECT_FALSE(counted.timer.Enabled());

  platform_.timers.refuse_start = false;
  counted.timer.SetEnabled(true);
  EXPECT_TRUE(counted.timer.Enabled());
  platform_.inner.Advance(1000);
  EXPECT_EQ(counted.ticks, 5);
}

TEST_F(TimerFaultTest, RestartRefusedWhileRunningStopsTheTimer) {
  CountedTimer counted;
  counted.timer.SetEnabled(true);
  ASSERT_TRUE(counted.timer.Enabled());
  platform_.timers.refuse_start = true;
  counted.timer.SetInterval(100);
  EXPECT_FALSE(counted.timer.Enabled());
  EXPECT_EQ(platform_.inner.Timers().RunningCount(), 0u);
  platform_.inner.Advance(3000);
  EXPECT_EQ(counted.ticks, 0);
  EXPECT_EQ(counted.timer.Interval(), 100);
}

TEST_F(TimerFaultTest, TimerThatCannotBeStoppedIsForgottenWhenDestroyed) {
  auto counted = std::make_unique<CountedTimer>();
  counted->timer.SetInterval(100);
  counted->timer.SetEnabled(true);
  platform_.timers.refuse_kill = true;
  counted->timer.SetEnabled(false);
  // The platform still runs it, so the timer still counts as enabled.
  EXPECT_TRUE(counted->timer.Enabled());
  counted.reset();
  EXPECT_FALSE(MCTTimeProcs::RegistryExists());
  // The orphan's next tick finds no entry and ends the platform timer itself.
  platform_.timers.refuse_kill = false;
  platform_.inner.Advance(100);
  EXPECT_EQ(platform_.inner.Timers().RunningCount(), 0u);
}

// A handler that destroys timers: its own, or another one due at the very same time, first or
// second in the delivery order.
TEST_F(TimerFaultTest, HandlerMayDestroyItsOwnTimerOrAnotherDueAtTheSameTime) {
  const struct {
    int victim;  // index of the timer that the first timer's handler destroys
    bool first_started_first;
    int second_ticks;
  } cases[] = {{0, true, 3}, {1, true, 0}, {1, false, 1}, {0, false, 3}};
  for (const auto& test : cases) {
    std::unique_ptr<CountedTimer> timers[2] = {std::make_unique<CountedTimer>(),
                                               std::make_unique<CountedTimer>()};
    int second_ticks = 0;
    ScopedConnection destroyer =
        timers[0]->timer.Timer().Connect([&] { timers[test.victim].reset(); });
    ScopedConnection watcher = timers[1]->timer.Timer().Connect([&] { ++second_ticks; });
    const int order[2] = {test.first_started_first ? 0 : 1, test.first_started_first ? 1 : 0};
    for (int i : order) {
      timers[i]->timer.SetInterval(100);
      timers[i]->timer.SetEnabled(true);
    }
    platform_.inner.Advance(300);
    EXPECT_EQ(second_ticks, test.second_ticks) << test.victim << " " << test.first_started_first;
    // The survivor runs on; the destroyed timer's platform timer went with it.
    EXPECT_EQ(platform_.inner.Timers().RunningCount(), 1u);
    timers[0].reset();
    timers[1].reset();
    EXPECT_FALSE(MCTTimeProcs::RegistryExists());
  }
}

}  // namespace
}  // namespace zk
