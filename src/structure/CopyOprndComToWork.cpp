// From here on the working text is the operand text; what the sign checks and the comment split change in
// it reaches no later stage.
#include "structure/Structure.h"

namespace zelvaro {

template <class Family>
void CopyOprndComToWork(Assembly& a, int prg) {
  for (auto& line : a.store<Family>().linesBeforeEnd(a.program<Family>(prg))) line.SrcWork = line.OprndComStr;
}

#define ZELVARO_INSTANTIATE(F) template void CopyOprndComToWork<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
