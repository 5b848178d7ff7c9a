// SearchApostForNonCharConstOP: cuts what is left of a comment, a ';' inside quotes, off the operand text
// of START.
#include "structure/Structure.h"

namespace zelvaro {

template <class Family>
void SearchApostForNonCharConstOP(Assembly& a, int prg) {
  using Char = CharOf<Family>;
  // a line with the opcode START begins a program, so no line behind the first one can have it
  auto& line = a.store<Family>()[a.program<Family>(prg).RecStart];
  if (equals(line.OpStr, "START"))
    line.OprndComStr = line.OprndComStr.substr(0, line.OprndComStr.find(Char(';')));
}

#define ZELVARO_INSTANTIATE(F) template void SearchApostForNonCharConstOP<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
