// The spine of the assembler: for each program a fixed row of stages, each over all lines of the program.
// The first fault of an early stage hides those of later stages and of later programs.
#include <array>
#include <type_traits>

#include "data/Data.h"
#include "link/Link.h"
#include "statements/Statements.h"
#include "structure/Structure.h"

namespace zelvaro {
namespace {

/// A stage, by its name in each family; a family without a name has no such stage.
struct Stage {
  std::string_view wp, nww, ap, na, nh;
  int (*run)(Assembly&, int prg);
  int negative;  ///< code of a negative result, 0 if the result is of no interest
  int tally;     ///< code of an Error in the tallies behind the stage, 0 if they are not looked at

  constexpr std::string_view name(FamilyId family) const {
    switch (family) {
      case FamilyId::WP:
        return wp;
      case FamilyId::NWW:
        return nww;
      case FamilyId::AP:
        return ap;
      case FamilyId::NA:
        return na;
      case FamilyId::NH:
        break;
    }
    return nh;
  }
};

/// A stage as an entry of a row; one that has no result gives 0.
template <auto Function>
int stage(Assembly& a, int prg) {
  if constexpr (std::is_void_v<decltype(Function(a, prg))>) {
    Function(a, prg);
    return 0;
  } else {
    return Function(a, prg);
  }
}

// AP makes the words of its DC lines in the link alone.
//
// clang-format off
template <class F>
constexpr std::array kRow{
  //    WP                              NWW, NwW, NaW                   AP                              NA                              NH                              stage                                   negative tally
  Stage{"",                             "",                             "",                             "",                             "StartEndCS",                   stage<StartEnd<F>>,                     0,       0},
  Stage{"Label35GNWCS",                 "Label35GNWCS",                 "Label35GNACS",                 "Label35GNACS",                 "Label35GN",                    stage<Label35G<F>>,                     0,       -1},
  Stage{"TakeOutLabelStr",              "TakeOutOprndComStrNW2BD",      "TakeOutLabelStr",              "TakeOutLabelStr",              "TakeOutLabelStr",              stage<TakeOutLabelStr<F>>,              0,       0},
  Stage{"CkOpStrNWCS",                  "CkOpStrNWCS",                  "AnalystOPNACS",                "AnalystOPNACS",                "AnalystOP",                    stage<CkOpStr<F>>,                      -2,      0},
  Stage{"DetDefLineNWCS",               "DetDefLineNWCS",               "DetDefLineNACS",               "DetDefLineNACS",               "",                             stage<DetDefLine<F>>,                   -31,     -32},
  Stage{"SearchApostForNonCharConstOP", "SearchApostForNonCharConstOP", "SearchApostForNonCharConstOP", "SearchApostForNonCharConstOP", "SearchApostForNonCharConstOP", stage<SearchApostForNonCharConstOP<F>>, 0,       -4},
  Stage{"CopyOprndComToWork",           "CopyOprndComToWork",           "CopyOprndComToWork",           "CopyOprndComToWork",           "CopyOprndComToWork",           stage<CopyOprndComToWork<F>>,           0,       0},
  Stage{"edit30cNWCS",                  "edit30cNWCS",                  "edit30cNACS",                  "edit30cNACS",                  "edit30c",                      stage<edit30c<F>>,                      -51,     -52},
  Stage{"edit50NWCS",                   "edit50NWCS",                   "edit50NACS",                   "edit50NACS",                   "edit50",                       stage<edit50<F>>,                       0,       -6},
  Stage{"SplitCommentW",                "SplitCommentW",                "SplitCommentA",                "SplitCommentA",                "SplitComment",                 stage<SplitComment<F>>,                 0,       0},
  Stage{"CkLiteral15NWP",               "CkLiteral15NW",                "CkLiteral15AP",                "CkLiteralNA",                  "CkLiteralN",                   stage<CkLiteral15<F>>,                  -71,     -72},
  Stage{"CkStrConstLiteralNW10CS",      "CkStrConstLiteralNW10CS",      "CkStrConstLiteralNA10CS",      "CkStrConstLiteralNA10CS",      "CkStrConstLiteral",            stage<CkStrConstLiteral<F>>,            -81,     -82},
  Stage{"TrimZenOprndComW",             "TrimZenOprndComW",             "TrimZenOprndComNACS",          "TrimZenOprndComNACS",          "TrimZenOprndCom",              stage<TrimZenOprndCom<F>>,              0,       0},
  Stage{"TrimOprndComW",                "TrimOprndComW",                "TrimOprndComA",                "TrimOprndComA",                "TrimOprndCom",                 stage<TrimOprndCom<F>>,                 0,       0},
  Stage{"CopyOprndComStrToChWH_WP3BD",  "CopyOprndComStrToChH2BD",      "CopyOprndComStrToChH_AP3BD",   "CopyOprndComStrToChH2BD",      "CopyOprndComStrToChH",         stage<CopyOprndComStrToBuffer<F>>,      0,       -9},
  Stage{"operand20m15NWPCS",            "ExtractOprnd5NW",              "operand20m15AP_CS",            "ExtractOprnd4NA",              "ExtractOprnd4N",               stage<operand20m15<F>>,                 0,       -110},
  Stage{"ExtractAllOprndsNWPCS",        "ExtractAllOprndsNWCS",         "ExtractAllOprndsAP_CS",        "ExtractAllOprndsNA10CS",       "ExtractAllOprnds",             stage<ExtractAllOprnds<F>>,             0,       -120},
  Stage{"OpCkWPCS",                     "OpCkNWCS",                     "OpCkAP10CS",                   "OpCkNA10CS",                   "OpCk",                         stage<OpCk<F>>,                         0,       -130},
  Stage{"",                             "",                             "",                             "",                             "dcds10N",                      stage<dcds10<F>>,                       0,       -131},
  Stage{"",                             "",                             "",                             "",                             "dcdsWordKazu40",               stage<dcdsWordKazu40<F>>,               0,       0},
  Stage{"SetMryInAtDS_NWPCS",           "SetMryInAtDS_NWCS",            "SetMryInAtDS_APCS",            "SetMryInAtDS_NACS",            "dcds30N",                      stage<SetMryInAtDS<F>>,                 0,       -20},
  Stage{"SetMryInAtDC_NWCS",            "SetMryInAtDC_NWCS",            "",                             "SetMryInAtDC_NACS",            "dcdsMemoryIn30",               stage<SetMryInAtDC<F>>,                 0,       -20},
  Stage{"AdrCk53NWPCS",                 "AdrCk53NWCS",                  "AdrCk53APCS",                  "AdrCk53NACS",                  "AdrCk3",                       stage<AdrCk53<F>>,                      0,       -150},
  Stage{"",                             "",                             "",                             "",                             "CkMaxMemory",                  stage<CkMaxMemory<F>>,                  0,       -160},
};
// clang-format on

}  // namespace

template <class Family>
int OpCkLoop(Assembly& a) {
  const int programs = static_cast<int>(a.store<Family>().vecPrg.size());
  for (int prg = 0; prg < programs; ++prg) {
    for (const Stage& s : kRow<Family>) {
      if (s.name(Family::id).empty()) continue;
      const int result = s.run(a, prg);
      if (s.negative != 0 && result < 0) return s.negative;
      if (s.tally != 0 && a.errors() > 0) return s.tally;
    }
  }
  return 0;
}

#define ZELVARO_INSTANTIATE(F) template int OpCkLoop<F>(Assembly&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
