// Tabs of the working text become spaces, except between the first and the last apostrophe.
// Narrow families only: a wide row has no such stage, since blanks are both characters everywhere.
#include "structure/Structure.h"

namespace zelvaro {
namespace {

template <class Char>
void replaceTabs(TextArena<Char>& arena, std::basic_string_view<Char>& text) {
  const std::size_t first = std::min(text.find(Char('\'')), text.size());
  const std::size_t last = first == text.size() ? first : text.rfind(Char('\''));
  const auto quoted = [&](std::size_t i) { return i >= first && i <= last; };
  std::size_t tab = text.find(Char('\t'));
  while (tab != text.npos && quoted(tab)) tab = text.find(Char('\t'), tab + 1);
  if (tab == text.npos) return;
  Char* copy = arena.allocate(text.size());
  for (std::size_t i = 0; i < text.size(); ++i)
    copy[i] = text[i] == Char('\t') && !quoted(i) ? Char(' ') : text[i];
  text = {copy, text.size()};
}

}  // namespace

void ReplaceTabs(Assembly& a) {
  for (auto& line : a.b.vecSrcA.lines()) replaceTabs(a.b.vecSrcA.arena, line.SrcWork);
}

}  // namespace zelvaro
