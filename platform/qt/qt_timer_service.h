#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <map>
#include <memory>

#include "platform/timer_service.h"

namespace zk {

// Timers of the Qt platform: one QTimer each, ticking through Qt's event loop.
class QtTimerService final : public ITimerService {
 public:
  QtTimerService();
  ~QtTimerService() override;
  int32_t SetTimer(int32_t interval, TimerProcedure procedure) override;
  bool KillTimer(int32_t id) override;

 private:
  std::map<int32_t, std::unique_ptr<QTimer>> timers_;
  QElapsedTimer clock_;
  int32_t next_id_ = 4242;
};

}  // namespace zk
