// TGame: the program's top-level object.  Starts up, drives the pipelines, and holds the sums of the
// tallies.
#pragma once

#include <string>

#include "engine/Stages.h"
#include "shell/MainMenu.h"
#include "shell/Session.h"

namespace zelvaro {

class TGame : public TMsgBase {
 public:
  explicit TGame(TSession& s);

  /// Records the working directory; a failure is reported and start-up goes on.
  void SetCurrentDirChH();
  /// Reads the settings and runs the pipelines until the user leaves.
  void Start();
  /// The driver: runs the pipeline of that name, and the next one whenever the user changes it, until the
  /// user leaves.
  void RunPipelines(const std::string& name);

  std::string LastFileName;   ///< name of the file of the current run
  std::string CurrentDirChH;  ///< working directory at start-up; not shown
  std::string FightFunc;      ///< the pipeline's name
  std::string TextKind;       ///< text kind of the pipeline, taken when the mode changes
  std::string PrgFilename;    ///< the first program's name; not shown

 private:
  // --- one pipeline (Fight.cpp) ---
  /// How a pipeline, or one pass of its loop, has ended.
  enum class Next { Menu, OtherPipeline, Leave };

  Next fight(const Family& f);
  Next pass(const Family& f);
  template <class Work>
  bool withinMemory(Work work);
  void begin(const Family& f);
  void endLastRun(const Family& f);
  void clearForPass();
  void clearAllTallies();
  Next assembleAndRun(const Family& f, const std::string& name);
  bool link(Pass& pass);
  Next runImage(Pass& pass);
  void release();

  const Family& familyOf(const std::string& name);
  void sumTallies();
  void checkEditor();
  void printBanner();
  void writeReport(Pass& pass, std::string_view filename);

  TSession& s_;
  TMainMenu menu_;
  int banners_ = 0;  ///< how often printBanner has been called
  bool isFirstAssembled_ = true;
  bool isFirstResultant_ = true;
};

}  // namespace zelvaro
