// The encoders: words of every form, what is left of the operands, the stop rule.  What they say stands in
// tests/diagnostics/registers.golden.
#include "encode/EncoderFixture.h"

namespace zelvaro::test {
namespace {

TEST(Encoders, FirstWordOfEveryForm) {
  struct Case {
    const char* op;
    std::vector<std::string> oprnds;
    int words;
    int word1;
  };
  const Case cases[] = {
      {"LD", {"GR1,", "GR2"}, 1, 0x1412},
      {"LD", {"GR1,", "ADR,", "GR2"}, 2, 0x1012},
      {"LD", {"GR1,", "GR1X"}, 2, 0x1010},
      {"LD", {"GR1,", "GR8"}, 2, 0x1010},
      {"ADDL", {"GR7,", "GR0"}, 1, 0x2670},
      {"SUBA", {"GR0,", "A,", "GR7"}, 2, 0x2107},
      {"SUBL", {"GR3,", "GR4"}, 1, 0x2734},
      {"AND", {"GR1,", "=1"}, 2, 0x3010},
      {"OR", {"GR1,", "GR2"}, 1, 0x3512},
      {"XOR", {"GR1,", "GR2"}, 1, 0x3612},
      {"CPA", {"GR1,", "GR2"}, 1, 0x4412},
      {"CPL", {"GR1,", "A"}, 2, 0x4110},
      {"ST", {"GR2,", "A"}, 2, 0x1120},
      {"ST", {"GR1,", "GR2,", "GR3"}, 2, 0x1113},
      {"SLA", {"GR1,", "1"}, 2, 0x5010},
      {"SRA", {"GR1,", "GR8"}, 2, 0x5110},
      {"SLL", {"GR1,", "GR1X"}, 2, 0x5210},
      {"SRL", {"GR1,", "0,", "GR2"}, 2, 0x5312},
      {"JPL", {"LOOP,", "GR5"}, 2, 0x6505},
      {"CALL", {"SUB"}, 2, 0x8000},
      {"PUSH", {"0,", "GR1"}, 2, 0x7001},
      {"POP", {"GR3"}, 1, 0x7130},
      {"ADDA", {"GR1,", "GR2,"}, 1, 0x2412},
      {"ADDA", {"GR1,", "GR2,", "GR3"}, 1, 0x2412},
      {"ADDA", {"GR1,", "GR2", "GR3"}, 1, 0x2412},
      {"POP", {"GR1,", "GR2"}, 1, 0x7110},
  };
  for (const Case& c : cases) {
    EncoderBench<WP> wide;
    const Encoded e = wide.run(c.op, c.oprnds);
    EXPECT_EQ(e.errors, 0) << c.op << ": " << e.said;
    EXPECT_EQ(e.words, c.words) << c.op;
    EXPECT_EQ(e.word1, c.word1) << c.op;
    EXPECT_EQ(wide.line.Word2, 0) << c.op;
    const Encoded narrow = EncoderBench<AP>().run(c.op, c.oprnds);
    EXPECT_EQ(narrow.words, c.words) << c.op;
    EXPECT_EQ(narrow.word1, c.word1) << c.op;
  }
}

TEST(Encoders, WhatIsDroppedLeavesTheBuffers) {
  EncoderBench<WP> bench;
  bench.run("ADDA", {"GR1,", "GR2,", "GR3"});
  EXPECT_EQ(bench.oprnd(1) + "|" + bench.oprnd(2) + "|" + bench.oprnd(3), "GR1|GR2|");
  EXPECT_TRUE(bench.line.hasOprnd(3));
  bench.run("LD", {"GR1,", "A,", "GR2,", "GR3"});
  EXPECT_EQ(bench.oprnd(3) + "|" + bench.oprnd(4), "GR2|");
  bench.run("POP", {"GR1,", "GR2"});
  EXPECT_EQ(bench.oprnd(1) + "|" + bench.oprnd(2), "GR1|");
}

TEST(Encoders, NarrowTextInItsOwnWords) {
  EXPECT_EQ(EncoderBench<AP>().run("ADDA", {"GR1X,", "GR2"}).said,
            E + "A valid general register name is expected at the right side of ADDA. \n");
  const Encoded e = EncoderBench<AP>().run("LD", {"GR1,", "A,", ",", "GR2"});
  EXPECT_EQ(e.said, E + " \",\"   A valid index register name (GR1-GR7) is expected. \n");
  EXPECT_EQ(e.errors, 1);
  EncoderBench<AP> bench;
  bench.run("JUMP", {"GR1"});
  EXPECT_TRUE(bench.log.records().empty()) << "a narrow family writes no log";
}

TEST(Encoders, BehindTheFirstErrorOnlyFirstOperandsAreChecked) {
  EncoderBench<WP> bench;
  EXPECT_EQ(bench.run("ADDA", {"GR1,", "GR1X"}).errors, 1);
  EXPECT_EQ(bench.run("ADDA", {"GR1,", "GR1X"}).said, "");
  EXPECT_EQ(bench.run("JUMP", {","}).said, "");
  EXPECT_EQ(bench.run("ADDA", {"gr1,", "GR2"}).errors, 2);
  EXPECT_EQ(bench.run("LD", {"GR1,"}).errors, 1) << "the check of LD comes ahead of the rule";
  EncoderBench<WP> warned;
  EXPECT_EQ(warned.run("POP", {"GR1,"}).warnings, 1);
  EXPECT_EQ(warned.run("ADDA", {"GR1,", "GR1X"}).errors, 1) << "a Warning does not set it off";
}

TEST(Encoders, TheCommaFlagOfOneLineDoesNotReachTheNext) {
  EncoderBench<WP> bench;
  bench.run("LD", {"GR1,", "A,", "GR2"});
  EXPECT_TRUE(bench.cs.CommaAriFlag);
  EXPECT_EQ(bench.run("ADDA", {"GR1,"}).errors, 2);
}

}  // namespace
}  // namespace zelvaro::test
