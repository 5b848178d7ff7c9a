#include "diag/Quote.h"
#include "source/Load.h"
#include "source/TextLines.h"

namespace zelvaro {
namespace {

constexpr Message readingA = Message{Severity::Plain,
                                     Head::None,
                                     args("name"),
                                     {.ja = "'{name}' を読み込みます。 ", .en = "Reading {name}. "}}
                                 .uncounted()
                                 .unlogged();
constexpr Message notOpenedA =
    Message{Severity::Error,
            Head::None,
            args("name"),
            {.ja = "'{name}' を開くことができません。 \nミススペル あるいは ファイルが存在しない。 *",
             .en = "The file {name} does not open. \nMisspellings?\nOr the file does not exist there. * "}}
        .uncounted()
        .unlogged();

constexpr int kNotOpened = -3;

}  // namespace

int OpenFileA(Assembly& a, const std::string& name, const SourceBytes& bytes) {
  a.sh.report<AP, readingA>(0, name);
  if (!bytes) {
    a.sh.report<AP, notOpenedA>(0, name);
    return kNotOpened;
  }
  LineStore<char>& store = a.b.vecSrcA;
  store.clear();
  std::u16string wide;
  std::string narrow;
  const std::size_t size = bytes->bytes.size();
  std::string_view rest = bytes->bytes;
  if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);  // CP932 has no such character
  while (!rest.empty()) {
    const std::string_view line = takeLine(rest);
    std::string_view text = line;
    if (!isAscii(line)) {
      wide.clear();
      narrow.clear();
      MbChToWCs(a.sh, line, wide);
      utf16ToCp932(wide, narrow);
      text = narrow;
    }
    store.addLine(holdsStatement(text) ? store.arena.keep(text) : std::string_view());
    store.foresee(size - rest.size(), size);
  }
  return 0;
}

}  // namespace zelvaro
