// Hints on what may be the cause of a fault.  They are the checker's own: the dialogue does not know them, and
// no tally counts them.
#pragma once

#include <vector>

#include "check/Result.h"

namespace zelvaro::check {

/// Full-width letters and digits, and words that are right but for lower case.
std::vector<Remark> sourceHints(const engine::Assembled& assembled);

/// What a run has done to the stack, to data, and where it spends its steps.  The run is repeated on a copy of
/// the machine, its first kStepsLookedAt steps.
std::vector<Remark> runHints(const RunResult& run);
/// The part of them for a run at the limit of steps.
std::vector<Remark> loopHints(const RunResult& run);
inline constexpr std::int64_t kStepsLookedAt = 2'000'000;

}  // namespace zelvaro::check
