// What the tallies add up to at the end of a run.
#include <gtest/gtest.h>

#include "diag/Summaries.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

struct Case {
  int lang;
  int errors, warnings, notes, memos;
  const char* stopped;    ///< what a stopped run prints
  const char* assembled;  ///< what an assembly prints before the link
};

constexpr Case kCases[] = {
    {kEnglish, 0, 0, 1, 1, "", ""},
    {kEnglish, 1, 0, 0, 0,
     "\n\nThere is 1 error to be corrected. \n\nCorrect the codes and assemble them again.\n", ""},
    {kEnglish, 2, 1, 0, 0,
     "\n\nThere are 2 errors to be corrected. \n\nCorrect the codes and assemble them again.\n", ""},
    {kEnglish, 0, 1, 0, 0, "", "1 warning: \n"},
    {kEnglish, 0, 2, 3, 0, "", "2 warnings: \n"},
    {kJapanese, 0, 0, 0, 0, "", ""},
    {kJapanese, 3, 1, 1, 0, "\n\n 3 個の エラー があるので修正が必要です。 \n", ""},
    {kJapanese, 0, 2, 0, 0, "", "2 個の 警告 がある。 \n"},
    {kJapanese, 0, 1, 4, 1, "", "1 個の 警告 がある。 \n\n\n"},
    {kJapanese, 0, 0, 1, 0, "", "\n"},
};

TEST(Summaries, SayWhatTheTalliesAddUpTo) {
  for (const Case& c : kCases) {
    test::ScriptedPlatform platform;
    TDiagLog log;
    TMsgBase game(platform, log);
    game.Lang = c.lang;
    game.ErrorKazu = c.errors;
    game.WarningKazu = c.warnings;
    game.NoteKazu = c.notes;
    game.MemoKazu = c.memos;
    EXPECT_EQ(SumUpErrors(game, " 個の エラー があるので修正が必要です。 ", 'h'), c.errors);
    EXPECT_EQ(platform.console, c.stopped);
    platform.console.clear();
    SumUpErrors(game, "", 'f');
    SumUpWarningsJ(game, "", 'f');
    EXPECT_EQ(platform.console, c.assembled);
  }
}

}  // namespace
}  // namespace zelvaro
