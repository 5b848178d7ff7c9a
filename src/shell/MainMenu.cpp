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

constexpr Message tryAgain = notice("try-again", args(), {.ja = "もう一度\n", .en = "Try it again!\n"});
constexpr Message askFileToAssemble = notice("ask-file-to-assemble", args(),
                                             {.ja = "\nファイル名(拡張子省略可) を入力してください。 \n",
                                              .en = "\nInput a filename (with no extension). \n"});
constexpr Message askFolder =
    notice("ask-folder", args(),
           {.ja = "フォルダ名を入力してください。　例１： src  例２：　src/example\n",
            .en = "Input a folder name.  eg1:  src     eg2:  src/example\n"});
constexpr Message noInput = notice("no-input", args(), bothLanguages("No Input Error!\n"));
constexpr Message askFileToShow =
    notice("ask-file-to-show", args(),
           {.ja = "テキスト名を入力してください。　例１： src\\pn3035  　例２: src/list792j\n",
            .en = "Input a text filename to edit. \n"});
constexpr Message noMenuNumber = notice("no-menu-number", args(),
                                        {.ja = "メニュー番号以外の入力がありましたのでもう一度！\n",
                                         .en = "You are expected to input a good menu number.\n"});
constexpr Message goAhead = notice(
    "go-ahead", args(),
    {.ja = "\n\n入力（Enter）キィを押すと次へ進む。\n", .en = "\n\nPress your Enter key to go next. \n"},
    {{kNH, {.ja = {}, .en = "\n\nPress Enter key to go next. \n"}}});
constexpr Message goAheadAgain =
    notice("go-ahead-again", args(),
           {.ja = "\n\n入力（Enter）キィを押すと次へ進む。\n", .en = "\n\n** Press Enter key to go next. \n"},
           {{kNH, {.ja = {}, .en = "\n\nPress Enter key to go next. \n"}}});

/// The objects that a command uses.
struct Command {
  TSession& s;
  const Family& family;
  std::string& name;  ///< the file to assemble
};

/// A command's result, or nothing if the menu continues.
using Result = std::optional<MenuResult>;

/// Opens a source with the selected editor.  Without a name nothing is opened.
Result showSource(const Command& c, const std::string& name) {
  showFile(c.s, c.s.editorData.Command, nativePath(NormalizePath(name)));
  return MenuResult::Done;
}
Result showReport(const Command& c, std::string_view name) {
  editFile(c.s, c.s.editorData.Command, std::string(name));
  return MenuResult::Done;
}

Result assembleNamed(const Command& c) {
  c.s.channel.say(askFileToAssemble);
  const std::optional<std::string> name = FindSrcFile(c.s.sh, c.s.platform);
  if (!name) return MenuResult::Leave;
  c.name = *name;
  c.s.dg.ClearLog();
  return MenuResult::File;
}

Result assembleLast(const Command& c) {
  c.name = c.s.b.SrcFilename = c.s.sh.LastSrcFile;
  c.s.dg.ClearLog();
  return MenuResult::File;
}

Result showAssembled(const Command& c) {
  return showReport(c, AssembledRegFile);
}
Result showResultant(const Command& c) {
  return showReport(c, ResultantRegFile);
}

Result listNamedFolder(const Command& c) {
  c.s.channel.say(askFolder);
  const std::optional<std::string> typed = askLine(c.s.platform, kFolderLimit);
  if (!typed) return MenuResult::Leave;
  const std::string folder = NormalizePath(*typed);
  if (folder.empty()) c.s.channel.say(noInput);
  // Without a name the working directory is listed.
  listFolder(c.s, folder.empty() ? "." : nativePath(folder));
  return MenuResult::Done;
}

Result showNamed(const Command& c) {
  c.s.channel.say(askFileToShow);
  const std::optional<std::string> name = FindSrcFile(c.s.sh, c.s.platform);
  if (!name) return MenuResult::Leave;
  return showSource(c, *name);
}

Result showLast(const Command& c) {
  if (c.s.sh.LastSrcFile.empty() && c.s.b.TextEditorIndex() != 0) {
    c.s.channel.say(tryAgain);
    return std::nullopt;
  }
  return showSource(c, c.s.sh.LastSrcFile);
}

Result openHelp(const Command& c) {
  openHelpFile(c.s);
  return MenuResult::Done;
}

Result selectMode(const Command& c) {
  switch (ModeSelector(c.s)) {
    case ModeChange::None:
      return std::nullopt;
    case ModeChange::Chosen:
      return MenuResult::OtherPipeline;
    case ModeChange::InputEnded:
      break;
  }
  return MenuResult::Leave;
}

Result editSettings(const Command& c) {
  editFile(c.s, EditorCommand{}, std::string(kIniFile));
  ReadIni(c.s, std::string(kIniFile));
  return MenuResult::Done;
}

Result toggleLanguage(const Command& c) {
  Language& language = c.s.wording.language;
  language = language == Language::Japanese ? Language::English : Language::Japanese;
  return std::nullopt;
}

Result deleteSettings(const Command& c) {
  deleteAfterQuestion(c.s, std::string(kIniFile));
  return std::nullopt;
}

Result leave(const Command& c) {
  if (c.family.savesSettings) WriteIni(c.s, std::string(kIniFile));
  return MenuResult::Leave;
}

struct MenuRow {
  int number;
  Words longText;           ///< empty: not listed
  Words shortText;          ///< empty: not listed in the short menu
  std::string_view report;  ///< a report's name after the text
  FamilySet families;       ///< those that have the command
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
            kAll,
            assembleNamed},
    MenuRow{11,
            {"11.  前回アセンブルまたは開いたファイルを再アセンブルする。",
             "11.  assembles the previously assembled or opened file once again. "},
            {"11.  前回のファイルを再アセンブルする。", "11.  assembles the previous file once again. "},
            "",
            kAll,
            assembleLast},
    MenuRow{2,
            {" 2.  アセンブル結果 を表示する。", " 2.  shows an assembled result of "},
            {" 2.  ", " 2.  "},
            AssembledRegFile,
            kAll,
            showAssembled},
    MenuRow{3,
            {" 3.  実行結果       を表示する。", " 3.  shows an execution result of "},
            {" 3.  ", " 3.  "},
            ResultantRegFile,
            kAll,
            showResultant},
    MenuRow{
        4,
        {" 4.  指定フォルダの中のファイルリストを表示する。 ",
         " 4.  shows a list of files in a specified folder.   e.g.  src"},
        {" 4.  指定フォルダの中のファイルリストを表示 ", " 4.  shows a list of files in a specified folder."},
        "",
        kAll,
        listNamedFolder},
    MenuRow{5,
            {" 5.  指定のテキストファイルを表示する。",
             " 5.  displays a specified text file.   e.g.  src/list792j.txt"},
            {" 5.  指定のファイルを表示する。", " 5.  displays a specified text file."},
            "",
            kAll,
            showNamed},
    MenuRow{55,
            {"55.  前回開いたまたはアセンブルしたファイルを再度開く。 ",
             "55.  displays the previously opened or assembled text file. "},
            {"55.  前回のファイルを再度開く。 ", "55.  displays the previous file. "},
            "",
            kAll,
            showLast},
    MenuRow{10,
            {"10.  ヘルプファイルを表示する。", "10.  opens \"Zelvaro JPN Help.chm.\""},
            kUnlisted,
            "",
            kAllButNH,
            openHelp},
    MenuRow{123,
            {"123  プログラムを終了する。", "123. Exit "},
            {"123 プログラムを終了する。", "123. Exit"},
            "",
            kAll,
            leave},
    MenuRow{7, kUnlisted, kUnlisted, "", kAllButNH, selectMode},
    MenuRow{8, kUnlisted, kUnlisted, "", kAllButNH, editSettings},
    MenuRow{9, kUnlisted, kUnlisted, "", kAllButNH, toggleLanguage},
    MenuRow{85, kUnlisted, kUnlisted, "", kAllButNH, deleteSettings},
    MenuRow{88, kUnlisted, kUnlisted, "", kAllButNH, deleteSettings},
};

void printMenu(const Command& c) {
  const bool isShort = c.s.modeData.SilentModeIndex != 0 || c.s.modeData.SimpleTitleIndex != 0;
  const Language language = c.s.wording.language;
  std::string menu = "\n" + std::string(kMenuHead.in(language));
  menu += '\n';
  for (const MenuRow& row : kMenuRows) {
    const Words& words = isShort ? row.shortText : row.longText;
    const std::string_view text = words.in(language);
    if (text.empty()) continue;
    menu += text;
    menu += row.report;
    menu += '\n';
  }
  menu += kMenuFoot.in(language);
  c.s.platform.print(menu + "\n");
}

/// Executes the command of that number.  Returns its result, or nothing if the menu continues.
Result carryOut(const Command& c, long number) {
  for (const MenuRow& row : kMenuRows)
    if (row.number == number && row.families.contains(c.family.id)) return row.run(c);
  c.s.channel.say(tryAgain);
  return std::nullopt;
}

}  // namespace

MenuResult TMainMenu::MainMenu(const Family& family, std::string& name) {
  const Command c{s_, family, name};
  if (!askGoAhead()) return MenuResult::Leave;
  for (;;) {
    printMenu(c);
    const std::optional<std::string> line = askLine(s_.platform, kNumberLimit);
    if (!line) return MenuResult::Leave;
    const long number = decimalNumber(withoutBlanks(*line)).value_or(0);
    if (number == 0) {
      s_.channel.say(noMenuNumber);
      continue;
    }
    if (const Result result = carryOut(c, number)) return *result;
  }
}

/// Waits until the user has read the output of the last run.  False at the end of the input.
bool TMainMenu::askGoAhead() {
  s_.channel.say(askedInEnglish_ ? goAheadAgain : goAhead);
  if (s_.wording.language == Language::English) askedInEnglish_ = true;
  s_.platform.bringConsoleToFront();
  return askLine(s_.platform, kGoAheadLimit).has_value();
}

RowList rowsOfMainMenu() {
  return rows(tryAgain, askFileToAssemble, askFolder, noInput, askFileToShow, noMenuNumber, goAhead,
              goAheadAgain);
}

}  // namespace zelvaro
