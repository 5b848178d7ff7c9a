// Two programs of one name, and the table of program names.
#include "diag/Quote.h"
#include "structure/Structure.h"

namespace zelvaro {
namespace {

constexpr Message nameTwice =
    Message{"program-name-twice",
            Severity::Error,
            Head::Own,
            args("quote", "prg1", "line1", "prg2", "line2"),
            {.ja = "プログラム名の重複： {quote} が二つある。 \n"
                   "プログラム{prg1} と プログラム{prg2} の名前 \n"
                   "{line1} 行目 と {line2} 行目にある。",
             .en = "{quote} is already defined. Duplication of the program name. \n"
                   "Program {prg1}, line {line1} and Program {prg2}, line {line2}.\n"
                   "Their names must be unique each other. "},
            {{kNH,
              {.ja = "{prg1} 番目と{prg2} 番目のプログラムが同名である。\n{quote}２ 個ある。",
               .en = "The program name has been already defined in both Program {prg1} and Program {prg2}. \n"
                     "Each of the names must be unique. "}}}}
        .withHead({.ja = "エラー：", .en = "Error : "});

}  // namespace

template <class Char>
void CkPrgNameDouble(Assembly& a) {
  auto& store = a.store<Char>();
  store.PrgIndex.clear();
  int prg = 0;
  for (const auto& program : store.vecPrg) store.PrgIndex.add(program.PrgName, prg++);
  const EqualNames pair = store.PrgIndex.settle();
  if (!pair.found()) return;
  store.PrgIndex.clear();
  const auto& first = a.program<Char>(pair.first);
  const auto& second = a.program<Char>(pair.second);
  a.b.report(nameTwice, first.StartLine, quote(first.PrgName), pair.first + 1, first.StartLine + 1,
             pair.second + 1, second.StartLine + 1);
}

template void CkPrgNameDouble<char16_t>(Assembly&);
template void CkPrgNameDouble<char>(Assembly&);

RowList rowsOfCkPrgNameDouble() {
  return rows(nameTwice);
}

}  // namespace zelvaro
