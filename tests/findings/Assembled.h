// A source file on its way through the stages, in one family, with all that was issued on it.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "engine/Stages.h"
#include "shell/Session.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

/// Keeps what is issued.
class Recorder : public DiagSink {
 public:
  std::vector<Diagnostic> issued;
  void take(const Diagnostic& d) override { issued.push_back(d); }
};

class Assembled {
 public:
  /// Takes the bytes of a file through load, checks and link, and through its run if `runs` and it links.
  Assembled(const Family& family, const std::string& bytes, bool runs);

  /// Tally and rows as a case has them: "E1 N2 code(argument, "quote")@line code".  The line is left out where it
  /// is `line` (counted from 1, 0 for none); a row without a line has "@-".  A notice is left out unless `named` names it.
  std::string found(int line, const std::string& named) const;
  /// The first `count` words of the image, from the first one of `line` on (0: from address 0).
  std::string words(int line, std::size_t count) const;

  ScriptedPlatform platform;
  TSession session{platform};
  Recorder recorder;
  bool links = false;
  std::array<int, 4> tallies{};  ///< Errors, Warnings, Notes, Memos, before the run
  std::size_t beforeRun = 0;     ///< how many of the rows were issued before the run
};

}  // namespace zelvaro::test
