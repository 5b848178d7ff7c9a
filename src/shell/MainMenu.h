// The main menu: commands by number.
#pragma once

#include <cstdint>
#include <string>

#include "shell/Session.h"

namespace zelvaro {

/// What happens after a command of the menu.
enum class MenuResult : std::uint8_t {
  File,           ///< a source file is to be assembled
  Done,           ///< the command has been carried out; the menu comes again after the go-ahead prompt
  OtherPipeline,  ///< the mode selector has stored another pipeline's name
  Leave           ///< the user leaves, or the input has ended
};

class TMainMenu {
 public:
  explicit TMainMenu(TSession& s) : s_(s) {}

  /// Reads commands until one leaves the menu; for MenuResult::File `name` is the file, empty if no such file
  /// was found.  At the end of the input nothing is saved.
  MenuResult MainMenu(const Family& family, std::string& name);

 private:
  bool askGoAhead();

  TSession& s_;
  bool askedInEnglish_ = false;  ///< the go-ahead prompt has another text from the second time on
};

}  // namespace zelvaro
