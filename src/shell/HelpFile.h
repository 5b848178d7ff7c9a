// Command 10 of the main menu: the help.
#pragma once

#include "shell/Session.h"

namespace zelvaro {

/// Opens the help file.  If it is not in the working directory, the guide in the learner's language is opened
/// with the editor instead; if there is neither, the missing files are reported.
void openHelpFile(TSession& s);

}  // namespace zelvaro
