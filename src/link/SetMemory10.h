// The steps of the link that fill the machine.
#pragma once

#include "link/Link.h"

namespace zelvaro {

/// Fills LineOfAddress of `m` over all programs.  The address pass has given every line its address.
template <class Family>
void SetLineOfAddress(Assembly& a, Tcomet2& m);
/// Copies the words of one program into the memory of `m`: 0, or negative after an Error.
template <class Family>
int SetMemory10(Assembly& a, Tcomet2& m, int prg);

}  // namespace zelvaro
