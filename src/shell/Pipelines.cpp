#include "shell/Pipelines.h"

#include <array>
#include <type_traits>

#include "diag/Quote.h"
#include "link/Link.h"
#include "report/Report.h"
#include "statements/Statements.h"
#include "structure/Structure.h"

namespace zelvaro {
namespace {

/// Any of the three forms of a stage as the rows hold it.
template <auto Function>
int stage(Assembly& a, int prg) {
  if constexpr (std::is_invocable_v<decltype(Function), Assembly&, int>) {
    Function(a, prg);
    return 0;
  } else if constexpr (std::is_void_v<std::invoke_result_t<decltype(Function), Assembly&>>) {
    Function(a);
    return 0;
  } else {
    return Function(a);
  }
}

// The way of a source file.  The copying of SrcStr to SrcWork in front of editNWB is a part of it.  A wide
// ReplaceTabs would store nothing, and a narrow one ahead of that copy would be overwritten: the stage has
// one place, in the narrow form.
//
// clang-format off
template <class F>
constexpr std::array kRows{
  //       step per           behind         wide                          narrow                        fixed                                      stage
  StageRow{11, Per::File,    Behind::Test, {"editNWB",                    "editNA",                     "editN"},                                   stage<edit<F>>},
  StageRow{12, Per::File,    Behind::Test, {"",                           "ReplaceTabs",                ""},                                        stage<ReplaceTabs<F>>},
  StageRow{12, Per::File,    Behind::Test, {"StartEnd10NWB",              "StartEnd10NA",               "StartEnd10N"},                             stage<StartEnd10<F>>},
  StageRow{12, Per::File,    Behind::Test, {"StartEnd20NW",               "StartEnd20NA",               "StartEnd20N"},                             stage<StartEnd20<F>>},
  StageRow{13, Per::Program, Behind::Next, {"StartEndNWCS",               "StartEndNACS",               "StartEndCS"},                              stage<StartEnd<F>>},
  StageRow{13, Per::Program, Behind::Test, {"CutCommentsNW",              "CutCommentsNA",              "CutCommentsN"},                            stage<CutComments<F>>},
  StageRow{14, Per::File,    Behind::Test, {"IsAnySrcOutsideSartEndNWCS", "IsAnySrcOutsideSartEndNACS", "IsThereAnySrcOutsideSartEndInMultPrgsCS"}, stage<IsAnySrcOutsideSartEnd<F>>},
  StageRow{15, Per::Program, Behind::Test, {"CkPrgNameNWCS",              "CkPrgNameNACS",              "CkPrgNameN"},                              stage<CkPrgName<F>>},
  StageRow{15, Per::File,    Behind::Test, {"CkPrgNameDoubleNWBD",        "CkPrgNameDoubleNABD",        "CkPrgNameDoubleBD"},                       stage<CkPrgNameDouble<F>>},
  StageRow{16, Per::File,    Behind::Test, {"OpCkLoop",                   "OpCkLoop",                   "OpCkLoop"},                                stage<OpCkLoop<F>>},
  StageRow{16, Per::File,    Behind::Test, {"",                           "",                           "CkMaxMrySizeN"},                           stage<CkMaxMrySize<F>>},
  StageRow{17, Per::File,    Behind::Next, {"CkLabelInUseNWBD",           "CkLabelInUseNABD",           "CkLabelInUse"},                            stage<CkLabelInUse<F>>},
  StageRow{17, Per::File,    Behind::Test, {"CkPrgNameInUseNWBD",         "CkPrgNameInUseNABD",         "CkPrgNameInUseBD"},                        stage<CkPrgNameInUse<F>>},
};
// clang-format on

template <class Family>
int programs(TBasicData& b) {
  return static_cast<int>(b.store<CharOf<Family>>().vecPrg.size());
}

/// The link, and the name that the machine is to carry.
template <class Family>
int link(Assembly& a, Tcomet2& m) {
  const int result = Link31<Family>(a, m);
  const auto& prgs = a.store<Family>().vecPrg;
  if (!prgs.empty()) a.b.FirstPrgName = plain(prgs.front().PrgName);
  return result;
}

template <class Family>
constexpr FamilyStages kStages{Family::id,   kRows<Family>, programs<Family>, loadSource<Family>,
                               link<Family>, Run3<Family>,  DspRegMry<Family>};

/// NaW goes the way of NWW but for its loader.
constexpr FamilyStages kStagesNaW = [] {
  FamilyStages s = kStages<NWW>;
  s.load = loadWidened;
  return s;
}();

// The points in which the pipelines' ways through the driver differ.
//
// clang-format off
constexpr std::array kPipelines{
  //       name   textKind                keepsLog testsEditor testsResults fixedTimeLines savesSettings menu         stages
  Pipeline{"WP",  "std::wstring<--UTF16", true,    true,       true,        false,         true,         kMainMenu,   &kStages<WP>},
  Pipeline{"NWW", "",                     false,   false,      true,        false,         true,         kMainMenu,   &kStages<NWW>},
  Pipeline{"NwW", "",                     false,   false,      true,        false,         true,         kMainMenu,   &kStages<NWW>},
  Pipeline{"NaW", "std::wstring",         true,    true,       true,        false,         true,         kMainMenu,   &kStagesNaW},
  Pipeline{"AP",  "std::string",          true,    true,       true,        false,         true,         kMainMenu,   &kStages<AP>},
  Pipeline{"NA",  "std::string",          true,    true,       true,        false,         true,         kMainMenu,   &kStages<NA>},
  Pipeline{"NH",  "char chH[]",           false,   true,       false,       true,          false,        kMainMenuNH, &kStages<NH>},
};
// clang-format on

}  // namespace

const Pipeline* findPipeline(std::string_view name) {
  for (const Pipeline& p : kPipelines)
    if (p.name == name) return &p;
  return nullptr;
}

}  // namespace zelvaro
