// One use of the program on the real file system, in this process or in one of its own.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "faults/Struck.h"

namespace zelvaro::test {

/// Bytes by name.  A name that ends in "/" is a folder, one that ends in "@" a link, its bytes what it names.
using Files = std::map<std::string, std::string>;

inline constexpr int kOutOfMemory = 1;  ///< status of a program whose memory has run out
inline constexpr int kIntoAFile = -2;

/// What a use of the program leaves behind.
struct Outcome {
  int status = 0;  ///< as for waitpid where it was a process of its own
  std::string console;
  Files files;  ///< all that the working folder holds
  int calls = 0;
  long allocations = 0;
  int readsAtTheEnd = 0;
};

/// What goes wrong meanwhile.
struct Faults {
  CallFault call;
  AllocationFault allocation;
  int output = kIntoAFile;  ///< a descriptor for the console instead of the file that is collected
};

/// Plays a dialogue in a folder that holds these files.  The clocks stand still, so that two plays give the
/// same reports.
Outcome play(const Files& before, std::string_view typed, const Faults& faults = {});
/// The same in a process of its own, which a fault may kill.  Calls and allocations are not counted.
Outcome playInChild(const Files& before, std::string_view typed, const Faults& faults = {});
/// Whether a text is a settings file from its first key to its last.
bool isWholeIni(const std::string& text);

}  // namespace zelvaro::test
