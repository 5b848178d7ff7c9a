// The steps of the link that fill the machine.
#pragma once

#include "link/Link.h"

namespace zelvaro {

/// Fills LineOfAddress of `m` over all programs.  The address pass has given every line its address.
template <class Char>
void SetLineOfAddress(Assembly& a, Tcomet2& m);
/// Copies the words of one program to the memory of `m`.  False if an Error has ended the copy.
template <class Char>
bool SetMemory10(Assembly& a, Tcomet2& m, int prg);

}  // namespace zelvaro
