// The second register of the form r1,r2 and the text after it.
#include "diag/Quote.h"
#include "encode/Encoders.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message commaAfterSecond{
    "second-register-comma",
    Severity::Warning,
    Head::Line,
    args(),
    {.ja = "２つ目のレジスターの右にコンマは不要です。\n"
           "２つ目のレジスターの右には空白又はセミコロンの記述が適正です。\n"
           "空白以降はコメントとなる。 ",
     .en = "A comma is of no use at the right side of the 2nd operand register. \n"
           "The comma should be deleted or replaced a space or a semicolon."}};
constexpr Message moreAfterSecond{
    "second-register-more",
    Severity::Warning,
    Head::Line,
    args(),
    {.ja = "２つ目のレジスターの右にコンマは不要です。\nコンマがあるとオペランドがさらに続くと読める。\n"
           "２つ目のレジスターの右には空白又はセミコロンの記述が適正です。\n空白以降はコメントとなる。 ",
     .en = "The comma is of no use at the right side of the 2nd operand register. \n"
           "The comma should be deleted or replaced with a space or semicolon."}};
constexpr Message badSecondRegister{
    "second-register",
    Severity::Error,
    Head::QuoteLine,
    args("quote"),
    {.ja = "\nレジスタ名 (GR0 - GR7) が正しくない。", .en = "\nA valid general register name is expected. "}};

}  // namespace

template <class Char>
bool r2(Assembly& a, SrcData<Char>& line) {
  const ViewOf<Char> second = line.Oprnd[2];
  if (second.size() == 3) {
    line.Oprnd[4] = emptied(line.Oprnd[4]);
    return true;
  }
  if (second.size() == 4 && endsInComma(second)) {
    if (line.Oprnd[3].empty()) {
      a.cs.report(commaAfterSecond, line.Line);
      return true;
    }
    line.Oprnd[2] = second.substr(0, 3);
    line.Oprnd[3] = emptied(line.Oprnd[3]);
    a.cs.report(moreAfterSecond, line.Line);
    return true;
  }
  a.cs.report(badSecondRegister, line.Line, quote(second));
  AnalystZenKSpace20NW(a.cs, line.Line, second);
  return false;
}

template bool r2<char16_t>(Assembly&, SrcData<char16_t>&);
template bool r2<char>(Assembly&, SrcData<char>&);

RowList rowsOfR2() {
  return rows(commaAfterSecond, moreAfterSecond, badSecondRegister);
}

}  // namespace zelvaro
