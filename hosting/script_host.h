#pragma once

#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/debug_utils.h"
#include "foundation/signal.h"
#include "hosting/form.h"
#include "hosting/script_evaluator.h"
#include "hosting/script_parser.h"
#include "platform/platform.h"

namespace zk {

// Runs scripts that create controls on a form and drive them by their automation names, one
// statement a line:
//
//   new ZKLabel Total              place a control as a designer does (new KIND NAME in
//                                    CONTAINER places it inside a container control)
//   Total.Caption = "Sum"          write a property (also Total.ExtraProp("x") = 1,
//   Total.Font.Size = 12             and members of object properties)
//   ? Total.Caption                print a value (also Total.ExtraProp("x"), Total.Font, literals)
//   Total.Refresh                  call a method; arguments follow without parentheses
//   Total.ExtraAction "a", "b"       (or in them, or after "call": call Total.ExtraAction("a"));
//                                    one may be left out between commas: M("x", , "t")
//   events Total                   the events raised since the last "events Total"
//   notified Total                 the property-changed notifications since the last time
//   trace                          the diagnostic lines since the last "trace"
//   form.BackColor = &HFF          ambient values: BackColor, ForeColor, UserMode, TwipsPerPixel
//   save FILE / load FILE          the form file of every control
//   click|dblclick NAME [X Y], mousedown|mousemove|mouseup NAME X Y [BUTTON [SHIFT]],
//   focus NAME, sendkeys NAME KEYS, wheel NAME DELTA [X Y], wait MS
//   click C.ListWindow X Y ...     the input statements above (but focus and wheel) also reach
//                                    a popup window that a control shows under a name of its
//                                    own (ZKControl::NamedPopup), in twips of that window
//   activate form                  makes the form (or a control's popup window, activate
//                                    C.ListWindow) the active window
//
// A statement that shows a popup window modal runs the statements after it inside the
// window's loop, until the window hides; the script goes on after the last statement that ran
// there. A window still shown when the script ends is hidden. Inside a modal window's loop,
// "load" (which would replace the control that showed it) fails with error 5.
//
// Literals are numbers (-3, 2.5, &H8000000F), texts in double quotes with doubled quotes inside,
// True, False, Nothing, LoadPicture("file.png") and the names of the published enumerators; a
// control's name stands for the control. Arguments and indexes are such values or members of
// controls. Blank lines, lines starting with "#" and everything after a "'" outside a text are
// comments. A statement that fails prints "error N: DESCRIPTION" and the script goes on.
class ScriptHost {
 public:
  // `print` receives every output line (without its line break).
  ScriptHost(Form& form, std::function<void(std::u16string_view)> print);
  ~ScriptHost();
  ScriptHost(const ScriptHost&) = delete;
  ScriptHost& operator=(const ScriptHost&) = delete;

  // Runs one statement; false when it failed (its error line is printed).
  bool Execute(std::u16string_view line);
  // Runs every line of a script; the exit status: 0, or 1 when a statement failed.
  int Run(std::u16string_view script);

 private:
  // Where an input statement goes: a placed control, or the popup window it shows.
  struct InputTarget {
    std::u16string name;
    IPopupWindow* popup = nullptr;
  };

  struct Recording {
    std::vector<std::u16string> events;
    std::vector<std::u16string> notified;
    ScopedConnection connection;
  };

  // A statement that starts with a keyword, with the handler that reads its operands from the
  // parser and runs it.
  struct Statement {
    std::u16string_view keyword;
    void (*run)(ScriptHost& host, ScriptParser& operands);
  };
  static std::span<const Statement> Statements();

  void ExecuteStatement(std::u16string_view line);
  // The statements of the table, each reading its operands and running.
  void New(ScriptParser& operands);
  void Replay(ScriptParser& operands, bool events);
  void Trace(ScriptParser& operands);
  void Save(ScriptParser& operands);
  void Load(ScriptParser& operands);
  void Click(ScriptParser& operands, bool twice);
  void MouseButton(ScriptParser& operands, MouseAction action);
  void Focus(ScriptParser& operands, bool then_type);
  void Wheel(ScriptParser& operands);
  void Wait(ScriptParser& operands);
  void Call(ScriptParser& operands);
  void Activate(ScriptParser& operands);
  // NAME or NAME.POPUP: 424 when no control has the name, 438 when it shows no such window.
  InputTarget Target(ScriptParser& operands);
  // Runs the script's statements from the next one on while `go_on` says so.
  void RunStatements(const std::function<bool()>& go_on);
  // The name of a placed control; 424 when there is none.
  std::u16string ControlName(ScriptParser& operands);
  void Watch(ZKControl& control);
  void WatchAll();
  void CollectPropertyChanges();
  Recording& RecordingOf(std::u16string_view name);
  void Print(std::u16string_view line) { print_(line); }

  Form& form_;
  std::unique_ptr<ScriptScope> scope_;
  ScriptEvaluator evaluator_;
  std::function<void(std::u16string_view)> print_;
  std::map<std::u16string, Recording> recordings_;
  std::vector<MDebugUtils::TraceRecord> traces_;
  MDebugUtils::TraceSink previous_sink_;
  // The statements of the script that runs, the next one to run and the exit status so far.
  std::vector<std::u16string_view> statements_;
  size_t next_statement_ = 0;
  int status_ = 0;
  // How many modal windows run the script's statements in their loops.
  int modal_depth_ = 0;
  // The modal callback that was installed before this host's (restored when it goes).
  IPlatform::ModalCallback previous_modal_callback_;
  IPlatform* platform_ = nullptr;
};

// The text of a value as the script host prints it: texts as they are, booleans as True or
// False, numbers in plain decimal text with a leading zero, fonts as their archive element.
std::u16string ScriptValueText(const Variant& value);

}  // namespace zk
