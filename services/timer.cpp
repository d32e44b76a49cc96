#include "services/timer.h"

#include "services/timer_procs.h"

namespace zk {

ZKCTimer::~ZKCTimer() {
  MCTTimeProcs::StopTimer(timer_id_);
  // When the platform could not stop the timer (it is gone, or refused), the entry must still
  // go: the registry would otherwise point at a destroyed object.
  if (timer_id_ != 0) MCTTimeProcs::ForgetTimer(*this);
}

bool ZKCTimer::Enabled() const {
  return MCTTimeProcs::TimerRunning(timer_id_);
}

void ZKCTimer::SetEnabled(bool New_Enabled) {
  if (New_Enabled) {
    if (!Enabled()) timer_id_ = MCTTimeProcs::StartTimer(*this, interval_, timer_id_);
  } else {
    MCTTimeProcs::StopTimer(timer_id_);
  }
}

void ZKCTimer::SetInterval(int32_t New_Interval) {
  if (New_Interval < 1) {
    interval_ = 0;
    MCTTimeProcs::StopTimer(timer_id_);
    return;
  }
  // The platform cannot change the period of a running timer; a new one replaces it, and the
  // old id's queued ticks no longer match this object.
  if (Enabled()) {
    MCTTimeProcs::StopTimer(timer_id_);
    timer_id_ = MCTTimeProcs::StartTimer(*this, New_Interval, timer_id_);
  }
  interval_ = New_Interval;
}

void ZKCTimer::TimerCallBack(int32_t id) {
  // Nothing of this object may be used after Emit: a handler may destroy it.
  if (id != 0 && id == timer_id_) timer_.Emit();
}

}  // namespace zk
