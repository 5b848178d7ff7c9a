// IN and OUT.
#include <gtest/gtest.h>

#include "Machines.h"
#include "comet2/Services.h"

namespace zelvaro {
namespace {

const std::string kPrompt =
    "\nOS: Input some letters from your keyboard. \n(Input Requirement by a Macro Instruction of IN) \n"
    "Press Enter key or Ctrl + Z Keys at the end of your input. \n";
const std::string kHeading = "\nOS: Output by a Macro Instruction of OUT. \n";

class Services : public ::testing::Test {
 protected:
  Tcomet2 m;
  test::ScriptedPlatform platform;

  void SetUp() override {
    m.GR[1] = 100;
    m.GR[2] = 50;
  }
  int lengthOf(const std::string& typed) {
    platform.console.clear();
    platform.typed = {typed};
    SvcCall(m, platform, kSvcIn);
    return m.Memory[50];
  }
  std::string output(std::initializer_list<int> words) {
    m.Memory[50] = static_cast<std::int32_t>(words.size());
    std::size_t adr = 100;
    for (const int word : words) m.Memory[adr++] = word;
    platform.console.clear();
    SvcCall(m, platform, kSvcOut);
    return platform.console;
  }
};

TEST_F(Services, InStoresUnits) {
  EXPECT_EQ(lengthOf("A日𠮷"), 4);
  EXPECT_EQ(platform.console, kPrompt);
  EXPECT_EQ(m.Memory[100], 0x41);
  EXPECT_EQ(m.Memory[101], 0x65E5);
  EXPECT_EQ(m.Memory[102], 0xD842);
  EXPECT_EQ(m.Memory[103], 0xDFB7);
  EXPECT_EQ(m.Memory[104], 0);
}

TEST_F(Services, InOfNothing) {
  m.Memory[50] = 9;
  m.Memory[100] = 7;
  EXPECT_EQ(lengthOf(""), 0);
  EXPECT_EQ(m.Memory[100], 7);
  m.Memory[50] = 9;
  SvcCall(m, platform, kSvcIn);  // the input has ended
  EXPECT_EQ(m.Memory[50], 0);
}

TEST_F(Services, InTakes256BytesAndNoPartOfACharacter) {
  EXPECT_EQ(lengthOf(std::string(256, 'a')), 256);
  EXPECT_EQ(m.Memory[355], 'a');
  EXPECT_EQ(lengthOf(std::string(300, 'b')), 256);
  EXPECT_EQ(m.Memory[356], 0);
  EXPECT_EQ(lengthOf(std::string(254, 'c') + "日x"), 254);
  EXPECT_EQ(lengthOf(std::string(253, 'c') + "日x"), 254);
  EXPECT_EQ(lengthOf(std::string(253, 'c') + "𠮷"), 253);
  EXPECT_EQ(platform.console, kPrompt);
  EXPECT_EQ(lengthOf(std::string("ab\0cd", 5)), 2);
}

TEST_F(Services, AddressesWrap) {
  m.GR[1] = 0xFFFF;
  m.GR[2] = -1;
  lengthOf("xyz");
  EXPECT_EQ(m.Memory[0xFFFF], 'x');  // the text goes over the length
  EXPECT_EQ(m.Memory[0], 'y');
  EXPECT_EQ(m.Memory[1], 'z');
  m.GR[2] = 50;
  m.Memory[50] = 3;
  platform.console.clear();
  SvcCall(m, platform, kSvcOut);
  EXPECT_EQ(platform.console, kHeading + "xyz\n");
}

TEST_F(Services, OutPrintsPairsAsOneCharacter) {
  EXPECT_EQ(output({0x41, 0x10042, 0xD842, 0xDFB7, 0xD842, 0x65E5}), kHeading + "AB𠮷\uFFFD日\n");
}

TEST_F(Services, OutReadsASignedLength) {
  m.Memory[50] = -1;
  SvcCall(m, platform, kSvcOut);
  EXPECT_EQ(platform.console, kHeading + "\n");
}

TEST_F(Services, OutOfManyWordsIsFewPrints) {
  struct Counting : test::ScriptedPlatform {
    int prints = 0;
    void print(std::string_view text) override {
      ++prints;
      test::ScriptedPlatform::print(text);
    }
  } counting;
  for (std::size_t adr = 0; adr < 65536; ++adr) m.Memory[adr] = adr % 2 == 0 ? 0xDFB7 : 0xD842;
  m.GR[1] = 1;
  m.GR[2] = 65600 - 65536;
  m.Memory[64] = 65535;
  SvcCall(m, counting, kSvcOut);
  EXPECT_LT(counting.prints, 50);
  std::size_t broken = 0;
  for (std::size_t at = 0; (at = counting.console.find("\uFFFD", at)) != std::string::npos; ++at) ++broken;
  EXPECT_EQ(broken, 2u);  // the pair round the length cell, and the half at the end
}

TEST_F(Services, InIntoTheRunningProgram) {
  // 0 JUMP 4; 2 SVC 0,GR3; 4 NOP, becomes RET when it has been executed once; 5 LAD GR1,4; 7 JUMP 2
  Tcomet2 machine = test::machineWith({0x6400, 4, 0xF003, 0, 0, 0x1210, 4, 0x6400, 2});
  machine.GR[2] = 60;
  machine.GR[3] = 1;
  platform.typed = {"\xE8\x84\x80"};  // U+8100, the word of RET
  const std::string shown = test::runAll<WP>(machine, platform, 100);
  EXPECT_EQ(shown, kPrompt + test::kEnd);
  EXPECT_EQ(machine.PR, 4);
}

TEST_F(Services, TheLengthIntoTheRunningProgram) {
  // as above, but address 4 becomes the length, a NOP that is none
  Tcomet2 machine = test::machineWith({0x6400, 4, 0xF003, 0, 0, 0x1220, 4, 0x6400, 2});
  machine.GR[1] = 60;
  machine.GR[3] = 1;
  platform.typed = {"a"};
  EXPECT_NE(test::runAll<WP>(machine, platform, 100).find("execute #0001 at an address of 4"),
            std::string::npos);
}

}  // namespace
}  // namespace zelvaro
