// The kinds of an address constant, each decided by its first character: what CkAdrConst22 sends to.
#pragma once

#include "encode/Encode.h"
#include "structure/ZenKaku.h"

namespace zelvaro {

// Results of CkAdrConst22.  On any result but 0 the address pass builds no words for the line.
inline constexpr int kAdrNoOprndText = 1;    ///< no operand text
inline constexpr int kAdrNoOprnd = 2;        ///< no buffer for the operand
inline constexpr int kAdrBadLiteral = -1;    ///< bad number in a literal
inline constexpr int kAdrNoHexDigit = -2;    ///< "#" alone
inline constexpr int kAdrBadDecimal = -4;    ///< bad decimal number
inline constexpr int kAdrInvalid = -5;       ///< no address constant at all
inline constexpr int kAdrTooLong = -7;       ///< name too long
inline constexpr int kAdrUndefined = -8;     ///< name that nothing carries
inline constexpr int kAdrFewHexDigits = -9;  ///< hexadecimal number too short

/// A name: the other programs of the file first, then the labels of the line's own program.
template <class Family>
int CkAdrName(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p);
/// A hexadecimal number, "#" in front.  n is the operand's number, only printed.
template <class Family>
int CkAdrHex(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p, int n);
/// A decimal number without a sign, and one with a sign.
template <class Family>
int CkAdrDec(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p);
template <class Family>
int CkAdrSignedDec(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p);
/// The number of a literal, "=" in front; n is only printed.  Builds the literal's record.
template <class Family>
int CkAdrLiteralHex(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p, int n);
template <class Family>
int CkAdrLiteralDec(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p, int n);

/// The literal record of a line, made at the first call and kept with its addresses from then on.
template <class Char>
AdrConst<Char>& literalOf(LineStore<Char>& store, SrcData<Char>& line) {
  if (line.LiteralNr < 0) {
    line.LiteralNr = static_cast<std::int32_t>(store.vecAdrConst.size());
    store.vecAdrConst.emplace_back();
  }
  return *store.literal(line);
}

}  // namespace zelvaro
