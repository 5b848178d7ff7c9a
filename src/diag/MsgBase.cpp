#include "diag/MsgBase.h"

namespace zelvaro {

void TMsgBase::issue(Catalogue::Entry& entry, FamilyId family, bool writesLog, int line,
                     std::initializer_list<MsgArg> values) {
  const Message& row = *entry.row;
  entry.fired[Lang == kJapanese ? kJapanese : kEnglish] = true;
  Filled filled = fill(row, family, Lang, line, values);
  std::string printed = std::move(filled.head);
  if (filled.breakAfterHead) printed += '\n';
  printed += filled.text;
  printed += '\n';
  console_.print(printed);
  if (writesLog && row.logs) {
    if (row.continues) {
      log_.extend(filled.text);
    } else {
      log_.append({line, row.severity, std::move(filled.text)});
    }
  }
  if (!row.counts) return;
  switch (row.severity) {
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
    case Severity::Plain:
      break;
  }
}

}  // namespace zelvaro
