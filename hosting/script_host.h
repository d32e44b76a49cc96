#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/debug_utils.h"
#include "foundation/signal.h"
#include "hosting/form.h"

namespace zk {

// Runs scripts that create controls on a form and drive them by their automation names, one
// statement a line:
//
//   new ZKLabel Total              place a control as a designer does
//   Total.Caption = "Sum"          write a property (also Total.ExtraProp("x") = 1,
//   Total.Font.Size = 12             and members of object properties)
//   ? Total.Caption                print a value (also Total.Font.Name, Total.Font, literals)
//   Total.Refresh                  call a method (also Total.ParseArchiveStr("..."))
//   events Total                   the events raised since the last "events Total"
//   notified Total                 the property-changed notifications since the last time
//   trace                          the diagnostic lines since the last "trace"
//   form.BackColor = &HFF          ambient values: BackColor, ForeColor, UserMode, TwipsPerPixel
//   save FILE / load FILE          the form file of every control
//   click|dblclick NAME [X Y], mousedown|mousemove|mouseup NAME X Y [BUTTON [SHIFT]],
//   focus NAME, sendkeys NAME KEYS, wheel NAME DELTA, wait MS
//
// Literals are numbers (-3, 2.5, &H8000000F), texts in double quotes with doubled quotes inside,
// True, False, Nothing, LoadPicture("file.png") and the names of the published enumerators; a
// control's name stands for the control. Blank lines and lines starting with "#" or "'" are
// ignored. A statement that fails prints "error N: DESCRIPTION" and the script goes on.
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
  struct Recording {
    std::vector<std::u16string> events;
    std::vector<std::u16string> notified;
    ScopedConnection connection;
  };

  void ExecuteStatement(std::u16string_view line);
  void Watch(ZKControl& control);
  void WatchAll();
  void CollectPropertyChanges();
  Recording& RecordingOf(std::u16string_view name);
  void Print(std::u16string_view line) { print_(line); }

  Form& form_;
  std::function<void(std::u16string_view)> print_;
  std::map<std::u16string, Recording> recordings_;
  std::vector<MDebugUtils::TraceRecord> traces_;
  MDebugUtils::TraceSink previous_sink_;
};

// The text of a value as the script host prints it: texts as they are, booleans as True or
// False, numbers in plain decimal text with a leading zero, fonts as their archive element.
std::u16string ScriptValueText(const Variant& value);

}  // namespace zk
