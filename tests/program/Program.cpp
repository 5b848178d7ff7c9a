#include "program/Program.h"

#include <fcntl.h>
#include <malloc.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>

#include "platform/TemporaryFolder.h"

namespace zelvaro::test {
namespace {

constexpr unsigned kLongestSeconds = 120;
constexpr int kNoProgram = 127;

/// In the new process: turns into the program.
[[noreturn]] void become(const std::string& folder) {
  ::unsetenv("LC_ALL");
  ::setenv("LANG", "C", 1);
  ::alarm(kLongestSeconds);
  if (::chdir(folder.c_str()) == 0) ::execl(ZELVARO_PROGRAM, ZELVARO_PROGRAM, static_cast<char*>(nullptr));
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
    if (limits.addressSpaceMiB != 0) {
      const rlim_t bytes = static_cast<rlim_t>(limits.addressSpaceMiB) << 20;
      const rlimit limit{bytes, bytes};
      ::setrlimit(RLIMIT_AS, &limit);
    }
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

ProgramOnTerminal::ProgramOnTerminal(const std::string& folder) {
  pid_ = ::forkpty(&terminal_, nullptr, nullptr, nullptr);
  if (pid_ == 0) become(folder);
}

ProgramOnTerminal::~ProgramOnTerminal() {
  if (pid_ > 0) {
    ::kill(pid_, SIGKILL);
    wait();
  }
  ::close(terminal_);
}

bool ProgramOnTerminal::shows(std::string_view text) {
  constexpr int kMilliseconds = 20'000;
  for (;;) {
    const std::size_t at = screen_.find(text, searched_);
    if (at != std::string::npos) {
      searched_ = at + text.size();
      return true;
    }
    pollfd ready{terminal_, POLLIN, 0};
    char part[4096];
    const ssize_t n = ::poll(&ready, 1, kMilliseconds) > 0 ? ::read(terminal_, part, sizeof part) : 0;
    if (n <= 0) return false;
    screen_.append(part, static_cast<std::size_t>(n));
  }
}

int ProgramOnTerminal::wait() {
  int status = -1;
  while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  screen_ += received(terminal_);
  return status;
}

}  // namespace zelvaro::test
