// The driver: what differs from pipeline to pipeline and from run to run.  One pass through it, its menus and
// its ends are in tests/transcripts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/Game.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kBanner =
    "Zelvaro Assembly Suite  Ver. 4.6.4  \nWin32  R_std::wstring<--UTF16\n\nAssembler, Linker, and "
    "Simulator\n\n\n";
constexpr const char* kClean = "PRG START\n LAD GR1,1\n RET\n END\n";
constexpr const char* kWrong = "PRG START\n LADD GR1,1\n RET\n END\n";

class GameTest : public ::testing::Test {
 protected:
  test::ScriptedPlatform platform;

  GameTest() {
    platform.files["clean.txt"] = kClean;
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

}  // namespace
}  // namespace zelvaro
