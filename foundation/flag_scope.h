#pragma once

namespace zk {

// Raises a re-entry flag for the life of the scope, however the guarded work ends.
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
