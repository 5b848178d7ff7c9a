// A copy of a source with the START, RET and END that it lacks: a learner types END last.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zelvaro::web {

struct Completed {
  std::string text;
  std::vector<int> lineOf;         ///< for each line of the copy its line in the source, 0 for an added one
  std::vector<const char*> added;  ///< "START", "RET", "END"; empty if the source lacks none of them
};

/// Looks for the three words only: START before everything, END after everything, RET before an END.
Completed completed(std::string_view utf8);

}  // namespace zelvaro::web
