#include "comet2/Run.h"

#include <algorithm>

#include "comet2/Guards.h"
#include "comet2/RunLoop.h"

namespace zelvaro {
namespace {

constexpr Message startWords{"run-start",
                             Severity::Notice,
                             Head::Open,
                             args(),
                             {.ja = "\n演算実行 開始、しばらくお待ちください。\nCOMET2 実行中 ",
                              .en = "The comet2 starts running, please wait for a moment ...,\n"}};
constexpr Message endWords{"run-end",
                           Severity::Notice,
                           Head::Open,
                           args(),
                           {.ja = "--> 終了\n", .en = "and it has come to an end of the program\n"}};
constexpr Message runTime{
    "run-time", Severity::Notice, Head::Open, args("time"), {.ja = "{time} 実行時間 ", .en = "in {time}. "}};

constexpr std::size_t kCountsCleared = 65000;

void clearCounts(Tcomet2& m) {
  const std::size_t end = std::min(kCountsCleared, m.ExecCount.touched());
  for (std::size_t adr = 0; adr < end; ++adr) m.ExecCount[adr] = 0;
  m.MaxExecCount = 0;
}

}  // namespace

void Run3(Tcomet2& m, const RunEnvironment& env) {
  Platform& platform = env.platform;
  env.sink.say(startWords);
  platform.flush();
  m.EffAdr = m.PR = 0;
  if (env.family.countsStart == CountsStart::WithRun) clearCounts(m);
  takeStamp(env.time, platform, Stamp::RunStart);
  GuardedStores watch(m, env);
  const Stop stop = runLoop(m, Services{platform, env.sink}, watch, env.family.runLimit);
  takeStamp(env.time, platform, Stamp::RunEnd);

  reportStop(stop, m, env.sink);
  if (stop == Stop::Unregistered) return;
  if (stop != Stop::Load) env.sink.say(endWords);
  env.sink.say(runTime, DetTimeDiff_General(env.time, platform, "RunTime"));
}

RowList rowsOfRun() {
  return rows(startWords, endWords, runTime);
}

}  // namespace zelvaro
