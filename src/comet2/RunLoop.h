// The run loop: fetch, decode, execute.
#pragma once

#include <cstdint>

#include "comet2/Comet2.h"
#include "comet2/Decode.h"
#include "comet2/Guards.h"
#include "comet2/Services.h"

namespace zelvaro {

/// Executes from PR until the run stops, and returns why.  `limit` is the highest address for PR and for a
/// load.  ExecCount is incremented for each instruction fetched.
Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit);

/// The same, but stops after `steps` instructions or up to two more.  On return `steps` is the number that is
/// left; it is negative if more were executed.
Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit, std::int64_t& steps);

/// What the slices of one run share.
struct Slices {
  Decoded image;              ///< must belong to the machine, and to one of the two functions only
  int emptyInputs = 0;        ///< successive IN calls that have found no line
  std::int64_t executed = 0;  ///< steps of the last slice
};
/// The same two for a run in slices, which keep what has been decoded.  With an image that does not fuse, the
/// number of steps is exact.
Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit, Slices& slices);
Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit, Slices& slices,
             std::int64_t& steps);

}  // namespace zelvaro
