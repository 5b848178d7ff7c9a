// How long the parts of the way from a source to its reports take on a big source.
#include <benchmark/benchmark.h>

#include "BigSource.h"
#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"
#include "data/Data.h"
#include "link/Link.h"
#include "report/Report.h"
#include "shell/Session.h"
#include "statements/Statements.h"
#include "structure/Structure.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro::bench {
namespace {

constexpr int kWords = 60000;

/// A session with the big source beside it, taken as far as a measurement needs.
class Way {
 public:
  explicit Way(int lines = 0) { platform_.files["big.txt"] = bigSource(kWords, lines); }

  void load() {
    s.b.clearTables();
    for (TMsgBase* object :
         {static_cast<TMsgBase*>(&s.sh), static_cast<TMsgBase*>(&s.cs), static_cast<TMsgBase*>(&s.b)})
      object->clearTallies();
    platform_.console.clear();
    loadSource<WP>(a, s.moziCodeData, "big.txt", 0);
  }
  void structure() {
    edit<WP>(a);
    StartEnd10<WP>(a);
    StartEnd20<WP>(a);
    StartEnd<WP>(a, 0);
    CutComments<WP>(a, 0);
    CkPrgName<WP>(a, 0);
    CkPrgNameDouble<WP>(a);
  }
  void statements() { OpCkLoop<WP>(a); }
  void link() {
    s.m.reset();
    Link31<WP>(a, s.m);
  }
  void report() { DspRegMry<WP>(std::string(ResultantRegFile), s.m, s.b, s.timeData, platform_); }
  bool isClean() const { return a.errors() == 0; }
  bool isLinked() const { return s.b.PrgEndAdr > kWords / 2; }

 private:
  test::ScriptedPlatform platform_;

 public:
  TSession s{platform_};
  Assembly a = s.assembly();
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
void structure(benchmark::State& state) {
  Way way;
  measure(state, way, &Way::structure, &Way::load);
}
void statements(benchmark::State& state) {
  Way way;
  measure(state, way, &Way::statements, &Way::load, &Way::structure);
}
void link(benchmark::State& state) {
  Way way;
  measure(state, way, &Way::link, &Way::load, &Way::structure, &Way::statements);
}
void report(benchmark::State& state) {
  Way way;
  way.load();
  way.structure();
  way.statements();
  way.link();
  if (!way.isLinked()) return state.SkipWithError("the source did not link");
  measure(state, way, &Way::report);
  state.SetItemsProcessed(state.iterations() * (way.s.b.PrgEndAdr + 10));
}

// The stages by themselves, in the order of the rows of a program.
struct Stage {
  const char* name;
  void (*run)(Assembly&);
};
template <auto Function>
void ofFile(Assembly& a) {
  (void)Function(a);
}
template <auto Function>
void ofProgram(Assembly& a) {
  (void)Function(a, 0);
}

constexpr Stage kStages[] = {
    {"edit", ofFile<edit<WP>>},
    {"StartEnd10", ofFile<StartEnd10<WP>>},
    {"StartEnd20", ofFile<StartEnd20<WP>>},
    {"StartEnd", ofProgram<StartEnd<WP>>},
    {"CutComments", ofProgram<CutComments<WP>>},
    {"CkPrgName", ofProgram<CkPrgName<WP>>},
    {"CkPrgNameDouble", ofFile<CkPrgNameDouble<WP>>},
    {"Label35G", ofProgram<Label35G<WP>>},
    {"TakeOutLabelStr", ofProgram<TakeOutLabelStr<WP>>},
    {"CkOpStr", ofProgram<CkOpStr<WP>>},
    {"SearchApostForNonCharConstOP", ofProgram<SearchApostForNonCharConstOP<WP>>},
    {"CopyOprndComToWork", ofProgram<CopyOprndComToWork<WP>>},
    {"edit30c", ofProgram<edit30c<WP>>},
    {"edit50", ofProgram<edit50<WP>>},
    {"SplitComment", ofProgram<SplitComment<WP>>},
    {"CkLiteral15", ofProgram<CkLiteral15<WP>>},
    {"CkStrConstLiteral", ofProgram<CkStrConstLiteral<WP>>},
    {"TrimZenOprndCom", ofProgram<TrimZenOprndCom<WP>>},
    {"TrimOprndCom", ofProgram<TrimOprndCom<WP>>},
    {"CopyOprndComStrToBuffer", ofProgram<CopyOprndComStrToBuffer<WP>>},
    {"operand20m15", ofProgram<operand20m15<WP>>},
    {"ExtractAllOprnds", ofProgram<ExtractAllOprnds<WP>>},
    {"OpCk", ofProgram<OpCk<WP>>},
    {"SetMryInAtDS", ofProgram<SetMryInAtDS<WP>>},
    {"SetMryInAtDC", ofProgram<SetMryInAtDC<WP>>},
    {"AdrCk53", ofProgram<AdrCk53<WP>>},
    {"CkLabelInUse", ofFile<CkLabelInUse<WP>>},
    {"CkPrgNameInUse", ofFile<CkPrgNameInUse<WP>>},
};

void stage(benchmark::State& state, const Stage& timed) {
  Way way;
  for (auto _ : state) {
    state.PauseTiming();
    way.load();
    for (const Stage* s = kStages; s != &timed; ++s) s->run(way.a);
    state.ResumeTiming();
    timed.run(way.a);
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
BENCHMARK(structure)->Unit(benchmark::kMillisecond);
BENCHMARK(statements)->Unit(benchmark::kMillisecond);
BENCHMARK(link)->Unit(benchmark::kMillisecond);
BENCHMARK(report)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeUtf8)->Unit(benchmark::kMillisecond);
BENCHMARK(decodeCp932)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zelvaro::bench

int main(int argc, char** argv) {
  for (const zelvaro::bench::Stage& s : zelvaro::bench::kStages)
    benchmark::RegisterBenchmark(s.name, [&s](benchmark::State& state) { zelvaro::bench::stage(state, s); })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(30);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
