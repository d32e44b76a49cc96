#include "services/timer_procs.h"

#include <map>
#include <optional>
#include <string>

#include "foundation/debug_utils.h"
#include "platform/platform.h"
#include "platform/window_messages.h"
#include "services/timer.h"

namespace zk::MCTTimeProcs {
namespace {

constexpr std::u16string_view kSource = u"MCTTimeProcs";

// Running timers by key. It exists only while it has entries, so a process without running
// timers holds no timer state at all.
std::optional<std::map<std::u16string, ZKCTimer*>>& Registry() {
  static std::optional<std::map<std::u16string, ZKCTimer*>> registry;
  return registry;
}

std::u16string KeyOf(int32_t id) {
  const std::string digits = std::to_string(id);
  std::u16string key(digits.begin(), digits.end());
  key += u'T';
  return key;
}

void DropRegistryIfEmpty() {
  auto& registry = Registry();
  if (registry && registry->empty()) registry.reset();
}

ZKCTimer* Lookup(int32_t id) {
  auto& registry = Registry();
  if (!registry) return nullptr;
  auto found = registry->find(KeyOf(id));
  return found == registry->end() ? nullptr : found->second;
}

}  // namespace

int32_t StartTimer(ZKCTimer& object, int32_t interval, int32_t current_id) {
  // A running timer is never started twice, and an interval of 0 means no ticks at all.
  if (current_id != 0 || interval <= 0) return current_id;
  try {
    ITimerService& timers = CurrentPlatform().Timers();
    const int32_t id = timers.SetTimer(interval, &TimerProc);
    if (id == 0) return current_id;
    try {
      auto& registry = Registry();
      if (!registry) registry.emplace();
      // A platform never hands out the id of a running timer again, so an entry already under
      // this key can only be a leftover of a timer that could not be stopped; the new one wins.
      registry->insert_or_assign(KeyOf(id), &object);
    } catch (...) {
      // Without an entry the ticks would find no owner; do not leave the timer running.
      timers.KillTimer(id);
      DropRegistryIfEmpty();
      throw;
    }
    return id;
  } catch (...) {
    MDebugUtils::TraceError(kSource, u"StartTimer");
    return current_id;
  }
}

void StopTimer(int32_t& id) {
  if (!Registry() || id == 0) return;
  try {
    if (!CurrentPlatform().Timers().KillTimer(id)) return;
    Registry()->erase(KeyOf(id));
    id = 0;
    DropRegistryIfEmpty();
  } catch (...) {
    MDebugUtils::TraceError(kSource, u"StopTimer");
  }
}

bool TimerRunning(int32_t id) {
  return id != 0;
}

void TimerProc(WindowHandle /*window*/, uint32_t message, int32_t id, int32_t /*time*/) {
  if (message != window_message::kTimer) return;
  // Nothing may escape into the platform's message loop, a Timer handler's error included.
  try {
    if (ZKCTimer* object = Lookup(id)) {
      object->TimerCallBack(id);
      return;
    }
    // A tick nobody owns (its object is gone, or it was queued before a stop): end that timer
    // so that it does not keep ticking into the void.
    if (!Registry()) {
      CurrentPlatform().Timers().KillTimer(id);
    } else {
      int32_t stale_id = id;
      StopTimer(stale_id);
    }
  } catch (...) {
    MDebugUtils::TraceError(kSource, u"TimerProc");
  }
}

void ForgetTimer(const ZKCTimer& object) {
  auto& registry = Registry();
  if (!registry) return;
  std::erase_if(*registry, [&object](const auto& entry) { return entry.second == &object; });
  DropRegistryIfEmpty();
}

bool RegistryExists() {
  return Registry().has_value();
}

std::vector<std::u16string> RegistryKeys() {
  std::vector<std::u16string> keys;
  if (const auto& registry = Registry()) {
    for (const auto& [key, object] : *registry)
      keys.push_back(key);
  }
  return keys;
}

}  // namespace zk::MCTTimeProcs
