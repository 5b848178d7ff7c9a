#include "platform/windows/Files.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <stdexcept>
#include <vector>

#include "platform/windows/Paths.h"

namespace zelvaro::windows {
namespace {

/// Opens a regular file for reading, also one that another program is writing.
Handle openRegular(const std::string& path, FileFailure* failure) {
  const auto name = fullName(path, failure);
  if (!name) return Handle();
  Handle file(::CreateFileW(name->c_str(), GENERIC_READ,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
  const DWORD error = ::GetLastError();
  if (!file.isOpen()) {
    tell(failure, isFolder(attributesOf(*name)) ? failureOf(EISDIR) : failureOfSystem(error));
  } else if (::GetFileType(file.get()) != FILE_TYPE_DISK) {
    tell(failure, notRegular());
  } else {
    return file;
  }
  return Handle();
}

/// Reads to the end of the file, or until it has more than `most` bytes.
std::optional<FileFailure> readToEnd(const Handle& file, std::size_t expected, std::size_t most,
                                     std::string& bytes) {
  bytes.resize(expected + 1);  // one more, so that the read that finds the end needs no growth
  std::size_t have = 0;
  while (have <= most) {
    const auto n = readSome(file.get(), bytes.data() + have, bytes.size() - have);
    if (!n) return failureOfSystem(::GetLastError());
    if (*n == 0) {
      bytes.resize(have);
      return std::nullopt;
    }
    have += *n;
    if (have == bytes.size()) bytes.resize(have * 2);
  }
  return failureOf(EFBIG);
}

/// Calls put(name, is a folder) for each entry of an open search.
template <class Put>
void forEachEntry(HANDLE search, WIN32_FIND_DATAW& entry, const std::wstring& folder, Put put) {
  do {
    const std::wstring name = entry.cFileName;
    if (name == L"." || name == L"..") continue;
    const bool isLink = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    put(narrow(name), isFolder(isLink ? attributesOf(folder + name) : entry.dwFileAttributes));
  } while (::FindNextFileW(search, &entry) != 0);
}

}  // namespace

bool canRead(const std::string& path, FileFailure* failure) {
  return openRegular(path, failure).isOpen();
}

std::optional<std::string> readFile(const std::string& path, FileFailure* failure, std::size_t most) {
  const Handle file = openRegular(path, failure);
  if (!file.isOpen()) return std::nullopt;
  LARGE_INTEGER known{};
  ::GetFileSizeEx(file.get(), &known);
  const auto size = static_cast<std::size_t>(known.QuadPart);
  std::string bytes;
  std::optional<FileFailure> cause = failureOf(EFBIG);
  try {
    if (size <= most) cause = readToEnd(file, size, most, bytes);
  } catch (const std::bad_alloc&) {
    cause = failureOf(ENOMEM);
  } catch (const std::length_error&) {
  }
  if (!cause) return bytes;
  tell(failure, *cause);
  return std::nullopt;
}

bool deleteFile(const std::string& path, FileFailure* failure) {
  const auto name = fullName(path, failure);
  if (!name) return false;
  if (::DeleteFileW(name->c_str()) != 0) return true;
  const DWORD error = ::GetLastError();
  tell(failure, isFolder(::GetFileAttributesW(name->c_str())) ? failureOf(EISDIR) : failureOfSystem(error));
  return false;
}

bool exists(const std::string& path) {
  const auto name = fullName(path, nullptr);
  return name && attributesOf(*name) != INVALID_FILE_ATTRIBUTES;
}

std::optional<std::string> folderListing(const std::string& path, FileFailure* failure) {
  auto folder = fullName(path.empty() ? "." : path, failure);
  if (!folder) return std::nullopt;
  const DWORD attributes = attributesOf(*folder);
  const DWORD error = ::GetLastError();
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    tell(failure, failureOfSystem(error));
    return std::nullopt;
  }
  if (!isFolder(attributes)) return path + "\n";
  if (folder->back() != L'\\') *folder += L'\\';
  std::vector<std::string> names;
  WIN32_FIND_DATAW entry{};
  const HANDLE search = ::FindFirstFileW((*folder + L'*').c_str(), &entry);
  if (search != INVALID_HANDLE_VALUE) {
    forEachEntry(search, entry, *folder, [&](const std::string& name, bool isFolder) {
      names.push_back(isFolder ? name + "/" : name);
    });
    ::FindClose(search);
  } else if (const DWORD cause = ::GetLastError(); cause != ERROR_FILE_NOT_FOUND) {  // an empty drive
    tell(failure, failureOfSystem(cause));
    return std::nullopt;
  }
  std::sort(names.begin(), names.end());
  std::string listing;
  for (const std::string& name : names) listing += name + "\n";
  return listing;
}

}  // namespace zelvaro::windows
