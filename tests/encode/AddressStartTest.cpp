// The operand of START.
#include <gtest/gtest.h>

#include "support/SourceLines.h"

namespace zelvaro {
namespace {

using test::SourceLines;

template <class Family = WP>
struct Bench : SourceLines<Family> {
  explicit Bench(const std::string& oprnd, int lang = kEnglish)
      : SourceLines<Family>(
            "PRG START " + oprnd + "\nBEGIN NOP\nEIGHTCHR NOP\n RET\n END\nOTHER START\nINNER RET\n END\n",
            lang) {
    this->line(1).AbAdr = 2;
    this->line(2).AbAdr = 3;
    this->line(5).AbAdr = 30;
    this->program(1).AbAdrAtStart = 31;  // differs, to show which of the two is taken
  }
  int resolve() { return CkStartAdrOperand<Family>(this->a, 0, this->line(0)); }
};

struct Case {
  const char* oprnd;
  int result;
  int word2;
  int errors;
};

class StartOperand : public ::testing::TestWithParam<Case> {};

TEST_P(StartOperand, IsALabelOrAProgram) {
  Bench<> bench(GetParam().oprnd);
  EXPECT_EQ(bench.resolve(), GetParam().result);
  EXPECT_EQ(bench.cs.ErrorKazu, GetParam().errors) << bench.printed();
  if (GetParam().result != 0) return;
  EXPECT_EQ(bench.line(0).Word1, 0x6400);
  EXPECT_EQ(bench.line(0).Word2, GetParam().word2);
  EXPECT_EQ(bench.line(0).word_kazu, 2);
}

INSTANTIATE_TEST_SUITE_P(Oprnds, StartOperand,
                         ::testing::Values(Case{"BEGIN", 0, 2, 0}, Case{"EIGHTCHR", 0, 3, 0},
                                           Case{"PRG", 0, 0, 0}, Case{"OTHER", 0, 30, 0},
                                           Case{"INNER", 1, 0, 1}, Case{"NINECHARS", 1, 0, 1},
                                           Case{"A,B", 1, 0, 2}, Case{"100", 1, 0, 1}, Case{"#0010", 1, 0, 1},
                                           Case{"Abc", 1, 0, 2}, Case{"abc", 1, 0, 1},
                                           // the bad character, two causes, undefined, and the cause again
                                           Case{"A　", 1, 0, 5}));

TEST(StartOperandMarks, LabelOrProgram) {
  Bench<> label("BEGIN");
  label.resolve();
  EXPECT_TRUE(label.line(1).IsLabelInUse);
  Bench<> prg("OTHER");
  prg.resolve();
  EXPECT_TRUE(prg.line(5).IsLabelInUse);
  EXPECT_TRUE(prg.program(1).IsPrgNameInUse);
}

TEST(StartOperandMarks, NarrowPipelinesRefuseAProgram) {
  Bench<AP> bench("OTHER");
  EXPECT_EQ(bench.resolve(), 1);
  EXPECT_EQ(bench.printed(),
            "Error : line 1: \nSTART assembler instruction defines a top of the program. \n"
            "A top of the address at which a program starts is \n"
            "specified by a label defined in a program. \n(Spec. 2.3 (1)) \n"
            "The address constant at the right side of the START \nis expected to be corrected. \n");
  EXPECT_FALSE(bench.program(1).IsPrgNameInUse);
}

struct WordsOf {
  const char* oprnd;
  const char* en;
  const char* ja;
};

class StartWords : public ::testing::TestWithParam<WordsOf> {};

TEST_P(StartWords, InBothLanguages) {
  Bench<> en(GetParam().oprnd), ja(GetParam().oprnd, kJapanese);
  en.resolve();
  ja.resolve();
  EXPECT_EQ(en.printed(), GetParam().en);
  EXPECT_EQ(ja.printed(), GetParam().ja);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StartWords,
    ::testing::Values(
        WordsOf{
            "A+",
            "Error : line 1: \n"
            "No uppercase alphanumeric characters are found in the address constant of  \"A+\" . \n"
            "The address constant must be written in uppercase alphanumeric letters. \n"
            "Error : line 1:  \"A+\" \nNo label or program name matches the address constant of  \"A+\" . \n",
            "エラー： 1 行目： \n \"A+\"  アドレス定数に英大文字と数字以外の文字がある。\n"
            "エラー： 1 行目： \nアドレス定数  \"A+\"  と一致するラベルが存在しない。\n"},
        WordsOf{
            "NINECHARS",
            "Error : line 1:  \"NINECHARS\" \nAn address constant must be 1 to 8 characters in length. \n"
            "There are 9 in it.\n",
            "エラー： 1 行目：  \"NINECHARS\" \n アドレス定数は８文字以内の制限がある。\n9 文字ある。\n"}));

}  // namespace
}  // namespace zelvaro
