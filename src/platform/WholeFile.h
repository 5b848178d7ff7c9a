// Reading a file to its end, whatever size the system reports for it.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "platform/Platform.h"

namespace zelvaro {

/// Reads up to `size` bytes to `to` and returns how many there were, 0 at the end.  Nothing on a failure, whose cause
/// is lastFailure().
using ReadSome = std::function<std::optional<std::size_t>(char* to, std::size_t size)>;

/// The bytes of a file for which the system reports `size` bytes.  Nothing, with the cause in `failure`, if it has more
/// than `most` bytes, if there is no memory for them, or if a read fails.
std::optional<std::string> readToEnd(std::size_t size, std::size_t most, const ReadSome& readSome,
                                     FileFailure* failure);

}  // namespace zelvaro
