#include <cerrno>
#include <vector>

#include "platform/ConsolePlatform.h"
#include "platform/WholeFile.h"
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

}  // namespace

}  // namespace zelvaro::windows

namespace zelvaro {

bool ConsolePlatform::canRead(const std::string& path, FileFailure* failure) {
  return windows::openRegular(path, failure).isOpen();
}

std::optional<std::string> ConsolePlatform::readFile(const std::string& path, FileFailure* failure,
                                                     std::size_t most) {
  const windows::Handle file = windows::openRegular(path, failure);
  if (!file.isOpen()) return std::nullopt;
  LARGE_INTEGER size{};
  ::GetFileSizeEx(file.get(), &size);
  const auto readFrom = [&](char* to, std::size_t room) { return windows::readSome(file.get(), to, room); };
  return readToEnd(static_cast<std::size_t>(size.QuadPart), most, readFrom, failure);
}

bool ConsolePlatform::deleteFile(const std::string& path, FileFailure* failure) {
  const auto name = windows::fullName(path, failure);
  if (!name) return false;
  if (::DeleteFileW(name->c_str()) != 0) return true;
  const DWORD error = ::GetLastError();
  tell(failure, windows::isFolder(::GetFileAttributesW(name->c_str())) ? failureOf(EISDIR)
                                                                       : windows::failureOfSystem(error));
  return false;
}

bool ConsolePlatform::exists(const std::string& path) {
  const auto name = windows::fullName(path, nullptr);
  return name && windows::attributesOf(*name) != INVALID_FILE_ATTRIBUTES;
}

std::optional<std::vector<std::string>> ConsolePlatform::entriesOf(const std::string& path,
                                                                   FileFailure* failure) {
  auto folder = windows::fullName(path.empty() ? "." : path, failure);
  if (!folder) return std::nullopt;
  const DWORD attributes = windows::attributesOf(*folder);
  const DWORD error = ::GetLastError();
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    tell(failure, windows::failureOfSystem(error));
    return std::nullopt;
  }
  if (!windows::isFolder(attributes)) return std::vector{path};
  if (folder->back() != L'\\') *folder += L'\\';
  std::vector<std::string> names;
  const DWORD cause = windows::forEachEntry(*folder + L'*', [&](const std::string& name, bool isFolder) {
    names.push_back(isFolder ? name + "/" : name);
  });
  if (cause != 0 && cause != ERROR_FILE_NOT_FOUND) {  // as on an empty drive
    tell(failure, windows::failureOfSystem(cause));
    return std::nullopt;
  }
  return names;
}

}  // namespace zelvaro
