#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/types.h"

namespace zk {

class ZKCSubclass;

// The module behind ZKCSubclass: it installs the one shared window procedure in hooked
// windows, keeps the registry of hooked windows ("<handle>_" to the object, not owned) and
// routes every message of a hooked window to its object. Failures are traced with the source
// "MSubClass" and reported only as results.
namespace MSubclass {

// Installs the shared procedure in `window` for `object`; returns the window's previous
// procedure, 0 on failure.
int32_t Hook(ZKCSubclass* object, WindowHandle window);
// Puts the object's previous procedure back and removes its entry; false when not hooked or
// the platform refuses.
bool Unhook(ZKCSubclass* object);
// The shared window procedure of every hooked window.
int32_t WindowProc(WindowHandle window, uint32_t uMsg, int32_t wParam, int32_t lParam);

// Removes every entry of `object` without touching its window, for an object that goes away
// while its window could not be given back its procedure.
void Forget(const ZKCSubclass* object);

// Read-only views for tests and diagnostics. The procedure address is that of the shared
// procedure in the current registry's window system, 0 without a registry.
bool RegistryExists();
std::vector<std::u16string> RegistryKeys();
int32_t ProcedureAddress();

}  // namespace MSubclass
}  // namespace zk
