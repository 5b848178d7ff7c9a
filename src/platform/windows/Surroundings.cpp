#include "platform/Surroundings.h"

#include <array>
#include <cerrno>

#include "platform/Console.h"
#include "platform/windows/Paths.h"

namespace zelvaro {
namespace {

/// What is typed, to the first Ctrl+Z.
std::string readConsole() {
  std::string text;
  ConsoleInput console(0);
  while (const auto line = console.readLine()) text += *line + "\n";
  return text;
}

/// Makes a folder of a full name and those above it.  Returns 0 or the system's error.
DWORD makeFolder(const std::wstring& name) {
  if (::CreateDirectoryW(name.c_str(), nullptr) != 0) return 0;
  const DWORD error = ::GetLastError();
  if (windows::isFolder(windows::attributesOf(name))) return 0;
  std::wstring above = windows::folderOf(name);
  if (error != ERROR_PATH_NOT_FOUND || above.size() < 2) return error;
  above.pop_back();
  if (const DWORD cause = makeFolder(above); cause != 0) return cause;
  return ::CreateDirectoryW(name.c_str(), nullptr) != 0 ? 0 : ::GetLastError();
}

}  // namespace

std::optional<std::string> environmentVariable(const char* name) {
  std::wstring value(32767, L'\0');  // the most that the system allows
  value.resize(
      ::GetEnvironmentVariableW(windows::wide(name).c_str(), value.data(), static_cast<DWORD>(value.size())));
  if (value.empty()) return std::nullopt;
  return windows::narrow(value);
}

bool isTerminal(int descriptor) {
  return windows::isConsole(windows::handleOf(descriptor));
}

/// The variable is set where a terminal of another system is the console.
bool terminalHasColors() {
  return environmentVariable("TERM") != "dumb";
}

std::optional<std::string> readStandardInput(std::size_t most, FileFailure* failure) {
  if (isTerminal(0)) return readConsole();
  std::string bytes;
  std::array<char, 64 * 1024> part{};
  for (;;) {
    const auto n = windows::readSome(windows::handleOf(0), part.data(), part.size());
    if (n && *n == 0) return bytes;
    if (!n) {
      tell(failure, windows::failureOfSystem(::GetLastError()));
      return std::nullopt;
    }
    bytes.append(part.data(), *n);
    if (bytes.size() <= most) continue;
    tell(failure, failureOf(EFBIG));
    return std::nullopt;
  }
}

bool makeFolders(const std::string& path, FileFailure* failure) {
  auto name = windows::fullName(path, failure);
  if (!name) return false;
  while (name->size() > 1 && name->back() == L'\\') name->pop_back();
  const DWORD error = makeFolder(*name);
  if (error != 0) tell(failure, windows::failureOfSystem(error));
  return error == 0;
}

std::uint64_t stampOfFile(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA known{};
  const auto name = windows::fullName(path, nullptr);
  if (!name || ::GetFileAttributesExW(name->c_str(), GetFileExInfoStandard, &known) == 0) return 0;
  const auto joined = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
  std::uint64_t stamp = 1469598103934665603u;  // FNV-1a over the fields that a change of the content changes
  for (const std::uint64_t field :
       {joined(known.nFileSizeHigh, known.nFileSizeLow),
        joined(known.ftLastWriteTime.dwHighDateTime, known.ftLastWriteTime.dwLowDateTime),
        joined(known.ftCreationTime.dwHighDateTime, known.ftCreationTime.dwLowDateTime)})
    stamp = (stamp ^ field) * 1099511628211u;
  return stamp == 0 ? 1 : stamp;
}

void waitMilliseconds(int milliseconds) {
  ::Sleep(static_cast<DWORD>(milliseconds));
}

std::string folderOfProgram() {
  std::wstring name(32767, L'\0');
  name.resize(::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
  std::wstring folder = windows::folderOf(name);
  if (!folder.empty()) folder.pop_back();
  return windows::narrow(folder);
}

}  // namespace zelvaro
