// Removes a comment from the working text if unbalanced quotes have kept it so far.
#include "structure/Structure.h"

namespace zelvaro {
namespace {

/// A ';' ends the text before the first apostrophe, and after the last one if it is the only ';'.
template <class Char>
std::basic_string_view<Char> withoutComment(std::basic_string_view<Char> text) {
  const std::size_t first = text.find(Char(';'));
  if (first == text.npos) return text;
  const std::size_t quote = text.find(Char('\''));
  const bool before = quote == text.npos || first < quote;
  const bool after = text.rfind(Char(';')) == first && text.rfind(Char('\'')) < first;
  return before || after ? text.substr(0, first) : text;
}

}  // namespace

template <class Char>
void SplitComment(Assembly& a, int prg) {
  for (auto& line : a.store<Char>().linesBeforeEnd(a.program<Char>(prg)))
    line.SrcWork = withoutComment(line.SrcWork);
}

template void SplitComment<char16_t>(Assembly&, int);
template void SplitComment<char>(Assembly&, int);

}  // namespace zelvaro
