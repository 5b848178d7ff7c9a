// IN and OUT.
#include <gtest/gtest.h>

#include "comet2/Machines.h"
#include "comet2/Services.h"

namespace zelvaro {
namespace {

class ServicesTest : public ::testing::Test {
 protected:
  Tcomet2 m;
  test::ScriptedPlatform platform;
  test::Recorder sink;

  void SetUp() override {
    m.GR[1] = 100;
    m.GR[2] = 50;
  }
  int lengthOf(const std::string& typed) {
    platform.typed = {typed};
    SvcCall(m, {platform, sink}, kSvcIn);
    return m.Memory[50];
  }
  std::string output(std::initializer_list<int> words) {
    m.Memory[50] = static_cast<std::int32_t>(words.size());
    std::size_t adr = 100;
    for (const int word : words) m.Memory[adr++] = word;
    return output();
  }
  std::string output() {
    platform.console.clear();
    SvcCall(m, {platform, sink}, kSvcOut);
    return platform.console;
  }
};

TEST_F(ServicesTest, InStoresUnitsAndTheirNumber) {
  EXPECT_EQ(lengthOf("A日𠮷"), 4);
  const int units[] = {0x41, 0x65E5, 0xD842, 0xDFB7, 0};
  for (std::size_t i = 0; i < std::size(units); ++i) EXPECT_EQ(m.Memory[100 + i], units[i]);
  EXPECT_EQ(lengthOf(""), 0);
  EXPECT_EQ(m.Memory[100], 0x41);
  m.Memory[50] = 9;
  SvcCall(m, {platform, sink}, kSvcIn);  // the input has ended
  EXPECT_EQ(m.Memory[50], 0);
  EXPECT_EQ(sink.taken(), "in-prompt in-prompt in-prompt ");
  EXPECT_EQ(lengthOf("a\xFF"), 0);
  EXPECT_EQ(sink.taken(), "in-prompt in-not-text ");
}

TEST_F(ServicesTest, InTakes256BytesAndNoPartOfACharacter) {
  EXPECT_EQ(lengthOf(std::string(256, 'a')), 256);
  EXPECT_EQ(m.Memory[355], 'a');
  EXPECT_EQ(lengthOf(std::string(300, 'b')), 256);
  EXPECT_EQ(m.Memory[356], 0);
  EXPECT_EQ(lengthOf(std::string(254, 'c') + "日x"), 254);
  EXPECT_EQ(lengthOf(std::string(253, 'c') + "日x"), 254);
  EXPECT_EQ(lengthOf(std::string(253, 'c') + "𠮷"), 253);
  EXPECT_EQ(lengthOf(std::string("ab\0cd", 5)), 2);
}

TEST_F(ServicesTest, AddressesWrap) {
  m.GR[1] = 0xFFFF;
  m.GR[2] = -1;
  lengthOf("xyz");
  EXPECT_EQ(m.Memory[0xFFFF], 'x');  // the text goes over the length
  EXPECT_EQ(m.Memory[1], 'z');
  m.GR[2] = 50;
  m.Memory[50] = 3;
  EXPECT_EQ(output(), "xyz\n");
}

TEST_F(ServicesTest, OutPrintsPairsAsOneCharacterAndNothingForANegativeLength) {
  EXPECT_EQ(output({0x41, 0x10042, 0xD842, 0xDFB7, 0xD842, 0x65E5}), "AB𠮷\uFFFD日\n");
  m.Memory[50] = -1;
  EXPECT_EQ(output(), "\n");
  EXPECT_EQ(sink.text, "out-heading out-heading ");
}

TEST_F(ServicesTest, OutOfManyWordsIsFewPrintsThatCutNoPair) {
  struct Counting : test::ScriptedPlatform {
    int prints = 0;
    void print(std::string_view text) override {
      ++prints;
      test::ScriptedPlatform::print(text);
    }
  } counting;
  for (std::size_t adr = 0; adr < 65536; ++adr) m.Memory[adr] = adr % 2 == 0 ? 0xDFB7 : 0xD842;
  m.GR[1] = 1;
  m.GR[2] = 64;
  m.Memory[64] = 65535;
  SvcCall(m, {counting, sink}, kSvcOut);
  EXPECT_LT(counting.prints, 50);
  std::size_t broken = 0;
  for (std::size_t at = 0; (at = counting.console.find("\uFFFD", at)) != std::string::npos; ++at) ++broken;
  EXPECT_EQ(broken, 2u);  // the pair round the length cell, and the half at the end
}

TEST_F(ServicesTest, InIntoTheRunningProgram) {
  // 0 JUMP 4; 2 SVC 0,GR3; 4 NOP, executed once; 5 LAD GR1,4 or GR2,4; 7 JUMP 2
  Tcomet2 text = test::machineWith({0x6400, 4, 0xF003, 0, 0, 0x1210, 4, 0x6400, 2});
  Tcomet2 length = test::machineWith({0x6400, 4, 0xF003, 0, 0, 0x1220, 4, 0x6400, 2});
  text.GR[2] = length.GR[1] = 60;
  text.GR[3] = length.GR[3] = 1;
  platform.typed = {"\xE8\x84\x80", "a"};  // U+8100, the word of RET; a length of 1, which is no NOP
  EXPECT_EQ(test::runAll(text, platform, 100), "in-prompt " + test::kEnd);
  EXPECT_EQ(text.PR, 4);
  EXPECT_EQ(test::runAll(length, platform, 100), "in-prompt nop-guard(0001, 4) " + test::kEnd);
}

}  // namespace
}  // namespace zelvaro
