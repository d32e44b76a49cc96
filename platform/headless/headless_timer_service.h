#pragma once

#include <cstdint>
#include <map>

#include "platform/timer_service.h"

namespace zk {

// Timers on the headless platform's virtual clock. Nothing ticks until time is advanced; then
// every tick that falls due is delivered in time order (ties in the order the timers were
// started), each at its own time, as the message loop would deliver them. Ids are numbered from
// 4242 up.
class HeadlessTimerService final : public ITimerService {
 public:
  int32_t SetTimer(int32_t interval, TimerProcedure procedure) override;
  bool KillTimer(int32_t id) override;

  // Lets `milliseconds` pass, delivering the ticks that fall due on the way.
  void Advance(int32_t milliseconds);
  int64_t Now() const { return now_; }
  size_t RunningCount() const { return timers_.size(); }
  // Delivers a tick for any id, as a stale message in the queue would (tests of stale ticks).
  void DeliverTick(int32_t id, const TimerProcedure& procedure);

 private:
  struct Timer {
    int32_t interval;
    int64_t due;
    TimerProcedure procedure;
  };
  std::map<int32_t, Timer> timers_;
  int64_t now_ = 0;
  int32_t next_id_ = 4242;
};

}  // namespace zk
