// The language of all texts of the program.
#pragma once

#include <cstdint>
#include <string_view>

namespace zelvaro {

enum class Language : std::uint8_t { Japanese, English };

/// Means that a message prints nothing in one of the languages; a null pointer means that its words are
/// missing.
inline constexpr std::string_view kNoWords = "";

/// One text in both languages, UTF-8.  A language without words has a null pointer.
struct Words {
  std::string_view ja;
  std::string_view en;

  constexpr std::string_view in(Language language) const { return language == Language::Japanese ? ja : en; }
  constexpr bool isComplete() const { return ja.data() != nullptr && en.data() != nullptr; }
};

/// A text that is the same in both languages.
consteval Words bothLanguages(std::string_view text) {
  return {text, text};
}

}  // namespace zelvaro
