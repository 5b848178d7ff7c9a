#include "diag/DiagLog.h"

#include <algorithm>

namespace zelvaro {

void TDiagLog::take(const Diagnostic& d) {
  if (writes && d.row->logs) records_.push_back(d);
}

std::string TDiagLog::ReplayLog(Wording wording) const {
  std::string out;
  for (auto record = records_.begin(); record != records_.end();) {
    std::string text = renderText(*record, wording);
    for (++record; record != records_.end() && record->row->continues; ++record)
      text += "\n" + renderText(*record, wording);
    // The lines of a message up to its first empty line, and one empty line after them.
    while (text.ends_with('\n')) text.pop_back();
    text.resize(std::min(text.find("\n\n"), text.size()));
    out += text.empty() ? "\n" : text + "\n\n";
  }
  return out;
}

}  // namespace zelvaro
