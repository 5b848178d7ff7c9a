// The analysers for full-width spaces and characters.  Each looks for one cause of a fault that has been
// found already and adds a message that names it; none of them repairs anything.
#pragma once

#include "MoziCode/Characters.h"
#include "diag/Family.h"
#include "source/Assembly.h"

namespace zelvaro {

/// A full-width space in a word: label, program name, opcode or operand.  Non-zero if it reported.
template <class Family>
int AnalystZenKSpace20NW(TMsgBase& owner, int line, ViewOf<Family> word);
/// The same for an undefined address constant and the operand of START, in other words.
template <class Family>
int AnalystZenKSpace20(TMsgBase& owner, ViewOf<Family> word, int line);
/// A full-width character in an address constant.
template <class Family>
int AnalystZenKMozi(TMsgBase& owner, ViewOf<Family> word, int line);
/// A full-width character in the operand of START.
template <class Family>
int AnalystZenKakuMoziStr(TMsgBase& owner, int line, ViewOf<Family> word);
/// The index of the first character outside A to Z and 0 to 9, or -1; with `report` it is told.
template <class Family>
int DetNonLabelMoziPos(TMsgBase& owner, int line, ViewOf<Family> word, bool report);

/// The scanners for START and END over the whole file.
template <class Family>
void DetSTARTatZenKakuSpace(Assembly& a);
template <class Family>
void DetENDatZenKakuSpace(Assembly& a);
template <class Family>
void CkSTART_LR(Assembly& a);
template <class Family>
void CkEnd_LR(Assembly& a);

}  // namespace zelvaro
