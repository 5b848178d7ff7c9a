// Any words and registers into the machine.  The slow machine of the tests runs them too: what it leaves must
// be what the run loop leaves, in a whole run where it comes to an end, else in the loop with a limit.
#include "Fuzz.h"
#include "comet2/Run.h"
#include "comet2/RunLoop.h"
#include "comet2/SlowMachine.h"

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

void run(const Family& f, Wording wording, Tcomet2& m, int PrgEndAdr) {
  const int limit = f.runLimit;
  LimitedPlatform slowPlatform;
  test::typeSomething(slowPlatform);
  LimitedPlatform platform = slowPlatform;
  ConsoleSink slowSink(slowPlatform, wording), sink(platform, wording);
  test::SlowMachine slow(m, {slowPlatform, slowSink}, limit, PrgEndAdr);
  if (slow.run(kMostSteps) != Stop::Steps) {
    TimeData time;
    Run3(m, {platform, sink, time, f, PrgEndAdr});
    m.setMaxExecCount();
  } else {
    test::SilentWatch watch(PrgEndAdr, limit);
    std::int64_t left = kMostSteps;
    const Stop stop = runLoop(m, {platform, sink}, watch, limit, left);
    const Stop slowStop = slow.run(stop == Stop::Steps ? kMostSteps - left : kMostSteps + 3);
    require(stop == slowStop && kMostSteps - left == slow.executed, "the run loop stops elsewhere");
    require(platform.console == slowPlatform.console, "OUT shows something else");
    require(watch.warnings == slow.warnings, "a store is warned of elsewhere");
  }
  const std::string differs = test::difference(m, slow.m);
  require(differs.empty(), "not as in the slow machine:" + differs);
}

}  // namespace
}  // namespace zelvaro::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelvaro;
  fuzz::Input in(data, size);
  const fuzz::How how(in.byte());
  int PrgEndAdr = 0;
  Tcomet2 m = fuzz::machineOf(in, PrgEndAdr);
  try {
    fuzz::run(how.family, {how.language, how.family.id}, m, PrgEndAdr);
  } catch (const fuzz::TooMuchOutput&) {
    // many times the whole memory: nothing to compare
  }
  return 0;
}
