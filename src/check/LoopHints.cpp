// Hints at the limit of steps: the state has come again, or where the steps went.
#include <algorithm>
#include <map>
#include <unordered_map>

#include "check/Hints.h"
#include "check/Remarks.h"
#include "check/Statements.h"

namespace zelvaro::check {
namespace {

constexpr Message sameState =
    notice("hint-same-state", args("steps"),
           {.ja = "機械の状態は {steps} 命令前とまったく同じである。このままでは終わらない。",
            .en = "The machine is in the state that it was in {steps} steps ago: the run does not end."});
constexpr Message mostRun =
    notice("hint-most-run", args("lines"),
           {.ja = "最も多く実行された行: {lines}", .en = "The lines that ran most: {lines}"});

/// What differs between a machine and one that runs ahead of it, kept up to date by the changes of each step.
class Ahead {
 public:
  explicit Ahead(const engine::Machine& start)
      : start_(start), machine_(start), registers_(start.registers()), stack_(start.stack()) {}

  /// Makes a step; false if the state then depends on more than the state before.
  bool step() {
    const std::int64_t before = machine_.steps();
    machine_.step();
    for (const engine::Change& c : machine_.changes())
      if (c.place == engine::Change::Place::Memory) note(c);
    return machine_.steps() > before && machine_.linesRead() == start_.linesRead();
  }
  bool isAtStart() const {
    return differing_.empty() && machine_.registers() == registers_ && machine_.stack() == stack_;
  }

 private:
  void note(const engine::Change& c) {
    if (static_cast<std::uint16_t>(c.after) == start_.word(c.index)) {
      differing_.erase(c.index);
    } else {
      differing_[c.index] = c.after;
    }
  }

  const engine::Machine& start_;
  engine::Machine machine_;
  engine::Registers registers_;
  std::vector<std::uint16_t> stack_;
  std::unordered_map<int, int> differing_;
};

bool areSame(const engine::Machine& a, const engine::Machine& b) {
  constexpr int kAddresses = 0x10000;
  return a.registers() == b.registers() && a.stack() == b.stack() &&
         a.memory(0, kAddresses) == b.memory(0, kAddresses);
}

/// The steps since the machine was last in the state in which it is; 0 if none is found.
std::int64_t stepsSinceSameState(const engine::Machine& machine) {
  Ahead ahead(machine);
  for (std::int64_t n = 1; n <= std::min(kStepsLookedAt, machine.steps()); ++n) {
    if (!ahead.step()) return 0;
    if (!ahead.isAtStart()) continue;
    // it comes again from here on; whether it has been there before is looked up
    engine::Machine past = machine;
    past.back(n);
    return areSame(past, machine) ? n : 0;
  }
  return 0;
}

std::vector<std::pair<std::uint32_t, int>> linesByCount(const engine::Machine& machine) {
  std::vector<std::pair<std::uint32_t, int>> out;
  const engine::Assembled& assembled = machine.assembled();
  for (const engine::ListingRow& r : assembled.listing()) {
    std::uint32_t most = 0;
    for (std::size_t i = 0; i < r.words.size(); ++i)
      most = std::max(most, machine.count(r.address + static_cast<int>(i)));
    if (most > 0) out.emplace_back(most, r.line);
  }
  std::ranges::stable_sort(out, [](const auto& a, const auto& b) { return a.first > b.first; });
  return out;
}

}  // namespace

std::vector<Remark> loopHints(const RunResult& run) {
  if (const std::int64_t steps = stepsSinceSameState(run.machine); steps > 0)
    return {remark(sameState, run.machine.line(), steps)};
  constexpr std::size_t kLines = 3;
  std::string lines;
  const auto counts = linesByCount(run.machine);
  for (std::size_t i = 0; i < std::min(kLines, counts.size()); ++i)
    lines += (i == 0 ? "" : ", ") + std::to_string(counts[i].second) + " (" +
             std::to_string(counts[i].first) + ")";
  if (lines.empty()) return {};
  return {remark(mostRun, counts.front().second, lines)};
}

RowList rowsOfLoopHints() {
  return rows(sameState, mostRun);
}

}  // namespace zelvaro::check
