// CkAdrOperand: the shape of an address operand and the commas round it.  What it names is not looked at.
#include "diag/Quote.h"
#include "encode/Encode.h"

namespace zelvaro {
namespace {

constexpr Message firstExpected{
    Severity::Error,
    Head::Line,
    args("count"),
    {.ja = "{count} つ目のオペランドが必要。", .en = "The 1st operand is expected. "}};
constexpr Message secondExpected{
    Severity::Error,
    Head::Line,
    args("count"),
    {.ja = "{count} つ目のオペランドが必要。", .en = "The 2nd operand is expected. "}};
constexpr Message anotherExpected{
    Severity::Error,
    Head::Line,
    args("count"),
    {.ja = "{count} つ目のオペランドが必要。", .en = "Another operand is expected. "}};
constexpr Message commaAlone{
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "コンマの重複あるいはコンマの前にオペランドの記述がない。  ",
     .en = "Dupulication of comma. Or an operand is expected at the left side of the "
           "comma. "}};
constexpr Message commaMissing{
    Severity::Error,
    Head::Line,
    args("quote", "second", "third", "quotedSecond"),
    {.ja = ":  二つ目のオペランド {quotedSecond} の右にコンマが無いのに三つ目のオペランド（指標レジスタ）"
           "{quote} の記述がある。 ",
     .en = "{quote}: A comma is expected between the 2nd operand and the 3rd one. 2nd operand={second}   3rd "
           "operand={third}  "}};
constexpr Message commaOfNoUse{
    Severity::Warning,
    Head::Line,
    args("count"),
    {.ja = "指標レジスターの記述がないのだから {count} つ目のオペランドの右のコンマは不要です。"
           "あるいは、このコンマに続く指標レジスターの記述が必要です。",
     .en =
         "A comma is found at the right side of the operand. This comma is of no use. Or an index register is "
         "expected at the right side of the comma. "},
    {{families(FamilyId::NWW, FamilyId::AP),
      {.ja = {},
       .en =
           "A comma is found at the right side of the operand. This comma is of no use. Or an index register "
           "is expected at the left side of the comma. "}}}};

template <class Family>
void reportMissing(Assembly& a, int line, int n) {
  if (n == 1) {
    a.cs.report<Family, firstExpected>(line, n);
  } else if (n == 2) {
    a.cs.report<Family, secondExpected>(line, n);
  } else {
    a.cs.report<Family, anotherExpected>(line, n);
  }
}

}  // namespace

template <class Family>
void CkAdrOperand(Assembly& a, SrcOf<Family>& line, int n) {
  using Char = CharOf<Family>;
  ViewOf<Family>& p = line.Oprnd[static_cast<std::size_t>(n)];
  const ViewOf<Family> q = line.Oprnd[static_cast<std::size_t>(n) + 1];

  if (p.empty()) return reportMissing<Family>(a, line.Line, n);
  const bool comma = p.back() == Char(',');
  if (comma && (p.size() == 1 || (p.size() == 2 && isBlank(p.front())))) {
    a.cs.report<Family, commaAlone>(line.Line);
    return;
  }
  a.cs.CommaAriFlag = comma;
  if (!comma && !q.empty()) {
    a.cs.report<Family, commaMissing>(line.Line, quote(q), plain(p), plain(q), quote(p));
    return;
  }
  if (comma) {
    if (q.empty()) a.cs.report<Family, commaOfNoUse>(line.Line, n);
    p.remove_suffix(1);
  }
  line.word_kazu = 2;
  line.Word2 = 0;
}

#define ZELVARO_INSTANTIATE(F) template void CkAdrOperand<F>(Assembly&, SrcOf<F>&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
