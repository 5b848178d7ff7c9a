// A large clean source for the measurements of the way from a file to its reports.
#pragma once

#include <string>

namespace zelvaro::bench {

/// One program of about `words` words: every fourth line has a label that some operand names, every third a
/// comment.  With `lines` it is filled up with comment lines to that number.  Its run ends at once.
std::string bigSource(int words, int lines = 0);

}  // namespace zelvaro::bench
