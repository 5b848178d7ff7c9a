#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

#include "platform/Console.h"

namespace zelvaro {
namespace {

constexpr std::size_t kBuffer = 64 * 1024;

}  // namespace

ConsoleInput::ConsoleInput(int fd) : fd_(fd), terminal_(isatty(fd) == 1) {}

/// Whether text without a line end is a whole line: a terminal in line mode delivers such text only when the
/// end-of-file key is pressed.
bool ConsoleInput::endsByKey() const {
  termios mode{};
  return terminal_ && tcgetattr(fd_, &mode) == 0 && (mode.c_lflag & ICANON) != 0;
}

bool ConsoleInput::hasHungUp() const {
  pollfd other{fd_, 0, 0};
  return terminal_ && poll(&other, 1, 0) == 1 && (other.revents & POLLHUP) != 0;
}

/// Fills the empty buffer; false at the end of the input.  A read error counts as the end.
bool ConsoleInput::refill() {
  buffer_.resize(kBuffer);
  next_ = 0;
  for (;;) {
    const ssize_t n = ::read(fd_, buffer_.data(), buffer_.size());
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
      pollfd ready{fd_, POLLIN, 0};
      if (poll(&ready, 1, -1) >= 0 || errno == EINTR) continue;
    }
    buffer_.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    ended_ = n <= 0;
    return n > 0;
  }
}

}  // namespace zelvaro
