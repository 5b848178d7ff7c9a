// The linker leads the calls of the program to the functions named __wrap_* (see tests/CMakeLists.txt).
#include "faults/Struck.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace zelvaro::test {
namespace {

using Kind = CallFault::Kind;

struct Plan {
  bool active = false;
  CallFault call;
  AllocationFault allocation;
  int consoleIn = -1, consoleOut = -1;
  int calls = 0;
  long allocations = 0;
  int readsAtTheEnd = 0;
};
Plan plan;

bool isConsole(int fd) {
  return fd >= 0 && (fd == plan.consoleIn || fd == plan.consoleOut);
}

/// Counts a call and makes it, or what the fault leaves of it.  `half` does a part of its work; a call that fails
/// gives `failed`.
template <class Whole, class Half, class Result>
Result strike(Whole whole, Half half, Result failed) {
  if (!plan.active) return whole();
  const int number = ++plan.calls - plan.call.at;
  if (number < 0 || number >= plan.call.inRow) return whole();
  switch (plan.call.kind) {
    case Kind::Fails:
      errno = plan.call.error;
      return failed;
    case Kind::FallsShort:
      return half();
    case Kind::KillsHalfway:
      half();
      break;
    case Kind::KillsAfter:
      whole();
      break;
    case Kind::None:
      return whole();
    case Kind::KillsBefore:
      break;
  }
  ::raise(SIGKILL);
  return failed;
}

bool lacksMemory() {
  if (!plan.active) return false;
  const long number = ++plan.allocations - plan.allocation.at;
  return plan.allocation.at != 0 && (number == 0 || (plan.allocation.lasts && number > 0));
}

void* allocate(std::size_t size) {
  void* memory = lacksMemory() ? nullptr : std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

Struck::Struck(const CallFault& call, const AllocationFault& allocation, int consoleIn, int consoleOut) {
  plan = {true, call, allocation, consoleIn, consoleOut, 0, 0, 0};
}
Struck::~Struck() {
  plan.active = false;
}
int Struck::calls() const {
  return plan.calls;
}
long Struck::allocations() const {
  return plan.allocations;
}
int Struck::readsAtTheEnd() const {
  return plan.readsAtTheEnd;
}

}  // namespace zelvaro::test

void* operator new(std::size_t size) {
  return zelvaro::test::allocate(size);
}
void* operator new[](std::size_t size) {
  return zelvaro::test::allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

using zelvaro::test::isConsole;
using zelvaro::test::plan;
using zelvaro::test::strike;

// A call whose work has no half.
#define STRUCK(Result, name, parameters, arguments, failed)                 \
  extern "C" Result __real_##name parameters;                               \
  extern "C" Result __wrap_##name parameters;                               \
  extern "C" Result __wrap_##name parameters {                              \
    const auto whole = [&]() -> Result { return __real_##name arguments; }; \
    return strike(whole, whole, static_cast<Result>(failed));               \
  }
STRUCK(int, open, (const char* path, int flags, mode_t mode), (path, flags, mode), -1)
STRUCK(int, openat, (int in, const char* path, int flags, mode_t mode), (in, path, flags, mode), -1)
STRUCK(int, fchmod, (int fd, mode_t mode), (fd, mode), -1)
STRUCK(int, fsync, (int fd), (fd), -1)
STRUCK(int, renameat, (int in, const char* from, int to, const char* name), (in, from, to, name), -1)
STRUCK(int, renameat2, (int in, const char* from, int to, const char* name, unsigned flags),
       (in, from, to, name, flags), -1)
STRUCK(char*, getcwd, (char* to, size_t size), (to, size), nullptr)
STRUCK(void*, mmap, (void* at, size_t size, int rights, int flags, int fd, off_t offset),
       (at, size, rights, flags, fd, offset), MAP_FAILED)
#undef STRUCK

extern "C" {
ssize_t __real_read(int fd, void* to, size_t size);
ssize_t __wrap_read(int fd, void* to, size_t size);
ssize_t __real_write(int fd, const void* from, size_t size);
ssize_t __wrap_write(int fd, const void* from, size_t size);
int __real_close(int fd);
int __wrap_close(int fd);
using SpawnActions = posix_spawn_file_actions_t;
int __real_posix_spawnp(pid_t*, const char*, const SpawnActions*, const posix_spawnattr_t*, char* const*,
                        char* const*);
int __wrap_posix_spawnp(pid_t*, const char*, const SpawnActions*, const posix_spawnattr_t*, char* const*,
                        char* const*);
void* __real_calloc(size_t count, size_t size);
void* __wrap_calloc(size_t count, size_t size);

ssize_t __wrap_read(int fd, void* to, size_t size) {
  const auto whole = [&] { return __real_read(fd, to, size); };
  const auto half = [&] { return __real_read(fd, to, size > 3 ? 3 : size); };
  const ssize_t n = isConsole(fd) ? whole() : strike(whole, half, ssize_t{-1});
  if (fd == plan.consoleIn && n <= 0) ++plan.readsAtTheEnd;
  return n;
}

ssize_t __wrap_write(int fd, const void* from, size_t size) {
  const auto whole = [&] { return __real_write(fd, from, size); };
  const auto half = [&] { return __real_write(fd, from, (size + 1) / 2); };
  return isConsole(fd) ? whole() : strike(whole, half, ssize_t{-1});
}

// A close that fails has closed the file all the same.
int __wrap_close(int fd) {
  if (isConsole(fd)) return __real_close(fd);
  bool done = false;
  const auto whole = [&] {
    done = true;
    return __real_close(fd);
  };
  const int result = strike(whole, whole, -1);
  if (!done) __real_close(fd);
  return result;
}

// A program that does not start is reported by the result alone.
int __wrap_posix_spawnp(pid_t* pid, const char* file, const SpawnActions* actions,
                        const posix_spawnattr_t* attributes, char* const* arguments, char* const* variables) {
  const auto whole = [&] {
    return __real_posix_spawnp(pid, file, actions, attributes, arguments, variables);
  };
  return strike(whole, whole, plan.call.error);
}

void* __wrap_calloc(size_t count, size_t size) {
  return zelvaro::test::lacksMemory() ? nullptr : __real_calloc(count, size);
}
}  // extern "C"
