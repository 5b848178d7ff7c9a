#include "diag/Summaries.h"

namespace zelvaro {
namespace {

constexpr Message oneError = notice("sum-one-error", args("count"),
                                    {.ja = "\n\n {count} 個の エラー があるので修正が必要です。 \n",
                                     .en = "\n\nThere is {count} error to be corrected. \n\n"
                                           "Correct the codes and assemble them again.\n"});
constexpr Message errors = notice("sum-errors", args("count"),
                                  {.ja = "\n\n {count} 個の エラー があるので修正が必要です。 \n",
                                   .en = "\n\nThere are {count} errors to be corrected. \n\n"
                                         "Correct the codes and assemble them again.\n"});
constexpr Message oneWarning = notice("sum-one-warning", args("count"),
                                      {.ja = "{count} 個の 警告 がある。 \n", .en = "{count} warning: \n"});
constexpr Message warnings = notice("sum-warnings", args("count"),
                                    {.ja = "{count} 個の 警告 がある。 \n", .en = "{count} warnings: \n"});
constexpr Message notesOrMemos = notice("sum-notes", args(), {.ja = "\n", .en = kNoWords});

}  // namespace

void SumUpErrors(TMsgBase& game) {
  if (game.ErrorKazu > 0) game.say(game.ErrorKazu == 1 ? oneError : errors, game.ErrorKazu);
}

void SumUpWarnings(TMsgBase& game) {
  if (game.ErrorKazu > 0) return;
  if (game.WarningKazu > 0) game.say(game.WarningKazu == 1 ? oneWarning : warnings, game.WarningKazu);
  if (game.NoteKazu > 0) game.say(notesOrMemos);
  if (game.MemoKazu > 0) game.say(notesOrMemos);
}

RowList rowsOfSummaries() {
  return rows(oneError, errors, oneWarning, warnings, notesOrMemos);
}

}  // namespace zelvaro
