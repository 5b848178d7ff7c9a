// On a console text is written as UTF-16, whatever its code page; to a pipe or a file as UTF-8.
#include <algorithm>

#include "MoziCode/Utf.h"
#include "platform/Console.h"
#include "platform/windows/System.h"

namespace zelvaro {
namespace {

/// The size of the whole characters at the beginning of a text that may be cut inside its last one.
std::size_t wholeCharacters(std::string_view utf8) {
  constexpr std::size_t kLongest = 4;
  for (std::size_t size = 1; size < kLongest && size <= utf8.size(); ++size) {
    const std::string_view last = utf8.substr(utf8.size() - size);
    if (isContinuation(last.front())) continue;
    return utf8.size() - (decodeUtf8(last).kind == Utf8Mozi::Kind::Cut ? size : 0);
  }
  return utf8.size();
}

bool writeToConsole(HANDLE console, std::wstring_view text) {
  constexpr std::size_t kMostAtOnce = 8 * 1024;  // older systems refuse much more
  while (!text.empty()) {
    std::size_t size = std::min(text.size(), kMostAtOnce);
    if (size > 1 && isHighSurrogate(static_cast<char16_t>(text[size - 1]))) --size;
    DWORD n = 0;
    if (::WriteConsoleW(console, text.data(), static_cast<DWORD>(size), &n, nullptr) == 0 || n == 0)
      return false;
    text.remove_prefix(n);
  }
  return true;
}

}  // namespace

ConsoleOutput::ConsoleOutput(int fd) : fd_(fd), terminal_(windows::isConsole(windows::handleOf(fd))) {
  buffer_.reserve(kBuffer);
}

/// An older console would print the sequences: they are dropped there.
void ConsoleOutput::printControl(std::string_view bytes) {
  const HANDLE console = windows::handleOf(fd_);
  DWORD mode = 0;
  if (!terminal_ || (::GetConsoleMode(console, &mode) != 0 &&
                     ::SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0))
    append(bytes);
}

ConsoleSize ConsoleOutput::size() const {
  CONSOLE_SCREEN_BUFFER_INFO known{};
  if (::GetConsoleScreenBufferInfo(windows::handleOf(fd_), &known) == 0) return {};
  const SMALL_RECT& window = known.srWindow;
  if (window.Bottom < window.Top || window.Right < window.Left) return {};
  return {window.Bottom - window.Top + 1, window.Right - window.Left + 1};
}

/// A console that is closed ends the program, and only a write finds out that a pipe's reader has gone: one of no
/// bytes would look like the end of the input to some readers.
void ConsoleOutput::look() {}

void ConsoleOutput::writeOut() {
  const std::string_view bytes = buffer_;
  const std::size_t size = terminal_ ? wholeCharacters(bytes) : bytes.size();
  if (!failed_ && size > 0) {
    const HANDLE to = windows::handleOf(fd_);
    if (terminal_) {
      failed_ = !writeToConsole(to, windows::wide(bytes.substr(0, size)));
    } else if (const DWORD error = windows::writeAll(to, bytes); error != 0) {
      readerIsGone_ =
          error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA || error == ERROR_PIPE_NOT_CONNECTED;
      failed_ = true;
    }
  }
  buffer_.erase(0, failed_ ? buffer_.size() : size);
}

}  // namespace zelvaro
