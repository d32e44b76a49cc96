// zkcontrols: the program of ZKBaseGUIControls (gallery, archive tools).
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/archive_utils.h"
#include "foundation/text_encoding.h"

namespace {

constexpr const char* kUsage =
    "usage: zkcontrols COMMAND [ARGS]\n"
    "\n"
    "commands:\n"
    "  gallery                  show every control of the library\n"
    "  archive split STRING     list the elements of an archive string, one per line\n"
    "  help                     this text\n";

int Gallery() {
  std::printf(
      "ZKBaseGUIControls 2.01 (ZK Base GUI Controls)\n"
      "No control exists yet: the foundation (number text, archive codec, platform layer) is in\n"
      "place, and the gallery will show each control as it is built.\n");
  return 0;
}

// Prints each element of an archive string with its index, splitting as a control does.
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
  if (args[0] == "gallery") return Gallery();
  if (args[0] == "archive" && args.size() == 3 && args[1] == "split") return ArchiveSplit(args[2]);
  std::fprintf(stderr, "zkcontrols: unknown command '%s'\n\n%s", std::string(args[0]).c_str(),
               kUsage);
  return 2;
}
