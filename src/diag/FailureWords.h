// Why a file could not be used, as an argument of a message.
#pragma once

#include "diag/Diagnostic.h"
#include "platform/Platform.h"

namespace zelvaro {

/// The reason of a failure for the user: the operating system's words, or words of this program where the
/// failure is none of the system's.
MsgArg failureWords(const FileFailure& failure);

}  // namespace zelvaro
