// The fixed form: an image worked out by hand, what its run makes of it, and the guards of its link.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "comet2/Guards.h"
#include "link/Link.h"
#include "whole/Dialogue.h"

namespace zelvaro::test {
namespace {

using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

/// Assembles and runs a source in pipeline NH.
struct Fixed {
  Dialogue d;
  std::string shown;

  explicit Fixed(const std::string& source) {
    d.platform.files["a.txt"] = source;
    d.platform.files["zelvaro.ini"] = "[Mode]\nLangStr=ENU\nFightFunc=NH\n";
    shown = d.run({"", "1", "a.txt", "1"});
  }
  Tcomet2& m() { return d.session().m; }
  std::vector<std::int32_t> words(std::size_t from, std::size_t to) {
    std::vector<std::int32_t> out;
    for (; from < to; ++from) out.push_back(m().Memory[from] & 0xFFFF);
    return out;
  }
};

TEST(FixedForm, CodeThenDataThenLiteralsOfEachProgram) {
  Fixed f(
      "MAIN START GO\n"   // 0    JUMP 5
      "SUB ADDA GR1,A\n"  // 2    A is at 31
      " RET\n"            // 4
      "N DC 5,'AB'\n"     // 28   behind the code
      "GO LD GR1,=3\n"    // 5    the literal is at 37
      " CALL SUB\n"       // 7
      " CALL OTHER\n"     // 9    a program further down, at 38
      " LAD GR2,TAIL\n"   // 11   behind the data, where the literals begin
      " LAD GR3,MAIN\n"   // 13   the own program
      " IN B,C\n"         // 15 to 26, so the data is at 28
      " RET\n"            // 27
      "A DC 7,A,N\n"
      "E DS 0\n"
      "B DS 2\n"
      "C DC 1\n"
      "TAIL DS 0\n"
      " END\n"
      "OTHER START\n"
      " LD GR4,='XY'\n"
      " RET\n"
      " END\n");
  // data: N 28 to 30, A 31 to 33, E and B 34, C 36; TAIL 37; the literal 37; OTHER 38 to 41, 'XY' 42, 43
  const int in = 15;
  EXPECT_THAT(f.words(0, in), ElementsAreArray({0x6400, 5, 0x2010, 31, 0x8100, 0x1010, 37, 0x8000, 2, 0x8000,
                                                38, 0x1220, 37, 0x1230, 0}));
  EXPECT_EQ(f.m().Memory[27], 0x8100);
  EXPECT_THAT(f.words(28, 34), ElementsAreArray({5, 'A' + 0, 'B' + 0, 7, 31, 28}));
  EXPECT_THAT(f.words(37, 45), ElementsAreArray({3, 0, 0x1040, 42, 0x8100, 'X' + 0, 'Y' + 0, 0}));
  EXPECT_EQ(f.m().LastAdr, 44);
  EXPECT_EQ(f.m().GR[1], 10);
  EXPECT_EQ(f.m().GR[2], 37);
  EXPECT_EQ(f.m().GR[4], 'X');
  EXPECT_EQ(f.m().LineOfAddress[34], 13);  // the DS of two words, not the empty one
  EXPECT_EQ(f.m().LineOfAddress[37], -1);  // no line for a literal
}

TEST(FixedForm, EXITEndsTheRunInsideASubroutine) {
  Fixed f("MAIN START\n CALL SUB\n LAD GR1,9\n RET\nSUB EXIT\n END\n");
  EXPECT_EQ(f.m().Memory[6], 0x8800);
  EXPECT_EQ(f.m().PR, 6);
  EXPECT_EQ(f.m().OS, 1);
  EXPECT_EQ(f.m().GR[1], 0);
  EXPECT_THAT(f.shown, HasSubstr("and it has come to an end of the program\n"));
}

TEST(FixedForm, BytesWithoutACharacterAreToldByTheConstantThatHoldsThem) {
  Fixed sjis("MAIN START ; \xFF\n RET\nA DC '\x82\xA0'\n END\n");
  EXPECT_EQ(sjis.m().Memory[2], 0x3042);
  EXPECT_THAT(sjis.shown, ::testing::Not(HasSubstr("Error")));

  Fixed broken("MAIN START\n RET\nA DC 1,'x\xFFy'\n END\n");
  EXPECT_THAT(broken.shown, HasSubstr("Reading a.txt.\nOne program is found in it.\n"
                                      "mbsrtowcs_s() has returned Error. MbChToWCs(). \n(0.0, 0.0) msec"));
  EXPECT_THAT(broken.shown, HasSubstr("There is 1 error to be corrected. "));
}

TEST(FixedForm, AStoreBehindTheImageIsToldAndMovesItsEnd) {
  Fixed f("MAIN START\n LAD GR1,20\n ST GR1,0,GR1\n RET\n END\n");
  EXPECT_THAT(f.shown,
              HasSubstr("WARNING: Your reserved memory size is 6 words. A data has stored beyond the "
                        "reserved area. The address is 20(dec) in memory. "));
  EXPECT_EQ(f.m().LastAdr, 20);
  EXPECT_THAT(f.d.platform.files["aaAssembledRegMry.txt"], HasSubstr("#000F:   15:"));
  EXPECT_THAT(f.d.platform.files["aaAssembledRegMry.txt"], ::testing::Not(HasSubstr("#0010:   16:")));
  EXPECT_THAT(f.d.platform.files["aaResultantRegMry.txt"], HasSubstr("#001D:   29:"));
}

TEST(FixedForm, AStoreAtTheLimitStopsTheRun) {
  for (const int at : {3499, 3500}) {
    Fixed f("MAIN START\n LAD GR1," + std::to_string(at) + "\n ST GR1,0,GR1\n LAD GR2,1\n RET\n END\n");
    EXPECT_EQ(f.m().Memory[static_cast<std::size_t>(at)], at == 3499 ? 3499 : 0);
    EXPECT_EQ(f.m().GR[2], at == 3499 ? 1 : 0);
    EXPECT_EQ(f.shown.find("This simulator have only 3465 words") == std::string::npos, at == 3499);
  }
}

// No source gets so far: the checks of the sizes refuse it.
TEST(FixedForm, TheLinkGuardsItsMemory) {
  ScriptedPlatform platform;
  TSession s(platform);
  auto& prg = s.b.vecSrcA.vecPrg.emplace_back();
  s.b.vecSrcA.addLine(s.b.vecSrcA.arena.keep("MAIN START"));
  s.b.vecSrcA.addLine(s.b.vecSrcA.arena.keep(" DS 3500"));
  s.b.vecSrcA.addLine(s.b.vecSrcA.arena.keep(" END"));
  prg.RecEnd = 2;
  auto& ds = s.b.vecSrcA[1];
  ds.OpStr = ds.SrcStr.substr(1, 2);
  ds.OpNr = static_cast<std::int16_t>(Op::DS);
  ds.word_kazu = 3501;
  Assembly a = s.assembly();
  EXPECT_EQ(Link31<NH>(a, s.m), -1);
  EXPECT_EQ(s.cs.ErrorKazu, 3);
  EXPECT_THAT(platform.console, ::testing::StartsWith("Linker Error: \n"));
  EXPECT_THAT(platform.console, HasSubstr("u+cs->Get_max_rl_memory_d()\n"
                                          "Linker Error: Your reserved memory sizehas exceeded "
                                          "MaxMemory(=3500).\nRewrite your casl2 program a little and "
                                          "reduce the reserved memory size. \n"));
}

}  // namespace
}  // namespace zelvaro::test
