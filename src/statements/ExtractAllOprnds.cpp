// Completes the operand fields of a line as its opcode asks for it, behind the extraction.
#include "data/Data.h"
#include "statements/Statements.h"

namespace zelvaro {
namespace {

template <class Char>
void complete(SrcData<Char>& line, int oprndKazu) {
  line.OprndKazu = oprndKazu;
  line.word_kazu = 1;
}

template <class Family>
void completeLine(Assembly& a, SrcOf<Family>& line) {
  switch (opOf(line)) {
    case Op::SVC:
      line.word_kazu = 2;
      break;
    case Op::DC:
      OprndAtDCtoChH<Family>(a, line);
      break;
    case Op::POP:
    case Op::DS:
      complete(line, 1);
      line.Word2 = 0;
      break;
    case Op::RPUSH:
    case Op::RPOP:
    case Op::RET:
    case Op::NOP:
      complete(line, 0);
      break;
    case Op::START:
      complete(line, 0);
      line.Word1 = line.Word2 = 0;
      break;
    default:
      break;
  }
}

}  // namespace

template <class Family>
void ExtractAllOprnds(Assembly& a, int prg) {
  for (SrcOf<Family>& line : a.store<Family>().linesBeforeEnd(a.program<Family>(prg)))
    completeLine<Family>(a, line);
}

#define ZELVARO_INSTANTIATE(F) template void ExtractAllOprnds<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
