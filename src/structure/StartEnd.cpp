// Per program: a label on START, none on END; sets the program number of the lines.
#include "diag/Quote.h"
#include "structure/Structure.h"

namespace zelvaro {
namespace {

constexpr Message startWithoutLabel{
    "start-label-missing",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "START アセンブラ命令の左にラベルが必要",
     .en = "A label is expected at the left side of the START assembler instruction. "}};
constexpr Message endWithLabel{
    "end-line-label",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}\nEND アセンブラ命令の左にラベルがある。 \n"
           "END アセンブラ命令の左のラベルは不要です。（CASL2 の仕様） ",
     .en =
         "{quote}\nA label is found at the left side of the END assembler instruction. \nIt is of no use. "}};

}  // namespace

template <class Char>
void StartEnd(Assembly& a, int prg) {
  auto& store = a.store<Char>();
  const auto& program = a.program<Char>(prg);
  const auto& start = store[program.RecStart];
  if (isBlank(start.SrcStr.front())) {
    a.cs.report(startWithoutLabel, start.Line);
    return;
  }
  const auto& end = store[program.RecEnd];
  if (!isBlank(end.SrcStr.front())) {
    a.cs.report(endWithLabel, end.Line, quote(end.SrcStr));
    return;
  }
  for (auto& line : store.linesWithEnd(program)) line.PrgNr = prg;
}

template void StartEnd<char16_t>(Assembly&, int);
template void StartEnd<char>(Assembly&, int);

RowList rowsOfStartEnd() {
  return rows(startWithoutLabel, endWithLabel);
}

}  // namespace zelvaro
