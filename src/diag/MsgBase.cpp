#include "diag/MsgBase.h"

namespace zelvaro {

void TMsgBase::issue(const Diagnostic& d) {
  sink_.take(d);
  if (!d.row->counts) return;
  switch (d.row->severity) {
    case Severity::Error:
      ++ErrorKazu;
      break;
    case Severity::Warning:
      ++WarningKazu;
      break;
    case Severity::Note:
      ++NoteKazu;
      break;
    case Severity::Memo:
      ++MemoKazu;
      break;
    case Severity::Notice:
      break;
  }
}

}  // namespace zelvaro
