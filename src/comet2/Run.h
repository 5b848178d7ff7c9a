// The run of a linked image.
#pragma once

#include "TimeVcl/TimeVcl.h"
#include "comet2/Comet2.h"
#include "diag/Diagnostic.h"
#include "platform/Platform.h"

namespace zelvaro {

/// What a run needs in addition to the machine.
struct RunEnvironment {
  Platform& platform;  ///< where IN reads and OUT writes
  DiagSink& sink;      ///< receives the messages of the run
  TimeData& time;
  const Family& family;
  int PrgEndAdr = 0;  ///< the first address after the Reserved Area, for the store warning
};

/// Runs `m` from address 0 to its end or to a forced stop: reports start and end, executes SVC calls, checks
/// the guards.
void Run3(Tcomet2& m, const RunEnvironment& env);

}  // namespace zelvaro
