// The heads of messages by severity and language: those of a printed message and those of the log.
#pragma once

#include <string_view>

#include "diag/Message.h"

namespace zelvaro {

inline constexpr std::string_view kLineWord = " 行目： ";
inline constexpr std::string_view kLineWordE = "line ";

/// The head of a printed message.  The English head of a Memo is that of a Note.
constexpr std::string_view severityHead(Severity severity, int lang) {
  switch (severity) {
    case Severity::Error:
      return lang == kJapanese ? "エラー： " : "Error : ";
    case Severity::Warning:
      return lang == kJapanese ? "警告： " : "Warning : ";
    case Severity::Note:
      return lang == kJapanese ? "注意： " : "Note : ";
    case Severity::Memo:
      return lang == kJapanese ? "メモ： " : "Note : ";
    case Severity::Plain:
      break;
  }
  return "";
}

/// The prefix of a log record.  The Japanese one of a Memo ends in a full-width semicolon.
constexpr std::string_view logPrefix(Severity severity, int lang) {
  switch (severity) {
    case Severity::Error:
      return lang == kJapanese ? "エラー： " : "Error: ";
    case Severity::Warning:
      return lang == kJapanese ? "警告： " : "Warning: ";
    case Severity::Note:
      return lang == kJapanese ? "注意： " : "Note: ";
    case Severity::Memo:
      return lang == kJapanese ? "メモ； " : "Memo: ";
    case Severity::Plain:
      break;
  }
  return "";
}

}  // namespace zelvaro
