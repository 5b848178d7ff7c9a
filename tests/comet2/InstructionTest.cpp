// The edges of operations and shifts: registers and flags.  The run loop's results are those written here;
// AgreementTest compares everything else.
#include <gtest/gtest.h>

#include "Machines.h"

namespace zelvaro {
namespace {

using test::runAll;

constexpr int kOperand = 20;  ///< address of the operand of the memory forms

/// One operation on GR1: what it finds and what it leaves.
struct OperationCase {
  const char* name;
  int code;  ///< of the form r,adr; the form r1,r2 is this and #04
  int gr, operand;
  int stored;  ///< the whole integer in GR1
  int Fovf, Fsign, Fzero;
};

const OperationCase kOperations[] = {
    {"LD of #8000", 0x10, 5, 0x8000, -32768, 0, 1, 0},
    {"LD of 0", 0x10, 5, 0, 0, 0, 0, 1},
    {"ADDA #7FFF + 1", 0x20, 0x7FFF, 1, -32768, 1, 1, 0},
    {"ADDA #8000 + #8000", 0x20, 0x8000, 0x8000, 0, 1, 0, 1},
    {"ADDA 2 - 3", 0x20, 2, 0xFFFD, -1, 0, 1, 0},
    {"SUBA #8000 - 1", 0x21, 0x8000, 1, 0x7FFF, 1, 0, 0},
    {"SUBA 0 - #8000", 0x21, 0, 0x8000, -32768, 1, 1, 0},
    {"ADDL #FFFF + 1", 0x22, 0xFFFF, 1, 0, 1, 0, 1},
    {"ADDL #7FFF + 1 is stored unsigned", 0x22, 0x7FFF, 1, 0x8000, 0, 1, 0},
    {"SUBL 0 - 1", 0x23, 0, 1, 0xFFFF, 1, 1, 0},
    {"SUBL 5 - 5", 0x23, 5, 5, 0, 0, 0, 1},
    {"AND", 0x30, 0x8001, 0xFFFF, 0x8001, 0, 1, 0},
    {"OR on whole integers", 0x31, -32768, 1, -32767, 0, 1, 0},
    {"XOR on whole integers", 0x32, -1, 0xFFFF, -65536, 0, 0, 1},
    {"CPA below", 0x40, 0x8000, 1, 0x8000, 0, 1, 0},
    {"CPA equal, sign-extended or not", 0x40, -1, 0xFFFF, -1, 0, 0, 1},
    {"CPL above", 0x41, 0x8000, 1, 0x8000, 0, 0, 0},
    {"CPL below", 0x41, 1, 0x8000, 1, 0, 1, 0},
};

/// The shifts: the effective address is the count.
const OperationCase kShifts[] = {
    {"SLA #4000 by 1", 0x50, 0x4000, 1, 0, 1, 0, 1},
    {"SLA #C001 by 1", 0x50, 0xC001, 1, -32766, 1, 1, 0},
    {"SLA 1 by 16", 0x50, 1, 16, 0, 0, 0, 1},
    {"SLA 1 by 15", 0x50, 1, 15, 0, 1, 0, 1},
    {"SLA #8001 by 16", 0x50, 0x8001, 16, -32768, 0, 1, 0},
    {"SLA by 0", 0x50, 0x8001, 0, -32767, 0, 1, 0},
    {"SRA #8000 by 15", 0x51, 0x8000, 15, -1, 0, 1, 0},
    {"SRA #8000 by 16", 0x51, 0x8000, 16, -1, 1, 1, 0},
    {"SRA #4000 by 65535", 0x51, 0x4000, 0xFFFF, 0, 0, 0, 1},
    {"SRA 3 by 1", 0x51, 3, 1, 1, 1, 0, 0},
    {"SLL #8000 by 1", 0x52, 0x8000, 1, 0, 1, 0, 1},
    {"SLL #4000 by 1 is stored unsigned", 0x52, 0x4000, 1, 0x8000, 0, 1, 0},
    {"SLL 1 by 16", 0x52, 1, 16, 0, 1, 0, 1},
    {"SLL #FFFF by 17", 0x52, 0xFFFF, 17, 0, 0, 0, 1},
    {"SRL 1 by 1", 0x53, 1, 1, 0, 1, 0, 1},
    {"SRL #8000 by 16", 0x53, 0x8000, 16, 0, 1, 0, 1},
    {"SRL #8000 by 0 is stored signed", 0x53, 0x8000, 0, -32768, 0, 1, 0},
    {"SRL #FFFF by 17", 0x53, 0xFFFF, 17, 0, 0, 0, 1},
};

Tcomet2 before(const OperationCase& c) {
  Tcomet2 m;
  m.GR[1] = c.gr;
  m.Fovf = 1;  // must not survive
  return m;
}

void expectAfter(const Tcomet2& m, const OperationCase& c, const char* form) {
  SCOPED_TRACE(std::string(c.name) + form);
  EXPECT_EQ(m.GR[1], c.stored);
  EXPECT_EQ(m.Fovf, c.Fovf);
  EXPECT_EQ(m.Fsign, c.Fsign);
  EXPECT_EQ(m.Fzero, c.Fzero);
}

TEST(Instructions, OperationsInAllForms) {
  for (const OperationCase& c : kOperations) {
    for (const int x : {0, 2}) {
      Tcomet2 m = before(c);
      m.GR[2] = 3;
      m.Memory[0] = c.code << 8 | 0x10 | x;
      m.Memory[1] = x == 0 ? kOperand : kOperand - 3;
      m.Memory[2] = 0x8100;
      m.Memory[kOperand] = c.operand;
      runAll(m);
      expectAfter(m, c, x == 0 ? ", r,adr" : ", r,adr,x");
      EXPECT_EQ(m.PR, 2);
      EXPECT_EQ(m.EffAdr, kOperand);
    }
    Tcomet2 m = before(c);
    m.GR[7] = c.operand;
    m.Memory[0] = (c.code | 0x04) << 8 | 0x17;
    m.Memory[1] = 0x8100;
    runAll(m);
    expectAfter(m, c, ", r1,r2");
    EXPECT_EQ(m.PR, 1);
  }
}

TEST(Instructions, Shifts) {
  for (const OperationCase& c : kShifts) {
    for (const int x : {0, 2}) {
      Tcomet2 m = before(c);
      m.GR[2] = c.operand;
      m.Memory[0] = c.code << 8 | 0x10 | x;
      m.Memory[1] = x == 0 ? c.operand : 0;
      m.Memory[2] = 0x8100;
      runAll(m);
      expectAfter(m, c, x == 0 ? ", r,adr" : ", r,adr,x");
    }
  }
}

TEST(Instructions, LadWrapsAndChangesNoFlag) {
  Tcomet2 m = test::machineWith({0x1212, 0xFFFF, 0x1230, 0x8000, 0x8100});
  m.GR[2] = 1;
  m.Fsign = m.Fovf = 1;
  runAll(m);
  EXPECT_EQ(m.GR[1], 0);
  EXPECT_EQ(m.GR[3], 0x8000);
  EXPECT_EQ(m.Fsign, 1);
  EXPECT_EQ(m.Fzero, 0);
  EXPECT_EQ(m.Fovf, 1);
}

TEST(Instructions, StoresTheWholeIntegerAnywhereWithoutIndex) {
  Tcomet2 m = test::machineWith({0x1110, 0xFFFF, 0x8100});
  m.GR[1] = -65536;
  EXPECT_EQ(runAll(m, 3), test::kEnd);
  EXPECT_EQ(m.Memory[0xFFFF], -65536);
}

TEST(Instructions, MaxExecCount) {
  Tcomet2 m = test::machineWith({0x1210, 0, 0x1211, 1, 0x4110, 9, 0x6100, 2, 0x8100, 400});
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
