#include "MoziCode/Utf.h"
#include "platform/Console.h"
#include "platform/windows/System.h"

namespace zelvaro {
namespace {

constexpr std::size_t kBuffer = 64 * 1024;
constexpr wchar_t kEndKey = L'\x1A';  ///< Ctrl+Z

/// A line of the console as far as it was typed: with its line end, or up to Ctrl+Z, which ends the line at once.
std::wstring typedLine(HANDLE console) {
  std::wstring line;
  std::wstring part(4096, L'\0');
  for (;;) {
    CONSOLE_READCONSOLE_CONTROL control{};
    control.nLength = sizeof control;
    control.dwCtrlWakeupMask = 1u << kEndKey;
    DWORD n = 0;
    if (::ReadConsoleW(console, part.data(), static_cast<DWORD>(part.size()), &n, &control) == 0) return {};
    if (n == 0) ::Sleep(100);  // Ctrl+C: the system is about to end the program
    const std::size_t end = std::min(part.find(kEndKey), std::size_t{n});
    if (line.size() < ConsoleInput::kLongestLine) line.append(part, 0, end);
    if (end < n || n == 0 || part[n - 1] == L'\n') return line;
  }
}

}  // namespace

ConsoleInput::ConsoleInput(int fd) : fd_(fd), terminal_(windows::isConsole(windows::handleOf(fd))) {}

/// A line without its end was ended by the key.
bool ConsoleInput::endsByKey() const {
  return terminal_;
}

bool ConsoleInput::hasHungUp() const {
  return false;
}

/// Fills the empty buffer; false at the end of the input.  A read error counts as the end.
bool ConsoleInput::refill() {
  next_ = 0;
  if (terminal_) {
    buffer_ = windows::narrow(typedLine(windows::handleOf(fd_)));
  } else {
    buffer_.resize(kBuffer);
    buffer_.resize(windows::readSome(windows::handleOf(fd_), buffer_.data(), buffer_.size()).value_or(0));
  }
  ended_ = buffer_.empty();
  return !ended_;
}

}  // namespace zelvaro
