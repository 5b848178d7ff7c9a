// Creates the operand buffers: 0 with the cleaned operand text, up to the family's length, 1 to 4 without
// text.
#include "statements/Statements.h"

namespace zelvaro {

template <class Char>
void CopyOprndComStrToBuffer(Assembly& a, int prg) {
  LineStore<Char>& store = a.store<Char>();
  const PrgData<Char>& p = a.program<Char>(prg);
  for (SrcData<Char>& line : store.linesWithEnd(p)) {
    if (line.OpStr.empty()) continue;
    line.Oprnd.fill(line.OpStr.substr(line.OpStr.size()));
  }
  for (SrcData<Char>& line : store.linesBeforeEnd(p))
    if (!line.OpStr.empty() && !line.OprndComStr.empty())
      line.Oprnd[0] = line.OprndComStr.substr(0, a.family.oprndLength);
}

template void CopyOprndComStrToBuffer<char16_t>(Assembly&, int);
template void CopyOprndComStrToBuffer<char>(Assembly&, int);

}  // namespace zelvaro
