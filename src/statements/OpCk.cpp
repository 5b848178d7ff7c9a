// The dispatch: calls the handler of each line's opcode.  A handler reports its own faults; the next line
// follows in any case.
#include "data/Data.h"
#include "macro/Macro.h"
#include "statements/Statements.h"

namespace zelvaro {
namespace {

/// NOP, RET and END.
template <class Char>
void noOprnd(Assembly& a, SrcData<Char>& line) {
  if (!line.hasOprnd(1) || OpNoOperand(a, line)) return;
  line.word_kazu = 1;
  line.Word1 = firstWord(instruction(opOf(line)).adrCode);
  line.Word2 = 0;
}

template <class Char>
void dispatch(Assembly& a, SrcData<Char>& line) {
  switch (instruction(opOf(line)).form) {
    case OpForm::Both:
    case OpForm::Memory:
    case OpForm::Branch:
    case OpForm::Single:
      return encode(a, line);
    case OpForm::Data:
      return opOf(line) == Op::DC ? dispatchDC(a, line) : dispatchDS(a, line);
    case OpForm::InOut:
      return macro2(a, line);
    case OpForm::Regs:
      return macroR2(a, line);
    case OpForm::None:
    case OpForm::End:
      return noOprnd(a, line);
    case OpForm::Start:
      line.word_kazu = line.Oprnd[1].empty() ? 1 : 2;
      return;
  }
}

}  // namespace

template <class Char>
void OpCk(Assembly& a, int prg) {
  for (SrcData<Char>& line : a.store<Char>().linesWithEnd(a.program<Char>(prg)))
    if (line.OpNr >= 0) dispatch(a, line);
}

template void OpCk<char16_t>(Assembly&, int);
template void OpCk<char>(Assembly&, int);

}  // namespace zelvaro
