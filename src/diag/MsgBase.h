// TMsgBase: what an object needs to issue a message.  Base of TBasicData, TShellData, TCorrectScode and
// TGame.
#pragma once

#include <string_view>
#include <utility>

#include "diag/Diagnostic.h"

namespace zelvaro {

inline constexpr std::string_view AssembledRegFile = "aaAssembledRegMry.txt";
inline constexpr std::string_view ResultantRegFile = "aaResultantRegMry.txt";

class TMsgBase {
 public:
  explicit TMsgBase(DiagSink& sink) : sink_(sink) {}

  int ErrorKazu = 0;
  int WarningKazu = 0;
  int NoteKazu = 0;
  int MemoKazu = 0;

  void clearTallies() { ErrorKazu = WarningKazu = NoteKazu = MemoKazu = 0; }
  /// Counts an Error without a message of its own, for a caller that counts what its callee has reported.
  void countError() { ++ErrorKazu; }

  /// Issues a message about a line (0-based index in the file) and increments the tally of its severity.
  template <std::size_t N, class... Arg>
  requires(sizeof...(Arg) == N) void report(const Message<N>& row, int line, Arg&&... arg) {
    issue(diagnostic(row, line, std::forward<Arg>(arg)...));
  }
  /// The same for a message that belongs to no line.
  template <std::size_t N, class... Arg>
  requires(sizeof...(Arg) == N) void say(const Message<N>& row, Arg&&... arg) {
    issue(diagnostic(row, Diagnostic::kNoLine, std::forward<Arg>(arg)...));
  }

  DiagSink& sink() const { return sink_; }

 private:
  void issue(const Diagnostic& d);

  DiagSink& sink_;
};

}  // namespace zelvaro
