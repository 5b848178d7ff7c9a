// The heads of messages by severity and language: those of a printed message and those of the log.
#pragma once

#include "diag/Message.h"

namespace zelvaro {

inline constexpr Words kLineWord{" 行目： ", "line "};

/// The head of a printed message.  The English head of a Memo is that of a Note.
constexpr Words severityHead(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return {"エラー： ", "Error : "};
    case Severity::Warning:
      return {"警告： ", "Warning : "};
    case Severity::Note:
      return {"注意： ", "Note : "};
    case Severity::Memo:
      return {"メモ： ", "Note : "};
    case Severity::Notice:
      break;
  }
  return {};
}

/// The prefix of a log record.  The Japanese prefix of a Memo ends in a full-width semicolon.
constexpr Words logPrefix(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return {"エラー： ", "Error: "};
    case Severity::Warning:
      return {"警告： ", "Warning: "};
    case Severity::Note:
      return {"注意： ", "Note: "};
    case Severity::Memo:
      return {"メモ； ", "Memo: "};
    case Severity::Notice:
      break;
  }
  return {};
}

}  // namespace zelvaro
