// Opcode recognition and the dispatch of what takes no operand.
#include "statements/Program.h"

namespace zelvaro::test {
namespace {

struct Recognised {
  explicit Recognised(const std::string& line) : p(line) {
    TakeOutLabelStr<WP>(p.a, 0);
    result = CkOpStr<WP>(p.a, 0);
  }
  Program<WP> p;
  int result;
};

TEST(Opcodes, EveryMnemonicIsKnownAndLinesWithoutOneArePassedOver) {
  for (const Instruction& i : kInstructions) {
    if (i.opClass == OpClass::NhOnly || i.op == Op::START || i.op == Op::END) continue;
    Recognised r("A " + std::string(i.mnemonic) + "\nALONE");
    EXPECT_EQ(r.result, 0) << i.mnemonic << r.p.said();
    EXPECT_EQ(opOf(r.p.line()), i.op);
    EXPECT_EQ(opOf(r.p.store()[2]), Op::Unknown);
  }
}

TEST(Opcodes, HowManyErrorsAnUnknownOneDraws) {
  const std::vector<std::pair<std::string, int>> cases = {
      {" Ld GR1,A", 2}, {" ld GR1,A", 1},  {" LD, GR1,A", 2}, {" Ld, GR1,A", 3}, {" XNOP;", 1},
      {" EXIT", 1},     {" FOO\n BAR", 1}, {" NOP;X", 3},     {" NOP;x", 4},     {"\tRET;", 3},
      {" RPUSH;", 3},   {" RPOP;", 3},     {" NOP ;x", 0},    {" LD　GR1,A", 3}};
  for (const auto& [line, errors] : cases) {
    const Recognised r(line);
    EXPECT_EQ(r.p.cs.ErrorKazu, errors) << line;
    EXPECT_EQ(r.result, -errors) << line;
  }
}

TEST(Opcodes, TheWordsOfWhatIsEncodedInTheDispatch) {
  Program<WP> p("MAIN START A\n NOP ;x\nA RET\n END ABC\n");
  EXPECT_EQ(p.loop(), 0) << p.said();
  EXPECT_EQ(p.store()[0].word_kazu, 2);
  EXPECT_EQ(p.store()[1].word_kazu, 1);
  EXPECT_EQ(p.store()[1].Word1, 0);
  EXPECT_EQ(p.store()[2].Word1, 0x8100);
  EXPECT_EQ(p.store()[3].word_kazu, 1) << "END has a word of its own that reaches no memory";
  EXPECT_EQ(p.said(), "");
}

}  // namespace
}  // namespace zelvaro::test
