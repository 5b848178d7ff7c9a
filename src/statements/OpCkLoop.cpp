// The spine of the assembler: for each program a fixed row of stages, each over all lines of the program.
// The first fault of an early stage hides those of later stages and of later programs.
// Tested by tests/statements/OpCkLoopTest.cpp.
#include <array>
#include <span>
#include <type_traits>

#include "data/Data.h"
#include "link/Link.h"
#include "statements/Statements.h"
#include "structure/Structure.h"

namespace zelvaro {
namespace {

struct Stage {
  std::string_view name;
  int (*run)(Assembly&, int prg);
  int negative;  ///< code of a negative result, 0 if the result is of no interest
  int tally;     ///< code of an Error in the tallies behind the stage, 0 if they are not looked at
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

constexpr std::array kRowWP{
    Stage{"Label35GNWCS", stage<Label35G<WP>>, 0, -1},
    Stage{"TakeOutLabelStr", stage<TakeOutLabelStr<WP>>, 0, 0},
    Stage{"CkOpStrNWCS", stage<CkOpStr<WP>>, -2, 0},
    Stage{"DetDefLineNWCS", stage<DetDefLine<WP>>, -31, -32},
    Stage{"SearchApostForNonCharConstOP", stage<SearchApostForNonCharConstOP<WP>>, 0, -4},
    Stage{"CopyOprndComToWork", stage<CopyOprndComToWork<WP>>, 0, 0},
    Stage{"edit30cNWCS", stage<edit30c<WP>>, -51, -52},
    Stage{"edit50NWCS", stage<edit50<WP>>, 0, -6},
    Stage{"SplitCommentW", stage<SplitComment<WP>>, 0, 0},
    Stage{"CkLiteral15NWP", stage<CkLiteral15<WP>>, -71, -72},
    Stage{"CkStrConstLiteralNW10CS", stage<CkStrConstLiteral<WP>>, -81, -82},
    Stage{"TrimZenOprndComW", stage<TrimZenOprndCom<WP>>, 0, 0},
    Stage{"TrimOprndComW", stage<TrimOprndCom<WP>>, 0, 0},
    Stage{"CopyOprndComStrToChWH_WP3BD", stage<CopyOprndComStrToBuffer<WP>>, 0, -9},
    Stage{"operand20m15NWPCS", stage<operand20m15<WP>>, 0, -110},
    Stage{"ExtractAllOprndsNWPCS", stage<ExtractAllOprnds<WP>>, 0, -120},
    Stage{"OpCkWPCS", stage<OpCk<WP>>, 0, -130},
    Stage{"SetMryInAtDS_NWPCS", stage<SetMryInAtDS<WP>>, 0, 0},
    Stage{"SetMryInAtDC_NWCS", stage<SetMryInAtDC<WP>>, 0, -20},
    Stage{"AdrCk53NWPCS", stage<AdrCk53<WP>>, 0, -150},
};

// AP makes the words of its DC lines in the link alone.
constexpr std::array kRowAP{
    Stage{"Label35GNACS", stage<Label35G<AP>>, 0, -1},
    Stage{"TakeOutLabelStr", stage<TakeOutLabelStr<AP>>, 0, 0},
    Stage{"AnalystOPNACS", stage<CkOpStr<AP>>, -2, 0},
    Stage{"DetDefLineNACS", stage<DetDefLine<AP>>, -31, -32},
    Stage{"SearchApostForNonCharConstOP", stage<SearchApostForNonCharConstOP<AP>>, 0, -4},
    Stage{"CopyOprndComToWork", stage<CopyOprndComToWork<AP>>, 0, 0},
    Stage{"edit30cNACS", stage<edit30c<AP>>, -51, -52},
    Stage{"edit50NACS", stage<edit50<AP>>, 0, -6},
    Stage{"SplitCommentA", stage<SplitComment<AP>>, 0, 0},
    Stage{"CkLiteral15AP", stage<CkLiteral15<AP>>, -71, -72},
    Stage{"CkStrConstLiteralNA10CS", stage<CkStrConstLiteral<AP>>, -81, -82},
    Stage{"TrimZenOprndComNACS", stage<TrimZenOprndCom<AP>>, 0, 0},
    Stage{"TrimOprndComA", stage<TrimOprndCom<AP>>, 0, 0},
    Stage{"CopyOprndComStrToChH_AP3BD", stage<CopyOprndComStrToBuffer<AP>>, 0, -9},
    Stage{"operand20m15AP_CS", stage<operand20m15<AP>>, 0, -110},
    Stage{"ExtractAllOprndsAP_CS", stage<ExtractAllOprnds<AP>>, 0, -120},
    Stage{"OpCkAP10CS", stage<OpCk<AP>>, 0, -130},
    Stage{"SetMryInAtDS_APCS", stage<SetMryInAtDS<AP>>, 0, -20},
    Stage{"AdrCk53APCS", stage<AdrCk53<AP>>, 0, -150},
};

template <class Family>
constexpr std::span<const Stage> row() {
  if constexpr (Family::id == FamilyId::WP) {
    return kRowWP;
  } else {
    return kRowAP;
  }
}

}  // namespace

template <class Family>
int OpCkLoop(Assembly& a) {
  const int programs = static_cast<int>(a.store<Family>().vecPrg.size());
  for (int prg = 0; prg < programs; ++prg) {
    for (const Stage& s : row<Family>()) {
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
