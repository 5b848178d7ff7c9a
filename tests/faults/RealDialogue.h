// One use of the program on the real file system, in this process or in one of its own.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "faults/Allocation.h"
#include "faults/SystemCalls.h"

namespace zelvaro::test {

using Files = std::map<std::string, std::string>;  ///< bytes by name; a folder's name ends in "/"

inline constexpr int kOutOfMemory = 1;  ///< status of a program whose memory has run out

/// What a use of the program leaves behind.
struct Outcome {
  int status = 0;  ///< as for waitpid where a signal ended it
  std::string console;
  Files files;           ///< all that stands in the working folder
  int calls = 0;         ///< system calls on files
  long allocations = 0;  ///< how often memory was asked for
  int readsAtTheEnd = 0;
};

inline constexpr int kIntoAFile = -2;

/// What goes wrong meanwhile.
struct Faults {
  CallFault call;
  long allocation = 0;  ///< number of the allocation that fails, 0: none
  AllocationFaults::Lack lack = AllocationFaults::Lack::Passes;
  int output = kIntoAFile;  ///< a descriptor for the console instead of the file that is collected
};

/// Plays a dialogue in a folder that holds these files.  The clocks stand still, so that two plays give the
/// same reports.
Outcome play(const Files& before, std::string_view typed, const Faults& faults = {});
/// The same in a process of its own, which a fault may kill.  Calls and allocations are not counted.
Outcome playInChild(const Files& before, std::string_view typed, const Faults& faults = {});
/// Whether a text is a settings file from its first key to its last.
bool isWholeIni(const std::string& text);

/// Calls `work` in a process of its own and returns its status as waitpid has it: the work's result where it
/// came to its end.  It is killed after a minute.
int inChild(const std::function<int()>& work);

}  // namespace zelvaro::test
