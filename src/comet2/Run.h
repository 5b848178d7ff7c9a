// The run of a linked image.
#pragma once

#include "TimeVcl/TimeVcl.h"
#include "comet2/Comet2.h"
#include "diag/Family.h"
#include "platform/Platform.h"

namespace zelvaro {

/// What a run needs besides the machine.
struct RunEnvironment {
  Platform& platform;
  TimeData& time;
  int PrgEndAdr;  ///< first address behind the Reserved Area, for the store warning
};

/// Runs `m` from address 0 to its end or to a forced stop: prints the words of start and end, serves SVC,
/// guards the machine.  Run3NW, Run3NA and Run3 by family.  Returns 1 after an unregistered machine code,
/// else 0.
template <class Family>
int Run3(Tcomet2& m, const RunEnvironment& env);

}  // namespace zelvaro
