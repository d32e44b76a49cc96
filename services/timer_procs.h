#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/types.h"

namespace zk {

class ZKCTimer;

// The module behind ZKCTimer: it starts and stops the platform's thread timers, keeps the
// registry of running timers and receives the platform's timer callback. The registry maps
// "<id>T" to its timer object without owning it; every object removes its own entry.
namespace MCTTimeProcs {

// Starts a platform timer for `object` when `current_id` is 0 and `interval` is above 0 and
// returns its id; otherwise returns `current_id` unchanged (0 when the platform refuses).
int32_t StartTimer(ZKCTimer& object, int32_t interval, int32_t current_id);
// Stops the timer `id` and sets it to 0; the id stays when the platform cannot stop it.
void StopTimer(int32_t& id);
bool TimerRunning(int32_t id);
// The platform's callback: hands a tick to the timer object it belongs to.
void TimerProc(WindowHandle window, uint32_t message, int32_t id, int32_t time);

// Removes any entry of `object` from the registry without touching the platform, for an object
// that goes away while its platform timer could not be stopped. A later tick of that timer
// finds no entry and stops it.
void ForgetTimer(const ZKCTimer& object);

// Read-only views for tests and diagnostics.
bool RegistryExists();
std::vector<std::u16string> RegistryKeys();

}  // namespace MCTTimeProcs
}  // namespace zk
