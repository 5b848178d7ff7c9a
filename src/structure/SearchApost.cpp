// SearchApostForNonCharConstOP: removes the rest of a comment, from a ';' inside quotes on, from the operand
// text of START.
#include "structure/Structure.h"

namespace zelvaro {

template <class Char>
void SearchApostForNonCharConstOP(Assembly& a, int prg) {
  // a line with the opcode START begins a program, so only the first line can have it
  auto& line = a.store<Char>()[a.program<Char>(prg).RecStart];
  if (equals(line.OpStr, "START"))
    line.OprndComStr = line.OprndComStr.substr(0, line.OprndComStr.find(Char(';')));
}

template void SearchApostForNonCharConstOP<char16_t>(Assembly&, int);
template void SearchApostForNonCharConstOP<char>(Assembly&, int);

}  // namespace zelvaro
