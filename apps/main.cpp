// zkcontrols: the program of ZKBaseGUIControls (gallery, script host, archive tools).
#include <cstdio>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "apps/gallery.h"
#include "controls/control_kinds.h"
#include "foundation/archive_utils.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "hosting/archive_explainer.h"
#include "hosting/headless_form.h"
#include "hosting/script_command.h"

namespace {

constexpr const char* kUsage =
    "usage: zkcontrols COMMAND [ARGS]\n"
    "\n"
    "commands:\n"
    "  gallery [--screenshot FILE.png] [--archive FILE] [--offscreen]\n"
    "                                 show every control of the library (without a display,\n"
    "                                 or with --screenshot, render it to a PNG)\n"
    "  script [--platform headless|qt] [FILE|-]\n"
    "                                 run a script of statements (standard input for - or none)\n"
    "  archive explain KIND STRING    explain an archive string of a control kind\n"
    "  archive split STRING           list the elements of an archive string\n"
    "                                 (STRING - reads it from standard input, as long as it is)\n"
    "  kinds                          list the control kinds\n"
    "  help                           this text\n";

void PrintLine(std::u16string_view line) {
  std::string text = zk::Utf16ToUtf8(line);
  text.push_back('\n');
  std::fwrite(text.data(), 1, text.size(), stdout);
}

int Gallery(const std::vector<std::string_view>& args) {
  zk::GalleryOptions options;
  for (size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--offscreen") {
      options.offscreen = true;
    } else if ((args[i] == "--screenshot" || args[i] == "--archive") && i + 1 < args.size()) {
      (args[i] == "--screenshot" ? options.screenshot : options.archive_file) = args[i + 1];
      ++i;
    } else {
      std::fprintf(stderr, "zkcontrols: unknown gallery argument %s\n%s",
                   std::string(args[i]).c_str(), kUsage);
      return 2;
    }
  }
  return zk::RunGallery(options);
}

int Script(const std::vector<std::string_view>& args) {
  return zk::RunScriptCommand(args, "zkcontrols");
}

// The archive string of the command line, or of standard input for "-" (a string longer than
// the system lets one argument be). A final line break of the input is not part of it.
std::optional<std::string> ArchiveArgument(std::string_view argument) {
  std::string text(argument);
  if (argument == "-") {
    std::stringstream input;
    input << std::cin.rdbuf();
    text = input.str();
    if (!text.empty() && text.back() == '\n') text.pop_back();
    if (!text.empty() && text.back() == '\r') text.pop_back();
  }
  if (const std::optional<size_t> offset = zk::FindNonText(text)) {
    std::fprintf(stderr, "zkcontrols: the archive string is not text (byte %zu is not UTF-8)\n",
                 *offset);
    return std::nullopt;
  }
  return text;
}

int ArchiveExplain(std::string_view kind, std::string_view archive) {
  zk::HeadlessPlatform platform;
  zk::PlatformScope scope(platform);
  zk::HeadlessForm form(platform);
  try {
    for (const std::u16string& line :
         zk::ExplainArchive(form, zk::Utf8ToUtf16(kind), zk::Utf8ToUtf16(archive))) {
      PrintLine(line);
    }
  } catch (const zk::ZKError& error) {
    std::fprintf(stderr, "zkcontrols: %s\n", error.what());
    return 2;
  }
  return 0;
}

int ArchiveSplit(std::string_view archive) {
  const std::vector<std::u16string> elements =
      zk::MArchiveUtils::ArchiveSplitElements(zk::Utf8ToUtf16(archive));
  for (size_t i = 0; i < elements.size(); ++i) {
    std::printf("%zu\t%s\n", i, zk::Utf16ToUtf8(elements[i]).c_str());
  }
  std::printf("%zu elements\n", elements.size());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string_view> args(argv + 1, argv + argc);
  if (args.empty() || args[0] == "help" || args[0] == "--help" || args[0] == "-h") {
    std::fputs(kUsage, args.empty() ? stderr : stdout);
    return args.empty() ? 2 : 0;
  }
  const std::string_view command = args[0];
  const std::vector<std::string_view> rest(args.begin() + 1, args.end());
  if (command == "gallery") return Gallery(rest);
  if (command == "script") return Script(rest);
  if (command == "kinds") {
    for (const zk::ControlKind& kind : zk::ControlKinds())
      PrintLine(kind.name);
    return 0;
  }
  if (command == "archive" && rest.size() == 3 && rest[0] == "explain") {
    const std::optional<std::string> archive = ArchiveArgument(rest[2]);
    return archive ? ArchiveExplain(rest[1], *archive) : 2;
  }
  if (command == "archive" && rest.size() == 2 && rest[0] == "split") {
    const std::optional<std::string> archive = ArchiveArgument(rest[1]);
    return archive ? ArchiveSplit(*archive) : 2;
  }
  std::fprintf(stderr, "zkcontrols: unknown command or arguments: %s\n\n%s",
               std::string(command).c_str(), kUsage);
  return 2;
}
