// The address pass, the link and the filling of the machine's memory.
#pragma once

#include "comet2/Comet2.h"
#include "encode/Encode.h"

namespace zelvaro {

/// The address pass over one program; runs once behind its checks and once in the link.
template <class Family>
void AdrCk53(Assembly& a, int prg);
/// The fixed form: addresses for the lines of a program ahead of its constants and its address pass, and
/// whether its words fit into the memory.
template <class Family>
void dcdsWordKazu40(Assembly& a, int prg);
template <class Family>
void CkMaxMemory(Assembly& a, int prg);
/// 0, or -2 when the image is too large.
template <class Family>
int CkMaxMrySize(Assembly& a);
/// Links all programs into the memory of `m`: 0; -1 - index of the program that gave errors; -2.
template <class Family>
int Link31(Assembly& a, Tcomet2& m);

}  // namespace zelvaro
