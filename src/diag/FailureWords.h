// Why a file could not be used, as an argument of a message.
#pragma once

#include "diag/Diagnostic.h"
#include "platform/Platform.h"

namespace zelvaro {

/// The reason of a failure for the user: the operating system's text, or a text of this program if the
/// failure did not come from the system.
MsgArg failureWords(const FileFailure& failure);

}  // namespace zelvaro
