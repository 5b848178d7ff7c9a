// A source file of any bytes into the line store, for each family and, in the wide ones, each way in which the
// encoding can have been settled.
#include "source/Load.h"

#include <type_traits>

#include "Fuzz.h"
#include "MoziCode/Utf.h"
#include "diag/DiagLog.h"
#include "source/FixedForm.h"

namespace zelvaro::fuzz {
namespace {

constexpr const char* kName = "a.txt";

/// What a load leaves behind.
struct Loaded {
  int result = 0;
  std::string console;
  int lines = 0;
  std::string text;  ///< the lines with a statement, each behind its number

  bool operator==(const Loaded&) const = default;
};

template <class Char>
std::string utf8(std::basic_string_view<Char> text) {
  if constexpr (std::is_same_v<Char, char16_t>) {
    return toUtf8(text);
  } else {
    return std::string(text);
  }
}

template <class Char>
void readStore(const LineStore<Char>& store, Loaded& out) {
  out.lines = store.lineCount();
  int last = -1;
  for (const auto& s : store.lines()) {
    require(s.Line > last && s.Line < out.lines, "a line out of order");
    require(holdsStatement(s.SrcStr), "a record without a statement");
    last = s.Line;
    out.text += std::to_string(s.Line) + ":" + utf8(s.SrcStr) + "\n";
    require(store.atLine(s.Line) == &s, "a line that is not found again");
  }
}

/// The first byte: the family, the language, whether the detection runs, and what it found in the last file.
Loaded load(int how, std::string_view bytes) {
  constexpr int kCodePages[] = {0, 1200, 1201, 65001};
  constexpr decltype(&loadSource<WP>) kLoaders[] = {loadSource<WP>, loadSource<NWW>, loadSource<AP>,
                                                    loadSource<NA>, loadSource<NH>,  loadWidened,
                                                    loadSource<WP>, loadSource<AP>};
  test::ScriptedPlatform platform;
  platform.files[kName] = bytes;
  TDiagLog dg;
  TBasicData b(platform, dg);
  TCorrectScode cs(platform, dg);
  TShellData sh(platform, dg);
  sh.Lang = b.Lang = cs.Lang = (how & 0x08) != 0 ? kJapanese : kEnglish;
  Assembly a{sh, cs, b};
  MoziCodeData code;
  code.CodePage = kCodePages[how >> 6 & 3];
  Loaded out;
  out.result = kLoaders[how & 7](a, code, kName, (how & 0x10) != 0 ? 1 : 0);
  out.console = platform.console;
  readStore(b.vecSrcW, out);
  if (out.lines == 0) readStore(b.vecSrcA, out);
  if ((how & 7) == 4) require(out.lines <= kFixedLines, "more lines than the fixed form has");
  require(b.vecSrcW.lineCount() == 0 || b.vecSrcA.lineCount() == 0, "lines in both stores");
  std::u16string wide;
  require(utf8ToUtf16(out.console, wide), "the console shows no UTF-8");
  return out;
}

}  // namespace
}  // namespace zelvaro::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelvaro::fuzz;
  Input in(data, size);
  const int how = in.byte();
  require(load(how, in.rest()) == load(how, in.rest()), "two loads of one file differ");
  return 0;
}
