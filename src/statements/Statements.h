// The statement analysis: opcode recognition, operand extraction and dispatch.
#pragma once

#include "encode/Encode.h"

namespace zelvaro {

template <class Char>
void CkOpStr(Assembly& a, int prg);
template <class Char>
void DetDefLine(Assembly& a, int prg);  ///< the place of a style rule; refuses nothing
template <class Char>
void CopyOprndComStrToBuffer(Assembly& a, int prg);  ///< operand buffer 0 takes the cleaned text
template <class Char>
void operand20m15(Assembly& a, int prg);
template <class Char>
void ExtractAllOprnds(Assembly& a, int prg);
template <class Char>
void OpCk(Assembly& a, int prg);

}  // namespace zelvaro
