#pragma once

#include <vector>

#include "foundation/variant.h"
#include "hosting/script_scope.h"
#include "hosting/script_syntax.h"

namespace zk {

// Gives a script's syntax trees their meaning in a scope: looks the names up, reads and writes
// members by automation and calls methods and functions. A member of a placed control that the
// host keeps (Name, Top, Left ...) goes to the control's extender; the root "form" stands for the
// ambient values. Failures raise the ZKError of the object or of the platform's rules
// (424 object required, 91 object not set, 450 an index where none is taken).
class ScriptEvaluator {
 public:
  explicit ScriptEvaluator(ScriptScope& scope) : scope_(scope) {}

  // The value of an expression: literals as they are, True, False, Nothing and the published
  // enumerators by name, objects by name, function results and member values. An omitted
  // argument is the empty value, which a member takes as a missing argument.
  Variant Evaluate(const ScriptExpression& expression);
  // Runs an assignment (a property write, indexed when the last step has arguments) or a call.
  // The target's objects are found before the value is evaluated.
  void Execute(const ScriptMemberStatement& statement);

 private:
  // The last step of a reference with the object it belongs to and its arguments evaluated.
  struct Member {
    DispatchObject* object = nullptr;
    ObjectRef keep_alive;
    bool ambient = false;
    const ScriptStep* step = nullptr;
    std::vector<Variant> args;
  };

  // Resolves every step of a reference of two steps or more but the last.
  Member Resolve(const ScriptExpression& reference);
  // A member read: methods and properties of controls (indexed ones too) by the control's
  // CallMethod, properties of other objects by GetProperty unless arguments are written.
  Variant Read(Member& member);
  // A reference's first step alone: a function call or a name.
  Variant RootValue(const ScriptStep& root);
  std::vector<Variant> EvaluateArguments(const ScriptStep& step);

  ScriptScope& scope_;
};

}  // namespace zk
