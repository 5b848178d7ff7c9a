// What the run loop and the slow machine are compared by, in the tests and under the fuzzer.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "comet2/SlowMachine.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::test {

/// Watches stores as the families with the limit of tMaxMemory do, and says nothing.
class SilentWatch : public StoreWatch {
 public:
  SilentWatch(int PrgEndAdr, int limit) : StoreWatch(std::min(PrgEndAdr, limit)), limit_(limit) {}
  int st511(Tcomet2& m, std::int32_t effAdr, std::int32_t count) override {
    if (effAdr >= limit_) return kRunMustStop;
    warnings.emplace_back(effAdr, m.PR, count);
    from_ = limit_;
    return 0;
  }
  std::vector<Warning> warnings;

 private:
  int limit_;
};

/// Lines for the INs of a run: none at all, plain ones, pairs of units, bytes that are no text.
inline void typeSomething(ScriptedPlatform& platform) {
  for (const char* line :
       {"", "A", "abcdefgh", "日本語𠮷", "\xFF", "0123456789012345678901234567890123456789"})
    platform.typed.emplace_back(line);
}

/// In what two machines differ, in words; empty where they are the same.
inline std::string difference(Tcomet2& a, Tcomet2& b) {
  const auto same = [](Cells& x, Cells& y) { return std::equal(x.begin(), x.end(), y.begin()); };
  std::string out;
  if (a.PR != b.PR) out += " PR";
  if (a.SP != b.SP) out += " SP";
  if (a.OS != b.OS) out += " OS";
  if (a.EffAdr != b.EffAdr) out += " effective address";
  if (a.GR != b.GR) out += " registers";
  if (a.Fovf != b.Fovf || a.Fsign != b.Fsign || a.Fzero != b.Fzero) out += " flags";
  if (a.StackArea != b.StackArea) out += " stack";
  if (!same(a.Memory, b.Memory)) out += " memory";
  if (!same(a.ExecCount, b.ExecCount)) out += " counts";
  return out;
}

}  // namespace zelvaro::test
