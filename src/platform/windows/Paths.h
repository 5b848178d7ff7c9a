// Names of files as the system takes them.
#pragma once

#include <string>
#include <string_view>

#include "platform/windows/System.h"

namespace zelvaro::windows {

/// The full name of a file, with either separator in `path` (UTF-8).  A long one gets the prefix that lifts the
/// system's limit of 260 characters, with room for a longer name beside it.  Nothing, with the cause in `failure`, for
/// a name that is empty or ill-formed or that of a device.
std::optional<std::wstring> fullName(std::string_view path, FileFailure* failure);

/// What has that name, after links: its attributes, or INVALID_FILE_ATTRIBUTES.
DWORD attributesOf(const std::wstring& name);
bool isFolder(DWORD attributes);

/// The folder of a full name, its separator included.
std::wstring folderOf(const std::wstring& name);

/// The name of an open file or folder without any link in it, or an empty text.
std::wstring finalName(const Handle& file);

}  // namespace zelvaro::windows
