// The whole way of a source file as one table: which stage follows which, in which families, and what ends
// the way.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "comet2/Run.h"
#include "report/Report.h"
#include "source/Load.h"

namespace zelvaro {

/// The objects that the stages of one source file use.
struct Pass {
  Assembly assembly;
  LoadRequest source;
  Tcomet2& machine;
  RunEnvironment run;
  ReportFile report;
};

/// The parts of the way.  Between them the driver takes time stamps and asks the user whether to go on.
enum class Phase : std::uint8_t { Load, Check, Link, Report, Run };

/// How often a stage runs.  Neighbouring stages that run for each program are all run for one program before
/// the next program.
enum class Per : std::uint8_t { File, Program };

/// When the Errors counted so far end the way.
enum class Stops : std::uint8_t {
  Never,    ///< a later stage checks them
  AtOnce,   ///< after the stage
  AfterAll  ///< after the stage has run for the last program
};

/// The given names of a stage by family; NWW, NwW and NaW share theirs.  Empty if the family does not have
/// the stage.
struct StageNames {
  std::string_view WP, NWW, AP, NA, NH;
  std::string_view of(FamilyId family) const;
};

/// A stage processes the whole file, or the program of index `prg`.  False ends the way without an Error: the
/// source file cannot be loaded.
using StageFunction = bool (*)(Pass&, int prg);

struct Stage {
  Phase phase;
  Per per;
  Stops stops;
  FamilySet families;                     ///< the families that have the stage
  std::array<StageFunction, 2> function;  ///< by TextForm; null if no family of that form has the stage
  StageNames names;                       ///< for readers; nothing depends on them
};

std::span<const Stage> stages();

/// Runs the stages of a phase in their order.  False if one of them has ended the way.
bool runPhase(Pass& pass, Phase phase);

}  // namespace zelvaro
