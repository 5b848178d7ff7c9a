// CkAdrConst22: decides by its first character what an address operand is and puts its value into Word2.
#include "diag/Quote.h"
#include "encode/AdrConst.h"
#include "encode/Encoders.h"

namespace zelvaro {
namespace {

constexpr Message invalidText{
    "address-invalid",
    Severity::Error,
    Head::Line,
    args("quote", "place"),
    {.ja = "{quote}\n{place}　文字目にアドレス定数で使えない文字がある。",
     .en = "{quote}\nAn invalid character is found in the address constant of {quote}."}};

template <class Char>
bool invalid(Assembly& a, SrcData<Char>& line, ViewOf<Char> p) {
  const int place = DetNonLabelMoziPos(p) + 1;
  a.cs.report(invalidText, line.Line, quote(p), place);
  return false;
}

/// Whether the character at `at` exists and is a digit.
template <class View>
constexpr bool digitAt(View p, std::size_t at) {
  return at < p.size() && isDigit(p[at]);
}

template <class Char>
bool CkAdrLiteral(Assembly& a, SrcData<Char>& line, ViewOf<Char> p, int n) {
  const Char kind = p.size() > 1 ? p[1] : Char(' ');
  if (kind == Char('#')) return CkAdrLiteralHex(a, line, p, n);
  const bool sign = isSign(kind);
  if (digitAt(p, sign ? 2 : 1)) return CkAdrLiteralDec(a, line, p, n);
  if (kind == Char('\'')) {
    if (SetLiteCharConstMryIn(a, line, p)) line.Word2 = literalOf(a.store<Char>(), line).AbAdr;
    return true;
  }
  return invalid(a, line, p);
}

}  // namespace

template <class Char>
bool CkAdrConst22(Assembly& a, SrcData<Char>& line, int n) {
  if (!line.hasOprnd(0) || !line.hasOprnd(static_cast<std::size_t>(n))) return false;
  const ViewOf<Char> p = line.Oprnd[static_cast<std::size_t>(n)];

  // A register name in the place of an address is address 0: the statement pass has set Word2 to 0.
  if (beginsLikeRegister(p) && (p.size() == 3 || isBlank(p[3]))) return true;
  const Char first = p.empty() ? Char(' ') : p.front();
  if (isCapital(first)) return CkAdrName(a, line, p);
  if (first == Char('#')) return CkAdrHex(a, line, p, n);
  if (isDigit(first)) return CkAdrDec(a, line, p);
  if (isSign(first) && digitAt(p, 1)) return CkAdrSignedDec(a, line, p);
  if (first == Char('=')) return CkAdrLiteral(a, line, p, n);
  return invalid(a, line, p);
}

template bool CkAdrConst22<char16_t>(Assembly&, SrcData<char16_t>&, int);
template bool CkAdrConst22<char>(Assembly&, SrcData<char>&, int);

RowList rowsOfCkAdrConst22() {
  return rows(invalidText);
}

}  // namespace zelvaro
