// A text that may be longer than the screen.
#pragma once

#include <string_view>

#include "shell/Session.h"

namespace zelvaro {

/// Prints a text, UTF-8 with line feeds.  On a terminal with fewer rows it is printed page by page: Enter
/// shows the next page; "q" or the end of the input ends it.
void showText(TSession& s, std::string_view utf8);

}  // namespace zelvaro
