// A folder to begin with: the samples and the tasks.
#pragma once

#include <string>

#include "check/Channel.h"
#include "check/Status.h"
#include "diag/Language.h"
#include "platform/Platform.h"

namespace zelvaro::check {

/// Makes the folder and copies samples and tasks into it.  What exists there already is kept as it is.
Status initFolder(const std::string& folder, Language language, Platform& platform, Screen& screen);

}  // namespace zelvaro::check
