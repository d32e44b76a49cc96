// zk_test_script: the script command of zkcontrols, with the control kinds that only tests
// build, for the conformance scenarios that need them.
#include <cstdio>
#include <string_view>
#include <vector>

#include "hosting/script_command.h"
#include "support/test_kinds.h"

int main(int argc, char** argv) {
  const std::vector<std::string_view> args(argv + 1, argv + argc);
  if (args.empty() || args[0] != "script") {
    std::fputs("usage: zk_test_script script [--platform headless|qt] [FILE|-]\n", stderr);
    return 2;
  }
  zk::RegisterTestControlKinds();
  return zk::RunScriptCommand(std::span(args).subspan(1), "zk_test_script");
}
