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

/// What one source file drew.
struct Findings {
  std::string text;              ///< what was printed between the reading line and the time line, without
                                 ///< the replay
  std::array<int, 4> tallies{};  ///< Errors, Warnings, Notes, Memos at the time line
  bool replayed = false;         ///< the replay came, and it was that of the log
  std::string rest;              ///< what followed the time line
};

/// A platform that looks at the tallies when the time line of a run passes by, and keeps what a person at a
/// terminal sees: what is printed, with the typed lines and the programs started where they came.
class WatchedPlatform : public ScriptedPlatform {
 public:
  TSession* session = nullptr;
  std::array<int, 4> tallies{};
  std::string logText;                         ///< what the replay of the log at that moment prints
  std::string seen;                            ///< a typed line as "> line", an action as "[action]"
  std::map<std::string, std::string> editing;  ///< what a file holds once it has been edited

  void print(std::string_view utf8) override;
  std::optional<std::string> readLine() override;
  EditResult editFile(const EditorCommand& editor, const std::string& path) override;

 private:
  std::size_t actionsSeen_ = 0;
  void showActions();
};

/// One use of the program, from its start to its end.
class Dialogue {
 public:
  WatchedPlatform platform;

  /// Starts the program, types the lines and lets the input end; returns all that was shown.
  std::string run(const std::vector<std::string>& typed);
  TSession& session() { return *session_; }

 private:
  std::unique_ptr<TSession> session_;
};

/// Assembles a source text in a language (0 Japanese, 1 English) through the whole dialogue.  The program
/// runs where nothing speaks against it.  `pipeline` is a name for the settings.
Findings assemble(std::string_view source, int lang, std::string_view pipeline = "WP");

}  // namespace zelvaro::test
