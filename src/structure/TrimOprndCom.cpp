// Trims the operand text.
#include "structure/Structure.h"

namespace zelvaro {

template <class Family>
void TrimOprndCom(Assembly& a, int prg) {
  for (auto& line : a.store<Family>().linesBeforeEnd(a.program<Family>(prg)))
    line.OprndComStr = trim(line.OprndComStr);
}

#define ZELVARO_INSTANTIATE(F) template void TrimOprndCom<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
