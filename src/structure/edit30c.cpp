// Literal sign check: no blank may follow the sign of a literal.  Stops at the first finding.
#include "diag/Quote.h"
#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

constexpr Message blankAfterSign{
    "literal-sign-blank",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: =+, =-, =# 記号の直後に空白がある。記号の直後、数字の直前にある空白を取り除くこと。",
     .en = "{quote}: A space is found just after =+, =-, or =#. "
           "Remove off the space at the right side of the literal figure. "},
    {{kNarrow,
      {.ja = {},
       .en = "{quote}: There is a space just after =+, =-, or =#. "
             "Remove off the space at the left side of the literal figure. "}}}};

/// The text without the blanks after its '=' at `e`; without the '=' too if nothing else follows.
template <class Char>
std::basic_string_view<Char> closeUp(TextArena<Char>& arena, std::basic_string_view<Char> text,
                                     std::size_t e) {
  const auto head = text.substr(0, e + 1);
  const auto rest = trimLeft(text.substr(e + 1));
  if (rest.empty()) return text.substr(0, e);
  if (head.size() + rest.size() == text.size()) return text;
  Char* copy = arena.allocate(head.size() + rest.size());
  std::copy(rest.begin(), rest.end(), std::copy(head.begin(), head.end(), copy));
  return {copy, head.size() + rest.size()};
}

template <class Char>
bool holdsSignAndBlank(std::basic_string_view<Char> text) {
  for (std::size_t i = 0; i + 2 < text.size(); ++i)
    if (text[i] == Char('=') && isSignOrHash(text[i + 1]) && isBlank(text[i + 2])) return true;
  return false;
}

}  // namespace

template <class Char>
void edit30c(Assembly& a, int prg) {
  auto& store = a.store<Char>();
  for (auto& line : store.linesBeforeEnd(a.program<Char>(prg))) {
    const std::size_t e = line.SrcWork.find(Char('='));
    if (e == line.SrcWork.npos || e > line.SrcWork.find(Char('\''))) continue;
    line.SrcWork = closeUp(store.arena, line.SrcWork, e);
    if (!holdsSignAndBlank(line.SrcWork)) continue;
    a.cs.report(blankAfterSign, line.Line, quote(line.SrcWork));
    return;
  }
}

template void edit30c<char16_t>(Assembly&, int);
template void edit30c<char>(Assembly&, int);

RowList rowsOfEdit30c() {
  return rows(blankAfterSign);
}

}  // namespace zelvaro
