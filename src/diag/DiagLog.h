// TDiagLog, the shared object `dg`: the messages of a run in the order of their issue, for the replay at
// the end of a run with errors.
#pragma once

#include <string>
#include <vector>

#include "diag/Message.h"
#include "platform/Platform.h"

namespace zelvaro {

/// One logged message.
struct DiagRec {
  int Line = 0;                         ///< 0-based line index
  Severity severity = Severity::Plain;  ///< what its prefix says
  std::string Text;                     ///< the lines of the message, UTF-8, without head and leading quote
};

class TDiagLog {
 public:
  void append(DiagRec record) { records_.push_back(std::move(record)); }
  /// More lines of the last record.
  void extend(const std::string& text) { records_.back().Text += "\n" + text; }
  /// Prints the text of every record, in order, and an empty line behind each.  Empties nothing.
  void ReplayLog(Platform& console) const;
  void ClearLog() { records_.clear(); }
  const std::vector<DiagRec>& records() const { return records_; }

 private:
  std::vector<DiagRec> records_;
};

}  // namespace zelvaro
