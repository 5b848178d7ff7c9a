// Checks again when a file changes.
#pragma once

#include <functional>

#include "check/Channel.h"
#include "check/Options.h"
#include "check/Status.h"

namespace zelvaro::check {

/// Calls `check` at once and then whenever one of the files of the command line has changed, until a signal ends
/// the program or nobody reads what it writes.  Returns the last status.
Status watchFiles(const Options& options, Screen& screen, const std::function<Status()>& check);

}  // namespace zelvaro::check
