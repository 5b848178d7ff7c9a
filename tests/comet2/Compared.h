// One image in the run loop and in the slow machine: in the tests and under the fuzzer.
#pragma once

#include <algorithm>
#include <string>

#include "comet2/RunLoop.h"
#include "comet2/SlowMachine.h"
#include "support/LimitedPlatform.h"
#include "support/Recorder.h"

namespace zelvaro::test {

/// Watches stores as the families do that warn once a run, and issues nothing.
class SilentWatch : public StoreWatch {
 public:
  SilentWatch(int PrgEndAdr, int limit) : StoreWatch(std::min(PrgEndAdr, limit)), limit_(limit) {}
  bool st511(Tcomet2& m, std::int32_t effAdr, std::int32_t count) override {
    if (effAdr >= limit_) return false;
    warnings.emplace_back(effAdr, m.PR, count);
    from_ = limit_;
    return true;
  }
  std::vector<StoreWarned> warnings;

 private:
  int limit_;
};

/// A machine with what a run needs, and what it leaves.
struct MachineRun {
  Tcomet2 m;
  SilentWatch watch;
  int limit;
  LimitedPlatform platform{};
  Recorder sink{};

  MachineRun(const Tcomet2& machine, int PrgEndAdr, int limitOfRun)
      : m(machine), watch(PrgEndAdr, limitOfRun), limit(limitOfRun) {
    // for the INs: no text, plain lines, pairs of units, bytes that are no text
    platform.typed = {"", "A", "abcdefgh", "日本語𠮷", "\xFF", "0123456789012345678901234567890123456789"};
  }
  Stop run() { return runLoop(m, {platform, sink}, watch, limit); }
  Stop run(Slices& slices, std::int64_t& steps) {
    return runLoop(m, {platform, sink}, watch, limit, slices, steps);
  }

  /// In what the slow machine's run left something else, in words.
  std::string differenceFrom(MachineRun& slowRun, SlowMachine& slow) {
    const auto same = [](Cells& x, Cells& y) { return std::equal(x.begin(), x.end(), y.begin()); };
    const auto registers = [](const Tcomet2& t) {
      return std::tie(t.PR, t.SP, t.OS, t.EffAdr, t.GR, t.Fovf, t.Fsign, t.Fzero, t.StackArea);
    };
    Tcomet2& n = slow.m;
    std::string out;
    if (registers(m) != registers(n)) out += " registers, flags or stack";
    if (!same(m.Memory, n.Memory)) out += " memory";
    if (!same(m.ExecCount, n.ExecCount)) out += " counts";
    if (watch.warnings != slow.warnings) out += " warnings";
    if (platform.console != slowRun.platform.console) out += " console";
    if (sink.text != slowRun.sink.text) out += " messages";
    return out;
  }
};

/// Runs one image on both, for at most `cap` instructions in two parts, and returns in what they differ; empty if in
/// nothing.  A run that ends sooner is repeated by the loop that counts no steps.  `executed` becomes the number of
/// instructions.
inline std::string compared(const Tcomet2& m, int PrgEndAdr, int limit, std::int64_t cap,
                            std::int64_t& executed) try {
  MachineRun stepped(m, PrgEndAdr, limit), whole = stepped, slowRun = stepped;
  std::int64_t left = cap / 2;
  Slices slices{Decoded(stepped.m.Memory.data(), limit)};
  Stop stop = stepped.run(slices, left);
  left += cap - cap / 2;
  if (stop == Stop::Steps) stop = stepped.run(slices, left);

  SlowMachine slow(m, {slowRun.platform, slowRun.sink}, limit, PrgEndAdr);
  const Stop slowStop = slow.run(stop == Stop::Steps ? cap - left : cap + 3);
  executed = slow.executed;
  std::string out = stepped.differenceFrom(slowRun, slow);
  if (stop != slowStop) out += " stop";
  if (cap - left != executed) out += " steps";
  if (!out.empty() || stop == Stop::Steps) return out;
  if (whole.run() != slowStop) out += " stop of a whole run";
  return out + whole.differenceFrom(slowRun, slow);
} catch (const TooMuchOutput&) {
  return "";  // many times the whole memory: nothing to compare
}

}  // namespace zelvaro::test
