// Shared by the encoders and the register checks: tests of texts that look like a register, and messages with
// a file of their own.
#pragma once

#include "encode/Encode.h"

namespace zelvaro {

/// G, R and a digit from 0 to `most`; any text may follow.
template <class View>
constexpr bool beginsLikeRegister(View s, char most = '7') {
  using Char = typename View::value_type;
  return s.size() >= 3 && s[0] == Char('G') && s[1] == Char('R') && s[2] >= Char('0') && s[2] <= Char(most);
}
/// G, R and 8 or 9: not a register, although learners may think so.
template <class View>
constexpr bool beginsLikeGR89(View s) {
  return beginsLikeRegister(s, '9') && !beginsLikeRegister(s);
}
/// The register number of a text that begins like a register.
template <class View>
constexpr int registerNumber(View s) {
  return digitValue(s[2]);
}
/// The same buffer without text, which is not the same as "no buffer".
template <class View>
constexpr View emptied(View buffer) {
  return buffer.substr(0, 0);
}
template <class View>
constexpr bool endsInComma(View s) {
  return !s.empty() && s.back() == ',';
}

template <class Char>
constexpr std::string_view mnemonicOf(const SrcData<Char>& line) {
  return instruction(opOf(line)).mnemonic;
}

/// Whether operand 1 is exactly a register, with or without a comma after it.  The first form, for
/// instructions with a register there, reports a missing comma; the second one, for addresses and POP,
/// reports a wrong register or comma.
template <class Char>
bool GRxLabelAll(Assembly& a, const SrcData<Char>& line);
template <class Char>
bool GRxLabelAll(Assembly& a, const SrcData<Char>& line, Op op);

/// Explains a bad first operand.
template <class Char>
void AnalystNW(Assembly& a, const SrcData<Char>& line, ViewOf<Char> text);
/// Explains a bad index register in operand n.
template <class Char>
void AnalystIndexReg(Assembly& a, const SrcData<Char>& line, int n);

/// The instruction does not take r1,r2.  Counts nothing: the caller does.
template <class Char>
void DspSyntaxErrorMsg(Assembly& a, const SrcData<Char>& line);

/// Reports a missing operand with the mnemonic's own message.
void MissingFirstOprnd(Assembly& a, int line);
void MissingSecondOprnd(Assembly& a, Op op, int line);

}  // namespace zelvaro
