// What is typed at the main menu, the mode selector and the go-on menu.  What they show and do is in
// tests/transcripts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/GoOnMenu.h"
#include "shell/MainMenu.h"
#include "shell/ModeSelector.h"
#include "shell/Prompt.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class MenuTest : public ::testing::Test {
 protected:
  test::ScriptedPlatform platform;
  TSession s{platform};
  TMsgBase game{platform, s.dg};
  TMainMenu menu{s, game};
  const Pipeline* pipeline = findPipeline("WP");
  std::string name;

  MenuTest() {
    s.sh.FightFunc = "WP";
    s.sh.LastSrcFile = "src\\last.txt";
    platform.files["src/last.txt"] = "x";
  }
  void speak(int lang) {
    game.Lang = lang;
    s.setLanguage(lang);
  }
  /// Presses Enter, types the lines and gives the menu's result; the console is that of this call alone.
  int type(std::initializer_list<std::string> lines) {
    platform.console.clear();
    platform.actions.clear();
    name = "none";
    platform.typed.assign({""});
    platform.typed.insert(platform.typed.end(), lines);
    return menu.MainMenu(*pipeline, name);
  }
};

TEST_F(MenuTest, WhatIsNoNumberAndWhatIsNoCommand) {
  for (const std::string line : {"", "0", "3x", "x", " - ", "1 2", "１", "0x1", "  \t"}) {
    type({line});
    EXPECT_THAT(platform.console, HasSubstr("You are expected to input a good menu number.\n\nMenu:"))
        << line;
  }
  type({std::string(41, ' ') + "123"});  // behind the limit
  EXPECT_THAT(platform.console, HasSubstr("You are expected to input a good menu number.\n"));
  for (const char* line : {"6", "-1", "999999999999999999999", "+6", "33"}) {
    type({line});
    EXPECT_THAT(platform.console, HasSubstr("Input a menu number.\nTry it again!\n\nMenu:")) << line;
  }
}

TEST_F(MenuTest, NamesAFile) {
  s.dg.append({});
  EXPECT_EQ(type({" 1 ", "src/last"}), MenuGoFile);
  EXPECT_THAT(platform.console, HasSubstr("number.\n\nInput a filename (with no extension). \n"));
  EXPECT_EQ(name, "src\\last.txt");
  EXPECT_TRUE(s.dg.records().empty());
  EXPECT_EQ(type({"1", "missing"}), MenuGoFile);
  EXPECT_EQ(name, "");
  s.dg.append({});
  EXPECT_EQ(type({"+11" + std::string(38, ' ') + "x"}), MenuGoFile);  // the x lies behind the limit
  EXPECT_EQ(name, "src\\last.txt");
  EXPECT_EQ(s.b.SrcFilename, "src\\last.txt");
  EXPECT_TRUE(s.dg.records().empty());
}

TEST_F(MenuTest, TheMenuOfTheFixedFormKnowsFewerCommands) {
  pipeline = findPipeline("NH");
  for (const char* number : {"10", "7", "8", "9", "85", "88"}) {
    type({number});
    EXPECT_THAT(platform.console, StartsWith("\n\nPress Enter key to go next. \n"));
    EXPECT_THAT(platform.console, HasSubstr("10.  opens \"Zelvaro JPN Help.chm.\"\n"));
    EXPECT_THAT(platform.console, HasSubstr("Try it again!\n")) << number;
  }
  EXPECT_EQ(type({"123"}), MenuExit);
  EXPECT_EQ(platform.files.count("zelvaro.ini"), 0u);
}

TEST_F(MenuTest, TheModeSelectorStoresTheNameOfTheNumber) {
  struct Case {
    const char* typed;
    const char* before;
    const char* after;
  };
  for (const Case& c : {
           Case{"1", "WP", "NWW"},
           Case{"2", "WP", "WP"},
           Case{"2", "AP", "WP"},
           Case{"3", "WP", "AP"},
           Case{"4", "WP", "NA"},
           Case{"5", "WP", "NaW"},
           Case{" 6 ", "WP", "NH"},
           Case{"9", "WP", "NwW"},
           Case{"7", "WP", "NWW"},
           Case{"", "WP", "NWW"},
           Case{"-3", "WP", "NWW"},
           Case{"33", "WP", "WP"},
           Case{"7", "NWW", "NWW"},
       }) {
    s.sh.FightFunc = c.before;
    platform.typed.assign({c.typed});
    const bool changed = c.before != std::string(c.after);
    EXPECT_EQ(ModeSelector(s, kEnglish), changed ? MenuModeChanged : -1) << c.typed;
    EXPECT_EQ(s.sh.FightFunc, c.after) << c.typed;
  }
}

TEST_F(MenuTest, GoOnMenuAsksOnlyAfterWarnings) {
  EXPECT_EQ(GoOnMenu(game), GoOn::Run);
  EXPECT_EQ(platform.console, "");
  game.WarningKazu = 1;
  for (const char* line : {"1", " 1 2", "+1", "1x", "\t01"}) {
    platform.typed.assign({line});
    EXPECT_EQ(GoOnMenu(game), GoOn::Run) << line;
  }
  for (const char* line : {"2", "", "x", "x 1", "-1", "11", "１"}) {
    platform.typed.assign({line, "1"});
    EXPECT_EQ(GoOnMenu(game), GoOn::MainMenu) << line;
  }
  platform.typed.clear();
  EXPECT_EQ(GoOnMenu(game), GoOn::Leave);
}

TEST_F(MenuTest, AFolderNameIsCutBehindItsLimit) {
  type({"4", std::string(1000, 'a')});
  EXPECT_THAT(platform.actions, ElementsAre("list " + std::string(990, 'a')));
}

TEST(Prompt, CutsBetweenCharacters) {
  test::ScriptedPlatform platform;
  platform.typed.assign({"あいう", "ab"});
  EXPECT_EQ(askLine(platform, 2), "あい");
  EXPECT_EQ(askLine(platform, 2), "ab");
  EXPECT_EQ(askLine(platform, 2), std::nullopt);
  EXPECT_EQ(withoutAnyBlanks("　 \t　NWW　 "), "NWW");
  EXPECT_EQ(withoutAnyBlanks("　"), "");
}

}  // namespace
}  // namespace zelvaro
