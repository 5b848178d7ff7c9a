// Character classes, trimming and plain search for the texts of line records: wide text is UTF-16, narrow
// text is CP932.  Each function takes both.  Utf.h has the same for UTF-8.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"

namespace zelvaro {

// --- classes ---

/// Blanks are the space and the tab, nothing else.
template <class Char>
constexpr bool isBlank(Char c) {
  return c == Char(' ') || c == Char('\t');
}
template <class Char>
constexpr bool isCapital(Char c) {
  return c >= Char('A') && c <= Char('Z');
}
template <class Char>
constexpr bool isSmall(Char c) {
  return c >= Char('a') && c <= Char('z');
}
template <class Char>
constexpr bool isDigit(Char c) {
  return c >= Char('0') && c <= Char('9');
}
/// A digit of a hexadecimal number; its letters are capitals.
template <class Char>
constexpr bool isHexDigit(Char c) {
  return isDigit(c) || (c >= Char('A') && c <= Char('F'));
}
/// Whether a label may contain the character.
template <class Char>
constexpr bool isLabelMozi(Char c) {
  return isCapital(c) || isDigit(c);
}
template <class Char>
constexpr bool isSign(Char c) {
  return c == Char('+') || c == Char('-');
}
/// Whether a number may begin with the character: the signs, besides the digits.
template <class Char>
constexpr bool isSignOrHash(Char c) {
  return isSign(c) || c == Char('#');
}

// --- digits ---

inline constexpr std::string_view kDigits = "0123456789ABCDEF";  ///< indexed by value

/// The value of a digit, 0 to 15.  `c` must be 0 to 9 or A to F.
template <class Char>
constexpr int digitValue(Char c) {
  return isDigit(c) ? c - Char('0') : c - Char('A') + 10;
}

// --- trimming and search ---

template <class Char>
constexpr std::basic_string_view<Char> trimLeft(std::basic_string_view<Char> s) {
  while (!s.empty() && isBlank(s.front())) s.remove_prefix(1);
  return s;
}
template <class Char>
constexpr std::basic_string_view<Char> trimRight(std::basic_string_view<Char> s) {
  while (!s.empty() && isBlank(s.back())) s.remove_suffix(1);
  return s;
}
template <class Char>
constexpr std::basic_string_view<Char> trim(std::basic_string_view<Char> s) {
  return trimLeft(trimRight(s));
}
/// Whether a text equals ASCII text, whatever its character type.
template <class Char>
constexpr bool equals(std::basic_string_view<Char> s, std::string_view ascii) {
  if (s.size() != ascii.size()) return false;
  for (std::size_t i = 0; i < s.size(); ++i)
    if (s[i] != static_cast<Char>(ascii[i])) return false;
  return true;
}
/// The position of ASCII text in a text from `from` on, or npos.
template <class Char>
constexpr std::size_t find(std::basic_string_view<Char> s, std::string_view ascii, std::size_t from = 0) {
  for (std::size_t i = from; i + ascii.size() <= s.size(); ++i)
    if (equals(s.substr(i, ascii.size()), ascii)) return i;
  return std::basic_string_view<Char>::npos;
}
/// Position of the first blank, or npos.
template <class Char>
constexpr std::size_t findBlank(std::basic_string_view<Char> text) {
  for (std::size_t i = 0; i < text.size(); ++i)
    if (isBlank(text[i])) return i;
  return text.npos;
}

/// Calls put(piece) with the pieces of a line of which the first two runs of blanks become one space each; the rest
/// of the line stays.
template <class Char, class Put>
constexpr void withFirstTwoRunsCut(std::basic_string_view<Char> line, Put put) {
  constexpr Char kSpace[] = {Char(' ')};
  for (int run = 0; run < 2 && findBlank(line) != line.npos; ++run) {
    put(line.substr(0, findBlank(line)));
    put(std::basic_string_view<Char>(kSpace, 1));
    line = trimLeft(line.substr(findBlank(line)));
  }
  put(line);
}

// --- full-width characters ---

/// The full-width space: one character of wide text, two bytes of narrow text.
template <class Char>
constexpr std::basic_string_view<Char> zenKakuSpace() {
  if constexpr (sizeof(Char) == 1) {
    return "\x81\x40";
  } else {
    return u"\u3000";
  }
}
/// How many elements of a text a character takes whose first element is `c`: 1 or 2 bytes of narrow text, 1
/// for wide text, where each half of a surrogate pair counts.
template <class Char>
constexpr std::size_t sizeOfMozi(Char c) {
  if constexpr (sizeof(Char) == 1) return isCp932Lead(c) ? 2 : 1;
  return 1;
}
/// The whole character at an index: both bytes or both code units if it has two.
template <class Char>
constexpr std::basic_string_view<Char> moziAt(std::basic_string_view<Char> text, std::size_t i) {
  if constexpr (sizeof(Char) == 1) {
    return text.substr(i, sizeOfMozi(text[i]));
  } else {
    return text.substr(i, isHighSurrogate(text[i]) ? 2 : 1);
  }
}
/// The beginning of a text: `size` elements, or one less if the last one would be the first half of a
/// character.
template <class Char>
constexpr std::basic_string_view<Char> firstMozi(std::basic_string_view<Char> text, std::size_t size) {
  if (text.size() <= size) return text;
  std::size_t end = 0;
  while (end < size) {
    const std::size_t next = end + moziAt(text, end).size();
    if (next > size) break;
    end = next;
  }
  return text.substr(0, end);
}
/// Whether a text holds a full-width space.
template <class Char>
constexpr bool holdsZenKakuSpace(std::basic_string_view<Char> text) {
  if constexpr (sizeof(Char) == 1) {
    for (std::size_t i = 0; i < text.size(); i += sizeOfMozi(text[i]))
      if (text.substr(i).starts_with(zenKakuSpace<Char>())) return true;
    return false;
  } else {
    return text.find(zenKakuSpace<Char>()) != text.npos;
  }
}

/// Whether a word holds a full-width character, that is, one of two bytes in CP932.  The search ends at an
/// invalid sequence of narrow text.
template <class Char>
constexpr bool holdsFullWidth(std::basic_string_view<Char> word) {
  if constexpr (sizeof(Char) == 1) {
    const auto lead = std::find_if(word.begin(), word.end(), isCp932Lead);
    if (lead == word.end() || lead + 1 == word.end()) return false;
    const auto trail = static_cast<unsigned char>(lead[1]);
    return trail >= 0x40 && trail <= 0xFC && trail != 0x7F;
  } else {
    return std::any_of(word.begin(), word.end(), isFullWidth);
  }
}

// --- letters of a word ---

/// Index of the first character outside A to Z and 0 to 9; 0 if there is none or it is at index 0.
template <class View>
constexpr int upperCaseTest(View word) {
  for (std::size_t i = 0; i < word.size(); ++i)
    if (!isLabelMozi(word[i])) return static_cast<int>(i);
  return 0;
}
/// Index of the first letter a to z, or npos.  The second byte of a full-width character is not a letter.
template <class View>
constexpr std::size_t findSmall(View word) {
  for (std::size_t i = 0; i < word.size(); i += sizeOfMozi(word[i]))
    if (isSmall(word[i])) return i;
  return View::npos;
}
/// The same; 0 if there is none or it is at index 0.
template <class View>
constexpr int lowerCaseTest(View word) {
  const std::size_t at = findSmall(word);
  return at == View::npos ? 0 : static_cast<int>(at);
}

}  // namespace zelvaro
