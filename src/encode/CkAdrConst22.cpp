// CkAdrConst22: decides by its first character what an address operand is and puts its value into Word2.
#include "diag/Quote.h"
#include "encode/AdrConst.h"
#include "encode/Encoders.h"

namespace zelvaro {
namespace {

constexpr Message invalidText{
    Severity::Error,
    Head::Line,
    args("quote", "place"),
    {.ja = "{quote}\n{place}　文字目にアドレス定数で使えない文字がある。",
     .en = "{quote}\nAn invalid character is found in the address constant of {quote}."}};

template <class Family>
int invalid(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p) {
  const int place = DetNonLabelMoziPos<Family>(a.cs, line.Line, p, false) + 1;
  a.cs.report<Family, invalidText>(line.Line, quote(p), place);
  return kAdrInvalid;
}

/// Whether the character at `at` exists and is a digit.
template <class View>
constexpr bool digitAt(View p, std::size_t at) {
  return at < p.size() && isDigit(p[at]);
}

template <class Family>
int CkAdrLiteral(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p, int n) {
  using Char = CharOf<Family>;
  const Char kind = p.size() > 1 ? p[1] : Char(' ');
  if (kind == Char('#')) return CkAdrLiteralHex<Family>(a, line, p, n);
  const bool sign = isSign(kind);
  if (digitAt(p, sign ? 2 : 1)) return CkAdrLiteralDec<Family>(a, line, p, n);
  if (kind == Char('\'')) {
    if (SetLiteCharConstMryIn<Family>(a, line, p) == 0) line.Word2 = literalOf(a.store<Family>(), line).AbAdr;
    return 0;
  }
  return invalid<Family>(a, line, p);
}

}  // namespace

template <class Family>
int CkAdrConst22(Assembly& a, SrcOf<Family>& line, int n) {
  using Char = CharOf<Family>;
  if (!line.hasOprnd(0)) return kAdrNoOprndText;
  if (!line.hasOprnd(static_cast<std::size_t>(n))) return kAdrNoOprnd;
  const ViewOf<Family> p = line.Oprnd[static_cast<std::size_t>(n)];

  // A register name in an address place is address 0: Word2 is 0 since the statement pass.
  if (beginsLikeRegister(p) && (p.size() == 3 || isBlank(p[3]))) return 0;
  const Char first = p.empty() ? Char(' ') : p.front();
  if (isCapital(first)) return CkAdrName<Family>(a, line, p);
  if (first == Char('#')) return CkAdrHex<Family>(a, line, p, n);
  if (isDigit(first)) return CkAdrDec<Family>(a, line, p);
  if (isSign(first) && digitAt(p, 1)) return CkAdrSignedDec<Family>(a, line, p);
  if (first == Char('=')) return CkAdrLiteral<Family>(a, line, p, n);
  return invalid<Family>(a, line, p);
}

#define ZELVARO_INSTANTIATE(F) template int CkAdrConst22<F>(Assembly&, SrcOf<F>&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
