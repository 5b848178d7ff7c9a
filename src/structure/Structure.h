// The stages that take lines and programs apart.  Each lies in the file of its name.  A stage that returns
// an int gives a negative value after a fault; the others tell by the tallies alone.
#pragma once

#include "diag/Family.h"
#include "source/Assembly.h"

namespace zelvaro {

// --- whole file ---
template <class Family>
int edit(Assembly& a);  ///< editNWB, editNA, editN: SrcWork of every line; the empty-source check
template <class Family>
int ReplaceTabs(Assembly& a);  ///< narrow families: tabs outside the quoted stretch become blanks
template <class Family>
int StartEnd10(Assembly& a);
template <class Family>
int StartEnd20(Assembly& a);
template <class Family>
void IsAnySrcOutsideSartEnd(Assembly& a);
template <class Family>
int CkPrgNameDouble(Assembly& a);  ///< fills PrgIndex of the store when the names are unique
template <class Family>
void CkLabelInUse(Assembly& a);
template <class Family>
void CkPrgNameInUse(Assembly& a);

// --- one program, by its index ---
template <class Family>
void StartEnd(Assembly& a, int prg);  ///< StartEndNWCS: label on START, none on END
template <class Family>
void CutComments(Assembly& a, int prg);
template <class Family>
void CkPrgName(Assembly& a, int prg);
template <class Family>
void Label35G(Assembly& a, int prg);  ///< label rules; ends with CkLabelDouble
template <class Family>
void CkLabelDouble(Assembly& a, int prg);  ///< duplicate labels; fills Labels of the program record
template <class Family>
void TakeOutLabelStr(Assembly& a, int prg);  ///< word split: label, opcode, operand text
template <class Family>
void SearchApostForNonCharConstOP(Assembly& a, int prg);
template <class Family>
void CopyOprndComToWork(Assembly& a, int prg);
template <class Family>
void edit30c(Assembly& a, int prg);  ///< literal sign check
template <class Family>
void edit50(Assembly& a, int prg);  ///< number sign check
template <class Family>
void SplitComment(Assembly& a, int prg);
template <class Family>
void TrimZenOprndCom(Assembly& a, int prg);  ///< cleans operand texts by opcode class
template <class Family>
void TrimOprndCom(Assembly& a, int prg);

}  // namespace zelvaro
