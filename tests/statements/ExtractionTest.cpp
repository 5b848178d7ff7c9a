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

TEST(Extraction, AnOperandWithoutInnerBlanksIsNoCopy) {
  Program<WP> p(" LD GR1,A");
  p.extract();
  const auto& line = p.line();
  EXPECT_EQ(line.Oprnd[2].data(), line.Oprnd[0].data() + 4);
}

// The literal checks stop such lines before the extraction sees them, so its own messages are reached here.
void expectFault(std::string_view oprnds, const std::string& en, const std::string& ja,
                 const std::string& left, int kazu) {
  for (const int lang : {kEnglish, kJapanese}) {
    Program<WP> p(" LD " + std::string(oprnds), lang);
    p.extract();
    EXPECT_EQ(p.said(), (lang == kEnglish ? "Error : line 2:  \"" : "エラー： 2 行目：  \"") +
                            std::string(oprnds) + "\" " + (lang == kEnglish ? en : ja) + "\n");
    EXPECT_EQ(p.cs.ErrorKazu, 1);
    EXPECT_EQ(p.oprnds(), left);
    EXPECT_EQ(p.line().OprndKazu, kazu);
  }
}

TEST(Extraction, ALiteralThatIsNotClosed) {
  expectFault("GR1,='ABC", ": The literal string constant is not correctly closed. ",
              ": リテラル文字定数が正しく閉じていない。", "GR1,|='ABC|||", 1);
  expectFault("GR1,='ABC''", ": The literal string constant is not correctly closed. ",
              ": リテラル文字定数が正しく閉じていない。", "GR1,|='ABC''|||", 1);
}

TEST(Extraction, TextBehindALiteralIsANewOperandInTheSameBuffer) {
  expectFault("GR1,='ABC'X", ": A literal charcter constant is not correctly closed. ",
              ": リテラル文字定数が正しく閉じていない。 ", "GR1,|'X|||", 2);
  expectFault("GR1,='ABC'X,GR2", ": A literal charcter constant is not correctly closed. ",
              ": リテラル文字定数が正しく閉じていない。 ", "GR1,|'X,|GR2||", 3);
}

/// What is left of an operand of `size` characters behind "GR1,", on the first and the second line, and what
/// was said.
template <class Family>
std::string said(std::size_t size, std::size_t left, int lang = kEnglish) {
  const std::string text = " LD GR1," + std::string(size, 'A');
  Program<Family> p(text + "\n" + text, lang);
  p.extract();
  EXPECT_EQ(p.line().Oprnd[2].size(), left);
  EXPECT_EQ(p.store()[2].Oprnd[2].size(), left);
  EXPECT_EQ(p.line().OprndComStr.size(), size + 4) << "the text itself stays whole";
  EXPECT_EQ(p.a.errors() + p.b.WarningKazu + p.cs.WarningKazu, 0);
  return p.said();
}

TEST(Extraction, FixedBuffersReadAsMuchAsTheyHold) {
  EXPECT_EQ(said<WP>(300, 300) + said<AP>(300, 300) + said<NWW>(221, 221) + said<NA>(300, 245), "");
  EXPECT_EQ(said<NWW>(222, 221),
            "Warning: 2: There are 226 characters in the line. The Spec. of Zelvaro has a length limit for "
            "every line. The assembler reads 225 characters or less a line. This might have caused an error "
            "for all your intention. \n");
  EXPECT_EQ(
      said<NWW>(222, 221, kJapanese),
      "警告: 2行目：Zelvaroの仕様よりも長い行がある。 226 文字ある。 225 文字まで読取り、それ以降の文字は"
      "読み捨てる。\n");
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
