// The row of stages: where a faulty program stops it, and what stays hidden behind.
#include "statements/Program.h"

namespace zelvaro::test {
namespace {

TEST(OpCkLoop, TheCodeTellsTheStage) {
  struct Case {
    const char* lines;
    int code;
    int errors;
  };
  const Case cases[] = {
      {" LD GR1,=1\n RET", 0, 0},
      {"TOOLONGLABEL FOO", -1, 1},
      {" FOO", -2, 1},
      {" LD GR1,=+ 5", -52, 1},
      {" LD GR1,- 5", -6, 1},
      {" LD GR1,=X", -71, 1},
      {"X DC ''", -120, 1},
      {" LD GR1", -130, 1},
      {" ADDA GR1,\n ADDA GR8,A\n ADDA GR1,GR1X", -130, 3},
      {" LD GR1,NONE\n LD GR2,NOWHERE", -150, 2},
  };
  for (const Case& c : cases) {
    Program<WP> p(c.lines);
    EXPECT_EQ(p.loop(), c.code) << c.lines << p.said();
    EXPECT_EQ(p.a.errors(), c.errors) << c.lines << p.said();
  }
}

TEST(OpCkLoop, TheFirstFaultyProgramHidesTheNext) {
  Program<WP> both("A START\n FOO\n END\nB START\n BAR\n END\n");
  EXPECT_EQ(both.loop(), -2);
  EXPECT_EQ(both.said().find("BAR"), std::string::npos);
  Program<WP> second("A START\n LD GR1,=1\n RET\n END\nB START\n ADDA GR1\n END\n");
  EXPECT_EQ(second.loop(), -130);
  EXPECT_EQ(second.store()[1].Word1, 0x1010) << "the first program is encoded";
}

}  // namespace
}  // namespace zelvaro::test
