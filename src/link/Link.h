// The address pass, the link and the filling of the machine's memory.
#pragma once

#include "comet2/Comet2.h"
#include "encode/Encode.h"

namespace zelvaro {

/// The address pass over one program; runs once after its checks and once in the link.
template <class Char>
void AdrCk53(Assembly& a, int prg);
/// The fixed form: addresses for the lines of a program before its constants and its address pass, and
/// whether its words fit into the memory.
template <class Char>
void dcdsWordKazu40(Assembly& a, int prg);
template <class Char>
void CkMaxMemory(Assembly& a, int prg);
/// Whether the words of all programs fit.
template <class Char>
void CkMaxMrySize(Assembly& a);
/// Links all programs into the memory of `m`, and gives `b` the first program's name.
template <class Char>
void Link31(Assembly& a, Tcomet2& m);

}  // namespace zelvaro
