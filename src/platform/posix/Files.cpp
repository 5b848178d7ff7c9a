#include "platform/posix/Files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <vector>

#include "platform/Memory.h"
#include "platform/WholeFile.h"
#include "platform/posix/PosixPlatform.h"

namespace zelvaro::posix {
namespace {

/// Opens a regular file for reading.  Does not block on a named pipe.
Descriptor openRegular(const std::string& path, struct stat& status, FileFailure* failure) {
  if (path.find('\0') != std::string::npos) {
    tell(failure, failureOf(EINVAL));
    return Descriptor();
  }
  Descriptor file(
      uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
  // opening a socket always fails, and opening a device may fail
  const bool known = (file.isOpen() ? ::fstat(file.get(), &status) : ::stat(path.c_str(), &status)) == 0;
  const int error = errno;
  if (const auto refusal = known ? refusalOf(status.st_mode) : std::nullopt) {
    tell(failure, *refusal);
  } else if (!file.isOpen() || !known) {
    tell(failure, failureOf(error));
  } else {
    return file;
  }
  return Descriptor();
}

std::optional<std::string> readOpened(const Descriptor& file, const struct stat& status, std::size_t most,
                                      FileFailure* failure) {
  const auto readSome = [&](char* to, std::size_t size) -> std::optional<std::size_t> {
    const ssize_t n = uninterrupted([&] { return ::read(file.get(), to, size); });
    if (n < 0) return std::nullopt;
    return static_cast<std::size_t>(n);
  };
  return readToEnd(static_cast<std::size_t>(status.st_size), most, readSome, failure);
}

/// Memory mapped from the system, in large pages where they are available: the first access to a page costs
/// more than reading its content.
class LargeMemory {
 public:
  static std::shared_ptr<LargeMemory> allocate(std::size_t size) {
    constexpr std::size_t kLargePage = std::size_t{2} << 20;
    auto owner = std::make_shared<LargeMemory>();
    const std::size_t length = (size / kLargePage + 2) * kLargePage;
    void* base = ::mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (base == MAP_FAILED) return nullptr;
    owner->base_ = base;
    owner->length_ = length;
    void* aligned = base;
    std::size_t room = length;
    std::align(kLargePage, length - kLargePage, aligned, room);
    preferLargePages(aligned, length - kLargePage);
    owner->bytes = static_cast<char*>(aligned);
    return owner;
  }
  LargeMemory() = default;
  ~LargeMemory() {
    if (base_ != nullptr) ::munmap(base_, length_);
  }
  LargeMemory(const LargeMemory&) = delete;
  LargeMemory& operator=(const LargeMemory&) = delete;

  char* bytes = nullptr;

 private:
  void* base_ = nullptr;
  std::size_t length_ = 0;
};

/// Reads up to `size` bytes.  Returns how many there were, or nothing with errno set.
std::optional<std::size_t> readUpTo(int fd, char* to, std::size_t size) {
  std::size_t have = 0;
  while (have < size) {
    const ssize_t n = uninterrupted([&] { return ::read(fd, to + have, size - have); });
    if (n < 0) return std::nullopt;
    if (n == 0) break;
    have += static_cast<std::size_t>(n);
  }
  return have;
}

/// Of a file that grows during the read, only the size that it had when it was opened is read.
std::optional<FileBytes> loadLarge(const Descriptor& file, std::size_t size, FileFailure* failure) {
  const auto memory = LargeMemory::allocate(size);
  const auto have = memory ? readUpTo(file.get(), memory->bytes, size) : std::nullopt;
  if (have) return FileBytes{{memory->bytes, *have}, memory};
  tell(failure, failureOf(memory ? errno : ENOMEM));
  return std::nullopt;
}

}  // namespace

std::optional<FileFailure> refusalOf(mode_t mode) {
  if (S_ISREG(mode)) return std::nullopt;
  if (S_ISDIR(mode)) return failureOf(EISDIR);
  return notRegular();
}

}  // namespace zelvaro::posix

namespace zelvaro {

FileFailure lastFailure() {
  return failureOf(errno);
}

bool ConsolePlatform::canRead(const std::string& path, FileFailure* failure) {
  struct stat status {};
  return posix::openRegular(path, status, failure).isOpen();
}

std::optional<std::string> ConsolePlatform::readFile(const std::string& path, FileFailure* failure,
                                                     std::size_t most) {
  struct stat status {};
  const posix::Descriptor file = posix::openRegular(path, status, failure);
  if (!file.isOpen()) return std::nullopt;
  return posix::readOpened(file, status, most, failure);
}

std::optional<FileBytes> PosixPlatform::loadFile(const std::string& path, FileFailure* failure) {
  constexpr std::size_t kLarge = std::size_t{1} << 20;
  struct stat status {};
  const posix::Descriptor file = posix::openRegular(path, status, failure);
  if (!file.isOpen()) return std::nullopt;
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size >= kLarge && size <= kMostSourceBytes) return posix::loadLarge(file, size, failure);
  auto text = posix::readOpened(file, status, kMostSourceBytes, failure);
  if (!text) return std::nullopt;
  const auto memory = std::make_shared<const std::string>(std::move(*text));
  return FileBytes{*memory, memory};
}

bool ConsolePlatform::deleteFile(const std::string& path, FileFailure* failure) {
  const bool named = path.find('\0') == std::string::npos;
  if (named && ::unlink(path.c_str()) == 0) return true;
  tell(failure, failureOf(named ? errno : EINVAL));
  return false;
}

bool ConsolePlatform::exists(const std::string& path) {
  struct stat status {};
  return path.find('\0') == std::string::npos && ::stat(path.c_str(), &status) == 0;
}

std::optional<std::vector<std::string>> ConsolePlatform::entriesOf(const std::string& path,
                                                                   FileFailure* failure) {
  if (path.find('\0') != std::string::npos) {
    tell(failure, failureOf(EINVAL));
    return std::nullopt;
  }
  struct Close {
    void operator()(DIR* opened) const { ::closedir(opened); }
  };
  struct stat status {};
  const std::unique_ptr<DIR, Close> folder(::opendir(path.empty() ? "." : path.c_str()));
  if (folder == nullptr) {
    const int error = errno;
    if (error == ENOTDIR && ::stat(path.c_str(), &status) == 0) return std::vector{path};
    tell(failure, failureOf(error));
    return std::nullopt;
  }
  std::vector<std::string> names;
  while (const dirent* entry = ::readdir(folder.get())) {
    std::string name = entry->d_name;
    if (name == "." || name == "..") continue;
    if (::fstatat(::dirfd(folder.get()), entry->d_name, &status, 0) == 0 && S_ISDIR(status.st_mode))
      name += '/';
    names.push_back(std::move(name));
  }
  return names;
}

}  // namespace zelvaro
