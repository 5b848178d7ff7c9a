#include "platform/posix/PosixPlatform.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include "platform/Failures.h"
#include "platform/posix/Programs.h"

namespace zelvaro {

void holdStandardDescriptors() {
  for (const int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // open() returns the lowest free number
    if (::fcntl(fd, F_GETFD) < 0) static_cast<void>(::open("/dev/null", O_RDWR));
  }
}

bool writeToStandardError(std::string_view utf8) {
  return ::write(STDERR_FILENO, utf8.data(), utf8.size()) >= 0;
}

std::unique_ptr<Platform> systemPlatform() {
  return std::make_unique<PosixPlatform>();
}

std::vector<std::string> programArguments(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

PosixPlatform::PosixPlatform(int inputFd, int outputFd) : ConsolePlatform(inputFd, outputFd) {
  for (const int signal : posix::kIgnoredSignals) std::signal(signal, SIG_IGN);
}

bool PosixPlatform::consoleIsGone() {
  constexpr std::int64_t kBetweenLooks = 250'000'000;
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  const std::int64_t time = static_cast<std::int64_t>(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
  if (time - lastLook_ >= kBetweenLooks) {
    lastLook_ = time;
    if (input_.hasHungUp()) output_.giveUp();
    output_.look();
  }
  return output_.readerIsGone();
}

std::optional<std::string> PosixPlatform::workingDirectory(FileFailure* failure) {
  std::string path(256, '\0');
  while (::getcwd(path.data(), path.size()) == nullptr) {
    if (errno != ERANGE) {
      tell(failure, failureOf(errno));
      return std::nullopt;
    }
    path.resize(path.size() * 2);
  }
  path.resize(path.find('\0'));
  return path;
}

/// The first of the three variables that has a value decides, as POSIX defines it.
bool PosixPlatform::userInterfaceIsJapanese() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return std::string_view(value).starts_with("ja");
  }
  return false;
}

std::int64_t PosixPlatform::performanceCounter() {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<std::int64_t>(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
}

std::tm PosixPlatform::localTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  return local;
}

}  // namespace zelvaro
