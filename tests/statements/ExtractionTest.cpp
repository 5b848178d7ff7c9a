// Operand extraction: what stands in the four buffers, and how often it was counted.
#include "statements/Program.h"

namespace zelvaro::test {
namespace {

struct Case {
  std::string line;
  std::string oprnds;
  int kazu;
};

template <class Family>
void expectOprnds(const Case& c) {
  Program<Family> p(c.line);
  p.extract();
  EXPECT_EQ(p.oprnds(), c.oprnds) << c.line;
  EXPECT_EQ(p.line().OprndKazu, c.kazu) << c.line;
  EXPECT_EQ(p.a.errors(), 0) << c.line;
  for (std::size_t n = 0; n < 5; ++n) EXPECT_TRUE(p.line().hasOprnd(n)) << c.line;
}

TEST(Extraction, TheFourOperands) {
  const Case cases[] = {
      {" LD GR1,GR2,3", "GR1,|GR2,|3||", 3},
      {" LD GR1 , GR2", "GR1,|GR2|||", 2},
      {" LD GR1  ,GR2", "GR1|,|GR2||", 3},
      {" LD GR1,  GR2", "GR1,|GR2|||", 2},
      {" LD GR1\t,\tGR2", "GR1,|GR2|||", 2},
      {" LD GR1 GR2", "GR1|GR2|||", 2},
      {" LD GR1  GR2", "GR1||GR2||", 3},
      {" LD GR1   GR2 X", "GR1|||GR2 X|", 3},
      {" LD GR1,", "GR1,||||", 1},
      {" LD ,GR1", ",|GR1|||", 2},
      {" LD ,,GR1", ",|,|GR1||", 3},
      {" LD A,B,C,D,E", "A,|B,|C,|D,E|", 3},
      {" LD A,B,C,D , E ", "A,|B,|C,|D , E|", 3},
      {" LD GR1,='A,B',GR2", "GR1,|='A,B',|GR2||", 3},
      {" LD GR1,='A B' , GR2", "GR1,|='A B',|GR2||", 3},
      {" LD GR1,='A''B'", "GR1,|='A''B'|||", 2},
      {" LD GR1,'A B'", "GR1,|'A|B'||", 3},
      {" LD GR1,= 5", "GR1,|=5|||", 2},
      {" LD GR1,= \t'A B',GR2", "GR1,|='A B',|GR2||", 3},
      {" NOP", "||||", 0},
      {" DS 3", "3||||", 1},
      {" DC 1,2", "||||", 0},
  };
  for (const Case& c : cases) {
    expectOprnds<WP>(c);
    expectOprnds<AP>(c);
  }
}

TEST(Extraction, BehindAFaultTheRestIsANewOperandInTheSameBuffer) {
  for (const Case& c : {Case{"GR1,='ABC", "GR1,|='ABC|||", 1}, Case{"GR1,='ABC''", "GR1,|='ABC''|||", 1},
                        Case{"GR1,='ABC'X", "GR1,|'X|||", 2}, Case{"GR1,='ABC'X,GR2", "GR1,|'X,|GR2||", 3}}) {
    Program<WP> p(" LD " + c.line);
    p.extract();
    EXPECT_EQ(p.cs.ErrorKazu, 1);
    EXPECT_EQ(p.oprnds(), c.oprnds);
    EXPECT_EQ(p.line().OprndKazu, c.kazu);
  }
}

/// What is left of an operand of 300 characters behind "GR1,".
template <class Family>
std::size_t left() {
  Program<Family> p(" LD GR1," + std::string(300, 'A'));
  p.extract();
  EXPECT_EQ(p.line().OprndComStr.size(), 304u) << "the text itself stays whole";
  return p.line().Oprnd[2].size();
}

TEST(Extraction, FixedBuffersReadAsMuchAsTheyHold) {
  EXPECT_EQ(left<WP>(), 300u);
  EXPECT_EQ(left<AP>(), 300u);
  EXPECT_EQ(left<NWW>(), 221u);
  EXPECT_EQ(left<NA>(), 245u);
}

TEST(Extraction, TheFieldsByOpcode) {
  struct Fields {
    const char* line;
    int kazu;
    int words;
  };
  for (const Fields& f :
       {Fields{" SVC 1", 1, 2}, Fields{" POP GR1,GR2", 1, 1}, Fields{" DS 3 5", 1, 1},
        Fields{" RPUSH 1", 0, 1}, Fields{" NOP 1", 0, 1}, Fields{" RET", 0, 1}, Fields{" LD GR1,A", 2, 0}}) {
    Program<WP> p(f.line);
    ExtractAllOprnds<WP>(p.extract().a, 0);
    EXPECT_EQ(p.line().OprndKazu, f.kazu) << f.line;
    EXPECT_EQ(p.line().word_kazu, f.words) << f.line;
    EXPECT_EQ(p.store()[0].word_kazu, 1) << "START";
  }
}

}  // namespace
}  // namespace zelvaro::test
