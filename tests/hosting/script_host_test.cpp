#include "hosting/script_host.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/text_encoding.h"
#include "hosting/headless_form.h"
#include "support/test_kinds.h"

namespace zk {
namespace {

struct Outcome {
  std::vector<std::string> lines;
  int status = 0;
};

// Runs a script on a fresh headless form.
Outcome RunScript(std::u16string_view script) {
  HeadlessPlatform platform(HeadlessOptions{u"en-US"});
  PlatformScope scope(platform);
  HeadlessForm form(platform);
  Outcome outcome;
  ScriptHost host(form,
                  [&](std::u16string_view line) { outcome.lines.push_back(Utf16ToUtf8(line)); });
  outcome.status = host.Run(script);
  return outcome;
}

TEST(ScriptHostTest, RunsStatementsOfEveryForm) {
  struct Row {
    std::u16string script;
    std::vector<std::string> lines;
  };
  const Row rows[] = {
      {u"# comment\n  ' comment\n\nnew ZKLabel L ' placed\nL.Caption = \"a ' b\" ' set\n"
       u"? L.Caption ' shown",
       {"a ' b"}},
      // Methods take their arguments with or without parentheses, or after "call".
      {u"new ZKLabel A\nA.Caption = \"copied\"\nnew ZKLabel B\nB.Clone A\n? B.Caption", {"copied"}},
      {u"new ZKLabel A\nA.Caption = \"x\"\nnew ZKLabel B\ncall B.ParseArchiveStr(A.GetArchiveStr)"
       u"\n? B.Caption",
       {"x"}},
      {u"new ZKLabel A\nA.Caption = \"x\"\nnew ZKLabel B\nB.ParseArchiveStr (A.GetArchiveStr)\n"
       u"? B.Caption\n? B.ParseArchiveStr(\"\")\nB.ParseArchiveStr \"\"\ntrace",
       {"x", "False", "B | ParseArchiveStr (el: 0) | 9 | Subscript out of range",
        "B | ParseArchiveStr (el: 0) | 9 | Subscript out of range"}},
      // Indexed properties and methods with left-out arguments: every control accepts them.
      {u"new ZKColorButton C\nC.ExtraProp(\"x\") = \"y\"\n? C.ExtraProp(\"x\")\n"
       u"C.ExtraProp(zktTextAlignRight) = C.Caption\n? C.ExtraAction(\"a\", , )\n"
       u"? C.ExtraAction(\"a\", , \"t\")",
       {"", "error 5: Syntax error: an argument is missing after \",\"", ""}},
      {u"new ZKLabel L\nL.PopupMenu , , 100, 200\ncall L.PopupMenu(, , 100)\nL.Refresh\n"
       u"call L.Refresh\ncall L.Refresh()\n? L.Left\nL.Left = 90\n? L.Left",
       {"0", "90"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.script));
    const Outcome outcome = RunScript(row.script);
    EXPECT_EQ(outcome.lines, row.lines);
  }
}

TEST(ScriptHostTest, AFailingStatementPrintsItsErrorAndTheScriptGoesOn) {
  struct Row {
    std::u16string statement;
    std::string error;
  };
  const Row rows[] = {
      {u"new ZKLabel M in L", "error 438: L (ZKLabel) cannot contain controls"},
      {u"new ZKLabel M in Nobody", "error 424: Object required: Nobody"},
      {u"new ZKNothing M in L", "error 5: Unknown control kind: ZKNothing"},
      {u"new ZKLabel L in L", "error 5: A control named L exists"},
      {u"new ZKLabel M in", "error 5: Syntax error: expected a name"},
      {u"new ZKLabel M L", "error 5: Syntax error: new KIND NAME [in CONTAINER]"},
      {u"? M.Caption", "error 424: Object required: M"},
      {u"call L.Caption = 1", "error 5: Syntax error: call NAME.Method[(ARGS)]"},
      {u"call 12", "error 5: Syntax error: call NAME.Method[(ARGS)]"},
      {u"frobnicate L", "error 5: Syntax error: unknown statement frobnicate"},
      {u"12 = 3", "error 5: Syntax error: expected a name"},
      {u"events L now", "error 5: Syntax error: unexpected text after the name"},
      {u"events Nobody", "error 424: Object required: Nobody"},
      {u"trace now", "error 5: Syntax error: unexpected text after trace"},
      {u"wait", "error 5: Syntax error: a value is missing"},
      {u"wait soon", "error 5: Syntax error: not a number: soon"},
      {u"click L 100", "error 5: Syntax error: a value is missing"},
      {u"mousedown L 1 2 3 4 5", "error 5: Syntax error: unexpected text after the input"},
      {u"sendkeys L \"abc", "error 5: Syntax error: a text without its closing quote"},
      {u"save", "error 5: Syntax error: a value is missing"},
      {u"? L.ExtraProp(\"x\"", "error 5: Syntax error: a \"(\" without its \")\""},
      {u"L.ExtraProp(\"x\", ) = 1", "error 5: Syntax error: an argument is missing after \",\""},
      {u"L.ExtraProp() = 1", "error 449: Argument not optional"},
      {u"? L.ExtraProp", "error 449: Argument not optional"},
      {u"? L.ExtraAction(, \"b\") = 1", "error 5: Syntax error: unexpected text after the value"},
      {u"? L.Caption(", "error 5: Syntax error: a \"(\" without its \")\""},
      {u"L.Caption = \"open", "error 5: Syntax error: a text without its closing quote"},
      {u"? LoadPicture()", "error 449: Argument not optional"},
      {u"? LoadPicture(\"a.png\", \"b\")",
       "error 450: Wrong number of arguments or invalid property assignment"},
      {u"? Nowhere(1)", "error 35: Sub or Function not defined: Nowhere"},
      {u"form.BackColor(1) = 2",
       "error 450: Wrong number of arguments or invalid property assignment"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.statement));
    const Outcome outcome =
        RunScript(u"new ZKLabel L\n" + row.statement + u"\n? \"still running\"");
    EXPECT_EQ(outcome.lines, (std::vector<std::string>{row.error, "still running"}));
    EXPECT_EQ(outcome.status, 1);
  }
}

// A statement that shows a window modal runs the statements after it inside the window's
// loop, until the window hides; the script goes on after them, and each script keeps its own
// status.
TEST(ScriptHostTest, AModalWindowRunsTheStatementsThatFollowUntilItHides) {
  RegisterTestControlKinds();
  struct Row {
    std::u16string script;
    std::vector<std::string> lines;
    int status;
  };
  const Row rows[] = {
      {u"new ZKTestPopupOwner P\n? P.Open(True)\n? P.PopupVisible\nP.ClosePopup\n"
       u"? P.PopupVisible\nevents P",
       {"True", "True", "False", "WindowActivated(True)", "WindowActivated(False)",
        "PopupClosed(code)"},
       0},
      // A failing statement inside the loop counts for the script.
      {u"new ZKTestPopupOwner P\n? P.Open(True)\n? Missing.Caption\nP.ClosePopup\n? 1",
       {"error 424: Object required: Missing", "True", "1"},
       1},
      // Nested: a second control's modal window inside the first one's loop.
      {u"new ZKTestPopupOwner P\nnew ZKTestPopupOwner Q\n? P.Open(True)\n? Q.Open(True)\n"
       u"? P.PopupVisible\nQ.ClosePopup\n? Q.PopupVisible\nP.ClosePopup\n? P.PopupVisible",
       {"True", "True", "False", "True", "False"},
       0},
      // The script ends inside the loop: the window is hidden and the show returns.
      {u"new ZKTestPopupOwner P\nP.Open True\n? P.PopupVisible", {"True"}, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.script));
    const Outcome outcome = RunScript(row.script);
    EXPECT_EQ(outcome.lines, row.lines);
    EXPECT_EQ(outcome.status, row.status);
  }
}

// A statement run on its own has no statements after it: a modal window it shows is hidden
// at once, and the host gives the platform back the modal callback it found.
TEST(ScriptHostTest, AModalWindowShownByOneStatementReturnsAtOnce) {
  RegisterTestControlKinds();
  HeadlessPlatform platform(HeadlessOptions{u"en-US"});
  PlatformScope scope(platform);
  HeadlessForm form(platform);
  int calls = 0;
  platform.SetModalCallback([&](IPopupWindow&) { ++calls; });
  {
    std::vector<std::string> lines;
    ScriptHost host(form, [&](std::u16string_view line) { lines.push_back(Utf16ToUtf8(line)); });
    EXPECT_TRUE(host.Execute(u"new ZKTestPopupOwner P"));
    EXPECT_TRUE(host.Execute(u"? P.Open(True)"));
    EXPECT_TRUE(host.Execute(u"? P.PopupVisible"));
    EXPECT_EQ(lines, (std::vector<std::string>{"True", "False"}));
  }
  EXPECT_EQ(calls, 0);
  ASSERT_TRUE(platform.GetModalCallback());
  platform.GetModalCallback()(*form.FindControl(u"P")->NamedPopup(u"listwindow"));
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace zk
