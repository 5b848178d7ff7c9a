// TMsgBase: what an object needs to issue a message.  Base of TBasicData, TShellData, TCorrectScode and
// TGame.
#pragma once

#include <string>
#include <string_view>

#include "diag/DiagLog.h"
#include "diag/Message.h"
#include "platform/Platform.h"

namespace zelvaro {

inline constexpr std::string_view AssembledRegFile = "aaAssembledRegMry.txt";
inline constexpr std::string_view ResultantRegFile = "aaResultantRegMry.txt";

class TMsgBase {
 public:
  TMsgBase(Platform& console, TDiagLog& log) : console_(console), log_(log) {}

  int Lang = kEnglish;  ///< 0 Japanese, 1 English
  int ErrorKazu = 0;
  int WarningKazu = 0;
  int NoteKazu = 0;
  int MemoKazu = 0;

  void clearTallies() { ErrorKazu = WarningKazu = NoteKazu = MemoKazu = 0; }
  /// An Error that has no message of its own: a caller that counts what its callee has told.
  void countError() { ++ErrorKazu; }

  /// Issues a message of a check about a line (0-based index): prints head and text, appends a record to
  /// the log and raises the tally, as far as the row and the family do these things.
  template <class Family, const Message& Row, class... Arg>
  void report(int line, Arg&&... arg) {
    static_assert(sizeof...(Arg) == Row.argNames.count, "a message gets the arguments that its row declares");
    issue(catalogued<Row>, Family::id, Family::writesLog, line, {MsgArg(std::forward<Arg>(arg))...});
  }

  /// Prints text that is no diagnostic: menus, information lines.
  void print(std::string_view utf8) const { console_.print(utf8); }
  /// A self-check of the program's own invariants: printed as it stands, one Error, no record.
  void selfCheck(std::string_view text) {
    console_.print(std::string(text) + "\n");
    ++ErrorKazu;
  }
  Platform& console() const { return console_; }
  TDiagLog& log() const { return log_; }

 private:
  void issue(Catalogue::Entry& entry, FamilyId family, bool writesLog, int line,
             std::initializer_list<MsgArg> values);

  Platform& console_;
  TDiagLog& log_;
};

/// The two texts in the language `lang`.
constexpr std::string_view inLanguage(int lang, std::string_view ja, std::string_view en) {
  return lang == kJapanese ? ja : en;
}

}  // namespace zelvaro
