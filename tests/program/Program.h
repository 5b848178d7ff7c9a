// The built program, started as a learner starts it: in a folder, with a console of its own.
#pragma once

#include <string>
#include <string_view>

#include "platform/Descriptors.h"

namespace zelvaro::test {

struct ProgramLimits {
  std::size_t addressSpaceMiB = 0;  ///< 0: as much as there is
  bool outputIsClosed = false;      ///< descriptors 1 and 2 are closed when the program starts
};

/// What is left of a process.
struct Ended {
  int status = 0;  ///< as waitpid has it
  std::string console;
  std::string errors;
  std::size_t peakMiB = 0;  ///< most memory that it ever had resident
};

/// Starts the program in `folder`, types `typed`, and waits for its end, two minutes at most.
Ended runProgram(const std::string& folder, std::string_view typed, const ProgramLimits& limits = {});

/// The program on a pseudo-terminal.
class ProgramOnTerminal {
 public:
  explicit ProgramOnTerminal(const std::string& folder);
  ~ProgramOnTerminal();
  ProgramOnTerminal(const ProgramOnTerminal&) = delete;
  ProgramOnTerminal& operator=(const ProgramOnTerminal&) = delete;

  /// Presses keys, among them "\x03" for Ctrl+C and "\x04" for Ctrl+D.
  void type(std::string_view keys) { send(terminal_, keys); }
  /// Reads what the screen shows until `text` has come; false if it has not within 20 seconds.
  bool shows(std::string_view text);
  /// Waits for the end and returns its status as waitpid has it.
  int wait();
  /// All bytes that the screen has got so far.
  const std::string& screen() const { return screen_; }

 private:
  int terminal_ = -1;
  int pid_ = -1;
  std::string screen_;
  std::size_t searched_ = 0;
};

}  // namespace zelvaro::test
