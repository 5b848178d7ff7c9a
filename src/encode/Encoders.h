// What the encoders and the register checks share: tests of texts that look like a register, and the
// messages that stand in files of their own.
#pragma once

#include "encode/Encode.h"

namespace zelvaro {

/// G, R and a digit from 0 to `most`; nothing is said about what follows.
template <class View>
constexpr bool beginsLikeRegister(View s, char most = '7') {
  using Char = typename View::value_type;
  return s.size() >= 3 && s[0] == Char('G') && s[1] == Char('R') && s[2] >= Char('0') && s[2] <= Char(most);
}
/// G, R and 8 or 9: no register, though many a learner takes it for one.
template <class View>
constexpr bool beginsLikeGR89(View s) {
  return beginsLikeRegister(s, '9') && !beginsLikeRegister(s);
}
/// The number of a text that begins like a register.
template <class View>
constexpr int registerNumber(View s) {
  return digitValue(s[2]);
}
/// The same buffer without text.  "No buffer" would be another thing.
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

/// Whether operand 1 is exactly a register, with or without a comma behind it.  The first form, for
/// instructions with a register there, reports a missing comma; the second one, for addresses and POP, what
/// is wrong with a register or its comma.
template <class Family>
bool GRxLabelAll(Assembly& a, const SrcOf<Family>& line);
template <class Family>
bool GRxLabelAll(Assembly& a, const SrcOf<Family>& line, Op op);

/// Explains a bad first operand.
template <class Family>
void AnalystNW(Assembly& a, const SrcOf<Family>& line, ViewOf<Family> text);
/// Explains a bad index register in operand n.
template <class Family>
void AnalystIndexReg(Assembly& a, const SrcOf<Family>& line, int n);

/// The instruction does not take r1,r2.  Counts nothing: the caller does.
template <class Family>
void DspSyntaxErrorMsg(Assembly& a, const SrcOf<Family>& line);

/// A missing operand, in the words of the mnemonic.
template <class Family>
void MissingFirstOprnd(Assembly& a, const SrcOf<Family>& line);
template <class Family>
void MissingSecondOprnd(Assembly& a, const SrcOf<Family>& line);

}  // namespace zelvaro
