// The encoders and the checks of operands.  `line` is a line record of the program with index `line.PrgNr`.
#pragma once

#include "MoziCode/Characters.h"
#include "diag/Family.h"
#include "encode/Instructions.h"
#include "source/Assembly.h"

namespace zelvaro {

template <class Family>
using SrcOf = SrcData<CharOf<Family>>;

/// Runs the encoder of the line's instruction (classes with form Both, Memory, Branch, Single): checks the
/// operands, writes Word1 and word_kazu.  Faults go to the tallies of `cs`.
template <class Family>
void encode(Assembly& a, SrcOf<Family>& line);

/// First operand of NOP, RET, END, RPUSH, RPOP: reports one if there is one.  True if it reported.
template <class Family>
bool OpNoOperand(Assembly& a, SrcOf<Family>& line);

// --- register operands; n counts operands from 1 ---
/// First operand; each returns the Errors that `cs` has counted so far.
template <class Family>
int CkOpTypeOprndOneRegister(Assembly& a, SrcOf<Family>& line);
template <class Family>
int CkOpTypeOprndOneAddress(Assembly& a, SrcOf<Family>& line);
template <class Family>
int CkOpTypeOprndOnePop(Assembly& a, SrcOf<Family>& line);
/// Second register of the form r1,r2: 0, or 1 after an Error.
template <class Family>
int r2(Assembly& a, SrcOf<Family>& line);
/// Optional index register in operand n.
template <class Family>
void RegX(Assembly& a, SrcOf<Family>& line, int n);
/// GR8 or GR9 as second operand of LAD.
template <class Family>
void AnalystGR89(Assembly& a, SrcOf<Family>& line);

// --- address operands ---
/// Shape of operand n as an address; on success word_kazu is 2, Word2 is 0 and its comma is cut.
template <class Family>
void CkAdrOperand(Assembly& a, SrcOf<Family>& line, int n);
/// Resolves operand n in the address pass: 0 and Word2 is set, or negative after an Error.
template <class Family>
int CkAdrConst22(Assembly& a, SrcOf<Family>& line, int n);
/// Resolves the operand of START: 0 if Word1 and Word2 are set, 1 after an Error.
template <class Family>
int CkStartAdrOperand(Assembly& a, int prg, SrcOf<Family>& line);

// --- numbers of literals; k0 is only printed ---
template <class Family>
int CkDecConstG(TCorrectScode& cs, int line, int k0, ViewOf<Family> text);
template <class Family>
int DecStrToIntG(TCorrectScode& cs, int line, int k0, ViewOf<Family> text);
template <class Family>
int CkHexConstG(TCorrectScode& cs, int line, int k0, ViewOf<Family> text);
template <class Family>
int HexStrToIntG(TCorrectScode& cs, int line, int k0, ViewOf<Family> text);
/// Builds the record of a character literal: 0 on success.
template <class Family>
int SetLiteCharConstMryIn(Assembly& a, SrcOf<Family>& line, ViewOf<Family> oprnd);

/// A decimal text, an optional sign in front, as a 32-bit number; saturates.  Stops at the first other
/// character.
template <class View>
constexpr int decimalValue(View text) {
  std::size_t i = 0;
  bool negative = false;
  if (i < text.size() && isSign(text[i])) negative = text[i++] == '-';
  long long value = 0;
  for (; i < text.size() && isDigit(text[i]); ++i) {
    value = value * 10 + digitValue(text[i]);
    if (value > 0x80000000LL) value = 0x80000000LL;
  }
  if (negative) return static_cast<int>(-value);
  return static_cast<int>(value > 0x7FFFFFFFLL ? 0x7FFFFFFFLL : value);
}

// --- character constants: a text that begins with an apostrophe ---
/// Calls put(unit) for each UTF-16 code unit of the constant that begins at text[0]; a doubled apostrophe
/// is one.  Narrow text is converted first, so the words are the same in every family.
template <class Char, class Put>
void forEachCharConstWord(std::basic_string_view<Char> text, Put put);
/// Words of a character constant (CountWordKazuAtCharConst_NAWCS).
template <class Char>
int CountWordKazuAtCharConst(std::basic_string_view<Char> text);

}  // namespace zelvaro

#include "encode/CharConst.h"
