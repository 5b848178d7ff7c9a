// One pipeline: the loop from the menu through the phases of a source file to its run, and back.
#include <new>

#include "diag/Summaries.h"
#include "shell/Game.h"
#include "shell/GoOnMenu.h"
#include "shell/Prompt.h"

namespace zelvaro {
namespace {

constexpr Message outOfMemory = notice("memory-lacking", args(),
                                       {.ja = "\nメモリが足りないので、メニューに戻ります。\n",
                                        .en = "\nThere is not enough memory for this. Back to the menu. \n"});
constexpr Message assembled =
    notice("assembled", args(), {.ja = "アセンブル成功 ", .en = "Successfully Assembled! "});

}  // namespace

/// Runs until the user leaves or chooses another pipeline.
TGame::Next TGame::fight(const Family& f) {
  begin(f);
  Next next = Next::Menu;
  while (next == Next::Menu) next = pass(f);
  if (next == Next::OtherPipeline) TextKind = withoutAnyBlanks(s_.sh.TextKind);
  release();
  s_.sh.CurrentFile.clear();
  return next;
}

/// One pass of the loop.  A lack of memory in the menu is not caught: otherwise a lasting lack of memory
/// would repeat the loop without an end.
TGame::Next TGame::pass(const Family& f) {
  withinMemory([&] { endLastRun(f); });
  clearForPass();
  std::string name;
  switch (menu_.MainMenu(f, name)) {
    case MenuResult::Leave:
      return Next::Leave;
    case MenuResult::OtherPipeline:
      return Next::OtherPipeline;
    case MenuResult::Done:
      return Next::Menu;
    case MenuResult::File:
      break;
  }
  Next next = Next::Menu;
  withinMemory([&] { next = assembleAndRun(f, name); });
  return next;
}

/// Runs a piece of work.  If memory runs out, that is reported, the store is emptied, and the result is
/// false.
template <class Work>
bool TGame::withinMemory(Work work) {
  try {
    work();
    return true;
  } catch (const std::bad_alloc&) {
    release();
    s_.dg.ClearLog();
    clearAllTallies();
    say(outOfMemory);
    return false;
  }
}

/// From the chosen file to the end of its run.
TGame::Next TGame::assembleAndRun(const Family& f, const std::string& name) {
  Pass pass{Assembly{s_.sh, s_.cs, s_.b, f},
            LoadRequest{s_.platform, s_.moziCodeData, name, s_.b.SimpleTitleIndex == 0}, s_.m,
            RunEnvironment{s_.platform, s_.channel, s_.timeData, f},
            ReportFile{s_.platform, s_.channel, s_.timeData, f, s_.wording.language}};
  takeStamp(s_.timeData, s_.platform, Stamp::ReadFileStart);
  const bool loaded = runPhase(pass, Phase::Load);
  takeStamp(s_.timeData, s_.platform, Stamp::AssembleStart);
  if (!loaded) return Next::Menu;
  LastFileName = s_.b.SrcFilename = name;
  if (!runPhase(pass, Phase::Check)) return Next::Menu;
  takeStamp(s_.timeData, s_.platform, Stamp::AssembleEnd);
  sumTallies();
  SumUpWarnings(*this);
  return link(pass) ? runImage(pass) : Next::Menu;
}

void TGame::begin(const Family& f) {
  s_.wording.family = f.id;
  s_.dg.writes = f.keepsLog;
  s_.dg.ClearLog();
  s_.b.clearTables();
  s_.sh.CurrentFile.clear();
  if (!f.textKind.empty()) s_.sh.TextKind = f.textKind;
  printBanner();
  if (f.testsEditor) checkEditor();
  s_.chooseEditor();
}

/// The output after Errors have stopped a source file.
void TGame::endLastRun(const Family& f) {
  sumTallies();
  if (ErrorKazu == 0) return;
  takeStamp(s_.timeData, s_.platform, Stamp::AssembleEnd);
  s_.platform.print(s_.dg.ReplayLog(s_.wording));
  s_.platform.print(timeLineOfErrors(s_.timeData, s_.platform, f.timeLines));
  SumUpErrors(*this);
}

void TGame::clearForPass() {
  s_.dg.ClearLog();
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

/// False if the link found Errors; no time line is printed then.
bool TGame::link(Pass& pass) {
  s_.sh.CurrentFile.clear();
  s_.m.reset();
  const bool linked = runPhase(pass, Phase::Link);
  sumTallies();
  if (!linked) return false;
  takeStamp(s_.timeData, s_.platform, Stamp::LinkEnd);
  s_.platform.print(timeLineOfLink(s_.timeData, s_.platform, pass.assembly.family.timeLines));
  PrgFilename = s_.m.Filename = s_.b.FirstPrgName;
  say(assembled);
  writeReport(pass, AssembledRegFile);
  return true;
}

/// The go-on question and the run.
TGame::Next TGame::runImage(Pass& pass) {
  switch (GoOnMenu(*this, s_.platform)) {
    case GoOn::Leave:
      return Next::Leave;
    case GoOn::MainMenu:
      return Next::Menu;
    case GoOn::Run:
      break;
  }
  pass.run.PrgEndAdr = s_.b.PrgEndAdr;
  runPhase(pass, Phase::Run);
  s_.m.setMaxExecCount();
  writeReport(pass, ResultantRegFile);
  release();
  return Next::Menu;
}

/// Empties the store.
void TGame::release() {
  s_.cs.CommaAriFlag = false;
  s_.b.clearTables();
}

RowList rowsOfFight() {
  return rows(outOfMemory, assembled);
}

}  // namespace zelvaro
