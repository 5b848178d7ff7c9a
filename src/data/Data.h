// DC, DS and literals.
#pragma once

#include "encode/Encode.h"

namespace zelvaro {

/// Cleans the operand text of a DC or DS line (its operand buffer 0) in place.  False after a fault: no
/// later step of the line speaks then.
template <class Family>
bool OprndAtDCtoChH(Assembly& a, SrcOf<Family>& line);

/// A DC line in the dispatch: OprndAtDCtoChH, OprndAtDC with dc45, TakeOutOprndsAtDC10 and CkDC33, then
/// SetWordKazuAtDC.
template <class Family>
void dispatchDC(Assembly& a, SrcOf<Family>& line);
/// A DS line in the dispatch: OprndAtDCtoChH, OprndAtDS, SetWordKazuAtDS.
template <class Family>
void dispatchDS(Assembly& a, SrcOf<Family>& line);

/// The words of a program's DS lines.
template <class Family>
void SetMryInAtDS(Assembly& a, int prg);
/// The words of a program's DC lines; negative on a fatal fault.
template <class Family>
int SetMryInAtDC(Assembly& a, int prg);

/// The fixed form: the number and the place of a program's DC and DS lines.
template <class Family>
void dcds10(Assembly& a, int prg);

/// Forms of the literals of a program, and the closure of their character constants; negative after a fault.
template <class Family>
int CkLiteral15(Assembly& a, int prg);
template <class Family>
int CkStrConstLiteral(Assembly& a, int prg);

}  // namespace zelvaro
