#include "platform/Files.h"

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
#include <system_error>
#include <utility>
#include <vector>

#include "platform/Memory.h"

namespace zelvaro::posix {
namespace {

constexpr const char* kNoRegularFile = "Not a regular file";

/// A descriptor that is closed with this.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;

  bool isOpen() const { return fd_ >= 0; }
  int get() const { return fd_; }

 private:
  int fd_;
};

/// Opens a regular file for reading, never waiting for the other end of a pipe.  None with the reason.
Descriptor openRegular(const std::string& path, struct stat& status, FileFailure* failure) {
  if (path.find('\0') != std::string::npos) {
    tell(failure, wordsOf(EINVAL));
    return Descriptor(-1);
  }
  Descriptor file(
      uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
  if (!file.isOpen() || ::fstat(file.get(), &status) != 0) {
    tell(failure, wordsOf(errno));
  } else if (S_ISDIR(status.st_mode)) {
    tell(failure, wordsOf(EISDIR));
  } else if (!S_ISREG(status.st_mode)) {
    tell(failure, kNoRegularFile);
  } else {
    return file;
  }
  return Descriptor(-1);
}

/// Reads to the end of the file, whatever size it had when it was opened.  0 or an errno.
int readToEnd(int fd, std::size_t expected, std::string& bytes) {
  bytes.resize(expected + 1);  // one more, so that the read that finds the end needs no growth
  std::size_t have = 0;
  for (;;) {
    const ssize_t n = uninterrupted([&] { return ::read(fd, bytes.data() + have, bytes.size() - have); });
    if (n < 0) return errno;
    if (n == 0) break;
    have += static_cast<std::size_t>(n);
    if (have == bytes.size()) bytes.resize(have * 2);
  }
  bytes.resize(have);
  return 0;
}

/// Memory straight from the system, in large pages where it has them: a fresh page costs more than reading
/// what goes into it.
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

/// Reads up to `size` bytes; how many there were, or nothing with errno set.
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

}  // namespace

std::string wordsOf(int error) {
  return std::generic_category().message(error);
}

void tell(FileFailure* failure, std::string reason) {
  if (failure != nullptr) failure->reason = std::move(reason);
}

bool canRead(const std::string& path) {
  struct stat status {};
  return openRegular(path, status, nullptr).isOpen();
}

std::optional<std::string> readFile(const std::string& path, FileFailure* failure) {
  struct stat status {};
  const Descriptor file = openRegular(path, status, failure);
  if (!file.isOpen()) return std::nullopt;
  std::string bytes;
  int error = 0;
  try {
    error = readToEnd(file.get(), static_cast<std::size_t>(status.st_size), bytes);
  } catch (const std::bad_alloc&) {
    error = ENOMEM;
  } catch (const std::length_error&) {
    error = EFBIG;
  }
  if (error != 0) {
    tell(failure, wordsOf(error));
    return std::nullopt;
  }
  return bytes;
}

/// A file that grows while it is read is taken as long as it was when it was opened.
std::optional<FileBytes> loadFile(const std::string& path, FileFailure* failure) {
  struct stat status {};
  const Descriptor file = openRegular(path, status, failure);
  if (!file.isOpen()) return std::nullopt;
  const auto size = static_cast<std::size_t>(status.st_size);
  const auto memory = LargeMemory::allocate(size);
  const auto have = memory ? readUpTo(file.get(), memory->bytes, size) : std::nullopt;
  const int error = memory ? errno : ENOMEM;
  if (!have) {
    tell(failure, wordsOf(error));
    return std::nullopt;
  }
  return FileBytes{{memory->bytes, *have}, memory};
}

bool exists(const std::string& path) {
  struct stat status {};
  return path.find('\0') == std::string::npos && ::stat(path.c_str(), &status) == 0;
}

std::optional<std::string> folderListing(const std::string& path, FileFailure* failure) {
  if (path.find('\0') != std::string::npos) {
    tell(failure, wordsOf(EINVAL));
    return std::nullopt;
  }
  struct Close {
    void operator()(DIR* opened) const { ::closedir(opened); }
  };
  const std::unique_ptr<DIR, Close> folder(::opendir(path.empty() ? "." : path.c_str()));
  if (folder == nullptr) {
    const int error = errno;
    if (error == ENOTDIR && exists(path)) return path + "\n";
    tell(failure, wordsOf(error));
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
