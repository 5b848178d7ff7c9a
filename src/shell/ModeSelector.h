// The mode selector, an unlisted command of the main menu: changes the pipeline while the program runs.
#pragma once

#include "shell/Session.h"

namespace zelvaro {

/// Stores the name that the user picks in `sh`.  MenuModeChanged for another pipeline, MenuExit at the end
/// of the input, -1 where nothing has changed.
int ModeSelector(TSession& s, int lang);

}  // namespace zelvaro
