// The register and memory report.
#pragma once

#include <string_view>

#include "TimeVcl/TimeVcl.h"
#include "comet2/Comet2.h"
#include "diag/Diagnostic.h"
#include "platform/Platform.h"
#include "source/BasicData.h"

namespace zelvaro {

/// The target of a report, and what it contains besides the machine.
struct ReportFile {
  Platform& platform;
  DiagSink& sink;  ///< receives the message of a failed write
  const TimeData& time;
  const Family& family;
  Language language;
  std::string_view name = AssembledRegFile;  ///< one of the two report names
};

/// Writes the report of the machine: DspRegMry70NW, DspRegMry68NA or DspRegMry68NH by family.  A failure is
/// reported, and the file keeps its old content.
template <class Char>
void DspRegMry(const ReportFile& file, Tcomet2& m, const TBasicData& b);

}  // namespace zelvaro
