// The place of a house rule: DC and DS behind all instructions of a program.  The language does not ask for
// it, so no source is refused.
#include "statements/Statements.h"

namespace zelvaro {

template <class Family>
int DetDefLine(Assembly&, int) {
  return 0;
}

#define ZELVARO_INSTANTIATE(F) template int DetDefLine<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
