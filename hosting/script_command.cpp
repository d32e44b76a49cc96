#include "hosting/script_command.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>

#include "foundation/text_encoding.h"
#include "hosting/headless_form.h"
#include "hosting/qt_form.h"
#include "hosting/script_host.h"

namespace zk {
namespace {

void PrintLine(std::u16string_view line) {
  std::string text = Utf16ToUtf8(line);
  text.push_back('\n');
  std::fwrite(text.data(), 1, text.size(), stdout);
}

}  // namespace

int RunScriptCommand(std::span<const std::string_view> args, std::string_view program) {
  const std::string name(program);
  std::string_view file = "-";
  std::string_view platform_name = "headless";
  for (size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--platform") {
      if (i + 1 >= args.size() || (args[i + 1] != "headless" && args[i + 1] != "qt")) {
        std::fprintf(stderr, "%s: --platform takes headless or qt\n", name.c_str());
        return 2;
      }
      platform_name = args[++i];
    } else {
      file = args[i];
    }
  }
  std::string script;
  if (file == "-") {
    std::stringstream input;
    input << std::cin.rdbuf();
    script = input.str();
  } else {
    std::ifstream input{std::string(file), std::ios::binary};
    std::error_code error;
    if (!input || std::filesystem::is_directory(std::string(file), error)) {
      std::fprintf(stderr, "%s: cannot read %s\n", name.c_str(), std::string(file).c_str());
      return 2;
    }
    std::stringstream contents;
    contents << input.rdbuf();
    script = contents.str();
  }
  // A binary file read as statements would print one syntax error per garbage line.
  if (const std::optional<size_t> offset = FindNonText(script)) {
    std::fprintf(stderr, "%s: %s is not a text file (byte %zu is not UTF-8 text)\n", name.c_str(),
                 file == "-" ? "standard input" : std::string(file).c_str(), *offset);
    return 2;
  }
  int status = 0;
  if (platform_name == "qt") {
    QtPlatform platform;
    platform.Recorder().keep_property_changes = true;  // "notified" reads them
    PlatformScope scope(platform);
    QtForm form(platform);
    form.Widget()->show();
    ScriptHost host(form, PrintLine);
    status = host.Run(Utf8ToUtf16(script));
  } else {
    HeadlessPlatform platform;
    PlatformScope scope(platform);
    HeadlessForm form(platform);
    ScriptHost host(form, PrintLine);
    status = host.Run(Utf8ToUtf16(script));
  }
  std::fflush(stdout);
  return status;
}

}  // namespace zk
