// What the comparison with the slow machine cannot show, since both share it or neither has it: arguments of guards
// that no source reaches, counts, IN and OUT.  The other guards are in the findings.
#include <gtest/gtest.h>

#include "comet2/Run.h"
#include "comet2/Services.h"
#include "support/Recorder.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

class MachineTest : public ::testing::Test {
 protected:
  Tcomet2 m;
  test::ScriptedPlatform platform;
  test::Recorder sink;

  /// Writes words from an address on.
  void put(std::size_t adr, std::initializer_list<int> words) {
    for (const int word : words) m.Memory[adr++] = word;
  }
  /// Runs to the end and returns what was issued.
  std::string run(FamilyId id = FamilyId::WP) {
    TimeData time;
    Run3(m, {platform, sink, time, family(id), 100});
    return sink.taken();
  }
  /// The length that an IN of a line leaves.
  int read(const std::string& line) {
    platform.typed = {line};
    SvcCall(m, {platform, sink}, kSvcIn);
    return std::as_const(m).Memory[static_cast<std::size_t>(m.GR[2] & 0xFFFF)];
  }
  std::string output() {
    platform.console.clear();
    SvcCall(m, {platform, sink}, kSvcOut);
    return platform.console;
  }
};

TEST_F(MachineTest, GuardsThatNoSourceReaches) {
  const std::string kTime = "run-time(1 micro second or less) ";
  m.GR[2] = 1;
  put(0, {0, 0x1012, 65000});
  put(65000, {7, 8});
  EXPECT_EQ(run(), "run-start load-guard load-guard-cells(1, 1012, 4114, 2, FDE8, 65000, 0007, 7) " + kTime);
  put(0, {-65536});
  EXPECT_EQ(run(), "run-start nop-guard(0000, 0) run-end " + kTime);
  EXPECT_EQ(m.EffAdr, 0) << "that of the run before";
  m.SP = 0x10000;
  m.OS = 1;
  put(0, {0x8100});
  EXPECT_EQ(run(), "run-start return-guard(10000) run-end " + kTime);
  put(0, {0x9000});
  EXPECT_EQ(run(), "run-start unregistered-code(9000, 0, 0) ");
}

TEST_F(MachineTest, CountsOfARunAndTheReset) {
  put(0, {0x1210, 0, 0x1211, 1, 0x4110, 9, 0x6100, 2, 0x8100, 400});
  for (const FamilyId id : {FamilyId::WP, FamilyId::AP, FamilyId::NH}) {
    m.ExecCount[8] = 7;
    run(id);
    EXPECT_EQ(m.ExecCount[8], family(id).countsStart == CountsStart::WithRun ? 1 : 8);
  }
  m.ExecCount[kGreatestImage] = 9999;
  run();
  m.setMaxExecCount();
  EXPECT_EQ(m.MaxExecCount, 400);
  EXPECT_EQ(m.ExecCountDigits, 3);  // log10(400) is 2.6
  m.LineOfAddress[9] = m.StackArea[1] = 5;
  m.reset();
  m.setMaxExecCount();
  EXPECT_TRUE(m.MaxExecCount == 0 && m.Memory[9] == 0 && m.LineOfAddress[9] == -1 && m.StackArea[1] == 0);
}

TEST_F(MachineTest, InTakes256BytesAndNoPartOfACharacter) {
  m.GR = {0, 100, 50};
  const std::pair<std::string, int> cases[] = {
      {"A日𠮷", 4},
      {"", 0},
      {"a\xFF", 0},
      {std::string(256, 'a'), 256},
      {std::string(300, 'b'), 256},
      {std::string(254, 'c') + "日x", 254},
      {std::string(253, 'c') + "日x", 254},
      {std::string(253, 'c') + "𠮷", 253},
      {std::string("ab\0cd", 5), 2},
  };
  for (const auto& [line, length] : cases) {
    EXPECT_EQ(read(line), length) << line;
    EXPECT_EQ(sink.taken(), line == "a\xFF" ? "in-prompt in-not-text " : "in-prompt ");
  }
  EXPECT_EQ(m.Memory[356], 0);
  SvcCall(m, {platform, sink}, kSvcIn);  // the input has ended
  EXPECT_EQ(m.Memory[50], 0);
  m.GR = {0, 0xFFFF, -1};
  read("xyz");
  EXPECT_TRUE(m.Memory[0xFFFF] == 'x' && m.Memory[1] == 'z')
      << "addresses wrap; the text is after the length";
}

TEST_F(MachineTest, OutPrintsPairsAsOneCharacterAndWraps) {
  m.GR = {0, 0xFFFE, 50};
  put(0xFFFE, {0x41, 0x10042});
  put(0, {0xD842, 0xDFB7, 0xD842, 0x65E5});
  put(50, {6});
  EXPECT_EQ(output(), "AB𠮷\uFFFD日\n");
  put(50, {-1});
  EXPECT_EQ(output(), "\n");
  EXPECT_EQ(sink.text, "out-heading out-heading ");
  // many words are printed in parts, none of which cuts a pair
  for (std::size_t adr = 0; adr < 65536; ++adr) m.Memory[adr] = adr % 2 == 0 ? 0xDFB7 : 0xD842;
  m.GR = {0, 0, 65535};
  put(65535, {65535});
  std::string pairs = "\uFFFD";
  for (int i = 0; i < 32767; ++i) pairs += "𠮷";
  EXPECT_EQ(output(), pairs + "\n");
}

}  // namespace
}  // namespace zelvaro
