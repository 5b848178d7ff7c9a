// dcdsWordKazu40: the addresses of a program's lines from their numbers of words, ahead of the constants
// and of the address pass, so that every label of the program is known when an operand names it.
#include "link/Layout.h"
#include "link/Link.h"

namespace zelvaro {

template <class Family>
void dcdsWordKazu40(Assembly& a, int prg) {
  const PrgData<CharOf<Family>>& program = a.program<Family>(prg);
  const auto lines = a.store<Family>().linesBeforeEnd(program);
  std::int32_t rel = 0;
  for (const bool data : {false, true}) {
    for (SrcOf<Family>& line : lines) {
      if (isDcOrDs(opOf(line)) != data) continue;
      line.RelAdr = rel;
      line.AbAdr = program.AbAdrAtStart + rel;
      rel += line.word_kazu;
    }
  }
}

#define ZELVARO_INSTANTIATE(F) template void dcdsWordKazu40<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
