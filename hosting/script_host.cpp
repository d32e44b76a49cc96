#include "hosting/script_host.h"

#include <array>
#include <fstream>
#include <optional>
#include <sstream>
#include <utility>

#include "foundation/archive_utils.h"
#include "foundation/dispatch_object.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "platform/platform.h"
#include "platform/std_font.h"

namespace zk {
namespace {

[[noreturn]] void SyntaxError(std::u16string_view detail) {
  throw ZKError(error_number::kInvalidProcedureCall, u"Syntax error: " + std::u16string(detail));
}

std::u16string Decimal(int64_t value) {
  return Utf8ToUtf16(std::to_string(value));
}

// The names of a script on a form: its controls, their extenders, its ambient values and the
// host's functions.
class FormScope final : public ScriptScope {
 public:
  explicit FormScope(Form& form) : form_(form) {}

  ObjectRef FindObject(std::u16string_view name) override { return form_.ControlRef(name); }

  DispatchObject* ExtenderOf(const DispatchObject& object) override {
    const auto* control = dynamic_cast<const ZKControl*>(&object);
    if (control == nullptr) return nullptr;
    const std::u16string name = control->Name();
    return form_.FindControl(name) == control ? form_.FindExtender(name) : nullptr;
  }

  Variant Ambient(std::u16string_view name) override { return form_.Ambient(name); }

  void SetAmbient(std::u16string_view name, const Variant& value) override {
    form_.SetAmbient(name, value);
  }

  Variant CallFunction(std::u16string_view name, std::span<Variant> args) override {
    if (!MemberNameEquals(name, u"LoadPicture")) {
      throw ZKError(35, u"Sub or Function not defined: " + std::u16string(name));
    }
    // A picture from an image file, as a host's LoadPicture gives one.
    if (args.empty() || args[0].IsEmpty()) throw ZKError(449, u"Argument not optional");
    if (args.size() > 1) {
      throw ZKError(450, u"Wrong number of arguments or invalid property assignment");
    }
    return Variant(CurrentPlatform().Pictures().LoadPicture(args[0].ToText()));
  }

 private:
  Form& form_;
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
    : form_(form),
      scope_(std::make_unique<FormScope>(form)),
      evaluator_(*scope_),
      print_(std::move(print)) {
  previous_sink_ = MDebugUtils::SetTraceSink(
      [this](const MDebugUtils::TraceRecord& record) { traces_.push_back(record); });
  WatchAll();
  form_.TakePropertyChanges();
  // A window shown modal runs the statements that follow inside its loop, as a user would act
  // while it is open.
  if (HasCurrentPlatform()) {
    platform_ = &CurrentPlatform();
    previous_modal_callback_ = platform_->GetModalCallback();
    platform_->SetModalCallback([this](IPopupWindow& window) {
      const WindowHandle handle = window.hWnd();
      IWindowSystem& windows = platform_->Windows();
      ++modal_depth_;
      RunStatements([&] { return windows.IsWindow(handle) && window.Visible(); });
      --modal_depth_;
    });
  }
}

ScriptHost::~ScriptHost() {
  if (platform_ != nullptr) platform_->SetModalCallback(std::move(previous_modal_callback_));
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
  std::vector<std::u16string_view> lines;
  size_t start = 0;
  while (start < script.size()) {
    size_t end = script.find(u'\n', start);
    if (end == std::u16string_view::npos) end = script.size();
    std::u16string_view line = script.substr(start, end - start);
    if (!line.empty() && line.back() == u'\r') line.remove_suffix(1);
    lines.push_back(line);
    start = end + 1;
  }
  // A script run from inside another one's modal window gets a turn of its own.
  auto outer_statements = std::exchange(statements_, std::move(lines));
  const size_t outer_next = std::exchange(next_statement_, 0);
  const int outer_status = std::exchange(status_, 0);
  RunStatements([] { return true; });
  const int status = status_;
  statements_ = std::move(outer_statements);
  next_statement_ = outer_next;
  status_ = outer_status;
  return status;
}

void ScriptHost::RunStatements(const std::function<bool()>& go_on) {
  while (next_statement_ < statements_.size() && go_on()) {
    if (!Execute(statements_[next_statement_++])) status_ = 1;
  }
}

std::span<const ScriptHost::Statement> ScriptHost::Statements() {
  using Host = ScriptHost;
  using Operands = ScriptParser;
  static constexpr std::array<Statement, 17> kStatements = {{
      {u"new", [](Host& host, Operands& operands) { host.New(operands); }},
      {u"events", [](Host& host, Operands& operands) { host.Replay(operands, true); }},
      {u"notified", [](Host& host, Operands& operands) { host.Replay(operands, false); }},
      {u"trace", [](Host& host, Operands& operands) { host.Trace(operands); }},
      {u"save", [](Host& host, Operands& operands) { host.Save(operands); }},
      {u"load", [](Host& host, Operands& operands) { host.Load(operands); }},
      {u"click", [](Host& host, Operands& operands) { host.Click(operands, false); }},
      {u"dblclick", [](Host& host, Operands& operands) { host.Click(operands, true); }},
      {u"mousedown",
       [](Host& host, Operands& operands) { host.MouseButton(operands, MouseAction::kDown); }},
      {u"mousemove",
       [](Host& host, Operands& operands) { host.MouseButton(operands, MouseAction::kMove); }},
      {u"mouseup",
       [](Host& host, Operands& operands) { host.MouseButton(operands, MouseAction::kUp); }},
      {u"focus", [](Host& host, Operands& operands) { host.Focus(operands, false); }},
      {u"sendkeys", [](Host& host, Operands& operands) { host.Focus(operands, true); }},
      {u"wheel", [](Host& host, Operands& operands) { host.Wheel(operands); }},
      {u"wait", [](Host& host, Operands& operands) { host.Wait(operands); }},
      {u"call", [](Host& host, Operands& operands) { host.Call(operands); }},
      {u"activate", [](Host& host, Operands& operands) { host.Activate(operands); }},
  }};
  return kStatements;
}

void ScriptHost::ExecuteStatement(std::u16string_view line) {
  ScriptParser parser(line);
  if (parser.AtEnd() || parser.Peek() == u'#') return;
  if (parser.Consume(u'?')) {
    const ScriptExpression expression = parser.Value();
    parser.ExpectEnd(u"the value");
    Print(ScriptValueText(evaluator_.Evaluate(expression)));
    return;
  }
  if (parser.AtMemberPath()) {
    evaluator_.Execute(parser.MemberStatement());
    return;
  }
  const std::u16string keyword = parser.Name();
  for (const Statement& statement : Statements()) {
    if (MemberNameEquals(statement.keyword, keyword)) {
      statement.run(*this, parser);
      return;
    }
  }
  SyntaxError(u"unknown statement " + keyword);
}

std::u16string ScriptHost::ControlName(ScriptParser& operands) {
  std::u16string name = operands.Name();
  if (form_.FindControl(name) == nullptr) {
    throw ZKError(error_number::kObjectRequired, u"Object required: " + name);
  }
  return name;
}

void ScriptHost::New(ScriptParser& operands) {
  const std::u16string kind = operands.Name();
  const std::u16string name = operands.Name();
  std::optional<std::u16string> container;
  if (operands.ConsumeKeyword(u"in")) container = operands.Name();
  if (!operands.AtEnd()) SyntaxError(u"new KIND NAME [in CONTAINER]");
  ZKControl& control =
      container ? form_.AddControlInside(kind, name, *container) : form_.AddControl(kind, name);
  Watch(control);
  // Placement is where a script's story starts: what InitProperties notified is not news.
  form_.TakePropertyChanges();
}

void ScriptHost::Replay(ScriptParser& operands, bool events) {
  const std::u16string name = ControlName(operands);
  operands.ExpectEnd(u"the name");
  CollectPropertyChanges();
  Recording& recording = RecordingOf(name);
  std::vector<std::u16string>& lines = events ? recording.events : recording.notified;
  for (const std::u16string& entry : lines)
    Print(entry);
  lines.clear();
}

void ScriptHost::Trace(ScriptParser& operands) {
  operands.ExpectEnd(u"trace");
  for (const auto& record : traces_)
    Print(MDebugUtils::FormatTraceLine(record));
  traces_.clear();
}

void ScriptHost::Save(ScriptParser& operands) {
  const std::string path = Utf16ToUtf8(operands.Word());
  operands.ExpectEnd(u"the file name");
  std::ofstream file(path, std::ios::binary);
  const std::string text = form_.SaveText();
  if (!file || !file.write(text.data(), static_cast<std::streamsize>(text.size()))) {
    throw ZKError(75, u"Path/File access error: " + Utf8ToUtf16(path));
  }
}

void ScriptHost::Load(ScriptParser& operands) {
  const std::string path = Utf16ToUtf8(operands.Word());
  operands.ExpectEnd(u"the file name");
  // The control that showed the window is still running its show: it may not go under it.
  if (modal_depth_ > 0) {
    throw ZKError(error_number::kInvalidProcedureCall,
                  u"Invalid procedure call or argument: load while a window is shown modal");
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) throw ZKError(error_number::kFileNotFound, u"File not found: " + Utf8ToUtf16(path));
  std::stringstream contents;
  contents << file.rdbuf();
  form_.LoadText(contents.str());
  WatchAll();
  form_.TakePropertyChanges();
}

ScriptHost::InputTarget ScriptHost::Target(ScriptParser& operands) {
  InputTarget target{ControlName(operands)};
  if (!operands.Consume(u'.')) return target;
  const std::u16string window = operands.Name();
  target.popup = form_.FindControl(target.name)->NamedPopup(window);
  if (target.popup == nullptr) {
    throw ZKError(
        error_number::kMemberNotFound,
        u"Object doesn't support this property or method: " + target.name + u"." + window);
  }
  return target;
}

void ScriptHost::Click(ScriptParser& operands, bool twice) {
  const InputTarget target = Target(operands);
  float x = 0;
  float y = 0;
  if (operands.AtEnd()) {
    // Without a point, the middle of the control or window.
    if (target.popup != nullptr) {
      x = static_cast<float>(target.popup->Site().Surface().ScaleWidth() / 2);
      y = static_cast<float>(target.popup->Site().Surface().ScaleHeight() / 2);
    } else {
      DispatchObject& extender = *form_.FindExtender(target.name);
      x = static_cast<float>(extender.GetProperty(u"Width").ToDouble() / 2);
      y = static_cast<float>(extender.GetProperty(u"Height").ToDouble() / 2);
    }
  } else {
    x = static_cast<float>(operands.Number());
    y = static_cast<float>(operands.Number());
  }
  operands.ExpectEnd(u"the input");
  const auto deliver = [&](MouseAction action) {
    if (target.popup != nullptr) {
      form_.DeliverPopupMouse(*target.popup, action, 1, 0, x, y);
    } else {
      form_.DeliverMouse(target.name, action, 1, 0, x, y);
    }
  };
  deliver(MouseAction::kDown);
  deliver(MouseAction::kUp);
  if (twice) {
    deliver(MouseAction::kDoubleDown);
    deliver(MouseAction::kUp);
  }
}

void ScriptHost::MouseButton(ScriptParser& operands, MouseAction action) {
  const InputTarget target = Target(operands);
  const auto x = static_cast<float>(operands.Number());
  const auto y = static_cast<float>(operands.Number());
  int16_t button = action == MouseAction::kMove ? 0 : 1;
  int16_t shift = 0;
  if (!operands.AtEnd()) button = Variant(operands.Number()).ToInt16();
  if (!operands.AtEnd()) shift = Variant(operands.Number()).ToInt16();
  operands.ExpectEnd(u"the input");
  if (target.popup != nullptr) {
    form_.DeliverPopupMouse(*target.popup, action, button, shift, x, y);
  } else {
    form_.DeliverMouse(target.name, action, button, shift, x, y);
  }
}

void ScriptHost::Focus(ScriptParser& operands, bool then_type) {
  const InputTarget target = then_type ? Target(operands) : InputTarget{ControlName(operands)};
  const std::u16string& name = target.name;
  std::u16string keys;
  if (then_type) {
    // The keys as written up to the end of the line, or a text in quotes.
    keys = operands.Peek() == u'"' ? operands.Text() : operands.Rest();
  }
  operands.ExpectEnd(then_type ? u"the keys" : u"the name");
  if (target.popup != nullptr) {
    form_.TypePopupKeys(*target.popup, keys);
    return;
  }
  if (!form_.Focus(name)) {
    throw ZKError(error_number::kInvalidProcedureCall,
                  u"Invalid procedure call or argument: " + name + u" cannot take the focus");
  }
  if (then_type) form_.TypeKeys(keys);
}

void ScriptHost::Wheel(ScriptParser& operands) {
  const std::u16string name = operands.Name();
  const int32_t delta = Variant(operands.Number()).ToInt32();
  std::optional<std::pair<float, float>> at;
  if (!operands.AtEnd()) {
    const auto x = static_cast<float>(operands.Number());
    at.emplace(x, static_cast<float>(operands.Number()));
  }
  operands.ExpectEnd(u"the place");
  form_.Wheel(name, delta, at);
}

void ScriptHost::Wait(ScriptParser& operands) {
  const int32_t milliseconds = Variant(operands.Number()).ToInt32();
  operands.ExpectEnd(u"the time");
  form_.Wait(milliseconds);
}

void ScriptHost::Call(ScriptParser& operands) {
  if (!operands.AtMemberPath()) SyntaxError(u"call NAME.Method[(ARGS)]");
  const ScriptMemberStatement statement = operands.MemberStatement();
  if (statement.value) SyntaxError(u"call NAME.Method[(ARGS)]");
  evaluator_.Execute(statement);
}

void ScriptHost::Activate(ScriptParser& operands) {
  if (operands.ConsumeKeyword(u"form")) {
    operands.ExpectEnd(u"activate form");
    form_.Activate();
    return;
  }
  const InputTarget target = Target(operands);
  operands.ExpectEnd(u"activate NAME.WINDOW");
  if (target.popup == nullptr) SyntaxError(u"activate form | activate NAME.WINDOW");
  CurrentPlatform().Windows().ActivateWindow(target.popup->hWnd());
}

}  // namespace zk
