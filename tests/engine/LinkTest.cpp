// The link: an image worked out by hand, the addresses and the line map; what guards the copy.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/Assembled.h"
#include "link/SetMemory10.h"

namespace zelvaro {
namespace {

using test::Assembled;
using ::testing::ElementsAre;

constexpr const char* kTwoPrograms =
    "MAIN START BEGIN\nCOUNT DC 1,-1,#00FF,'A''B',COUNT,70000\nZERO DS 0\nBEGIN LD GR1,=5\n CALL SUB\n"
    " LAD GR2,ZERO,GR1\n LD GR3,='Hi'\n ST GR1,LAST\n\n; a comment\n ADDL GR7,GR0\nLAST RET\n END\n"
    "SUB START\n IN BUF,LEN\n PUSH =5\n POP GR3\n JUMP MAIN\nBUF DS 2\nLEN DC 'あ'\n RET\n END\n";

TEST(Link, TwoPrograms) {
  for (const FamilyId id : {FamilyId::WP, FamilyId::AP, FamilyId::NaW}) {
    Assembled a(kTwoPrograms, id);
    ASSERT_TRUE(a.link()) << a.sink.text;
    EXPECT_THAT(a.image(0, 25),
                ElementsAre(0x6400, 10, 1, -1, 0xFF, 'A', '\'', 'B', 2, 0x1170, 0x1010, 22, 0x8000, 25,
                            0x1221, 10, 0x1030, 23, 0x1110, 21, 0x2670, 0x8100, 5, 'H', 'i'));
    EXPECT_THAT(a.image(25, 51),
                ElementsAre(0, 0x7001, 0, 0x7002, 0, 0x1210, 43, 0x1220, 45, 0xF000, 1, 0x7120, 0x7110,
                            0x7000, 47, 0x7130, 0x6400, 0, 0, 0, 0x3042, 0x8100, 5, 0, 0, 0));
    EXPECT_THAT(a.lines(0, 25),
                ElementsAre(1, 1, 2, 2, 2, 2, 2, 2, 2, 2, 4, 4, 5, 5, 6, 6, 7, 7, 8, 8, 11, 12, 4, 7, 7));
    EXPECT_THAT(a.lines(41, 50), ElementsAre(18, 18, 19, 19, 20, 21, 16, 0, 0));
    if (id == FamilyId::WP) {
      EXPECT_EQ(a.b.vecSrcW.vecPrg[0].AbAdrAtEnd, 24);
    }
    EXPECT_EQ(a.b.PrgEndAdr, 48);
    EXPECT_EQ(a.b.FirstPrgName, "MAIN");
  }
}

TEST(Link, TheFixedFormHasItsDataAfterTheCodeAndNoLinesForLiterals) {
  Assembled a("A START\nX DC 1\n LD GR1,=5\n RET\n END\n", FamilyId::NH);
  ASSERT_TRUE(a.link());
  EXPECT_THAT(a.image(0, 6), ElementsAre(0, 0x1010, 5, 0x8100, 1, 5));
  EXPECT_THAT(a.lines(0, 6), ElementsAre(1, 3, 3, 4, 2, 0));
}

// Only what a check has let pass wrongly reaches these.
TEST(Link, GuardsTheCopy) {
  Assembled empty("A START\n DC 1,'A'\n RET\n END\n");
  empty.b.vecSrcW.vecOprndAtDC[1].ConstStr = u"''";
  EXPECT_FALSE(SetMemory10<char16_t>(empty.pass.assembly, empty.m, 0));

  Assembled outside("A START\n DC 'ABC'\n DS 5\nX IN X,X\n RET\n END\n");
  outside.b.vecSrcW.vecPrg[0].AbAdrAtStart = kMemoryCells - 2;
  EXPECT_TRUE(SetMemory10<char16_t>(outside.pass.assembly, outside.m, 0));
  EXPECT_EQ(outside.m.Memory[kMemoryCells - 1], 'A');

  Assembled words("A START\n DS 2\n RET\n END\n"), taken("A START\n RET\n END\n", FamilyId::AP);
  for (const std::size_t adr : {1U, 2U, 3U, 4U}) words.m.Memory[adr] = taken.m.Memory[adr] = 7;
  EXPECT_TRUE(words.link());
  EXPECT_THAT(words.image(0, 5), ElementsAre(0, 0, 0, 0x8100, 7));
  EXPECT_FALSE(taken.link());
  EXPECT_EQ(taken.m.Memory[1], 7);
}

}  // namespace
}  // namespace zelvaro
