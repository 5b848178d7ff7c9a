// Normalisation of lines: blanks, comments, the word split, signs, cleaned operand texts.
#include <gtest/gtest.h>

#include "structure/Source.h"

namespace zelvaro::test {
namespace {

/// One program round a line; the line has number 2.
std::string around(const std::string& line) {
  return "MAIN START\n" + line + "\n RET\n END";
}

template <class Family>
std::string edited(const std::string& line) {
  Source<Family> source(line);
  edit<Family>(source.a);
  return source.work(1);
}
std::string cut(const std::string& line) {
  Source<WP> source(around(line));
  EXPECT_TRUE(source.structure());
  return source.work(2);
}
template <class Family = WP>
std::string cleaned(const std::string& line) {
  Source<Family> source(around(line));
  EXPECT_TRUE(source.run()) << source.platform.console;
  return source.oprnd(2);
}
int errors(const std::string& line) {
  Source<WP> source(around(line));
  source.run();
  return source.a.errors();
}

TEST(Edit, OneLeadingBlankIsLeft) {
  EXPECT_EQ(edited<WP>("\t\tLD GR1,A"), " LD GR1,A");
  EXPECT_EQ(edited<WP>(" \t LD\t GR1,A \t"), " LD\t GR1,A");
  EXPECT_EQ(edited<WP>("\tLD GR1,A"), "\tLD GR1,A");
  EXPECT_EQ(edited<WP>("A   NOP"), "A   NOP");
  EXPECT_EQ(edited<WP>("　　NOP "), "　　NOP");
  EXPECT_EQ(edited<AP>("\t\t表 "), " 表");
  EXPECT_EQ(edited<NH>("A \t DC\t'x  y' \t"), "A DC 'x  y' \t");
  EXPECT_EQ(edited<NH>("\tLD \t"), " LD ");
}

TEST(ReplaceTabs, NarrowOutsideTheQuotedStretch) {
  Source<AP> source("A\tDC\t'x\ty',\t1,'\t'\t;\t\n\tNOP\t\n B 'a\tb'");
  edit<AP>(source.a);
  ReplaceTabs<AP>(source.a);
  EXPECT_EQ(source.work(1), "A DC 'x\ty',\t1,'\t' ;");
  EXPECT_EQ(source.work(2), " NOP");
  EXPECT_EQ(source.work(3), " B 'a\tb'");
  Source<WP> wide("A\tNOP\tx");
  edit<WP>(wide.a);
  ReplaceTabs<WP>(wide.a);
  EXPECT_EQ(wide.work(1), "A\tNOP\tx");
}

TEST(CutComments, OutsideQuotesAndNotAtTheOpcodeWord) {
  EXPECT_EQ(cut(" DC 'A;B'"), " DC 'A;B'");
  EXPECT_EQ(cut(" DC 'A';B"), " DC 'A'");
  EXPECT_EQ(cut(" DC 'A''B';C"), " DC 'A''B'");
  EXPECT_EQ(cut(" DC '''';C"), " DC ''''");
  EXPECT_EQ(cut(" DC '';C"), " DC ''");
  EXPECT_EQ(cut("LABEL ;comment"), "LABEL ");
  EXPECT_EQ(cut("LABEL;x NOP"), "LABEL");
  EXPECT_EQ(cut(" NOP ;x"), " NOP ");
  EXPECT_EQ(cut(" NOP;x;y z;w"), " NOP;x;y z");
  EXPECT_EQ(cut("A\tNOP; ;x"), "A\tNOP; ");
  EXPECT_EQ(cut("A NOP"), "A NOP");
}

TEST(CutComments, TheLineOfEndKeepsIts) {
  Source<WP> source("MAIN START;a ;b\n RET\n END ;c");
  ASSERT_TRUE(source.structure());
  EXPECT_EQ(source.work(1), "MAIN START;a ");
  EXPECT_EQ(source.work(3), " END ;c");
  ASSERT_TRUE(source.program(0));
  EXPECT_EQ(source.words(3), "|END|");
}

TEST(TakeOutLabelStr, Words) {
  Source<WP> source("MAIN  START\tL1\nL1\t LD \t GR1, A ;x\n NOP\nL2 ;y\n　X LD\n RET\n END x");
  ASSERT_TRUE(source.structure());
  TakeOutLabelStr<WP>(source.a, 0);
  EXPECT_EQ(source.words(1), "MAIN|START|L1");
  EXPECT_EQ(source.words(2), "L1|LD|GR1, A ");
  EXPECT_EQ(source.words(3), "|NOP|");
  EXPECT_EQ(source.words(4), "L2||");
  EXPECT_EQ(source.words(5), "　X|LD|");
  EXPECT_EQ(source.words(7), "|END|x");
  EXPECT_NE(source.line(3).OprndComStr.data(), nullptr);
}

TEST(SearchApost, StartLosesASemicolonInQuotes) {
  Source<WP> source("MAIN START 'a;b;c'\n DC 'a;b'\n RET\n END");
  ASSERT_TRUE(source.run());
  EXPECT_EQ(source.oprnd(1), "'a");
  EXPECT_EQ(source.oprnd(2), "'a;b'");
}

TEST(LiteralSign, BlankBehindIt) {
  for (const char* bad : {" LAD GR1,= + 5 ;x", " LAD GR1,=#\t5", " LAD GR1,=5,'=- '"})
    EXPECT_EQ(errors(bad), 1) << bad;
  for (const char* fine : {" DC '=+ 5'", " LAD GR1,= 5"}) EXPECT_EQ(errors(fine), 0) << fine;
}

TEST(LiteralSign, WorkingTextAloneChanges) {
  Source<WP> source(around(" LAD GR1,= \t5\n LAD GR1,=  \n LAD GR1,="));
  ASSERT_TRUE(source.run());
  EXPECT_EQ(source.work(2), "GR1,=5");
  EXPECT_EQ(source.oprnd(2), "GR1,= \t5");
  EXPECT_EQ(source.work(3), "GR1,");
  EXPECT_EQ(source.work(4), "GR1,");
  EXPECT_EQ(source.oprnd(4), "GR1,=");
}

TEST(NumberSign, BlankBehindIt) {
  for (const char* bad : {" LD GR1,- 5", " DC -3,'- 5'", " DC - 5\n DC + 5"})
    EXPECT_EQ(errors(bad), 1) << bad;
  for (const char* fine : {" DC '- 5'", " DC 3,'- 5'", " DC #", " DC -3,'-5 '", " NOP"})
    EXPECT_EQ(errors(fine), 0) << fine;
}

TEST(SplitComment, UnbalancedQuotes) {
  const auto split = [](std::u16string_view text) {
    Source<WP> source(around(" NOP"));
    source.structure();
    source.store()[1].SrcWork = text;
    SplitComment<WP>(source.a, 0);
    return source.work(2);
  };
  EXPECT_EQ(split(u"a;b"), "a");
  EXPECT_EQ(split(u"a;'b"), "a");
  EXPECT_EQ(split(u"'a';b"), "'a'");
  EXPECT_EQ(split(u"'a;b'"), "'a;b'");
  EXPECT_EQ(split(u"'a';b;c"), "'a';b;c");
  EXPECT_EQ(split(u"'a'"), "'a'");
}

TEST(TrimOprnd, ByClassOfOpcode) {
  EXPECT_EQ(cleaned(" DS  1\t\t2"), "1 2");
  EXPECT_EQ(cleaned(" IN A,   B"), "A,  B");
  EXPECT_EQ(cleaned(" IN A,    B"), "A,  B");
  EXPECT_EQ(cleaned(" IN A,     B"), "A,   B");
  EXPECT_EQ(cleaned(" DC 1 ,\t 2  ,  'a ;  , b' ,  ,3"), "1,2,'a ;  , b',,3");
  EXPECT_EQ(cleaned(" DC 'a' ,  'b'\t"), "'a' ,  'b'");
  EXPECT_EQ(cleaned(" DC 1  2"), "1 2");
  EXPECT_EQ(cleaned(" DC 1,2"), "1,2");
  EXPECT_EQ(cleaned(" CALL  A  ,\t B"), "A , B");
  EXPECT_EQ(cleaned(" PUSH 0 ,  GR1"), "0 , GR1");
  EXPECT_EQ(cleaned(" LD GR1 ,  \tA\t"), "GR1 ,  \tA");
  EXPECT_EQ(cleaned<AP>(" DC 表  , '  '"), "表,'  '");
  EXPECT_EQ(cleaned<AP>(" LD GR1 ,\tA"), "GR1 , A");
}

TEST(TrimOprnd, SemicolonsThatUnbalancedQuotesKept) {
  EXPECT_EQ(cleaned(" DC 'a'b';c;d"), "'a'b'");
  EXPECT_EQ(cleaned(" DC 'a ;b"), "'a");
  EXPECT_EQ(cleaned(" DS 'a;b'"), "'a");
}

// The rule cleans all lines of the file again with every program behind theirs: a run is halved each time.
TEST(TrimOprnd, LinesOfEarlierProgramsAreWalkedAgain) {
  Source<WP> source(
      "A START\n IN A,        B\n RET\n END\nB START\n IN A,    B\n RET\n END\nC START\n RET\n END");
  ASSERT_TRUE(source.structure());
  source.program(0);
  EXPECT_EQ(source.oprnd(2), "A,    B");
  source.program(1);
  EXPECT_EQ(source.oprnd(2), "A,  B");
  EXPECT_EQ(source.oprnd(6), "A,  B");
  source.program(2);
  EXPECT_EQ(source.oprnd(2), "A, B");
  EXPECT_EQ(source.oprnd(6), "A, B");
  EXPECT_TRUE(source.store().Unsettled.empty());
}

TEST(Lines, BothTextKindsAgree) {
  const char* text =
      "MAIN START\tTOP ;始\nTOP   LD  GR1, =  'あ;い' ;x\n\tDC  'ソ''ー' , #00FF;表\n IN A,  B\n CALL 'x' ,  Y\n"
      "L1\n RET\n END ;終";
  Source<WP> wide(text);
  Source<AP> narrow(text);
  wide.run();
  narrow.run();
  ASSERT_EQ(wide.store().lines().size(), narrow.store().lines().size());
  for (const auto& line : wide.store().lines())
    EXPECT_EQ(wide.words(line.Line + 1), narrow.words(line.Line + 1));
}

}  // namespace
}  // namespace zelvaro::test
