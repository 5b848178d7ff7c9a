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

TEST_F(ShellTest, TheLaterOfTwoSettingsWins) {
  const std::tuple<const char*, Language, const char*> cases[] = {
      {"LangInt=1\nLangStr=JPN", Language::Japanese, "QPC"},
      {"LangStr=ENU\nLangInt=0", Language::English, "QPC"},
      {"LangStr=jpn", Language::English, "QPC"},
      {"TimeFuncStr=std::clock()\nTimeFuncInt=1", Language::English, "std::chrono"},
      {"TimeFuncStr=std::clock()\nTimeFuncInt=2x", Language::English, "QPC"},
  };
  for (const auto& [text, language, clock] : cases) {
    read("[Mode]\n" + std::string(text) + "\n");
    EXPECT_EQ(s.wording.language, language) << text;
    EXPECT_EQ(s.timeData.ClockName, clock) << text;
  }
}

TEST_F(ShellTest, SettingsThatAreAbsentOrNoNumber) {
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

TEST_F(ShellTest, SettingsThatDoNotParseAreReportedByLine) {
  const std::pair<const char*, const char*> cases[] = {
      {"[Mode]\nLangStr=JPN\nLangStr=ENU\n", "3"},
      {"[Mode]\nLangInt=0\n[Src]\nLastSrcFile=a\n[Mode]\n", "5"},
      {"[Mode\n", "1"},
      {"; a note\n=1\n", "2"},
  };
  for (const auto& [text, line] : cases) {
    platform.console.clear();
    platform.files.clear();
    read(text);
    EXPECT_EQ(platform.files[ini + ".bak"], text);
    EXPECT_THAT(platform.files[ini], HasSubstr("FightFunc=WP\n"));
    EXPECT_THAT(platform.console,
                HasSubstr("Line " + std::string(line) + " of the settings file zelvaro.ini "));
  }
}

TEST_F(ShellTest, TheModeSelectorAndTheGoOnMenuReadANumber) {
  for (const auto& [typed, name] : {std::pair{"1", "NWW"},
                                    {" 6 ", "NH"},
                                    {"9", "NwW"},
                                    {"7", "NWW"},
                                    {"", "NWW"},
                                    {"-3", "NWW"},
                                    {"33", "WP"},
                                    {"2", "WP"}}) {
    s.sh.FightFunc = "WP";
    platform.typed = {typed};
    EXPECT_EQ(ModeSelector(s), std::string(name) == "WP" ? ModeChange::None : ModeChange::Chosen) << typed;
    EXPECT_EQ(s.sh.FightFunc, name) << typed;
  }
  EXPECT_EQ(GoOnMenu(s.sh, platform), GoOn::Run) << "without Warnings";
  s.sh.WarningKazu = 1;
  for (const auto& [typed, runs] : {std::pair{"1", true},
                                    {" 1 2", true},
                                    {"+1", true},
                                    {"1x", true},
                                    {"\t01", true},
                                    {"2", false},
                                    {"", false},
                                    {"x 1", false},
                                    {"-1", false},
                                    {"11", false},
                                    {"１", false}}) {
    platform.typed = {typed, "1"};
    EXPECT_EQ(GoOnMenu(s.sh, platform), runs ? GoOn::Run : GoOn::MainMenu) << typed;
  }
  platform.typed.clear();
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
