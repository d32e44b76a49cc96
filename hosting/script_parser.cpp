#include "hosting/script_parser.h"

#include <utility>

#include "foundation/dispatch_object.h"
#include "foundation/string_utils.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

[[noreturn]] void SyntaxError(std::u16string_view detail) {
  throw ZKError(error_number::kInvalidProcedureCall, u"Syntax error: " + std::u16string(detail));
}

bool IsIdentifierStart(char16_t c) {
  return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_';
}

bool IsIdentifierPart(char16_t c) {
  return IsIdentifierStart(c) || (c >= u'0' && c <= u'9');
}

bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\t';
}

bool StartsNumber(char16_t c) {
  return c == u'-' || c == u'+' || c == u'.' || c == u'&' || (c >= u'0' && c <= u'9');
}

}  // namespace

void ScriptParser::SkipBlanks() {
  while (pos_ < text_.size() && IsBlank(text_[pos_]))
    ++pos_;
}

bool ScriptParser::AtEnd() {
  SkipBlanks();
  return pos_ >= text_.size() || text_[pos_] == u'\'';
}

char16_t ScriptParser::Peek() {
  return AtEnd() ? u'\0' : text_[pos_];
}

bool ScriptParser::Consume(char16_t c) {
  if (Peek() != c) return false;
  ++pos_;
  return true;
}

void ScriptParser::ExpectEnd(std::u16string_view what) {
  if (!AtEnd()) SyntaxError(u"unexpected text after " + std::u16string(what));
}

bool ScriptParser::AtMemberPath() {
  const size_t start = pos_;
  SkipBlanks();
  bool path = false;
  if (pos_ < text_.size() && IsIdentifierStart(text_[pos_])) {
    while (pos_ < text_.size() && IsIdentifierPart(text_[pos_]))
      ++pos_;
    path = Peek() == u'.';
  }
  pos_ = start;
  return path;
}

std::u16string ScriptParser::Name() {
  SkipBlanks();
  const size_t start = pos_;
  if (pos_ >= text_.size() || !IsIdentifierStart(text_[pos_])) SyntaxError(u"expected a name");
  while (pos_ < text_.size() && IsIdentifierPart(text_[pos_]))
    ++pos_;
  return std::u16string(text_.substr(start, pos_ - start));
}

bool ScriptParser::ConsumeKeyword(std::u16string_view keyword) {
  SkipBlanks();
  const size_t start = pos_;
  while (pos_ < text_.size() && IsIdentifierPart(text_[pos_]))
    ++pos_;
  if (pos_ > start && MemberNameEquals(text_.substr(start, pos_ - start), keyword)) return true;
  pos_ = start;
  return false;
}

std::u16string ScriptParser::Word() {
  if (AtEnd()) SyntaxError(u"a value is missing");
  if (Peek() == u'"') return Text();
  const size_t start = pos_;
  while (pos_ < text_.size() && !IsBlank(text_[pos_]))
    ++pos_;
  return std::u16string(text_.substr(start, pos_ - start));
}

double ScriptParser::Number() {
  const std::u16string word = Word();
  if (!MStringUtils::IsNumberText(word)) SyntaxError(u"not a number: " + word);
  return MStringUtils::ParseNumberText(word, u".");
}

std::u16string ScriptParser::Text() {
  if (!Consume(u'"')) SyntaxError(u"expected a text");
  std::u16string out;
  while (true) {
    if (pos_ >= text_.size()) SyntaxError(u"a text without its closing quote");
    const char16_t c = text_[pos_++];
    if (c == u'"') {
      if (pos_ < text_.size() && text_[pos_] == u'"') {
        out.push_back(u'"');
        ++pos_;
        continue;
      }
      return out;
    }
    out.push_back(c);
  }
}

std::u16string ScriptParser::Rest() {
  SkipBlanks();
  std::u16string rest(text_.substr(pos_));
  pos_ = text_.size();
  return rest;
}

ScriptExpression ScriptParser::Value() {
  if (AtEnd()) SyntaxError(u"a value is missing");
  const char16_t c = Peek();
  ScriptExpression value;
  if (c == u'"') {
    value.kind = ScriptExpression::Kind::kText;
    value.text = Text();
    return value;
  }
  if (StartsNumber(c)) {
    // A number runs up to the next separator of arguments or statements.
    const size_t start = pos_;
    while (pos_ < text_.size() && text_[pos_] != u',' && text_[pos_] != u')' &&
           !IsBlank(text_[pos_])) {
      ++pos_;
    }
    const std::u16string_view word = text_.substr(start, pos_ - start);
    if (!MStringUtils::IsNumberText(word)) SyntaxError(u"not a value: " + std::u16string(word));
    value.kind = ScriptExpression::Kind::kNumber;
    value.text = std::u16string(word);
    value.number = MStringUtils::ParseNumberText(word, u".");
    return value;
  }
  return Reference();
}

ScriptExpression ScriptParser::Reference() {
  ScriptExpression reference;
  reference.kind = ScriptExpression::Kind::kReference;
  do {
    ScriptStep step;
    step.name = Name();
    if (Consume(u'(')) {
      step.parenthesized = true;
      if (!Consume(u')')) ArgumentsUntil(u')', step.arguments);
    }
    reference.steps.push_back(std::move(step));
  } while (Consume(u'.'));
  return reference;
}

void ScriptParser::ArgumentsUntil(char16_t closing, std::vector<ScriptExpression>& args) {
  // Arguments inside arguments are read by recursion: a bound keeps a hostile line from
  // exhausting the stack.
  if (depth_ >= kMaxNesting) SyntaxError(u"arguments nested too deeply");
  ++depth_;
  struct Leave {
    int& depth;
    ~Leave() { --depth; }
  } leave{depth_};
  const bool to_end = closing == u'\0';
  while (true) {
    if (!to_end && AtEnd()) SyntaxError(u"a \"(\" without its \")\"");
    if (Peek() == u',') {
      args.emplace_back();  // left out: the member sees a missing argument
    } else if (to_end ? AtEnd() : Peek() == closing) {
      // Only a comma leads here: "M(1, )" names an argument and leaves it empty.
      SyntaxError(u"an argument is missing after \",\"");
    } else {
      args.push_back(Value());
    }
    if (Consume(u',')) continue;
    if (to_end) {
      ExpectEnd(u"the arguments");
      return;
    }
    if (Consume(closing)) return;
    if (AtEnd()) SyntaxError(u"a \"(\" without its \")\"");
    SyntaxError(u"expected \",\" or \")\"");
  }
}

std::vector<ScriptExpression> ScriptParser::ArgumentsToEnd() {
  std::vector<ScriptExpression> args;
  if (!AtEnd()) ArgumentsUntil(u'\0', args);
  return args;
}

ScriptMemberStatement ScriptParser::MemberStatement() {
  ScriptMemberStatement statement;
  statement.target = Reference();
  if (statement.target.steps.size() < 2) SyntaxError(u"expected NAME.Member");
  if (Consume(u'=')) {
    statement.value = Value();
    ExpectEnd(u"the value");
    return statement;
  }
  ScriptStep& last = statement.target.steps.back();
  if (!last.parenthesized) {
    last.arguments = ArgumentsToEnd();
    last.parenthesized = !last.arguments.empty();
    return statement;
  }
  if (last.arguments.size() == 1 && last.arguments[0].kind != ScriptExpression::Kind::kOmitted &&
      Consume(u',')) {
    // "M (a), b": the parentheses held the first argument, the others follow.
    ArgumentsUntil(u'\0', last.arguments);
    return statement;
  }
  ExpectEnd(u"the call");
  return statement;
}

}  // namespace zk
