// Line normalisation: one leading blank is kept, since a label must begin in the first column.
#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

constexpr Message emptySource = Message{
    "source-empty",
    Severity::Error,
    Head::Own,
    args(),
    {.ja = "アセンブラは準備完了、 ソースコードの記述がない。 ",
     .en = "The source code is empty.  The assembler is ready to go!"},
    {{kNarrow, {.ja = {}, .en = "The source code is empty.  The assembler is ready to go! "}},
     {kNH,
      {.ja = {}, .en = "The assembler is ready to go! But the source code is empty. "},
      {kNoWords, kNoWords}}}}.withHead({.ja = "エラー：　", .en = "Error: "});

/// The line without its trailing blanks; two or more leading blanks become one space.
template <class Char>
std::basic_string_view<Char> oneBlankInFront(TextArena<Char>& arena, std::basic_string_view<Char> line) {
  line = trimRight(line);
  const std::size_t p = line.size() - trimLeft(line).size();
  if (p < 2) return line;
  line.remove_prefix(p - 1);
  if (line.front() == Char(' ')) return line;
  Char* copy = arena.allocate(line.size());
  copy[0] = Char(' ');
  std::copy(line.begin() + 1, line.end(), copy + 1);
  return {copy, line.size()};
}

template <class Char>
std::basic_string_view<Char> firstTwoRunsCut(TextArena<Char>& arena, std::basic_string_view<Char> line) {
  Char* copy = arena.allocate(line.size());
  Char* end = copy;
  withFirstTwoRunsCut(line, [&end](auto piece) { end = std::copy(piece.begin(), piece.end(), end); });
  return {copy, static_cast<std::size_t>(end - copy)};
}

template <class Char>
std::basic_string_view<Char> normalised(TextArena<Char>& arena, std::basic_string_view<Char> line,
                                        Blanks blanks) {
  return blanks == Blanks::FirstTwoRuns ? firstTwoRunsCut(arena, line) : oneBlankInFront(arena, line);
}

}  // namespace

template <class Char>
void edit(Assembly& a) {
  auto& store = a.store<Char>();
  for (auto& line : store.lines()) line.SrcWork = normalised(store.arena, line.SrcStr, a.family.blanks);
  if (store.lines().empty()) a.b.report(emptySource, 0);
}

template void edit<char16_t>(Assembly&);
template void edit<char>(Assembly&);

RowList rowsOfEdit() {
  return rows(emptySource);
}

}  // namespace zelvaro
