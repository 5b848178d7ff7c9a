// The kinds of an address constant, decided by the first character: the functions that CkAdrConst22 calls.
#pragma once

#include "encode/Encode.h"
#include "structure/ZenKaku.h"

namespace zelvaro {

// Each puts the value into Word2; false after an Error: the address pass builds no words for the line then.

/// A name: the other programs of the file first, then the labels of the line's own program.
template <class Char>
bool CkAdrName(Assembly& a, SrcData<Char>& line, ViewOf<Char> p);
/// A hexadecimal number that begins with "#".  n is the operand's number, only printed.
template <class Char>
bool CkAdrHex(Assembly& a, SrcData<Char>& line, ViewOf<Char> p, int n);
/// A decimal number without a sign, and one with a sign.
template <class Char>
bool CkAdrDec(Assembly& a, SrcData<Char>& line, ViewOf<Char> p);
template <class Char>
bool CkAdrSignedDec(Assembly& a, SrcData<Char>& line, ViewOf<Char> p);
/// The number of a literal that begins with "="; n is only printed.  Builds the literal's record.
template <class Char>
bool CkAdrLiteralHex(Assembly& a, SrcData<Char>& line, ViewOf<Char> p, int n);
template <class Char>
bool CkAdrLiteralDec(Assembly& a, SrcData<Char>& line, ViewOf<Char> p, int n);

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
