#pragma once

#include <utility>

#include "foundation/flag_scope.h"

namespace zk {

// Runs one step of a layout or of a redraw. A step that fails is skipped so that the steps after
// it still run: a control never stops half laid out because one inner element refused a value.
template <typename Step>
void IgnoringFailure(Step&& step) noexcept {
  try {
    std::forward<Step>(step)();
  } catch (...) {
  }
}

}  // namespace zk
