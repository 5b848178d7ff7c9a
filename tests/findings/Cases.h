// The files *.cases: one line a case.
//
//   A = MAIN START\n <line>\n RET\n END          a frame; cases that name it give the line
//   A | LD           | E1 ld-first-missing | but NWW NaW NA: E2 ...
//   - | MAIN START\n END | ok              | 8100
//   run | ...        | ok stop nop-guard(1208, 0004, 4)
//
// The fields: the frame ("-": the whole source is given; "run": so too, and what links is run); the source; tally and
// rows (Assembled::found); words of the image, of the framed line or from address 0.  "but" begins what other families
// find, words again after it.  A source knows \n \t \\ \uXXXX \xHH and {N:text} for a text N times.  A source that is not
// ASCII begins with the mark of UTF-8, unless it gives bytes by \xHH.  "#" begins a comment.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "diag/Family.h"

namespace zelvaro::test {

struct Expectation {
  std::vector<std::string> families;  ///< empty: those that no other one names
  std::string found, words;
};

struct Case {
  std::string file;
  int lineOfFile = 0;
  std::string bytes;  ///< of the source
  int line = 0;       ///< the framed line, counted from 1; 0 for a whole source
  bool runs = false;
  std::vector<Expectation> expected;

  const Expectation& expectedOf(const Family& family) const;
};

/// All cases of the folder.
std::vector<Case> allCases();

}  // namespace zelvaro::test
