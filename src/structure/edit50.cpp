// Number sign check: no blank may follow the sign of a number.  If there is a sign before the first
// apostrophe, the whole text is checked, quoted text included.  Stops at the first finding.
#include <algorithm>

#include "diag/Quote.h"
#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

constexpr Message blankAfterSign{
    "number-sign-blank",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: +, -, # 記号の直後に空白がある。\n記号の直後、数字の直前にある空白を取り除くこと。",
     .en = "{quote}: A space is found just after +, -, or #. \n"
           "Remove off the space at the left side of the figure."},
    {{kNarrow,
      {.ja = {}, .en = "{quote}: A space is found just after +, -, or #. Delete the space to a figure."}}}};

/// Whether the first sign is before the first apostrophe, and some sign is directly before a blank.
template <class Char>
bool isFaulty(std::basic_string_view<Char> text) {
  const auto sign = std::find_if(text.begin(), text.end(), isSignOrHash<Char>);
  if (sign == text.end() || static_cast<std::size_t>(sign - text.begin()) > text.find(Char('\'')))
    return false;
  return std::adjacent_find(sign, text.end(),
                            [](Char c, Char next) { return isSignOrHash(c) && isBlank(next); }) != text.end();
}

}  // namespace

template <class Char>
void edit50(Assembly& a, int prg) {
  for (const auto& line : a.store<Char>().linesBeforeEnd(a.program<Char>(prg))) {
    if (!isFaulty(line.SrcWork)) continue;
    a.cs.report(blankAfterSign, line.Line, quote(line.SrcWork));
    return;
  }
}

template void edit50<char16_t>(Assembly&, int);
template void edit50<char>(Assembly&, int);

RowList rowsOfEdit50() {
  return rows(blankAfterSign);
}

}  // namespace zelvaro
