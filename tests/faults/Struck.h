// Strikes chosen system calls and allocations of this process: they fail, fall short, or are its last.
#pragma once

namespace zelvaro::test {

/// What happens to the system call of that number; from 1 on, in the order of the calls.
struct CallFault {
  enum class Kind { None, Fails, FallsShort, KillsBefore, KillsHalfway, KillsAfter };
  Kind kind = Kind::None;
  int at = 0;
  int error = 0;   ///< errno of a call that fails
  int inRow = 1;  ///< so many calls from `at` on
};

/// The allocation that fails, from 1 on (0: none), and whether every later one does too.
struct AllocationFault {
  long at = 0;
  bool lasts = false;
};

/// Counts while it lives, and makes the faults happen.  Counted are the calls on files, memory, programs and the
/// working folder that Struck.cpp lists, those on the console left out, and operator new and calloc.
class Struck {
 public:
  Struck(const CallFault& call, const AllocationFault& allocation, int consoleIn, int consoleOut);
  ~Struck();
  Struck(const Struck&) = delete;
  Struck& operator=(const Struck&) = delete;
  int calls() const;
  long allocations() const;
  /// How often the console was read and had nothing any more.
  int readsAtTheEnd() const;
};

}  // namespace zelvaro::test
