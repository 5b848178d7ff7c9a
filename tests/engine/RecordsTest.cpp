// What the stages leave in the line store: what no message shows.
#include <gtest/gtest.h>

#include "engine/Assembled.h"

namespace zelvaro {
namespace {

using test::Assembled;
constexpr FamilyId WP = FamilyId::WP, AP = FamilyId::AP, NH = FamilyId::NH;

/// NWW and NaW share their names, but not their loaders.
TEST(Stages, HaveAFunctionAndANameInEachFamilyThatHasThem) {
  for (const Stage& stage : stages()) {
    for (const Family& family : families()) {
      const bool has = stage.families.contains(family.id);
      EXPECT_TRUE(!has || stage.function[static_cast<std::size_t>(family.text)] != nullptr) << family.name;
      if (has || stage.phase != Phase::Load) {
        EXPECT_EQ(has, !stage.names.of(family.id).empty()) << family.name << stage.names.of(family.id);
      }
    }
  }
}

TEST(Records, OfALineAfterAStage) {
  struct Case {
    FamilyId family;
    const char *stage, *line, *record;
  };
  const Case cases[] = {
      {WP, "editNWB", " \t LD\t GR1,A \t", " LD\t GR1,A||||||||"},
      {WP, "editNWB", "　　NOP ", "　　NOP||||||||"},
      {AP, "editNA", "\t\t表 ", " 表||||||||"},
      {NH, "editN", "A \t DC\t'x  y' \t", "A DC 'x  y' \t||||||||"},
      {AP, "ReplaceTabs", "A\tDC\t'x\ty',\t1,'\t'\t;\t", "A DC 'x\ty',\t1,'\t' ;||||||||"},
      {WP, "CutCommentsNW", " DC 'A;B';C", " DC 'A;B'||||||||"},
      {WP, "CutCommentsNW", " DC '''';C", " DC ''''||||||||"},
      {WP, "CutCommentsNW", "A\tNOP; ;x", "A\tNOP; ||||||||"},
      {WP, "TakeOutLabelStr", "L1\t LD \t GR1, A ;x", "L1\t LD \t GR1, A |L1|LD|GR1, A |||||"},
      {WP, "TakeOutLabelStr", "　X LD", "　X LD|　X|LD||||||"},
      {WP, "edit30cNWCS", " LAD GR1,= \t5", "GR1,=5||LAD|GR1,= \t5|||||"},
      {WP, "edit30cNWCS", " LAD GR1,=  ", "GR1,||LAD|GR1,=|||||"},
      {WP, "SplitCommentW", " DC 'a'b';c", "'a'b'||DC|'a'b';c|||||"},
      {WP, "SplitCommentW", " DC 'a'b';c;d", "'a'b';c;d||DC|'a'b';c;d|||||"},
      {WP, "SplitCommentW", " DS 'a;b'", "'a;b'||DS|'a;b'|||||"},
      {WP, "TrimOprndComW", " IN A,     B", "A,     B||IN|A,   B|||||"},
      {WP, "TrimOprndComW", " DC 1 ,\t 2  ,  'a ;  , b' ,  ,3",
       "1 ,\t 2  ,  'a ;  , b' ,  ,3||DC|1,2,'a ;  , b',,3|||||"},
      {WP, "TrimOprndComW", " CALL  A  ,\t B", "A  ,\t B||CALL|A , B|||||"},
      {WP, "TrimOprndComW", " LD GR1 ,  \tA\t", "GR1 ,  \tA||LD|GR1 ,  \tA|||||"},
      {AP, "TrimOprndComA", " DC 表  , '  '", "表  , '  '||DC|表,'  '|||||"},
      {AP, "TrimOprndComA", " LD GR1 ,\tA", "GR1 , A||LD|GR1 , A|||||"},
      {WP, "operand20m15NWPCS", " LD GR1  ,GR2", "GR1  ,GR2||LD|GR1  ,GR2|GR1  ,GR2|GR1|,|GR2|"},
      {WP, "operand20m15NWPCS", " LD GR1\t,\tGR2", "GR1\t,\tGR2||LD|GR1\t,\tGR2|GR1\t,\tGR2|GR1,|GR2||"},
      {WP, "operand20m15NWPCS", " LD GR1   GR2 X", "GR1   GR2 X||LD|GR1   GR2 X|GR1   GR2 X|GR1|||GR2 X"},
      {WP, "operand20m15NWPCS", " LD ,,GR1", ",,GR1||LD|,,GR1|,,GR1|,|,|GR1|"},
      {WP, "operand20m15NWPCS", " LD A,B,C,D , E ", "A,B,C,D , E||LD|A,B,C,D , E|A,B,C,D , E|A,|B,|C,|D , E"},
      {WP, "operand20m15NWPCS", " LD GR1,='A B' , GR2",
       "GR1,='A B' , GR2||LD|GR1,='A B' , GR2|GR1,='A B' , GR2|GR1,|='A B',|GR2|"},
      {WP, "operand20m15NWPCS", " LD GR1,= \t'A''B',GR2",
       "GR1,='A''B',GR2||LD|GR1,= \t'A''B',GR2|GR1,= \t'A''B',GR2|GR1,|='A''B',|GR2|"},
      {WP, "operand20m15NWPCS", " LD GR1,'A B'", "GR1,'A B'||LD|GR1,'A B'|GR1,'A B'|GR1,|'A|B'|"},
      {WP, "operand20m15NWPCS", " LD GR1,='AB", "GR1,='AB||LD|GR1,='AB|GR1,='AB|GR1,|='AB||"},
      {WP, "operand20m15NWPCS", " LD GR1,='ABC'X,GR2",
       "GR1,='ABC'X,GR2||LD|GR1,='ABC'X,GR2|GR1,='ABC'X,GR2|GR1,|'X,|GR2|"},
  };
  for (const Case& c : cases) {
    Assembled a("M START\n" + std::string(c.line) + "\n RET\n END\n", c.family, c.stage);
    EXPECT_EQ(a.record(1), c.record) << c.stage << c.line;
  }
}

TEST(Records, WordsOfStatementsWithoutAnAddress) {
  const Assembled a("M START\n NOP\n POP GR3\n RET\n END\n");
  const std::uint16_t words[] = {0x0000, 0x7130, 0x8100};
  int record = 1;
  for (const std::uint16_t word : words) {
    const SrcDataW& line = a.b.vecSrcW[record++];
    EXPECT_TRUE(line.word_kazu == 1 && line.Word1 == word && line.Word2 == 0) << line.Line;
  }
}

// The rule cleans all lines of the file again after each later program: a run of blanks is halved each time.
TEST(Records, LinesOfEarlierProgramsAreWalkedAgain) {
  const std::string second = "B START\nX IN X,    X\n RET\n END\n", third = "C START\n RET\n END\n";
  const std::string first = "A START\nX IN X,        X\n RET\n END\n";
  EXPECT_TRUE(Assembled(first).record(1).find("|X,    X|") != std::string::npos);
  EXPECT_TRUE(Assembled(first + second).record(1).find("|X,  X|") != std::string::npos);
  Assembled three(first + second + third);
  EXPECT_TRUE(three.record(1).find("|X, X|") != std::string::npos) << three.record(1);
  EXPECT_TRUE(three.record(5).find("|X, X|") != std::string::npos) << three.record(5);
  EXPECT_TRUE(three.b.vecSrcW.Unsettled.empty());
}

TEST(Records, OfPrograms) {
  Assembled a("; head\nA START\n\n RET\n END\n\nB\tSTART\n NOP ; RET\n\tEND;\n");
  const LineStore<char16_t>& store = a.b.vecSrcW;
  ASSERT_EQ(store.vecPrg.size(), 2u);
  const PrgDataW& second = store.vecPrg[1];
  EXPECT_TRUE(second.StartLine == 6 && second.EndLine == 8 && second.RecStart == 3 && second.RecEnd == 5);
  EXPECT_TRUE(store[2].PrgNr == 0 && store[3].PrgNr == 1 && store[5].PrgNr == 1);
  EXPECT_TRUE(store.findPrg(u"B", 0) == 1 && store.findPrg(u"B", 1) == -1 && store.findPrg(u"C", 0) == -1);
}

}  // namespace
}  // namespace zelvaro
