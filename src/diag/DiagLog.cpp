#include "diag/DiagLog.h"

#include <algorithm>

namespace zelvaro {

void TDiagLog::ReplayLog(Platform& console) const {
  for (const DiagRec& record : records_) {
    // The lines of a message up to its first empty one, and a last line that no check fills.
    std::string text = record.Text;
    while (text.ends_with('\n')) text.pop_back();
    text.resize(std::min(text.find("\n\n"), text.size()));
    console.print(text.empty() ? "\n" : text + "\n\n");
  }
}

}  // namespace zelvaro
