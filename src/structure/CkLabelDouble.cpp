// Duplicate labels of a program, and its label table.
#include "diag/Quote.h"
#include "structure/Structure.h"

namespace zelvaro {
namespace {

constexpr Message labelTwice =
    Message{"label-twice",
            Severity::Error,
            Head::Own,
            args("other", "label"),
            {.ja = "同じラベル {label} が二つある。\n"
                   "ラベルは同一プログラムの中で唯一(unique)でなければならない。\n"
                   "ラベルを同一プログラムの中で二重に定義してはならない。 ",
             .en = "Duplication of a label of {label}. \n"
                   "The label {label} is already defined. \n"
                   "Each of the labels must be unique in a program. \n"
                   "The same label must not be defined twice within a program."},
            {{kNarrow,
              {.ja = {},
               .en = "Duplication of the same label of {label}. \n"
                     "The label {label} is already defined. \n"
                     "Each of the labels must be unique in a program. \n"
                     "The same label must not be defined twice within a program."}}}}
        .withHead(
            {.ja = "エラー： {line} 行目 と {other} 行目： ", .en = "Error : line={line} and line={other} "});

}  // namespace

template <class Char>
void CkLabelDouble(Assembly& a, int prg) {
  auto& store = a.store<Char>();
  auto& program = a.program<Char>(prg);
  program.Labels.clear();
  for (int record = program.RecStart; record < program.RecEnd; ++record)
    if (!store[record].LabelStr.empty()) program.Labels.add(store[record].LabelStr, record);
  const EqualNames pair = program.Labels.settle();
  if (!pair.found()) return;
  const auto& line = store[pair.first];
  a.cs.report(labelTwice, line.Line, store[pair.second].Line + 1, plain(line.LabelStr));
}

template void CkLabelDouble<char16_t>(Assembly&, int);
template void CkLabelDouble<char>(Assembly&, int);

RowList rowsOfCkLabelDouble() {
  return rows(labelTwice);
}

}  // namespace zelvaro
