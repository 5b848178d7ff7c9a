// Names of files as the system takes them.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

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

/// Calls put(name, whether it is a folder) for each entry of a folder that a full name finds, with * and ? in its last
/// part, but for "." and "..".  Returns 0 or the system's error.
DWORD forEachEntry(const std::wstring& pattern, const std::function<void(const std::string&, bool)>& put);

/// The files that an argument with * or ? in its last part stands for, sorted, with the folder as it is typed: no shell
/// of this system looks for them.  The argument itself if it finds no file, or is an option.
std::vector<std::string> filesOfArgument(const std::string& argument);

}  // namespace zelvaro::windows
