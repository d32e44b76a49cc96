#include "hosting/script_parser.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

std::string Describe(const ScriptExpression& expression);

// A tree in one line: texts in brackets as they were meant (quotes undoubled), numbers after
// "#", omitted arguments as <omitted>, references with the arguments they were written with.
std::string Describe(const ScriptStep& step) {
  std::string out = Utf16ToUtf8(step.name);
  if (!step.parenthesized) return out;
  out += "(";
  for (size_t i = 0; i < step.arguments.size(); ++i) {
    if (i > 0) out += ", ";
    out += Describe(step.arguments[i]);
  }
  return out + ")";
}

std::string Describe(const ScriptExpression& expression) {
  switch (expression.kind) {
    case ScriptExpression::Kind::kOmitted:
      return "<omitted>";
    case ScriptExpression::Kind::kText:
      return "[" + Utf16ToUtf8(expression.text) + "]";
    case ScriptExpression::Kind::kNumber: {
      char number[32];
      std::snprintf(number, sizeof number, "#%.17g", expression.number);
      return number;
    }
    case ScriptExpression::Kind::kReference:
      break;
  }
  std::string out;
  for (const ScriptStep& step : expression.steps) {
    if (!out.empty()) out += ".";
    out += Describe(step);
  }
  return out;
}

std::string Describe(const ScriptMemberStatement& statement) {
  std::string out = Describe(statement.target);
  if (statement.value) out += " = " + Describe(*statement.value);
  return out;
}

// The description of the syntax error a piece of script raises, or "(accepted)".
template <typename Read>
std::string SyntaxErrorOf(std::u16string_view text, Read read) {
  ScriptParser parser(text);
  try {
    read(parser);
  } catch (const ZKError& error) {
    EXPECT_EQ(error.Number(), error_number::kInvalidProcedureCall);
    return Utf16ToUtf8(error.Description());
  }
  return "(accepted)";
}

struct Row {
  std::u16string text;
  std::string tree;
};

TEST(ScriptParserTest, ReadsValues) {
  const Row rows[] = {
      {u"\"Sum of \"\"net\"\"\"", "[Sum of \"net\"]"},
      {u"\"\"\"\"", "[\"]"},
      {u"\"\"", "[]"},
      {u"\"it's, (really)\"", "[it's, (really)]"},
      {u"-3", "#-3"},
      {u"2.5", "#2.5"},
      {u"&HFF", "#255"},
      {u"zktTextAlignRight", "zktTextAlignRight"},
      {u"L.Caption", "L.Caption"},
      {u"  L . Font . Size  ", "L.Font.Size"},
      {u"L.Refresh()", "L.Refresh()"},
      {u"LoadPicture(\"face.png\")", "LoadPicture([face.png])"},
      {u"E.ItemList(2)", "E.ItemList(#2)"},
      {u"L.ExtraProp(\"x\")", "L.ExtraProp([x])"},
      {u"E.ItemList( 2 , \"k\" )", "E.ItemList(#2, [k])"},
      {u"C.ExtraAction(\"a\", , \"t\")", "C.ExtraAction([a], <omitted>, [t])"},
      {u"C.M(, ,1)", "C.M(<omitted>, <omitted>, #1)"},
      {u"E.ItemList(L.ListIndex)", "E.ItemList(L.ListIndex)"},
      {u"E.ExtraProp(C.ExtraProp(\"a,b)\"), -1)", "E.ExtraProp(C.ExtraProp([a,b)]), #-1)"},
      {u"E.ExtraProp(zktAlignTop).Size", "E.ExtraProp(zktAlignTop).Size"},
      {u"\"x\" ' a comment", "[x]"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.text));
    ScriptParser parser(row.text);
    EXPECT_EQ(Describe(parser.Value()), row.tree);
    EXPECT_TRUE(parser.AtEnd());
  }
}

TEST(ScriptParserTest, ReadsAssignmentsAndCalls) {
  const Row rows[] = {
      {u"E.ItemList(2) = \"k\"", "E.ItemList(#2) = [k]"},
      {u"E.ExtraProp(\"x\") = \"y\"", "E.ExtraProp([x]) = [y]"},
      {u"E.ExtraProp(zktAlignTop)=-2", "E.ExtraProp(zktAlignTop) = #-2"},
      {u"L.Font.Size = 12", "L.Font.Size = #12"},
      {u"form.BackColor = &HC0FFC0", "form.BackColor = #12648384"},
      {u"L.Caption = L2.Caption", "L.Caption = L2.Caption"},
      {u"L.Caption = \"a ' b\" ' note", "L.Caption = [a ' b]"},
      // Calls: the arguments belong to the last step, however they were written.
      {u"L.Refresh", "L.Refresh"},
      {u"L.Refresh()", "L.Refresh()"},
      {u"E.AddItem \"x\", , \"t\"", "E.AddItem([x], <omitted>, [t])"},
      {u"E.AddItem(\"x\", , \"t\")", "E.AddItem([x], <omitted>, [t])"},
      {u"E.AddItem (\"x\"), , \"t\"", "E.AddItem([x], <omitted>, [t])"},
      {u"E.AddItem , \"t\"", "E.AddItem(<omitted>, [t])"},
      {u"E.AddItem E.ItemList(1), 2", "E.AddItem(E.ItemList(#1), #2)"},
      {u"C.ExtraAction \"a\" ' and a comment", "C.ExtraAction([a])"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.text));
    ScriptParser parser(row.text);
    ASSERT_TRUE(parser.AtMemberPath());
    EXPECT_EQ(Describe(parser.MemberStatement()), row.tree);
  }
}

TEST(ScriptParserTest, MalformedStatementsAreSyntaxErrors) {
  const Row rows[] = {
      {u"L.Caption = \"open", "Syntax error: a text without its closing quote"},
      {u"L.Caption = \"a\"\"", "Syntax error: a text without its closing quote"},
      {u"L.ExtraProp(\"x\"", "Syntax error: a \"(\" without its \")\""},
      {u"L.ExtraProp(\"x\", ", "Syntax error: a \"(\" without its \")\""},
      {u"L.ExtraProp(", "Syntax error: a \"(\" without its \")\""},
      {u"L.ExtraProp(\"x\" = 1", "Syntax error: expected \",\" or \")\""},
      {u"E.M(\"a\" \"b\")", "Syntax error: expected \",\" or \")\""},
      {u"E.M(1, )", "Syntax error: an argument is missing after \",\""},
      {u"E.M 1,", "Syntax error: an argument is missing after \",\""},
      {u"E.M(1))", "Syntax error: unexpected text after the call"},
      {u"E.M(1)(2)", "Syntax error: unexpected text after the call"},
      {u"E.M(1) 2", "Syntax error: unexpected text after the call"},
      {u"E.M (1, 2), 3", "Syntax error: unexpected text after the call"},
      {u"E.M 1 2", "Syntax error: unexpected text after the arguments"},
      {u"L.Caption = 1 2", "Syntax error: unexpected text after the value"},
      {u"L.Caption = )", "Syntax error: expected a name"},
      {u"L.Caption =", "Syntax error: a value is missing"},
      {u"L.Caption = 12abc", "Syntax error: not a value: 12abc"},
      {u"E.ItemList(2x) = 1", "Syntax error: not a value: 2x"},
      {u"L.", "Syntax error: expected a name"},
      {u"L.1", "Syntax error: expected a name"},
      {u"L", "Syntax error: expected NAME.Member"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.text));
    EXPECT_EQ(SyntaxErrorOf(row.text, [](ScriptParser& parser) { parser.MemberStatement(); }),
              row.tree);
  }
}

TEST(ScriptParserTest, ReadsTheOperandsOfCommands) {
  ScriptParser parser(u"new ZKLabel Total IN Frame1 ' placed inside");
  EXPECT_FALSE(parser.AtMemberPath());
  EXPECT_EQ(parser.Name(), u"new");
  EXPECT_FALSE(parser.ConsumeKeyword(u"in"));
  EXPECT_EQ(parser.Name(), u"ZKLabel");
  EXPECT_FALSE(parser.ConsumeKeyword(u"in"));  // "Total" is a name, not the keyword
  EXPECT_EQ(parser.Name(), u"Total");
  EXPECT_TRUE(parser.ConsumeKeyword(u"in"));
  EXPECT_EQ(parser.Name(), u"Frame1");
  EXPECT_TRUE(parser.AtEnd());

  ScriptParser inside(u"new ZKLabel inside");
  inside.Name();
  inside.Name();
  EXPECT_FALSE(inside.ConsumeKeyword(u"in"));  // only the whole word counts
  EXPECT_EQ(inside.Name(), u"inside");

  ScriptParser words(u"save \"my \"\"form\"\".zkf\" plain.zkf &H10 -2.5");
  EXPECT_EQ(words.Name(), u"save");
  EXPECT_EQ(words.Word(), u"my \"form\".zkf");
  EXPECT_EQ(words.Word(), u"plain.zkf");
  EXPECT_EQ(words.Number(), 16);
  EXPECT_EQ(words.Number(), -2.5);
  EXPECT_TRUE(words.AtEnd());

  // Keys are taken as written, comment marks and all.
  ScriptParser keys(u"sendkeys T  it's {ENTER} ");
  keys.Name();
  keys.Name();
  EXPECT_EQ(keys.Rest(), u"it's {ENTER} ");
  EXPECT_TRUE(keys.AtEnd());
}

TEST(ScriptParserTest, MalformedOperandsAreSyntaxErrors) {
  struct OperandRow {
    std::u16string text;
    std::string error;
  };
  const OperandRow rows[] = {
      {u"abc", "Syntax error: not a number: abc"},
      {u"", "Syntax error: a value is missing"},
      {u"  ' only a comment", "Syntax error: a value is missing"},
      {u"\"12", "Syntax error: a text without its closing quote"},
  };
  for (const OperandRow& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.text));
    EXPECT_EQ(SyntaxErrorOf(row.text, [](ScriptParser& parser) { parser.Number(); }), row.error);
  }
  // Nesting is bounded: a hostile line is an error, not a stack overflow.
  auto nested = [](int depth) {
    std::u16string text = u"L.Caption = ";
    for (int i = 0; i < depth; ++i)
      text += u"L.ExtraProp(";
    text += u"1";
    text.append(static_cast<size_t>(depth), u')');
    return text;
  };
  EXPECT_EQ(SyntaxErrorOf(nested(100), [](ScriptParser& parser) { parser.MemberStatement(); }),
            "(accepted)");
  EXPECT_EQ(SyntaxErrorOf(nested(100000), [](ScriptParser& parser) { parser.MemberStatement(); }),
            "Syntax error: arguments nested too deeply");
  EXPECT_EQ(SyntaxErrorOf(u"12", [](ScriptParser& parser) { parser.Name(); }),
            "Syntax error: expected a name");
  EXPECT_EQ(SyntaxErrorOf(u"x y", [](ScriptParser& parser) { parser.ExpectEnd(u"x"); }),
            "Syntax error: unexpected text after x");
}

}  // namespace
}  // namespace zk
