// The analysers for full-width spaces and characters.  Each looks for one cause of a fault that has already
// been found and adds a message that names it; none of them repairs anything.
#pragma once

#include "MoziCode/Characters.h"
#include "source/Assembly.h"

namespace zelvaro {

/// A full-width space in a word: label, program name, opcode or operand.  True if it reported, as the others.
template <class Char>
bool AnalystZenKSpace20NW(TMsgBase& owner, int line, ViewOf<Char> word);
/// The same for an undefined address constant and the operand of START, with other messages.
template <class Char>
bool AnalystZenKSpace20(TMsgBase& owner, int line, ViewOf<Char> word);
/// A full-width character in an address constant.
template <class Char>
bool AnalystZenKMozi(TMsgBase& owner, int line, ViewOf<Char> word);
/// A full-width character in the operand of START.
template <class Char>
bool AnalystZenKakuMoziStr(TMsgBase& owner, int line, ViewOf<Char> word);
/// The index of the first character outside A to Z and 0 to 9, or -1.
template <class Char>
int DetNonLabelMoziPos(ViewOf<Char> word);

/// The scanners for START and END over the whole file.
template <class Char>
void DetSTARTatZenKakuSpace(Assembly& a);
template <class Char>
void DetENDatZenKakuSpace(Assembly& a);
template <class Char>
void CkSTART_LR(Assembly& a);
template <class Char>
void CkEnd_LR(Assembly& a);

}  // namespace zelvaro
