// Link31: the link of all programs of the file, and the filling of the machine.
#include "data/Data.h"
#include "link/Link.h"
#include "link/SetMemory10.h"

namespace zelvaro {
namespace {

/// Pipeline WP looks at the tallies behind every step, the others behind the address pass only.
template <class Family>
constexpr bool kTestsEveryStep = Family::id == FamilyId::WP;

}  // namespace

template <class Family>
int Link31(Assembly& a, Tcomet2& m) {
  const int programs = static_cast<int>(a.store<Family>().vecPrg.size());
  for (int prg = 0; prg < programs; ++prg) {
    if (SetMryInAtDC<Family>(a, prg) < 0) return -1 - prg;
    if (kTestsEveryStep<Family> && a.errors() > 0) return -1 - prg;
  }
  for (int prg = 0; prg < programs; ++prg) {
    AdrCk53<Family>(a, prg);
    if (a.errors() > 0) return -1 - prg;
  }
  if (programs > 0) a.program<Family>(0).AbAdrAtStart = 0;
  if (CkMaxMrySize<Family>(a) < 0) return -2;
  SetLineOfAddress<Family>(a, m);
  for (int prg = 0; prg < programs; ++prg) {
    if (SetMemory10<Family>(a, m, prg) < 0) return -1 - prg;
    if (kTestsEveryStep<Family> && a.errors() > 0) return -1 - prg;
  }
  return 0;
}

#define ZELVARO_INSTANTIATE(F) template int Link31<F>(Assembly&, Tcomet2&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
