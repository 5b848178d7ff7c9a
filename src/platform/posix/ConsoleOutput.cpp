#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/Console.h"

namespace zelvaro {

ConsoleOutput::ConsoleOutput(int fd) : fd_(fd), terminal_(isatty(fd) == 1) {
  buffer_.reserve(kBuffer);
}

void ConsoleOutput::printControl(std::string_view bytes) {
  append(bytes);
}

ConsoleSize ConsoleOutput::size() const {
  winsize known{};
  if (::ioctl(fd_, TIOCGWINSZ, &known) != 0 || known.ws_row == 0 || known.ws_col == 0) return {};
  return {known.ws_row, known.ws_col};
}

void ConsoleOutput::look() {
  pollfd other{fd_, 0, 0};
  if (poll(&other, 1, 0) == 1 && (other.revents & (POLLERR | POLLHUP)) != 0) giveUp();
}

void ConsoleOutput::writeOut() {
  std::string_view rest = buffer_;
  while (!rest.empty() && !failed_) {
    const ssize_t n = ::write(fd_, rest.data(), rest.size());
    if (n >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(n));
    } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
      pollfd ready{fd_, POLLOUT, 0};
      if (poll(&ready, 1, -1) < 0 && errno != EINTR) failed_ = true;
    } else if (errno != EINTR) {
      readerIsGone_ = errno == EPIPE || (terminal_ && errno == EIO);
      failed_ = true;
    }
  }
  buffer_.clear();
}

}  // namespace zelvaro
