// The guards: what stops a run, and what is left in the machine.  Their words stand in
// tests/transcripts/guards.transcript.
#include <gtest/gtest.h>

#include "Machines.h"
#include "comet2/Guards.h"
#include "comet2/Run.h"

namespace zelvaro {
namespace {

using test::kEnd;
using test::machineWith;
using test::runAll;

bool holds(const std::string& text, const char* part) {
  return text.find(part) != std::string::npos;
}

TEST(Guards, RunIntoTheEndOfMemory) {
  Tcomet2 m = machineWith({0});
  EXPECT_TRUE(runAll(m).ends_with("PR = #FDE9 = 65001(dec) \n" + kEnd));
  EXPECT_EQ(m.PR, 65001);
  EXPECT_EQ(m.ExecCount[65000], 1);
  EXPECT_EQ(m.ExecCount[65001], 0);
}

TEST(Guards, RegistersAboveSeven) {
  // bits of r and x that nobody reads are no fault: PUSH, JUMP, SVC by r; POP by x; RET by both
  Tcomet2 good = machineWith({0x7080, 5, 0x7118, 0xF0F0, 9, 0x64A0, 7, 0x81FF});
  EXPECT_TRUE(runAll(good).ends_with(kEnd));
  EXPECT_EQ(good.PR, 7);

  for (const int word : {0x1208, 0x1280, 0x7008, 0x7180, 0x6409, 0x8008, 0xF008, 0x8880, 0x9008, 0x24F0}) {
    SCOPED_TRACE(word);
    Tcomet2 m = machineWith({word, 0, 0x8100});
    EXPECT_TRUE(holds(runAll(m), "such a non-general register as GR8, GR9. \n"));
    EXPECT_EQ(m.PR, 0);
    EXPECT_EQ(m.ExecCount[0], 0);
  }
}

TEST(Guards, LoadBeyondTheLimit) {
  Tcomet2 good = machineWith({0x1010, 65000, 0x1022, 64999, 0x8100});
  good.GR[2] = 1;
  EXPECT_EQ(runAll(good), kEnd);

  for (const int x : {0, 2}) {
    Tcomet2 m = machineWith({0x1230, 7, 0x1010 | x, x == 0 ? 65001 : 65000, 0x8100});
    m.GR[1] = 5;
    m.GR[2] = 1;
    m.Fovf = 1;
    EXPECT_TRUE(runAll(m).ends_with("=0(dec). \nin 1 micro second or less. ")) << "no end is told";
    EXPECT_EQ(m.PR, 3);
    EXPECT_EQ(m.GR[1], 5);
    EXPECT_EQ(m.GR[3], 7);
    EXPECT_EQ(m.Fovf, 1);
    EXPECT_EQ(m.EffAdr, 65001);
  }
}

TEST(Guards, StoreBeyondTheLimit) {
  Tcomet2 m = machineWith({0x1112, 64999, 0x1112, 65000, 0x8100});
  m.GR[1] = 9;
  Tcomet2 good = m;
  good.Memory[2] = 0x8100;
  EXPECT_TRUE(runAll(good).ends_with(kEnd));
  EXPECT_EQ(good.Memory[64999], 9);

  EXPECT_TRUE(holds(runAll(m, 65000), "When an opcode at #0002 was executed"));
  EXPECT_EQ(m.PR, 3);
  EXPECT_EQ(m.Memory[65000], 0);
}

TEST(Guards, StoreOutsideTheReservedAreaIsWarnedOfOnce) {
  // a loop that stores at 10 + GR1 for GR1 = 0 to 4; the Reserved Area ends at 12
  Tcomet2 m = machineWith({0x1211, 1, 0x1111, 9, 0x4110, 9, 0x6100, 0, 0x8100, 5});
  const std::string said = runAll(m, 12);
  EXPECT_EQ(m.Memory[14], 5);
  EXPECT_TRUE(holds(said, "=(#0002, #1111)\nis done at the 3rd execution. \n"));
  EXPECT_EQ(said.find("\nWarning"), said.rfind("\nWarning"));
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
  Tcomet2 calls = machineWith({0x8000, 0});
  EXPECT_TRUE(runAll(calls).ends_with("in memory. " + kEnd));
  EXPECT_EQ(calls.OS, 501);
  EXPECT_EQ(calls.SP, 0xFE0A);
  EXPECT_EQ(calls.PR, 1);
}

TEST(Guards, PopOfAnEmptyStack) {
  Tcomet2 m = machineWith({0, 0x7130});
  m.GR[3] = 6;
  EXPECT_TRUE(runAll(m).ends_with("of #1 is executed. " + kEnd));
  EXPECT_EQ(m.GR[3], 6);
  EXPECT_EQ(m.SP, kFirstSP);
  EXPECT_EQ(m.PR, 1);
}

TEST(Guards, ReturnWithoutAStack) {
  Tcomet2 above = machineWith({0x8100});
  above.OS = 1;
  above.SP = 0x10000;
  EXPECT_TRUE(runAll(above).starts_with("SP=#10000 "));
  EXPECT_EQ(above.OS, 0);
  EXPECT_EQ(above.PR, 0);

  Tcomet2 unused = machineWith({0x7100, 0x8100});  // the cell 0 gives PR 0, where a POP finds nothing
  unused.OS = 1;
  unused.SP = 0xFFFE;
  runAll(unused);
  EXPECT_EQ(unused.PR, 0);
  EXPECT_EQ(unused.SP, 0x10000);
}

TEST(Guards, NopIsTheWholeCellZero) {
  Tcomet2 m = machineWith({0, 0x0008});
  EXPECT_TRUE(holds(runAll(m), "execute #0008 at an address of 1 "));
  EXPECT_EQ(m.PR, 1);
  EXPECT_EQ(m.ExecCount[1], 1);
  Tcomet2 high = machineWith({-65536, 0x8100});
  EXPECT_TRUE(holds(runAll(high), "execute #0000 at"));
}

TEST(Guards, OnlyAnUnregisteredCodeGivesAResult) {
  test::ScriptedPlatform platform;
  Tcomet2 m = machineWith({0, 0x9000});
  int result = 0;
  runAll<WP>(m, platform, 10, &result);
  EXPECT_EQ(m.ExecCount[1], 1);
  EXPECT_EQ(result, 1);
  m = machineWith({0x8100});
  runAll<WP>(m, platform, 10, &result);
  EXPECT_EQ(result, 0);
}

TEST(Guards, NarrowFamiliesSpeakInTheirWordsAndGoOnCounting) {
  test::ScriptedPlatform platform;
  Tcomet2 m = machineWith({0x0001});
  m.ExecCount[0] = 7;
  EXPECT_EQ(
      runAll<AP>(m, platform, 10),
      "An unknown error has happened in Tcomet2::Run(). NOP should be #0000. But this NOP is #0001 at an address "
      "of 0 in the comet2.  8DFA436D" +
          kEnd);
  EXPECT_EQ(m.ExecCount[0], 8);
  m.reset();
  m.IsEnglish = 0;
  EXPECT_TRUE(runAll<AP>(m, platform, 10).starts_with("--> 中止！\n"));
}

}  // namespace
}  // namespace zelvaro
