#pragma once

// A private X server for tests of real input: Xvfb on a display number that it picks itself,
// and xdotool to drive its pointer and keyboard through the XTEST extension.
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace zk::x11 {

// An Xvfb server on a display number that it picks itself (-displayfd), for as long as this
// process lives: the server is told to stop when its parent goes.
class XvfbServer {
 public:
  // Starts the server once per process; the display (":N"), or nothing with `reason` set.
  static std::optional<std::string> Display(std::string& reason) {
    static std::string failure;
    static const std::optional<std::string> display = Start(failure);
    reason = failure;
    return display;
  }

 private:
  static std::optional<std::string> Start(std::string& reason) {
    int ready[2];
    if (pipe(ready) != 0) {
      reason = "no pipe for Xvfb";
      return std::nullopt;
    }
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child < 0) {
      reason = "cannot fork for Xvfb";
      return std::nullopt;
    }
    if (child == 0) {
      prctl(PR_SET_PDEATHSIG, SIGTERM);
      if (getppid() != parent) _exit(1);
      close(ready[0]);
      const int quiet = open("/dev/null", O_WRONLY);
      dup2(quiet, STDOUT_FILENO);
      dup2(quiet, STDERR_FILENO);
      const std::string fd = std::to_string(ready[1]);
      execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", "1024x768x24", "-nolisten",
             "tcp", "-noreset", static_cast<char*>(nullptr));
      _exit(127);
    }
    close(ready[1]);
    // The server writes its display number when it accepts clients.
    std::string number;
    pollfd wait_for{ready[0], POLLIN, 0};
    char c = 0;
    while (poll(&wait_for, 1, 15000) > 0 && read(ready[0], &c, 1) == 1 && c != '\n')
      number.push_back(c);
    close(ready[0]);
    if (number.empty()) {
      int status = 0;
      const bool ended = waitpid(child, &status, WNOHANG) == child;
      reason = ended && WIFEXITED(status) && WEXITSTATUS(status) == 127 ? "Xvfb is not installed"
                                                                        : "Xvfb did not start";
      if (!ended) kill(child, SIGKILL);
      return std::nullopt;
    }
    return ":" + number;
  }
};

// Runs xdotool with the arguments on the test's display; false when it failed.
inline bool XDoTool(const std::string& arguments) {
  return std::system(("xdotool " + arguments + " >/dev/null 2>&1").c_str()) == 0;
}

}  // namespace zk::x11
