// A source file of any bytes into the line store, for each family and, in the wide ones, each way in which the
// encoding can have been settled.
#include "source/Load.h"

#include "Fuzz.h"
#include "MoziCode/Utf.h"
#include "diag/Quote.h"
#include "engine/Stages.h"

namespace zelvaro::fuzz {
namespace {

/// What a load leaves behind: its result, what is printed, the lines with a statement after their numbers.
using Loaded = std::tuple<bool, std::string, int, std::string>;

template <class Char>
void readStore(const LineStore<Char>& store, int& lines, std::string& text) {
  lines += store.lineCount();
  int last = -1;
  for (const auto& s : store.lines()) {
    require(s.Line > last && s.Line < lines, "a line out of order");
    require(holdsStatement(s.SrcStr), "a record without a statement");
    require(store.atLine(s.Line) == &s, "a line that is not found again");
    last = s.Line;
    text += std::to_string(s.Line) + ":" + plain(s.SrcStr) + "\n";
  }
}

Loaded load(const How& how, std::string_view bytes) {
  constexpr int kCodePages[] = {0, 1200, 1201, 65001};
  const std::string name = "a.txt";
  test::ScriptedPlatform platform;
  platform.files[name] = bytes;
  TSession s(platform);
  s.wording = {how.language, how.family.id};
  s.moziCodeData.CodePage = kCodePages[how.byte >> 6 & 3];
  Pass pass{{s.sh, s.cs, s.b, how.family},
            {platform, s.moziCodeData, name, (how.byte & 0x10) == 0},
            s.m,
            {platform, s.channel, s.timeData, how.family},
            {platform, s.channel, s.timeData, how.family, how.language}};
  const bool result = runPhase(pass, Phase::Load);
  require(s.b.vecSrcW.lineCount() == 0 || s.b.vecSrcA.lineCount() == 0, "lines in both stores");
  int lines = 0;
  std::string text;
  readStore(s.b.vecSrcW, lines, text);
  readStore(s.b.vecSrcA, lines, text);
  if (how.family.loader == Loader::Fixed) require(lines <= kFixedLines, "more lines than the fixed form has");
  requireUtf8(platform.console, "the console");
  return {result, platform.console, lines, text};
}

}  // namespace
}  // namespace zelvaro::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelvaro::fuzz;
  Input in(data, size);
  const How how(in.byte());
  require(load(how, in.rest()) == load(how, in.rest()), "two loads of one file differ");
  return 0;
}
