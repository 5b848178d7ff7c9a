// Places where decoding once could go wrong, each on its own; AgreementTest looks everywhere.
#include <gtest/gtest.h>

#include "Machines.h"
#include "comet2/RunLoop.h"

namespace zelvaro {
namespace {

using test::kEnd;
using test::machineWith;
using test::runAll;

TEST(RunLoop, ALoadWhoseAddressIsRewrittenAcrossTheLimit) {
  // 0 LD GR1,20; 2 LAD GR2,1,GR2; 4 CPL GR2,19; 6 JZE 13; 8 ST GR3,1; 10 JUMP 0; 13 RET
  const Tcomet2 m = machineWith(
      {0x1010, 20, 0x1222, 1, 0x4120, 19, 0x6300, 13, 0x1130, 1, 0x6400, 0, 0, 0x8100, 0, 0, 0, 0, 0, 3});
  Tcomet2 within = m;
  within.GR[3] = 65000;
  EXPECT_EQ(runAll(within), kEnd);
  Tcomet2 beyond = m;
  beyond.GR[3] = 65001;
  EXPECT_NE(runAll(beyond).find("Memory[65001]="), std::string::npos);
  EXPECT_EQ(beyond.PR, 1);
  EXPECT_EQ(beyond.ExecCount[0], 2);
}

TEST(RunLoop, NothingIsExecutedBehindTheLimit) {
  // the compare at the last address, and a jump on it where the run may not go
  Tcomet2 m = machineWith({0x6400, 65000});
  m.Memory[65000] = 0x4010;
  m.Memory[65001] = 5;
  m.Memory[65002] = 0x6200;
  m.Memory[5] = 7;
  EXPECT_NE(runAll(m).find("PR = #FDEA = 65002(dec)"), std::string::npos);
  EXPECT_EQ(m.ExecCount[65000], 1);
  EXPECT_EQ(m.ExecCount[65002], 0);
}

TEST(RunLoop, CountsGoOnAfterAStop) {
  Tcomet2 m = machineWith({0x1211, 1, 0x6400, 0});
  test::ScriptedPlatform platform;
  FamilyStoreWatch<WP> watch(m, platform, 10);
  for (int run = 0; run < 2; ++run) {
    std::int64_t steps = 10;
    EXPECT_EQ(runLoop(m, platform, watch, tMaxMemory, steps), Stop::Steps);
    EXPECT_EQ(steps, 0);
  }
  EXPECT_EQ(m.GR[1], 10);
  EXPECT_EQ(m.ExecCount[0], 10);
  EXPECT_EQ(m.ExecCount[2], 10);
}

}  // namespace
}  // namespace zelvaro
