// Pipes and pseudo-terminals that end with the test.
#pragma once

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

#include <string>
#include <string_view>
#include <utility>

namespace zelvaro::test {

inline void send(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(n));
  }
}

/// What can be read at once.
inline std::string received(int fd) {
  ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) | O_NONBLOCK);
  std::string out;
  char part[4096];
  for (ssize_t n = 0; (n = ::read(fd, part, sizeof part)) > 0;) out.append(part, static_cast<std::size_t>(n));
  return out;
}

/// Two ends of what is given: a pipe (first reads, second writes) or a terminal (first is the person's side).
struct Ends {
  int first = -1, second = -1;
  ~Ends() {
    closeFirst();
    closeSecond();
  }
  void closeFirst() { ::close(std::exchange(first, -1)); }
  void closeSecond() { ::close(std::exchange(second, -1)); }
};
struct Pipe : Ends {
  Pipe() {
    int fds[2] = {-1, -1};
    if (::pipe2(fds, O_CLOEXEC) == 0) first = fds[0], second = fds[1];
  }
};
struct Terminal : Ends {
  Terminal() { ::openpty(&first, &second, nullptr, nullptr, nullptr); }
};

}  // namespace zelvaro::test
