// Number sign check: no blank may follow the sign of a number.  Once a sign stands in front of the first
// apostrophe the whole text is looked at, quoted text included.  Stops at the first finding.
#include <algorithm>

#include "diag/Quote.h"
#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

constexpr Message blankBehindSign{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: +, -, # 記号の直後に空白がある。\n記号の直後、数字の直前にある空白を取り除くこと。",
     .en = "{quote}: A space is found just after +, -, or #. \n"
           "Remove off the space at the left side of the figure."},
    {{kNarrow,
      {.ja = {}, .en = "{quote}: A space is found just after +, -, or #. Delete the space to a figure."}}}};

/// Whether the first sign stands in front of the first apostrophe, and some sign in front of a blank.
template <class Char>
bool isFaulty(std::basic_string_view<Char> text) {
  const auto sign = std::ranges::find_if(text, isSignOrHash<Char>);
  if (sign == text.end() || static_cast<std::size_t>(sign - text.begin()) > text.find(Char('\'')))
    return false;
  return std::adjacent_find(sign, text.end(),
                            [](Char c, Char next) { return isSignOrHash(c) && isBlank(next); }) != text.end();
}

}  // namespace

template <class Family>
void edit50(Assembly& a, int prg) {
  for (const auto& line : a.store<Family>().linesBeforeEnd(a.program<Family>(prg))) {
    if (!isFaulty(line.SrcWork)) continue;
    a.cs.report<Family, blankBehindSign>(line.Line, quote(line.SrcWork));
    return;
  }
}

#define ZELVARO_INSTANTIATE(F) template void edit50<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
