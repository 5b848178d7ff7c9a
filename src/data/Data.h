// DC, DS and literals.
#pragma once

#include "encode/Encode.h"

namespace zelvaro {

/// Cleans the operand text of a DC or DS line (its operand buffer 0) in place.  False after a fault: the
/// later steps of the line are skipped then.
template <class Char>
bool OprndAtDCtoChH(Assembly& a, SrcData<Char>& line);

/// A DC line in the dispatch: OprndAtDCtoChH, OprndAtDC with dc45, TakeOutOprndsAtDC10 and CkDC33, then
/// SetWordKazuAtDC.
template <class Char>
void dispatchDC(Assembly& a, SrcData<Char>& line);
/// A DS line in the dispatch: OprndAtDCtoChH, OprndAtDS, SetWordKazuAtDS.
template <class Char>
void dispatchDS(Assembly& a, SrcData<Char>& line);

/// The words of a program's DS lines.
template <class Char>
void SetMryInAtDS(Assembly& a, int prg);
/// The words of a program's DC lines; ends at a constant without characters.
template <class Char>
void SetMryInAtDC(Assembly& a, int prg);

/// The fixed form: the number and the place of a program's DC and DS lines.
template <class Char>
void dcds10(Assembly& a, int prg);

/// Forms of the literals of a program, and the closure of their character constants.
template <class Char>
void CkLiteral15(Assembly& a, int prg);
template <class Char>
void CkStrConstLiteral(Assembly& a, int prg);

}  // namespace zelvaro
