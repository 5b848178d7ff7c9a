// Why an operation on a file has failed, in the same words on both systems where the cause is the same.
#pragma once

#include <string>

#include "platform/Platform.h"

namespace zelvaro {

/// The text for an errno.
std::string wordsOf(int error);
/// Why a call on a file has failed, from its errno.
FileFailure failureOf(int error);
/// Why the last call of the system has failed, in this thread.  Each system defines it.
FileFailure lastFailure();
/// The failure for a device, a pipe or a socket.
FileFailure notRegular();
/// The failure for a link that leads out of the folder of its file.
FileFailure leadsOutside();
/// Stores a failure if the caller has passed a place for it.
void tell(FileFailure* failure, FileFailure cause);

}  // namespace zelvaro
