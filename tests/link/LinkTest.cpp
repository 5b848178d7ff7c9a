// The link: images worked out by hand, layout, line map, limits, guards.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "link/Link.h"
#include "link/Linked.h"
#include "link/SetMemory10.h"

namespace zelvaro {
namespace {

using test::Linked;
using ::testing::ElementsAreArray;

constexpr const char* kTwoPrograms =
    "MAIN   START BEGIN\n"
    "COUNT  DC 1,-1,#00FF,'A''B',COUNT,70000\n"
    "ZERO   DS 0\n"
    "BEGIN  LD GR1,=5\n"
    "       CALL SUB\n"
    "       LAD GR2,ZERO,GR1\n"
    "       LD GR3,='Hi'\n"
    "       ST GR1,LAST\n"
    "\n"
    "; a comment\n"
    "       ADDL GR7,GR0\n"
    "LAST   RET\n"
    "       END\n"
    "SUB    START\n"
    "       RPUSH\n"
    "       IN BUF,LEN\n"
    "       OUT BUF,LEN\n"
    "       RPOP\n"
    "       PUSH =5\n"
    "       POP GR3\n"
    "       NOP\n"
    "       JUMP MAIN\n"
    "BUF    DS 2\n"
    "LEN    DC 'あ'\n"
    "       RET\n"
    "       END\n";

const std::vector<std::int32_t> kMainImage = {
    0x6400, 10,                                                // START BEGIN
    1,      -1,  0xFF,   'A',    '\'',   'B', 2,      0x1170,  // COUNT; 70000 is cut
    0x1010, 22,  0x8000, 25,     0x1221, 10,  0x1030, 23,      // BEGIN
    0x1110, 21,  0x2670, 0x8100,                               //
    5,      'H', 'i'};                                         // the literals
const std::vector<std::int32_t> kSubImage = {
    0,  // START
    0x7001, 0,      0x7002, 0,      0x7003, 0,      0x7004, 0,  0x7005, 0, 0x7006, 0,      0x7007, 0,
    0x7001, 0,      0x7002, 0,      0x1210, 77,     0x1220, 79, 0xF000, 1, 0x7120, 0x7110,  // IN
    0x7001, 0,      0x7002, 0,      0x1210, 77,     0x1220, 79, 0xF000, 2, 0x7120, 0x7110,  // OUT
    0x7170, 0x7160, 0x7150, 0x7140, 0x7130, 0x7120, 0x7110,                                 //
    0x7000, 81,     0x7130, 0,      0x6400, 0,  // PUSH to JUMP MAIN
    0,      0,      0x3042, 0x8100, 5};

template <class Family>
void expectTwoPrograms() {
  Linked<Family> linked(kTwoPrograms);
  ASSERT_EQ(linked.link(), 0) << linked.printed();
  EXPECT_THAT(linked.image(0, 25), ElementsAreArray(kMainImage));
  EXPECT_THAT(linked.image(25, 82), ElementsAreArray(kSubImage));
  EXPECT_THAT(linked.image(82, 90), ::testing::Each(0));
  EXPECT_EQ(linked.b.PrgEndAdr, 82);

  const auto& main = linked.program(0);
  EXPECT_EQ(main.PrgSize, 25);
  EXPECT_EQ(main.AbAdrAfterCode, 22);
  EXPECT_EQ(main.AbAdrAtEnd, 24);
  const auto& sub = linked.program(1);
  EXPECT_EQ(sub.AbAdrAtStart, 25);
  EXPECT_EQ(sub.PrgSize, 57);
  // JUMP to a program draws its Warning, 70000 its Note in each of the two runs
  EXPECT_EQ(linked.tallies(), "0 2 2");
}

TEST(Link, TwoPrograms) {
  expectTwoPrograms<WP>();
  expectTwoPrograms<AP>();
}

TEST(Link, ForwardAddressesWaitForTheSecondRun) {
  Linked<> linked(kTwoPrograms);
  EXPECT_EQ(linked.line(0).Word2, 0);   // BEGIN, below
  EXPECT_EQ(linked.line(4).Word2, 0);   // SUB, not yet looked at
  EXPECT_EQ(linked.line(3).Word2, 22);  // a literal is right at the end of the first run
  EXPECT_EQ(linked.link(), 0);
  EXPECT_EQ(linked.line(0).Word2, 10);
  EXPECT_EQ(linked.line(4).Word2, 25);
}

TEST(Link, LineOfAddress) {
  Linked<> linked(kTwoPrograms);
  ASSERT_EQ(linked.link(), 0);
  EXPECT_THAT(linked.lines(0, 25), ::testing::ElementsAre(1, 1, 2, 2, 2, 2, 2, 2, 2, 2, 4, 4, 5, 5, 6, 6, 7,
                                                          7, 8, 8, 11, 12, 4, 7, 7));
  EXPECT_THAT(linked.lines(73, 84), ::testing::ElementsAre(20, 21, 22, 22, 23, 23, 24, 25, 19, 0, 0));
}

TEST(Link, StartNamesAnotherProgramOrNothing) {
  Linked<> linked("A START B\n RET\n END\nB START\n RET\n END\n");
  ASSERT_EQ(linked.link(), 0);
  EXPECT_THAT(linked.image(0, 5), ::testing::ElementsAre(0x6400, 3, 0x8100, 0, 0x8100));
  EXPECT_TRUE(linked.line(3).IsLabelInUse);
}

TEST(Link, EqualLiteralsAreNotShared) {
  Linked<> linked("A START\n LD GR1,=5\n LD GR2,=5\n LAD GR3,=#0005\n RET\n END\n");
  ASSERT_EQ(linked.link(), 0);
  EXPECT_THAT(linked.image(0, 11),
              ::testing::ElementsAre(0, 0x1010, 8, 0x1020, 9, 0x1230, 10, 0x8100, 5, 5, 5));
}

TEST(Link, AFaultLeavesTheCountersWhereTheyAre) {
  Linked<> linked("A START NONE\n LD GR1,NOWHERE\nB LAD GR1,B\n RET\n END\n");
  EXPECT_EQ(linked.tallies(), "2 0 0");
  EXPECT_EQ(linked.line(2).AbAdr, 0);
  EXPECT_EQ(linked.program(0).PrgSize, 3);
}

TEST(Link, StopsAtTheFirstProgramWithAnError) {
  Linked<> second("A START\n RET\n END\nB START\n JUMP B\n RET\n END\n");
  second.line(4).Oprnd[1] = u"NONE";  // as if the first run had not seen it
  EXPECT_EQ(second.link(), -2);
  EXPECT_EQ(second.tallies(), "1 0 0");
  EXPECT_THAT(second.image(0, 3), ::testing::Each(0));

  Linked<> first("A START\n DC B\nB RET\n END\n");
  first.program(0).Labels.clear();
  EXPECT_EQ(first.link(), -1);
}

// --- limits ---

std::string ofSize(int words) {
  std::string source = "A START\n";
  for (words -= 1; words > 0; words -= 60000)
    source += " DS " + std::to_string(std::min(words, 60000)) + "\n";
  return source + " END\n";
}

TEST(LinkSize, TheGreatestImageLinks) {
  Linked<> linked(ofSize(65035));
  EXPECT_EQ(linked.link(), 0);
  EXPECT_EQ(linked.b.PrgEndAdr, 65035);
  EXPECT_THAT(linked.lines(65034, 65037), ::testing::ElementsAre(3, 0, 0));
}

TEST(LinkSize, MoreIsRefused) {
  Linked<> overStack(ofSize(65036)), overMachine(ofSize(65536));
  EXPECT_EQ(overStack.link(), -2);
  EXPECT_NE(overStack.printed().find("More than 65035 words cannot be reserved"), std::string::npos);
  EXPECT_EQ(overStack.a.errors(), 1);
  EXPECT_EQ(overMachine.link(), -2);
  EXPECT_NE(overMachine.printed().find("More than 65535 words cannot be reserved"), std::string::npos);
}

// --- guards of the copy ---

TEST(SetMemory, AnEmptyCharacterConstantEndsTheCopy) {
  Linked<> linked("A START\n DC 1,'A'\n RET\n END\n");
  linked.store.vecOprndAtDC[1].ConstStr = u"''";
  EXPECT_LT(SetMemory10<WP>(linked.a, linked.m, 0), 0);
  EXPECT_EQ(linked.a.errors(), 1);
}

TEST(SetMemory, AConstantOfNoKindIsASelfCheck) {
  Linked<> linked("A START\n DC 1\n RET\n END\n");
  linked.store.vecOprndAtDC[0].DataType = ConstKind::Const;
  EXPECT_LT(SetMemory10<WP>(linked.a, linked.m, 0), 0);
  EXPECT_EQ(linked.printed(),
            "Prg. Error of else: Const line=2\na strange DataTypeStrFlag of vecOprndAtDC[0] = Const\n");
}

TEST(SetMemory, WritesNothingOutside) {
  Linked<> linked("A START\n DC 'ABC'\n DS 5\n IN A,A\n RET\n END\n");
  linked.program(0).AbAdrAtStart = kMemoryCells - 2;
  EXPECT_EQ(SetMemory10<WP>(linked.a, linked.m, 0), 0);
  EXPECT_EQ(linked.m.Memory[kMemoryCells - 1], 'A');
}

TEST(SetMemory, ClearsTheWordsOfADS) {
  Linked<> linked("A START\n DS 2\n RET\n END\n");
  for (const std::size_t adr : {1u, 2u, 3u, 4u}) linked.m.Memory[adr] = 7;
  EXPECT_EQ(linked.link(), 0);
  EXPECT_THAT(linked.image(0, 5), ::testing::ElementsAre(0, 0, 0, 0x8100, 7));
}

TEST(SetMemory, NarrowPipelinesOverwriteNoWord) {
  Linked<AP> linked("A START\n RET\n END\n");
  linked.m.Memory[1] = 7;
  EXPECT_EQ(linked.link(), -1);
  EXPECT_EQ(linked.image(1, 2).front(), 7);
  EXPECT_EQ(linked.printed(), "(adr, Mry[adr], iVal)=(1, 7, 33024) 2BAC3F64 at SetMemoryNA();\n");
}

}  // namespace
}  // namespace zelvaro
