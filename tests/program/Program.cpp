#include "program/Program.h"

#include <fcntl.h>
#include <malloc.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace zelvaro::test {
namespace {

/// In the new process: turns into the program, whose place a copy may have taken.
[[noreturn]] void become(const std::string& folder) {
  constexpr unsigned kLongestSeconds = 120;
  constexpr int kNoProgram = 127;
  const char* program = std::getenv("ZELVARO_PROGRAM");
  if (program == nullptr) program = ZELVARO_PROGRAM;
  ::unsetenv("LC_ALL");
  ::setenv("LANG", "C.UTF-8", 1);
  ::setenv("TERM", "xterm", 1);
  for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY"}) ::unsetenv(display);
  ::alarm(kLongestSeconds);
  if (::chdir(folder.c_str()) == 0) ::execl(program, program, static_cast<char*>(nullptr));
  ::_exit(kNoProgram);
}

/// In the new process: one of its standard descriptors is that file.
void redirect(int fd, const std::string& path, int flags) {
  const int file = ::open(path.c_str(), flags, 0600);
  ::dup2(file, fd);
  ::close(file);
}

}  // namespace

Ended runProgram(const std::string& folder, std::string_view typed, const ProgramLimits& limits) {
  const TemporaryFolder console;
  const std::string in = console.write("in", std::string(typed));
  ::malloc_trim(0);  // what this process has resident counts as the new one's
  const pid_t pid = ::fork();
  if (pid == 0) {
    redirect(STDIN_FILENO, in, O_RDONLY);
    redirect(STDOUT_FILENO, console.path("out"), O_WRONLY | O_CREAT);
    redirect(STDERR_FILENO, console.path("err"), O_WRONLY | O_CREAT);
    if (limits.outputIsClosed) {
      ::close(STDOUT_FILENO);
      ::close(STDERR_FILENO);
    }
    const rlim_t bytes = static_cast<rlim_t>(limits.addressSpaceKiB) << 10;
    const rlimit limit{bytes, bytes};
    if (bytes != 0) ::setrlimit(RLIMIT_AS, &limit);
    become(folder);
  }
  Ended ended;
  rusage used{};
  while (::wait4(pid, &ended.status, 0, &used) < 0 && errno == EINTR) {
  }
  ended.peakMiB = static_cast<std::size_t>(used.ru_maxrss) / 1024;
  ended.console = console.read("out");
  ended.errors = console.read("err");
  return ended;
}

WatchedProgram::WatchedProgram(const std::string& folder, Console console) {
  if (console == Console::Terminal) {
    pid_ = ::forkpty(&keyboard_, nullptr, nullptr, nullptr);
    if (pid_ == 0) ::signal(SIGHUP, SIG_IGN);  // as under nohup
    display_ = ::fcntl(keyboard_, F_DUPFD_CLOEXEC, 0);
  } else {
    Pipe in, out;
    pid_ = ::fork();
    if (pid_ == 0) {
      ::dup2(in.first, STDIN_FILENO);
      ::dup2(out.second, STDOUT_FILENO);
    }
    keyboard_ = std::exchange(in.second, -1);
    display_ = std::exchange(out.first, -1);
  }
  if (pid_ == 0) become(folder);
}

WatchedProgram::~WatchedProgram() {
  if (pid_ > 0) ::kill(pid_, SIGKILL);
  wait();
  leave();
}

bool WatchedProgram::shows(std::string_view text) {
  constexpr int kMilliseconds = 20'000;
  for (;;) {
    const std::size_t at = screen_.find(text, searched_);
    if (at != std::string::npos) {
      searched_ = at + text.size();
      return true;
    }
    pollfd ready{display_, POLLIN, 0};
    char part[4096];
    const ssize_t n = ::poll(&ready, 1, kMilliseconds) > 0 ? ::read(display_, part, sizeof part) : 0;
    if (n <= 0) return false;
    screen_.append(part, static_cast<std::size_t>(n));
  }
}

void WatchedProgram::leave() {
  ::close(std::exchange(keyboard_, -1));
  ::close(std::exchange(display_, -1));
}

int WatchedProgram::wait(int seconds) {
  int status = -1;
  for (int i = 0; pid_ > 0 && i < seconds * 100; ++i) {
    if (display_ >= 0) screen_ += received(display_);
    if (::waitpid(pid_, &status, WNOHANG) == pid_) {
      pid_ = -1;
    } else {
      ::usleep(10'000);
    }
  }
  if (display_ >= 0) screen_ += received(display_);
  return status;
}

}  // namespace zelvaro::test
