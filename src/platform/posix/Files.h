// What reading and writing files share on a POSIX system: descriptors, interrupted calls, refusals.
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <utility>

#include "platform/Failures.h"

namespace zelvaro::posix {

/// The failure to report for a file of this kind (st_mode) where only a regular file is accepted; nothing for
/// a regular file.
std::optional<FileFailure> refusalOf(mode_t mode);

/// Repeats a system call as long as a signal interrupts it, and returns its result.  For calls that return -1
/// on failure.
template <class Call>
auto uninterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result != -1 || errno != EINTR) return result;
  }
}

/// Owns a descriptor and closes it.
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
  /// Returns the result of close(2); 0 if nothing is open.
  int close() { return fd_ < 0 ? 0 : ::close(std::exchange(fd_, -1)); }

 private:
  int fd_;
};

}  // namespace zelvaro::posix
