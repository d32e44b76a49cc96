#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosting/script_syntax.h"

namespace zk {

// A cursor over one statement of a script. Statements read their operands through it one after
// the other; values become syntax trees that name nothing yet, so a statement is read whole
// before anything runs. Whatever is malformed raises ZKError 5 with a description starting
// "Syntax error: ". Blanks and tabs separate tokens; a "'" outside a text starts a comment that
// ends the statement.
class ScriptParser {
 public:
  // The parser reads `statement` in place: it must outlive the parser.
  explicit ScriptParser(std::u16string_view statement) : text_(statement) {}
  explicit ScriptParser(const char16_t* statement) : text_(statement) {}
  explicit ScriptParser(std::u16string&& statement) = delete;

  // True when only blanks or a comment are left.
  bool AtEnd();
  // The next character after blanks ('\0' at the end).
  char16_t Peek();
  // Takes `c` when it comes next.
  bool Consume(char16_t c);
  // Raises a syntax error "unexpected text after `what`" unless the statement ends here.
  void ExpectEnd(std::u16string_view what);

  // True when the statement goes on with NAME followed by "." (a member path); takes nothing.
  bool AtMemberPath();
  // A name: a letter or "_", then letters, digits and "_".
  std::u16string Name();
  // Takes the word `keyword` (any case) when it comes next as a whole name.
  bool ConsumeKeyword(std::u16string_view keyword);
  // A text in double quotes, or a word up to the next blank (file names, keys).
  std::u16string Word();
  // A word that is a number (decimal, or &H hexadecimal).
  double Number();
  // A text in double quotes; doubled quotes inside stand for one.
  std::u16string Text();
  // The rest of the statement as written, after blanks (comments included).
  std::u16string Rest();

  // A literal (text, number) or a reference (NAME, NAME(ARGS), NAME.Member(ARGS)...).
  ScriptExpression Value();
  // NAME[(ARGS)][.Member[(ARGS)]]...
  ScriptExpression Reference();
  // The arguments of a call written without parentheses, up to the end of the statement;
  // arguments left out between commas are omitted ones.
  std::vector<ScriptExpression> ArgumentsToEnd();
  // A statement that starts with a member path: an assignment or a call, read to its end.
  // A call's arguments may be in parentheses or, as classic statements write them, without:
  // `E.AddItem "x", , "t"`, `E.AddItem ("x"), 2`.
  ScriptMemberStatement MemberStatement();

 private:
  void SkipBlanks();
  // Reads ARG [, ARG]... up to `closing` (')' or '\0' for the end of the statement) onto `args`.
  void ArgumentsUntil(char16_t closing, std::vector<ScriptExpression>& args);

  // How deep arguments may nest inside arguments.
  static constexpr int kMaxNesting = 100;

  std::u16string_view text_;
  size_t pos_ = 0;
  int depth_ = 0;
};

}  // namespace zk
