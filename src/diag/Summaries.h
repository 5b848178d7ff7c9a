// The summaries at the end of a run: what the tallies of TGame add up to.
#pragma once

#include <string_view>

#include "diag/MsgBase.h"

namespace zelvaro {

/// Mode 'h', after a stopped run: how many Errors there are, in Japanese with `text` behind the count.
/// Mode 'f', after an assembly without Errors, in English only: how many Warnings there are.  Returns the
/// error tally where Errors were told, otherwise 0.
int SumUpErrors(const TMsgBase& game, std::string_view text, char mode);

/// Mode 'f', in Japanese only: `text`, and how many Warnings there are.  Returns 0.
int SumUpWarningsJ(const TMsgBase& game, std::string_view text, char mode);

}  // namespace zelvaro
