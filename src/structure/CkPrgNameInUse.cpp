// Programs that no other program names.  The first one is started by the operating system.
#include "diag/Quote.h"
#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

constexpr Message neverExecuted{
    "program-never-called",
    Severity::Warning,
    Head::Line,
    args("quote", "label"),
    {.ja = "プログラム {label} は他のプログラムから呼び出しがなく一度も実行されない。 ",
     .en = "A program of the{quote}is never executed, becasue it is not called by any other program. "},
    {{kNarrow,
      {.ja = {},
       .en = "A program of the{quote} is never executed. Becasue it is not called by any other program. "}}}};

}  // namespace

template <class Char>
void CkPrgNameInUse(Assembly& a) {
  const auto& programs = a.store<Char>().vecPrg;
  for (std::size_t i = 1; i < programs.size(); ++i)
    if (!programs[i].IsPrgNameInUse)
      a.b.report(neverExecuted, programs[i].StartLine, quote(programs[i].PrgName),
                 plain(programs[i].PrgName));
}

template void CkPrgNameInUse<char16_t>(Assembly&);
template void CkPrgNameInUse<char>(Assembly&);

RowList rowsOfCkPrgNameInUse() {
  return rows(neverExecuted);
}

}  // namespace zelvaro
