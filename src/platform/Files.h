// Files of the POSIX platform: read whole, written beside their target and renamed.
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/Platform.h"

namespace zelvaro::posix {

/// The operating system's words for an errno.
std::string wordsOf(int error);
/// Why a system call on a file has failed, from its errno.
FileFailure failureOf(int error);
/// Stores a failure where the caller wants one.
void tell(FileFailure* failure, FileFailure cause);
/// The failure that a file of this kind (st_mode) is where only a regular one is wanted; nothing for a regular one.
std::optional<FileFailure> refusalOf(mode_t mode);

/// Calls again what a signal has interrupted.  The result of a call that ends with -1 on a failure.
template <class Call>
auto uninterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result != -1 || errno != EINTR) return result;
  }
}

/// A descriptor that is closed with this.
class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  ~Descriptor() { close(); }
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    close();
    fd_ = std::exchange(other.fd_, -1);
    return *this;
  }

  bool isOpen() const { return fd_ >= 0; }
  int get() const { return fd_; }
  /// The result of the system's close; 0 where nothing is open.
  int close() { return fd_ < 0 ? 0 : ::close(std::exchange(fd_, -1)); }

 private:
  int fd_;
};

bool canRead(const std::string& path, FileFailure* failure);
std::optional<std::string> readFile(const std::string& path, FileFailure* failure, std::size_t most);
std::optional<FileBytes> loadFile(const std::string& path, FileFailure* failure);
std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure, FileWriting writing);
bool deleteFile(const std::string& path, FileFailure* failure);
bool exists(const std::string& path);
std::optional<std::string> folderListing(const std::string& path, FileFailure* failure);

}  // namespace zelvaro::posix
