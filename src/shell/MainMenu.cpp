#include "shell/MainMenu.h"

#include <array>
#include <optional>

#include "shell/HelpFile.h"
#include "shell/ModeSelector.h"
#include "shell/Prompt.h"
#include "shell/Settings.h"
#include "shell/UserCommands.h"

namespace zelvaro {
namespace {

constexpr std::size_t kGoAheadLimit = 45;
constexpr std::size_t kNumberLimit = 41;
constexpr std::size_t kFolderLimit = 990;

/// What a command works on.
struct Command {
  TSession& s;
  TMsgBase& game;
  const Pipeline& pipeline;
  std::string& name;  ///< the file to assemble

  std::string_view say(std::string_view ja, std::string_view en) const {
    return inLanguage(game.Lang, ja, en);
  }
  void print(std::string_view ja, std::string_view en) const { game.print(say(ja, en)); }
};

/// A command's result: one of the menu, or nothing where the menu stays.
using Result = std::optional<int>;

void printTryAgain(const Command& c) {
  c.print("もう一度\n", "Try it again!\n");
}

/// Shows a source with the editor in use.  No editor is opened without a name.
Result showSource(const Command& c, const std::string& name) {
  showFile(c.s.platform, c.game.Lang, c.s.editorData.Command, nativePath(NormalizePath(name)));
  return MenuDone;
}
Result showReport(const Command& c, std::string_view name) {
  editFile(c.s.platform, c.game.Lang, c.s.editorData.Command, std::string(name));
  return MenuDone;
}

Result assembleNamed(const Command& c) {
  c.print("\nファイル名(拡張子省略可) を入力してください。 \n", "\nInput a filename (with no extension). \n");
  const std::optional<std::string> name = FindSrcFile(c.s.sh);
  if (!name) return MenuExit;
  c.name = *name;
  c.s.dg.ClearLog();
  return MenuGoFile;
}

Result assembleLast(const Command& c) {
  c.name = c.s.b.SrcFilename = c.s.sh.LastSrcFile;
  c.s.dg.ClearLog();
  return MenuGoFile;
}

Result showAssembled(const Command& c) {
  return showReport(c, AssembledRegFile);
}
Result showResultant(const Command& c) {
  return showReport(c, ResultantRegFile);
}

Result listNamedFolder(const Command& c) {
  c.print("フォルダ名を入力してください。　例１： src  例２：　src/example\n",
          "Input a folder name.  eg1:  src     eg2:  src/example\n");
  const std::optional<std::string> typed = askLine(c.s.platform, kFolderLimit);
  if (!typed) return MenuExit;
  const std::string folder = NormalizePath(*typed);
  if (folder.empty()) c.game.print("No Input Error!\n");
  // Without a name it is the working directory that is listed.
  listFolder(c.s.platform, c.game.Lang, folder.empty() ? "." : nativePath(folder));
  return MenuDone;
}

Result showNamed(const Command& c) {
  c.print("テキスト名を入力してください。　例１： src\\pn3035  　例２: src/list792j\n",
          "Input a text filename to edit. \n");
  const std::optional<std::string> name = FindSrcFile(c.s.sh);
  if (!name) return MenuExit;
  return showSource(c, *name);
}

Result showLast(const Command& c) {
  if (c.s.sh.LastSrcFile.empty() && c.s.b.TextEditorIndex() != 0) {
    printTryAgain(c);
    return std::nullopt;
  }
  return showSource(c, c.s.sh.LastSrcFile);
}

Result openHelp(const Command& c) {
  openHelpFile(c.s, c.game.Lang);
  return MenuDone;
}

Result selectMode(const Command& c) {
  const int changed = ModeSelector(c.s, c.game.Lang);
  if (changed < 0) return std::nullopt;
  return changed;
}

Result editSettings(const Command& c) {
  editFile(c.s.platform, c.game.Lang, EditorCommand{}, std::string(kIniFile));
  ReadIni(c.s, std::string(kIniFile));
  return MenuDone;
}

Result toggleLanguage(const Command& c) {
  c.game.Lang = c.game.Lang == kJapanese ? kEnglish : kJapanese;
  c.s.setLanguage(c.game.Lang);
  return std::nullopt;
}

Result deleteSettings(const Command& c) {
  deleteAfterQuestion(c.s.platform, c.game.Lang, std::string(kIniFile));
  return std::nullopt;
}

Result leave(const Command& c) {
  if (c.pipeline.savesSettings) WriteIni(c.s, std::string(kIniFile));
  return MenuExit;
}

struct MenuRow {
  int number;
  Words longText;           ///< empty: not listed
  Words shortText;          ///< empty: not listed in the short menu
  std::string_view report;  ///< a report's name behind the text
  MenuOf menus;             ///< the menus that know the command; both list it in the same words
  Result (*run)(const Command&);
};

constexpr Words kUnlisted{};
constexpr Words kMenuHead{"メニュー：", "Menu:"};
constexpr Words kMenuFoot{"メニュー番号を入力してください。", "Input a menu number."};

constexpr std::array kMenuRows{
    MenuRow{1,
            {" 1.  ファイル名（プログラム名）を指定する。例 : src/pn100.txt",
             " 1.  Input a filename to assemble.   e.g.  src/pn100.txt"},
            {" 1.  ファイル名（プログラム名）を指定する。", " 1.  Input a filename to assemble."},
            "",
            kBothMenus,
            assembleNamed},
    MenuRow{11,
            {"11.  前回アセンブルまたは開いたファイルを再アセンブルする。",
             "11.  assembles the previously assembled or opened file once again. "},
            {"11.  前回のファイルを再アセンブルする。", "11.  assembles the previous file once again. "},
            "",
            kBothMenus,
            assembleLast},
    MenuRow{2,
            {" 2.  アセンブル結果 を表示する。", " 2.  shows an assembled result of "},
            {" 2.  ", " 2.  "},
            AssembledRegFile,
            kBothMenus,
            showAssembled},
    MenuRow{3,
            {" 3.  実行結果       を表示する。", " 3.  shows an execution result of "},
            {" 3.  ", " 3.  "},
            ResultantRegFile,
            kBothMenus,
            showResultant},
    MenuRow{
        4,
        {" 4.  指定フォルダの中のファイルリストを表示する。 ",
         " 4.  shows a list of files in a specified folder.   e.g.  src"},
        {" 4.  指定フォルダの中のファイルリストを表示 ", " 4.  shows a list of files in a specified folder."},
        "",
        kBothMenus,
        listNamedFolder},
    MenuRow{5,
            {" 5.  指定のテキストファイルを表示する。",
             " 5.  displays a specified text file.   e.g.  src/list792j.txt"},
            {" 5.  指定のファイルを表示する。", " 5.  displays a specified text file."},
            "",
            kBothMenus,
            showNamed},
    MenuRow{55,
            {"55.  前回開いたまたはアセンブルしたファイルを再度開く。 ",
             "55.  displays the previously opened or assembled text file. "},
            {"55.  前回のファイルを再度開く。 ", "55.  displays the previous file. "},
            "",
            kBothMenus,
            showLast},
    MenuRow{10,
            {"10.  ヘルプファイルを表示する。", "10.  opens \"Zelvaro JPN Help.chm.\""},
            kUnlisted,
            "",
            kMainMenu,
            openHelp},
    MenuRow{123,
            {"123  プログラムを終了する。", "123. Exit "},
            {"123 プログラムを終了する。", "123. Exit"},
            "",
            kBothMenus,
            leave},
    MenuRow{7, kUnlisted, kUnlisted, "", kMainMenu, selectMode},
    MenuRow{8, kUnlisted, kUnlisted, "", kMainMenu, editSettings},
    MenuRow{9, kUnlisted, kUnlisted, "", kMainMenu, toggleLanguage},
    MenuRow{85, kUnlisted, kUnlisted, "", kMainMenu, deleteSettings},
    MenuRow{88, kUnlisted, kUnlisted, "", kMainMenu, deleteSettings},
};

void printMenu(const Command& c) {
  const bool isShort = c.s.modeData.SilentModeIndex != 0 || c.s.modeData.SimpleTitleIndex != 0;
  std::string menu(c.say(kMenuHead.ja, kMenuHead.en));
  menu += '\n';
  for (const MenuRow& row : kMenuRows) {
    const Words& words = isShort ? row.shortText : row.longText;
    const std::string_view text = c.say(words.ja, words.en);
    if (text.empty()) continue;
    menu += text;
    menu += row.report;
    menu += '\n';
  }
  menu += c.say(kMenuFoot.ja, kMenuFoot.en);
  c.game.print(menu + "\n");
}

/// Carries out the command of that number: its result, or nothing where the menu stays.
Result carryOut(const Command& c, long number) {
  for (const MenuRow& row : kMenuRows)
    if (row.number == number && (row.menus & c.pipeline.menu) != 0) return row.run(c);
  printTryAgain(c);
  return std::nullopt;
}

}  // namespace

int TMainMenu::MainMenu(const Pipeline& pipeline, std::string& name) {
  const Command c{s_, game_, pipeline, name};
  if (!askGoAhead(pipeline)) return MenuExit;
  for (;;) {
    game_.print("\n");
    printMenu(c);
    const std::optional<std::string> line = askLine(s_.platform, kNumberLimit);
    if (!line) return MenuExit;
    const long number = decimalNumber(withoutBlanks(*line)).value_or(0);
    if (number == 0) {
      c.print("メニュー番号以外の入力がありましたのでもう一度！\n",
              "You are expected to input a good menu number.\n");
      continue;
    }
    if (const Result result = carryOut(c, number)) return *result;
  }
}

/// Lets the user read what the last run has printed.  False at the end of the input.
bool TMainMenu::askGoAhead(const Pipeline& pipeline) {
  std::string_view en = "\nPress your Enter key to go next. ";
  if (pipeline.menu == kMainMenuNH) {
    en = "\nPress Enter key to go next. ";
  } else if (askedInEnglish_) {
    en = "\n** Press Enter key to go next. ";
  }
  if (game_.Lang != kJapanese) askedInEnglish_ = true;
  game_.print("\n" + std::string(inLanguage(game_.Lang, "\n入力（Enter）キィを押すと次へ進む。", en)) + "\n");
  s_.platform.bringConsoleToFront();
  return askLine(s_.platform, kGoAheadLimit).has_value();
}

}  // namespace zelvaro
