// How many instructions a second the run loop executes, workload by workload.
#include <benchmark/benchmark.h>

#include "Workloads.h"
#include "comet2/Guards.h"
#include "comet2/RunLoop.h"
#include "support/Recorder.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::bench {
namespace {

void load(Tcomet2& m, const Workload& w) {
  m.reset();
  for (std::size_t adr = 0; adr < w.words.size(); ++adr) m.Memory[adr] = w.words[adr];
}

bool isRight(const Tcomet2& m, const Workload& w) {
  const std::int32_t result =
      w.resultAdr == kInGR0 ? m.GR[0] : m.Memory[static_cast<std::size_t>(w.resultAdr)];
  std::int64_t executed = 0;
  for (std::size_t adr = 0; adr < m.ExecCount.touched(); ++adr) executed += m.ExecCount[adr];
  return unsignedWord(result) == w.result && executed == w.instructions;
}

void run(benchmark::State& state, const Workload& w) {
  test::ScriptedPlatform platform;
  test::Recorder sink;
  TimeData time;
  const RunEnvironment env{platform, sink, time, family(FamilyId::WP), w.PrgEndAdr};
  Tcomet2 m;
  for (auto _ : state) {
    state.PauseTiming();
    load(m, w);
    GuardedStores watch(m, env);
    state.ResumeTiming();
    const Stop stop = runLoop(m, {platform, sink}, watch, env.family.runLimit);
    state.PauseTiming();
    if (stop != Stop::End || !isRight(m, w)) state.SkipWithError("the result is wrong");
    state.ResumeTiming();
  }
  state.counters["instructions"] =
      benchmark::Counter(static_cast<double>(w.instructions) * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate);
}

}  // namespace
}  // namespace zelvaro::bench

int main(int argc, char** argv) {
  for (const zelvaro::bench::Workload& w : zelvaro::bench::workloads())
    benchmark::RegisterBenchmark(w.name, [&w](benchmark::State& state) {
      zelvaro::bench::run(state, w);
    })->Unit(benchmark::kMillisecond);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
