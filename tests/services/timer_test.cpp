#include "services/timer.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "foundation/zk_error.h"
#include "platform/headless_fixture.h"
#include "platform/window_messages.h"
#include "services/timer_procs.h"

namespace zk {
namespace {

using Keys = std::vector<std::u16string>;

struct CountedTimer {
  ZKCTimer timer;
  int ticks = 0;
  ScopedConnection counter = timer.Timer().Connect([this] { ++ticks; });
};

class TimerTest : public HeadlessTest {
 protected:
  HeadlessTimerService& timers_ = platform_.Timers();
};

TEST_F(TimerTest, TicksFirstAtTheIntervalThenEveryInterval) {
  CountedTimer counted;
  EXPECT_EQ(counted.timer.Interval(), 1000);
  counted.timer.SetEnabled(true);
  counted.timer.SetEnabled(true);  // a running timer is not started twice
  EXPECT_EQ(timers_.RunningCount(), 1u);
  EXPECT_EQ(MCTTimeProcs::RegistryKeys(), Keys{u"4242T"});
  platform_.Advance(999);
  EXPECT_EQ(counted.ticks, 0);
  platform_.Advance(2001);
  EXPECT_EQ(counted.ticks, 3);
  counted.timer.SetEnabled(false);
  platform_.Advance(5000);
  EXPECT_EQ(counted.ticks, 3);
  EXPECT_EQ(timers_.RunningCount(), 0u);
  EXPECT_FALSE(MCTTimeProcs::RegistryExists());
}

TEST_F(TimerTest, NewIntervalWhileRunningRestartsUnderANewId) {
  CountedTimer counted;
  counted.timer.SetEnabled(true);
  platform_.Advance(600);
  counted.timer.SetInterval(250);
  EXPECT_EQ(MCTTimeProcs::RegistryKeys(), Keys{u"4243T"});
  EXPECT_EQ(timers_.RunningCount(), 1u);
  // Ticks of the old id still queued are not delivered.
  timers_.DeliverTick(4242, &MCTTimeProcs::TimerProc);
  counted.timer.TimerCallBack(4242);
  platform_.Advance(249);
  EXPECT_EQ(counted.ticks, 0);
  platform_.Advance(1);
  EXPECT_EQ(counted.ticks, 1);
}

TEST_F(TimerTest, IntervalBelowOneStopsAndKeepsTheTimerFromStarting) {
  for (int32_t interval : {0, -5}) {
    CountedTimer counted;
    counted.timer.SetEnabled(true);
    counted.timer.SetInterval(interval);
    counted.timer.SetEnabled(true);
    EXPECT_EQ(counted.timer.Interval(), 0);
    EXPECT_FALSE(counted.timer.Enabled());
    EXPECT_EQ(timers_.RunningCount(), 0u);
    EXPECT_FALSE(MCTTimeProcs::RegistryExists());
  }
}

TEST_F(TimerTest, TimersRunIndependentlyAndLeaveTheRegistryOneByOne) {
  auto fast = std::make_unique<CountedTimer>();
  auto slow = std::make_unique<CountedTimer>();
  fast->timer.SetInterval(100);
  slow->timer.SetInterval(300);
  fast->timer.SetEnabled(true);
  slow->timer.SetEnabled(true);
  platform_.Advance(300);
  EXPECT_EQ(fast->ticks, 3);
  EXPECT_EQ(slow->ticks, 1);
  fast.reset();
  EXPECT_EQ(MCTTimeProcs::RegistryKeys(), Keys{u"4243T"});
  platform_.Advance(300);
  EXPECT_EQ(slow->ticks, 2);
  slow.reset();
  EXPECT_FALSE(MCTTimeProcs::RegistryExists());
  EXPECT_EQ(timers_.RunningCount(), 0u);
}

TEST_F(TimerTest, TickOfAnUnknownIdEndsThatPlatformTimer) {
  // Without a registry, and with one that holds another timer.
  for (bool other_running : {false, true}) {
    CountedTimer other;
    other.timer.SetEnabled(other_running);
    const int32_t orphan = timers_.SetTimer(100, &MCTTimeProcs::TimerProc);
    MCTTimeProcs::TimerProc(0, window_message::kMouseWheel, orphan, 0);  // not a tick: ignored
    EXPECT_EQ(timers_.RunningCount(), other_running ? 2u : 1u);
    platform_.Advance(100);
    EXPECT_EQ(timers_.RunningCount(), other_running ? 1u : 0u);
    EXPECT_EQ(MCTTimeProcs::RegistryExists(), other_running);
  }
  EXPECT_TRUE(platform_.Recorder().traces.empty());
}

TEST_F(TimerTest, HandlerMayStopOrRestartItsOwnTimer) {
  const struct {
    std::function<void(ZKCTimer&)> handler;
    int ticks_in_2000_ms;
    size_t running_after;
  } cases[] = {{[](ZKCTimer& timer) { timer.SetEnabled(false); }, 1, 0},
               {[](ZKCTimer& timer) { timer.SetInterval(500); }, 3, 1}};
  for (const auto& test : cases) {
    CountedTimer counted;
    ScopedConnection handler = counted.timer.Timer().Connect([&] { test.handler(counted.timer); });
    counted.timer.SetEnabled(true);
    platform_.Advance(2000);
    EXPECT_EQ(counted.ticks, test.ticks_in_2000_ms);
    EXPECT_EQ(timers_.RunningCount(), test.running_after);
  }
}

TEST_F(TimerTest, HandlerErrorIsTracedAndTheTimerKeepsTicking) {
  CountedTimer counted;
  ScopedConnection failing = counted.timer.Timer().Connect([] { throw ZKError::Overflow(); });
  counted.timer.SetEnabled(true);
  EXPECT_NO_THROW(platform_.Advance(2000));
  EXPECT_EQ(counted.ticks, 2);
  const MDebugUtils::TraceRecord expected{u"MCTTimeProcs", u"TimerProc", 6, u"Overflow"};
  EXPECT_EQ(platform_.Recorder().traces, (std::vector{expected, expected}));
}

TEST(TimerLifetimeTest, TimerOutlivingItsPlatformLeavesNoEntry) {
  auto timer = std::make_unique<ZKCTimer>();
  {
    HeadlessPlatform platform(HeadlessOptions{u"en-US"});
    PlatformScope scope(platform);
    timer->SetEnabled(true);
  }
  timer.reset();
  EXPECT_FALSE(MCTTimeProcs::RegistryExists());
}

}  // namespace
}  // namespace zk
