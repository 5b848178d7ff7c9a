// The optional index register, which is also the check that a line ends where it should.
#include "diag/Quote.h"
#include "encode/Encoders.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message commaWithoutIndex{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}:   二つめのオペランドの右にコンマがあるのにコンマの右に指標レジスタの記述がない。 ",
     .en = "{quote}:   Although there is a comma at the right side of the 2nd operand, \n"
           "there is no description of an index register follwing the comma. "},
    {{families(FamilyId::NWW),
      {.ja = {},
       .en = "{quote}: Although a comma is found at the right side "
             "no index register specification follows it. "}}}};
constexpr Message indexWithoutComma{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: 第2オペランドの右にコンマが無い。 \n"
           "第２オペランドの右にコンマあるいはコメント記号（；）を明示すること。 ",
     .en = "{quote}: Either a comma or a comment mark(;)is expected at the right side of the 2nd operand. "},
    {{families(FamilyId::NH),
      {.ja = " 二つめのオペランドの右にコンマが無いのにコンマの右に指標レジスタの記述がある。",
       .en = "  A comma is expected between the 2nd and the 3rd operand. "
             "A comma is expected at the left of the index register. "}}}};
constexpr Message indexIsGR0{
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "指標レジスターに GR0 は使えない。 ", .en = "GR0 cannnot be used as an index register. "}};
constexpr Message commaBehindIndex{
    Severity::Warning,
    Head::Line,
    args(),
    {.ja = "指標レジスターの右のコンマは不要です。",
     .en = "A comma is of no use at the right side of the the index register. "}};
constexpr Message noIndexRegister{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} 指標レジスター GR1-GR7 が正しく記述されていない。",
     .en = "{quote} is not an index register.\n"
           "A valid index register name (GR1-GR7) is expected there. "},
    {{families(FamilyId::NWW), {.ja = {}, .en = "{quote}  A valid index register(GR1-GR7) is expected. "}},
     {families(FamilyId::AP),
      {.ja = {}, .en = "{quote}  A valid index register name (GR1-GR7) is expected. "}},
     {families(FamilyId::NA), {.ja = {}, .en = "{quote}  A valid index register (GR1-GR7) is expected. "}},
     {families(FamilyId::NH), {.ja = {}, .en = "{quote}:  A valid index register (GR1-GR7) is expected. "}}}};
constexpr Message doubleComma{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} コンマの連続がある。", .en = "{quote}  Duplication of comma between two operands! "}};

/// A register, and behind it nothing, a blank or a comma.
template <class View>
constexpr bool isIndexText(View s) {
  return beginsLikeRegister(s) && (s.size() == 3 || isBlank(s[3]) || s[3] == ',');
}

template <class Family>
void putIndex(Assembly& a, SrcOf<Family>& line, std::size_t n) {
  const ViewOf<Family> text = line.Oprnd[n];
  line.Oprnd[n] = text.substr(0, 3);
  if (registerNumber(text) == 0) {
    a.cs.report<Family, indexIsGR0>(line.Line);
    return;
  }
  if (text.size() > 3 && text[3] == ',') a.cs.report<Family, commaBehindIndex>(line.Line);
  line.Oprnd[n + 1] = emptied(line.Oprnd[n + 1]);
  line.Word1 |= firstWord(0, 0, registerNumber(text));
  line.word_kazu = 2;
}

template <class Family>
void badIndex(Assembly& a, SrcOf<Family>& line, int n) {
  const ViewOf<Family> text = line.Oprnd[static_cast<std::size_t>(n)];
  a.cs.report<Family, noIndexRegister>(line.Line, quote(text));
  AnalystZenKSpace20NW<Family>(a.cs, line.Line, text);
  if constexpr (Family::tellsDoubleComma) {
    if (text.front() == ',') a.cs.report<Family, doubleComma>(line.Line, quote(text));
  }
  AnalystIndexReg<Family>(a, line, n);
}

}  // namespace

template <class Family>
void RegX(Assembly& a, SrcOf<Family>& line, int n) {
  const auto at = static_cast<std::size_t>(n);
  const ViewOf<Family> text = line.Oprnd[at];
  if (a.cs.CommaAriFlag && text.empty()) {
    a.cs.report<Family, commaWithoutIndex>(line.Line, quote(line.Oprnd[at - 1]));
  } else if (!a.cs.CommaAriFlag && !line.Oprnd[at + 1].empty()) {
    a.cs.report<Family, indexWithoutComma>(line.Line, quote(text));
  } else if (text.empty()) {
    line.word_kazu = 2;
  } else if (isIndexText(text)) {
    putIndex<Family>(a, line, at);
  } else {
    badIndex<Family>(a, line, n);
  }
}

#define ZELVARO_INSTANTIATE(F) template void RegX<F>(Assembly&, SrcOf<F>&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
