// Completes the operand fields of a line after the extraction, as its opcode requires.
#include "data/Data.h"
#include "statements/Statements.h"

namespace zelvaro {
namespace {

template <class Char>
void completeLine(Assembly& a, SrcData<Char>& line) {
  switch (opOf(line)) {
    case Op::DC:
      OprndAtDCtoChH(a, line);
      break;
    case Op::RET:
    case Op::NOP:
      line.word_kazu = 1;
      break;
    default:
      break;
  }
}

}  // namespace

template <class Char>
void ExtractAllOprnds(Assembly& a, int prg) {
  for (SrcData<Char>& line : a.store<Char>().linesBeforeEnd(a.program<Char>(prg))) completeLine(a, line);
}

template void ExtractAllOprnds<char16_t>(Assembly&, int);
template void ExtractAllOprnds<char>(Assembly&, int);

}  // namespace zelvaro
