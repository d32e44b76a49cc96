#pragma once

#include <span>
#include <string_view>

namespace zk {

// The "script" command of a program: `[--platform headless|qt] [FILE|-]` runs the statements of
// FILE (standard input for - or none) on a new form of that platform (headless by default; Qt
// shows its form, offscreen when there is no display) and prints what the script host prints.
// Returns the script host's status (0, or 1 when a statement failed), or 2 when the arguments
// or the file cannot be used; `program` names the program in its error messages.
int RunScriptCommand(std::span<const std::string_view> args, std::string_view program);

}  // namespace zk
