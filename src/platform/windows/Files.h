// Files of the Windows platform: read as a whole, written to a temporary file beside the target and renamed.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Platform.h"

namespace zelvaro::windows {

bool canRead(const std::string& path, FileFailure* failure);
std::optional<std::string> readFile(const std::string& path, FileFailure* failure, std::size_t most);
std::unique_ptr<OutputFile> createFile(const std::string& path, FileFailure* failure, FileWriting writing);
bool deleteFile(const std::string& path, FileFailure* failure);
bool exists(const std::string& path);
std::optional<std::string> folderListing(const std::string& path, FileFailure* failure);

}  // namespace zelvaro::windows
