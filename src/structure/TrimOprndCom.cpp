// Trims the operand text.
#include "structure/Structure.h"

namespace zelvaro {

template <class Char>
void TrimOprndCom(Assembly& a, int prg) {
  for (auto& line : a.store<Char>().linesBeforeEnd(a.program<Char>(prg)))
    line.OprndComStr = trim(line.OprndComStr);
}

template void TrimOprndCom<char16_t>(Assembly&, int);
template void TrimOprndCom<char>(Assembly&, int);

}  // namespace zelvaro
