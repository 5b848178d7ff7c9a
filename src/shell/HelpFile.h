// Command 10 of the main menu: the help.
#pragma once

#include "shell/Session.h"

namespace zelvaro {

/// Opens the help file.  Where it is not in the working directory, the guide in the learner's language is
/// shown with the editor instead; with neither, what was looked for is reported.
void openHelpFile(TSession& s);

}  // namespace zelvaro
