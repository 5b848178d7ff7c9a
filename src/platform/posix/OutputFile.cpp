// A file is written to a temporary file beside its target and renamed.  All names are relative to a folder
// that is opened first and stays open, so nobody can redirect the output by moving folders or links in the
// meantime.
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/ConsolePlatform.h"
#include "platform/posix/Files.h"

namespace zelvaro::posix {
namespace {

/// A name in a folder that is held open.
struct Place {
  Descriptor folder;
  std::string name;
};

Descriptor openFolder(int in, const std::string& path) {
  return Descriptor(uninterrupted(
      [&] { return ::openat(in, path.empty() ? "." : path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
}

/// The length of the part of a path that names the folder, its last slash included.
std::size_t folderLength(const std::string& path) {
  return path.rfind('/') + 1;  // 0 where there is none
}

/// Opens a folder below an open one in a single step of the system, whatever links are exchanged meanwhile.
/// Fails if a part of the path leads out, even if a later one leads back, if a part is absolute, or if the
/// kernel is older than this call.
Descriptor openBeneath(const Descriptor& root, const std::string& path) {
  open_how how{};
  how.flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
  how.resolve = RESOLVE_BENEATH | RESOLVE_NO_MAGICLINKS;
  const char* name = path.empty() ? "." : path.c_str();
  return Descriptor(static_cast<int>(
      uninterrupted([&] { return ::syscall(SYS_openat2, root.get(), name, &how, sizeof how); })));
}

bool isSame(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// Whether a folder is `root` or lies below it; follows ".." upward from the folder.
bool isWithin(const Descriptor& folder, const Descriptor& root) {
  struct stat wanted {
  }, here{}, above{};
  Descriptor at = openFolder(folder.get(), ".");
  if (::fstat(root.get(), &wanted) != 0 || !at.isOpen() || ::fstat(at.get(), &here) != 0) return false;
  while (!isSame(here, wanted)) {
    at = openFolder(at.get(), "..");
    if (!at.isOpen() || ::fstat(at.get(), &above) != 0 || isSame(above, here)) return false;
    here = above;
  }
  return true;
}

/// The target of a symbolic link; nothing if the place has no link.
std::optional<std::string> linkAt(const Place& place) {
  char link[4096];
  const ssize_t n = ::readlinkat(place.folder.get(), place.name.c_str(), link, sizeof link);
  if (n <= 0 || static_cast<std::size_t>(n) == sizeof link) return std::nullopt;
  return std::string(link, static_cast<std::size_t>(n));
}

/// The place where a file of that name is written.  Where a file is replaced, symbolic links are followed if
/// they stay in its folder.  What openBeneath() cannot decide is opened and then compared with the folder.
std::optional<Place> placeOf(const std::string& path, FileWriting writing, FileFailure& failure) {
  constexpr int kMostLinks = 40;
  const std::size_t length = folderLength(path);
  Place place{openFolder(AT_FDCWD, path.substr(0, length)), path.substr(length)};
  int links = 0;
  bool isBeneath = true;
  Descriptor root;
  std::string way;  // from the root to the folder of the place
  while (place.folder.isOpen() && writing.replaces) {
    const auto link = linkAt(place);
    if (!link) break;
    if (links++ == 0) root = openFolder(place.folder.get(), ".");
    if (!root.isOpen() || links > kMostLinks) {
      failure = failureOf(root.isOpen() ? ELOOP : errno);
      return std::nullopt;
    }
    if (link->starts_with('/')) way.clear();
    way += link->substr(0, folderLength(*link));
    Descriptor folder = openBeneath(root, way);
    isBeneath = folder.isOpen();
    if (!isBeneath) folder = openFolder(root.get(), way);
    place = {std::move(folder), link->substr(folderLength(*link))};
  }
  if (!place.folder.isOpen()) {
    failure = failureOf(errno);
  } else if (!isBeneath && !isWithin(place.folder, root)) {
    failure = leadsOutside();
  } else {
    return place;
  }
  return std::nullopt;
}

class TemporaryFile : public TemporaryOutput {
 public:
  explicit TemporaryFile(FileWriting writing) : TemporaryOutput(writing, "\n") {}
  ~TemporaryFile() override { discard(); }

 private:
  void findTarget(const std::string& path) override;
  Creation createNew(const std::string& suffix) override;
  bool removeLeftover() override;
  void writeOut(std::string_view bytes) override;
  void complete() override;
  void close() override;
  void rename() override;
  void remove() override;

  bool hasName(const Descriptor& file) const;
  void keepOwnerAndMode();
  bool renames();

  Place target_;
  std::string name_;                     ///< of the temporary file
  std::optional<struct stat> replaced_;  ///< of the file that is replaced
  Descriptor file_;
  Descriptor lock_;  ///< keeps the temporary file locked until it is renamed
};

void TemporaryFile::findTarget(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos)
    return fail(failureOf(path.empty() ? ENOENT : EINVAL));
  FileFailure failure;
  auto target = placeOf(path, writing_, failure);
  if (!target) return fail(std::move(failure));
  target_ = std::move(*target);

  const char* name = target_.name.c_str();
  struct stat status {};
  if (::fstatat(target_.folder.get(), name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
    if (errno != ENOENT || target_.name.empty()) fail(failureOf(errno));
  } else if (!writing_.replaces) {
    fail(failureOf(EEXIST));
  } else if (const auto refusal = refusalOf(status.st_mode)) {
    fail(*refusal);
  } else if (::faccessat(target_.folder.get(), name, W_OK, AT_EACCESS) != 0) {
    fail(failureOf(errno));
  } else {
    replaced_ = status;
  }
}

/// Whether an open file is the regular file that has the temporary name.
bool TemporaryFile::hasName(const Descriptor& file) const {
  struct stat opened {
  }, named{};
  return ::fstat(file.get(), &opened) == 0 && S_ISREG(opened.st_mode) &&
         ::fstatat(target_.folder.get(), name_.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
         isSame(opened, named);
}

/// A running program holds a lock on its file.
bool TemporaryFile::removeLeftover() {
  constexpr int kAsItIs = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  const int folder = target_.folder.get();
  const Descriptor old(uninterrupted([&] { return ::openat(folder, name_.c_str(), kAsItIs); }));
  return old.isOpen() && ::flock(old.get(), LOCK_EX | LOCK_NB) == 0 && hasName(old) &&
         ::unlinkat(folder, name_.c_str(), 0) == 0;
}

/// Creates and locks the file.  The permissions of a file that is replaced may be narrower than the default
/// ones: until they are set nobody else may read it.
TemporaryOutput::Creation TemporaryFile::createNew(const std::string& suffix) {
  name_ = "." + target_.name + suffix;
  const mode_t rights = replaced_ || !writing_.replaces ? 0600 : 0666;
  constexpr int kNewFile = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
  file_ = Descriptor(
      uninterrupted([&] { return ::openat(target_.folder.get(), name_.c_str(), kNewFile, rights); }));
  if (!file_.isOpen()) {
    if (errno == EEXIST) return Creation::NameInUse;
    fail(failureOf(errno));
    return Creation::Failed;
  }
  // before it was locked another program may have removed the file as a leftover
  const bool locked = ::flock(file_.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
  return locked && hasName(file_) ? Creation::Created : Creation::NameInUse;
}

void TemporaryFile::writeOut(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = uninterrupted([&] { return ::write(file_.get(), bytes.data(), bytes.size()); });
    if (n <= 0) return fail(failureOf(n == 0 ? ENOSPC : errno));
    bytes.remove_prefix(static_cast<std::size_t>(n));
  }
}

/// Where the group could not be kept, the new group gets no more permissions than "others" have.
void TemporaryFile::keepOwnerAndMode() {
  if (!replaced_) return;
  mode_t mode = replaced_->st_mode & 0777;
  const int fd = file_.get();
  if (::fchown(fd, replaced_->st_uid, replaced_->st_gid) != 0 &&
      ::fchown(fd, static_cast<uid_t>(-1), replaced_->st_gid) != 0)
    mode = (mode & 0707) | ((mode & 07) << 3 & mode);
  if (uninterrupted([&] { return ::fchmod(fd, mode); }) != 0) fail(failureOf(errno));
}

void TemporaryFile::complete() {
  keepOwnerAndMode();
  if (!failed() && writing_.synced && uninterrupted([&] { return ::fsync(file_.get()); }) != 0)
    fail(failureOf(errno));
}

/// Some systems report a failed write only when the file is closed; the lock is kept after that.
void TemporaryFile::close() {
  if (!file_.isOpen()) return;
  lock_ = Descriptor(::fcntl(file_.get(), F_DUPFD_CLOEXEC, 0));
  // after EINTR the descriptor is closed nevertheless
  if (file_.close() != 0 && errno != EINTR) fail(failureOf(errno));
}

bool TemporaryFile::renames() {
  const int folder = target_.folder.get();
  const char* const from = name_.c_str();
  const char* const to = target_.name.c_str();
  if (writing_.replaces) return uninterrupted([&] { return ::renameat(folder, from, folder, to); }) == 0;
  // not every file system supports this kind of renaming, or hard links
  if (uninterrupted([&] { return ::renameat2(folder, from, folder, to, RENAME_NOREPLACE); }) == 0)
    return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  return ::linkat(folder, from, folder, to, 0) == 0 && ::unlinkat(folder, from, 0) == 0;
}

void TemporaryFile::rename() {
  if (!renames()) return fail(failureOf(errno));
  lock_.close();
}

void TemporaryFile::remove() {
  file_.close();
  ::unlinkat(target_.folder.get(), name_.c_str(), 0);
  lock_.close();
}

}  // namespace
}  // namespace zelvaro::posix

namespace zelvaro {

std::unique_ptr<TemporaryOutput> ConsolePlatform::temporaryOutput(FileWriting writing) {
  return std::make_unique<posix::TemporaryFile>(writing);
}

}  // namespace zelvaro
