#include "comet2/Run.h"

#include <algorithm>

#include "comet2/Guards.h"
#include "comet2/RunLoop.h"
#include "diag/Say.h"

namespace zelvaro {
namespace {

constexpr Message startWords{Severity::Plain,
                             Head::None,
                             args(),
                             {.ja = "\n演算実行 開始、しばらくお待ちください。\nCOMET2 実行中 ",
                              .en = "The comet2 starts running, please wait for a moment ...,\n"}};
constexpr Message endWords{Severity::Plain,
                           Head::None,
                           args(),
                           {.ja = "--> 終了\n", .en = "and it has come to an end of the program\n"}};
constexpr Message runTime{
    Severity::Plain, Head::None, args("time"), {.ja = "{time} 実行時間 ", .en = "in {time}. "}};

constexpr std::size_t kCountsCleared = 65000;

/// The families whose run begins with counts of 0; the others leave that to the reset.
constexpr bool clearsCounts(FamilyId family) {
  return family == FamilyId::WP || family == FamilyId::NWW;
}

void clearCounts(Tcomet2& m) {
  const std::size_t end = std::min(kCountsCleared, m.ExecCount.touched());
  for (std::size_t adr = 0; adr < end; ++adr) m.ExecCount[adr] = 0;
  m.MaxExecCount = 0;
}

}  // namespace

template <class Family>
int Run3(Tcomet2& m, const RunEnvironment& env) {
  Platform& platform = env.platform;
  say<Family, startWords>(platform, m.IsEnglish);
  platform.flush();
  m.EffAdr = m.PR = 0;
  if constexpr (clearsCounts(Family::id)) clearCounts(m);
  takeStamp(env.time, platform, Stamp::RunStart);
  FamilyStoreWatch<Family> watch(m, platform, env.PrgEndAdr);
  const Stop stop = runLoop(m, platform, watch, kRunLimit<Family>);
  takeStamp(env.time, platform, Stamp::RunEnd);

  tellStop<Family>(stop, m, platform);
  if (stop == Stop::Unregistered) return 1;
  if (stop != Stop::Load) say<Family, endWords>(platform, m.IsEnglish);
  say<Family, runTime>(platform, m.IsEnglish, DetTimeDiff_General(env.time, platform, "RunTime"));
  return 0;
}

#define ZELVARO_INSTANTIATE(F) template int Run3<F>(Tcomet2&, const RunEnvironment&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
