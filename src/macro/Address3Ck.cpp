// address3_ck: the form of an operand of IN or OUT.  Only a label is accepted; every other kind of constant
// has a message of its own.
#include <algorithm>

#include "diag/Quote.h"
#include "encode/ConstForm.h"
#include "macro/InOutOprnd.h"
#include "macro/Macro.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message badMozi{
    "macro-address-character",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: \nアドレス定数に英大文字と数字以外の文字がある。",
     .en =
         "{quote}: \nThe address constant contains characters other than uppercase alphanumeric characters. "},
    {{kAP,
      {.ja = {},
       .en =
           "{quote}: \nThe address constant contains characers other than uppercase alphanumeric characters. "}},
     {kNA,
      {.ja = {},
       .en = "{quote}: \nThere is non-capital and non-alphanumeric character in the address constant. "}}}};
constexpr Message tooLong{
    "macro-address-length",
    Severity::Error,
    Head::Line,
    args("quote", "count"),
    {.ja = "{quote}\nアドレス定数は８文字以内の制限がある。\n{count} 文字ある。",
     .en = "\nAn address constant(or a label) must be written in eight letters or less. \n"
           "There are {count} characters in {quote}. "},
    {{kNWW, {.ja = "{quote}\n アドレス定数は８文字以内。\n{count} 文字ある。", .en = {}}}}};
constexpr Message reservedWord{
    "macro-register",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}\n マクロ命令のオペランドに予約語( GR0 - GR7 )は使えない。\n"
           "マクロ命令のオペランドはラベル で指定する。（CASL2の仕様 2-4）",
     .en =
         "{quote}\nGR0-GR7 are reserved words.  They cannot be used as an operand of the macro instruction. \n"
         "Every operand of macro instructions must be a label in the program. (Spec. of CASL2  2-4) "},
    {{kNWW,
      {.ja = "{quote}\n マクロ命令のオペランドに予約語( GR0 - GR7 )は使えない。\n"
             "マクロ命令のオペランドはラベル で指定する。（仕様2-4）",
       .en =
           "{quote}\nEvery reserved words (GR0-GR7) cannot be used as an operand of the macro instruction. \n"
           "An operand of a macro must be a label in the program. (Spec. 2-4) "}}}};

constexpr OtherWords kLabelOnlyNH{
    kNH,
    {.ja = "IN と OUT のオペランドはラベルで指定する。(CASl2 の仕様: ２・４)",
     .en = "An operand of IN must be a label in the program. (Spec. of CASL2: 2-4) "
           "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) "}};
constexpr Message hexOrSigned{"macro-number",
                              Severity::Error,
                              Head::Line,
                              args(),
                              {.ja = "IN と OUT のオペランドはラベルで指定する。（仕様２・４）",
                               .en = "An operand of IN must be a label in the program. (Spec. 2-4) "
                                     "An operand of OUT must be a label in the program. (Spec. 2-4) "},
                              {kLabelOnlyNH}};
constexpr Message decimal{"macro-decimal",
                          Severity::Error,
                          Head::Line,
                          args(),
                          {.ja = "IN と OUT のオペランドはラベルで指定する。（仕様２・４）",
                           .en = "An operand of IN must be a label in the program. (Spec. of CASL2: 2-4) "
                                 "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) "},
                          {kLabelOnlyNH}};
constexpr Message hexOrSignedLiteral{
    "macro-literal-number",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "IN と OUT のオペランドはラベルで指定する。（CASL2 の仕様２・４）",
     .en = "An operand of IN must be a label in the program. (Spec. 2-4) "
           "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) "},
    {kLabelOnlyNH}};
constexpr Message decimalLiteral{
    "macro-literal-decimal",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "IN と OUT のオペランドはラベルで指定する。（CASL2 の仕様２・４）",
     .en = "An operand of IN must be a label in the program. (Spec. 2-4) \n"
           "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) "},
    {kLabelOnlyNH}};
constexpr Message charLiteral{
    "macro-literal-string",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "IN と OUT のオペランドはラベルで指定する。（仕様２・４）",
     .en = "An operand of IN must be a label in the program. (Spec. 2-4) "
           "An operand of OUT must be a label in the program. (Spec. of CASl2: 2-4) "},
    {kLabelOnlyNH}};
constexpr Message missing{"macro-address-missing",
                          Severity::Error,
                          Head::Line,
                          args("op"),
                          {.ja = "{op} はオペランドを二つ必要とする。  ", .en = "{op} takes two operands. "}};

template <class Char>
void ckName(Assembly& a, int line, ViewOf<Char> p) {
  if (!std::all_of(p.begin(), p.end(), isLabelMozi<Char>)) {
    a.cs.report(badMozi, line, quote(p));
  } else if (p.size() > kLabelLength) {
    a.cs.report(tooLong, line, quote(p), p.size());
  } else if (isRegisterOprnd(p)) {
    a.cs.report(reservedWord, line, quote(p));
  }
}

/// A number or a literal.
template <class Char>
void ckNumber(Assembly& a, int line, ViewOf<Char> p) {
  const ConstForm form = formOfConst(p);
  const bool isLiteral = form == ConstForm::Literal;
  switch (isLiteral ? formOfConst(p.substr(1)) : form) {
    case ConstForm::Hex:
    case ConstForm::SignedDecimal:
      return a.cs.report(isLiteral ? hexOrSignedLiteral : hexOrSigned, line);
    case ConstForm::Decimal:
      return a.cs.report(isLiteral ? decimalLiteral : decimal, line);
    case ConstForm::Character:
      if (isLiteral) a.cs.report(charLiteral, line);
      return;
    default:
      return;
  }
}

}  // namespace

template <class Char>
void address3_ck(Assembly& a, SrcData<Char>& line, int n) {
  const auto oprnd = static_cast<std::size_t>(n);
  if (!line.hasOprnd(0) || !line.hasOprnd(oprnd)) return;
  const ViewOf<Char> p = line.Oprnd[oprnd];
  if (p.empty()) {
    // After an Error the missing operand has been reported, or will be when that Error is corrected.
    if (a.cs.ErrorKazu == 0) a.cs.report(missing, line.Line, plain(line.OpStr));
  } else if (formOfConst(p) == ConstForm::Name) {
    ckName(a, line.Line, p);
  } else {
    ckNumber(a, line.Line, p);
  }
}

template void address3_ck<char16_t>(Assembly&, SrcData<char16_t>&, int);
template void address3_ck<char>(Assembly&, SrcData<char>&, int);

RowList rowsOfAddress3Ck() {
  return rows(badMozi, tooLong, reservedWord, hexOrSigned, decimal, hexOrSignedLiteral, decimalLiteral,
              charLiteral, missing);
}

}  // namespace zelvaro
