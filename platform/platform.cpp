#include "platform/platform.h"

#include "foundation/zk_error.h"

namespace zk {
namespace {

IPlatform* g_current_platform = nullptr;

}  // namespace

IPlatform& CurrentPlatform() {
  if (g_current_platform == nullptr) {
    throw ZKError(91, u"Object variable or With block variable not set", u"platform");
  }
  return *g_current_platform;
}

bool HasCurrentPlatform() noexcept {
  return g_current_platform != nullptr;
}

IPlatform* SetCurrentPlatform(IPlatform* platform) noexcept {
  IPlatform* previous = g_current_platform;
  g_current_platform = platform;
  return previous;
}

}  // namespace zk
