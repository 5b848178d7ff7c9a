// The main menu: what the user asks for by number.
#pragma once

#include <string>

#include "shell/Pipelines.h"

namespace zelvaro {

class TMainMenu {
 public:
  /// `game` holds TGame's copy of the language.
  TMainMenu(TSession& s, TMsgBase& game) : s_(s), game_(game) {}

  /// Asks until a command leads out of the menu: MenuGoFile with a name (empty if no such file was
  /// found), MenuModeChanged, MenuExit, or MenuDone.  The end of the input counts as MenuExit, and
  /// nothing is saved then.
  int MainMenu(const Pipeline& pipeline, std::string& name);

 private:
  bool askGoAhead(const Pipeline& pipeline);

  TSession& s_;
  TMsgBase& game_;
  bool askedInEnglish_ = false;  ///< the go-ahead prompt is in other words from the second time on
};

}  // namespace zelvaro
