#pragma once

#include <cstdint>

#include "foundation/signal.h"

namespace zk {

// A timer that needs no form: while enabled it raises Timer every Interval milliseconds.
// Controls hold one as a member and handle its Timer event. Not copyable, because the timer
// registry refers to the object by address.
class ZKCTimer {
 public:
  ZKCTimer() = default;
  ZKCTimer(const ZKCTimer&) = delete;
  ZKCTimer& operator=(const ZKCTimer&) = delete;
  ~ZKCTimer();

  bool Enabled() const;
  void SetEnabled(bool New_Enabled);
  int32_t Interval() const { return interval_; }
  // Below 1 stores 0 and stops the timer; a running timer restarts with the new interval.
  void SetInterval(int32_t New_Interval);

  // Raised on each tick of this timer.
  Signal<>& Timer() { return timer_; }

  // Called by the timer module for a tick of `id`; ticks of an id that is no longer this
  // object's (a timer stopped or restarted since) are dropped.
  void TimerCallBack(int32_t id);

 private:
  int32_t interval_ = 1000;
  int32_t timer_id_ = 0;
  Signal<> timer_;
};

}  // namespace zk
