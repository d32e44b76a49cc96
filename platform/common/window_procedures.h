#pragma once

#include <cstdint>
#include <map>

#include "platform/window_system.h"

namespace zk {

// The window procedures of a window system by address: every window system hands out addresses
// for the procedures it knows and calls them by address, so that a procedure can be swapped into
// a window and the previous one called later.
class WindowProcedureTable {
 public:
  // Addresses are handed out from `first_address` on, 16 apart.
  explicit WindowProcedureTable(int32_t first_address) : next_address_(first_address) {}

  int32_t Register(WindowProcedure procedure);
  void Release(int32_t address) { procedures_.erase(address); }
  bool Contains(int32_t address) const { return procedures_.contains(address); }
  // Calls the procedure at `address`; 0 for an unknown address. A procedure may release itself
  // (or others) while it runs.
  int32_t Call(int32_t address, WindowHandle window, uint32_t message, int32_t wparam,
               int32_t lparam) const;

 private:
  std::map<int32_t, WindowProcedure> procedures_;
  int32_t next_address_;
};

}  // namespace zk
