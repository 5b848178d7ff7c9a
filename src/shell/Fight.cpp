// One pipeline: the loop from the menu through the stages of a source file to its run, and back.
#include <algorithm>
#include <new>

#include "diag/Summaries.h"
#include "shell/Game.h"
#include "shell/GoOnMenu.h"
#include "shell/Prompt.h"

namespace zelvaro {

/// Returns 0 when the user leaves, MenuModeChanged when another pipeline was chosen.
int TGame::fight(const Pipeline& p) {
  begin(p);
  int result = MenuGoFile;
  while (result != MenuExit && result != MenuModeChanged) result = pass(p);
  if (result == MenuModeChanged) TextKind = withoutAnyBlanks(s_.sh.TextKind);
  release();
  s_.sh.CurrentFile.clear();
  return result == MenuModeChanged ? MenuModeChanged : 0;
}

/// One pass of the loop.  The menu is outside of what memory is told about: it takes a line of the user
/// before anything else is tried, so that a lack of memory that lasts ends the program.
int TGame::pass(const Pipeline& p) {
  withinMemory([&] { endLastRun(p); });
  clearForPass(p);
  std::string name;
  int result = menu_.MainMenu(p, name);
  takeLanguage();
  if (result == MenuGoFile && !withinMemory([&] { result = assembleAndRun(p, name); })) result = LoadFailed;
  return result;
}

/// Does a piece of work; false, told and with the work forgotten, where memory did not suffice.
template <class Work>
bool TGame::withinMemory(Work work) {
  try {
    work();
    return true;
  } catch (const std::bad_alloc&) {
    release();
    s_.dg.ClearLog();
    clearAllTallies();
    print(inLanguage(Lang, "\nメモリが足りないので、メニューに戻ります。\n",
                     "\nThere is not enough memory for this. Back to the menu. \n"));
    return false;
  }
}

/// From the chosen file to the end of its run: MenuGoFile, LoadFailed, or MenuExit at the end of the input.
int TGame::assembleAndRun(const Pipeline& p, const std::string& name) {
  const bool loaded = readSource(p, name);
  takeStamp(s_.timeData, s_.platform, Stamp::AssembleStart);
  if (!loaded) return LoadFailed;
  LastFileName = s_.b.SrcFilename = name;
  if (!runStages(p) || !link(p)) return MenuGoFile;
  if (!runImage(p)) return MenuExit;
  release();
  return MenuGoFile;
}

void TGame::begin(const Pipeline& p) {
  if (p.keepsLog) s_.dg.ClearLog();
  s_.b.clearTables();
  s_.sh.CurrentFile.clear();
  if (!p.textKind.empty()) s_.sh.TextKind = p.textKind;
  printBanner();
  takeLanguage();
  if (p.testsEditor) checkEditor();
  s_.chooseEditor();
}

/// What a run that Errors have stopped shows at its end.
void TGame::endLastRun(const Pipeline& p) {
  sumTallies();
  if (ErrorKazu == 0) return;
  takeStamp(s_.timeData, s_.platform, Stamp::AssembleEnd);
  if (p.keepsLog) s_.dg.ReplayLog(s_.platform);
  print(timeLineOfErrors(s_.timeData, s_.platform, p.fixedTimeLines));
  SumUpErrors(*this, " 個の エラー があるので修正が必要です。 ", 'h');
}

void TGame::clearForPass(const Pipeline& p) {
  if (p.keepsLog) s_.dg.ClearLog();
  s_.b.clearTables();
  clearAllTallies();
  s_.chooseEditor();
  s_.b.SrcFilename = LastFileName;
  if (!LastFileName.empty()) s_.sh.CurrentFile = LastFileName;
}

void TGame::clearAllTallies() {
  for (TMsgBase* object : {static_cast<TMsgBase*>(this), static_cast<TMsgBase*>(&s_.sh),
                           static_cast<TMsgBase*>(&s_.cs), static_cast<TMsgBase*>(&s_.b)})
    object->clearTallies();
}

/// Whether the lines of the file are in the store.
bool TGame::readSource(const Pipeline& p, const std::string& name) {
  takeStamp(s_.timeData, s_.platform, Stamp::ReadFileStart);
  Assembly a = s_.assembly();
  return p.stages->load(a, s_.moziCodeData, name, s_.b.SimpleTitleIndex) == 0;
}

/// The rows of the pipeline, step by step.  False where a fault leads back to the menu.
bool TGame::runStages(const Pipeline& p) {
  const std::span<const StageRow> rows = p.stages->rows;
  for (std::size_t first = 0; first < rows.size();) {
    std::size_t behind = first + 1;
    // Rows of one step that go by program belong together.
    while (behind < rows.size() && rows[first].per == Per::Program && rows[behind].per == Per::Program &&
           rows[behind].step == rows[first].step)
      ++behind;
    if (!runStep(p, rows.subspan(first, behind - first))) return false;
    first = behind;
  }
  takeStamp(s_.timeData, s_.platform, Stamp::AssembleEnd);
  if (Lang == kJapanese) {
    SumUpWarningsJ(*this, "", 'f');
  } else {
    SumUpErrors(*this, "", 'f');
  }
  return true;
}

bool TGame::runStep(const Pipeline& p, std::span<const StageRow> rows) {
  Assembly a = s_.assembly();
  const int times = rows.front().per == Per::File ? 1 : p.stages->programs(s_.b);
  int result = 0;
  for (int prg = 0; prg < times; ++prg) {
    for (const StageRow& row : rows) {
      if (!row.names.of(p.stages->family).empty()) result = std::min(result, row.run(a, prg));
    }
  }
  return rows.back().behind == Behind::Next || !isFault(p, result);
}

/// False where the link gave Errors; no time line follows then.
bool TGame::link(const Pipeline& p) {
  s_.sh.CurrentFile.clear();
  s_.m.reset();
  s_.m.IsEnglish = Lang;
  Assembly a = s_.assembly();
  const int linked = p.stages->link(a, s_.m);
  sumTallies();
  if (ErrorKazu > 0 || linked < 0) return false;
  takeStamp(s_.timeData, s_.platform, Stamp::LinkEnd);
  print(timeLineOfLink(s_.timeData, s_.platform, p.fixedTimeLines));
  PrgFilename = s_.m.Filename = s_.b.FirstPrgName;
  print(inLanguage(Lang, "アセンブル成功 ", "Successfully Assembled! "));
  writeReport(p, AssembledRegFile, "\nアセンブルされた", isFirstAssembled_);
  return true;
}

/// The go-on question and the run.  False at the end of the input.
bool TGame::runImage(const Pipeline& p) {
  const GoOn answer = GoOnMenu(*this);
  if (answer == GoOn::Leave) return false;
  if (answer == GoOn::MainMenu) return true;
  p.stages->run(s_.m, RunEnvironment{s_.platform, s_.timeData, s_.b.PrgEndAdr});
  s_.m.setMaxExecCount();
  writeReport(p, ResultantRegFile, "\n実行後の", isFirstResultant_);
  return true;
}

/// Empties the store; nothing of a run survives in it.
void TGame::release() {
  s_.cs.CommaAriFlag = false;
  s_.b.clearTables();
}

}  // namespace zelvaro
