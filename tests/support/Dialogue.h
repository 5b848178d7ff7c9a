// Runs the whole program against the scripted platform: what is typed goes in, what is shown comes out.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "shell/Game.h"
#include "shell/Session.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

using Files = std::map<std::string, std::string>;  ///< bytes by name
using Tallies = std::array<int, 4>;                ///< Errors, Warnings, Notes, Memos
inline constexpr char kMark8[] = "\xEF\xBB\xBF";   ///< begins a UTF-8 file, so that nothing is detected
inline constexpr char kTimeLine[] = " msec =(ReadFile";

/// The sample sources of workspace/, under the names that a learner types.
const Files& samples();

/// A platform that keeps what a person at a terminal sees, cut at the typed lines.
class WatchedPlatform : public ScriptedPlatform {
 public:
  struct Answer {
    std::string text;  ///< what was printed, and a program started as "[what it does]"
    Files files;       ///< as they were when the next line was read
  };
  TSession* session = nullptr;
  /// Before the first typed line, after each of them, and after the end of the input.
  std::vector<Answer> answers;
  Tallies tallies{};                   ///< at the last time line
  Files editing;                       ///< what a file holds once it has been edited
  std::vector<std::string> takenAway;  ///< files that are removed at the end of each answer

  void print(std::string_view utf8) override;
  std::optional<std::string> readLine() override;
  EditResult editFile(const EditorCommand& editor, const std::string& path) override;
  void endAnswer();

 private:
  void takeActions();

  std::size_t actionsSeen_ = 0;
  bool inputEnded_ = false;
};

/// One use of the program, from its start to its end.
class Dialogue {
 public:
  WatchedPlatform platform;
  DiagSink* alsoTakes = nullptr;  ///< what is issued, besides the console and the log

  /// Starts the program, types the lines and lets the input end; returns all that was printed.
  std::string run(const std::vector<std::string>& typed);
  /// Assembles and runs a source; `typed` is what its run or a question asks for.
  std::string assemble(std::string_view source, const std::string& pipeline,
                       std::vector<std::string> typed = {}, const std::string& language = "ENU");
  TSession& session() { return *session_; }

 private:
  std::unique_ptr<TSession> session_;
};

}  // namespace zelvaro::test
