// CkAdrConst22: decides by its first character what an address operand is and puts its value into Word2.
#include "diag/Quote.h"
#include "encode/AdrConst.h"
#include "encode/ConstForm.h"
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

template <class Char>
bool CkAdrLiteral(Assembly& a, SrcData<Char>& line, ViewOf<Char> p, int n) {
  switch (formOfConst(p.substr(1))) {
    case ConstForm::Hex:
      return CkAdrLiteralHex(a, line, p, n);
    case ConstForm::Decimal:
    case ConstForm::SignedDecimal:
      return CkAdrLiteralDec(a, line, p, n);
    case ConstForm::Character:
      if (SetLiteCharConstMryIn(a, line, p)) line.Word2 = literalOf(a.store<Char>(), line).AbAdr;
      return true;
    default:
      return invalid(a, line, p);
  }
}

}  // namespace

template <class Char>
bool CkAdrConst22(Assembly& a, SrcData<Char>& line, int n) {
  if (!line.hasOprnd(0) || !line.hasOprnd(static_cast<std::size_t>(n))) return false;
  const ViewOf<Char> p = line.Oprnd[static_cast<std::size_t>(n)];

  // A register name in the place of an address is address 0: the statement pass has set Word2 to 0.
  if (beginsLikeRegister(p) && (p.size() == 3 || isBlank(p[3]))) return true;
  switch (formOfConst(p)) {
    case ConstForm::Name:
      return CkAdrName(a, line, p);
    case ConstForm::Hex:
      return CkAdrHex(a, line, p, n);
    case ConstForm::Decimal:
      return CkAdrDec(a, line, p);
    case ConstForm::SignedDecimal:
      return CkAdrSignedDec(a, line, p);
    case ConstForm::Literal:
      return CkAdrLiteral(a, line, p, n);
    default:
      return invalid(a, line, p);
  }
}

template bool CkAdrConst22<char16_t>(Assembly&, SrcData<char16_t>&, int);
template bool CkAdrConst22<char>(Assembly&, SrcData<char>&, int);

RowList rowsOfCkAdrConst22() {
  return rows(invalidText);
}

}  // namespace zelvaro
