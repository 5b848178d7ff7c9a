// The forms of literals, before the operands are split.  The checks read the text after the first equal sign
// of the operand text, without the blanks directly after it.
#include "data/Data.h"
#include "data/StrConst.h"
#include "diag/Limits.h"
#include "diag/Quote.h"
#include "encode/ConstForm.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message noLiteral{
    "literal-missing",
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

constexpr Message decMozi{"literal-decimal-digit",
                          Severity::Error,
                          Head::Line,
                          args(),
                          {.ja = "リテラル10進定数に 数字以外の文字がある。",
                           .en = "A non-numeral letter is found in the literal decimal constant. "}};

constexpr Message hexMozi{"literal-hex-digit",
                          Severity::Error,
                          Head::Line,
                          args(),
                          {.ja = "リテラル16進定数は 0 - 9 の数字 と  A - F の英大文字を使う。",
                           .en = "A hexadecimal number is written in 0-9 and A-F. "}};

constexpr Message hexDigits{
    "literal-hex-digits",
    Severity::Error,
    Head::Line,
    args("count"),
    {.ja = "\nリテラル16進定数は 4 桁で記述する。\n{count} 桁ある。",
     .en = "\nA hexadecimal number should be written as four digits. \nIt has {count} digits. "}};

constexpr Message strConstOpen{
    "literal-string-open",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}  リテラル文字定数が正しく閉じていない。文字定数の中でアポストロフィ(')は2個続けて書く。"
           "（仕様　２．３（４））",
     .en = "{quote}  The literal string constant is not correctly closed. "
           "A string constant starts with an apostrophe and end with another apostrophe. "
           "Two consecutive apostrophes('') is used as one apostrophe(') in a string constant."
           "Spec. 2.3 (4): Apostrophes(') must be written twice consecutively."},
    {{kNH,
      {.ja = "リテラル文字定数が正しく閉じていない。 文字定数は文字列の両側をアポストロフィで囲む。"
             "たとえば、　='ABC' ",
       .en = "A literal string constant is not correctly closed. "
             "The both ends of a literal string should be enclosed by an apostrophe. "
             "For example, ='ABC' "}}}};

constexpr Message strConstEmpty{"literal-string-empty",
                                Severity::Error,
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

/// A number after an equal sign that begins with a digit.  A signed number is checked when the address pass
/// converts it.
template <class Char>
void ckDec(Assembly& a, int line, ViewOf<Char> literal) {
  std::size_t i = 0;
  if (!isDigit(literal[0])) {
    do {
      i = literal.find(Char('='), i);
      if (i == literal.npos || ++i == literal.size()) return;
    } while (!isDigit(literal[i]));
  }
  for (; i < literal.size() && !endsNumber(literal[i]); ++i) {
    if (isDigit(literal[i])) continue;
    a.cs.report(decMozi, line);
    return;
  }
}

template <class Char>
void ckHex(Assembly& a, int line, ViewOf<Char> literal) {
  std::size_t count = 0;
  for (std::size_t i = 1; i < literal.size() && !endsNumber(literal[i]); ++i, ++count) {
    if (isHexDigit(literal[i])) continue;
    a.cs.report(hexMozi, line);
    break;
  }
  if (count != kHexDigits) a.cs.report(hexDigits, line, count);
}

template <class Char>
Next ckStrConst(Assembly& a, const SrcData<Char>& line, ViewOf<Char> literal) {
  const std::size_t end = DetStrConstGL10(literal, 0);
  const bool isClosed = end < literal.size() && (end + 1 == literal.size() || endsNumber(literal[end + 1]) ||
                                                 literal[end + 1] == Char(';'));
  if (!isClosed) {
    a.cs.report(strConstOpen, line.Line, quote(line.OprndComStr));
    return Next::End;
  }
  if (end > 1) return Next::Line;
  a.cs.report(strConstEmpty, line.Line);
  return Next::End;
}

template <class Char>
Next ckLine(Assembly& a, const SrcData<Char>& line) {
  const std::size_t equal = line.OprndComStr.find(Char('='));
  if (equal == line.OprndComStr.npos) return Next::Line;
  const ViewOf<Char> literal = trimLeft(line.OprndComStr.substr(equal + 1));
  switch (formOfConst(literal)) {
    case ConstForm::Character:
      return ckStrConst(a, line, literal);
    case ConstForm::Decimal:
    case ConstForm::SignedDecimal:
      ckDec(a, line.Line, literal);
      return Next::Line;
    case ConstForm::Hex:
      if (literal.size() < 2 || !isHexDigit(literal[1])) break;
      ckHex(a, line.Line, literal);
      return Next::Line;
    default:
      break;
  }
  a.cs.report(noLiteral, line.Line, quote(line.OprndComStr));
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

template <class Char>
void CkLiteral15(Assembly& a, int prg) {
  for (const SrcData<Char>& line : a.store<Char>().linesBeforeEnd(a.program<Char>(prg)))
    if (takesLiteral(opOf(line)) && ckLine(a, line) == Next::End) break;
}

template void CkLiteral15<char16_t>(Assembly&, int);
template void CkLiteral15<char>(Assembly&, int);

RowList rowsOfCkLiteral15() {
  return rows(noLiteral, decMozi, hexMozi, hexDigits, strConstOpen, strConstEmpty);
}

}  // namespace zelvaro
