// The second register of the form r1,r2 and what stands behind it.
#include "diag/Quote.h"
#include "encode/Encoders.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message commaBehindSecond{
    Severity::Warning,
    Head::Line,
    args(),
    {.ja = "２つ目のレジスターの右にコンマは不要です。\n"
           "２つ目のレジスターの右には空白又はセミコロンの記述が適正です。\n"
           "空白以降はコメントとなる。 ",
     .en = "A comma is of no use at the right side of the 2nd operand register. \n"
           "The comma should be deleted or replaced a space or a semicolon."}};
constexpr Message moreBehindSecond{
    Severity::Warning,
    Head::Line,
    args(),
    {.ja = "２つ目のレジスターの右にコンマは不要です。\nコンマがあるとオペランドがさらに続くと読める。\n"
           "２つ目のレジスターの右には空白又はセミコロンの記述が適正です。\n空白以降はコメントとなる。 ",
     .en = "The comma is of no use at the right side of the 2nd operand register. \n"
           "The comma should be deleted or replaced with a space or semicolon."}};
constexpr Message badSecondRegister{
    Severity::Error,
    Head::QuoteLine,
    args("quote"),
    {.ja = "\nレジスタ名 (GR0 - GR7) が正しくない。", .en = "\nA valid general register name is expected. "}};

}  // namespace

template <class Family>
int r2(Assembly& a, SrcOf<Family>& line) {
  const ViewOf<Family> second = line.Oprnd[2];
  if (second.size() == 3) {
    line.Oprnd[4] = emptied(line.Oprnd[4]);
    return 0;
  }
  if (second.size() == 4 && endsInComma(second)) {
    if (line.Oprnd[3].empty()) {
      a.cs.report<Family, commaBehindSecond>(line.Line);
      return 0;
    }
    line.Oprnd[2] = second.substr(0, 3);
    line.Oprnd[3] = emptied(line.Oprnd[3]);
    a.cs.report<Family, moreBehindSecond>(line.Line);
    return 0;
  }
  a.cs.report<Family, badSecondRegister>(line.Line, quote(second));
  AnalystZenKSpace20NW<Family>(a.cs, line.Line, second);
  return 1;
}

#define ZELVARO_INSTANTIATE(F) template int r2<F>(Assembly&, SrcOf<F>&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
