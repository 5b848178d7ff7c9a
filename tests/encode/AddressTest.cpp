// Address operands: what the statement pass leaves of them, and their value in the address pass.
#include <gtest/gtest.h>

#include "encode/AdrConst.h"
#include "support/SourceLines.h"

namespace zelvaro {
namespace {

using test::SourceLines;

/// MAIN with the line under test at record 1; labels A and OTHER2 at 7 and 8, the program OTHER at 20.
template <class Family = WP>
struct Bench : SourceLines<Family> {
  explicit Bench(const std::string& line, int lang = kEnglish)
      : SourceLines<Family>("MAIN START\n " + line +
                                "\nA DS 1\nEIGHTCHR DS 1\nGR1X DS 1\n END A\nOTHER START\nINNER DS 1\n END\n",
                            lang) {
    this->line(2).AbAdr = 7;
    this->line(3).AbAdr = 8;
    this->line(4).AbAdr = 9;
    this->line(7).AbAdr = 21;
    this->program(1).AbAdrAtStart = 20;
  }
  SrcData<CharOf<Family>>& tested() { return this->line(1); }
  int oprnd() { return instruction(opOf(tested())).form == OpForm::Branch ? 1 : 2; }
  /// The address operand alone, without its comma.
  int resolve() {
    auto& p = tested().Oprnd[static_cast<std::size_t>(oprnd())];
    if (p.ends_with(CharOf<Family>(','))) p.remove_suffix(1);
    return CkAdrConst22<Family>(this->a, tested(), oprnd());
  }
};

TEST(AddressShape, CutsTheCommaAndForgetsAnOldAddress) {
  Bench<> bench("LD GR1,A,GR2");
  bench.tested().Word2 = 99;
  CkAdrOperand<WP>(bench.a, bench.tested(), 2);
  EXPECT_EQ(bench.tested().Oprnd[2], u"A");
  EXPECT_EQ(bench.tested().Word2, 0);
}

TEST(AddressShape, BlankAndCommaAreNoOperand) {
  Bench<> bench("LD GR1,A");
  bench.tested().Oprnd[2] = u"\t,";
  CkAdrOperand<WP>(bench.a, bench.tested(), 2);
  EXPECT_EQ(bench.tallies(), "1 0 0");
}

// --- value ---

struct Value {
  const char* line;
  int result;
  int word2;
  const char* tallies;  ///< Errors, Warnings, Notes
};

class AddressValue : public ::testing::TestWithParam<Value> {};

template <class Family>
void expectValue(const Value& c) {
  Bench<Family> bench(c.line);
  EXPECT_EQ(bench.resolve(), c.result) << c.line;
  EXPECT_EQ(bench.tested().Word2, c.word2) << c.line;
  EXPECT_EQ(bench.tallies(), c.tallies) << c.line << "\n" << bench.printed();
}

TEST_P(AddressValue, WideAndNarrow) {
  expectValue<WP>(GetParam());
  expectValue<AP>(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Names, AddressValue,
    ::testing::Values(
        Value{"LD GR1,A", 0, 7, "0 0 0"}, Value{"LD GR1,EIGHTCHR", 0, 8, "0 0 0"},
        Value{"JUMP NINECHARS", kAdrTooLong, 0, "1 0 0"}, Value{"LD GR1,GR1X", 0, 9, "0 0 0"},
        Value{"JUMP MAIN", 0, 0, "0 0 0"}, Value{"JUMP INNER", kAdrUndefined, 0, "1 0 0"},
        Value{"CALL OTHER", 0, 20, "0 0 0"}, Value{"LAD GR1,OTHER", 0, 20, "0 0 0"},
        Value{"JUMP OTHER", 0, 20, "0 1 0"}, Value{"LD GR1,GR2,", 0, 0, "0 0 0"},
        Value{"JUMP GR8", kAdrUndefined, 0, "1 0 0"}, Value{"LD GR1,A+1", kAdrUndefined, 0, "2 0 0"},
        Value{"LD GR1,Abc", kAdrUndefined, 0, "3 0 0"}, Value{"LD GR1,LONGlab", kAdrUndefined, 0, "3 0 0"},
        Value{"LD GR1,LONGlabel1", kAdrTooLong, 0, "3 0 0"}, Value{"LD GR1,abc", kAdrInvalid, 0, "1 0 0"}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, AddressValue,
    ::testing::Values(
        Value{"LAD GR1,0", 0, 0, "0 0 0"}, Value{"LAD GR1,40000", 0, 0x9C40, "0 0 0"},
        Value{"LAD GR1,65535", 0, 0xFFFF, "0 0 0"}, Value{"LAD GR1,65536", 0, 0, "0 0 1"},
        Value{"LAD GR1,70000", 0, 0x1170, "0 0 1"}, Value{"LAD GR1,99999999999", 0, 0xFFFF, "0 0 1"},
        Value{"LAD GR1,-1", 0, 0xFFFF, "0 0 0"}, Value{"LAD GR1,+65535", 0, 0xFFFF, "0 0 0"},
        Value{"LAD GR1,-32768", 0, 0x8000, "0 0 0"}, Value{"LAD GR1,-32769", 0, 0x7FFF, "0 0 1"},
        Value{"LAD GR1,-99999999999", 0, 0, "0 0 1"}, Value{"LAD GR1,12X", kAdrBadDecimal, 0, "1 0 0"},
        Value{"LAD GR1,-1X", kAdrBadDecimal, 0, "1 0 0"}, Value{"LAD GR1,+", kAdrInvalid, 0, "1 0 0"},
        Value{"LAD GR1,-X", kAdrInvalid, 0, "1 0 0"}, Value{"LAD GR1,'A'", kAdrInvalid, 0, "1 0 0"}));

INSTANTIATE_TEST_SUITE_P(Hex, AddressValue,
                         ::testing::Values(Value{"LAD GR1,#FFFF", 0, 0xFFFF, "0 0 0"},
                                           Value{"LAD GR1,#0A1F", 0, 0x0A1F, "0 0 0"},
                                           Value{"LAD GR1,#", kAdrNoHexDigit, 0, "1 0 0"},
                                           Value{"LAD GR1,#12", kAdrFewHexDigits, 0, "1 0 0"},
                                           Value{"LAD GR1,#123", kAdrFewHexDigits, 0, "1 0 0"},
                                           Value{"LAD GR1,#1g", kAdrFewHexDigits, 0, "2 0 0"},
                                           Value{"LAD GR1,#12345", 0, 0x2345, "1 0 0"},
                                           Value{"LAD GR1,#FFFFFFFFF", 0, 0xFFFF, "1 0 0"},
                                           Value{"LAD GR1,#00ff", 0, 0, "2 0 0"},
                                           Value{"LAD GR1,#12Gff", 0, 0x12, "3 0 0"}));

INSTANTIATE_TEST_SUITE_P(
    Literals, AddressValue,
    ::testing::Values(Value{"LD GR1,=5", 0, 0, "0 0 0"}, Value{"LD GR1,=+5", 0, 0, "0 0 0"},
                      Value{"LD GR1,=40000", 0, 0, "0 1 0"}, Value{"LD GR1,=#00FF", 0, 0, "0 0 0"},
                      Value{"LD GR1,=#FF", kAdrBadLiteral, 0, "2 0 0"},
                      Value{"LD GR1,=+12X", kAdrBadLiteral, 0, "2 0 0"},
                      Value{"LD GR1,=+", kAdrInvalid, 0, "1 0 0"},
                      Value{"LD GR1,=-X", kAdrInvalid, 0, "1 0 0"},
                      Value{"LD GR1,=", kAdrInvalid, 0, "1 0 0"}, Value{"LD GR1,=A", kAdrInvalid, 0, "1 0 0"},
                      Value{"LD GR1,='A,B'", 0, 0, "0 0 0"}));

TEST(AddressConst, AProgramGoesBeforeALabelOfTheSameText) {
  SourceLines<WP> source("MAIN START\n LAD GR1,OTHER\nOTHER DS 1\n END\nOTHER START\n END\n");
  source.line(2).AbAdr = 3;
  source.program(1).AbAdrAtStart = 4;
  EXPECT_EQ(CkAdrConst22<WP>(source.a, source.line(1), 2), 0);
  EXPECT_EQ(source.line(1).Word2, 4);
  EXPECT_FALSE(source.line(2).IsLabelInUse);
}

TEST(AddressConst, ALiteralKeepsItsRecordFromRunToRun) {
  Bench<> bench("LD GR1,='It''s'");
  bench.resolve();
  ASSERT_EQ(bench.store.vecAdrConst.size(), 1u);
  AdrConst<char16_t>& literal = bench.store.vecAdrConst[0];
  EXPECT_EQ(literal.WordKazu, 4);
  EXPECT_EQ(literal.DataType, ConstKind::CharConst);
  EXPECT_EQ(literal.ConstStr, u"'It''s'");
  literal.AbAdr = 50;
  bench.resolve();
  EXPECT_EQ(bench.store.vecAdrConst.size(), 1u);
  EXPECT_EQ(bench.tested().Word2, 50);

  Bench<> number("PUSH =-5");
  number.resolve();
  number.store.vecAdrConst[0].AbAdr = 60;
  number.resolve();
  EXPECT_EQ(number.store.vecAdrConst[0].Value, -5);
  EXPECT_EQ(number.store.vecAdrConst[0].DataType, ConstKind::Dec);
  EXPECT_EQ(number.store.vecAdrConst[0].WordKazu, 1);
  EXPECT_EQ(number.tested().Word2, 60);
}

}  // namespace
}  // namespace zelvaro
