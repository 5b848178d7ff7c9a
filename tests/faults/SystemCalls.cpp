// The linker leads the calls of the program to the functions named __wrap_* (see tests/CMakeLists.txt).
#include "faults/SystemCalls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>

extern "C" {
int __real_open(const char* path, int flags, ...);
ssize_t __real_read(int fd, void* to, size_t size);
ssize_t __real_write(int fd, const void* from, size_t size);
int __real_fchmod(int fd, mode_t mode);
int __real_close(int fd);
int __real_rename(const char* from, const char* to);
}

namespace zelvaro::test {
namespace {

using Kind = CallFault::Kind;

struct Plan {
  bool active = false;
  CallFault fault;
  int consoleIn = -1;
  int consoleOut = -1;
  int calls = 0;
  int readsAtTheEnd = 0;
};
Plan plan;

/// Counts a call: whether it is the one that the fault is for.
bool isStruck(int fd = -1) {
  if (!plan.active || (fd >= 0 && (fd == plan.consoleIn || fd == plan.consoleOut))) return false;
  return ++plan.calls == plan.fault.at && plan.fault.kind != Kind::None;
}

/// Makes the call, or what the fault leaves of it.  `half` does a part of its work, `onFailure` what the
/// system does even then.
template <class Whole, class Half, class OnFailure>
auto strike(Whole whole, Half half, OnFailure onFailure) -> decltype(whole()) {
  switch (plan.fault.kind) {
    case Kind::Fails:
      onFailure();
      errno = plan.fault.error;
      return -1;
    case Kind::FallsShort:
      return half();
    case Kind::KillsBefore:
      ::raise(SIGKILL);
      break;
    case Kind::KillsHalfway:
      half();
      ::raise(SIGKILL);
      break;
    case Kind::KillsBehind:
      whole();
      ::raise(SIGKILL);
      break;
    case Kind::None:
      break;
  }
  return whole();
}
template <class Whole>
auto strike(Whole whole) -> decltype(whole()) {
  return strike(whole, whole, [] {});
}

}  // namespace

CallFaults::CallFaults(const CallFault& fault, int consoleIn, int consoleOut) {
  plan = {true, fault, consoleIn, consoleOut, 0, 0};
}
CallFaults::~CallFaults() {
  plan.active = false;
}
int CallFaults::calls() const {
  return plan.calls;
}
int CallFaults::readsAtTheEnd() const {
  return plan.readsAtTheEnd;
}

}  // namespace zelvaro::test

using zelvaro::test::isStruck;
using zelvaro::test::plan;
using zelvaro::test::strike;

extern "C" {

int __wrap_open(const char* path, int flags, ...);
ssize_t __wrap_read(int fd, void* to, size_t size);
ssize_t __wrap_write(int fd, const void* from, size_t size);
int __wrap_fchmod(int fd, mode_t mode);
int __wrap_close(int fd);
int __wrap_rename(const char* from, const char* to);

int __wrap_open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
  va_end(arguments);
  const auto whole = [&] { return __real_open(path, flags, mode); };
  return isStruck() ? strike(whole) : whole();
}

ssize_t __wrap_read(int fd, void* to, size_t size) {
  const auto whole = [&] { return __real_read(fd, to, size); };
  const auto half = [&] { return __real_read(fd, to, size > 3 ? 3 : size); };
  const ssize_t n = isStruck(fd) ? strike(whole, half, [] {}) : whole();
  if (fd == plan.consoleIn && n <= 0) ++plan.readsAtTheEnd;
  return n;
}

ssize_t __wrap_write(int fd, const void* from, size_t size) {
  const auto whole = [&] { return __real_write(fd, from, size); };
  const auto half = [&] { return __real_write(fd, from, (size + 1) / 2); };
  return isStruck(fd) ? strike(whole, half, [] {}) : whole();
}

int __wrap_fchmod(int fd, mode_t mode) {
  const auto whole = [&] { return __real_fchmod(fd, mode); };
  return isStruck(fd) ? strike(whole) : whole();
}

// A close that fails has closed the file all the same.
int __wrap_close(int fd) {
  const auto whole = [&] { return __real_close(fd); };
  return isStruck(fd) ? strike(whole, whole, whole) : whole();
}

int __wrap_rename(const char* from, const char* to) {
  const auto whole = [&] { return __real_rename(from, to); };
  return isStruck() ? strike(whole) : whole();
}

}  // extern "C"
