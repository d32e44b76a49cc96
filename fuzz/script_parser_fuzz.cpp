// Checks that the script parser reads any statement without failing other than by a syntax
// error, and that what it reads, written back as script text, reads as the same tree.
//
// Input: every byte becomes one character of the statement, taken from a small alphabet (byte
// mod its size) of the characters that steer the parser: names, dots, parentheses, commas,
// quotes, comment marks, blanks, digits and the starts of numbers.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/zk_error.h"
#include "hosting/script_parser.h"

namespace {

constexpr std::u16string_view kAlphabet = u"Lx_.(),=\" '1-&H5 ?";

void Check(bool holds) {
  if (!holds) __builtin_trap();
}

std::u16string Write(const zk::ScriptExpression& expression);

std::u16string Write(const zk::ScriptStep& step) {
  std::u16string out = step.name;
  if (!step.parenthesized) return out;
  out += u"(";
  for (size_t i = 0; i < step.arguments.size(); ++i) {
    if (i > 0) out += u", ";
    out += Write(step.arguments[i]);
  }
  return out + u")";
}

std::u16string Write(const zk::ScriptExpression& expression) {
  using Kind = zk::ScriptExpression::Kind;
  switch (expression.kind) {
    case Kind::kOmitted:
      return {};
    case Kind::kNumber:
      return expression.text;
    case Kind::kText: {
      std::u16string out = u"\"";
      for (char16_t c : expression.text) {
        out.push_back(c);
        if (c == u'"') out.push_back(u'"');
      }
      return out + u"\"";
    }
    case Kind::kReference:
      break;
  }
  std::u16string out;
  for (const zk::ScriptStep& step : expression.steps) {
    if (!out.empty()) out += u".";
    out += Write(step);
  }
  return out;
}

bool Same(const zk::ScriptExpression& a, const zk::ScriptExpression& b) {
  if (a.kind != b.kind || a.text != b.text || a.steps.size() != b.steps.size()) return false;
  if (a.kind == zk::ScriptExpression::Kind::kNumber && a.number != b.number) return false;
  for (size_t i = 0; i < a.steps.size(); ++i) {
    const zk::ScriptStep& x = a.steps[i];
    const zk::ScriptStep& y = b.steps[i];
    if (x.name != y.name || x.parenthesized != y.parenthesized ||
        x.arguments.size() != y.arguments.size()) {
      return false;
    }
    for (size_t j = 0; j < x.arguments.size(); ++j) {
      if (!Same(x.arguments[j], y.arguments[j])) return false;
    }
  }
  return true;
}

// Reads with `read`; a syntax error is the only failure allowed. True when it read.
template <typename Read>
bool ReadsOrRefuses(Read read) {
  try {
    read();
    return true;
  } catch (const zk::ZKError& error) {
    Check(error.Number() == zk::error_number::kInvalidProcedureCall);
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::u16string text;
  text.reserve(size);
  for (size_t i = 0; i < size; ++i)
    text.push_back(kAlphabet[data[i] % kAlphabet.size()]);

  zk::ScriptExpression value;
  if (ReadsOrRefuses([&] {
        zk::ScriptParser parser(text);
        value = parser.Value();
        parser.ExpectEnd(u"the value");
      })) {
    const std::u16string written = Write(value);
    zk::ScriptParser again(written);
    const zk::ScriptExpression reread = again.Value();
    Check(again.AtEnd() && Same(reread, value));
  }

  zk::ScriptMemberStatement statement;
  zk::ScriptParser parser(text);
  if (parser.AtMemberPath() && ReadsOrRefuses([&] { statement = parser.MemberStatement(); })) {
    std::u16string written = Write(statement.target);
    if (statement.value) written += u" = " + Write(*statement.value);
    zk::ScriptParser again(written);
    const zk::ScriptMemberStatement reread = again.MemberStatement();
    Check(Same(reread.target, statement.target) &&
          reread.value.has_value() == statement.value.has_value());
    if (statement.value) Check(Same(*reread.value, *statement.value));
  }
  return 0;
}
