// The optional index register, which is also the check that a line ends where it should.
#include "diag/Quote.h"
#include "encode/Encoders.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message commaWithoutIndex{
    "index-missing-after-comma",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}:   二つめのオペランドの右にコンマがあるのにコンマの右に指標レジスタの記述がない。 ",
     .en = "{quote}:   Although there is a comma at the right side of the 2nd operand, \n"
           "there is no description of an index register follwing the comma. "},
    {{kNWW,
      {.ja = {},
       .en = "{quote}: Although a comma is found at the right side "
             "no index register specification follows it. "}}}};
constexpr Message indexWithoutComma{
    "index-without-comma",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: 第2オペランドの右にコンマが無い。 \n"
           "第２オペランドの右にコンマあるいはコメント記号（；）を明示すること。 ",
     .en = "{quote}: Either a comma or a comment mark(;)is expected at the right side of the 2nd operand. "},
    {{kNH,
      {.ja = " 二つめのオペランドの右にコンマが無いのにコンマの右に指標レジスタの記述がある。",
       .en = "  A comma is expected between the 2nd and the 3rd operand. "
             "A comma is expected at the left of the index register. "}}}};
constexpr Message indexIsGR0{
    "index-gr0",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "指標レジスターに GR0 は使えない。 ", .en = "GR0 cannnot be used as an index register. "}};
constexpr Message commaAfterIndex{
    "index-comma",
    Severity::Warning,
    Head::Line,
    args(),
    {.ja = "指標レジスターの右のコンマは不要です。",
     .en = "A comma is of no use at the right side of the the index register. "}};
constexpr Message noIndexRegister{
    "index-invalid",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} 指標レジスター GR1-GR7 が正しく記述されていない。",
     .en = "{quote} is not an index register.\n"
           "A valid index register name (GR1-GR7) is expected there. "},
    {{kNWW, {.ja = {}, .en = "{quote}  A valid index register(GR1-GR7) is expected. "}},
     {kAP, {.ja = {}, .en = "{quote}  A valid index register name (GR1-GR7) is expected. "}},
     {kNA, {.ja = {}, .en = "{quote}  A valid index register (GR1-GR7) is expected. "}},
     {kNH, {.ja = {}, .en = "{quote}:  A valid index register (GR1-GR7) is expected. "}}}};
constexpr Message doubleComma{
    "index-double-comma",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} コンマの連続がある。", .en = "{quote}  Duplication of comma between two operands! "}};

/// A register, and after it nothing, a blank or a comma.
template <class View>
constexpr bool isIndexText(View s) {
  return beginsLikeRegister(s) && (s.size() == 3 || isBlank(s[3]) || s[3] == ',');
}

template <class Char>
void putIndex(Assembly& a, SrcData<Char>& line, std::size_t n) {
  const ViewOf<Char> text = line.Oprnd[n];
  line.Oprnd[n] = text.substr(0, 3);
  if (registerNumber(text) == 0) {
    a.cs.report(indexIsGR0, line.Line);
    return;
  }
  if (text.size() > 3 && text[3] == ',') a.cs.report(commaAfterIndex, line.Line);
  line.Oprnd[n + 1] = emptied(line.Oprnd[n + 1]);
  line.Word1 |= firstWord(0, 0, registerNumber(text));
  line.word_kazu = 2;
}

template <class Char>
void badIndex(Assembly& a, SrcData<Char>& line, int n) {
  const ViewOf<Char> text = line.Oprnd[static_cast<std::size_t>(n)];
  a.cs.report(noIndexRegister, line.Line, quote(text));
  AnalystZenKSpace20NW(a.cs, line.Line, text);
  if (a.family.reportsDoubleComma && text.front() == ',') a.cs.report(doubleComma, line.Line, quote(text));
  AnalystIndexReg(a, line, n);
}

}  // namespace

template <class Char>
void RegX(Assembly& a, SrcData<Char>& line, int n) {
  const auto at = static_cast<std::size_t>(n);
  const ViewOf<Char> text = line.Oprnd[at];
  if (a.cs.CommaAriFlag && text.empty()) {
    a.cs.report(commaWithoutIndex, line.Line, quote(line.Oprnd[at - 1]));
  } else if (!a.cs.CommaAriFlag && !line.Oprnd[at + 1].empty()) {
    a.cs.report(indexWithoutComma, line.Line, quote(text));
  } else if (text.empty()) {
    line.word_kazu = 2;
  } else if (isIndexText(text)) {
    putIndex(a, line, at);
  } else {
    badIndex(a, line, n);
  }
}

template void RegX<char16_t>(Assembly&, SrcData<char16_t>&, int);
template void RegX<char>(Assembly&, SrcData<char>&, int);

RowList rowsOfRegX() {
  return rows(commaWithoutIndex, indexWithoutComma, indexIsGR0, commaAfterIndex, noIndexRegister,
              doubleComma);
}

}  // namespace zelvaro
