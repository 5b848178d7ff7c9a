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

TEST(StartOperandOf, NarrowPipelinesRefuseAProgram) {
  Bench<AP> bench("OTHER");
  EXPECT_EQ(bench.resolve(), 1);
  EXPECT_EQ(bench.tallies(), "1 0 0");
  EXPECT_FALSE(bench.program(1).IsPrgNameInUse);
}

}  // namespace
}  // namespace zelvaro
