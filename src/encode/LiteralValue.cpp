// The value of a literal: its record is made once and written anew by each run of the address pass.  The
// literal gets its place, and the line its final Word2, behind the lines of the program.
#include "encode/AdrConst.h"

namespace zelvaro {
namespace {

template <class Family>
void setNumber(Assembly& a, SrcOf<Family>& line, ViewOf<Family> text, ConstKind kind, int value) {
  AdrConst<CharOf<Family>>& literal = literalOf(a.store<Family>(), line);
  literal.ConstStr = text;
  literal.DataType = kind;
  literal.WordKazu = 1;
  literal.Value = value;
  line.Word2 = literal.AbAdr;
}

}  // namespace

template <class Family>
int CkAdrLiteralHex(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p, int n) {
  const ViewOf<Family> text = p.substr(1);
  if (CkHexConstG<Family>(a.cs, line.Line, n, text) < 0) {
    a.cs.countError();
    return kAdrBadLiteral;
  }
  setNumber<Family>(a, line, text, ConstKind::Hex, HexStrToIntG<Family>(a.cs, line.Line, n, text));
  return 0;
}

template <class Family>
int CkAdrLiteralDec(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p, int n) {
  const ViewOf<Family> text = p.substr(1);
  if (CkDecConstG<Family>(a.cs, line.Line, n, text) < 0) {
    a.cs.countError();
    return kAdrBadLiteral;
  }
  setNumber<Family>(a, line, text, ConstKind::Dec, DecStrToIntG<Family>(a.cs, line.Line, n, text));
  return 0;
}

template <class Family>
int SetLiteCharConstMryIn(Assembly& a, SrcOf<Family>& line, ViewOf<Family> oprnd) {
  constexpr std::size_t kShortest = 3;
  if (oprnd.size() < kShortest) {
    a.cs.selfCheck("Prg. Error: SetLiteCharConstMryIn() line=" + std::to_string(line.Line + 1));
    return -1;
  }
  AdrConst<CharOf<Family>>& literal = literalOf(a.store<Family>(), line);
  literal.ConstStr = oprnd.substr(1);
  literal.DataType = ConstKind::CharConst;
  literal.WordKazu = CountWordKazuAtCharConst(literal.ConstStr);
  literal.Value = 0;
  return 0;
}

#define ZELVARO_INSTANTIATE(F)                                           \
  template int CkAdrLiteralHex<F>(Assembly&, SrcOf<F>&, ViewOf<F>, int); \
  template int CkAdrLiteralDec<F>(Assembly&, SrcOf<F>&, ViewOf<F>, int); \
  template int SetLiteCharConstMryIn<F>(Assembly&, SrcOf<F>&, ViewOf<F>);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
