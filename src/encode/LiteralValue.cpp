// The value of a literal: its record is made once and written again by each run of the address pass.  The
// literal gets its address, and the line its final Word2, after the lines of the program.
#include "encode/AdrConst.h"

namespace zelvaro {
namespace {

constexpr Message notBuilt =
    selfCheck("self-literal-string", args(), "Prg. Error: SetLiteCharConstMryIn() line={line}");

template <class Char>
void setNumber(Assembly& a, SrcData<Char>& line, ViewOf<Char> text, ConstKind kind, int value) {
  AdrConst<Char>& literal = literalOf(a.store<Char>(), line);
  literal.ConstStr = text;
  literal.DataType = kind;
  literal.WordKazu = 1;
  literal.Value = value;
  line.Word2 = literal.AbAdr;
}

}  // namespace

template <class Char>
bool CkAdrLiteralHex(Assembly& a, SrcData<Char>& line, ViewOf<Char> p, int n) {
  const ViewOf<Char> text = p.substr(1);
  if (!CkHexConstG(a, line.Line, n, text)) {
    a.cs.countError();
    return false;
  }
  setNumber(a, line, text, ConstKind::Hex, HexStrToIntG(a, line.Line, n, text));
  return true;
}

template <class Char>
bool CkAdrLiteralDec(Assembly& a, SrcData<Char>& line, ViewOf<Char> p, int n) {
  const ViewOf<Char> text = p.substr(1);
  if (!CkDecConstG(a, line.Line, n, text)) {
    a.cs.countError();
    return false;
  }
  setNumber(a, line, text, ConstKind::Dec, DecStrToIntG(a, line.Line, n, text));
  return true;
}

template <class Char>
bool SetLiteCharConstMryIn(Assembly& a, SrcData<Char>& line, ViewOf<Char> oprnd) {
  constexpr std::size_t kShortest = 3;
  if (oprnd.size() < kShortest) {
    a.cs.report(notBuilt, line.Line);
    return false;
  }
  AdrConst<Char>& literal = literalOf(a.store<Char>(), line);
  literal.ConstStr = oprnd.substr(1);
  literal.DataType = ConstKind::CharConst;
  literal.WordKazu = CountWordKazuAtCharConst(literal.ConstStr);
  literal.Value = 0;
  return true;
}

template bool CkAdrLiteralHex<char16_t>(Assembly&, SrcData<char16_t>&, ViewOf<char16_t>, int);
template bool CkAdrLiteralHex<char>(Assembly&, SrcData<char>&, ViewOf<char>, int);
template bool CkAdrLiteralDec<char16_t>(Assembly&, SrcData<char16_t>&, ViewOf<char16_t>, int);
template bool CkAdrLiteralDec<char>(Assembly&, SrcData<char>&, ViewOf<char>, int);
template bool SetLiteCharConstMryIn<char16_t>(Assembly&, SrcData<char16_t>&, ViewOf<char16_t>);
template bool SetLiteCharConstMryIn<char>(Assembly&, SrcData<char>&, ViewOf<char>);

RowList rowsOfLiteralValue() {
  return rows(notBuilt);
}

}  // namespace zelvaro
