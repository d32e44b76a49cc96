#include "hosting/script_evaluator.h"

#include <array>
#include <optional>
#include <utility>

#include "foundation/zk_error.h"
#include "framework/control.h"
#include "framework/type_library.h"

namespace zk {
namespace {

constexpr std::array<std::u16string_view, 11> kExtenderMembers = {
    u"Name",    u"Top",    u"Left",        u"Width",    u"Height", u"Visible",
    u"Default", u"Cancel", u"ToolTipText", u"TabIndex", u"TabStop"};

bool IsExtenderMember(std::u16string_view name) {
  for (std::u16string_view member : kExtenderMembers) {
    if (MemberNameEquals(member, name)) return true;
  }
  return false;
}

[[noreturn]] void WrongArguments() {
  throw ZKError(450, u"Wrong number of arguments or invalid property assignment");
}

}  // namespace

Variant ScriptEvaluator::Evaluate(const ScriptExpression& expression) {
  switch (expression.kind) {
    case ScriptExpression::Kind::kOmitted:
      return Variant();
    case ScriptExpression::Kind::kText:
      return Variant(expression.text);
    case ScriptExpression::Kind::kNumber:
      return Variant(expression.number);
    case ScriptExpression::Kind::kReference:
      break;
  }
  if (expression.steps.size() == 1) return RootValue(expression.steps.front());
  Member member = Resolve(expression);
  return Read(member);
}

void ScriptEvaluator::Execute(const ScriptMemberStatement& statement) {
  Member member = Resolve(statement.target);
  if (!statement.value) {
    Read(member);
    return;
  }
  const Variant value = Evaluate(*statement.value);
  if (member.ambient) {
    if (!member.args.empty()) WrongArguments();
    scope_.SetAmbient(member.step->name, value);
    return;
  }
  member.object->SetProperty(member.step->name, value, member.args);
}

ScriptEvaluator::Member ScriptEvaluator::Resolve(const ScriptExpression& reference) {
  const std::vector<ScriptStep>& steps = reference.steps;
  Member member;
  const ScriptStep& root = steps.front();
  if (!root.parenthesized && MemberNameEquals(root.name, u"form")) {
    member.ambient = true;
  } else {
    const Variant value = RootValue(root);
    ObjectRef object = value.IsObject() ? value.ToObject() : nullptr;
    if (!object) throw ZKError(error_number::kObjectRequired, u"Object required: " + root.name);
    member.object = object.get();
    member.keep_alive = std::move(object);
  }
  for (size_t i = 1; i < steps.size(); ++i) {
    const ScriptStep& step = steps[i];
    if (member.object != nullptr && IsExtenderMember(step.name)) {
      // Name, Top, Left ... of a placed control belong to the host's extender of it.
      if (DispatchObject* extender = scope_.ExtenderOf(*member.object)) member.object = extender;
    }
    member.step = &step;
    member.args = EvaluateArguments(step);
    if (i + 1 == steps.size()) break;
    // A member of an object property: its value is the next object.
    ObjectRef next = Read(member).ToObject();
    if (!next) throw ZKError(91, u"Object variable or With block variable not set");
    member.object = next.get();
    member.keep_alive = std::move(next);
    member.ambient = false;
  }
  return member;
}

Variant ScriptEvaluator::Read(Member& member) {
  const std::u16string& name = member.step->name;
  if (member.ambient) {
    if (!member.args.empty()) WrongArguments();
    return scope_.Ambient(name);
  }
  if (member.step->parenthesized || dynamic_cast<ZKControl*>(member.object) != nullptr) {
    return member.object->CallMethod(name, member.args);
  }
  return member.object->GetProperty(name);
}

Variant ScriptEvaluator::RootValue(const ScriptStep& root) {
  if (root.parenthesized) {
    std::vector<Variant> args = EvaluateArguments(root);
    return scope_.CallFunction(root.name, args);
  }
  if (MemberNameEquals(root.name, u"True")) return Variant(true);
  if (MemberNameEquals(root.name, u"False")) return Variant(false);
  if (MemberNameEquals(root.name, u"Nothing")) return Variant();
  if (std::optional<int32_t> value = FindEnumerator(root.name)) return Variant(*value);
  if (ObjectRef object = scope_.FindObject(root.name)) return Variant(std::move(object));
  throw ZKError(error_number::kObjectRequired, u"Object required: " + root.name);
}

std::vector<Variant> ScriptEvaluator::EvaluateArguments(const ScriptStep& step) {
  std::vector<Variant> args;
  args.reserve(step.arguments.size());
  for (const ScriptExpression& argument : step.arguments)
    args.push_back(Evaluate(argument));
  return args;
}

}  // namespace zk
