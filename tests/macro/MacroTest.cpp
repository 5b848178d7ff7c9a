// IN, OUT, RPUSH, RPOP: operand text, labels, words.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "macro/Macro.h"
#include "support/SourceLines.h"

namespace zelvaro {
namespace {

using test::SourceLines;

/// The macro stands in record 1; BUF at 10, LEN at 20, and another program.
template <class Family = WP>
struct Bench : SourceLines<Family> {
  explicit Bench(const std::string& line, int lang = kEnglish)
      : SourceLines<Family>(
            "MAIN START\n " + line +
                "\nBUF DS 2\nLEN DS 1\nEIGHTCHR DS 1\nATEND END\nOTHER START\nINNER DS 1\n END\n",
            lang) {
    this->line(2).AbAdr = 10;
    this->line(3).AbAdr = 20;
  }
  SrcData<CharOf<Family>>& tested() { return this->line(1); }
  /// What the address pass does with an IN or OUT.
  void addressPass() {
    address3_ck<Family>(this->a, tested(), 1);
    address3_ck<Family>(this->a, tested(), 2);
    InOut1<Family>(this->a, tested());
  }
};

struct Text {
  const char* line;
  const char* first;
  const char* second;
  const char* tallies;
};

class MacroText : public ::testing::TestWithParam<Text> {};

TEST_P(MacroText, LosesItsCommas) {
  const Text& c = GetParam();
  Bench<> bench(c.line);
  macro2<WP>(bench.a, bench.tested());
  EXPECT_EQ(plain(bench.tested().Oprnd[1]), c.first) << c.line;
  EXPECT_EQ(plain(bench.tested().Oprnd[2]), c.second) << c.line;
  EXPECT_EQ(bench.tallies(), c.tallies) << c.line;
  EXPECT_EQ(bench.tested().word_kazu, kInOutWords);
  EXPECT_TRUE(bench.log.records().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Lines, MacroText,
    ::testing::Values(Text{"IN BUF,LEN", "BUF", "LEN", "0 0 0"}, Text{"OUT BUF,LEN,", "BUF", "LEN", "0 1 0"},
                      Text{"IN BUF,LEN,X", "BUF", "LEN", "0 1 0"}, Text{"IN BUF LEN", "BUF", "LEN", "1 0 0"},
                      Text{"IN BUF", "BUF", "", "1 0 0"}, Text{"IN BUF,", "BUF", "", "0 0 0"},
                      Text{"IN ,LEN", "", "LEN", "0 0 0"}, Text{"IN", "", "", "1 0 0"}));

TEST(Macro2, BlanksAtTheEndsAreCut) {
  Bench<> bench("IN BUF,LEN");
  bench.tested().Oprnd[1] = u"BUF\t,";
  bench.tested().Oprnd[2] = u"LEN ";
  bench.tested().Oprnd[3] = u"X";
  macro2<WP>(bench.a, bench.tested());
  EXPECT_EQ(bench.tested().Oprnd[1], u"BUF");
  EXPECT_EQ(bench.tested().Oprnd[2], u"LEN");
  EXPECT_TRUE(bench.tested().Oprnd[3].empty());
  EXPECT_EQ(bench.tallies(), "0 0 0");
}

TEST(InOut, OnlyLabelsOfTheOwnProgramCount) {
  for (const char* line : {"IN BUF INNER", "IN BUF OTHER", "IN BUF ATEND"}) {
    Bench<> bench(line);
    bench.addressPass();
    EXPECT_EQ(bench.tallies(), "1 0 0") << line;
  }
}

template <class Family>
void expectInOutWords(const char* line, int service) {
  Bench<Family> bench(line);
  macro2<Family>(bench.a, bench.tested());
  bench.addressPass();
  EXPECT_EQ(bench.tallies(), "0 0 0") << bench.printed();
  ASSERT_TRUE(bench.tested().IsWordsComplete);
  EXPECT_TRUE(bench.line(2).IsLabelInUse && bench.line(3).IsLabelInUse);
  std::array<std::int32_t, kInOutWords> words{};
  macroWords(opOf(bench.tested()), bench.tested().Word1, bench.tested().Word2, words);
  EXPECT_THAT(words, ::testing::ElementsAre(0x7001, 0, 0x7002, 0, 0x1210, 10, 0x1220, 20, 0xF000, service,
                                            0x7120, 0x7110));
}

TEST(InOut, Words) {
  expectInOutWords<WP>("IN BUF,LEN", 1);
  expectInOutWords<WP>("OUT BUF,LEN", 2);
  expectInOutWords<AP>("OUT BUF,LEN", 2);
}

TEST(RpushRpop, Words) {
  std::array<std::int32_t, kRpushWords> rpush{};
  macroWords(Op::RPUSH, 0, 0, rpush);
  EXPECT_THAT(rpush, ::testing::ElementsAre(0x7001, 0, 0x7002, 0, 0x7003, 0, 0x7004, 0, 0x7005, 0, 0x7006, 0,
                                            0x7007, 0));
  std::array<std::int32_t, kRpopWords + 1> rpop{};
  rpop.back() = -1;
  macroWords(Op::RPOP, 0, 0, rpop);
  EXPECT_THAT(rpop, ::testing::ElementsAre(0x7170, 0x7160, 0x7150, 0x7140, 0x7130, 0x7120, 0x7110, -1));
}

TEST(RpushRpop, TakeNoOperand) {
  Bench<> good("RPUSH");
  macroR2<WP>(good.a, good.tested());
  EXPECT_EQ(good.tested().word_kazu, kRpushWords);
  EXPECT_EQ(good.tallies(), "0 0 0");
  Bench<> bad("RPOP 1");
  bad.tested().OprndKazu = 1;
  macroR2<WP>(bad.a, bad.tested());
  EXPECT_EQ(bad.tallies(), "1 0 0");
  EXPECT_EQ(bad.tested().OprndKazu, 1);
}

}  // namespace
}  // namespace zelvaro
