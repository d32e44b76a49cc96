#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zk {

struct ScriptExpression;

// One name of a reference, with the arguments written in parentheses after it:
// `ExtraProp("x")`, `Caption`, `Refresh()`.
struct ScriptStep {
  std::u16string name;
  // Whether parentheses were written (`Refresh()` has them, with no arguments).
  bool parenthesized = false;
  std::vector<ScriptExpression> arguments;
};

// A value as a script writes it, before any name in it is looked up. These three types are the
// nodes of one syntax tree, kept together because none has a meaning without the others.
struct ScriptExpression {
  enum class Kind {
    kOmitted,    // an argument left out between commas: M("x", , "t")
    kText,       // "text" with its doubled quotes made single
    kNumber,     // -3, 2.5, &H8000000F
    kReference,  // NAME, NAME(ARGS), NAME.Member(ARGS).Member ...
  };
  Kind kind = Kind::kOmitted;
  std::u16string text;
  double number = 0;
  // The root name first, then each member.
  std::vector<ScriptStep> steps;
};

// A statement that starts with a member path: an assignment `NAME.Member(INDEX) = VALUE`, or,
// without a value, a call `NAME.Method ARGS` whose arguments are those of the last step.
struct ScriptMemberStatement {
  ScriptExpression target;
  std::optional<ScriptExpression> value;
};

}  // namespace zk
