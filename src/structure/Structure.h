// The stages that split lines and programs.  Each is in the file of its name.  Errors are counted in the
// tallies.
#pragma once

#include "source/Assembly.h"

namespace zelvaro {

// --- whole file ---
template <class Char>
void edit(Assembly& a);         ///< editNWB, editNA, editN: SrcWork of every line; the empty-source check
void ReplaceTabs(Assembly& a);  ///< narrow families: tabs outside the quoted stretch become blanks
template <class Char>
void StartEnd10(Assembly& a);
template <class Char>
void StartEnd20(Assembly& a);
template <class Char>
void IsAnySrcOutsideSartEnd(Assembly& a);
template <class Char>
void CkPrgNameDouble(Assembly& a);  ///< fills PrgIndex of the store when the names are unique
template <class Char>
void CkLabelInUse(Assembly& a);
template <class Char>
void CkPrgNameInUse(Assembly& a);

// --- one program, by its index ---
template <class Char>
void StartEnd(Assembly& a, int prg);  ///< StartEndNWCS: label on START, none on END
template <class Char>
void CutComments(Assembly& a, int prg);
template <class Char>
void CkPrgName(Assembly& a, int prg);
template <class Char>
void Label35G(Assembly& a, int prg);  ///< label rules; ends with CkLabelDouble
template <class Char>
void CkLabelDouble(Assembly& a, int prg);  ///< duplicate labels; fills Labels of the program record
template <class Char>
void TakeOutLabelStr(Assembly& a, int prg);  ///< word split: label, opcode, operand text
template <class Char>
void SearchApostForNonCharConstOP(Assembly& a, int prg);
template <class Char>
void CopyOprndComToWork(Assembly& a, int prg);
template <class Char>
void edit30c(Assembly& a, int prg);  ///< literal sign check
template <class Char>
void edit50(Assembly& a, int prg);  ///< number sign check
template <class Char>
void SplitComment(Assembly& a, int prg);
template <class Char>
void TrimZenOprndCom(Assembly& a, int prg);  ///< cleans operand texts by opcode class
template <class Char>
void TrimOprndCom(Assembly& a, int prg);

}  // namespace zelvaro
