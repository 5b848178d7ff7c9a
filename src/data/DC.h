// The steps of a DC line after the rules of commas and blanks, in their order.  Each works on the cleaned
// operand text, operand buffer 0 of the line, or on the line's elements in vecOprndAtDC.
#pragma once

#include "MoziCode/Characters.h"
#include "data/Data.h"
#include "encode/ConstForm.h"

namespace zelvaro {

/// Makes the line's elements, one per operand, and calls CkDC33 to check them: false after an Error.
template <class Char>
bool TakeOutOprndsAtDC10(Assembly& a, SrcData<Char>& line);
/// The checks by kind: the number of Errors.
template <class Char>
int CkDC33(Assembly& a, SrcData<Char>& line);
/// Kind and number of words of each element; their sum becomes word_kazu.
template <class Char>
void SetWordKazuAtDC(Assembly& a, SrcData<Char>& line);

/// Whether an operand has no content: it is empty, or a sign or # alone.
template <class Char>
constexpr bool isEmptyConst(std::basic_string_view<Char> text) {
  return text.empty() || (text.size() == 1 && isSignOrHash(text[0]));
}

/// The kind of an operand by its first character; ConstKind::Const if it is none of the kinds.
template <class Char>
constexpr ConstKind kindOfConst(std::basic_string_view<Char> text) {
  if (isEmptyConst(text)) return ConstKind::Const;
  switch (formOfConst(text)) {
    case ConstForm::Hex:
      return ConstKind::Hex;
    case ConstForm::Character:
      return ConstKind::CharConst;
    case ConstForm::Decimal:
    case ConstForm::SignedDecimal:
    case ConstForm::Sign:
      return ConstKind::Dec;
    case ConstForm::Name:
      return ConstKind::AdrConst;
    default:
      return ConstKind::Const;
  }
}

}  // namespace zelvaro
