// The forms of literals, before the operands are taken apart.  The checks read what stands behind the
// first equal sign of the operand text, without the blanks right behind it.
#include "data/Data.h"
#include "data/StrConst.h"
#include "diag/Quote.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message noLiteral{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "= と その直後の文字 {quote} の組み合わせは、リテラルにもラベルにも読み取れない。"
           "リテラルは、一つの１０進定数、１６進定数　又は　文字定数の前に等号（＝）を付けて記述する。"
           "（CASL2言語の仕様   2.5 機械語命令）"
           "したがって、ラベルはリテラル定数としては使えない。",
     .en = "{quote} cannot be read as a literal. "
           "{quote} cannot be regaraded as a label or an address constant. "
           "A literal can be described by attaching the equal sign (=) before a decimal　constant, a "
           "hexadecimal constant or a character constant."
           "(Spec.of CASL2 　2.5 Machine Language Instructions)"
           "So a label is excluded from a literal."}};

constexpr Message decMozi{Severity::Error,
                          Head::Line,
                          args(),
                          {.ja = "リテラル10進定数に 数字以外の文字がある。",
                           .en = "A non-numeral letter is found in the literal decimal constant. "}};

constexpr Message hexMozi{Severity::Error,
                          Head::Line,
                          args(),
                          {.ja = "リテラル16進定数は 0 - 9 の数字 と  A - F の英大文字を使う。",
                           .en = "A hexadecimal number is written in 0-9 and A-F. "}};

constexpr Message hexDigits{
    Severity::Error,
    Head::Line,
    args("count"),
    {.ja = "\nリテラル16進定数は 4 桁で記述する。\n{count} 桁ある。",
     .en = "\nA hexadecimal number should be written as four digits. \nIt has {count} digits. "}};

constexpr Message strConstOpen{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}  リテラル文字定数が正しく閉じていない。文字定数の中でアポストロフィ(')は2個続けて書く。"
           "（仕様　２．３（４））",
     .en = "{quote}  The literal string constant is not correctly closed. "
           "A string constant starts with an apostrophe and end with another apostrophe. "
           "Two consecutive apostrophes('') is used as one apostrophe(') in a string constant."
           "Spec. 2.3 (4): Apostrophes(') must be written twice consecutively."},
    {{families(FamilyId::NH),
      {.ja = "リテラル文字定数が正しく閉じていない。 文字定数は文字列の両側をアポストロフィで囲む。"
             "たとえば、　='ABC' ",
       .en = "A literal string constant is not correctly closed. "
             "The both ends of a literal string should be enclosed by an apostrophe. "
             "For example, ='ABC' "}}}};

constexpr Message strConstEmpty{Severity::Error,
                                Head::Line,
                                args(),
                                {.ja = "リテラルの文字数は１個以上必要です。０個は不可。",
                                 .en = "The length must be more than zero in a literal character constant. "
                                       "It is not allowed to be zero. "}};

enum class Next { Line, End };

template <class Char>
constexpr bool endsNumber(Char c) {
  return isBlank(c) || c == Char(',');
}

/// A number that an equal sign and a digit begin.  A signed one is no such number: it is looked at when
/// the address pass converts it.
template <class Family>
void ckDec(Assembly& a, int line, ViewOf<Family> literal) {
  using Char = CharOf<Family>;
  std::size_t i = 0;
  if (!isDigit(literal[0])) {
    do {
      i = literal.find(Char('='), i);
      if (i == literal.npos || ++i == literal.size()) return;
    } while (!isDigit(literal[i]));
  }
  for (; i < literal.size() && !endsNumber(literal[i]); ++i) {
    if (isDigit(literal[i])) continue;
    a.cs.report<Family, decMozi>(line);
    return;
  }
}

template <class Family>
void ckHex(Assembly& a, int line, ViewOf<Family> literal) {
  int count = 0;
  for (std::size_t i = 1; i < literal.size() && !endsNumber(literal[i]); ++i, ++count) {
    if (isHexDigit(literal[i])) continue;
    a.cs.report<Family, hexMozi>(line);
    break;
  }
  if (count != 4) a.cs.report<Family, hexDigits>(line, count);
}

template <class Family>
Next ckStrConst(Assembly& a, const SrcOf<Family>& line, ViewOf<Family> literal) {
  using Char = CharOf<Family>;
  const std::size_t end = DetStrConstGL10(literal, 0);
  const bool isClosed = end < literal.size() && (end + 1 == literal.size() || endsNumber(literal[end + 1]) ||
                                                 literal[end + 1] == Char(';'));
  if (!isClosed) {
    a.cs.report<Family, strConstOpen>(line.Line, quote(line.OprndComStr));
    return Next::End;
  }
  if (end > 1) return Next::Line;
  a.cs.report<Family, strConstEmpty>(line.Line);
  return Next::End;
}

template <class Family>
Next ckLine(Assembly& a, const SrcOf<Family>& line) {
  using Char = CharOf<Family>;
  const std::size_t equal = line.OprndComStr.find(Char('='));
  if (equal == line.OprndComStr.npos) return Next::Line;
  const ViewOf<Family> literal = trimLeft(line.OprndComStr.substr(equal + 1));
  const Char first = literal.empty() ? Char(0) : literal[0];
  const Char second = literal.size() < 2 ? Char(0) : literal[1];
  if (first == Char('\'')) return ckStrConst<Family>(a, line, literal);
  if (isDigit(first) || (isSign(first) && isDigit(second))) {
    ckDec<Family>(a, line.Line, literal);
    return Next::Line;
  }
  if (first == Char('#') && isHexDigit(second)) {
    ckHex<Family>(a, line.Line, literal);
    return Next::Line;
  }
  a.cs.report<Family, noLiteral>(line.Line, quote(line.OprndComStr));
  return Next::End;
}

bool takesLiteral(Op op) {
  switch (op) {
    case Op::DC:
    case Op::DS:
    case Op::NOP:
    case Op::RPUSH:
    case Op::RPOP:
    case Op::RET:
    case Op::EXIT:
    case Op::START:
    case Op::END:
    case Op::Unknown:
      return false;
    default:
      return true;
  }
}

}  // namespace

template <class Family>
int CkLiteral15(Assembly& a, int prg) {
  const int before = a.cs.ErrorKazu;
  for (const SrcOf<Family>& line : a.store<Family>().linesBeforeEnd(a.program<Family>(prg)))
    if (takesLiteral(opOf(line)) && ckLine<Family>(a, line) == Next::End) break;
  return before - a.cs.ErrorKazu;
}

#define ZELVARO_INSTANTIATE(F) template int CkLiteral15<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)
#undef ZELVARO_INSTANTIATE

}  // namespace zelvaro
