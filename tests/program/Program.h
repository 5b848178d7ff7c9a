// The built program, started as a learner starts it: in a folder, with a console of its own.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

#include "platform/Descriptors.h"
#include "platform/TemporaryFolder.h"

namespace zelvaro::test {

/// What is left of a process.
struct Ended {
  int status = 0;  ///< as waitpid has it
  std::string console;
  std::string errors;
  std::size_t peakMiB = 0;  ///< most memory that it ever had resident
};

/// Starts the program in `folder`, types `typed`, and waits for its end, two minutes at most.  `preparation` is
/// what a shell does before it turns into the program, as "ulimit -v 6000".
Ended runProgram(const std::string& folder, const std::string& typed, const std::string& preparation = ":");

/// The program with somebody who watches it: on a pseudo-terminal, or through two pipes.
class WatchedProgram {
 public:
  enum class Console { Terminal, Pipes };
  explicit WatchedProgram(const std::string& folder, Console console = Console::Terminal);
  ~WatchedProgram();
  WatchedProgram(const WatchedProgram&) = delete;
  WatchedProgram& operator=(const WatchedProgram&) = delete;

  /// Presses keys, among them "\x03" for Ctrl+C and "\x04" for Ctrl+D.
  void type(std::string_view keys) { send(keyboard_, keys); }
  /// Reads what the screen shows until `text` has come; false if it has not within 20 seconds.
  bool shows(std::string_view text);
  /// The watcher goes away: the terminal hangs up, or the pipes have no other end any more.
  void leave();
  /// Waits for the end, 20 seconds at most, and returns its status as waitpid has it; -1 if it has not come.
  int wait();
  /// All bytes that the screen has got so far.
  const std::string& screen() const { return screen_; }

 private:
  int keyboard_ = -1, display_ = -1;
  pid_t pid_ = -1;
  std::string screen_;
  std::size_t searched_ = 0;
};

}  // namespace zelvaro::test
