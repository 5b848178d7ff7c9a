// The number as an address constant.  Its low 16 bits are the address.
#include "diag/Limits.h"
#include "diag/Quote.h"
#include "encode/AdrConst.h"

namespace zelvaro {
namespace {

constexpr Message badHexDigit{"address-hex-digit",
                              Severity::Error,
                              Head::Line,
                              args("quote"),
                              {.ja = "\n{quote}:  16進数字に0-9又はA-F以外の文字がある。 ",
                               .en = "{quote}\nA hexadecimal number is written in 0-9 and A-F. \n"
                                     "Hexadecimal notation uses 0 through 9 and A through F."}};
constexpr Message hashAlone{
    "address-hash-alone",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "\n# の右に記述がない。", .en = "{quote} \nMissing a value after '#'. "},
    {{kNWW, {.ja = {}, .en = "{quote} \nNo description is found at the right side of #. "}},
     {kAP, {.ja = {}, .en = "{quote} \nMissing a hex value after '#'."}}}};
constexpr Message manyHexDigits{
    "address-hex-long",
    Severity::Error,
    Head::Line,
    args("quote", "count"),
    {.ja = "{quote}: \n １６ 進数は ４ 桁で記述する。(CASL2 の仕様2･3 (4)) \n{count} 桁ある。",
     .en = "{quote}: \nA hexadecimal nmuber should be written as four digits. (Spec. of CASL2: 2.3 (4)) \n"
           "It has {count} digits. "}};
constexpr Message oneHexDigit{
    "address-hex-one-digit",
    Severity::Error,
    Head::Line,
    args("quote", "count"),
    {.ja = " １６ 進数は ４ 桁で記述する。(仕様2･3 (4)) : {quote}\n{count} 桁しかない。",
     .en = ": \nA hexadecimal number should be written as four digits. \n(Spec. of CASL2: 2.3 (4)) {quote}\n"
           "It has only {count} digit. "}};
constexpr Message fewHexDigits{
    "address-hex-short",
    Severity::Error,
    Head::Line,
    args("quote", "count"),
    {.ja = " １６ 進数は ４ 桁で記述する。(仕様2･3 (4)) : {quote}\n{count} 桁しかない。",
     .en = ": \nA hexadecimal number should be written as four digits. \n(Spec. of CASL2: 2.3 (4)) {quote}\n"
           "It has only {count} digits. "}};
constexpr Message nonDigit{"address-decimal-digit",
                           Severity::Error,
                           Head::Line,
                           args("quote"),
                           {.ja = "{quote}\n１０進数の中に数字以外の文字がある。",
                            .en = "{quote}\nA non-numerical character is found in the decimal number. "}};

constexpr std::string_view kOutOfRangeJa =
    "\n10 進数の記述が 0 から 65535 までの範囲外にある。\n"
    "その下位 16 ビットが格納される。(仕様 １・２、 注の２)  \n"
    "10 進数の記述が -32768 から 32767 のとき、\n"
    "16ビットの2進数データ（最上位ビットを符号ビットとする ）として格納する。 \n"
    "その範囲外にあるとき、その下位 16 ビットが格納される。（独自仕様）  ";
constexpr Message unsignedOutOfRange{
    "address-range",
    Severity::Note,
    Head::QuoteLine,
    args("quote"),
    {.ja = kOutOfRangeJa,
     .en = "\nThe decimal number is out of range. \n"
           "The valid range for an unsigned decimal number is from 0 to 65535.\n"
           "The valid range for an signed decimal number is -32768 to +32767.\n"
           "When a decimal number exceeds this range, its lower 16 bits are \n"
           "saved in memory. \n(CASL2 Spec: 2.3 (4)) \n"
           "The 15th bit is the sign bit. (Zelvaro Spec.) "}};
constexpr Message signedOutOfRange{"address-signed-range",
                                   Severity::Note,
                                   Head::QuoteLine,
                                   args("quote"),
                                   {.ja = kOutOfRangeJa,
                                    .en = "\nThe decimal number is out of range. \n"
                                          "The range of a decimal number is from zerp to 65535.\n"
                                          "When a decimal number exceeds the range, its lower 16-bits is\n"
                                          " saved in memory. (Spec.of CASL2 2.3 (4)) \n"
                                          "When a decimal number is between -32768 and 32767 \n"
                                          "it is saved in memory as binary data in 16 bits. \n"
                                          "The 15th bit is the sign bit. (Spec. of Zelvaro) "}};

template <class Char>
bool decimal(Assembly& a, SrcData<Char>& line, ViewOf<Char> p, std::size_t signs,
             const Message<1>& outOfRange) {
  for (const Char c : p.substr(signs)) {
    if (isDigit(c)) continue;
    a.cs.report(nonDigit, line.Line, quote(p));
    AnalystZenKSpace20(a.cs, line.Line, p);
    return false;
  }
  const int value = decimalValue(p);
  if (value < kLeastSigned || value > kGreatestUnsigned) a.cs.report(outOfRange, line.Line, quote(p));
  line.Word2 = value & 0xFFFF;
  return true;
}

}  // namespace

template <class Char>
bool CkAdrHex(Assembly& a, SrcData<Char>& line, ViewOf<Char> p, int n) {
  const ViewOf<Char> digits = p.substr(1);
  for (const Char c : digits) {
    if (isHexDigit(c)) continue;
    a.cs.report(badHexDigit, line.Line, quote(p));
    break;
  }
  if (digits.empty()) {
    a.cs.report(hashAlone, line.Line, quote(p));
    return false;
  }
  if (digits.size() < kHexDigits) {
    a.cs.report(digits.size() == 1 ? oneHexDigit : fewHexDigits, line.Line, quote(p), digits.size());
    return false;
  }
  // Too many digits keep their value; the Error has stopped the run anyway.
  if (digits.size() > kHexDigits) a.cs.report(manyHexDigits, line.Line, quote(p), digits.size());
  line.Word2 = HexStrToIntG(a, line.Line, n, p) & 0xFFFF;
  return true;
}

template <class Char>
bool CkAdrDec(Assembly& a, SrcData<Char>& line, ViewOf<Char> p) {
  return decimal(a, line, p, 0, unsignedOutOfRange);
}

template <class Char>
bool CkAdrSignedDec(Assembly& a, SrcData<Char>& line, ViewOf<Char> p) {
  return decimal(a, line, p, 1, signedOutOfRange);
}

template bool CkAdrHex<char16_t>(Assembly&, SrcData<char16_t>&, ViewOf<char16_t>, int);
template bool CkAdrHex<char>(Assembly&, SrcData<char>&, ViewOf<char>, int);
template bool CkAdrDec<char16_t>(Assembly&, SrcData<char16_t>&, ViewOf<char16_t>);
template bool CkAdrDec<char>(Assembly&, SrcData<char>&, ViewOf<char>);
template bool CkAdrSignedDec<char16_t>(Assembly&, SrcData<char16_t>&, ViewOf<char16_t>);
template bool CkAdrSignedDec<char>(Assembly&, SrcData<char>&, ViewOf<char>);

RowList rowsOfAdrNumber() {
  return rows(badHexDigit, hashAlone, manyHexDigits, oneHexDigit, fewHexDigits, nonDigit, unsignedOutOfRange,
              signedOutOfRange);
}

}  // namespace zelvaro
