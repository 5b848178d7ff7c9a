// The pipelines: for each name the row of its stages and the points in which its way through the driver
// differs.  The tables stand in Pipelines.cpp.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "comet2/Run.h"
#include "shell/Session.h"

namespace zelvaro {

/// Results between menu, load stage, pipeline and driver.
inline constexpr int MenuGoFile = 0;          ///< a source file was named
inline constexpr int LoadFailed = 1;          ///< told by the load stage
inline constexpr int MenuDone = 2;            ///< a command has been done; the menu comes again
inline constexpr int MenuModeChanged = 8888;  ///< the mode selector stored a new pipeline name
inline constexpr int MenuExit = 123123;       ///< the user leaves

/// How often a stage runs: once for the file, or once for each program.  Rows of one step that run for
/// each program go through a program together before the next one has its turn.
enum class Per : std::uint8_t { File, Program };

/// What stands behind a stage: the next row, or the test that goes back to the menu when the stage gave a
/// negative result or an Error has been counted.
enum class Behind : std::uint8_t { Next, Test };

/// A stage's names as given, by the form of the text; empty where a form has no such stage.
struct StageNames {
  std::string_view wide, narrow, fixed;
  constexpr std::string_view of(FamilyId family) const {
    if (family == FamilyId::NH) return fixed;
    return family == FamilyId::AP || family == FamilyId::NA ? narrow : wide;
  }
};

struct StageRow {
  int step;
  Per per;
  Behind behind;
  StageNames names;
  int (*run)(Assembly&, int prg);  ///< negative after a fault
};

/// What a family puts into the driver.
struct FamilyStages {
  FamilyId family;
  std::span<const StageRow> rows;  ///< the stages between the load and the link, in their order
  int (*programs)(TBasicData&);    ///< how many programs the file has
  int (*load)(Assembly&, MoziCodeData&, const std::string& name, int simpleTitleIndex);
  int (*link)(Assembly&, Tcomet2&);
  int (*run)(Tcomet2&, const RunEnvironment&);
  void (*report)(const std::string& filename, Tcomet2&, const TBasicData&, const TimeData&, Platform&);
};

/// Which menu a pipeline shows, and as a bit which menus know a command.
enum MenuOf : std::uint8_t { kMainMenu = 1, kMainMenuNH = 2, kBothMenus = kMainMenu | kMainMenuNH };

struct Pipeline {
  std::string_view name;
  std::string_view textKind;  ///< stands in the banner; empty: that of the pipeline before stays
  bool keepsLog;              ///< the log is cleared with each pass and replayed after a run with Errors
  bool testsEditor;           ///< tests TextEditorIndex at its start
  bool testsResults;          ///< a stage's negative result counts as a fault, not the tallies alone
  bool fixedTimeLines;        ///< the time lines of the fixed form
  bool savesSettings;         ///< command 123 writes the settings
  MenuOf menu;
  const FamilyStages* stages;
};

/// The pipeline of that name, or null.
const Pipeline* findPipeline(std::string_view name);

}  // namespace zelvaro
