#include "faults/RealDialogue.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <new>

#include "platform/PosixPlatform.h"
#include "platform/TemporaryFolder.h"
#include "shell/Game.h"
#include "shell/Session.h"

namespace zelvaro::test {
namespace {

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
};

/// A folder in memory where there is one: a disk is waited for at each file that is replaced.
std::filesystem::path quickFolder() {
  constexpr const char* kInMemory = "/dev/shm";
  return ::access(kInMemory, W_OK) == 0 ? kInMemory : std::filesystem::temp_directory_path();
}

/// The working folder and the console of a dialogue, two folders apart.
class Place {
 public:
  Place(const Files& before, std::string_view typed) : oldFolder_(std::filesystem::current_path()) {
    for (const auto& [name, bytes] : before) {
      if (name.ends_with('/')) {
        std::filesystem::create_directory(folder_.path(name));
      } else if (name.ends_with('@')) {
        std::filesystem::create_symlink(bytes, folder_.path(name.substr(0, name.size() - 1)));
      } else {
        folder_.write(name, bytes);
      }
    }
    in = ::open(console_.write("typed", std::string(typed)).c_str(), O_RDONLY | O_CLOEXEC);
    out = ::open(console_.path("shown").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    std::filesystem::current_path(folder_.path());
  }
  ~Place() {
    std::filesystem::current_path(oldFolder_);
    ::close(in);
    ::close(out);
  }
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;

  /// All that the dialogue has left.
  void collect(Outcome& outcome) const {
    outcome.console = console_.read("shown");
    for (const auto& e : std::filesystem::directory_iterator(folder_.path())) {
      const std::string name = e.path().filename().string();
      if (e.is_symlink()) {
        outcome.files[name + "@"] = std::filesystem::read_symlink(e.path()).string();
      } else if (e.is_directory()) {
        outcome.files[name + "/"];
      } else {
        outcome.files[name] = folder_.read(name);
      }
    }
  }
  int in = -1;
  int out = -1;

 private:
  std::filesystem::path oldFolder_;
  TemporaryFolder folder_{quickFolder()};
  TemporaryFolder console_{quickFolder()};
};

int playAt(const Place& place, int output) {
  try {
    SteadyPlatform platform(place.in, output == kIntoAFile ? place.out : output);
    TSession session(platform);
    TGame game(session);
    game.SetCurrentDirChH();
    game.Start();
    return 0;
  } catch (const std::bad_alloc&) {
    return kOutOfMemory;
  }
}

}  // namespace

Outcome play(const Files& before, std::string_view typed, const Faults& faults) {
  const Place place(before, typed);
  Outcome outcome;
  {
    const Struck struck(faults.call, faults.allocation, place.in, place.out);
    outcome.status = playAt(place, faults.output);
    outcome.calls = struck.calls();
    outcome.readsAtTheEnd = struck.readsAtTheEnd();
    outcome.allocations = struck.allocations();
  }
  place.collect(outcome);
  return outcome;
}

Outcome playInChild(const Files& before, std::string_view typed, const Faults& faults) {
  constexpr unsigned kLongest = 60;
  const Place place(before, typed);
  Outcome outcome;
  const pid_t pid = ::fork();
  if (pid == 0) {
    ::alarm(kLongest);
    const Struck struck(faults.call, faults.allocation, place.in, place.out);
    ::_exit(playAt(place, faults.output));
  }
  while (::waitpid(pid, &outcome.status, 0) < 0 && errno == EINTR) {
  }
  place.collect(outcome);
  return outcome;
}

bool isWholeIni(const std::string& text) {
  return text.starts_with("[Mode]\nLangStr=") && text.ends_with("TextEditorPath2=\n");
}

}  // namespace zelvaro::test
