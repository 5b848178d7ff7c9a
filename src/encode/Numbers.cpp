// The numbers of literals: two checks and two conversions.  k0 counts operands from 0, k is printed from 1.
#include "diag/Limits.h"
#include "diag/Quote.h"
#include "encode/AdrConst.h"

namespace zelvaro {
namespace {

constexpr Message decNonDigit{
    "constant-decimal-digit",
    Severity::Error,
    Head::Line,
    args("quote", "k"),
    {.ja = "{k} 番目の定数： :\n{quote}: \n10進定数の中に数字以外の文字がある。",
     .en = " Constant Nr={k}: \n{quote}: \nA non-numerical letter is found in the decimal constant. "},
    {{kNarrow,
      {.ja = {},
       .en =
           " Constant Nr={k}: \n{quote}: \nA non-numerical character is found in the decimal constant. "}}}};
constexpr Message decOutOfRange{
    "constant-range",
    Severity::Warning,
    Head::Line,
    args("value", "k"),
    {.ja = ": {k} 番目の定数： : \n十進定数 {value} が -32768 から 32767 "
           "までの範囲にないので、その下位１６ビットが格納される。（仕様2・3（４））  ",
     .en = " Constant Nr={k}: {value} \nThe decimal number constant is out of range. \n"
           "It should be between -32768 and 32767. \nSo its lower 16 bits are saved in memory. \n"
           "(CASL2 Spec: 2.3 (4)) "},
    {{kNarrow,
      {.ja = {},
       .en = " Constant Nr={k}: {value} \nThe decimal number constant is out of range. \n"
             "It should be between -32768 and +32767. \nSo its lower 16 bits are saved in memory. \n"
             "(CASL2 Spec: 2.3 (4)) "}}}};
constexpr Message literalOutOfRange{
    "literal-range",
    Severity::Note,
    Head::Line,
    args("value"),
    {.ja = "リテラル 十進定数 {value} が -32768 から 32767 までの範囲にないので、"
           "その下位１６ビットが格納される。（独自仕様）  ",
     .en = "The decimal number {value} is out of range. "
           "The decimal number {value} should be between -3268 and 3267. "
           "The lower 16 bits are saved in memory. (Zelvaro Spec.). "}};
constexpr Message hexNonDigit{
    "constant-hex-digit",
    Severity::Error,
    Head::Line,
    args("quote", "k"),
    {.ja = ": {k} 番目の定数： : \n{quote}: \n 16進数は 0-9 の数字と A-F の英大文字で記述する。\n"
           "16進数の中に 0-9 の数字と A-F の英大文字以外の文字がある。",
     .en = " Constant Nr={k}: \n{quote}: \nA hexadecimal number is written in 0-9 and A-F. \n"
           "A hexadecimal number is written in uppercase letter. \n"
           "A non-numeric charcter is found in the hexadecimal number."},
    {{kNarrow,
      {.ja = ": {k} 番目の定数： : \n{quote}: \n 16進数は 0-9 の数字と A-F の英大文字で記述する。",
       .en = " Constant Nr={k}: \n{quote}: \nA hexadecimal number is written in 0-9 and A-F. \n"
             "A hexadecimal number is written in capital letter. "}}}};
constexpr Message hexTooLong{
    "constant-hex-long",
    Severity::Error,
    Head::Line,
    args("quote", "k", "count"),
    {.ja = "{k} 番目の定数： {quote} 16進数は4文字で記述する。{count} 文字ある。",
     .en = " Constant Nr={k} {quote} A hexadecimal number should be written in four letters. \n"
           "There are {count} letters in it. "}};
constexpr Message hexMissing{
    "constant-hex-missing",
    Severity::Error,
    Head::None,
    args(),
    {.ja = "# の右に記述がない。", .en = "Missing a value after '#'. "},
    {{kNarrow, {.ja = {}, .en = "There is no description at the right side of #. "}}}};
constexpr Message hexOneDigit{
    "constant-hex-one-digit",
    Severity::Error,
    Head::Line,
    args("quote", "k", "count"),
    {.ja = "{k} 番目の定数： \n{quote} : 16進数は4文字で記述する。\n{count} 文字しかない。",
     .en = " Constant Nr={k}: \n{quote} \nA hexadecimal number is written in four letters. \n"
           "There is only one letter in it. "}};
constexpr Message hexTooShort{
    "constant-hex-short",
    Severity::Error,
    Head::Line,
    args("quote", "k", "count"),
    {.ja = "{k} 番目の定数： \n{quote} : 16進数は4文字で記述する。\n{count} 文字しかない。",
     .en = " Constant Nr={k}: \n{quote} \nA hexadecimal number is written in four letters. \n"
           "There are only {count} letters in it. "}};
// Worded as a self-check, so it has no head and is not logged; a bad digit of an address constant can reach
// it nevertheless.
constexpr Message hexStopped =
    Message{
        "constant-hex-stopped",
        Severity::Error,
        Head::None,
        args("k0"),
        bothLanguages("line {line}: k={k0}: \n* Prg. Error: Fail to wcstol(); *endptr is non LY0.\n"
                      "A non-numeric character is found, so it cannot be converted to a numeric value."),
        {{kNarrow, bothLanguages("line {line}: k={k0}: \nPrg. Error: Fail to wcstol();  *endptr is non LY0.\n"
                                 "A non-numeric character is found, \n"
                                 "so it cannot be converted into a numeric value.")}}}
        .unlogged();

constexpr Message noNumber =
    selfCheck("self-number", args("character"),
              "Prg. Error: 先頭文字が(+, -, 数字)でこの関数に引き渡されることになっている。{character}");
constexpr Message noHexNumber = selfCheck(
    "self-hex-number", args(), "Prg. Error: 先頭文字が('#')でこの関数に引き渡されることになっている。");

}  // namespace

template <class Char>
bool CkDecConstG(Assembly& a, int line, int k0, ViewOf<Char> text) {
  const bool sign = !text.empty() && isSign(text.front());
  if (!sign && (text.empty() || !isDigit(text.front())))
    a.cs.report(noNumber, line, plain(text.substr(0, 1)));
  if (sign) text.remove_prefix(1);
  for (const Char c : text) {
    if (isDigit(c)) continue;
    a.cs.report(decNonDigit, line, quote(text), k0 + 1);
    return false;
  }
  return true;
}

template <class Char>
int DecStrToIntG(Assembly& a, int line, int k0, ViewOf<Char> text) {
  const int value = decimalValue(text);
  if (value >= kLeastSigned && value <= kGreatestSigned) return value;
  if (a.family.notesLiteralRange) {
    a.cs.report(literalOutOfRange, line, value);
  } else {
    a.cs.report(decOutOfRange, line, value, k0 + 1);
  }
  return value;
}

template <class Char>
bool CkHexConstG(Assembly& a, int line, int k0, ViewOf<Char> text) {
  if (text.empty() || text.front() != Char('#')) a.cs.report(noHexNumber, line);
  if (!text.empty()) text.remove_prefix(1);
  for (const Char c : text) {
    if (isHexDigit(c)) continue;
    a.cs.report(hexNonDigit, line, quote(text), k0 + 1);
    return false;
  }
  if (text.size() > kHexDigits) {
    a.cs.report(hexTooLong, line, quote(text), k0 + 1, text.size());
    return false;
  }
  if (text.empty()) {
    a.cs.report(hexMissing, line);
    return false;
  }
  if (text.size() == 1) {
    a.cs.report(hexOneDigit, line, quote(text), k0 + 1, text.size());
    return false;
  }
  if (text.size() < kHexDigits) {
    a.cs.report(hexTooShort, line, quote(text), k0 + 1, text.size());
    return false;
  }
  return true;
}

template <class Char>
int HexStrToIntG(Assembly& a, int line, int k0, ViewOf<Char> text) {
  constexpr long long kMost = 0x7FFFFFFF;
  if (text.size() >= 2 && text.front() == Char('#')) text.remove_prefix(1);
  long long value = 0;
  for (const Char c : text) {
    if (!isHexDigit(c)) {
      a.cs.report(hexStopped, line, k0);
      break;
    }
    value = std::min(kMost, value * 16 + digitValue(c));
  }
  return static_cast<int>(value);
}

template bool CkDecConstG<char16_t>(Assembly&, int, int, ViewOf<char16_t>);
template bool CkDecConstG<char>(Assembly&, int, int, ViewOf<char>);
template int DecStrToIntG<char16_t>(Assembly&, int, int, ViewOf<char16_t>);
template int DecStrToIntG<char>(Assembly&, int, int, ViewOf<char>);
template bool CkHexConstG<char16_t>(Assembly&, int, int, ViewOf<char16_t>);
template bool CkHexConstG<char>(Assembly&, int, int, ViewOf<char>);
template int HexStrToIntG<char16_t>(Assembly&, int, int, ViewOf<char16_t>);
template int HexStrToIntG<char>(Assembly&, int, int, ViewOf<char>);

RowList rowsOfNumbers() {
  return rows(decNonDigit, decOutOfRange, literalOutOfRange, hexNonDigit, hexTooLong, hexMissing, hexOneDigit,
              hexTooShort, hexStopped, noNumber, noHexNumber);
}

}  // namespace zelvaro
