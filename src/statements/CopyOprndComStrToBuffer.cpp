// The operand buffers come into being: 0 with the cleaned operand text, as far as the family reads it, 1 to
// 4 without text.
#include "statements/Statements.h"

namespace zelvaro {

template <class Family>
void CopyOprndComStrToBuffer(Assembly& a, int prg) {
  LineStore<CharOf<Family>>& store = a.store<Family>();
  const PrgData<CharOf<Family>>& p = a.program<Family>(prg);
  for (SrcOf<Family>& line : store.linesWithEnd(p)) {
    if (line.OpStr.empty()) continue;
    line.Oprnd.fill(line.OpStr.substr(line.OpStr.size()));
  }
  for (SrcOf<Family>& line : store.linesBeforeEnd(p))
    if (!line.OpStr.empty() && !line.OprndComStr.empty())
      line.Oprnd[0] = line.OprndComStr.substr(0, Family::oprndText);
}

#define ZELVARO_INSTANTIATE(F) template void CopyOprndComStrToBuffer<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
