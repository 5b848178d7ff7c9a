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
#include <vector>

#include "platform/Memory.h"

namespace zelvaro::posix {
namespace {

constexpr const char* kNoRegularFile = "Not a regular file";

/// Opens a regular file for reading, never waiting for the other end of a pipe.  -1 with the reason.
int openRegular(const std::string& path, struct stat& status, FileFailure* failure) {
  if (path.find('\0') != std::string::npos) {
    tell(failure, wordsOf(EINVAL));
    return -1;
  }
  const int fd =
      uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); });
  if (fd < 0) {
    tell(failure, wordsOf(errno));
    return -1;
  }
  if (::fstat(fd, &status) != 0) {
    tell(failure, wordsOf(errno));
  } else if (S_ISDIR(status.st_mode)) {
    tell(failure, wordsOf(EISDIR));
  } else if (!S_ISREG(status.st_mode)) {
    tell(failure, kNoRegularFile);
  } else {
    return fd;
  }
  ::close(fd);
  return -1;
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
    const std::size_t length = (size / kLargePage + 2) * kLargePage;
    void* base = ::mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (base == MAP_FAILED) return nullptr;
    void* aligned = base;
    std::size_t room = length;
    std::align(kLargePage, length - kLargePage, aligned, room);
    preferLargePages(aligned, length - kLargePage);
    return std::make_shared<LargeMemory>(base, length, static_cast<char*>(aligned));
  }
  LargeMemory(void* base, std::size_t length, char* aligned) : bytes(aligned), base_(base), length_(length) {}
  ~LargeMemory() { ::munmap(base_, length_); }
  LargeMemory(const LargeMemory&) = delete;
  LargeMemory& operator=(const LargeMemory&) = delete;

  char* const bytes;

 private:
  void* base_;
  std::size_t length_;
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
  const int fd = openRegular(path, status, nullptr);
  if (fd < 0) return false;
  ::close(fd);
  return true;
}

std::optional<std::string> readFile(const std::string& path, FileFailure* failure) {
  struct stat status {};
  const int fd = openRegular(path, status, failure);
  if (fd < 0) return std::nullopt;
  std::string bytes;
  int error = 0;
  try {
    error = readToEnd(fd, static_cast<std::size_t>(status.st_size), bytes);
  } catch (const std::bad_alloc&) {
    error = ENOMEM;
  } catch (const std::length_error&) {
    error = EFBIG;
  }
  ::close(fd);
  if (error != 0) {
    tell(failure, wordsOf(error));
    return std::nullopt;
  }
  return bytes;
}

/// A file that grows while it is read is taken as long as it was when it was opened.
std::optional<FileBytes> loadFile(const std::string& path, FileFailure* failure) {
  struct stat status {};
  const int fd = openRegular(path, status, failure);
  if (fd < 0) return std::nullopt;
  const auto size = static_cast<std::size_t>(status.st_size);
  const auto memory = LargeMemory::allocate(size);
  const auto have = memory ? readUpTo(fd, memory->bytes, size) : std::nullopt;
  const int error = memory ? errno : ENOMEM;
  ::close(fd);
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
  DIR* folder = ::opendir(path.empty() ? "." : path.c_str());
  if (folder == nullptr) {
    const int error = errno;
    if (error == ENOTDIR && exists(path)) return path + "\n";
    tell(failure, wordsOf(error));
    return std::nullopt;
  }
  std::vector<std::string> names;
  while (const dirent* entry = ::readdir(folder)) {
    std::string name = entry->d_name;
    if (name == "." || name == "..") continue;
    struct stat status {};
    if (::fstatat(::dirfd(folder), entry->d_name, &status, 0) == 0 && S_ISDIR(status.st_mode)) name += '/';
    names.push_back(std::move(name));
  }
  ::closedir(folder);
  std::sort(names.begin(), names.end());
  std::string listing;
  for (const std::string& name : names) listing += name + "\n";
  return listing;
}

}  // namespace zelvaro::posix
