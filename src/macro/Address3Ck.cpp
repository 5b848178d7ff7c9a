// address3_ck: the form of an operand of IN or OUT.  Only a label will do; every other kind of constant is
// told in words of its own.
#include <algorithm>

#include "diag/Quote.h"
#include "macro/InOutOprnd.h"
#include "macro/Macro.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message badMozi{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: \nアドレス定数に英大文字と数字以外の文字がある。",
     .en =
         "{quote}: \nThe address constant contains characters other than uppercase alphanumeric characters. "},
    {{families(FamilyId::AP),
      {.ja = {},
       .en =
           "{quote}: \nThe address constant contains characers other than uppercase alphanumeric characters. "}},
     {families(FamilyId::NA),
      {.ja = {},
       .en = "{quote}: \nThere is non-capital and non-alphanumeric character in the address constant. "}}}};
constexpr Message tooLong{
    Severity::Error,
    Head::Line,
    args("quote", "count"),
    {.ja = "{quote}\nアドレス定数は８文字以内の制限がある。\n{count} 文字ある。",
     .en = "\nAn address constant(or a label) must be written in eight letters or less. \n"
           "There are {count} characters in {quote}. "},
    {{families(FamilyId::NWW),
      {.ja = "{quote}\n アドレス定数は８文字以内。\n{count} 文字ある。", .en = {}}}}};
constexpr Message reservedWord{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}\n マクロ命令のオペランドに予約語( GR0 - GR7 )は使えない。\n"
           "マクロ命令のオペランドはラベル で指定する。（CASL2の仕様 2-4）",
     .en =
         "{quote}\nGR0-GR7 are reserved words.  They cannot be used as an operand of the macro instruction. \n"
         "Every operand of macro instructions must be a label in the program. (Spec. of CASL2  2-4) "},
    {{families(FamilyId::NWW),
      {.ja = "{quote}\n マクロ命令のオペランドに予約語( GR0 - GR7 )は使えない。\n"
             "マクロ命令のオペランドはラベル で指定する。（仕様2-4）",
       .en =
           "{quote}\nEvery reserved words (GR0-GR7) cannot be used as an operand of the macro instruction. \n"
           "An operand of a macro must be a label in the program. (Spec. 2-4) "}}}};

constexpr OtherWords kLabelOnlyNH{
    families(FamilyId::NH),
    {.ja = "IN と OUT のオペランドはラベルで指定する。(CASl2 の仕様: ２・４)",
     .en = "An operand of IN must be a label in the program. (Spec. of CASL2: 2-4) "
           "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) "}};
constexpr Message hexOrSigned{Severity::Error,
                              Head::Line,
                              args(),
                              {.ja = "IN と OUT のオペランドはラベルで指定する。（仕様２・４）",
                               .en = "An operand of IN must be a label in the program. (Spec. 2-4) "
                                     "An operand of OUT must be a label in the program. (Spec. 2-4) "},
                              {kLabelOnlyNH}};
constexpr Message decimal{Severity::Error,
                          Head::Line,
                          args(),
                          {.ja = "IN と OUT のオペランドはラベルで指定する。（仕様２・４）",
                           .en = "An operand of IN must be a label in the program. (Spec. of CASL2: 2-4) "
                                 "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) "},
                          {kLabelOnlyNH}};
constexpr Message hexOrSignedLiteral{
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "IN と OUT のオペランドはラベルで指定する。（CASL2 の仕様２・４）",
     .en = "An operand of IN must be a label in the program. (Spec. 2-4) "
           "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) "},
    {kLabelOnlyNH}};
constexpr Message decimalLiteral{
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "IN と OUT のオペランドはラベルで指定する。（CASL2 の仕様２・４）",
     .en = "An operand of IN must be a label in the program. (Spec. 2-4) \n"
           "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) "},
    {kLabelOnlyNH}};
constexpr Message charLiteral{
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "IN と OUT のオペランドはラベルで指定する。（仕様２・４）",
     .en = "An operand of IN must be a label in the program. (Spec. 2-4) "
           "An operand of OUT must be a label in the program. (Spec. of CASl2: 2-4) "},
    {kLabelOnlyNH}};
constexpr Message missing{Severity::Error,
                          Head::Line,
                          args("op"),
                          {.ja = "{op} はオペランドを二つ必要とする。  ", .en = "{op} takes two operands. "}};

template <class Family>
void ckName(Assembly& a, int line, ViewOf<Family> p) {
  if (!std::all_of(p.begin(), p.end(), isLabelMozi<CharOf<Family>>)) {
    a.cs.report<Family, badMozi>(line, quote(p));
  } else if (p.size() > TCorrectScode::kLabelLength) {
    a.cs.report<Family, tooLong>(line, quote(p), p.size());
  } else if (isRegisterOprnd(p)) {
    a.cs.report<Family, reservedWord>(line, quote(p));
  }
}

/// A number or a literal; `at(i)` of a place behind the end is no character at all.
template <class Family>
void ckNumber(Assembly& a, int line, ViewOf<Family> p) {
  using Char = CharOf<Family>;
  const auto at = [p](std::size_t i) { return i < p.size() ? p[i] : Char(0); };
  if (at(0) == Char('#') || (isSign(at(0)) && isDigit(at(1)))) {
    a.cs.report<Family, hexOrSigned>(line);
  } else if (isDigit(at(0))) {
    a.cs.report<Family, decimal>(line);
  } else if (at(0) != Char('=')) {
    return;
  } else if (at(1) == Char('#') || (isSign(at(1)) && isDigit(at(2)))) {
    a.cs.report<Family, hexOrSignedLiteral>(line);
  } else if (isDigit(at(1))) {
    a.cs.report<Family, decimalLiteral>(line);
  } else if (at(1) == Char('\'')) {
    a.cs.report<Family, charLiteral>(line);
  }
}

}  // namespace

template <class Family>
void address3_ck(Assembly& a, SrcOf<Family>& line, int n) {
  const auto oprnd = static_cast<std::size_t>(n);
  if (!line.hasOprnd(0) || !line.hasOprnd(oprnd)) return;
  const ViewOf<Family> p = line.Oprnd[oprnd];
  if (p.empty()) {
    // Behind an Error the missing operand has been told, or will be once that is mended.
    if (a.cs.ErrorKazu == 0) a.cs.report<Family, missing>(line.Line, plain(line.OpStr));
  } else if (isCapital(p.front())) {
    ckName<Family>(a, line.Line, p);
  } else {
    ckNumber<Family>(a, line.Line, p);
  }
}

#define ZELVARO_INSTANTIATE(F) template void address3_ck<F>(Assembly&, SrcOf<F>&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
