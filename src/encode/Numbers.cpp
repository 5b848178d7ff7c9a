// The numbers of literals: two checks and two conversions.  k0 counts operands from 0, k is printed from 1.
#include "diag/Quote.h"
#include "encode/AdrConst.h"
#include "source/FixedForm.h"

namespace zelvaro {
namespace {

constexpr std::size_t kHexDigits = 4;

constexpr Message decNonDigit{
    Severity::Error,
    Head::Line,
    args("quote", "k"),
    {.ja = "{k} 番目の定数： :\n{quote}: \n10進定数の中に数字以外の文字がある。",
     .en = " Constant Nr={k}: \n{quote}: \nA non-numerical letter is found in the decimal constant. "},
    {{families(FamilyId::AP, FamilyId::NA),
      {.ja = {},
       .en =
           " Constant Nr={k}: \n{quote}: \nA non-numerical character is found in the decimal constant. "}}}};
constexpr Message decOutOfRange{
    Severity::Warning,
    Head::Line,
    args("value", "k"),
    {.ja = ": {k} 番目の定数： : \n十進定数 {value} が -32768 から 32767 "
           "までの範囲にないので、その下位１６ビットが格納される。（仕様2・3（４））  ",
     .en = " Constant Nr={k}: {value} \nThe decimal number constant is out of range. \n"
           "It should be between -32768 and 32767. \nSo its lower 16 bits are saved in memory. \n"
           "(CASL2 Spec: 2.3 (4)) "},
    {{families(FamilyId::AP, FamilyId::NA),
      {.ja = {},
       .en = " Constant Nr={k}: {value} \nThe decimal number constant is out of range. \n"
             "It should be between -32768 and +32767. \nSo its lower 16 bits are saved in memory. \n"
             "(CASL2 Spec: 2.3 (4)) "}}}};
constexpr Message literalOutOfRange{
    Severity::Note,
    Head::Line,
    args("value"),
    {.ja = "リテラル 十進定数 {value} が -32768 から 32767 までの範囲にないので、"
           "その下位１６ビットが格納される。（独自仕様）  ",
     .en = "The decimal number {value} is out of range. "
           "The decimal number {value} should be between -3268 and 3267. "
           "The lower 16 bits are saved in memory. (Zelvaro Spec.). "}};
constexpr Message hexNonDigit{
    Severity::Error,
    Head::Line,
    args("quote", "k"),
    {.ja = ": {k} 番目の定数： : \n{quote}: \n 16進数は 0-9 の数字と A-F の英大文字で記述する。\n"
           "16進数の中に 0-9 の数字と A-F の英大文字以外の文字がある。",
     .en = " Constant Nr={k}: \n{quote}: \nA hexadecimal number is written in 0-9 and A-F. \n"
           "A hexadecimal number is written in uppercase letter. \n"
           "A non-numeric charcter is found in the hexadecimal number."},
    {{families(FamilyId::AP, FamilyId::NA),
      {.ja = ": {k} 番目の定数： : \n{quote}: \n 16進数は 0-9 の数字と A-F の英大文字で記述する。",
       .en = " Constant Nr={k}: \n{quote}: \nA hexadecimal number is written in 0-9 and A-F. \n"
             "A hexadecimal number is written in capital letter. "}}}};
constexpr Message hexTooLong{
    Severity::Error,
    Head::Line,
    args("quote", "k", "count"),
    {.ja = "{k} 番目の定数： {quote} 16進数は4文字で記述する。{count} 文字ある。",
     .en = " Constant Nr={k} {quote} A hexadecimal number should be written in four letters. \n"
           "There are {count} letters in it. "}};
constexpr Message hexMissing{Severity::Error,
                             Head::None,
                             args(),
                             {.ja = "# の右に記述がない。", .en = "Missing a value after '#'. "},
                             {{families(FamilyId::AP, FamilyId::NA),
                               {.ja = {}, .en = "There is no description at the right side of #. "}}}};
constexpr Message hexOneDigit{
    Severity::Error,
    Head::Line,
    args("quote", "k", "count"),
    {.ja = "{k} 番目の定数： \n{quote} : 16進数は4文字で記述する。\n{count} 文字しかない。",
     .en = " Constant Nr={k}: \n{quote} \nA hexadecimal number is written in four letters. \n"
           "There is only one letter in it. "}};
constexpr Message hexTooShort{
    Severity::Error,
    Head::Line,
    args("quote", "k", "count"),
    {.ja = "{k} 番目の定数： \n{quote} : 16進数は4文字で記述する。\n{count} 文字しかない。",
     .en = " Constant Nr={k}: \n{quote} \nA hexadecimal number is written in four letters. \n"
           "There are only {count} letters in it. "}};
// A self-check in its words, so it has no head and leaves no record; a bad digit of an address constant
// reaches it all the same.
constexpr Message hexStopped =
    Message{Severity::Error,
            Head::None,
            args("k0"),
            bothLanguages("line {line}: k={k0}: \n* Prg. Error: Fail to wcstol(); *endptr is non LY0.\n"
                          "A non-numeric character is found, so it cannot be converted to a numeric value."),
            {{families(FamilyId::AP, FamilyId::NA),
              bothLanguages("line {line}: k={k0}: \nPrg. Error: Fail to wcstol();  *endptr is non LY0.\n"
                            "A non-numeric character is found, \n"
                            "so it cannot be converted into a numeric value.")}}}
        .unlogged();

}  // namespace

template <class Family>
int CkDecConstG(TCorrectScode& cs, int line, int k0, ViewOf<Family> text) {
  using Char = CharOf<Family>;
  const bool sign = !text.empty() && isSign(text.front());
  if (!sign && (text.empty() || !isDigit(text.front())))
    cs.selfCheck("Prg. Error: 先頭文字が(+, -, 数字)でこの関数に引き渡されることになっている。" +
                 plain(text.substr(0, 1)));
  if (sign) text.remove_prefix(1);
  for (const Char c : text) {
    if (isDigit(c)) continue;
    cs.report<Family, decNonDigit>(line, quote(text), k0 + 1);
    return -1;
  }
  return 0;
}

template <class Family>
int DecStrToIntG(TCorrectScode& cs, int line, int k0, ViewOf<Family> text) {
  const int value = decimalValue(text);
  if (value >= -32768 && value <= 32767) return value;
  if constexpr (kIsFixedForm<Family>) {
    cs.report<Family, literalOutOfRange>(line, value);
  } else {
    cs.report<Family, decOutOfRange>(line, value, k0 + 1);
  }
  return value;
}

template <class Family>
int CkHexConstG(TCorrectScode& cs, int line, int k0, ViewOf<Family> text) {
  if (text.empty() || text.front() != CharOf<Family>('#'))
    cs.selfCheck("Prg. Error: 先頭文字が('#')でこの関数に引き渡されることになっている。");
  if (!text.empty()) text.remove_prefix(1);
  for (const CharOf<Family> c : text) {
    if (isHexDigit(c)) continue;
    cs.report<Family, hexNonDigit>(line, quote(text), k0 + 1);
    return -1;
  }
  if (text.size() > kHexDigits) {
    cs.report<Family, hexTooLong>(line, quote(text), k0 + 1, text.size());
    return -2;
  }
  if (text.empty()) {
    cs.report<Family, hexMissing>(line);
    return -3;
  }
  if (text.size() == 1) {
    cs.report<Family, hexOneDigit>(line, quote(text), k0 + 1, text.size());
    return -4;
  }
  if (text.size() < kHexDigits) {
    cs.report<Family, hexTooShort>(line, quote(text), k0 + 1, text.size());
    return -4;
  }
  return 0;
}

template <class Family>
int HexStrToIntG(TCorrectScode& cs, int line, int k0, ViewOf<Family> text) {
  using Char = CharOf<Family>;
  constexpr long long kMost = 0x7FFFFFFF;
  if (text.size() >= 2 && text.front() == Char('#')) text.remove_prefix(1);
  long long value = 0;
  for (const Char c : text) {
    if (!isHexDigit(c)) {
      cs.report<Family, hexStopped>(line, k0);
      break;
    }
    value = std::min(kMost, value * 16 + digitValue(c));
  }
  return static_cast<int>(value);
}

#define ZELVARO_INSTANTIATE(F)                                       \
  template int CkDecConstG<F>(TCorrectScode&, int, int, ViewOf<F>);  \
  template int DecStrToIntG<F>(TCorrectScode&, int, int, ViewOf<F>); \
  template int CkHexConstG<F>(TCorrectScode&, int, int, ViewOf<F>);  \
  template int HexStrToIntG<F>(TCorrectScode&, int, int, ViewOf<F>);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
