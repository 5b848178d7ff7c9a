// dcdsWordKazu40: the addresses of a program's lines from their numbers of words, before the constants and
// the address pass, so that every label of the program is known when an operand names it.
#include "link/Layout.h"
#include "link/Link.h"

namespace zelvaro {

template <class Char>
void dcdsWordKazu40(Assembly& a, int prg) {
  const PrgData<Char>& program = a.program<Char>(prg);
  const auto lines = a.store<Char>().linesBeforeEnd(program);
  std::int32_t rel = 0;
  for (const bool data : {false, true}) {
    for (SrcData<Char>& line : lines) {
      if (isDcOrDs(opOf(line)) != data) continue;
      line.RelAdr = rel;
      line.AbAdr = program.AbAdrAtStart + rel;
      rel += line.word_kazu;
    }
  }
}

template void dcdsWordKazu40<char16_t>(Assembly&, int);
template void dcdsWordKazu40<char>(Assembly&, int);

}  // namespace zelvaro
