// The closure of the character constants of literals.
#include "data/Data.h"
#include "data/StrConst.h"
#include "diag/Quote.h"

namespace zelvaro {
namespace {

constexpr Message strConstOpen{
    "string-not-closed",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: 文字定数が正しく閉じていない。 文字定数は文字列の両側をアポストロフィで囲む。"
           "例１． :　'ABC'  （正）例２． :  'ABC '' 123'  （正）"
           "文字定数の中のアポストロフィ（'）は、二個続けて書く。CASL2の仕様：２．３　（４）",
     .en = "{quote}: \nA character constant is not correctly closed. "
           "The both ends of the constant must be enclosed by a pair of apostrophes. "
           "Good Example 1.:  'ABC' Good Example 2.:  'ABC '' 123'"
           "Note: An apostrophye (') must be written twice consecutively in a character constant. "
           "Spec. of CASL2: 2.3 (4)"}};

constexpr Message literalOpen{"literal-not-closed",
                              Severity::Error,
                              Head::Line,
                              args("quote"),
                              {.ja = "{quote}: 正例１．：　='Ruby' 正例２．：  ='Ruby '' 123'",
                               .en = "{quote}: A literal charcter constant is not correctly closed."
                                     "Good Example 1.:  ='Ruby' Good Example 2.:  ='Ruby '' 123'"}};

/// `end` is the index of the closing apostrophe, or the length of the text if there is none.  False if the
/// constant is not closed, or anything but a comma, a semicolon or the end follows it.
template <class Char>
bool IsStrConstClosedGL10(Assembly& a, const SrcData<Char>& line, std::size_t end) {
  const ViewOf<Char> text = line.OprndComStr;
  if (end < text.size()) {
    const ViewOf<Char> after = trimLeft(text.substr(end + 1));
    if (after.empty() || after[0] == Char(',') || after[0] == Char(';')) return true;
  }
  a.cs.report(strConstOpen, line.Line, quote(text));
  return false;
}

/// The index of the apostrophe of the next "='" from `from` on, or the length of the text.  Blanks after
/// the first equal sign of the text are ignored.
template <class Char>
std::size_t nextLiteral(std::basic_string_view<Char> text, std::size_t from) {
  const std::size_t firstEqual = text.find(Char('='));
  for (std::size_t equal = text.find(Char('='), from); equal != text.npos;
       equal = text.find(Char('='), equal + 1)) {
    std::size_t i = equal + 1;
    while (equal == firstEqual && i < text.size() && isBlank(text[i])) ++i;
    if (i < text.size() && text[i] == Char('\'')) return i;
  }
  return text.size();
}

template <class Char>
bool ckLine(Assembly& a, const SrcData<Char>& line) {
  const ViewOf<Char> text = line.OprndComStr;
  for (std::size_t open = nextLiteral(text, 0); open < text.size();) {
    const std::size_t end = DetStrConstGL10(text, open);
    if (!IsStrConstClosedGL10(a, line, end)) {
      a.cs.report(literalOpen, line.Line, quote(text));
      return false;
    }
    open = nextLiteral(text, end);
  }
  return true;
}

}  // namespace

template <class Char>
void CkStrConstLiteral(Assembly& a, int prg) {
  for (const SrcData<Char>& line : a.store<Char>().linesBeforeEnd(a.program<Char>(prg))) {
    if (line.OpStr.empty() || opOf(line) == Op::DC) continue;
    if (!ckLine(a, line)) return;
  }
}

template void CkStrConstLiteral<char16_t>(Assembly&, int);
template void CkStrConstLiteral<char>(Assembly&, int);

RowList rowsOfCkStrConstLiteral() {
  return rows(strConstOpen, literalOpen);
}

}  // namespace zelvaro
