#include "engine/Stages.h"

#include <type_traits>

#include "data/Data.h"
#include "link/Link.h"
#include "statements/Statements.h"
#include "structure/Structure.h"

namespace zelvaro {
namespace {

/// Adapts a stage of any signature to the one that the table holds.
template <auto Function>
bool stage(Pass& pass, [[maybe_unused]] int prg) {
  if constexpr (std::is_invocable_v<decltype(Function), Assembly&, int>) {
    Function(pass.assembly, prg);
  } else if constexpr (std::is_invocable_v<decltype(Function), Assembly&>) {
    Function(pass.assembly);
  } else if constexpr (std::is_invocable_v<decltype(Function), Assembly&, Tcomet2&>) {
    Function(pass.assembly, pass.machine);
  } else if constexpr (std::is_invocable_v<decltype(Function), Assembly&, const LoadRequest&>) {
    return Function(pass.assembly, pass.source);
  } else if constexpr (std::is_invocable_v<decltype(Function), Tcomet2&, const RunEnvironment&>) {
    Function(pass.machine, pass.run);
  } else {
    Function(pass.report, pass.machine, pass.assembly.b);
  }
  return true;
}

// NOLINTBEGIN(bugprone-macro-parentheses): the name of a template takes none
#define ZELVARO_BOTH(f) \
  { stage<f<char16_t>>, stage<f<char>> }
#define ZELVARO_WIDE(f) \
  { stage<f>, nullptr }
#define ZELVARO_NARROW(f) \
  { nullptr, stage<f> }
#define ZELVARO_ANY(f) \
  { stage<f>, stage<f> }
// NOLINTEND(bugprone-macro-parentheses)

// The working text of a line begins as a copy of the line, which the normalisation makes.  A wide ReplaceTabs
// would store nothing, and a narrow one before that copy would be overwritten: the stage has one place, in
// the narrow families.  AP makes the words of its DC lines only in the link.
//
// The stages from Label35G to CkMaxMemory are the statement loop: OpCkLoop.
//
// clang-format off
constexpr std::array kStages{
  //    phase          per           stops            families    function                                     WP                              NWW, NwW, NaW                   AP                              NA                              NH
  Stage{Phase::Load,   Per::File,    Stops::AtOnce,   kDetecting, ZELVARO_WIDE(loadDetecting),                {"OpenFileUTF8toVecW",           "OpenFileUTF8toVecW",           "",                             "",                             ""}},
  Stage{Phase::Load,   Per::File,    Stops::AtOnce,   kNaW,       ZELVARO_WIDE(loadWidened),                  {"",                             "OpenFileA",                    "",                             "",                             ""}},
  Stage{Phase::Load,   Per::File,    Stops::AtOnce,   kNarrow,    ZELVARO_NARROW(loadNarrow),                 {"",                             "",                             "OpenFileA",                    "OpenFileA",                    ""}},
  Stage{Phase::Load,   Per::File,    Stops::AtOnce,   kNH,        ZELVARO_NARROW(loadFixed),                  {"",                             "",                             "",                             "",                             "OpenFileChH"}},
  Stage{Phase::Check,  Per::File,    Stops::AtOnce,   kAll,       ZELVARO_BOTH(edit),                         {"editNWB",                      "editNWB",                      "editNA",                       "editNA",                       "editN"}},
  Stage{Phase::Check,  Per::File,    Stops::AtOnce,   kNarrow,    ZELVARO_NARROW(ReplaceTabs),                {"",                             "",                             "ReplaceTabs",                  "ReplaceTabs",                  ""}},
  Stage{Phase::Check,  Per::File,    Stops::AtOnce,   kAll,       ZELVARO_BOTH(StartEnd10),                   {"StartEnd10NWB",                "StartEnd10NWB",                "StartEnd10NA",                 "StartEnd10NA",                 "StartEnd10N"}},
  Stage{Phase::Check,  Per::File,    Stops::AtOnce,   kAll,       ZELVARO_BOTH(StartEnd20),                   {"StartEnd20NW",                 "StartEnd20NW",                 "StartEnd20NA",                 "StartEnd20NA",                 "StartEnd20N"}},
  Stage{Phase::Check,  Per::Program, Stops::Never,    kAll,       ZELVARO_BOTH(StartEnd),                     {"StartEndNWCS",                 "StartEndNWCS",                 "StartEndNACS",                 "StartEndNACS",                 "StartEndCS"}},
  Stage{Phase::Check,  Per::Program, Stops::AfterAll, kAll,       ZELVARO_BOTH(CutComments),                  {"CutCommentsNW",                "CutCommentsNW",                "CutCommentsNA",                "CutCommentsNA",                "CutCommentsN"}},
  Stage{Phase::Check,  Per::File,    Stops::AtOnce,   kAll,       ZELVARO_BOTH(IsAnySrcOutsideSartEnd),       {"IsAnySrcOutsideSartEndNWCS",   "IsAnySrcOutsideSartEndNWCS",   "IsAnySrcOutsideSartEndNACS",   "IsAnySrcOutsideSartEndNACS",   "IsThereAnySrcOutsideSartEndInMultPrgsCS"}},
  Stage{Phase::Check,  Per::Program, Stops::AfterAll, kAll,       ZELVARO_BOTH(CkPrgName),                    {"CkPrgNameNWCS",                "CkPrgNameNWCS",                "CkPrgNameNACS",                "CkPrgNameNACS",                "CkPrgNameN"}},
  Stage{Phase::Check,  Per::File,    Stops::AtOnce,   kAll,       ZELVARO_BOTH(CkPrgNameDouble),              {"CkPrgNameDoubleNWBD",          "CkPrgNameDoubleNWBD",          "CkPrgNameDoubleNABD",          "CkPrgNameDoubleNABD",          "CkPrgNameDoubleBD"}},
  Stage{Phase::Check,  Per::Program, Stops::Never,    kNH,        ZELVARO_BOTH(StartEnd),                     {"",                             "",                             "",                             "",                             "StartEndCS"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(Label35G),                     {"Label35GNWCS",                 "Label35GNWCS",                 "Label35GNACS",                 "Label35GNACS",                 "Label35GN"}},
  Stage{Phase::Check,  Per::Program, Stops::Never,    kAll,       ZELVARO_BOTH(TakeOutLabelStr),              {"TakeOutLabelStr",              "TakeOutOprndComStrNW2BD",      "TakeOutLabelStr",              "TakeOutLabelStr",              "TakeOutLabelStr"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(CkOpStr),                      {"CkOpStrNWCS",                  "CkOpStrNWCS",                  "AnalystOPNACS",                "AnalystOPNACS",                "AnalystOP"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAllButNH,  ZELVARO_BOTH(DetDefLine),                   {"DetDefLineNWCS",               "DetDefLineNWCS",               "DetDefLineNACS",               "DetDefLineNACS",               ""}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(SearchApostForNonCharConstOP), {"SearchApostForNonCharConstOP", "SearchApostForNonCharConstOP", "SearchApostForNonCharConstOP", "SearchApostForNonCharConstOP", "SearchApostForNonCharConstOP"}},
  Stage{Phase::Check,  Per::Program, Stops::Never,    kAll,       ZELVARO_BOTH(CopyOprndComToWork),           {"CopyOprndComToWork",           "CopyOprndComToWork",           "CopyOprndComToWork",           "CopyOprndComToWork",           "CopyOprndComToWork"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(edit30c),                      {"edit30cNWCS",                  "edit30cNWCS",                  "edit30cNACS",                  "edit30cNACS",                  "edit30c"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(edit50),                       {"edit50NWCS",                   "edit50NWCS",                   "edit50NACS",                   "edit50NACS",                   "edit50"}},
  Stage{Phase::Check,  Per::Program, Stops::Never,    kAll,       ZELVARO_BOTH(SplitComment),                 {"SplitCommentW",                "SplitCommentW",                "SplitCommentA",                "SplitCommentA",                "SplitComment"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(CkLiteral15),                  {"CkLiteral15NWP",               "CkLiteral15NW",                "CkLiteral15AP",                "CkLiteralNA",                  "CkLiteralN"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(CkStrConstLiteral),            {"CkStrConstLiteralNW10CS",      "CkStrConstLiteralNW10CS",      "CkStrConstLiteralNA10CS",      "CkStrConstLiteralNA10CS",      "CkStrConstLiteral"}},
  Stage{Phase::Check,  Per::Program, Stops::Never,    kAll,       ZELVARO_BOTH(TrimZenOprndCom),              {"TrimZenOprndComW",             "TrimZenOprndComW",             "TrimZenOprndComNACS",          "TrimZenOprndComNACS",          "TrimZenOprndCom"}},
  Stage{Phase::Check,  Per::Program, Stops::Never,    kAll,       ZELVARO_BOTH(TrimOprndCom),                 {"TrimOprndComW",                "TrimOprndComW",                "TrimOprndComA",                "TrimOprndComA",                "TrimOprndCom"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(CopyOprndComStrToBuffer),      {"CopyOprndComStrToChWH_WP3BD",  "CopyOprndComStrToChH2BD",      "CopyOprndComStrToChH_AP3BD",   "CopyOprndComStrToChH2BD",      "CopyOprndComStrToChH"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(operand20m15),                 {"operand20m15NWPCS",            "ExtractOprnd5NW",              "operand20m15AP_CS",            "ExtractOprnd4NA",              "ExtractOprnd4N"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(ExtractAllOprnds),             {"ExtractAllOprndsNWPCS",        "ExtractAllOprndsNWCS",         "ExtractAllOprndsAP_CS",        "ExtractAllOprndsNA10CS",       "ExtractAllOprnds"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(OpCk),                         {"OpCkWPCS",                     "OpCkNWCS",                     "OpCkAP10CS",                   "OpCkNA10CS",                   "OpCk"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kNH,        ZELVARO_BOTH(dcds10),                       {"",                             "",                             "",                             "",                             "dcds10N"}},
  Stage{Phase::Check,  Per::Program, Stops::Never,    kNH,        ZELVARO_BOTH(dcdsWordKazu40),               {"",                             "",                             "",                             "",                             "dcdsWordKazu40"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(SetMryInAtDS),                 {"SetMryInAtDS_NWPCS",           "SetMryInAtDS_NWCS",            "SetMryInAtDS_APCS",            "SetMryInAtDS_NACS",            "dcds30N"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAllButAP,  ZELVARO_BOTH(SetMryInAtDC),                 {"SetMryInAtDC_NWCS",            "SetMryInAtDC_NWCS",            "",                             "SetMryInAtDC_NACS",            "dcdsMemoryIn30"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kAll,       ZELVARO_BOTH(AdrCk53),                      {"AdrCk53NWPCS",                 "AdrCk53NWCS",                  "AdrCk53APCS",                  "AdrCk53NACS",                  "AdrCk3"}},
  Stage{Phase::Check,  Per::Program, Stops::AtOnce,   kNH,        ZELVARO_BOTH(CkMaxMemory),                  {"",                             "",                             "",                             "",                             "CkMaxMemory"}},
  Stage{Phase::Check,  Per::File,    Stops::AtOnce,   kNH,        ZELVARO_BOTH(CkMaxMrySize),                 {"",                             "",                             "",                             "",                             "CkMaxMrySizeN"}},
  Stage{Phase::Check,  Per::File,    Stops::Never,    kAll,       ZELVARO_BOTH(CkLabelInUse),                 {"CkLabelInUseNWBD",             "CkLabelInUseNWBD",             "CkLabelInUseNABD",             "CkLabelInUseNABD",             "CkLabelInUse"}},
  Stage{Phase::Check,  Per::File,    Stops::AtOnce,   kAll,       ZELVARO_BOTH(CkPrgNameInUse),               {"CkPrgNameInUseNWBD",           "CkPrgNameInUseNWBD",           "CkPrgNameInUseNABD",           "CkPrgNameInUseNABD",           "CkPrgNameInUseBD"}},
  Stage{Phase::Link,   Per::File,    Stops::AtOnce,   kAll,       ZELVARO_BOTH(Link31),                       {"Link31NWPGM",                  "Link31NWGM",                   "Link31APGM",                   "Link31NAGM",                   "Link2"}},
  Stage{Phase::Report, Per::File,    Stops::Never,    kAll,       ZELVARO_BOTH(DspRegMry),                    {"DspRegMry70NW",                "DspRegMry70NW",                "DspRegMry68NA",                "DspRegMry68NA",                "DspRegMry68NH"}},
  Stage{Phase::Run,    Per::File,    Stops::Never,    kAll,       ZELVARO_ANY(Run3),                          {"Run3NW",                       "Run3NW",                       "Run3NA",                       "Run3NA",                       "Run3"}},
};
// clang-format on

std::span<const Stage> neighbours(std::span<const Stage> stages) {
  std::size_t n = 1;
  while (stages[0].per == Per::Program && n < stages.size() && stages[n].per == Per::Program) ++n;
  return stages.first(n);
}

int programsOf(const Pass& pass) {
  const TBasicData& b = pass.assembly.b;
  return static_cast<int>(pass.assembly.family.text == TextForm::Wide ? b.vecSrcW.vecPrg.size()
                                                                      : b.vecSrcA.vecPrg.size());
}

/// Runs one stage for the file or for a program; false if it ends the way.
bool runStage(Pass& pass, const Stage& stage, int prg, bool isLast) {
  const Family& family = pass.assembly.family;
  if (!stage.families.contains(family.id)) return true;
  if (!stage.function[static_cast<std::size_t>(family.text)](pass, prg)) return false;
  if (stage.stops == Stops::Never || (stage.stops == Stops::AfterAll && !isLast)) return true;
  return pass.assembly.errors() == 0;
}

}  // namespace

std::string_view StageNames::of(FamilyId family) const {
  switch (family) {
    case FamilyId::WP:
      return WP;
    case FamilyId::NWW:
    case FamilyId::NwW:
    case FamilyId::NaW:
      return NWW;
    case FamilyId::AP:
      return AP;
    case FamilyId::NA:
      return NA;
    case FamilyId::NH:
      return NH;
  }
  return {};
}

std::span<const Stage> stages() {
  return kStages;
}

bool runPhase(Pass& pass, Phase phase) {
  for (std::span<const Stage> rest = kStages; !rest.empty();) {
    const std::span<const Stage> together = neighbours(rest);
    rest = rest.subspan(together.size());
    if (together.front().phase != phase) continue;
    const int times = together.front().per == Per::File ? 1 : programsOf(pass);
    for (int prg = 0; prg < times; ++prg)
      for (const Stage& stage : together)
        if (!runStage(pass, stage, prg, prg + 1 == times)) return false;
  }
  return true;
}

}  // namespace zelvaro
