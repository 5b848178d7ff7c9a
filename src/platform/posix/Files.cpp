#include "platform/posix/Files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

#include "platform/Memory.h"

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

/// Reads to the end of the file, whatever size it had when it was opened, or until it has more than `most`
/// bytes.  Returns 0 or an errno.
int readToEnd(int fd, std::size_t expected, std::size_t most, std::string& bytes) {
  bytes.resize(expected + 1);  // one more, so that the read that finds the end needs no growth
  std::size_t have = 0;
  while (have <= most) {
    const ssize_t n = uninterrupted([&] { return ::read(fd, bytes.data() + have, bytes.size() - have); });
    if (n < 0) return errno;
    if (n == 0) {
      bytes.resize(have);
      return 0;
    }
    have += static_cast<std::size_t>(n);
    if (have == bytes.size()) bytes.resize(have * 2);
  }
  return EFBIG;
}

std::optional<std::string> readOpened(const Descriptor& file, const struct stat& status, std::size_t most,
                                      FileFailure* failure) {
  const auto size = static_cast<std::size_t>(status.st_size);
  std::string bytes;
  int error = EFBIG;
  try {
    if (size <= most) error = readToEnd(file.get(), size, most, bytes);
  } catch (const std::bad_alloc&) {
    error = ENOMEM;
  } catch (const std::length_error&) {
  }
  if (error == 0) return bytes;
  tell(failure, failureOf(error));
  return std::nullopt;
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

bool canRead(const std::string& path, FileFailure* failure) {
  struct stat status {};
  return openRegular(path, status, failure).isOpen();
}

std::optional<std::string> readFile(const std::string& path, FileFailure* failure, std::size_t most) {
  struct stat status {};
  const Descriptor file = openRegular(path, status, failure);
  if (!file.isOpen()) return std::nullopt;
  return readOpened(file, status, most, failure);
}

std::optional<FileBytes> loadFile(const std::string& path, FileFailure* failure) {
  constexpr std::size_t kLarge = std::size_t{1} << 20;
  struct stat status {};
  const Descriptor file = openRegular(path, status, failure);
  if (!file.isOpen()) return std::nullopt;
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size >= kLarge && size <= Platform::kMostSourceBytes) return loadLarge(file, size, failure);
  auto text = readOpened(file, status, Platform::kMostSourceBytes, failure);
  if (!text) return std::nullopt;
  const auto memory = std::make_shared<const std::string>(std::move(*text));
  return FileBytes{*memory, memory};
}

bool deleteFile(const std::string& path, FileFailure* failure) {
  const bool named = path.find('\0') == std::string::npos;
  if (named && ::unlink(path.c_str()) == 0) return true;
  tell(failure, failureOf(named ? errno : EINVAL));
  return false;
}

bool exists(const std::string& path) {
  struct stat status {};
  return path.find('\0') == std::string::npos && ::stat(path.c_str(), &status) == 0;
}

std::optional<std::string> folderListing(const std::string& path, FileFailure* failure) {
  if (path.find('\0') != std::string::npos) {
    tell(failure, failureOf(EINVAL));
    return std::nullopt;
  }
  struct Close {
    void operator()(DIR* opened) const { ::closedir(opened); }
  };
  const std::unique_ptr<DIR, Close> folder(::opendir(path.empty() ? "." : path.c_str()));
  if (folder == nullptr) {
    const int error = errno;
    if (error == ENOTDIR && exists(path)) return path + "\n";
    tell(failure, failureOf(error));
    return std::nullopt;
  }
  std::vector<std::string> names;
  while (const dirent* entry = ::readdir(folder.get())) {
    std::string name = entry->d_name;
    if (name == "." || name == "..") continue;
    struct stat status {};
    if (::fstatat(::dirfd(folder.get()), entry->d_name, &status, 0) == 0 && S_ISDIR(status.st_mode))
      name += '/';
    names.push_back(std::move(name));
  }
  std::sort(names.begin(), names.end());
  std::string listing;
  for (const std::string& name : names) listing += name + "\n";
  return listing;
}

}  // namespace zelvaro::posix
