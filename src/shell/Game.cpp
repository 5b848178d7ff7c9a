#include "shell/Game.h"

#include "shell/Prompt.h"
#include "shell/Settings.h"

namespace zelvaro {
namespace {

constexpr std::string_view kDefaultPipeline = "NWW";

}  // namespace

TGame::TGame(TSession& s) : TMsgBase(s.platform, s.dg), FightFunc(kDefaultPipeline), s_(s), menu_(s, *this) {}

void TGame::SetCurrentDirChH() {
  if (const std::optional<std::string> folder = s_.platform.workingDirectory()) {
    CurrentDirChH = *folder;
  } else {
    print("iRt=0: Fail to TGame::SetCurrentDirChH()\n");
  }
}

void TGame::Start() {
  FileFailure failure;
  if (!s_.platform.workingDirectory(&failure)) print("_getcwd error: " + failure.reason + "\n");
  ReadIni(s_, std::string(kIniFile));
  LastFileName = s_.sh.LastSrcFile;
  takeLanguage();
  FightFunc = withoutAnyBlanks(s_.sh.FightFunc);
  RunPipelines(FightFunc);
  s_.platform.flush();
}

int TGame::RunPipelines(const std::string& name) {
  FightFunc = name;
  for (;;) {
    // Two names are reserved without a pipeline behind them.
    if (FightFunc == "NewChH" || FightFunc == "NewChWH") return 0;
    const int result = fight(pipelineOf(FightFunc));
    if (result != MenuModeChanged) return result;
    FightFunc = withoutAnyBlanks(s_.sh.FightFunc);
    takeLanguage();
  }
}

const Pipeline& TGame::pipelineOf(const std::string& name) {
  const Pipeline* p = findPipeline(name);
  if (p == nullptr) {
    print("FightNwW(); by default.\n");
    p = findPipeline(kDefaultPipeline);
  }
  return *p;
}

void TGame::sumTallies() {
  ErrorKazu = s_.sh.ErrorKazu + s_.cs.ErrorKazu + s_.b.ErrorKazu;
  WarningKazu = s_.sh.WarningKazu + s_.cs.WarningKazu + s_.b.WarningKazu;
  NoteKazu = s_.sh.NoteKazu + s_.cs.NoteKazu + s_.b.NoteKazu;
  MemoKazu = s_.sh.MemoKazu + s_.cs.MemoKazu + s_.b.MemoKazu;
}

/// Sums the tallies behind a stage: whether its result or an Error leads back to the menu.
bool TGame::isFault(const Pipeline& p, int result) {
  sumTallies();
  return ErrorKazu > 0 || (p.testsResults && result < 0);
}

void TGame::takeLanguage() {
  Lang = s_.sh.Lang == kEnglish ? kEnglish : kJapanese;
  s_.setLanguage(Lang);
}

/// The slot as the settings gave it; `b` has corrected its own already.
void TGame::checkEditor() {
  const int index = s_.sh.TextEditorIndex;
  if (index >= 0 && index <= 2) return;
  print("Error: TextEditorFlag is out of range. \n");
  print("TextEditorIndex=" + std::to_string(index) + "\n");
  print("TextEditorIndex is corrected to be 0. \n");
  s_.sh.TextEditorIndex = 0;
}

void TGame::printBanner() {
  constexpr int kFullBanners = 3;
  if (++banners_ > kFullBanners) {
    print("\n");
    return;
  }
  if (s_.modeData.SimpleTitleIndex != 1) s_.modeData.SimpleTitleIndex = 0;
  const bool simple = s_.modeData.SimpleTitleIndex == 1;
  print(simple ? "Zelvaro  Ver. 4.6.4  \n" : "Zelvaro Assembly Suite  Ver. 4.6.4  \n");
  print("Win32  R_" + s_.sh.TextKind + "\n\n");
  print(simple ? "Assembler & Simulator\n" : "Assembler, Linker, and Simulator\n");
  print("\n\n");
}

/// The report line, and the report.  Only the English line has an end: the words of the run and the menus begin
/// with one in Japanese.
void TGame::writeReport(const Pipeline& p, std::string_view filename, std::string_view firstTimeJ,
                        bool& isFirst) {
  std::string line = "---> " + std::string(filename) + " ";
  if (Lang == kJapanese) {
    if (isFirst) line += firstTimeJ;
    isFirst = false;
    line += "メモリの全容が保存してあります。";
  } else {
    line += "\n";
  }
  print(line);
  p.stages->report(std::string(filename), s_.m, s_.b, s_.timeData, s_.platform);
}

}  // namespace zelvaro
