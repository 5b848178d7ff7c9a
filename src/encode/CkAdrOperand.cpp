// CkAdrOperand: the form of an address operand and the commas around it, but not the thing that it names.
#include "diag/Quote.h"
#include "encode/Encode.h"

namespace zelvaro {
namespace {

constexpr Message firstExpected{
    "operand-first-expected",
    Severity::Error,
    Head::Line,
    args("count"),
    {.ja = "{count} つ目のオペランドが必要。", .en = "The 1st operand is expected. "}};
constexpr Message secondExpected{
    "operand-second-expected",
    Severity::Error,
    Head::Line,
    args("count"),
    {.ja = "{count} つ目のオペランドが必要。", .en = "The 2nd operand is expected. "}};
constexpr Message anotherExpected{
    "operand-expected",
    Severity::Error,
    Head::Line,
    args("count"),
    {.ja = "{count} つ目のオペランドが必要。", .en = "Another operand is expected. "}};
constexpr Message commaAlone{
    "address-comma-alone",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "コンマの重複あるいはコンマの前にオペランドの記述がない。  ",
     .en = "Dupulication of comma. Or an operand is expected at the left side of the "
           "comma. "}};
constexpr Message commaMissing{
    "address-comma-missing",
    Severity::Error,
    Head::Line,
    args("quote", "second", "third", "quotedSecond"),
    {.ja = ":  二つ目のオペランド {quotedSecond} の右にコンマが無いのに三つ目のオペランド（指標レジスタ）"
           "{quote} の記述がある。 ",
     .en = "{quote}: A comma is expected between the 2nd operand and the 3rd one. 2nd operand={second}   3rd "
           "operand={third}  "}};
constexpr Message commaOfNoUse{
    "address-comma-of-no-use",
    Severity::Warning,
    Head::Line,
    args("count"),
    {.ja = "指標レジスターの記述がないのだから {count} つ目のオペランドの右のコンマは不要です。"
           "あるいは、このコンマに続く指標レジスターの記述が必要です。",
     .en =
         "A comma is found at the right side of the operand. This comma is of no use. Or an index register is "
         "expected at the right side of the comma. "},
    {{kNWW | kAP,
      {.ja = {},
       .en =
           "A comma is found at the right side of the operand. This comma is of no use. Or an index register "
           "is expected at the left side of the comma. "}}}};

template <class Char>
void reportMissing(Assembly& a, int line, int n) {
  if (n == 1) {
    a.cs.report(firstExpected, line, n);
  } else if (n == 2) {
    a.cs.report(secondExpected, line, n);
  } else {
    a.cs.report(anotherExpected, line, n);
  }
}

}  // namespace

template <class Char>
void CkAdrOperand(Assembly& a, SrcData<Char>& line, int n) {
  ViewOf<Char>& p = line.Oprnd[static_cast<std::size_t>(n)];
  const ViewOf<Char> q = line.Oprnd[static_cast<std::size_t>(n) + 1];

  if (p.empty()) return reportMissing<Char>(a, line.Line, n);
  const bool comma = p.back() == Char(',');
  if (comma && (p.size() == 1 || (p.size() == 2 && isBlank(p.front())))) {
    a.cs.report(commaAlone, line.Line);
    return;
  }
  a.cs.CommaAriFlag = comma;
  if (!comma && !q.empty()) {
    a.cs.report(commaMissing, line.Line, quote(q), plain(p), plain(q), quote(p));
    return;
  }
  if (comma) {
    if (q.empty()) a.cs.report(commaOfNoUse, line.Line, n);
    p.remove_suffix(1);
  }
  line.word_kazu = 2;
  line.Word2 = 0;
}

template void CkAdrOperand<char16_t>(Assembly&, SrcData<char16_t>&, int);
template void CkAdrOperand<char>(Assembly&, SrcData<char>&, int);

RowList rowsOfCkAdrOperand() {
  return rows(firstExpected, secondExpected, anotherExpected, commaAlone, commaMissing, commaOfNoUse);
}

}  // namespace zelvaro
