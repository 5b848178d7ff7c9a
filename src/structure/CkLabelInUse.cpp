// Labels that no operand refers to.  The label of a START is a program's name and is left out.
#include "diag/Quote.h"
#include "structure/Structure.h"

namespace zelvaro {
namespace {

constexpr Message unreferenced{
    Severity::Note,
    Head::Line,
    args("quote"),
    {.ja = "ラベル {quote} は一度も参照されない。 ", .en = "{quote} Unreferenced label  "}};

}  // namespace

template <class Family>
void CkLabelInUse(Assembly& a) {
  auto& store = a.store<Family>();
  for (const auto& program : store.vecPrg)
    for (const auto& line : store.linesBeforeEnd(program).subspan(1))
      if (!line.LabelStr.empty() && !line.IsLabelInUse)
        a.b.report<Family, unreferenced>(line.Line, quote(line.LabelStr));
}

#define ZELVARO_INSTANTIATE(F) template void CkLabelInUse<F>(Assembly&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
