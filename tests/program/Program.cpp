#include "program/Program.h"

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <csignal>

namespace zelvaro::test {
namespace {

constexpr int kTries = 2000;  ///< one each 10 ms: 20 seconds

/// In the new process: a shell prepares the start and turns into the program, whose place a copy may have taken.
[[noreturn]] void become(const std::string& folder, const std::string& preparation) {
  constexpr unsigned kLongestSeconds = 120;
  constexpr int kNoProgram = 127;
  ::alarm(kLongestSeconds);
  const std::string script =
      "cd \"$0\" && unset LC_ALL DISPLAY WAYLAND_DISPLAY && export LANG=C.UTF-8 TERM=xterm && " +
      preparation + " && exec \"${ZELVARO_PROGRAM:-" ZELVARO_PROGRAM "}\"";
  ::execl("/bin/sh", "sh", "-c", script.c_str(), folder.c_str(), static_cast<char*>(nullptr));
  ::_exit(kNoProgram);
}

}  // namespace

Ended runProgram(const std::string& folder, const std::string& typed, const std::string& preparation) {
  const TemporaryFolder console;
  const std::string redirections = "exec <'" + console.write("in", typed) + "' >'" + console.path("out") +
                                   "' 2>'" + console.path("err") + "'";
  ::malloc_trim(0);  // what this process has resident counts as the new one's
  const pid_t pid = ::fork();
  if (pid == 0) become(folder, redirections + " && " + preparation);
  Ended ended;
  rusage used{};
  ::wait4(pid, &ended.status, 0, &used);
  ended.peakMiB = static_cast<std::size_t>(used.ru_maxrss) / 1024;
  ended.console = console.read("out");
  ended.errors = console.read("err");
  return ended;
}

WatchedProgram::WatchedProgram(const std::string& folder, Console console) {
  if (console == Console::Terminal) {
    pid_ = ::forkpty(&keyboard_, nullptr, nullptr, nullptr);
    display_ = ::fcntl(keyboard_, F_DUPFD_CLOEXEC, 0);
    if (pid_ == 0) become(folder, "trap '' HUP");  // as under nohup
    return;
  }
  Pipe in, out;
  pid_ = ::fork();
  if (pid_ == 0) {
    ::dup2(in.first, STDIN_FILENO);
    ::dup2(out.second, STDOUT_FILENO);
    become(folder, ":");
  }
  keyboard_ = std::exchange(in.second, -1);
  display_ = std::exchange(out.first, -1);
}

WatchedProgram::~WatchedProgram() {
  if (pid_ > 0) ::kill(pid_, SIGKILL);
  wait();
  leave();
}

bool WatchedProgram::shows(std::string_view text) {
  for (int i = 0; i < kTries; ++i, ::usleep(10'000)) {
    screen_ += received(display_);
    const std::size_t at = screen_.find(text, searched_);
    if (at == std::string::npos) continue;
    searched_ = at + text.size();
    return true;
  }
  return false;
}

void WatchedProgram::leave() {
  ::close(std::exchange(keyboard_, -1));
  ::close(std::exchange(display_, -1));
}

int WatchedProgram::wait() {
  int status = -1;
  for (int i = 0; pid_ > 0 && i < kTries; ++i, ::usleep(10'000)) {
    screen_ += received(display_);  // a full screen would hold the program up
    if (::waitpid(pid_, &status, WNOHANG) == pid_) pid_ = -1;
  }
  screen_ += received(display_);
  return status;
}

}  // namespace zelvaro::test
