// The run loop: fetch, decode, execute.
#pragma once

#include <cstdint>

#include "comet2/Comet2.h"
#include "comet2/Guards.h"
#include "comet2/Services.h"

namespace zelvaro {

/// Executes from PR until the run stops, and returns why.  `limit` is the highest address for PR and for a
/// load.  ExecCount is incremented for each instruction fetched.
Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit);

/// The same, but stops after `steps` instructions or up to two more.  On return `steps` is the number that is
/// left; it is negative if more were executed.
Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit, std::int64_t& steps);

}  // namespace zelvaro
