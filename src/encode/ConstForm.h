// What a constant is by its first characters: the one classification that the checks of address constants,
// literals, operands of DC and of IN and OUT use.  Each check has its own rules and words for a form.
#pragma once

#include <cstdint>
#include <string_view>

#include "MoziCode/Characters.h"

namespace zelvaro {

enum class ConstForm : std::uint8_t {
  None,           ///< no text
  Name,           ///< a capital letter first: a label or a program's name
  Decimal,        ///< a digit first
  SignedDecimal,  ///< a sign and a digit
  Sign,           ///< a sign, and no digit after it
  Hex,            ///< # first
  Character,      ///< an apostrophe first: a character constant
  Literal,        ///< = first: what follows it is classified by itself
  Other
};

template <class Char>
constexpr ConstForm formOfConst(std::basic_string_view<Char> text) {
  if (text.empty()) return ConstForm::None;
  const Char c = text.front();
  if (isCapital(c)) return ConstForm::Name;
  if (isDigit(c)) return ConstForm::Decimal;
  if (isSign(c)) return text.size() > 1 && isDigit(text[1]) ? ConstForm::SignedDecimal : ConstForm::Sign;
  if (c == Char('#')) return ConstForm::Hex;
  if (c == Char('\'')) return ConstForm::Character;
  return c == Char('=') ? ConstForm::Literal : ConstForm::Other;
}

}  // namespace zelvaro
