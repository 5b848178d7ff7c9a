// How long the parts of the way from a source to its reports take on a big source.
#include <benchmark/benchmark.h>

#include <functional>

#include "BigSource.h"
#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"
#include "engine/Stages.h"
#include "shell/Session.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::bench {
namespace {

constexpr int kWords = 60000;

/// A session with the big source beside it, taken as far as a measurement needs.
class Way {
 public:
  explicit Way(int lines = 0) { platform_.files[name_] = bigSource(kWords, lines); }

  void load() {
    s.b.clearTables();
    for (TMsgBase* object : std::initializer_list<TMsgBase*>{&s.sh, &s.cs, &s.b}) object->clearTallies();
    platform_.console.clear();
    runPhase(pass, Phase::Load);
  }
  void check() { runPhase(pass, Phase::Check); }
  void link() {
    s.m.reset();
    runPhase(pass, Phase::Link);
  }
  void report() { runPhase(pass, Phase::Report); }
  bool isClean() const { return pass.assembly.errors() == 0; }
  bool isLinked() const { return s.b.PrgEndAdr > kWords / 2; }

 private:
  test::ScriptedPlatform platform_;
  const std::string name_ = "big.txt";
  const Family& f_ = family(FamilyId::WP);

 public:
  TSession s{platform_};
  Pass pass{{s.sh, s.cs, s.b, f_},
            {platform_, s.moziCodeData, name_, true},
            s.m,
            {platform_, s.channel, s.timeData, f_},
            {platform_, s.channel, s.timeData, f_, Language::English, ResultantRegFile}};
};

/// Runs the steps up to `timed`, of which the last one is measured.
template <class... Step>
void measure(benchmark::State& state, Way& way, void (Way::*timed)(), Step... before) {
  for (auto _ : state) {
    state.PauseTiming();
    (void)std::initializer_list<int>{((way.*before)(), 0)...};
    state.ResumeTiming();
    (way.*timed)();
  }
  if (!way.isClean()) state.SkipWithError("the source is not clean");
}

void load60000Words(benchmark::State& state) {
  Way way;
  measure(state, way, &Way::load);
}
void load500000Lines(benchmark::State& state) {
  Way way(500000);
  measure(state, way, &Way::load);
}
void check(benchmark::State& state) {
  Way way;
  measure(state, way, &Way::check, &Way::load);
}
void link(benchmark::State& state) {
  Way way;
  measure(state, way, &Way::link, &Way::load, &Way::check);
}
void report(benchmark::State& state) {
  Way way;
  way.load();
  way.check();
  way.link();
  if (!way.isLinked()) return state.SkipWithError("the source did not link");
  measure(state, way, &Way::report);
  state.SetItemsProcessed(state.iterations() * (way.s.b.PrgEndAdr + 10));
}

/// The stages of the check in their order, one program's.
std::vector<std::reference_wrapper<const Stage>> stagesOfCheck() {
  std::vector<std::reference_wrapper<const Stage>> out;
  for (const Stage& stage : stages())
    if (stage.phase == Phase::Check && stage.families.contains(FamilyId::WP)) out.emplace_back(stage);
  return out;
}

/// A stage by itself.
void stage(benchmark::State& state, const Stage& timed) {
  Way way;
  for (auto _ : state) {
    state.PauseTiming();
    way.load();
    for (const Stage& before : stagesOfCheck()) {
      if (&before == &timed) break;
      before.function[0](way.pass, 0);
    }
    state.ResumeTiming();
    timed.function[0](way.pass, 0);
  }
  if (!way.isClean()) state.SkipWithError("the source is not clean");
}

std::string japaneseText() {
  std::string text;
  for (int k = 0; k < 20000; ++k) text += "スタックに退避する GR1 を戻す\n";
  return text;
}
void decodeUtf8(benchmark::State& state) {
  const std::string text = japaneseText();
  for (auto _ : state) benchmark::DoNotOptimize(toUtf16(text));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
void decodeCp932(benchmark::State& state) {
  const std::string text = utf16ToCp932(toUtf16(japaneseText()));
  for (auto _ : state) benchmark::DoNotOptimize(cp932ToUtf16(text));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

BENCHMARK(load60000Words)->Unit(benchmark::kMillisecond);
BENCHMARK(load500000Lines)->Unit(benchmark::kMillisecond);
BENCHMARK(check)->Unit(benchmark::kMillisecond);
BENCHMARK(link)->Unit(benchmark::kMillisecond);
BENCHMARK(report)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeUtf8)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeCp932)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zelvaro::bench

int main(int argc, char** argv) {
  for (const zelvaro::Stage& s : zelvaro::bench::stagesOfCheck())
    benchmark::RegisterBenchmark(std::string(s.names.WP).c_str(),
                                 [&s](benchmark::State& state) { zelvaro::bench::stage(state, s); })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(30);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
