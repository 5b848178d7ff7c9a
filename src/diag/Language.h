// The language of everything that the program says.
#pragma once

#include <cstdint>
#include <string_view>

namespace zelvaro {

enum class Language : std::uint8_t { Japanese, English };

/// Means that a message prints nothing in one of the languages, as apart from words that are missing.
inline constexpr std::string_view kNoWords{"", 0};

/// One text in both languages, UTF-8.  A language without words has a null pointer.
struct Words {
  std::string_view ja;
  std::string_view en;

  constexpr std::string_view in(Language language) const { return language == Language::Japanese ? ja : en; }
  constexpr bool isComplete() const { return ja.data() != nullptr && en.data() != nullptr; }
};

/// The same text in both languages.
consteval Words bothLanguages(std::string_view text) {
  return {text, text};
}

}  // namespace zelvaro
