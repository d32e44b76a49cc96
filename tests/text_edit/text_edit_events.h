#pragma once

#include <string>
#include <utility>
#include <vector>

#include "foundation/signal.h"
#include "framework/control.h"

namespace zk {

// Every event a control raises, as "Name arg arg", in the order they came.
class EventLog {
 public:
  explicit EventLog(ZKControl& control)
      : connection_(control.EventRaised().Connect(
            [this](std::u16string_view name, std::span<const Variant> args) {
              std::u16string line(name);
              for (const Variant& arg : args)
                line += u" " + arg.ToText();
              lines_.push_back(std::move(line));
            })) {}

  std::vector<std::u16string> Take() { return std::exchange(lines_, {}); }

 private:
  std::vector<std::u16string> lines_;
  ScopedConnection connection_;
};

}  // namespace zk
