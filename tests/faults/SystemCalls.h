// Lets a chosen one of the system calls on files fail, fall short, or be the last of the process.
#pragma once

namespace zelvaro::test {

/// What happens to the call of that number; from 1 on, in the order of the calls.
struct CallFault {
  enum class Kind { None, Fails, FallsShort, KillsBefore, KillsHalfway, KillsBehind };
  Kind kind = Kind::None;
  int at = 0;
  int error = 0;  ///< errno of a call that fails
};

/// Counts open, read, write, fchmod, close and rename of this process while it lives, those on the console
/// left out, and makes the fault happen.
class CallFaults {
 public:
  CallFaults(const CallFault& fault, int consoleIn, int consoleOut);
  ~CallFaults();
  CallFaults(const CallFaults&) = delete;
  CallFaults& operator=(const CallFaults&) = delete;
  int calls() const;
  /// How often the console was read and had nothing any more.
  int readsAtTheEnd() const;
};

}  // namespace zelvaro::test
