#pragma once

#include <string>
#include <utility>
#include <vector>

#include "controls/buttons/color_button.h"

namespace zk {

// Every event a button raises, as "Name arg arg [Value]": the Value is read while the event
// runs, which is what a host's handler sees.
class ButtonEventLog {
 public:
  explicit ButtonEventLog(ZKColorButton& button)
      : connection_(button.EventRaised().Connect(
            [this, &button](std::u16string_view name, std::span<const Variant> args) {
              std::u16string line(name);
              for (const Variant& arg : args)
                line += u" " + arg.ToText();
              line += button.Value() == zktToggleSelected ? u" [-1]" : u" [0]";
              lines_.push_back(std::move(line));
            })) {}

  std::vector<std::u16string> Take() { return std::exchange(lines_, {}); }

 private:
  std::vector<std::u16string> lines_;
  ScopedConnection connection_;
};

}  // namespace zk
