#include "platform/common/window_procedures.h"

#include <utility>

namespace zk {

int32_t WindowProcedureTable::Register(WindowProcedure procedure) {
  const int32_t address = next_address_;
  next_address_ += 16;
  procedures_.emplace(address, std::move(procedure));
  return address;
}

int32_t WindowProcedureTable::Call(int32_t address, WindowHandle window, uint32_t message,
                                   int32_t wparam, int32_t lparam) const {
  auto found = procedures_.find(address);
  if (found == procedures_.end()) return 0;
  const WindowProcedure procedure = found->second;  // it may release itself while it runs
  return procedure(window, message, wparam, lparam);
}

}  // namespace zk
