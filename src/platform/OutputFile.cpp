#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "platform/Files.h"

namespace zelvaro::posix {
namespace {

constexpr std::size_t kBuffer = 64 * 1024;

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

/// Follows symbolic links, so that a link stays a link and its file is replaced.  A circle of links ends
/// in a name that does not open.
std::string followLinks(std::string path) {
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks; ++i) {
    char link[4096];
    const ssize_t n = ::readlink(path.c_str(), link, sizeof link);
    if (n <= 0 || static_cast<std::size_t>(n) == sizeof link) break;
    const std::string_view to(link, static_cast<std::size_t>(n));
    path.resize(to.front() == '/' ? 0 : folderOf(path).size());
    path += to;
  }
  return path;
}

class TemporaryFile : public OutputFile {
 public:
  TemporaryFile() = default;
  ~TemporaryFile() override { discard(); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool open(const std::string& path);
  void write(std::string_view bytes) override;
  bool commit() override;
  std::string reason() const override { return reason_; }

 private:
  void fail(std::string reason) {
    if (reason_.empty()) reason_ = std::move(reason);
  }
  bool targetCanBeReplaced(mode_t& mode);
  void create(mode_t mode);
  void writeOut();
  void discard();

  std::string target_;
  std::string name_;  ///< of the temporary file, empty while there is none
  std::string buffer_;
  std::string reason_;
  int fd_ = -1;
};

/// A new file gets the usual rights, a file that is replaced hands its own on in `mode`.
bool TemporaryFile::targetCanBeReplaced(mode_t& mode) {
  struct stat status {};
  if (::stat(target_.c_str(), &status) != 0) {
    if (errno != ENOENT) fail(wordsOf(errno));
    return errno == ENOENT;
  }
  if (S_ISDIR(status.st_mode)) {
    fail(wordsOf(EISDIR));
  } else if (!S_ISREG(status.st_mode)) {
    fail("Not a regular file");
  } else if (::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) {
    fail(wordsOf(errno));
  } else {
    mode = status.st_mode & 0777;
    return true;
  }
  return false;
}

/// Takes a name beside the target that nothing else has.
void TemporaryFile::create(mode_t mode) {
  constexpr int kMostTries = 1000;
  for (int i = 0; i < kMostTries; ++i) {
    name_ = folderOf(target_) + ".zelvaro-" + std::to_string(::getpid()) + "-" + std::to_string(i) + ".tmp";
    constexpr int kNewFile = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    fd_ = uninterrupted([&] { return ::open(name_.c_str(), kNewFile, 0666); });
    if (fd_ >= 0 || errno != EEXIST) break;
  }
  if (fd_ < 0) {
    fail(wordsOf(errno));
    name_.clear();
  } else if (mode != 0 && uninterrupted([&] { return ::fchmod(fd_, mode); }) != 0) {
    fail(wordsOf(errno));
  }
}

bool TemporaryFile::open(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) {
    fail(wordsOf(path.empty() ? ENOENT : EINVAL));
    return false;
  }
  target_ = followLinks(path);
  mode_t mode = 0;
  if (!targetCanBeReplaced(mode)) return false;
  create(mode);
  buffer_.reserve(kBuffer);
  return reason_.empty();
}

void TemporaryFile::write(std::string_view bytes) {
  while (!bytes.empty() && reason_.empty()) {
    const std::string_view part = bytes.substr(0, kBuffer - buffer_.size());
    buffer_ += part;
    bytes.remove_prefix(part.size());
    if (buffer_.size() == kBuffer) writeOut();
  }
}

void TemporaryFile::writeOut() {
  std::string_view rest = buffer_;
  while (!rest.empty()) {
    const ssize_t n = uninterrupted([&] { return ::write(fd_, rest.data(), rest.size()); });
    if (n <= 0) {
      fail(wordsOf(n == 0 ? ENOSPC : errno));
      break;
    }
    rest.remove_prefix(static_cast<std::size_t>(n));
  }
  buffer_.clear();
}

bool TemporaryFile::commit() {
  if (reason_.empty()) writeOut();
  if (fd_ >= 0) {
    const int closed = ::close(fd_);
    // An interrupted close has closed the file all the same.
    if (closed != 0 && errno != EINTR) fail(wordsOf(errno));
    fd_ = -1;
  }
  if (reason_.empty() && name_.empty()) fail(wordsOf(EBADF));
  if (reason_.empty()) {
    if (uninterrupted([&] { return std::rename(name_.c_str(), target_.c_str()); }) == 0) {
      name_.clear();
      return true;
    }
    fail(wordsOf(errno));
  }
  discard();
  return false;
}

void TemporaryFile::discard() {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
  if (!name_.empty()) ::unlink(name_.c_str());
  name_.clear();
}

}  // namespace

std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure) {
  auto file = std::make_unique<TemporaryFile>();
  if (file->open(path)) return file;
  tell(failure, file->reason());
  return nullptr;
}

}  // namespace zelvaro::posix
