// The steps of a DC line behind the rules of commas and blanks, in their order.  Each works on the cleaned operand text,
// operand buffer 0 of the line, or on the line's elements in vecOprndAtDC.
#pragma once

#include "MoziCode/Characters.h"
#include "data/Data.h"

namespace zelvaro {

/// Makes the line's elements, one an operand, and has CkDC33 check them: 1 after an Error, else 0.
template <class Family>
int TakeOutOprndsAtDC10(Assembly& a, SrcOf<Family>& line);
/// The checks by kind: the number of Errors.
template <class Family>
int CkDC33(Assembly& a, SrcOf<Family>& line);
/// Kind and number of words of each element; their sum becomes word_kazu.
template <class Family>
void SetWordKazuAtDC(Assembly& a, SrcOf<Family>& line);

/// Whether an operand says nothing: it is empty, or a sign or # alone.
template <class Char>
constexpr bool isEmptyConst(std::basic_string_view<Char> text) {
  return text.empty() || (text.size() == 1 && isSignOrHash(text[0]));
}

/// What an operand is by its first character; ConstKind::Const for one that is none of the kinds.
template <class Char>
constexpr ConstKind kindOfConst(std::basic_string_view<Char> text) {
  if (isEmptyConst(text)) return ConstKind::Const;
  const Char c = text[0];
  if (c == Char('#')) return ConstKind::Hex;
  if (c == Char('\'')) return ConstKind::CharConst;
  if (isDigit(c) || isSign(c)) return ConstKind::Dec;
  if (isCapital(c)) return ConstKind::AdrConst;
  return ConstKind::Const;
}

}  // namespace zelvaro
