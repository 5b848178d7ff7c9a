// Link31: the link of all programs of the file, and the filling of the machine.
#include "data/Data.h"
#include "link/Layout.h"
#include "link/Link.h"
#include "link/SetMemory10.h"

namespace zelvaro {
namespace {

constexpr Message overMemory{Severity::Error, Head::None, args(),
                             bothLanguages("Linker Error: Your reserved memory size"
                                           "has exceeded MaxMemory(=3500).\n"
                                           "Rewrite your casl2 program a little "
                                           "and reduce the reserved memory size. ")};

/// Pipeline WP looks at the tallies behind every step, the others behind the address pass only.
template <class Family>
constexpr bool kTestsEveryStep = Family::id == FamilyId::WP;

/// Constants and addresses once more, now that every label is known: 0, or the result of the link.
template <class Family>
int settleAddresses(Assembly& a, int programs) {
  for (int prg = 0; prg < programs; ++prg) {
    if (SetMryInAtDC<Family>(a, prg) < 0) return -1 - prg;
    if (kTestsEveryStep<Family> && a.errors() > 0) return -1 - prg;
  }
  for (int prg = 0; prg < programs; ++prg) {
    AdrCk53<Family>(a, prg);
    if (a.errors() > 0) return -1 - prg;
  }
  if (programs > 0) a.program<Family>(0).AbAdrAtStart = 0;
  return CkMaxMrySize<Family>(a) < 0 ? -2 : 0;
}

/// The fixed form has all addresses but those of programs that stood behind the line that names them.
template <class Family>
void settlePrgNames(Assembly& a, int prg) {
  LineStore<CharOf<Family>>& store = a.store<Family>();
  const PrgData<CharOf<Family>>& program = a.program<Family>(prg);
  for (SrcOf<Family>& line : store.linesBeforeEnd(program)) {
    const Op op = opOf(line);
    if (op == Op::Unknown || instruction(op).opClass != OpClass::Machine || line.word_kazu != 2) continue;
    const ViewOf<Family> name = line.Oprnd[static_cast<std::size_t>(addressOprnd(instruction(op)))];
    const int later = store.findPrg(name, prg);
    if (later > prg && program.findLabel(name) < 0) line.Word2 = a.program<Family>(later).AbAdrAtStart;
  }
}

}  // namespace

template <class Family>
int Link31(Assembly& a, Tcomet2& m) {
  const int programs = static_cast<int>(a.store<Family>().vecPrg.size());
  if constexpr (kIsFixedForm<Family>) {
    for (int prg = 0; prg < programs; ++prg) settlePrgNames<Family>(a, prg);
  } else if (const int failed = settleAddresses<Family>(a, programs); failed < 0) {
    return failed;
  }
  SetLineOfAddress<Family>(a, m);
  for (int prg = 0; prg < programs; ++prg) {
    if (SetMemory10<Family>(a, m, prg) < 0) {
      if constexpr (kIsFixedForm<Family>) a.cs.report<Family, overMemory>(0);
      return -1 - prg;
    }
    if (kTestsEveryStep<Family> && a.errors() > 0) return -1 - prg;
  }
  return 0;
}

#define ZELVARO_INSTANTIATE(F) template int Link31<F>(Assembly&, Tcomet2&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
