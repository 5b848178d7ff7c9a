// The main menu, its prompts and commands, the mode selector and the go-on menu, without a pipeline.
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
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* kShortE =
    "Menu:\n"
    " 1.  Input a filename to assemble.\n"
    "11.  assembles the previous file once again. \n"
    " 2.  aaAssembledRegMry.txt\n"
    " 3.  aaResultantRegMry.txt\n"
    " 4.  shows a list of files in a specified folder.\n"
    " 5.  displays a specified text file.\n"
    "55.  displays the previous file. \n"
    "123. Exit\n"
    "Input a menu number.\n";
constexpr const char* kLongE =
    "Menu:\n"
    " 1.  Input a filename to assemble.   e.g.  src/pn100.txt\n"
    "11.  assembles the previously assembled or opened file once again. \n"
    " 2.  shows an assembled result of aaAssembledRegMry.txt\n"
    " 3.  shows an execution result of aaResultantRegMry.txt\n"
    " 4.  shows a list of files in a specified folder.   e.g.  src\n"
    " 5.  displays a specified text file.   e.g.  src/list792j.txt\n"
    "55.  displays the previously opened or assembled text file. \n"
    "10.  opens \"Zelvaro JPN Help.chm.\"\n"
    "123. Exit \n"
    "Input a menu number.\n";
constexpr const char* kLongJ =
    "メニュー：\n"
    " 1.  ファイル名（プログラム名）を指定する。例 : src/pn100.txt\n"
    "11.  前回アセンブルまたは開いたファイルを再アセンブルする。\n"
    " 2.  アセンブル結果 を表示する。aaAssembledRegMry.txt\n"
    " 3.  実行結果       を表示する。aaResultantRegMry.txt\n"
    " 4.  指定フォルダの中のファイルリストを表示する。 \n"
    " 5.  指定のテキストファイルを表示する。\n"
    "55.  前回開いたまたはアセンブルしたファイルを再度開く。 \n"
    "10.  ヘルプファイルを表示する。\n"
    "123  プログラムを終了する。\n"
    "メニュー番号を入力してください。\n";
constexpr const char* kShortJ =
    "メニュー：\n"
    " 1.  ファイル名（プログラム名）を指定する。\n"
    "11.  前回のファイルを再アセンブルする。\n"
    " 2.  aaAssembledRegMry.txt\n"
    " 3.  aaResultantRegMry.txt\n"
    " 4.  指定フォルダの中のファイルリストを表示 \n"
    " 5.  指定のファイルを表示する。\n"
    "55.  前回のファイルを再度開く。 \n"
    "123 プログラムを終了する。\n"
    "メニュー番号を入力してください。\n";

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

TEST_F(MenuTest, LongAndShortInBothLanguages) {
  EXPECT_EQ(type({}), MenuExit);
  EXPECT_EQ(platform.console, std::string("\n\nPress your Enter key to go next. \n\n") + kLongE);
  type({});
  EXPECT_EQ(platform.console, std::string("\n\n** Press Enter key to go next. \n\n") + kLongE);
  s.modeData.SimpleTitleIndex = 1;
  type({});
  EXPECT_EQ(platform.console, std::string("\n\n** Press Enter key to go next. \n\n") + kShortE);
  speak(kJapanese);
  type({});
  EXPECT_EQ(platform.console, std::string("\n\n入力（Enter）キィを押すと次へ進む。\n\n") + kShortJ);
  s.modeData.SimpleTitleIndex = 0;
  type({});
  EXPECT_EQ(platform.console, std::string("\n\n入力（Enter）キィを押すと次へ進む。\n\n") + kLongJ);
  s.modeData.SilentModeIndex = 5;
  type({});
  EXPECT_THAT(platform.console, HasSubstr(kShortJ));
}

TEST_F(MenuTest, WhatIsNoNumberAndWhatIsNoCommand) {
  constexpr const char* kBad = "You are expected to input a good menu number.\n";
  const std::string blanks(41, ' ');
  for (const char* line : {"", "0", "3x", "x", " - ", "1 2", "１", "0x1", "  \t"}) {
    type({line});
    EXPECT_EQ(platform.console.substr(platform.console.size() - std::string(kLongE).size() - 1),
              std::string("\n") + kLongE);
    EXPECT_THAT(platform.console, HasSubstr(std::string("Input a menu number.\n") + kBad + "\nMenu:"))
        << line;
  }
  type({blanks + "123"});  // behind the limit
  EXPECT_THAT(platform.console, HasSubstr(kBad));
  for (const char* line : {"6", "-1", "999999999999999999999", "+6", "33"}) {
    type({line});
    EXPECT_THAT(platform.console, HasSubstr("Input a menu number.\nTry it again!\n\nMenu:")) << line;
  }
  speak(kJapanese);
  type({"", "6"});
  EXPECT_THAT(platform.console, HasSubstr("メニュー番号以外の入力がありましたのでもう一度！\n\nメニュー："));
  EXPECT_THAT(platform.console, HasSubstr("もう一度\n\nメニュー："));
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

TEST_F(MenuTest, ShowsFilesWithTheEditorInUse) {
  s.sh.LastSrcFile = "my src\\a b.txt";
  for (const char* number : {"2", "3", "55"}) {
    EXPECT_EQ(type({number}), MenuDone);
    EXPECT_THAT(platform.actions, ElementsAre(number == std::string("2")   ? "edit [] aaAssembledRegMry.txt"
                                              : number == std::string("3") ? "edit [] aaResultantRegMry.txt"
                                                                           : "edit [] my src/a b.txt"));
  }
  s.b.TextEditorPath[1] = "code -w";
  s.b.SetTextEdIndex(1);
  s.chooseEditor();
  type({"2"});
  EXPECT_THAT(platform.actions, ElementsAre("edit [code -w] aaAssembledRegMry.txt"));
  type({"5", "src/last"});
  EXPECT_THAT(platform.actions, ElementsAre("edit [code -w] src/last.txt"));
  EXPECT_EQ(s.sh.LastSrcFile, "src\\last.txt");
  EXPECT_EQ(type({"5", "missing"}), MenuDone);
  EXPECT_THAT(platform.actions, ElementsAre());
  s.sh.LastSrcFile.clear();
  EXPECT_EQ(type({"55"}), MenuExit);  // the menu stays, and the input ends there
  EXPECT_THAT(platform.console, HasSubstr("Try it again!\n\nMenu:"));
}

TEST_F(MenuTest, ListsAFolder) {
  EXPECT_EQ(type({"4", "src/example"}), MenuDone);
  EXPECT_THAT(platform.console,
              HasSubstr("number.\nInput a folder name.  eg1:  src     eg2:  src/example\n"));
  EXPECT_THAT(platform.actions, ElementsAre("list src/example"));
  type({"4", "  \t"});
  EXPECT_THAT(platform.console, HasSubstr("No Input Error!\n"));
  EXPECT_THAT(platform.actions, ElementsAre("list ."));
  type({"4", " my folder "});
  EXPECT_THAT(platform.actions, ElementsAre("list my folder"));
  type({"4", std::string(1000, 'a')});
  EXPECT_THAT(platform.actions, ElementsAre("list " + std::string(990, 'a')));
}

TEST_F(MenuTest, OpensTheHelpOrTheGuide) {
  EXPECT_EQ(type({"10"}), MenuDone);
  EXPECT_THAT(platform.console,
              HasSubstr("Neither the help file Zelvaro JPN Help.chm nor the guide GUIDE.en.md"));
  platform.files["../docs/GUIDE.en.md"] = platform.files["../docs/GUIDE.ja.md"] = "guide";
  type({"10"});
  EXPECT_THAT(platform.actions, ElementsAre("edit [] ../docs/GUIDE.en.md"));
  speak(kJapanese);
  type({"10"});
  EXPECT_THAT(platform.actions, ElementsAre("edit [] ../docs/GUIDE.ja.md"));
  platform.files["Zelvaro JPN Help.chm"] = "help";
  type({"10"});
  EXPECT_THAT(platform.actions, ElementsAre("open Zelvaro JPN Help.chm"));
}

TEST_F(MenuTest, UnlistedCommands) {
  type({"9"});
  EXPECT_THAT(platform.console, HasSubstr("number.\n\nメニュー："));
  for (const int lang : {game.Lang, s.sh.Lang, s.cs.Lang, s.b.Lang, s.modeData.LangIndex})
    EXPECT_EQ(lang, kJapanese);
  type({"9", "85", "88"});
  EXPECT_EQ(game.Lang, kEnglish);
  EXPECT_THAT(platform.actions, ElementsAre("delete zelvaro.ini", "delete zelvaro.ini"));
  platform.files["zelvaro.ini"] = "[Mode]\nLangStr=JPN\n";
  s.b.TextEditorPath[1] = "code";
  s.b.SetTextEdIndex(1);
  s.chooseEditor();
  EXPECT_EQ(type({"8"}), MenuDone);
  EXPECT_THAT(platform.actions, ElementsAre("edit [] zelvaro.ini"));  // whatever editor is in use
  EXPECT_EQ(s.sh.Lang, kJapanese);
}

TEST_F(MenuTest, LeavingSavesAndTheEndOfTheInputDoesNot) {
  for (const char* number : {"6", "1", "4", "5", "7"}) {
    EXPECT_EQ(type({number}), MenuExit);
    EXPECT_EQ(platform.files.count("zelvaro.ini"), 0u);
  }
  platform.typed.clear();
  EXPECT_EQ(menu.MainMenu(*pipeline, name), MenuExit);  // at the go-ahead prompt
  EXPECT_EQ(platform.files.count("zelvaro.ini"), 0u);
  EXPECT_EQ(type({"123"}), MenuExit);
  EXPECT_THAT(platform.files["zelvaro.ini"], HasSubstr("LastSrcFile=src\\last.txt\n"));
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

class ModeSelectorTest : public MenuTest {};

TEST_F(ModeSelectorTest, StoresTheNameOfTheNumber) {
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

TEST_F(ModeSelectorTest, AsksAgainAfterWhatIsNoNumber) {
  constexpr const char* kModes =
      "Mode Selector: Input a menu number.\n1. NWW (by default on the past)\n2. WP (Recommended at present)\n"
      "3. AP\n4. NA\n5. NaW\n6. NH\n9. NwW\n33. Cancel\n";
  platform.typed.assign({"3x", "33"});
  EXPECT_EQ(ModeSelector(s, kEnglish), -1);
  EXPECT_EQ(platform.console,
            std::string(kModes) + "You are expected to input a happy menu number.\n" + kModes);
  platform.typed.assign({"WP", "33"});
  EXPECT_EQ(ModeSelector(s, kJapanese), -1);
  EXPECT_THAT(platform.console, HasSubstr("メニュー番号以外の入力がありましたのでもう一度！\nMode Selector"));
}

TEST_F(ModeSelectorTest, AChangeLeadsOutOfTheMenu) {
  EXPECT_EQ(type({"7", "2", "7", "33", "7", "3"}), MenuModeChanged);
  EXPECT_EQ(s.sh.FightFunc, "AP");
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
  platform.console.clear();
  EXPECT_EQ(GoOnMenu(game), GoOn::Leave);
  EXPECT_EQ(platform.console,
            "\n\n\nMenu:\n1.  Go on this execution. \n2.  Go back to Main Menu. \nInput a menu number. \n");
  platform.console.clear();
  speak(kJapanese);
  GoOnMenu(game);
  EXPECT_EQ(platform.console,
            "\n\nメニュー:\n１ このまま実行する。 \n２ メイン メニューにもどる。 \n"
            "メニュウ番号を入力してください。 \n");
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
