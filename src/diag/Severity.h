// The kinds of messages.
#pragma once

#include <cstdint>

namespace zelvaro {

/// Notice is for messages that are no findings: the file that is read, the number of programs, all messages
/// of the shell and of a run.
enum class Severity : std::uint8_t { Error, Warning, Note, Memo, Notice };

}  // namespace zelvaro
