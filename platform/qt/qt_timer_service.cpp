#include "platform/qt/qt_timer_service.h"

#include <utility>

#include "platform/window_messages.h"

namespace zk {

QtTimerService::QtTimerService() {
  clock_.start();
}

QtTimerService::~QtTimerService() = default;

int32_t QtTimerService::SetTimer(int32_t interval, TimerProcedure procedure) {
  if (interval < 1 || !procedure) return 0;
  const int32_t id = next_id_++;
  auto timer = std::make_unique<QTimer>();
  timer->setInterval(interval);
  timer->setTimerType(Qt::PreciseTimer);
  QObject::connect(timer.get(), &QTimer::timeout, [this, id, procedure = std::move(procedure)] {
    // A copy: the procedure may kill its own timer, and the QTimer with it.
    const TimerProcedure tick = procedure;
    tick(0, window_message::kTimer, id, static_cast<int32_t>(clock_.elapsed()));
  });
  timer->start();
  timers_.emplace(id, std::move(timer));
  return id;
}

bool QtTimerService::KillTimer(int32_t id) {
  auto found = timers_.find(id);
  if (found == timers_.end()) return false;
  found->second->stop();
  // The timer may be inside its own timeout: let Qt delete it when that is over.
  found->second.release()->deleteLater();
  timers_.erase(found);
  return true;
}

}  // namespace zk
