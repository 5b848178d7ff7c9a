#include "shell/Game.h"

#include "shell/Prompt.h"
#include "shell/Settings.h"

namespace zelvaro {
namespace {

constexpr std::string_view kDefaultPipeline = "NWW";

constexpr Message folderNotRecorded =
    notice("self-folder-not-recorded", args(), bothLanguages("iRt=0: Fail to TGame::SetCurrentDirChH()\n"));
constexpr Message folderUnknown =
    notice("self-folder-unknown", args("reason"), bothLanguages("_getcwd error: {reason}\n"));
constexpr Message defaultPipeline =
    notice("pipeline-by-default", args(), bothLanguages("FightNwW(); by default.\n"));
constexpr Message editorOutOfRange = notice("editor-out-of-range", args("index"),
                                            bothLanguages("Error: TextEditorFlag is out of range. \n"
                                                          "TextEditorIndex={index}\n"
                                                          "TextEditorIndex is corrected to be 0. \n"));
constexpr Message banner = notice("banner", args("kind"),
                                  bothLanguages("Zelvaro Assembly Suite  Ver. 4.6.4  \n"
                                                "Win32  R_{kind}\n\n"
                                                "Assembler, Linker, and Simulator\n"
                                                "\n\n"));
constexpr Message simpleBanner = notice("banner-simple", args("kind"),
                                        bothLanguages("Zelvaro  Ver. 4.6.4  \n"
                                                      "Win32  R_{kind}\n\n"
                                                      "Assembler & Simulator\n"
                                                      "\n\n"));
constexpr Message emptyBanner = notice("banner-empty", args(), bothLanguages("\n"));
// Only the English text ends with a line end: in Japanese the next message begins with one.
constexpr Message reportLine =
    notice("report-line", args("file"),
           {.ja = "---> {file} メモリの全容が保存してあります。", .en = "---> {file} \n"});
constexpr Message firstAssembledLine =
    notice("report-line-assembled", args("file"),
           {.ja = "---> {file} \nアセンブルされたメモリの全容が保存してあります。", .en = "---> {file} \n"});
constexpr Message firstResultantLine =
    notice("report-line-resultant", args("file"),
           {.ja = "---> {file} \n実行後のメモリの全容が保存してあります。", .en = "---> {file} \n"});

}  // namespace

TGame::TGame(TSession& s) : TMsgBase(s.channel), FightFunc(kDefaultPipeline), s_(s), menu_(s) {}

void TGame::SetCurrentDirChH() {
  if (const std::optional<std::string> folder = s_.platform.workingDirectory()) {
    CurrentDirChH = *folder;
  } else {
    say(folderNotRecorded);
  }
}

void TGame::Start() {
  FileFailure failure;
  if (!s_.platform.workingDirectory(&failure)) say(folderUnknown, failure.reason);
  ReadIni(s_, std::string(kIniFile));
  LastFileName = s_.sh.LastSrcFile;
  RunPipelines(withoutAnyBlanks(s_.sh.FightFunc));
  s_.platform.flush();
}

void TGame::RunPipelines(const std::string& name) {
  FightFunc = name;
  // Two reserved names without a pipeline.
  while (FightFunc != "NewChH" && FightFunc != "NewChWH") {
    if (fight(familyOf(FightFunc)) != Next::OtherPipeline) return;
    FightFunc = withoutAnyBlanks(s_.sh.FightFunc);
  }
}

const Family& TGame::familyOf(const std::string& name) {
  if (const Family* f = findFamily(name)) return *f;
  say(defaultPipeline);
  return *findFamily(kDefaultPipeline);
}

void TGame::sumTallies() {
  ErrorKazu = s_.sh.ErrorKazu + s_.cs.ErrorKazu + s_.b.ErrorKazu;
  WarningKazu = s_.sh.WarningKazu + s_.cs.WarningKazu + s_.b.WarningKazu;
  NoteKazu = s_.sh.NoteKazu + s_.cs.NoteKazu + s_.b.NoteKazu;
  MemoKazu = s_.sh.MemoKazu + s_.cs.MemoKazu + s_.b.MemoKazu;
}

/// Checks the slot from the settings in `sh`; `b` has already corrected its own copy.
void TGame::checkEditor() {
  const int index = s_.sh.TextEditorIndex;
  if (index >= 0 && index <= 2) return;
  say(editorOutOfRange, index);
  s_.sh.TextEditorIndex = 0;
}

void TGame::printBanner() {
  constexpr int kFullBanners = 3;
  if (++banners_ > kFullBanners) {
    say(emptyBanner);
    return;
  }
  if (s_.modeData.SimpleTitleIndex != 1) s_.modeData.SimpleTitleIndex = 0;
  say(s_.modeData.SimpleTitleIndex == 1 ? simpleBanner : banner, s_.sh.TextKind);
}

/// Prints the line about a report, and writes the report.
void TGame::writeReport(Pass& pass, std::string_view filename) {
  const bool assembled = filename == AssembledRegFile;
  bool& isFirst = assembled ? isFirstAssembled_ : isFirstResultant_;
  say(!isFirst ? reportLine : assembled ? firstAssembledLine : firstResultantLine, filename);
  if (s_.wording.language == Language::Japanese) isFirst = false;
  pass.report.name = filename;
  runPhase(pass, Phase::Report);
}

RowList rowsOfGame() {
  return rows(folderNotRecorded, folderUnknown, defaultPipeline, editorOutOfRange, banner, simpleBanner,
              emptyBanner, reportLine, firstAssembledLine, firstResultantLine);
}

}  // namespace zelvaro
