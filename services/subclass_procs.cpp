#include "services/subclass_procs.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/debug_utils.h"
#include "foundation/zk_error.h"
#include "platform/platform.h"
#include "platform/window_messages.h"
#include "services/subclass.h"

namespace zk::MSubclass {
namespace {

constexpr std::u16string_view kSource = u"MSubClass";
constexpr int32_t kObjectNotSet = 91;
constexpr int32_t kDuplicateKey = 457;

// The hooked windows, and the address under which the shared procedure is installed in them.
// Both live exactly as long as there are hooked windows: the address is registered with the
// first hook and released when the last window is unhooked. An address belongs to one window
// system, so the registry remembers which one handed it out.
struct Registry {
  std::map<std::u16string, ZKCSubclass*> entries;
  IWindowSystem* windows = nullptr;
  int32_t procedure = 0;
};

std::optional<Registry>& TheRegistry() {
  static std::optional<Registry> registry;
  return registry;
}

std::u16string KeyOf(WindowHandle window) {
  const std::string digits = std::to_string(window);
  std::u16string key(digits.begin(), digits.end());
  key += u'_';
  return key;
}

ZKCSubclass* Lookup(const std::u16string& key) {
  auto& registry = TheRegistry();
  if (!registry) return nullptr;
  auto found = registry->entries.find(key);
  return found == registry->entries.end() ? nullptr : found->second;
}

// The address of the shared procedure in `windows`. A registry kept from another window
// system (its platform was replaced while windows stayed hooked) gets a new address; the old
// one is left to its own window system, which may no longer exist.
int32_t SharedProcedureIn(IWindowSystem& windows) {
  auto& registry = TheRegistry();
  if (!registry) registry.emplace();
  if (registry->procedure == 0 || registry->windows != &windows) {
    registry->procedure = windows.RegisterWindowProcedure(
        [](WindowHandle window, uint32_t message, int32_t wparam, int32_t lparam) {
          return WindowProc(window, message, wparam, lparam);
        });
    registry->windows = &windows;
  }
  return registry->procedure;
}

void DropRegistryIfEmpty() noexcept {
  auto& registry = TheRegistry();
  if (!registry || !registry->entries.empty()) return;
  IWindowSystem* const windows = registry->windows;
  const int32_t procedure = registry->procedure;
  registry.reset();
  // Released only where it was registered: when that window system is no longer the current
  // one, it may have been destroyed, and its addresses went with it.
  try {
    if (procedure != 0 && HasCurrentPlatform() && &CurrentPlatform().Windows() == windows)
      windows->ReleaseWindowProcedure(procedure);
  } catch (...) {
    MDebugUtils::TraceError(kSource, u"Unook");
  }
}

}  // namespace

int32_t Hook(ZKCSubclass* object, WindowHandle window) {
  if (object == nullptr) {
    MDebugUtils::TraceError(kSource, u"Hook", kObjectNotSet,
                            u"Object variable or With block variable not set");
    return 0;
  }
  if (object->PrevWndProc() != 0) {
    MDebugUtils::TraceError(kSource, u"Hook", error_number::kInvalidProcedureCall,
                            u"The object already hooks a window");
    return 0;
  }
  try {
    const std::u16string key = KeyOf(window);
    // One object per window: a second hook would install the shared procedure over itself and
    // lose the first object's previous procedure.
    if (Lookup(key) != nullptr) {
      MDebugUtils::TraceError(kSource, u"Hook", kDuplicateKey,
                              u"This key is already associated with an element of this collection");
      return 0;
    }
    IWindowSystem& windows = CurrentPlatform().Windows();
    const int32_t procedure = SharedProcedureIn(windows);
    const int32_t previous =
        windows.SetWindowLong(window, window_long::kWindowProcedure, procedure);
    if (previous == 0) {
      DropRegistryIfEmpty();
      return 0;
    }
    try {
      TheRegistry()->entries.emplace(key, object);
    } catch (...) {
      // Unregistered, the window's messages would find no owner: give its procedure back.
      windows.SetWindowLong(window, window_long::kWindowProcedure, previous);
      throw;
    }
    return previous;
  } catch (...) {
    DropRegistryIfEmpty();
    MDebugUtils::TraceError(kSource, u"Hook");
    return 0;
  }
}

bool Unhook(ZKCSubclass* object) {
  if (object == nullptr) {
    MDebugUtils::TraceError(kSource, u"Unook", kObjectNotSet,
                            u"Object variable or With block variable not set");
    return false;
  }
  try {
    auto& registry = TheRegistry();
    if (!registry || object->hWnd() == 0 || object->PrevWndProc() == 0) return false;
    if (CurrentPlatform().Windows().SetWindowLong(object->hWnd(), window_long::kWindowProcedure,
                                                  object->PrevWndProc()) == 0) {
      MDebugUtils::TraceError(kSource, u"Unook", error_number::kInvalidProcedureCall,
                              u"The window refused its previous procedure");
      return false;
    }
    auto found = registry->entries.find(KeyOf(object->hWnd()));
    if (found != registry->entries.end() && found->second == object) registry->entries.erase(found);
    DropRegistryIfEmpty();
    return true;
  } catch (...) {
    MDebugUtils::TraceError(kSource, u"Unook");
    return false;
  }
}

int32_t WindowProc(WindowHandle window, uint32_t uMsg, int32_t wParam, int32_t lParam) {
  std::u16string key;
  try {
    key = KeyOf(window);
    ZKCSubclass* object = Lookup(key);
    if (object == nullptr) {
      MDebugUtils::TraceError(kSource, u"WindowProc", error_number::kInvalidProcedureCall,
                              u"No hooked object for the window");
      return 0;
    }
    object->BeforeEvent().Emit(uMsg, wParam, lParam);
    // Every handler and the previous procedure may unhook or destroy the object; only an
    // object still registered under the window is known to be alive.
    int32_t result = 0;
    object = Lookup(key);
    if (object != nullptr && object->Propagate() && object->PrevWndProc() != 0) {
      result = CurrentPlatform().Windows().CallWindowProc(object->PrevWndProc(), window, uMsg,
                                                          wParam, lParam);
      if ((object = Lookup(key)) != nullptr) object->AfterEvent().Emit(uMsg, wParam, lParam);
      object = Lookup(key);
    }
    // The window's last message: after it the handle is dead and may be reused.
    if (uMsg == window_message::kNcDestroy && object != nullptr) object->Unhook();
    return result;
  } catch (...) {
    const MDebugUtils::PendingError error = MDebugUtils::CurrentPendingError();
    // A failing handler ends the hook: the window gets its own procedure back rather than
    // failing on every further message.
    if (ZKCSubclass* object = key.empty() ? nullptr : Lookup(key)) object->Unhook();
    MDebugUtils::TraceError(kSource, u"WindowProc", error.number, error.description);
    return 0;
  }
}

void Forget(const ZKCSubclass* object) {
  auto& registry = TheRegistry();
  if (!registry) return;
  std::erase_if(registry->entries, [object](const auto& entry) { return entry.second == object; });
  DropRegistryIfEmpty();
}

bool RegistryExists() {
  return TheRegistry().has_value();
}

std::vector<std::u16string> RegistryKeys() {
  std::vector<std::u16string> keys;
  if (const auto& registry = TheRegistry()) {
    for (const auto& [key, object] : registry->entries)
      keys.push_back(key);
  }
  return keys;
}

int32_t ProcedureAddress() {
  const auto& registry = TheRegistry();
  return registry ? registry->procedure : 0;
}

}  // namespace zk::MSubclass
