#include <array>
#include <cstdio>
#include <utility>

#include "MoziCode/Utf.h"
#include "platform/Console.h"

namespace zelvaro {
namespace {

constexpr std::string_view kReplacementUtf8 = "\xEF\xBF\xBD";

bool isPlain(unsigned char c) {
  return (c >= 0x20 && c < 0x7F) || c == '\n' || c == '\t';
}

/// Caret notation of a control character of ASCII ("^[" for escape), the number of any other ("<U+009B>").
std::string shown(char32_t character) {
  if (character < 0x80) return {'^', static_cast<char>(character ^ 0x40)};
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "<U+%04X>", static_cast<unsigned>(character));
  return text.data();
}

}  // namespace

void ConsoleOutput::print(std::string_view utf8) {
  if (!terminal_) {
    append(utf8);
    return;
  }
  appendHarmless(utf8);
  if (utf8.find('\n') != std::string_view::npos) writeOut();
}

void ConsoleOutput::flush() {
  if (!std::exchange(begun_, {}).empty()) append(kReplacementUtf8);
  writeOut();
}

void ConsoleOutput::append(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::string_view part = bytes.substr(0, kBuffer - buffer_.size());
    buffer_ += part;
    bytes.remove_prefix(part.size());
    if (buffer_.size() == kBuffer) writeOut();
  }
}

void ConsoleOutput::appendHarmless(std::string_view utf8) {
  const std::string joined = begun_.empty() ? std::string() : std::exchange(begun_, {}) + std::string(utf8);
  if (!joined.empty()) utf8 = joined;
  while (!utf8.empty()) {
    std::size_t plain = 0;
    while (plain < utf8.size() && isPlain(static_cast<unsigned char>(utf8[plain]))) ++plain;
    append(utf8.substr(0, plain));
    utf8.remove_prefix(plain);
    if (utf8.empty()) break;
    const Utf8Mozi front = decodeUtf8(utf8);
    if (front.kind == Utf8Mozi::Kind::Cut) {
      begun_ = utf8;
      break;
    }
    if (front.kind == Utf8Mozi::Kind::IllFormed) {
      append(kReplacementUtf8);
    } else if (isUnsafeOnTerminal(front.codePoint)) {
      append(shown(front.codePoint));
    } else {
      append(utf8.substr(0, front.size));
    }
    utf8.remove_prefix(front.size);
  }
}

}  // namespace zelvaro
