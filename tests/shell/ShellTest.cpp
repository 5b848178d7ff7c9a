// What the dialogues do not hold of the shell: settings at their edges, what a prompt takes of its line, and which
// answers to the go-on menu are a 1.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/GoOnMenu.h"
#include "shell/ModeSelector.h"
#include "shell/Prompt.h"
#include "shell/Settings.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

using ::testing::HasSubstr;

class ShellTest : public ::testing::Test {
 protected:
  test::ScriptedPlatform platform;
  TSession s{platform};
  const std::string ini{kIniFile};

  void read(const std::string& text) {
    platform.files[ini] = text;
    ReadIni(s, ini);
  }
};

TEST_F(ShellTest, SettingsThatAreAbsentOrNoNumberOrSetTwice) {
  read(
      "[Mode]\nSimpleTitleIndex=1\nBusyModeIndex=7\nSilentModeIndex=1\n[Editor]\nTextEditorIndex=2\n"
      "TextEditorPath1=one\nTextEditorPath2=/usr/bin/two -w\n");
  EXPECT_EQ(s.sh.FightFunc + s.sh.LastSrcFile, "WPsrc\\pn1000");
  EXPECT_TRUE(s.modeData.BusyModeIndex == 7 && s.b.BusyModeIndex == 0);
  read("[Mode]\nSimpleTitleIndex=x\nBusyModeIndex=\nSilentModeIndex=false\n[Editor]\nTextEditorIndex=1.5\n");
  EXPECT_TRUE(s.modeData.SimpleTitleIndex == 1 && s.modeData.BusyModeIndex == 7 &&
              s.modeData.SilentModeIndex == 1);
  EXPECT_EQ(s.b.TextEditorIndex(), 0);
  EXPECT_THAT(s.b.TextEditorPath, ::testing::ElementsAre("notepad.exe", "one", "/usr/bin/two -w"));
  read("[Mode]\nLangStr=jpn\nTimeFuncStr=std::clock()\nTimeFuncInt=2x\n");
  EXPECT_EQ(s.wording.language, Language::English);
  EXPECT_EQ(s.timeData.ClockName, "QPC");
  read("");  // an empty file is a file without settings
  EXPECT_EQ(platform.console, "");
}

TEST_F(ShellTest, ControlCharactersNeverReachTheSettings) {
  read("");
  s.sh.FightFunc = "W\x01P";
  s.sh.LastSrcFile = "a\n[Mode]\nLangStr=JPN";
  s.b.TextEditorPath = {"notepad.exe", "one\rtwo", "three\x7F"};
  WriteIni(s, ini);
  EXPECT_THAT(platform.files[ini], HasSubstr("FightFunc=WP\n"));
  EXPECT_THAT(platform.files[ini], HasSubstr("LastSrcFile=src\\list792j.txt\n"));
  EXPECT_THAT(platform.files[ini], HasSubstr("TextEditorPath1=\nTextEditorPath2=\n"));
}

TEST_F(ShellTest, WhichAnswersAreANumber) {
  for (const auto& [typed, name] : {std::pair{"1", "NWW"},
                                    {" 6 ", "NH"},
                                    {"9", "NwW"},
                                    {"7", "NWW"},
                                    {"", "NWW"},
                                    {"33", ""},
                                    {"2", ""}}) {
    s.sh.FightFunc = "WP";
    platform.typed = {typed};
    const std::string chosen = ModeSelector(s) == ModeChange::Chosen ? s.sh.FightFunc : "";
    EXPECT_EQ(chosen, name) << typed;
  }
  EXPECT_EQ(GoOnMenu(s.sh, platform), GoOn::Run) << "without Warnings";
  s.sh.WarningKazu = 1;
  const auto answer = [this](const char* typed) {
    platform.typed = {typed};
    return GoOnMenu(s.sh, platform);
  };
  for (const char* one : {"1", " 1 2", "+1", "1x", "\t01"}) EXPECT_EQ(answer(one), GoOn::Run) << one;
  for (const char* other : {"2", "", "x 1", "-1", "11", "１"})
    EXPECT_EQ(answer(other), GoOn::MainMenu) << other;
  EXPECT_EQ(GoOnMenu(s.sh, platform), GoOn::Leave);
}

TEST_F(ShellTest, APromptCutsBetweenCharacters) {
  platform.typed = {"あいう", "ab"};
  EXPECT_EQ(askLine(platform, 2), "あい");
  EXPECT_EQ(askLine(platform, 2), "ab");
  EXPECT_EQ(askLine(platform, 2), std::nullopt);
  EXPECT_EQ(withoutAnyBlanks("　 \t　NWW　 "), "NWW");
  EXPECT_TRUE(decimalNumber(" +12") == 12 && decimalNumber("") == 0 && !decimalNumber("3x"));
}

}  // namespace
}  // namespace zelvaro
