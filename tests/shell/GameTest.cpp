// The driver: start-up, the loop of a pipeline, the change of pipelines, the ways out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/Game.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* kBanner =
    "Zelvaro Assembly Suite  Ver. 4.6.4  \nWin32  R_std::wstring<--UTF16\n\nAssembler, Linker, and "
    "Simulator\n\n\n";
constexpr const char* kClean = "PRG START\n LAD GR1,1\n RET\n END\n";
constexpr const char* kWarned = "PRG START\n RET\nAREA DS 5,\n END\n";  // the comma draws a Warning
constexpr const char* kWrong = "PRG START\n LADD GR1,1\n RET\n END\n";

class GameTest : public ::testing::Test {
 protected:
  test::ScriptedPlatform platform;

  GameTest() {
    platform.files["clean.txt"] = kClean;
    platform.files["warned.txt"] = kWarned;
    platform.files["wrong.txt"] = kWrong;
  }
  /// One use of the program; the input ends behind the lines.
  const std::string& play(std::initializer_list<std::string> lines, const std::string& settings = "") {
    platform.console.clear();
    platform.typed.assign(lines);
    if (!settings.empty()) platform.files["zelvaro.ini"] = settings;
    TSession s(platform);
    TGame game(s);
    game.SetCurrentDirChH();
    game.Start();
    return platform.console;
  }
  int count(const std::string& text) const {
    int n = 0;
    for (std::size_t at = platform.console.find(text); at != std::string::npos;
         at = platform.console.find(text, at + 1))
      ++n;
    return n;
  }
};

TEST_F(GameTest, AFreshStartShowsTheBannerAndLeavesAtTheEndOfTheInput) {
  EXPECT_EQ(play({}), std::string(kBanner) + "\n\nPress your Enter key to go next. \n");
  EXPECT_THAT(platform.files["zelvaro.ini"], HasSubstr("FightFunc=WP\n"));
  EXPECT_THAT(
      play({}, "[Mode]\nSimpleTitleIndex=1\n"),
      StartsWith("Zelvaro  Ver. 4.6.4  \nWin32  R_std::wstring<--UTF16\n\nAssembler & Simulator\n\n\n"));
  // An index outside 0 and 1 gives the long banner and the long menu.
  EXPECT_THAT(play({""}, "[Mode]\nSimpleTitleIndex=2\n"), StartsWith(kBanner));
  EXPECT_THAT(platform.console, HasSubstr("10.  opens"));
}

TEST_F(GameTest, ACleanFileRunsStraightThrough) {
  play({"", "1", "clean", "", "123"});
  const std::string& shown = platform.console;
  EXPECT_THAT(shown, HasSubstr(" msec =(ReadFile, Assemble, Link)Time  QPC \nSuccessfully Assembled! "
                               "---> aaAssembledRegMry.txt \n"));
  EXPECT_LT(shown.find("---> aaAssembledRegMry.txt \n"), shown.find("The comet2 starts running"));
  EXPECT_LT(shown.find("The comet2 starts running"), shown.find("---> aaResultantRegMry.txt \n"));
  EXPECT_EQ(count("Go back to Main Menu"), 0);
  EXPECT_THAT(platform.files["aaAssembledRegMry.txt"], HasSubstr("VM COMET2: aaAssembledRegMry.txt"));
  EXPECT_THAT(platform.files["aaResultantRegMry.txt"], HasSubstr("  GR1:    :#0001:"));
  EXPECT_THAT(platform.files["zelvaro.ini"], HasSubstr("LastSrcFile=clean.txt\n"));
}

TEST_F(GameTest, TheReportLineIsLongerTheFirstTimeInJapanese) {
  play({"", "1", "clean", "", "11", "", "123"}, "[Mode]\nLangStr=JPN\n");
  EXPECT_EQ(count("アセンブル成功 ---> aaAssembledRegMry.txt "), 2);
  EXPECT_EQ(
      count("---> aaAssembledRegMry.txt \nアセンブルされたメモリの全容が保存してあります。\n演算実行 開始"),
      1);
  EXPECT_EQ(count("---> aaAssembledRegMry.txt メモリの全容が保存してあります。\n演算実行 開始"), 1);
  EXPECT_EQ(count("---> aaResultantRegMry.txt \n実行後のメモリの全容が保存してあります。\n\n入力"), 1);
  EXPECT_EQ(count("---> aaResultantRegMry.txt メモリの全容が保存してあります。\n\n入力"), 1);
}

TEST_F(GameTest, ErrorsAreReplayedTimedAndSummedUp) {
  play({"", "1", "wrong", "", "1", "clean"});
  const std::string& shown = platform.console;
  const std::size_t time = shown.find(" msec =(ReadFile, Assemble)Time QPC  \n");
  ASSERT_NE(time, std::string::npos);
  const std::size_t sum = shown.find("\n\nThere ", time);
  EXPECT_LT(time, sum);
  EXPECT_THAT(shown.substr(sum), HasSubstr("to be corrected. \n\nCorrect the codes and assemble them again.\n"
                                           "\n\n** Press Enter key to go next. \n"));
  // The next run starts with an empty log and tallies of 0.
  EXPECT_EQ(count("Correct the codes"), 1);
  EXPECT_EQ(count("Successfully Assembled! "), 1);
}

TEST_F(GameTest, WarningsAskBeforeTheRun) {
  play({"", "1", "warned", "2", "", "1", "warned", "1"});
  EXPECT_EQ(count("1 warning: \n"), 2);
  EXPECT_EQ(count("Go back to Main Menu"), 2);
  EXPECT_EQ(count("---> aaAssembledRegMry.txt"), 2);
  EXPECT_EQ(count("---> aaResultantRegMry.txt"), 1);
  play({"", "1", "warned"});  // the input ends at the question
  EXPECT_THAT(platform.console, EndsWith("Input a menu number. \n"));
}

TEST_F(GameTest, AFileThatDoesNotLoadLeadsBackToTheMenu) {
  play({"", "1", "missing", "", "1", "clean"});
  EXPECT_THAT(platform.console, HasSubstr("The file is not found there. *"));
  EXPECT_EQ(count("Correct the codes"), 0);
  EXPECT_EQ(count("Successfully Assembled! "), 1);
}

TEST_F(GameTest, TheSelectorChangesThePipelineAndTheBannerEndsWithTheFourth) {
  play({"", "7", "3", "", "1", "clean", "", "7", "2", "", "7", "3", "", "7", "2", "", "123"});
  EXPECT_EQ(count("R_std::wstring<--UTF16\n"), 2);
  EXPECT_EQ(count("R_std::string\n"), 1);
  EXPECT_EQ(count("Zelvaro Assembly Suite"), 3);
  EXPECT_EQ(count("Successfully Assembled! "), 1);
  EXPECT_THAT(platform.files["zelvaro.ini"], HasSubstr("FightFunc=WP\n"));
}

TEST_F(GameTest, TheSelectorGoesToEveryPipelineInAnyOrder) {
  std::vector<std::string> typed{""};
  for (const char* mode : {"1", "9", "5", "3", "4", "2", "4", "5", "1", "3", "9", "2"})
    for (const char* line : {"7", mode, "", "1", "wrong", "", "1", "clean", ""}) typed.emplace_back(line);
  platform.typed.assign(typed.begin(), typed.end());
  TSession s(platform);
  TGame game(s);
  game.Start();
  EXPECT_EQ(count("Successfully Assembled! "), 12);
  EXPECT_EQ(count("---> aaResultantRegMry.txt"), 12);
  EXPECT_EQ(count("There is 1 error to be corrected. "), 12);
}

TEST_F(GameTest, TheMessagesStandTwiceWhereTheLogIsReplayed) {
  struct Case {
    const char* name;
    int times;
  };
  for (const Case& c : {Case{"WP", 2}, Case{"NaW", 2}, Case{"NWW", 1}, Case{"NwW", 1}, Case{"AP", 1},
                        Case{"NA", 1}, Case{"NH", 1}}) {
    play({"", "1", "wrong", ""}, "[Mode]\nFightFunc=" + std::string(c.name) + "\n");
    EXPECT_EQ(count("instruction. "), c.times) << c.name << platform.console;
    EXPECT_EQ(count("There is 1 error to be corrected. "), 1) << c.name;
  }
}

TEST_F(GameTest, NWWShowsTheTextKindOfThePipelineBefore) {
  EXPECT_THAT(play({}, "[Mode]\nFightFunc=NWW\n"), HasSubstr("R_\n"));
  play({"", "7", "1"}, "[Mode]\nFightFunc=WP\n");
  EXPECT_EQ(count("R_std::wstring<--UTF16\n"), 2);
  EXPECT_THAT(play({}, "[Mode]\nFightFunc=NaW\n"), HasSubstr("R_std::wstring\n"));
}

TEST_F(GameTest, TheNarrowLoadersDetectNothing) {
  for (const char* name : {"NaW", "AP", "NA"}) {
    play({"", "1", "clean", ""}, "[Mode]\nFightFunc=" + std::string(name) + "\n");
    EXPECT_EQ(count("Reading clean.txt. \n"), 1) << name;
    EXPECT_EQ(count("MoziKazu"), 0) << name;
  }
}

TEST_F(GameTest, NamesWithoutAPipeline) {
  EXPECT_EQ(play({"", "123"}, "[Mode]\nFightFunc=NewChH\n"), "");
  EXPECT_EQ(play({"", "123"}, "[Mode]\nFightFunc=NewChWH\n"), "");
  EXPECT_THAT(play({"", "123"}, "[Mode]\nFightFunc=wp\n"), StartsWith("FightNwW(); by default.\n"));
  EXPECT_THAT(platform.files["zelvaro.ini"], HasSubstr("FightFunc=wp\n"));
  EXPECT_THAT(play({}, "[Mode]\nFightFunc=　WP　\n"), StartsWith(kBanner));  // trimmed
}

TEST_F(GameTest, AnEditorOutOfRangeIsCorrectedAtThePipelinesStart) {
  play({"", "123"}, "[Editor]\nTextEditorIndex=5\n");
  EXPECT_THAT(platform.console, HasSubstr("\n\n\nError: TextEditorFlag is out of range. \nTextEditorIndex=5\n"
                                          "TextEditorIndex is corrected to be 0. \n"));
  EXPECT_THAT(platform.files["zelvaro.ini"], HasSubstr("TextEditorIndex=0\n"));
}

TEST_F(GameTest, NothingIsLeftOverFromRunToRun) {
  std::vector<std::string> lines;
  for (int i = 0; i < 50; ++i)
    for (const char* line : {"", "1", "clean", "", "1", "wrong", "", "1", "warned", "1"})
      lines.emplace_back(line);
  platform.typed.assign(lines.begin(), lines.end());
  TSession s(platform);
  TGame game(s);
  game.Start();
  EXPECT_EQ(count("---> aaAssembledRegMry.txt"), 100);
  EXPECT_EQ(count("---> aaResultantRegMry.txt"), 100);
  EXPECT_EQ(count("Correct the codes"), 50);
  EXPECT_EQ(count("There is 1 error to be corrected. "), 50);
  EXPECT_EQ(count("1 warning: \n"), 50);
}

/// The rows of a family, in the order and under the names given.
TEST(Pipelines, TheRowsOfWP) {
  std::vector<std::string> names;
  for (const StageRow& row : findPipeline("WP")->stages->rows)
    if (const std::string_view name = row.names.of(FamilyId::WP); !name.empty()) names.emplace_back(name);
  EXPECT_THAT(names, ElementsAre("editNWB", "StartEnd10NWB", "StartEnd20NW", "StartEndNWCS", "CutCommentsNW",
                                 "IsAnySrcOutsideSartEndNWCS", "CkPrgNameNWCS", "CkPrgNameDoubleNWBD",
                                 "OpCkLoop", "CkLabelInUseNWBD", "CkPrgNameInUseNWBD"));
  for (const char* name : {"WP", "NWW", "NwW", "NaW", "AP", "NA", "NH"})
    EXPECT_NE(findPipeline(name)->stages, nullptr) << name;
}

}  // namespace
}  // namespace zelvaro
