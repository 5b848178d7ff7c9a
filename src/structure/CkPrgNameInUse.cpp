// Programs that no other program names.  The first one is started by the operating system.
#include "diag/Quote.h"
#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

constexpr Message neverExecuted{
    Severity::Warning,
    Head::Line,
    args("quote", "label"),
    {.ja = "プログラム {label} は他のプログラムから呼び出しがなく一度も実行されない。 ",
     .en = "A program of the{quote}is never executed, becasue it is not called by any other program. "},
    {{kNarrow,
      {.ja = {},
       .en = "A program of the{quote} is never executed. Becasue it is not called by any other program. "}}}};

}  // namespace

template <class Family>
void CkPrgNameInUse(Assembly& a) {
  const auto& programs = a.store<Family>().vecPrg;
  for (std::size_t i = 1; i < programs.size(); ++i)
    if (!programs[i].IsPrgNameInUse)
      a.b.report<Family, neverExecuted>(programs[i].StartLine, quote(programs[i].PrgName),
                                        plain(programs[i].PrgName));
}

#define ZELVARO_INSTANTIATE(F) template void CkPrgNameInUse<F>(Assembly&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
