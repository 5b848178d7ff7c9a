// Finds the character constants of an operand text.  A constant extends from apostrophe to apostrophe; a
// doubled apostrophe inside it is one character.
#pragma once

#include <cstddef>
#include <string_view>

namespace zelvaro {

/// The index of the closing apostrophe of the constant that opens at `open`, or the length of the text if
/// nothing closes it.
template <class Char>
constexpr std::size_t DetStrConstGL10(std::basic_string_view<Char> text, std::size_t open) {
  for (std::size_t i = open + 1; i < text.size(); ++i) {
    if (text[i] != Char('\'')) continue;
    if (i + 1 >= text.size() || text[i + 1] != Char('\'')) return i;
    ++i;
  }
  return text.size();
}

/// The first index outside character constants for which test(index) is true, or the length of the text.
template <class Char, class Test>
constexpr std::size_t findOutsideStrConst(std::basic_string_view<Char> text, Test test) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == Char('\'')) {
      i = DetStrConstGL10(text, i);
    } else if (test(i)) {
      return i;
    }
  }
  return text.size();
}

}  // namespace zelvaro
