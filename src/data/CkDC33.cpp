// The operands of a DC, checked by their first character.
#include <algorithm>

#include "data/DC.h"
#include "data/StrConst.h"
#include "diag/Limits.h"
#include "diag/Quote.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

/// The head that also names the place of the operand on its line.
constexpr Words kConstHead{.ja = "エラー： {line} 行目： {nr} 番目の定数： ",
                           .en = "Error : line {line}:  Constant Nr={nr}: "};

constexpr Message noConst{
    "dc-no-constant",
    Severity::Error,
    Head::BreakLine,
    args("quote"),
    {.ja = "CASL2 で使用できない文字が {quote} の中にある。 ",
     .en = "A non-alphanumeric character is found in '{quote}'. It is not allowed in CASL2.  "}};

constexpr Message strConstQuotes{
    "dc-string-quotes",
    Severity::Error,
    Head::None,
    args(),
    {.ja = "文字列定数（またはリテラル）は ' で始まりで ' で閉じる。\n",
     .en = "A string constant, also called a literal string constant, is a sequence of characters surrounded "
           "by single quotes, as in 'ABC'. The literal string constant is not correctly closed. "}};

constexpr Message hexMozi = Message{"dc-hex-digit",
                                    Severity::Error,
                                    Head::Line,
                                    args("nr", "quote"),
                                    {.ja = "{quote} 16進数は 0-9 の数字と A-F の英大文字で記述する。",
                                     .en = "{quote}: A hexadecimal number is written in 0-9 and A-F. "
                                           "A hexadecimal number is written in capital letter. "}}
                                .withHead(kConstHead);

constexpr Message hexTooLong =
    Message{"dc-hex-long",
            Severity::Error,
            Head::Line,
            args("nr", "quote", "count"),
            {.ja = "{quote}\n16進数は4桁で記述する。\n{count} 文字ある。",
             .en = "{quote} \nA hexadecimal number should be written as four digits. \n"
                   "It has {count} digits. "}}
        .withHead({.ja = kConstHead.ja, .en = "Error : line {line}:  Constant Nr={nr} "});

constexpr Message hexTooShort = Message{
    "dc-hex-short",
    Severity::Error,
    Head::Line,
    args("nr", "quote", "count"),
    {.ja = "{quote} 16進数は4文字で記述する。{count} 文字しかない。",
     .en =
         "{quote} \nA hexadecimal number should be written as four digits. \n"
         "It has {count} digits. "}}.withHead(kConstHead);

constexpr Message hexOneDigit = Message{
    "dc-hex-one-digit",
    Severity::Error,
    Head::Line,
    args("nr", "quote", "count"),
    {.ja = "{quote} 16進数は4文字で記述する。{count} 文字しかない。",
     .en = "{quote} \nA hexadecimal number should be written as four digits. \n"
           "It only has 1 digit. "}}.withHead(kConstHead);

constexpr Message decMozi = Message{
    "dc-decimal-digit",
    Severity::Error,
    Head::Line,
    args("nr", "quote"),
    {.ja = ":{quote}\n: 10進定数の中に数字以外の文字がある。",
     .en = "{quote}: \nA non-numerical character is found in the decimal "
           "constant. "}}.withHead(kConstHead);

constexpr Message decOrLabel =
    Message{"dc-decimal-or-label",
            Severity::Error,
            Head::Line,
            args("nr", "quote"),
            {.ja = "ラベルの先頭文字に数字は使えない。10進定数の中に数字以外の文字がある。  ",
             .en = "A numeral cannot be the 1st letter of a label. "
                   "A non-numeral character is found in the decimal number. "}}
        .withHead({.ja = "エラー： {quote}{line} 行目： {nr} 番目の定数： ",
                   .en = "Error : {quote}line {line}:  Constant Nr={nr}: "});

constexpr Message labelMozi =
    Message{"dc-label-character",
            Severity::Error,
            Head::Line,
            args("nr", "quote"),
            {.ja = "{quote} ＊アドレス定数に使えるのは英大文字と数字。 ",
             .en = "{quote} The address constant should be written in capital alphanumeric letters. "}}
        .withHead(kConstHead);

constexpr Message labelTooLong =
    Message{"dc-label-length",
            Severity::Error,
            Head::Line,
            args("nr", "quote", "count", limit("most", kLabelLength)),
            {.ja = "{quote} アドレス定数は８文字まで。 {count} 文字ある。 ",
             .en = "{quote} An address constant is written in 1 to {most} characters. "
                   "There are {count} characters in it. "}}
        .withHead(kConstHead);

constexpr Message labelUndefined =
    Message{"dc-label-undefined",
            Severity::Error,
            Head::Line,
            args("nr", "quote"),
            {.ja = "{quote}  と一致するラベル又はプログラム名が存在しない。\nスペリングは正しいですか？ ",
             .en = "{quote}: Undefined address constant \n"
                   "{quote} No label or program name matches {quote}. \n"
                   "Make sure of your spelling of {quote}. "},
            {{kAP,
              {.ja = "{quote}  と一致するラベル又はプログラム名が存在しない。\n"
                     "アドレス定数としては同じプログラム内のラベルのみが使える。スペリングは正しいですか？ ",
               .en = "{quote}: Undefined address constant {quote} It is neither label nor program name. "
                     "An address constant must be one of the labels inside the program.  "
                     "Make sure of your spelling of {quote}. "}}}}
        .withHead({.ja = kConstHead.ja, .en = "Error : line {line}:  Constant Nr={nr}"});

constexpr Message strConstNotClosed =
    Message{"dc-string-open",
            Severity::Error,
            Head::Line,
            args("nr", "quote"),
            {.ja = "{quote}  文字定数が閉じた直後にさらに文字がある。 "
                   "区切りとして空白又はコンマ又はセミコロンが必要。 "
                   "あるいは、文字定数が正しく閉じていない。"
                   "アポストロフィに着目：文字列定数の中では、アポストロフィ(')は２個続けて('')書く。"
                   "CASL2 の仕様 2.3 (4) 文字定数 ",
             .en = "{quote}  A character constant is not correctly closed. "
                   "There is another character at the right side of the constant. "
                   "A semicolon, comma or space is needed at the right side of the character constant. "
                   "Or the literal string is not correctly closed. "
                   "Note! Apostrophe.  If you want an apostrophe to appear within a character constant, "
                   "you must type two apostrophes such as ('') in a row. "
                   "(CASL2 Spec: 2.3  (4) String Constant) "}}
        .withHead({.ja = "エラー： {line} 行目： {nr} 番目の定数：   ",
                   .en = "Error : line {line}:  Constant Nr={nr}:   "});

template <class Char>
void ckHex(Assembly& a, int line, int nr, ViewOf<Char> text) {
  const ViewOf<Char> digits = text.substr(1);
  const bool clean = std::all_of(digits.begin(), digits.end(), [](auto c) { return isHexDigit(c); });
  if (!clean) a.cs.report(hexMozi, line, nr, quote(text));
  if (digits.size() > kHexDigits) {
    a.cs.report(hexTooLong, line, nr, quote(text), digits.size());
  } else if (digits.size() == 1) {
    a.cs.report(hexOneDigit, line, nr, quote(text), digits.size());
  } else if (digits.size() == 2 || digits.size() == 3) {
    a.cs.report(hexTooShort, line, nr, quote(text), digits.size());
  }
}

template <class Char>
void ckDec(Assembly& a, int line, int nr, ViewOf<Char> text) {
  const ViewOf<Char> number = isDigit(text[0]) ? text : text.substr(1);
  const auto digits = std::count_if(number.begin(), number.end(), [](auto c) { return isDigit(c); });
  const auto others = std::ssize(number) - digits;
  if (others == 0) return;
  if (others < digits) {
    a.cs.report(decMozi, line, nr, quote(text));
  } else {
    // as many other characters as digits: probably a name that begins with a digit
    a.cs.report(decOrLabel, line, nr, quote(text));
  }
}

/// False after a fault, as the two below: the walk over the line ends then.
template <class Char>
bool ckAdrConst(Assembly& a, SrcData<Char>& line, int nr, ViewOf<Char> text) {
  if (!std::all_of(text.begin(), text.end(), [](auto c) { return isLabelMozi(c); })) {
    a.cs.report(labelMozi, line.Line, nr, quote(text));
    return false;
  }
  if (text.size() > kLabelLength) {
    a.cs.report(labelTooLong, line.Line, nr, quote(text), text.size());
    return false;
  }
  LineStore<Char>& store = a.store<Char>();
  if (const int prg = store.findPrg(text, line.PrgNr); prg >= 0 && a.family.prgNameInDC) {
    line.IsLabelInUse = true;
    a.program<Char>(prg).IsPrgNameInUse = true;
    return true;
  }
  const int label = a.program<Char>(line.PrgNr).findLabel(text);
  if (label < 0) {
    a.cs.report(labelUndefined, line.Line, nr, quote(text));
    return false;
  }
  store[label].IsLabelInUse = true;
  return true;
}

template <class Char>
bool ckStrConst(Assembly& a, int line, int nr, ViewOf<Char> text) {
  if (DetStrConstGL10(text, 0) + 1 == text.size()) return true;
  a.cs.report(strConstNotClosed, line, nr, quote(text));
  return false;
}

template <class Char>
bool ckOprnd(Assembly& a, SrcData<Char>& line, int nr, ViewOf<Char> text) {
  switch (formOfConst(text)) {
    case ConstForm::None:
      return true;  // the count of words reports it
    case ConstForm::Character:
      return ckStrConst(a, line.Line, nr, text);
    case ConstForm::Name:
      return ckAdrConst(a, line, nr, text);
    case ConstForm::Hex:
      ckHex(a, line.Line, nr, text);
      return true;
    case ConstForm::Decimal:
    case ConstForm::SignedDecimal:
    case ConstForm::Sign:
      ckDec(a, line.Line, nr, text);
      return true;
    default:
      a.cs.report(noConst, line.Line, quote(text));
      if (text.front() == Char('"')) a.cs.report(strConstQuotes, line.Line);
      return false;
  }
}

}  // namespace

template <class Char>
int CkDC33(Assembly& a, SrcData<Char>& line) {
  const int before = a.cs.ErrorKazu;
  int nr = 0;
  for (const auto& oprnd : a.store<Char>().oprndsAtDC(line))
    if (!ckOprnd(a, line, ++nr, oprnd.ConstStr)) break;
  return a.cs.ErrorKazu - before;
}

template int CkDC33<char16_t>(Assembly&, SrcData<char16_t>&);
template int CkDC33<char>(Assembly&, SrcData<char>&);

RowList rowsOfCkDC33() {
  return rows(noConst, strConstQuotes, hexMozi, hexTooLong, hexTooShort, hexOneDigit, decMozi, decOrLabel,
              labelMozi, labelTooLong, labelUndefined, strConstNotClosed);
}

}  // namespace zelvaro
