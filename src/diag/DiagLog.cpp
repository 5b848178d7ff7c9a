#include "diag/DiagLog.h"

namespace zelvaro {

void TDiagLog::ReplayLog(Platform& console) const {
  for (const DiagRec& record : records_) {
    // The replay stops at the first empty line of a message.
    const std::string_view text(record.Text);
    const std::string_view shown = text.substr(0, text.find("\n\n"));
    if (!shown.empty()) console.print(std::string(shown) + "\n");
  }
}

}  // namespace zelvaro
