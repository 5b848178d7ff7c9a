// The linker leads the calls of the program to the functions named __wrap_* (see tests/CMakeLists.txt).
#include "faults/Session.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <new>

#include "platform/TemporaryFolder.h"
#include "platform/posix/PosixPlatform.h"
#include "shell/Game.h"

namespace zelvaro::test {
namespace {

namespace fs = std::filesystem;

/// The fault while a session is played, and its counts.
struct Plan : Outcome {
  bool active = false;
  Fault fault;
  int in = -1, out = -1;
} plan;

/// In place of a descriptor: a call that signals never interrupt.
constexpr int kUninterrupted = -2;

/// Makes a call, or what the fault leaves of it: `half` does a part of its work.
template <class Whole, class Half>
auto strike(Whole whole, Half half, decltype(whole()) failed, int fd = -1) {
  if (!plan.active || (fd >= 0 && (fd == plan.in || fd == plan.out))) return whole();
  const int number = ++plan.calls - plan.fault.at;
  const auto kind = number < 0 || number >= plan.fault.inRow ? Fault::None : plan.fault.kind;
  if (kind == Fault::None || (fd == kUninterrupted && plan.fault.error == EINTR)) return whole();
  if (kind == Fault::FallsShort || kind == Fault::KillsHalfway) failed = half();
  if (kind == Fault::KillsAfter) whole();
  if (kind >= Fault::KillsBefore) ::raise(SIGKILL);
  if (kind == Fault::Fails) errno = plan.fault.error;
  return failed;
}

bool lacksMemory() {
  if (!plan.active) return false;
  const long number = ++plan.allocations - plan.fault.allocation;
  return plan.fault.allocation != 0 && (number == 0 || (plan.fault.lasts && number > 0));
}

/// The real one with clocks that stand still.
class SteadyPlatform : public PosixPlatform {
 public:
  using PosixPlatform::PosixPlatform;
  std::int32_t clockMilliseconds() override { return 0; }
  std::int64_t chronoTicks() override { return 0; }
  std::int64_t performanceCounter() override { return 0; }
  std::tm localTime() override { return {}; }
  int randomNumber() override { return 0; }
  bool userInterfaceIsJapanese() override { return false; }
  std::optional<std::string> readLine() override {
    auto line = PosixPlatform::readLine();
    plan.promptsAtTheEnd += line ? 0 : 1;
    return line;
  }
};

int session() {
  try {
    SteadyPlatform platform(plan.in, plan.fault.output == Fault{}.output ? plan.out : plan.fault.output);
    TSession session(platform);
    TGame game(session);
    game.SetCurrentDirChH();
    game.Start();
    return 0;
  } catch (const std::bad_alloc&) {
    return 1;
  }
}

}  // namespace

Outcome play(const Files& before, std::string_view typed, const Fault& fault) {
  const bool inChild = fault.kind >= Fault::KillsBefore;
  // a folder in memory where there is one: a disk is waited for at each file that is replaced
  const fs::path quick = ::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : fs::temp_directory_path();
  const TemporaryFolder folder(quick), console(quick);
  const fs::path oldFolder = fs::current_path();
  fs::current_path(folder.path());
  for (const auto& [name, bytes] : before) {
    const std::string stem = name.substr(0, name.find_first_of("/@"));
    if (name.ends_with('/')) {
      fs::create_directory(stem);
    } else if (name.ends_with('@')) {
      fs::create_symlink(bytes, stem);
    } else {
      folder.write(name, bytes);
    }
  }
  plan = {};
  plan.fault = fault;
  plan.in = ::open(console.write("typed", std::string(typed)).c_str(), O_RDONLY | O_CLOEXEC);
  plan.out = ::open(console.path("shown").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  const pid_t pid = inChild ? ::fork() : 0;
  if (pid == 0) {
    ::alarm(inChild ? 60 : 0);
    plan.active = true;
    plan.status = session();
    plan.active = false;
    if (inChild) ::_exit(plan.status);
  } else {
    ::waitpid(pid, &plan.status, 0);
  }
  fs::current_path(oldFolder);
  ::close(plan.in);
  ::close(plan.out);
  Outcome outcome = plan;
  outcome.console = console.read("shown");
  for (const auto& e : fs::directory_iterator(folder.path())) {
    const std::string name = e.path().filename();
    if (e.is_symlink()) {
      outcome.files[name + "@"] = fs::read_symlink(e.path());
    } else if (e.is_directory()) {
      outcome.files[name + "/"];
    } else {
      outcome.files[name] = folder.read(name);
    }
  }
  return outcome;
}

long callWithout(const Fault& memory, const std::function<void()>& call) {
  plan = {};
  plan.fault = memory;
  plan.active = true;
  try {
    call();
  } catch (...) {
    plan.active = false;
    throw;
  }
  plan.active = false;
  return plan.allocations;
}

}  // namespace zelvaro::test

using zelvaro::test::kUninterrupted;
using zelvaro::test::lacksMemory;
using zelvaro::test::plan;
using zelvaro::test::strike;

[[gnu::noinline]] void* operator new(std::size_t size) {
  void* memory = lacksMemory() ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
  return memory != nullptr ? memory : throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

// A call, what it takes, what half of it would take, what it gives when it fails, and the descriptor that may be
// the console's.
#define STRUCK(Result, name, parameters, arguments, half, failed, fd)              \
  extern "C" Result __real_##name parameters;                                      \
  extern "C" Result __wrap_##name parameters;                                      \
  extern "C" Result __wrap_##name parameters {                                     \
    return strike([&]() -> Result { return __real_##name arguments; },             \
                  [&]() -> Result { return __real_##name half; }, (failed), (fd)); \
  }
using Actions = const posix_spawn_file_actions_t*;
using Attributes = const posix_spawnattr_t*;
STRUCK(ssize_t, read, (int fd, void* to, size_t n), (fd, to, n), (fd, to, std::min<size_t>(n, 3)), -1, fd)
STRUCK(ssize_t, write, (int fd, const void* from, size_t n), (fd, from, n), (fd, from, (n + 1) / 2), -1, fd)
#define STRUCK_WHOLE(Result, name, parameters, arguments, failed, fd) \
  STRUCK(Result, name, parameters, arguments, arguments, failed, fd)
STRUCK_WHOLE(int, open, (const char* path, int how, mode_t mode), (path, how, mode), -1, -1)
STRUCK_WHOLE(int, openat, (int in, const char* path, int how, mode_t mode), (in, path, how, mode), -1, -1)
STRUCK_WHOLE(int, fchmod, (int fd, mode_t mode), (fd, mode), -1, -1)
STRUCK_WHOLE(int, fsync, (int fd), (fd), -1, -1)
STRUCK_WHOLE(int, renameat, (int in, const char* a, int to, const char* b), (in, a, to, b), -1, -1)
STRUCK_WHOLE(int, renameat2, (int in, const char* a, int to, const char* b, unsigned how),
             (in, a, to, b, how), -1, -1)
STRUCK_WHOLE(char*, getcwd, (char* to, size_t size), (to, size), nullptr, kUninterrupted)
STRUCK_WHOLE(void*, mmap, (void* at, size_t size, int rights, int how, int fd, off_t from),
             (at, size, rights, how, fd, from), MAP_FAILED, kUninterrupted)
STRUCK_WHOLE(int, posix_spawnp,
             (pid_t * pid, const char* file, Actions actions, Attributes attributes, char* const* arguments,
              char* const* variables),
             (pid, file, actions, attributes, arguments, variables), plan.fault.error, kUninterrupted)

extern "C" {
int __real_close(int fd);
int __wrap_close(int fd);
void* __real_calloc(size_t count, size_t size);
void* __wrap_calloc(size_t count, size_t size);

int __wrap_close(int fd) {
  const int closed = __real_close(fd);  // a close that fails has closed the file all the same
  const auto result = [&] { return closed; };
  return strike(result, result, -1, fd);
}
void* __wrap_calloc(size_t count, size_t size) {
  return lacksMemory() ? nullptr : __real_calloc(count, size);
}
}  // extern "C"
