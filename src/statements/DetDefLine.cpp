// The place of a style rule: DC and DS after all instructions of a program.  The language does not require
// it, so no source is refused.
#include "statements/Statements.h"

namespace zelvaro {

template <class Char>
void DetDefLine(Assembly&, int) {}

template void DetDefLine<char16_t>(Assembly&, int);
template void DetDefLine<char>(Assembly&, int);

}  // namespace zelvaro
