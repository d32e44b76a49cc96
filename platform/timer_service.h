#pragma once

#include <cstdint>
#include <functional>

#include "platform/types.h"

namespace zk {

// The callback of a thread timer: the window (always 0 here), the timer message (275), the
// timer's id and the time of the tick in milliseconds.
using TimerProcedure =
    std::function<void(WindowHandle window, uint32_t message, int32_t id, int32_t time)>;

// Timers that need no window. Ticks arrive through the user-interface thread's message loop,
// never from inside SetTimer or KillTimer.
class ITimerService {
 public:
  virtual ~ITimerService() = default;
  // Starts a timer that calls `procedure` every `interval` milliseconds; returns its id (never
  // 0), or 0 when the platform refuses (an interval below 1).
  virtual int32_t SetTimer(int32_t interval, TimerProcedure procedure) = 0;
  // Stops a timer; false for an id that names no running timer.
  virtual bool KillTimer(int32_t id) = 0;
};

}  // namespace zk
