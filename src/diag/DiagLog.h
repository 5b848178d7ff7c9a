// TDiagLog, the shared object `dg`: the messages of a run in the order of their issue, for the replay at
// the end of a run with errors.
#pragma once

#include <vector>

#include "diag/Render.h"

namespace zelvaro {

class TDiagLog : public DiagSink {
 public:
  /// Keeps a message whose row is logged, while `writes` is set.
  void take(const Diagnostic& d) override;
  /// The text of every message, in order, and an empty line after each.  Does not clear the log.
  std::string ReplayLog(Wording wording) const;
  void ClearLog() { records_.clear(); }
  const std::vector<Diagnostic>& records() const { return records_; }

  bool writes = true;  ///< whether the pipeline has a log

 private:
  std::vector<Diagnostic> records_;
};

}  // namespace zelvaro
