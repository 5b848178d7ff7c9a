// One use of the program on the real file system, in which one thing may go wrong.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace zelvaro::test {

/// Bytes by name.  A name that ends in "/" is a folder, one that ends in "@" a link, its bytes what it names.
using Files = std::map<std::string, std::string>;

/// What goes wrong.  Calls are those that Session.cpp lists, but for the console's; calls and allocations are
/// counted from 1 on.
struct Fault {
  enum Kind { None, Fails, FallsShort, KillsBefore, KillsHalfway, KillsAfter };
  Kind kind = None;
  int at = 0;     ///< number of the call
  int error = 0;  ///< errno of a call that fails
  int inRow = 1;  ///< so many calls from `at` on
  long allocation = 0;
  bool lasts = false;  ///< every later allocation fails, too
  int output = -2;     ///< a descriptor for the console instead of the file that is collected
};

/// What a session leaves in its folder.
struct Outcome {
  int status = 0;  ///< 1 where memory has run out; as for waitpid from a process of its own
  std::string console;
  Files files;  ///< all that the working folder holds
  int calls = 0, promptsAtTheEnd = 0;
  long allocations = 0;
};

/// Plays a dialogue in a folder that holds these files.  The clocks stand still, so that two plays give the
/// same reports.  With a fault that kills it is a process of its own, and nothing is counted.
Outcome play(const Files& before, std::string_view typed, const Fault& fault = {});

/// Calls the function while an allocation fails; returns how many it asked for.
long callWithout(const Fault& memory, const std::function<void()>& call);

}  // namespace zelvaro::test
