// The guards: what stops a run, what is issued, and what stays in the machine.  AgreementTest looks everywhere.
#include <gtest/gtest.h>

#include "comet2/Guards.h"
#include "comet2/Machines.h"

namespace zelvaro {
namespace {

using test::kEnd;
using test::machineWith;
using test::runAll;

TEST(Guards, ReportTheirStopAndWhereItWas) {
  struct Case {
    Tcomet2 m;
    std::string issued;
    int PR;
    void (*before)(Tcomet2&) = [](Tcomet2&) {};
  };
  const std::string kTime = kEnd.substr(std::string("run-end ").size());
  const Case cases[] = {
      {machineWith({0}), "pr-guard(FDE9, 65001) " + kEnd, 65001},
      {machineWith({0x6400, 65000}), "pr-guard(FDEA, 65002) " + kEnd,
       65002,  // a compare, and a jump after the limit
       [](Tcomet2& m) { m.Memory[65000] = 0x4010; }},
      {machineWith({0x1010, 65000, 0x1022, 64999, 0x8100}), kEnd, 4, [](Tcomet2& m) { m.GR[2] = 1; }},
      {machineWith({0, 0x1010, 65001}),
       "load-guard load-guard-cells(1, 1010, 4112, 2, FDE9, 65001, 0000, 0) " + kTime, 2},
      {machineWith({0, 0x1012, 65000}),
       "load-guard load-guard-cells(1, 1012, 4114, 2, FDE8, 65000, 0000, 0) " + kTime, 2,
       [](Tcomet2& m) { m.GR[2] = 1; }},
      {machineWith({0x1112, 64999, 0x1112, 65000}), "store-guard(0002, 2, 2) " + kEnd, 3},
      {machineWith({0, 0x8000, 1}), "stack-guard(1, 1) " + kEnd, 2},
      {machineWith({0, 0x7130}), "empty-stack-guard(1, 1) " + kEnd, 1},
      {machineWith({0x8100}), "return-guard(10000) " + kEnd, 0, [](Tcomet2& m) { m.SP = 0x10000, m.OS = 1; }},
      {machineWith({0, 0x0008}), "nop-guard(0008, 1) " + kEnd, 1},
      {machineWith({-65536}), "nop-guard(0000, 0) " + kEnd, 0},
      {machineWith({0, 0x9000}), "unregistered-code(9000, 1, 1) ", 1},
  };
  for (const Case& c : cases) {
    Tcomet2 m = c.m;
    c.before(m);
    EXPECT_EQ(runAll(m), c.issued);
    EXPECT_EQ(m.PR, c.PR) << c.issued;
  }
}

TEST(Guards, RegistersAboveSeven) {
  // bits of r and x that nobody reads are no fault: PUSH, JUMP, SVC by r; POP by x; RET by both
  Tcomet2 good = machineWith({0x7080, 5, 0x7118, 0xF0F0, 9, 0x64A0, 7, 0x81FF});
  EXPECT_EQ(runAll(good), "svc-unknown(9) " + kEnd);
  EXPECT_EQ(good.PR, 7);
  for (const int word : {0x1208, 0x1280, 0x7008, 0x7180, 0x6409, 0x8008, 0xF008, 0x8880, 0x9008, 0x24F0}) {
    Tcomet2 m = machineWith({word, 0, 0x8100});
    EXPECT_TRUE(runAll(m).starts_with("register-guard(")) << word;
    EXPECT_EQ(m.PR, 0);
    EXPECT_EQ(m.ExecCount[0], 0);
  }
}

TEST(Guards, ARefusedInstructionHasChangedNothing) {
  Tcomet2 load = machineWith({0x1230, 7, 0x1010, 65001});
  load.GR[1] = 5;
  load.Fovf = 1;
  runAll(load);
  EXPECT_TRUE(load.GR[1] == 5 && load.GR[3] == 7 && load.Fovf == 1 && load.EffAdr == 65001);

  Tcomet2 store = machineWith({0x1112, 64999, 0x1112, 65000});
  store.GR[1] = 9;
  runAll(store, 65000);
  EXPECT_EQ(store.Memory[64999], 9);
  EXPECT_EQ(store.Memory[65000], 0);

  Tcomet2 pop = machineWith({0, 0x7130});
  pop.GR[3] = 6;
  runAll(pop);
  EXPECT_TRUE(pop.GR[3] == 6 && pop.SP == kFirstSP && pop.ExecCount[1] == 1);

  Tcomet2 calls = machineWith({0x8000, 0});
  runAll(calls);
  EXPECT_TRUE(calls.OS == 501 && calls.SP == 0xFE0A && calls.PR == 1);

  Tcomet2 unused = machineWith({0x7100, 0x8100});  // the cell 0 gives PR 0, where a POP finds nothing
  unused.OS = 1;
  unused.SP = 0xFFFE;
  runAll(unused);
  EXPECT_TRUE(unused.PR == 0 && unused.SP == 0x10000);
}

TEST(Guards, TheStackHas500Words) {
  // PUSH and count in a loop, 500 times and 501 times
  for (const int times : {500, 501}) {
    Tcomet2 m = machineWith({0x7001, 0, 0x1211, 1, 0x4110, 9, 0x6100, 0, 0x8100, times});
    EXPECT_EQ(runAll(m) == kEnd, times == 500);
    EXPECT_EQ(m.SP, 0xFFFF - times);
    EXPECT_EQ(m.StackArea[500], 499);
    EXPECT_EQ(m.PR, times == 500 ? 8 : 1);
  }
}

TEST(Guards, StoresOutsideTheReservedAreaAreWarnedOfOnceOrAtEachNewAddress) {
  // a loop that stores at 10 + GR1 for GR1 = 0 to 4; the Reserved Area ends at 12
  const Tcomet2 loop = machineWith({0x1211, 1, 0x1111, 9, 0x4110, 9, 0x6100, 0, 0x8100, 5});
  Tcomet2 m = loop;
  EXPECT_EQ(runAll(m, 12), "store-outside(12, 11, 12, 0002, 1111, 1111, 3, 3rd) " + kEnd);
  EXPECT_EQ(m.Memory[14], 5);
  m = loop;
  m.LastAdr = 12;
  EXPECT_EQ(runAll(m, 12, FamilyId::NH),
            "store-outside(12, 12, 13, 0002, 1111, 1111, 4, 4th) "
            "store-outside(13, 13, 14, 0002, 1111, 1111, 5, 5th) " +
                kEnd);
  EXPECT_EQ(m.LastAdr, 14);
}

TEST(Guards, WhereTheCountsBegin) {
  for (const FamilyId id : {FamilyId::WP, FamilyId::AP, FamilyId::NH}) {
    Tcomet2 m = machineWith({0x8100});
    m.ExecCount[0] = 7;
    runAll(m, 10, id);
    EXPECT_EQ(m.ExecCount[0], family(id).countsStart == CountsStart::WithRun ? 1 : 8);
  }
}

}  // namespace
}  // namespace zelvaro
