// From here on the working text is the operand text; what the sign checks and the comment split change in
// it reaches no later stage.
#include "structure/Structure.h"

namespace zelvaro {

template <class Char>
void CopyOprndComToWork(Assembly& a, int prg) {
  for (auto& line : a.store<Char>().linesBeforeEnd(a.program<Char>(prg))) line.SrcWork = line.OprndComStr;
}

template void CopyOprndComToWork<char16_t>(Assembly&, int);
template void CopyOprndComToWork<char>(Assembly&, int);

}  // namespace zelvaro
