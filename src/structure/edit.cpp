// Line normalisation: the column rule of the language survives as one leading blank.
#include "source/FixedForm.h"
#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

constexpr Message emptySource =
    Message{Severity::Error,
            Head::Own,
            args(),
            {.ja = "アセンブラは準備完了、 ソースコードの記述がない。 ",
             .en = "The source code is empty.  The assembler is ready to go!"},
            {{kNarrow, {.ja = {}, .en = "The source code is empty.  The assembler is ready to go! "}}}}
        .withHead({.ja = "エラー：　", .en = "Error: "});
constexpr Message emptyFixed{Severity::Error,
                             Head::None,
                             args(),
                             {.ja = "アセンブラは準備完了、 ソースコードの記述がない。 ",
                              .en = "The assembler is ready to go! But the source code is empty. "}};

/// The line without its trailing blanks; two or more leading blanks become one space.
template <class Char>
std::basic_string_view<Char> normalised(TextArena<Char>& arena, std::basic_string_view<Char> line) {
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

/// The fixed form: the first two runs of blanks become one space each, the rest of the line stays.
template <class Char>
std::basic_string_view<Char> normalisedFixed(TextArena<Char>& arena, std::basic_string_view<Char> line) {
  Char* copy = arena.allocate(line.size());
  Char* end = copy;
  for (int run = 0; run < 2 && findBlank(line) != line.npos; ++run) {
    const std::size_t blank = findBlank(line);
    end = std::copy_n(line.begin(), blank, end);
    *end++ = Char(' ');
    line = trimLeft(line.substr(blank));
  }
  end = std::copy(line.begin(), line.end(), end);
  return {copy, static_cast<std::size_t>(end - copy)};
}

}  // namespace

template <class Family>
int edit(Assembly& a) {
  auto& store = a.store<Family>();
  for (auto& line : store.lines())
    line.SrcWork = kIsFixedForm<Family> ? normalisedFixed(store.arena, line.SrcStr)
                                        : normalised(store.arena, line.SrcStr);
  if (!store.lines().empty()) return 0;
  if constexpr (kIsFixedForm<Family>) {
    a.b.report<Family, emptyFixed>(0);
  } else {
    a.b.report<Family, emptySource>(0);
  }
  return -1;
}

#define ZELVARO_INSTANTIATE(F) template int edit<F>(Assembly&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
