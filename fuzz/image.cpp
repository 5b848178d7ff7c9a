// Any words and registers into the machine: the run loop must leave what the slow machine of the tests leaves.
#include "Fuzz.h"
#include "comet2/Compared.h"
#include "comet2/Run.h"

namespace zelvaro::fuzz {
namespace {

constexpr std::int64_t kMostSteps = 5'000;

/// The state that a run begins with, and the words from address 0.  Registers hold what a program can leave
/// in them: a word, read as signed or as unsigned.
Tcomet2 machineOf(Input& in, int& PrgEndAdr) {
  Tcomet2 m;
  const int isSigned = in.byte();
  const int flags = in.byte();
  for (std::size_t i = 0; i < m.GR.size(); ++i) {
    const int word = in.word();
    m.GR[i] = (isSigned >> i & 1) != 0 ? signedWord(word) : word;
  }
  m.Fovf = flags & 1;
  m.Fzero = flags >> 1 & 1;
  m.Fsign = m.Fzero != 0 ? 0 : flags >> 2 & 1;
  m.OS = flags >> 3 & 3;
  m.SP = (flags & 0x80) != 0 ? kFirstSP - kStackDepth + (flags >> 5 & 3) : kFirstSP - (flags >> 5 & 3);
  while (!in.rest().empty() && PrgEndAdr < kGreatestImage)
    m.Memory[static_cast<std::size_t>(PrgEndAdr++)] = in.word();
  m.LastAdr = PrgEndAdr;
  return m;
}

/// The family's guards and words.
void runToItsEnd(const How& how, Tcomet2& m, int PrgEndAdr) try {
  test::LimitedPlatform platform;
  const Wording wording{how.language, how.family.id};
  ConsoleSink sink(platform, wording);
  TimeData time;
  Run3(m, {platform, sink, time, how.family, PrgEndAdr});
  m.setMaxExecCount();
  requireUtf8(platform.console, "the console");
} catch (const test::TooMuchOutput&) {
}

}  // namespace
}  // namespace zelvaro::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelvaro::fuzz;
  Input in(data, size);
  const How how(in.byte());
  int PrgEndAdr = 0;
  zelvaro::Tcomet2 m = machineOf(in, PrgEndAdr);
  std::int64_t steps = kMostSteps;
  const std::string differs = zelvaro::test::compared(m, PrgEndAdr, how.family.runLimit, kMostSteps, steps);
  require(differs.empty(), "not as in the slow machine:" + differs);
  if (steps < kMostSteps) runToItsEnd(how, m, PrgEndAdr);
  return 0;
}
