#include "platform/Surroundings.h"

#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/posix/Files.h"

namespace zelvaro {

std::optional<std::string> environmentVariable(const char* name) {
  const char* value = std::getenv(name);
  if (value == nullptr || *value == '\0') return std::nullopt;
  return value;
}

bool isTerminal(int descriptor) {
  return ::isatty(descriptor) == 1;
}

bool terminalHasColors() {
  return environmentVariable("TERM").value_or("dumb") != "dumb";
}

std::optional<std::string> readStandardInput(std::size_t most, FileFailure* failure) {
  std::string bytes;
  std::array<char, 64 * 1024> part{};
  for (;;) {
    const auto n = posix::uninterrupted([&] { return ::read(STDIN_FILENO, part.data(), part.size()); });
    if (n == 0) return bytes;
    if (n < 0) {
      tell(failure, failureOf(errno));
      return std::nullopt;
    }
    bytes.append(part.data(), static_cast<std::size_t>(n));
    if (bytes.size() <= most) continue;
    tell(failure, failureOf(EFBIG));
    return std::nullopt;
  }
}

bool makeFolders(const std::string& path, FileFailure* failure) {
  std::error_code error;
  std::filesystem::create_directories(path, error);
  if (!error) return true;
  tell(failure, failureOf(error.value()));
  return false;
}

std::uint64_t stampOfFile(const std::string& path) {
  struct stat s {};
  if (::stat(path.c_str(), &s) != 0) return 0;
  std::uint64_t stamp = 1469598103934665603u;  // FNV-1a over the fields that a change of the content changes
  for (const auto field :
       {static_cast<std::uint64_t>(s.st_ino), static_cast<std::uint64_t>(s.st_size),
        static_cast<std::uint64_t>(s.st_mtim.tv_sec), static_cast<std::uint64_t>(s.st_mtim.tv_nsec)})
    stamp = (stamp ^ field) * 1099511628211u;
  return stamp == 0 ? 1 : stamp;
}

void waitMilliseconds(int milliseconds) {
  ::poll(nullptr, 0, milliseconds);
}

std::string folderOfProgram() {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? "" : self.parent_path().string();
}

}  // namespace zelvaro
