// The statement analysis: the row of stages over the lines of each program, opcode recognition, operand
// extraction and dispatch.
#pragma once

#include "encode/Encode.h"

namespace zelvaro {

template <class Family>
int CkOpStr(Assembly& a, int prg);
template <class Family>
int DetDefLine(Assembly& a, int prg);  ///< the place of a house rule; refuses nothing
template <class Family>
void CopyOprndComStrToBuffer(Assembly& a, int prg);  ///< operand buffer 0 takes the cleaned text
template <class Family>
void operand20m15(Assembly& a, int prg);
template <class Family>
void ExtractAllOprnds(Assembly& a, int prg);
template <class Family>
void OpCk(Assembly& a, int prg);

/// Runs the family's row over all programs: 0, or the negative code of the stage that stopped it.
template <class Family>
int OpCkLoop(Assembly& a);

}  // namespace zelvaro
