// The register and memory report.
#pragma once

#include <string>

#include "TimeVcl/TimeVcl.h"
#include "comet2/Comet2.h"
#include "diag/Family.h"
#include "source/BasicData.h"

namespace zelvaro {

/// Writes the report of the machine to the file of that name (one of the two report names): DspRegMry70NW
/// and its twins by family.  A failure is told on the console; the file keeps its old content then.
template <class Family>
void DspRegMry(const std::string& filename, Tcomet2& m, const TBasicData& b, const TimeData& time,
               Platform& platform);

}  // namespace zelvaro
