// The summaries at the end of a run: what the tallies of TGame add up to.
#pragma once

#include "diag/MsgBase.h"

namespace zelvaro {

/// After a stopped run: how many Errors there are.
void SumUpErrors(TMsgBase& game);

/// After an assembly without Errors: how many Warnings there are.
void SumUpWarnings(TMsgBase& game);

}  // namespace zelvaro
