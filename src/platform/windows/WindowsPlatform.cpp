#include "platform/windows/WindowsPlatform.h"

#include <fcntl.h>
#include <io.h>

#include <array>
#include <cerrno>
#include <ctime>

#include "MoziCode/Utf.h"
#include "platform/windows/Paths.h"
#include "platform/windows/Programs.h"

namespace zelvaro {

void holdStandardDescriptors() {
  for (const int fd : {0, 1, 2}) {
    // a program that is started without a standard handle has a descriptor without one
    if (reinterpret_cast<std::intptr_t>(windows::handleOf(fd)) >= 0) continue;
    const int null = ::_open("NUL", _O_RDWR);
    if (null >= 0 && null != fd) {
      ::_dup2(null, fd);
      ::_close(null);
    }
  }
}

bool writeToStandardError(std::string_view utf8) {
  const HANDLE to = ::GetStdHandle(STD_ERROR_HANDLE);
  if (!windows::isConsole(to)) return windows::writeAll(to, utf8) == 0;
  std::array<wchar_t, 512> text{};
  std::size_t size = 0;
  while (!utf8.empty() && size + 2 < text.size()) {
    const Utf8Mozi front = decodeUtf8(utf8);
    text[size++] = static_cast<wchar_t>(front.codePoint);  // the program's own words have no pairs
    utf8.remove_prefix(front.size);
  }
  DWORD n = 0;
  return ::WriteConsoleW(to, text.data(), static_cast<DWORD>(size), &n, nullptr) != 0;
}

std::unique_ptr<Platform> systemPlatform() {
  return std::make_unique<WindowsPlatform>();
}

/// The arguments of main() are in the machine's code page.
std::vector<std::string> programArguments(int, char**) {
  int count = 0;
  wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> out;
  for (int i = 1; i < count; ++i)
    for (std::string& word : windows::filesOfArgument(windows::narrow(words[i])))
      out.push_back(std::move(word));
  ::LocalFree(words);
  return out;
}

/// The system's own editor needs no console, but a dialogue through a pipe has nobody who would close it.
EditResult WindowsPlatform::editFile(const EditorCommand& editor, const std::string& path) {
  const auto name = windows::fullName(path, nullptr);
  if (name && windows::isFolder(windows::attributesOf(*name)))
    return {EditResult::Status::Refused, {}, failureOf(EISDIR)};
  std::vector<std::string> command = windows::editorCommand(editor.commandLine);
  if (command.empty()) {
    if (!consoleSize()) return {EditResult::Status::NoEditor, {}, {}};
    command.push_back(windows::ownEditor());
  }
  command.push_back(windows::asArgument(path));
  flush();
  const DWORD error = windows::runAndWait(command, input_.isTerminal());
  if (error == 0) return {};
  return {EditResult::Status::NotStarted, command.front(), windows::failureOfSystem(error)};
}

bool WindowsPlatform::openOnDesktop(const std::string& path) {
  return windows::openDocument(path);
}

void WindowsPlatform::bringConsoleToFront() {
  if (const HWND window = ::GetConsoleWindow(); window != nullptr) ::SetForegroundWindow(window);
}

std::optional<std::string> WindowsPlatform::workingDirectory(FileFailure* failure) {
  const auto name = windows::fullName(".", failure);
  if (!name) return std::nullopt;
  return windows::narrow(*name);
}

bool WindowsPlatform::userInterfaceIsJapanese() {
  return PRIMARYLANGID(::GetUserDefaultUILanguage()) == LANG_JAPANESE;
}

std::int64_t WindowsPlatform::performanceCounter() {
  LARGE_INTEGER value{};
  ::QueryPerformanceCounter(&value);
  return value.QuadPart;
}

std::int64_t WindowsPlatform::performanceFrequency() {
  LARGE_INTEGER value{};
  return ::QueryPerformanceFrequency(&value) != 0 ? value.QuadPart : 0;
}

std::tm WindowsPlatform::localTime() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_s(&local, &now);
  return local;
}

}  // namespace zelvaro
