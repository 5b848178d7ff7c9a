// What the engine's limits and checkpoints cost: the run loop as the dialogue calls it, the engine with the checker's
// limit of 100 million steps at a time and in slices, and a step back.
#include <benchmark/benchmark.h>

#include <string>

#include "Workloads.h"
#include "comet2/Guards.h"
#include "comet2/RunLoop.h"
#include "engine/Machine.h"
#include "support/Recorder.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::bench {
namespace {

constexpr std::int64_t kLimit = 100'000'000;

/// A machine with the image of a workload, and as many reserved words.
engine::Machine machineOf(const Workload& w) {
  const int others = 2;  // START and RET
  const engine::Assembled a =
      engine::assemble("A START\n RET\n DS " + std::to_string(w.PrgEndAdr - others) + "\n END\n");
  engine::Machine m(a);
  for (std::size_t adr = 0; adr < w.words.size(); ++adr) m.setWord(static_cast<int>(adr), w.words[adr]);
  return m;
}

void setRate(benchmark::State& state, std::int64_t instructions) {
  state.counters["instructions"] =
      benchmark::Counter(static_cast<double>(instructions) * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate);
}

void dialogue(benchmark::State& state, const Workload& w) {
  test::ScriptedPlatform platform;
  test::Recorder sink;
  TimeData time;
  const RunEnvironment env{platform, sink, time, family(FamilyId::WP), w.PrgEndAdr};
  Tcomet2 m;
  for (auto _ : state) {
    state.PauseTiming();
    m.reset();
    for (std::size_t adr = 0; adr < w.words.size(); ++adr) m.Memory[adr] = w.words[adr];
    GuardedStores watch(m, env);
    state.ResumeTiming();
    if (runLoop(m, {platform, sink}, watch, env.family.runLimit) != Stop::End) state.SkipWithError("no end");
  }
  setRate(state, w.instructions);
}

void slices(benchmark::State& state, const Workload& w, std::int64_t limit) {
  const engine::Machine start = machineOf(w);
  for (auto _ : state) {
    state.PauseTiming();
    engine::Machine m = start;
    state.ResumeTiming();
    while (m.run(limit).stop == Stop::Steps) {
    }
    state.PauseTiming();
    if (m.stop() != Stop::End || m.steps() != w.instructions) state.SkipWithError("the result is wrong");
    state.ResumeTiming();
  }
  setRate(state, w.instructions);
}

void limited(benchmark::State& state, const Workload& w) {
  const engine::Machine start = machineOf(w);
  for (auto _ : state) {
    state.PauseTiming();
    engine::Machine m = start;
    state.ResumeTiming();
    if (m.run(kLimit).executed != kLimit) state.SkipWithError("the limit is not reached");
  }
  setRate(state, kLimit);
}

void back(benchmark::State& state, const Workload& w) {
  engine::Machine m = machineOf(w);
  m.run(kLimit);
  for (auto _ : state) {
    m.back(1);
    if (m.steps() == 0) state.SkipWithError("the start is reached");
  }
}

}  // namespace
}  // namespace zelvaro::bench

int main(int argc, char** argv) {
  using namespace zelvaro::bench;
  for (const Workload& w : workloads()) {
    const std::string name = w.name;
    const auto add = [&](const std::string& what, auto work) {
      benchmark::RegisterBenchmark((name + "/" + what).c_str(), work)->Unit(benchmark::kMillisecond);
    };
    add("dialogue", [&w](benchmark::State& state) { dialogue(state, w); });
    add("engine", [&w](benchmark::State& state) { slices(state, w, kLimit); });
    add("slices_of_1M", [&w](benchmark::State& state) { slices(state, w, 1'000'000); });
    add("first_100M", [&w](benchmark::State& state) { limited(state, w); });
    add("back", [&w](benchmark::State& state) { back(state, w); });
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
