// The edges of operations and shifts: registers and flags.  The run loop's results are those written here;
// AgreementTest compares everything else.
#include <gtest/gtest.h>

#include "comet2/Machines.h"

namespace zelvaro {
namespace {

using test::machineWith;
using test::runAll;

/// One instruction on GR1: what it finds and what it leaves.
struct Case {
  const char* name;
  int code;  ///< of the form r,adr; the form r1,r2 of an operation is this and #04
  int gr, operand;
  int stored;              ///< the whole integer in GR1
  const char* flags = "";  ///< those of O, S and Z that are 1
};

const Case kOperations[] = {
    {"LD of #8000", 0x10, 5, 0x8000, -32768, "S"},
    {"ADDA #7FFF + 1", 0x20, 0x7FFF, 1, -32768, "OS"},
    {"ADDA #8000 + #8000", 0x20, 0x8000, 0x8000, 0, "OZ"},
    {"ADDA 2 - 3", 0x20, 2, 0xFFFD, -1, "S"},
    {"SUBA #8000 - 1", 0x21, 0x8000, 1, 0x7FFF, "O"},
    {"SUBA 0 - #8000", 0x21, 0, 0x8000, -32768, "OS"},
    {"ADDL #FFFF + 1", 0x22, 0xFFFF, 1, 0, "OZ"},
    {"ADDL #7FFF + 1 is stored unsigned", 0x22, 0x7FFF, 1, 0x8000, "S"},
    {"SUBL 0 - 1", 0x23, 0, 1, 0xFFFF, "OS"},
    {"OR on whole integers", 0x31, -32768, 1, -32767, "S"},
    {"XOR on whole integers", 0x32, -1, 0xFFFF, -65536, "Z"},
    {"CPA equal, sign-extended or not", 0x40, -1, 0xFFFF, -1, "Z"},
    {"CPL below", 0x41, 1, 0x8000, 1, "S"},
};

/// The effective address is the count.
const Case kShifts[] = {
    {"SLA #4000 by 1", 0x50, 0x4000, 1, 0, "OZ"},
    {"SLA #C001 by 1", 0x50, 0xC001, 1, -32766, "OS"},
    {"SLA 1 by 15", 0x50, 1, 15, 0, "OZ"},
    {"SLA #8001 by 16", 0x50, 0x8001, 16, -32768, "S"},
    {"SRA #8000 by 16", 0x51, 0x8000, 16, -1, "OS"},
    {"SRA #4000 by 65535", 0x51, 0x4000, 0xFFFF, 0, "Z"},
    {"SRA 3 by 1", 0x51, 3, 1, 1, "O"},
    {"SLL #8000 by 1", 0x52, 0x8000, 1, 0, "OZ"},
    {"SLL #4000 by 1 is stored unsigned", 0x52, 0x4000, 1, 0x8000, "S"},
    {"SLL #FFFF by 17", 0x52, 0xFFFF, 17, 0, "Z"},
    {"SRL #8000 by 0 is stored signed", 0x53, 0x8000, 0, -32768, "S"},
    {"SRL #FFFF by 17", 0x53, 0xFFFF, 17, 0, "Z"},
};

void expectAfter(Tcomet2 m, const Case& c) {
  SCOPED_TRACE(c.name);
  m.GR[1] = c.gr;
  m.GR[7] = c.operand;
  m.Fovf = 1;  // must not survive
  EXPECT_EQ(runAll(m), test::kEnd);
  EXPECT_EQ(m.GR[1], c.stored);
  const std::string flags =
      std::string(m.Fovf == 1 ? "O" : "") + (m.Fsign == 1 ? "S" : "") + (m.Fzero == 1 ? "Z" : "");
  EXPECT_EQ(flags, c.flags);
}

TEST(Instructions, OperationsAndShiftsInAllForms) {
  for (const Case& c : kOperations) {
    expectAfter(machineWith({c.code << 8 | 0x10, 3, 0x8100, c.operand}), c);
    expectAfter(machineWith({0x1230, 3, c.code << 8 | 0x13, 2, 0x8100, c.operand}), c);
    expectAfter(machineWith({(c.code | 0x04) << 8 | 0x17, 0x8100}), c);
  }
  for (const Case& c : kShifts) {
    expectAfter(machineWith({c.code << 8 | 0x10, c.operand, 0x8100}), c);
    expectAfter(machineWith({0x1220, c.operand, c.code << 8 | 0x12, 0, 0x8100}), c);
  }
}

TEST(Instructions, LadWrapsAndChangesNoFlag) {
  Tcomet2 m = machineWith({0x1212, 0xFFFF, 0x1230, 0x8000, 0x8100});
  m.GR[2] = m.Fsign = m.Fovf = 1;
  runAll(m);
  EXPECT_EQ(m.GR[1], 0);
  EXPECT_EQ(m.GR[3], 0x8000);
  EXPECT_TRUE(m.Fsign == 1 && m.Fzero == 0 && m.Fovf == 1);
}

TEST(Instructions, StoreTheWholeIntegerAnywhereWithoutIndex) {
  Tcomet2 m = machineWith({0x1110, 0xFFFF, 0x8100});
  m.GR[1] = -65536;
  EXPECT_EQ(runAll(m, 3), test::kEnd);
  EXPECT_EQ(m.Memory[0xFFFF], -65536);
}

TEST(Instructions, CountsOfARunAndTheReset) {
  Tcomet2 m = machineWith({0x1210, 0, 0x1211, 1, 0x4110, 9, 0x6100, 2, 0x8100, 400});
  runAll(m);
  m.setMaxExecCount();
  EXPECT_EQ(m.MaxExecCount, 400);
  EXPECT_EQ(m.ExecCountDigits, 3);  // log10(400) is 2.6
  EXPECT_EQ(m.ExecCount[6], 400);
  EXPECT_EQ(m.ExecCount[8], 1);
  EXPECT_EQ(m.ExecCount[3], 0);
  m.reset();
  m.setMaxExecCount();
  EXPECT_EQ(m.MaxExecCount, 0);
  EXPECT_EQ(m.Memory[9], 0);
  EXPECT_EQ(m.LineOfAddress[9], -1);
}

}  // namespace
}  // namespace zelvaro
