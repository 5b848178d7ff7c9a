#include "platform/windows/Paths.h"

#include <algorithm>
#include <cerrno>

#include "MoziCode/Utf.h"

namespace zelvaro::windows {
namespace {

constexpr std::size_t kLong = 200;  ///< below MAX_PATH, and below the lower limit of a folder's name
constexpr std::wstring_view kAnyLength = L"\\\\?\\";
constexpr std::wstring_view kDevice = L"\\\\.\\";
constexpr std::wstring_view kShare = L"\\\\";

/// Calls a function of the system that fills a buffer and returns the size needed, with as large a one as it takes.
template <class Call>
std::wstring filled(Call call) {
  std::wstring out(MAX_PATH, L'\0');
  for (;;) {
    const DWORD size = call(out.data(), static_cast<DWORD>(out.size()));
    const bool fits = size < out.size();
    out.resize(size);
    if (fits) return out;
  }
}

}  // namespace

std::optional<std::wstring> fullName(std::string_view path, FileFailure* failure) {
  std::u16string text;
  const bool wellFormed = utf8ToUtf16(path, text);
  const bool hasEnd = text.find(u'\0') != text.npos;
  if (text.empty() || !wellFormed || hasEnd) {
    tell(failure, failureOf(hasEnd ? EINVAL : ENOENT));
    return std::nullopt;
  }
  const std::wstring typed(text.begin(), text.end());
  std::wstring name =
      filled([&](wchar_t* to, DWORD size) { return ::GetFullPathNameW(typed.c_str(), size, to, nullptr); });
  if (name.empty() || name.starts_with(kDevice)) {
    tell(failure, name.empty() ? failureOfSystem(::GetLastError()) : notRegular());
    return std::nullopt;
  }
  if (name.size() < kLong || name.starts_with(kAnyLength)) return name;
  if (name.starts_with(kShare)) return std::wstring(kAnyLength) + L"UNC\\" + name.substr(kShare.size());
  return std::wstring(kAnyLength) + name;
}

DWORD attributesOf(const std::wstring& name) {
  const DWORD own = ::GetFileAttributesW(name.c_str());
  if (own == INVALID_FILE_ATTRIBUTES || (own & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return own;
  const Handle target(::CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION known{};
  if (!target.isOpen() || ::GetFileInformationByHandle(target.get(), &known) == 0)
    return INVALID_FILE_ATTRIBUTES;
  return known.dwFileAttributes;
}

bool isFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::wstring folderOf(const std::wstring& name) {
  return name.substr(0, name.rfind(L'\\') + 1);
}

std::wstring finalName(const Handle& file) {
  return filled(
      [&](wchar_t* to, DWORD size) { return ::GetFinalPathNameByHandleW(file.get(), to, size, 0); });
}

DWORD forEachEntry(const std::wstring& pattern, const std::function<void(const std::string&, bool)>& put) {
  WIN32_FIND_DATAW entry{};
  const HANDLE search = ::FindFirstFileW(pattern.c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return ::GetLastError();
  do {
    const std::wstring name = entry.cFileName;
    if (name == L"." || name == L"..") continue;
    const bool isLink = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    put(narrow(name), isFolder(isLink ? attributesOf(folderOf(pattern) + name) : entry.dwFileAttributes));
  } while (::FindNextFileW(search, &entry) != 0);
  ::FindClose(search);
  return 0;
}

std::vector<std::string> filesOfArgument(const std::string& argument) {
  const std::string folder = argument.substr(0, argument.find_last_of("\\/:") + 1);
  std::vector<std::string> files;
  if (!argument.starts_with('-') && argument.find_first_of("*?", folder.size()) != argument.npos)
    if (const auto pattern = fullName(argument, nullptr))
      forEachEntry(*pattern, [&](const std::string& name, bool isFolder) {
        if (!isFolder) files.push_back(folder + name);
      });
  if (files.empty()) return {argument};
  std::ranges::sort(files);
  return files;
}

}  // namespace zelvaro::windows
