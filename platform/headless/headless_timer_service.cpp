#include "platform/headless/headless_timer_service.h"

#include <utility>

#include "platform/window_messages.h"

namespace zk {

int32_t HeadlessTimerService::SetTimer(int32_t interval, TimerProcedure procedure) {
  if (interval < 1 || !procedure) return 0;
  const int32_t id = next_id_++;
  timers_.emplace(id, Timer{interval, now_ + interval, std::move(procedure)});
  return id;
}

bool HeadlessTimerService::KillTimer(int32_t id) {
  return timers_.erase(id) > 0;
}

void HeadlessTimerService::DeliverTick(int32_t id, const TimerProcedure& procedure) {
  procedure(0, window_message::kTimer, id, static_cast<int32_t>(now_));
}

void HeadlessTimerService::Advance(int32_t milliseconds) {
  if (milliseconds <= 0) return;
  const int64_t end = now_ + milliseconds;
  while (true) {
    // The next tick: the earliest due time, the oldest timer among equals.
    auto next = timers_.end();
    for (auto it = timers_.begin(); it != timers_.end(); ++it) {
      if (it->second.due <= end && (next == timers_.end() || it->second.due < next->second.due)) {
        next = it;
      }
    }
    if (next == timers_.end()) break;
    const int32_t id = next->first;
    now_ = next->second.due;
    next->second.due += next->second.interval;
    // A copy: the procedure may stop or restart its own timer while it runs.
    const TimerProcedure procedure = next->second.procedure;
    procedure(0, window_message::kTimer, id, static_cast<int32_t>(now_));
  }
  now_ = end;
}

}  // namespace zk
