// Labels that no operand refers to.  The label of a START is a program's name and is left out.
#include "diag/Quote.h"
#include "structure/Structure.h"

namespace zelvaro {
namespace {

constexpr Message unreferenced{
    "label-unreferenced",
    Severity::Note,
    Head::Line,
    args("quote"),
    {.ja = "ラベル {quote} は一度も参照されない。 ", .en = "{quote} Unreferenced label  "}};

}  // namespace

template <class Char>
void CkLabelInUse(Assembly& a) {
  auto& store = a.store<Char>();
  for (const auto& program : store.vecPrg)
    for (const auto& line : store.linesBeforeEnd(program).subspan(1))
      if (!line.LabelStr.empty() && !line.IsLabelInUse)
        a.b.report(unreferenced, line.Line, quote(line.LabelStr));
}

template void CkLabelInUse<char16_t>(Assembly&);
template void CkLabelInUse<char>(Assembly&);

RowList rowsOfCkLabelInUse() {
  return rows(unreferenced);
}

}  // namespace zelvaro
