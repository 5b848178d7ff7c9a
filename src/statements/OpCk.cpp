// The dispatch: every line goes to the handler of its opcode.  A handler reports its own faults, and the walk
// goes on with the next line whatever it found.
#include "data/Data.h"
#include "macro/Macro.h"
#include "statements/Statements.h"

namespace zelvaro {
namespace {

/// NOP, RET and END.
template <class Family>
void noOprnd(Assembly& a, SrcOf<Family>& line) {
  if (!line.hasOprnd(1) || OpNoOperand<Family>(a, line)) return;
  line.OprndKazu = 0;
  line.word_kazu = 1;
  line.Word1 = firstWord(instruction(opOf(line)).adrCode);
  line.Word2 = 0;
}

template <class Family>
void dispatch(Assembly& a, SrcOf<Family>& line) {
  switch (instruction(opOf(line)).form) {
    case OpForm::Both:
    case OpForm::Memory:
    case OpForm::Branch:
    case OpForm::Single:
      return encode<Family>(a, line);
    case OpForm::Data:
      return opOf(line) == Op::DC ? dispatchDC<Family>(a, line) : dispatchDS<Family>(a, line);
    case OpForm::InOut:
      return macro2<Family>(a, line);
    case OpForm::Regs:
      return macroR2<Family>(a, line);
    case OpForm::None:
    case OpForm::End:
      return noOprnd<Family>(a, line);
    case OpForm::Start:
      line.word_kazu = line.Oprnd[1].empty() ? 1 : 2;
      return;
  }
}

}  // namespace

template <class Family>
void OpCk(Assembly& a, int prg) {
  for (SrcOf<Family>& line : a.store<Family>().linesWithEnd(a.program<Family>(prg)))
    if (line.OpNr >= 0) dispatch<Family>(a, line);
}

#define ZELVARO_INSTANTIATE(F) template void OpCk<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
