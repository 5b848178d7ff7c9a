// TGame: the program's top-level object.  Starts up, drives the pipelines, and holds the sums of the
// tallies.
#pragma once

#include <string>

#include "shell/MainMenu.h"
#include "shell/Pipelines.h"
#include "shell/Session.h"

namespace zelvaro {

class TGame : public TMsgBase {
 public:
  explicit TGame(TSession& s);

  /// Records the working directory; a failure is told and start-up goes on.
  void SetCurrentDirChH();
  /// Reads the settings and runs the pipelines until the user leaves.
  void Start();
  /// The driver: runs the pipeline of that name, and the next one whenever the user changes it.  Returns
  /// the last pipeline's result, 0 or MenuExit.
  int RunPipelines(const std::string& name);

  std::string LastFileName;   ///< name of the file of the current run
  std::string CurrentDirChH;  ///< working directory at start-up
  std::string FightFunc;      ///< the pipeline's name
  std::string TextKind;       ///< text kind of the pipeline, taken when the mode changes
  std::string PrgFilename;    ///< the first program's name

 private:
  // --- one pipeline (Fight.cpp) ---
  int fight(const Pipeline& p);
  int pass(const Pipeline& p);
  template <class Work>
  bool withinMemory(Work work);
  void begin(const Pipeline& p);
  void endLastRun(const Pipeline& p);
  void clearForPass(const Pipeline& p);
  void clearAllTallies();
  int assembleAndRun(const Pipeline& p, const std::string& name);
  bool readSource(const Pipeline& p, const std::string& name);
  bool runStages(const Pipeline& p);
  bool runStep(const Pipeline& p, std::span<const StageRow> rows);
  bool link(const Pipeline& p);
  bool runImage(const Pipeline& p);
  void release();

  const Pipeline& pipelineOf(const std::string& name);
  void sumTallies();
  bool isFault(const Pipeline& p, int result);
  void takeLanguage();
  void checkEditor();
  void printBanner();
  void writeReport(const Pipeline& p, std::string_view filename, std::string_view firstTimeJ, bool& isFirst);

  TSession& s_;
  TMainMenu menu_;
  int banners_ = 0;  ///< how often the banner has been called for
  bool isFirstAssembled_ = true;
  bool isFirstResultant_ = true;
};

}  // namespace zelvaro
