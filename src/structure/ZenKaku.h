// The analysers for full-width spaces and characters.  Each looks for one cause of a fault that has been
// found already and adds a message that names it; none of them repairs anything.
#pragma once

#include "MoziCode/Cp932.h"
#include "diag/Family.h"
#include "source/Assembly.h"

namespace zelvaro {

/// The full-width space: one character of wide text, two bytes of narrow text.
template <class Char>
constexpr std::basic_string_view<Char> zenKakuSpace() {
  if constexpr (sizeof(Char) == 1) {
    return "\x81\x40";
  } else {
    return u"\u3000";
  }
}
/// How many elements of a text the character takes that begins with `c`.
template <class Char>
constexpr std::size_t sizeOfMozi(Char c) {
  if constexpr (sizeof(Char) == 1) return isCp932Lead(c) ? 2 : 1;
  return 1;
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

/// A full-width space in a word: label, program name, opcode or operand.  Non-zero if it reported.
template <class Family>
int AnalystZenKSpace20NW(TMsgBase& owner, int line, ViewOf<Family> word);
/// The same for an undefined address constant and the operand of START, in other words.
template <class Family>
int AnalystZenKSpace20(TMsgBase& owner, ViewOf<Family> word, int line);
/// A full-width character in an address constant.
template <class Family>
int AnalystZenKMozi(TMsgBase& owner, ViewOf<Family> word, int line);
/// A full-width character in the operand of START.
template <class Family>
int AnalystZenKakuMoziStr(TMsgBase& owner, int line, ViewOf<Family> word);
/// The index of the first character outside A to Z and 0 to 9, or -1; with `report` it is told.
template <class Family>
int DetNonLabelMoziPos(TMsgBase& owner, int line, ViewOf<Family> word, bool report);

/// The scanners for START and END over the whole file.
template <class Family>
void DetSTARTatZenKakuSpace(Assembly& a);
template <class Family>
void DetENDatZenKakuSpace(Assembly& a);
template <class Family>
void CkSTART_LR(Assembly& a);
template <class Family>
void CkEnd_LR(Assembly& a);

/// Index of the first character outside A to Z and 0 to 9; 0 if there is none or it stands at index 0.
template <class View>
constexpr int upperCaseTest(View word);
/// Index of the first letter a to z, or npos.  The second byte of a full-width character is no letter.
template <class View>
constexpr std::size_t findSmall(View word);
/// The same; 0 if there is none or it stands at index 0.
template <class View>
constexpr int lowerCaseTest(View word);

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
template <class Char>
constexpr bool isLabelMozi(Char c) {
  return isCapital(c) || isDigit(c);
}
template <class Char>
constexpr bool isHexDigit(Char c) {
  return isDigit(c) || (c >= Char('A') && c <= Char('F'));
}

template <class View>
constexpr int upperCaseTest(View word) {
  for (std::size_t i = 0; i < word.size(); ++i)
    if (!isLabelMozi(word[i])) return static_cast<int>(i);
  return 0;
}
template <class View>
constexpr std::size_t findSmall(View word) {
  for (std::size_t i = 0; i < word.size(); i += sizeOfMozi(word[i]))
    if (isSmall(word[i])) return i;
  return View::npos;
}
template <class View>
constexpr int lowerCaseTest(View word) {
  const std::size_t at = findSmall(word);
  return at == View::npos ? 0 : static_cast<int>(at);
}

}  // namespace zelvaro
