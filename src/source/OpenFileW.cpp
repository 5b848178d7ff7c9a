#include <algorithm>

#include "diag/Quote.h"
#include "source/Load.h"
#include "source/TextLines.h"

namespace zelvaro {
namespace {

constexpr Message notOpenedW =
    Message{
        "source-not-opened-binary",
        Severity::Error,
        Head::Prefix,
        args("quoted", "name"),
        {.ja =
             "{quoted} (binary mode)を開くことができません。 \nミススペル あるいは ファイルが存在しない。 *",
         .en = "The file {name} does not open on binary mode. \nMisspellings?  \nOr the file does not exist "
               "there. *"}}
        .withHead({.ja = "エラー： ", .en = ""})
        .uncounted();
constexpr Message noTranslation{
    "source-not-text", Severity::Notice, Head::None, args(),
    bothLanguages("in function utf_16_to_shift_jis, WideCharToMultiByte fail. cause: "
                  "ERROR_NO_UNICODE_TRANSLATION")};

bool notOpened(Assembly& a, const std::string& name) {
  a.sh.report(notOpenedW, 0, quote(toUtf16(name)), name);
  return false;
}

/// CP932 to wide text; undecodable bytes are reported once for the text.
bool ansiToWide(TShellData& sh, std::string_view bytes, std::u16string& out) {
  const bool known = cp932ToUtf16(bytes, out);
  if (!known) sh.report(noTranslation, 0);
  return known;
}

std::u16string_view widen(TextArena<char16_t>& arena, std::string_view ascii) {
  char16_t* at = arena.allocate(ascii.size());
  std::transform(ascii.begin(), ascii.end(), at, [](char c) { return static_cast<char16_t>(c); });
  return {at, ascii.size()};
}

/// A line of code units, copied to the arena if it holds a statement.
void addUnits(LineStore<char16_t>& store, const Utf16Units& units, std::size_t from, std::size_t to) {
  std::size_t first = from;
  while (first < to && isBlank(units[first])) ++first;
  if (first == to || units[first] == u';') {
    store.addLine({});
    return;
  }
  char16_t* at = store.arena.allocate(to - from);
  for (std::size_t i = from; i < to; ++i) at[i - from] = units[i];
  store.addLine({at, to - from});
}

}  // namespace

bool MbChToWCs(TShellData& sh, std::string_view bytes, std::u16string& out) {
  const std::size_t before = out.size();
  if (utf8ToUtf16(bytes, out)) return true;
  out.resize(before);
  return ansiToWide(sh, bytes, out);
}

bool OpenFileUTF16toVecW(Assembly& a, const MoziCodeData& code, const std::string& name,
                         const SourceBytes& bytes) {
  if (!bytes) return notOpened(a, name);
  LineStore<char16_t>& store = a.b.vecSrcW;
  store.clear();
  const Utf16Units units(bytes->bytes, code.byteOrder());
  std::size_t start = 1;  // unit 0 is the mark
  for (std::size_t i = start; i + 1 < units.size(); ++i) {
    if (units[i] != u'\r' || units[i + 1] != u'\n') continue;
    addUnits(store, units, start, i);
    store.foresee(i, units.size());
    start = ++i + 1;
  }
  addUnits(store, units, start, std::max(start, units.size()));
  return true;
}

bool OpenFileUTF8toVecW(Assembly& a, const MoziCodeData& code, const std::string& name,
                        const SourceBytes& bytes) {
  if (!bytes) return notOpened(a, name);
  LineStore<char16_t>& store = a.b.vecSrcW;
  store.clear();
  std::u16string wide;
  const auto add = [&](std::string_view line) {
    const bool statement = holdsStatement(line);
    if (isAscii(line)) {
      store.addLine(statement ? widen(store.arena, line) : std::u16string_view());
      return;
    }
    // a comment is decoded too: its undecodable bytes are reported like those of any line
    wide.clear();
    if (code.CodePage == 65001) {
      MbChToWCs(a.sh, line, wide);
    } else {
      ansiToWide(a.sh, line, wide);
    }
    store.addLine(statement ? store.arena.keep(wide) : std::u16string_view());
  };
  const std::size_t size = bytes->bytes.size();
  std::string_view rest = bytes->bytes;
  if (!code.BomText.empty()) {
    rest.remove_prefix(std::min<std::size_t>(rest.size(), 3));
    add(takeLine(rest));  // the line of the mark is a line even if it is empty
  }
  while (!rest.empty()) {
    add(takeLine(rest));
    store.foresee(size - rest.size(), size);
  }
  return true;
}

RowList rowsOfOpenFileW() {
  return rows(notOpenedW, noTranslation);
}

}  // namespace zelvaro
