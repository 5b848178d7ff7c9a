// A source file of any bytes into the line store, for each family and, in the wide ones, each way in which the
// encoding can have been settled.
#include "source/Load.h"

#include "Fuzz.h"
#include "diag/Quote.h"
#include "engine/Stages.h"

namespace zelvaro::fuzz {
namespace {

/// The lines with a statement after their numbers.
template <class Char>
std::string linesOf(const LineStore<Char>& store) {
  std::string text;
  int last = -1;
  for (const auto& s : store.lines()) {
    require(s.Line > last && s.Line < store.lineCount(), "a line out of order");
    require(holdsStatement(s.SrcStr), "a record without a statement");
    require(store.atLine(s.Line) == &s, "a line that is not found again");
    last = s.Line;
    text += std::to_string(s.Line) + ":" + plain(s.SrcStr) + "\n";
  }
  return text;
}

/// What a load leaves: its result, what is printed, the lines.
std::string load(const How& how, std::string_view bytes) {
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
  const int wide = s.b.vecSrcW.lineCount(), narrow = s.b.vecSrcA.lineCount();
  require(wide == 0 || narrow == 0, "lines in both stores");
  require(how.family.loader != Loader::Fixed || wide + narrow <= kFixedLines,
          "more lines than the fixed form has");
  requireUtf8(platform.console, "the console");
  return (result ? "loaded " : "refused ") + std::to_string(wide + narrow) + platform.console +
         linesOf(s.b.vecSrcW) + linesOf(s.b.vecSrcA);
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
