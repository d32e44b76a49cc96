#include "hosting/script_evaluator.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "hosting/script_parser.h"

namespace zk {
namespace {

std::string Show(const Variant& value) {
  if (value.IsEmpty()) return "<empty>";
  if (value.IsObject()) return "<object>";
  return Utf16ToUtf8(value.ToText());
}

std::string Show(std::span<const Variant> args) {
  std::string out = "(";
  for (size_t i = 0; i < args.size(); ++i) {
    if (i > 0) out += ", ";
    out += Show(args[i]);
  }
  return out + ")";
}

// An object that answers every member from its table of answers (438 for a name it lacks) and
// writes down how each member was reached.
class RecordingObject : public DispatchObject {
 public:
  RecordingObject(std::string name, std::vector<std::string>& log)
      : name_(std::move(name)), log_(log) {}

  Variant GetProperty(std::u16string_view member, std::span<const Variant> index) override {
    log_.push_back("get " + Reached(member) + (index.empty() ? "" : Show(index)));
    return Answer(member);
  }
  void SetProperty(std::u16string_view member, const Variant& value,
                   std::span<const Variant> index) override {
    log_.push_back("set " + Reached(member) + (index.empty() ? "" : Show(index)) + " = " +
                   Show(value));
  }
  Variant CallMethod(std::u16string_view member, std::span<Variant> args) override {
    log_.push_back("call " + Reached(member) + Show(args));
    return Answer(member);
  }

  std::map<std::u16string, Variant> answers;

 private:
  std::string Reached(std::u16string_view member) const {
    return name_ + "." + Utf16ToUtf8(member);
  }
  Variant Answer(std::u16string_view member) const {
    auto found = answers.find(std::u16string(member));
    if (found == answers.end()) throw ZKError::MemberNotFound();
    return found->second;
  }

  std::string name_;
  std::vector<std::string>& log_;
};

class RecordingScope final : public ScriptScope {
 public:
  explicit RecordingScope(std::vector<std::string>& log) : log_(log) {}

  ObjectRef FindObject(std::u16string_view name) override {
    auto found = objects.find(std::u16string(name));
    return found == objects.end() ? nullptr : found->second;
  }
  DispatchObject* ExtenderOf(const DispatchObject& object) override {
    auto found = extenders.find(&object);
    return found == extenders.end() ? nullptr : found->second.get();
  }
  Variant Ambient(std::u16string_view name) override {
    log_.push_back("ambient " + Utf16ToUtf8(name));
    return Variant(255);
  }
  void SetAmbient(std::u16string_view name, const Variant& value) override {
    log_.push_back("ambient " + Utf16ToUtf8(name) + " = " + Show(value));
  }
  Variant CallFunction(std::u16string_view name, std::span<Variant> args) override {
    if (name != u"Twice") throw ZKError(35, u"Sub or Function not defined");
    log_.push_back("function " + Utf16ToUtf8(name) + Show(args));
    return Variant(args.empty() ? 0.0 : args[0].ToDouble() * 2);
  }

  std::map<std::u16string, ObjectRef> objects;
  std::map<const DispatchObject*, std::shared_ptr<RecordingObject>> extenders;

 private:
  std::vector<std::string>& log_;
};

class ScriptEvaluatorTest : public testing::Test {
 protected:
  ScriptEvaluatorTest() {
    obj_->answers = {
        {u"Count", Variant(3)},  {u"Item", Variant(u"third")},           {u"Add", Variant()},
        {u"Refresh", Variant()}, {u"Child", Variant(ObjectRef(other_))}, {u"Number", Variant(5)},
        {u"Unset", Variant()}};
    other_->answers = {{u"Value", Variant(u"v")}, {u"Name", Variant(u"Other")}};
    scope_.objects = {{u"Obj", obj_}, {u"Other", other_}};
    scope_.extenders[obj_.get()] = std::make_shared<RecordingObject>("Extender", log_);
  }

  // Runs one statement and gives what the objects saw.
  std::vector<std::string> Run(std::u16string_view statement) {
    log_.clear();
    ScriptParser parser(statement);
    evaluator_.Execute(parser.MemberStatement());
    return log_;
  }

  std::vector<std::string> log_;
  std::shared_ptr<RecordingObject> obj_ = std::make_shared<RecordingObject>("Obj", log_);
  std::shared_ptr<RecordingObject> other_ = std::make_shared<RecordingObject>("Other", log_);
  RecordingScope scope_{log_};
  ScriptEvaluator evaluator_{scope_};
};

TEST_F(ScriptEvaluatorTest, ArgumentsAndIndexesReachTheMemberInTheirOrder) {
  struct Row {
    std::u16string statement;
    std::vector<std::string> seen;
  };
  const Row rows[] = {
      {u"Obj.Add \"x\", , \"t\"", {"call Obj.Add(x, <empty>, t)"}},
      {u"Obj.Add(\"x\", , 3)", {"call Obj.Add(x, <empty>, 3)"}},
      {u"Obj.Add (\"x\"), True", {"call Obj.Add(x, True)"}},
      {u"Obj.Add , , zktTextAlignRight", {"call Obj.Add(<empty>, <empty>, 1)"}},
      {u"Obj.Refresh()", {"call Obj.Refresh()"}},
      {u"Obj.Refresh", {"get Obj.Refresh"}},
      {u"Obj.Item(2) = \"k\"", {"set Obj.Item(2) = k"}},
      {u"Obj.Item(\"x\", -1.5) = False", {"set Obj.Item(x, -1.5) = False"}},
      {u"Obj.Item(Twice(4)) = Nothing", {"function Twice(4)", "set Obj.Item(8) = <empty>"}},
      // The target's objects and indexes come before the value.
      {u"Obj.Item(Obj.Count) = Other.Value",
       {"get Obj.Count", "get Other.Value", "set Obj.Item(3) = v"}},
      {u"Obj.Child.Name = Obj.Item(1)",
       {"get Obj.Child", "call Obj.Item(1)", "set Other.Name = third"}},
      // Host-side members go to the host's extender of the object.
      {u"Obj.Left = 5", {"set Extender.Left = 5"}},
      {u"Obj.tabindex = 0", {"set Extender.tabindex = 0"}},
      {u"Other.Left = 5", {"set Other.Left = 5"}},
      {u"form.BackColor = &HFF", {"ambient BackColor = 255"}},
      {u"form.BackColor", {"ambient BackColor"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.statement));
    EXPECT_EQ(Run(row.statement), row.seen);
  }
}

TEST_F(ScriptEvaluatorTest, ValuesAreLiteralsNamesAndMembers) {
  struct Row {
    std::u16string expression;
    std::string value;
  };
  const Row rows[] = {
      {u"\"a\"\"b\"", "a\"b"},    {u"&H10", "16"},
      {u"true", "True"},          {u"FALSE", "False"},
      {u"Nothing", "<empty>"},    {u"zktTextAlignRight", "1"},
      {u"Obj", "<object>"},       {u"Obj.Item(2, , \"z\")", "third"},
      {u"Obj.Child.Value", "v"},  {u"Twice(Obj.Count)", "6"},
      {u"form.ForeColor", "255"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.expression));
    ScriptParser parser(row.expression);
    EXPECT_EQ(Show(evaluator_.Evaluate(parser.Value())), row.value);
  }
}

TEST_F(ScriptEvaluatorTest, FailuresCarryTheirErrorNumbers) {
  struct Row {
    std::u16string statement;
    int32_t number;
    std::u16string description;
  };
  const Row rows[] = {
      {u"Missing.Caption = 1", 424, u"Object required: Missing"},
      {u"Nothing.Caption = 1", 424, u"Object required: Nothing"},
      {u"True.Caption = 1", 424, u"Object required: True"},
      {u"Obj.Number.Size = 1", 424, u"Object required"},
      {u"Obj.Unset.Size = 1", 91, u"Object variable or With block variable not set"},
      {u"Obj.Nope.Size = 1", 438, u"Object doesn't support this property or method"},
      {u"Obj.Item(Missing.Value) = 1", 424, u"Object required: Missing"},
      {u"form.BackColor(1) = 2", 450, u"Wrong number of arguments or invalid property assignment"},
      {u"Obj.Add Unknown(1)", 35, u"Sub or Function not defined"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.statement));
    try {
      Run(row.statement);
      ADD_FAILURE() << "no error";
    } catch (const ZKError& error) {
      EXPECT_EQ(error.Number(), row.number);
      EXPECT_EQ(error.Description(), row.description);
    }
  }
  // A value that fails leaves the target untouched.
  EXPECT_THROW(Run(u"Obj.Item(1) = Other.Nope"), ZKError);
  EXPECT_EQ(log_, std::vector<std::string>{"get Other.Nope"});
}

}  // namespace
}  // namespace zk
