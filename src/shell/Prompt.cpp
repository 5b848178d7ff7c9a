#include "shell/Prompt.h"

#include <cstdlib>

#include "source/LineStore.h"

namespace zelvaro {
namespace {

constexpr std::string_view kZenKakuBlank = "\u3000";

/// The first `limit` characters of UTF-8 text.
void cutAt(std::string& text, std::size_t limit) {
  std::size_t characters = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool beginsCharacter = (static_cast<unsigned char>(text[i]) & 0xC0u) != 0x80u;
    if (!beginsCharacter || ++characters <= limit) continue;
    text.resize(i);
    return;
  }
}

}  // namespace

std::optional<std::string> askLine(Platform& platform, std::size_t limit) {
  std::optional<std::string> line = platform.readLine();
  if (line) cutAt(*line, limit);
  return line;
}

std::string withoutBlanks(std::string_view text) {
  return std::string(trim(text));
}

std::string withoutAnyBlanks(std::string_view text) {
  for (;;) {
    text = trim(text);
    if (text.starts_with(kZenKakuBlank)) {
      text.remove_prefix(kZenKakuBlank.size());
    } else if (text.ends_with(kZenKakuBlank)) {
      text.remove_suffix(kZenKakuBlank.size());
    } else {
      return std::string(text);
    }
  }
}

std::optional<long> decimalNumber(const std::string& text) {
  char* rest = nullptr;
  const long number = std::strtol(text.c_str(), &rest, 10);
  if (rest != text.c_str() + text.size()) return std::nullopt;
  return number;
}

}  // namespace zelvaro
