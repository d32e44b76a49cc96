#include "services/subclass.h"

#include "services/subclass_procs.h"

namespace zk {

ZKCSubclass::~ZKCSubclass() {
  Unhook();
  // A refused unhook leaves the entry behind; it must not outlive the object it points at.
  MSubclass::Forget(this);
}

bool ZKCSubclass::Hook(WindowHandle window) {
  if (previous_procedure_ != 0 || window == 0) return false;
  const int32_t previous = MSubclass::Hook(this, window);
  if (previous == 0) return false;
  previous_procedure_ = previous;
  window_ = window;
  return true;
}

bool ZKCSubclass::Unhook() {
  if (previous_procedure_ == 0) return false;
  const bool unhooked = MSubclass::Unhook(this);
  previous_procedure_ = 0;
  window_ = 0;
  return unhooked;
}

}  // namespace zk
