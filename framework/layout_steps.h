#pragma once

#include <utility>

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

// Sets a control's re-entry flag for the life of the scope, however the guarded work ends.
class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;
  ~FlagScope() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace zk
