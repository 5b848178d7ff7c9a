// The run loop: fetch, decode, execute.
#pragma once

#include <cstdint>

#include "comet2/Comet2.h"
#include "comet2/Guards.h"
#include "comet2/Services.h"

namespace zelvaro {

/// Executes from PR until something stops the run and says what.  `limit` is the highest address that PR and
/// a load may have.  ExecCount is raised for each instruction fetched.
Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit);

/// The same, but stops when `steps` instructions have been executed, at the latest two later.  `steps` becomes
/// what is left of them: negative for those too many.
Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit, std::int64_t& steps);

}  // namespace zelvaro
