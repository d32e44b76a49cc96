#include "hosting/script_host.h"

#include <array>
#include <fstream>
#include <sstream>
#include <utility>

#include "foundation/archive_utils.h"
#include "foundation/dispatch_object.h"
#include "foundation/string_utils.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "framework/type_library.h"
#include "platform/platform.h"
#include "platform/std_font.h"

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

[[noreturn]] void SyntaxError(std::u16string_view detail) {
  throw ZKError(error_number::kInvalidProcedureCall, u"Syntax error: " + std::u16string(detail));
}

std::u16string Decimal(int64_t value) {
  return Utf8ToUtf16(std::to_string(value));
}

bool IsIdentifierStart(char16_t c) {
  return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_';
}

bool IsIdentifierPart(char16_t c) {
  return IsIdentifierStart(c) || (c >= u'0' && c <= u'9');
}

// Where a member path ends up: an object (control, extender, font ...) and a member of it, or
// the form's ambient values.
struct Target {
  DispatchObject* object = nullptr;
  ObjectRef keep_alive;
  bool ambient = false;
  std::u16string member;
  std::vector<Variant> args;
  bool has_args = false;
};

// A cursor over one statement.
class Parser {
 public:
  Parser(std::u16string_view text, Form& form) : text_(text), form_(form) {}

  void SkipBlanks() {
    while (pos_ < text_.size() && (text_[pos_] == u' ' || text_[pos_] == u'\t'))
      ++pos_;
  }
  bool AtEnd() {
    SkipBlanks();
    return pos_ >= text_.size();
  }
  char16_t Peek() {
    SkipBlanks();
    return pos_ < text_.size() ? text_[pos_] : u'\0';
  }
  bool Consume(char16_t c) {
    if (Peek() != c) return false;
    ++pos_;
    return true;
  }
  std::u16string_view Rest() {
    SkipBlanks();
    return text_.substr(pos_);
  }

  std::u16string Identifier() {
    SkipBlanks();
    const size_t start = pos_;
    if (pos_ >= text_.size() || !IsIdentifierStart(text_[pos_])) SyntaxError(u"expected a name");
    while (pos_ < text_.size() && IsIdentifierPart(text_[pos_]))
      ++pos_;
    return std::u16string(text_.substr(start, pos_ - start));
  }

  // A word up to the next blank (file names, numbers of input statements).
  std::u16string Word() {
    SkipBlanks();
    if (Peek() == u'"') return Text();
    const size_t start = pos_;
    while (pos_ < text_.size() && text_[pos_] != u' ' && text_[pos_] != u'\t')
      ++pos_;
    if (start == pos_) SyntaxError(u"a value is missing");
    return std::u16string(text_.substr(start, pos_ - start));
  }

  double Number() {
    const std::u16string word = Word();
    if (!MStringUtils::IsNumberText(word)) SyntaxError(u"not a number: " + word);
    return MStringUtils::ParseNumberText(word, u".");
  }

  std::u16string Text() {
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

  // A literal, a control, or the value of a member path.
  Variant Value() {
    const char16_t c = Peek();
    if (c == u'"') return Variant(Text());
    if (c == u'-' || c == u'+' || c == u'.' || c == u'&' || (c >= u'0' && c <= u'9')) {
      const size_t start = pos_;
      while (pos_ < text_.size() && text_[pos_] != u',' && text_[pos_] != u')' &&
             text_[pos_] != u' ' && text_[pos_] != u'\t') {
        ++pos_;
      }
      const std::u16string_view word = text_.substr(start, pos_ - start);
      if (!MStringUtils::IsNumberText(word)) SyntaxError(u"not a value: " + std::u16string(word));
      return Variant(MStringUtils::ParseNumberText(word, u"."));
    }
    const size_t start = pos_;
    const std::u16string name = Identifier();
    if (MemberNameEquals(name, u"LoadPicture") && Consume(u'(')) {
      // A picture from an image file, as a host's LoadPicture gives one.
      const std::u16string path = Text();
      if (!Consume(u')')) SyntaxError(u"expected \")\"");
      return Variant(CurrentPlatform().Pictures().LoadPicture(path));
    }
    if (Peek() != u'.' && Peek() != u'(') {
      if (MemberNameEquals(name, u"True")) return Variant(true);
      if (MemberNameEquals(name, u"False")) return Variant(false);
      if (MemberNameEquals(name, u"Nothing")) return Variant();
      if (std::optional<int32_t> value = FindEnumerator(name)) return Variant(*value);
      if (auto control = form_.ControlRef(name)) return Variant(control);
      throw ZKError(error_number::kObjectRequired, u"Object required: " + name);
    }
    pos_ = start;
    Target target = Path();
    return Read(target);
  }

  std::vector<Variant> Arguments(char16_t closing) {
    std::vector<Variant> args;
    if (closing != u'\0' && Consume(closing)) return args;
    if (closing == u'\0' && AtEnd()) return args;
    while (true) {
      args.push_back(Value());
      if (Consume(u',')) continue;
      if (closing != u'\0' && !Consume(closing)) SyntaxError(u"expected \")\"");
      return args;
    }
  }

  // NAME.Member[.Member...][(ARGS)]: resolves every member but the last one.
  Target Path() {
    Target target;
    const std::u16string root = Identifier();
    if (!Consume(u'.')) SyntaxError(u"expected NAME.Member");
    if (MemberNameEquals(root, u"form")) {
      target.ambient = true;
    } else {
      auto control = form_.ControlRef(root);
      if (!control) throw ZKError(error_number::kObjectRequired, u"Object required: " + root);
      target.keep_alive = control;
      target.object = control.get();
    }
    while (true) {
      std::u16string member = Identifier();
      if (target.object != nullptr && target.keep_alive && IsExtenderMember(member) &&
          dynamic_cast<ZKControl*>(target.object) != nullptr) {
        // Name, Top, Left ... belong to the form's extender of the control.
        target.object = form_.FindExtender(root);
      }
      std::vector<Variant> args;
      bool has_args = false;
      if (Consume(u'(')) {
        args = Arguments(u')');
        has_args = true;
      }
      if (!Consume(u'.')) {
        target.member = std::move(member);
        target.args = std::move(args);
        target.has_args = has_args;
        return target;
      }
      // A member of an object property: its value is the next object.
      Target step = target;
      step.member = std::move(member);
      step.args = std::move(args);
      step.has_args = has_args;
      ObjectRef next = Read(step).ToObject();
      if (!next) throw ZKError(91, u"Object variable or With block variable not set");
      target.keep_alive = next;
      target.object = next.get();
      target.ambient = false;
    }
  }

  Variant Read(Target& target) {
    if (target.ambient) return form_.Ambient(target.member);
    if (target.has_args || dynamic_cast<ZKControl*>(target.object) != nullptr) {
      return target.object->CallMethod(target.member, target.args);
    }
    return target.object->GetProperty(target.member);
  }

 private:
  std::u16string_view text_;
  Form& form_;
  size_t pos_ = 0;
};

}  // namespace

std::u16string ScriptValueText(const Variant& value) {
  if (value.IsObject()) {
    ObjectRef object = value.ToObject();
    if (!object) return u"Nothing";
    if (std::dynamic_pointer_cast<StdFont>(object))
      return MArchiveUtils::ArchiveEscapeFont(*object);
    if (auto control = std::dynamic_pointer_cast<ZKControl>(object)) return control->Name();
    if (auto picture = std::dynamic_pointer_cast<Picture>(object)) {
      return u"Picture(" + Decimal(picture->WidthPixels()) + u"x" +
             Decimal(picture->HeightPixels()) + u")";
    }
    return u"[object]";
  }
  return value.ToText();
}

ScriptHost::ScriptHost(Form& form, std::function<void(std::u16string_view)> print)
    : form_(form), print_(std::move(print)) {
  previous_sink_ = MDebugUtils::SetTraceSink(
      [this](const MDebugUtils::TraceRecord& record) { traces_.push_back(record); });
  WatchAll();
  form_.TakePropertyChanges();
}

ScriptHost::~ScriptHost() {
  MDebugUtils::SetTraceSink(std::move(previous_sink_));
}

ScriptHost::Recording& ScriptHost::RecordingOf(std::u16string_view name) {
  for (auto& [key, recording] : recordings_) {
    if (MemberNameEquals(key, name)) return recording;
  }
  return recordings_[std::u16string(name)];
}

void ScriptHost::Watch(ZKControl& control) {
  Recording& recording = RecordingOf(control.Name());
  recording.events.clear();
  recording.notified.clear();
  recording.connection = control.EventRaised().Connect(
      [&recording](std::u16string_view name, std::span<const Variant> args) {
        std::u16string line(name);
        if (!args.empty()) {
          line += u"(";
          for (size_t i = 0; i < args.size(); ++i) {
            if (i > 0) line += u", ";
            line += ScriptValueText(args[i]);
          }
          line += u")";
        }
        recording.events.push_back(std::move(line));
      });
}

void ScriptHost::WatchAll() {
  recordings_.clear();
  for (ZKControl* control : form_.Controls())
    Watch(*control);
}

void ScriptHost::CollectPropertyChanges() {
  for (auto& [control, property] : form_.TakePropertyChanges()) {
    RecordingOf(control).notified.push_back(std::move(property));
  }
}

bool ScriptHost::Execute(std::u16string_view line) {
  bool ok = true;
  try {
    ExecuteStatement(line);
  } catch (const ZKError& error) {
    Print(u"error " + Decimal(error.Number()) + u": " + error.Description());
    ok = false;
  } catch (const std::exception& error) {
    Print(u"error 51: " + Utf8ToUtf16(error.what()));
    ok = false;
  }
  CollectPropertyChanges();
  return ok;
}

int ScriptHost::Run(std::u16string_view script) {
  int status = 0;
  size_t start = 0;
  while (start < script.size()) {
    size_t end = script.find(u'\n', start);
    if (end == std::u16string_view::npos) end = script.size();
    std::u16string_view line = script.substr(start, end - start);
    if (!line.empty() && line.back() == u'\r') line.remove_suffix(1);
    if (!Execute(line)) status = 1;
    start = end + 1;
  }
  return status;
}

void ScriptHost::ExecuteStatement(std::u16string_view line) {
  Parser parser(line, form_);
  if (parser.AtEnd() || parser.Peek() == u'#' || parser.Peek() == u'\'') return;
  if (parser.Consume(u'?')) {
    Variant value = parser.Value();
    if (!parser.AtEnd()) SyntaxError(u"unexpected text after the value");
    Print(ScriptValueText(value));
    return;
  }
  Parser lookahead(line, form_);
  const std::u16string first = lookahead.Identifier();
  const bool is_path = lookahead.Peek() == u'.';
  auto word = [&](std::u16string_view keyword) {
    return !is_path && MemberNameEquals(first, keyword);
  };
  auto mouse_point = [](Parser& p, float& x, float& y) {
    x = static_cast<float>(p.Number());
    y = static_cast<float>(p.Number());
  };
  if (word(u"new")) {
    parser.Identifier();
    const std::u16string kind = parser.Identifier();
    const std::u16string name = parser.Identifier();
    if (!parser.AtEnd()) SyntaxError(u"new KIND NAME");
    ZKControl& control = form_.AddControl(kind, name);
    Watch(control);
    // Placement is where a script's story starts: what InitProperties notified is not news.
    form_.TakePropertyChanges();
    return;
  }
  if (word(u"events") || word(u"notified")) {
    parser.Identifier();
    const std::u16string name = parser.Identifier();
    if (form_.FindControl(name) == nullptr) {
      throw ZKError(error_number::kObjectRequired, u"Object required: " + name);
    }
    CollectPropertyChanges();
    Recording& recording = RecordingOf(name);
    auto& lines = word(u"events") ? recording.events : recording.notified;
    for (const std::u16string& entry : lines)
      Print(entry);
    lines.clear();
    return;
  }
  if (word(u"trace")) {
    for (const auto& record : traces_)
      Print(MDebugUtils::FormatTraceLine(record));
    traces_.clear();
    return;
  }
  if (word(u"save") || word(u"load")) {
    parser.Identifier();
    const std::string path = Utf16ToUtf8(parser.Word());
    if (word(u"save")) {
      std::ofstream file(path, std::ios::binary);
      const std::string text = form_.SaveText();
      if (!file || !file.write(text.data(), static_cast<std::streamsize>(text.size()))) {
        throw ZKError(75, u"Path/File access error: " + Utf8ToUtf16(path));
      }
      return;
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) throw ZKError(error_number::kFileNotFound, u"File not found: " + Utf8ToUtf16(path));
    std::stringstream contents;
    contents << file.rdbuf();
    form_.LoadText(contents.str());
    WatchAll();
    form_.TakePropertyChanges();
    return;
  }
  if (word(u"click") || word(u"dblclick") || word(u"mousedown") || word(u"mousemove") ||
      word(u"mouseup")) {
    parser.Identifier();
    const std::u16string name = parser.Identifier();
    DispatchObject* extender = form_.FindExtender(name);
    if (extender == nullptr)
      throw ZKError(error_number::kObjectRequired, u"Object required: " + name);
    float x = 0;
    float y = 0;
    int16_t button = word(u"mousemove") ? 0 : 1;
    int16_t shift = 0;
    if (word(u"click") || word(u"dblclick")) {
      if (parser.AtEnd()) {
        x = static_cast<float>(extender->GetProperty(u"Width").ToDouble() / 2);
        y = static_cast<float>(extender->GetProperty(u"Height").ToDouble() / 2);
      } else {
        mouse_point(parser, x, y);
      }
      form_.DeliverMouse(name, MouseAction::kDown, 1, 0, x, y);
      form_.DeliverMouse(name, MouseAction::kUp, 1, 0, x, y);
      if (word(u"dblclick")) {
        form_.DeliverMouse(name, MouseAction::kDoubleDown, 1, 0, x, y);
        form_.DeliverMouse(name, MouseAction::kUp, 1, 0, x, y);
      }
    } else {
      mouse_point(parser, x, y);
      if (!parser.AtEnd()) button = Variant(parser.Number()).ToInt16();
      if (!parser.AtEnd()) shift = Variant(parser.Number()).ToInt16();
      const MouseAction action = word(u"mousedown")   ? MouseAction::kDown
                                 : word(u"mousemove") ? MouseAction::kMove
                                                      : MouseAction::kUp;
      form_.DeliverMouse(name, action, button, shift, x, y);
    }
    if (!parser.AtEnd()) SyntaxError(u"unexpected text after the input");
    return;
  }
  if (word(u"focus") || word(u"sendkeys")) {
    parser.Identifier();
    const std::u16string name = parser.Identifier();
    if (form_.FindControl(name) == nullptr) {
      throw ZKError(error_number::kObjectRequired, u"Object required: " + name);
    }
    if (!form_.Focus(name)) {
      throw ZKError(error_number::kInvalidProcedureCall,
                    u"Invalid procedure call or argument: " + name + u" cannot take the focus");
    }
    if (word(u"sendkeys")) {
      std::u16string keys(parser.Rest());
      if (!keys.empty() && keys.front() == u'"') keys = parser.Text();
      form_.TypeKeys(keys);
    }
    return;
  }
  if (word(u"wheel")) {
    parser.Identifier();
    const std::u16string name = parser.Identifier();
    form_.Wheel(name, Variant(parser.Number()).ToInt32());
    return;
  }
  if (word(u"wait")) {
    parser.Identifier();
    form_.Wait(Variant(parser.Number()).ToInt32());
    return;
  }
  if (!is_path) SyntaxError(u"unknown statement " + first);

  Target target = parser.Path();
  if (parser.Consume(u'=')) {
    const Variant value = parser.Value();
    if (!parser.AtEnd()) SyntaxError(u"unexpected text after the value");
    if (target.ambient) return form_.SetAmbient(target.member, value);
    target.object->SetProperty(target.member, value, target.args);
    return;
  }
  if (!target.has_args) {
    target.args = parser.Arguments(u'\0');
    target.has_args = !target.args.empty();
  } else if (!parser.AtEnd()) {
    SyntaxError(u"unexpected text after the call");
  }
  if (target.ambient) {
    form_.Ambient(target.member);
    return;
  }
  if (dynamic_cast<ZKControl*>(target.object) != nullptr || target.has_args) {
    target.object->CallMethod(target.member, target.args);
  } else {
    target.object->GetProperty(target.member);
  }
}

}  // namespace zk
