// Files of the POSIX platform: read whole, written beside their target and renamed.
#pragma once

#include <cerrno>
#include <memory>
#include <optional>
#include <string>

#include "platform/Platform.h"

namespace zelvaro::posix {

/// The operating system's words for an errno.
std::string wordsOf(int error);
/// Stores a reason where the caller wants one.
void tell(FileFailure* failure, std::string reason);

/// Calls again what a signal has interrupted.  The result of a call that ends with -1 on a failure.
template <class Call>
auto uninterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result != -1 || errno != EINTR) return result;
  }
}

/// Whether `path` is a regular file that opens for reading.
bool canRead(const std::string& path);
std::optional<std::string> readFile(const std::string& path, FileFailure* failure);
std::optional<FileBytes> loadFile(const std::string& path, FileFailure* failure);
std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure);
bool exists(const std::string& path);
/// Names of a folder's entries, sorted, folders with a "/" behind them; a file is its only entry.
std::optional<std::string> folderListing(const std::string& path, FileFailure* failure);

}  // namespace zelvaro::posix
