#include "platform/windows/System.h"

#include <io.h>

#include <algorithm>
#include <cerrno>

#include "MoziCode/Utf.h"

namespace zelvaro::windows {
namespace {

/// Errors whose words are the same on every system.
constexpr std::pair<DWORD, int> kErrors[] = {{ERROR_FILE_NOT_FOUND, ENOENT},
                                             {ERROR_PATH_NOT_FOUND, ENOENT},
                                             {ERROR_INVALID_NAME, ENOENT},
                                             {ERROR_BAD_PATHNAME, ENOENT},
                                             {ERROR_INVALID_DRIVE, ENOENT},
                                             {ERROR_BAD_NETPATH, ENOENT},
                                             {ERROR_BAD_NET_NAME, ENOENT},
                                             {ERROR_ACCESS_DENIED, EACCES},
                                             {ERROR_WRITE_PROTECT, EROFS},
                                             {ERROR_FILE_EXISTS, EEXIST},
                                             {ERROR_ALREADY_EXISTS, EEXIST},
                                             {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
                                             {ERROR_OUTOFMEMORY, ENOMEM},
                                             {ERROR_DISK_FULL, ENOSPC},
                                             {ERROR_HANDLE_DISK_FULL, ENOSPC},
                                             {ERROR_DIRECTORY, ENOTDIR},
                                             {ERROR_DIR_NOT_EMPTY, ENOTEMPTY},
                                             {ERROR_FILE_TOO_LARGE, EFBIG},
                                             {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG}};

constexpr DWORD kMostAtOnce = DWORD{1} << 20;

}  // namespace

std::wstring wide(std::string_view utf8) {
  const std::u16string text = toUtf16(utf8);
  return {text.begin(), text.end()};
}

std::string narrow(std::wstring_view text) {
  return toUtf8(std::u16string(text.begin(), text.end()));
}

FileFailure failureOfSystem(DWORD error) {
  for (const auto& [known, number] : kErrors)
    if (known == error) return failureOf(number);
  wchar_t words[512];
  const DWORD size = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                      error, 0, words, static_cast<DWORD>(std::size(words)), nullptr);
  std::string reason = narrow({words, size});
  while (!reason.empty() && (reason.back() == '\n' || reason.back() == '\r' || reason.back() == ' '))
    reason.pop_back();
  if (reason.empty()) reason = "Error " + std::to_string(error);
  return {FileFailure::Kind::System, reason};
}

HANDLE handleOf(int descriptor) {
  return reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor));
}

bool isConsole(HANDLE handle) {
  DWORD mode = 0;
  return ::GetConsoleMode(handle, &mode) != 0;
}

std::optional<std::size_t> readSome(HANDLE from, char* to, std::size_t size) {
  DWORD n = 0;
  if (::ReadFile(from, to, static_cast<DWORD>(std::min<std::size_t>(size, kMostAtOnce)), &n, nullptr) != 0)
    return n;
  const DWORD error = ::GetLastError();
  if (error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF) return 0;
  return std::nullopt;
}

DWORD writeAll(HANDLE to, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD n = 0;
    const auto size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kMostAtOnce));
    if (::WriteFile(to, bytes.data(), size, &n, nullptr) == 0) return ::GetLastError();
    if (n == 0) return ERROR_DISK_FULL;
    bytes.remove_prefix(n);
  }
  return 0;
}

}  // namespace zelvaro::windows

namespace zelvaro {

FileFailure lastFailure() {
  return windows::failureOfSystem(::GetLastError());
}

}  // namespace zelvaro
