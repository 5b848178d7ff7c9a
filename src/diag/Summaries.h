// The summaries at the end of a run: the sums of the tallies in TGame.
#pragma once

#include "diag/MsgBase.h"

namespace zelvaro {

/// After a run stopped by Errors: reports their number.
void SumUpErrors(TMsgBase& game);

/// After an assembly without Errors: reports the number of Warnings.
void SumUpWarnings(TMsgBase& game);

}  // namespace zelvaro
