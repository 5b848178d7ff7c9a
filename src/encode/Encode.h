// The encoders and the checks of operands.  `line` is a line record of the program with index `line.PrgNr`.
#pragma once

#include "MoziCode/Characters.h"
#include "encode/Instructions.h"
#include "source/Assembly.h"

namespace zelvaro {

/// The instruction of a line; Op::Unknown before recognition and on a line without an opcode.
template <class Char>
Op opOf(const SrcData<Char>& line) {
  return static_cast<Op>(line.OpNr);
}

/// Runs the encoder of the line's instruction (classes with form Both, Memory, Branch, Single): checks the
/// operands, writes Word1 and word_kazu.  Errors are counted in the tallies of `cs`.
template <class Char>
void encode(Assembly& a, SrcData<Char>& line);

/// First operand of NOP, RET, END, RPUSH, RPOP: reports one if there is one.  True if it reported.
template <class Char>
bool OpNoOperand(Assembly& a, SrcData<Char>& line);

// --- register operands; n counts operands from 1 ---
/// First operand; each returns whether `cs` has counted no Error so far.
template <class Char>
bool CkOpTypeOprndOneRegister(Assembly& a, SrcData<Char>& line);
template <class Char>
bool CkOpTypeOprndOneAddress(Assembly& a, SrcData<Char>& line);
template <class Char>
bool CkOpTypeOprndOnePop(Assembly& a, SrcData<Char>& line);
/// Second register of the form r1,r2; false after an Error.
template <class Char>
bool r2(Assembly& a, SrcData<Char>& line);
/// Optional index register in operand n.
template <class Char>
void RegX(Assembly& a, SrcData<Char>& line, int n);
/// GR8 or GR9 as second operand of LAD.
template <class Char>
void AnalystGR89(Assembly& a, SrcData<Char>& line);

// --- address operands ---
/// Shape of operand n as an address; on success word_kazu is 2, Word2 is 0 and its comma is cut.
template <class Char>
void CkAdrOperand(Assembly& a, SrcData<Char>& line, int n);
/// Resolves operand n in the address pass: true and Word2 is set, or false.
template <class Char>
bool CkAdrConst22(Assembly& a, SrcData<Char>& line, int n);
/// Resolves the operand of START: true if Word1 and Word2 are set, false after an Error.
template <class Char>
bool CkStartAdrOperand(Assembly& a, int prg, SrcData<Char>& line);

// --- numbers of literals; k0 is only printed ---
/// Whether the text is a number of its kind; reported if not.
template <class Char>
bool CkDecConstG(Assembly& a, int line, int k0, ViewOf<Char> text);
template <class Char>
bool CkHexConstG(Assembly& a, int line, int k0, ViewOf<Char> text);
/// Its value; one out of range is reported.
template <class Char>
int DecStrToIntG(Assembly& a, int line, int k0, ViewOf<Char> text);
template <class Char>
int HexStrToIntG(Assembly& a, int line, int k0, ViewOf<Char> text);
/// Builds the record of a character literal; false after an Error.
template <class Char>
bool SetLiteCharConstMryIn(Assembly& a, SrcData<Char>& line, ViewOf<Char> oprnd);

/// A decimal text with an optional sign as a 32-bit number; saturates.  Stops at the first other character.
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
