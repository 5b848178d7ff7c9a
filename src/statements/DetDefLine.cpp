// The place of a house rule: DC and DS behind all instructions of a program.  The language does not ask for
// it, so no source is refused.
#include "statements/Statements.h"

namespace zelvaro {

template <class Char>
void DetDefLine(Assembly&, int) {}

template void DetDefLine<char16_t>(Assembly&, int);
template void DetDefLine<char>(Assembly&, int);

}  // namespace zelvaro
