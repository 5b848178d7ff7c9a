// zelvaro.ini: what is read, who wins, what is written, and which files cannot be used.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/Settings.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

using ::testing::HasSubstr;

constexpr const char* kIni = "zelvaro.ini";

class SettingsTest : public ::testing::Test {
 protected:
  test::ScriptedPlatform platform;
  TSession s{platform};

  void read(const std::string& text) {
    platform.files[kIni] = text;
    ReadIni(s, kIni);
  }
};

TEST_F(SettingsTest, TheLaterOfTwoKeysWins) {
  struct Case {
    const char* text;
    int lang;
    const char* clock;
  };
  for (const Case& c : {
           Case{"[Mode]\nLangInt=1\nLangStr=JPN\n", kJapanese, "QPC"},
           Case{"[Mode]\nLangStr=ENU\nLangInt=0\n", kEnglish, "QPC"},
           Case{"[Mode]\nLangInt=0\n", kEnglish, "QPC"},  // an absent name stands for English, too
           Case{"[Mode]\nLangStr=jpn\n", kEnglish, "QPC"},
           Case{"[Mode]\nTimeFuncStr=std::clock()\nTimeFuncInt=1\n", kEnglish, "std::chrono"},
           Case{"[Mode]\nTimeFuncStr=std::chrono\nTimeFuncInt=2\n", kEnglish, "std::clock()"},
           Case{"[Mode]\nTimeFuncStr=std::clock()\nTimeFuncInt=2x\n", kEnglish, "QPC"},
       }) {
    read(c.text);
    for (const int lang : {s.sh.Lang, s.b.Lang, s.cs.Lang, s.modeData.LangIndex})
      EXPECT_EQ(lang, c.lang) << c.text;
    EXPECT_EQ(s.timeData.ClockName, c.clock) << c.text;
  }
}

TEST_F(SettingsTest, AMarkIsSkippedAndWhatIsNotReadIsNotWritten) {
  read("\xEF\xBB\xBF[Mode]\nLangStr=JPN\n");
  EXPECT_EQ(s.sh.Lang, kJapanese);
  EXPECT_EQ(platform.console, "");
  const std::string large((1 << 20) + 1, ';');
  read(large);
  WriteIni(s, kIni);
  EXPECT_TRUE(platform.files[kIni] == large);
  EXPECT_THAT(platform.console, HasSubstr("larger than 1 MiB.\n"));
  platform.files.clear();
  platform.folders.insert(kIni);
  ReadIni(s, kIni);
  WriteIni(s, kIni);
  EXPECT_THAT(platform.console, HasSubstr("cannot be read: Is a directory\n"));
  EXPECT_THAT(platform.console, HasSubstr("No settings are saved at the end.\n"));
  EXPECT_TRUE(platform.files.empty());
  platform.folders.clear();
  WriteIni(s, kIni);
  EXPECT_EQ(platform.files.count(kIni), 1u) << "it is gone meanwhile";
}

TEST_F(SettingsTest, AbsentAndUnparsableValues) {
  read(
      "[Mode]\nSimpleTitleIndex=1\nBusyModeIndex=7\nSilentModeIndex=1\n"
      "[Editor]\nTextEditorIndex=2\nTextEditorPath1=one\nTextEditorPath2=/usr/bin/two -w\n");
  EXPECT_EQ(s.sh.FightFunc, "WP");
  EXPECT_EQ(s.sh.LastSrcFile, "src\\pn1000");
  EXPECT_EQ(s.modeData.BusyModeIndex, 7);
  EXPECT_EQ(s.b.BusyModeIndex, 0);
  read("[Mode]\nSimpleTitleIndex=x\nBusyModeIndex=\nSilentModeIndex=false\n[Editor]\nTextEditorIndex=1.5\n");
  EXPECT_EQ(s.modeData.SimpleTitleIndex, 1);
  EXPECT_EQ(s.modeData.BusyModeIndex, 7);
  EXPECT_EQ(s.modeData.SilentModeIndex, 1);
  EXPECT_EQ(s.b.TextEditorIndex(), 0);
  EXPECT_EQ(s.b.TextEditorPath[0], "notepad.exe");
  EXPECT_EQ(s.b.TextEditorPath[1], "one");
  EXPECT_EQ(s.b.TextEditorPath[2], "/usr/bin/two -w");
  read("");  // an empty file is a file without settings
  EXPECT_EQ(platform.console, "");
}

TEST_F(SettingsTest, WritesTheRunningProgram) {
  read(
      "[Mode]\nLangStr=JPN\nFightFunc=NWW\nTimeFuncInt=2\nSimpleTitleIndex=4\nBusyModeIndex=1\n"
      "SilentModeIndex=1\n[Src]\nLastSrcFile=src\\例 1.txt\n"
      "[Editor]\nTextEditorIndex=1\nTextEditorPath1=\"/opt/my editor\" -w\n");
  WriteIni(s, kIni);
  EXPECT_EQ(platform.files[kIni],
            "[Mode]\nLangStr=JPN\nLangInt=0\nFightFunc=NWW\nTimeFuncStr=std::clock()\nTimeFuncInt=2\n"
            "SimpleTitleIndex=0\nBusyModeIndex=1\nSilentModeIndex=false\n"
            "[Src]\nLastSrcFile=src\\例 1.txt\n"
            "[Editor]\nTextEditorIndex=1\nTextEditorPath1=\"/opt/my editor\" -w\nTextEditorPath2=\n");
  s.sh.LastSrcFile.clear();
  WriteIni(s, kIni);
  EXPECT_THAT(platform.files[kIni], HasSubstr("LastSrcFile=src\\list792j.txt\n"));
}

TEST_F(SettingsTest, ControlCharactersNeverReachTheFile) {
  read("");
  s.sh.FightFunc = "W\x01P";
  s.sh.LastSrcFile = "a\n[Mode]\nLangStr=JPN";
  s.b.TextEditorPath[1] = "one\rtwo";
  s.b.TextEditorPath[2] = "three\x7F";
  WriteIni(s, kIni);
  const std::string& file = platform.files[kIni];
  EXPECT_THAT(file, HasSubstr("FightFunc=WP\n"));
  EXPECT_THAT(file, HasSubstr("LastSrcFile=src\\list792j.txt\n"));
  EXPECT_THAT(file, HasSubstr("TextEditorPath1=\nTextEditorPath2=\n"));
}

TEST_F(SettingsTest, AFileThatDoesNotParseIsToldKeptAndReplaced) {
  struct Case {
    const char* text;
    const char* line;
    const char* reason;
  };
  for (const Case& c : {
           Case{"[Mode]\nLangStr=JPN\nLangStr=ENU\n", "3", "duplicate key name"},
           Case{"[Mode]\nLangInt=0\n[Src]\nLastSrcFile=a\n[Mode]\n", "5", "duplicate section name"},
           Case{"[Mode\n", "1", "unmatched '['"},
           Case{"; a note\n=1\n", "2", "key expected"},
       }) {
    platform.console.clear();
    platform.files = {{"zelvaro.ini.bak", "older"}};
    read(c.text);
    EXPECT_EQ(platform.files["zelvaro.ini.bak"], "older");
    EXPECT_EQ(platform.files["zelvaro.ini.bak2"], c.text);
    EXPECT_THAT(platform.files[kIni], HasSubstr("FightFunc=WP\n"));
    EXPECT_EQ(s.sh.Lang, kEnglish);
    EXPECT_THAT(platform.console,
                HasSubstr(std::string("Line ") + c.line + " of the settings file zelvaro.ini " +
                          "cannot be understood: " + c.reason + "\n"));
  }
}

}  // namespace
}  // namespace zelvaro
