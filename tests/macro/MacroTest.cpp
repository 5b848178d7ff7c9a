// IN, OUT, RPUSH, RPOP: operand text, operand form, labels, words.
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

TEST(Macro2, WithoutBuffersItDoesNothing) {
  Bench<> bench("IN BUF");
  bench.tested().Oprnd[2] = {};
  macro2<WP>(bench.a, bench.tested());
  EXPECT_EQ(bench.tested().word_kazu, 0);
  EXPECT_EQ(bench.tallies(), "0 0 0");
}

struct WordsOf {
  const char* line;
  const char* en;
  const char* ja;
};

class Macro2Words : public ::testing::TestWithParam<WordsOf> {};

TEST_P(Macro2Words, InBothLanguages) {
  for (const int lang : {kEnglish, kJapanese}) {
    Bench<> bench(GetParam().line, lang);
    macro2<WP>(bench.a, bench.tested());
    EXPECT_EQ(bench.printed(), lang == kEnglish ? GetParam().en : GetParam().ja);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Macro2Words,
    ::testing::Values(WordsOf{"IN BUF",
                              "Error : line 2: A comma is expected at the right side of the first operand. "
                              "Each of the IN and OUT macro instructions takes two operands. \n",
                              "エラー： 2 行目： マクロ命令の１番目のオペランドの右にコンマが必要です。　"
                              "IN と OUT のマクロ命令はオペランドを2つとる。\n"},
                      WordsOf{
                          "IN BUF,LEN,",
                          "Warning : line 2: A comma is of no use at the right side of the second operand. "
                          "It should be deleted. \n",
                          "警告： 2 行目： 二つ目のオペランドの右のコンマは不要です。空白が適切です。 \n"},
                      WordsOf{"NOP A,B", "Error : line 2: : 'NOP' is not a macro instruction in casl2. \n",
                              "エラー： 2 行目： 該当するマクロ命令がない。\n"}));

struct Form {
  const char* oprnd;
  const char* en;
  const char* ja;
  bool anotherFollows;  ///< InOut1 has something to say as well
};

class MacroForm : public ::testing::TestWithParam<Form> {};

TEST_P(MacroForm, OneMessageAtMost) {
  const Form& c = GetParam();
  for (const int lang : {kEnglish, kJapanese}) {
    for (const int n : {1, 2}) {
      Bench<> bench(n == 1 ? "IN " + std::string(c.oprnd) + " LEN" : "OUT BUF " + std::string(c.oprnd), lang);
      address3_ck<WP>(bench.a, bench.tested(), n);
      EXPECT_EQ(bench.printed(), lang == kEnglish ? c.en : c.ja) << c.oprnd;
      const int errors = bench.cs.ErrorKazu;
      InOut1<WP>(bench.a, bench.tested());
      EXPECT_EQ(bench.cs.ErrorKazu, errors + (c.anotherFollows ? 1 : 0)) << c.oprnd;
    }
  }
}

constexpr const char* kLabelJa =
    "エラー： 2 行目： IN と OUT のオペランドはラベルで指定する。（仕様２・４）\n";
constexpr const char* kLabelLiteralJa =
    "エラー： 2 行目： IN と OUT のオペランドはラベルで指定する。（CASL2 の仕様２・４）\n";
constexpr const char* kHex =
    "Error : line 2: An operand of IN must be a label in the program. (Spec. 2-4) "
    "An operand of OUT must be a label in the program. (Spec. 2-4) \n";
constexpr const char* kHexLiteral =
    "Error : line 2: An operand of IN must be a label in the program. (Spec. 2-4) "
    "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) \n";

INSTANTIATE_TEST_SUITE_P(
    Oprnds, MacroForm,
    ::testing::Values(
        Form{"BUF", "", "", false}, Form{"GR8", "", "", true}, Form{"abc", "", "", true},
        Form{"+", "", "", true}, Form{"=X", "", "", true}, Form{"'A'", "", "", true},
        Form{"Bu",
             "Error : line 2:  \"Bu\" : \nThe address constant contains characters other than uppercase "
             "alphanumeric characters. \n",
             "エラー： 2 行目：  \"Bu\" : \nアドレス定数に英大文字と数字以外の文字がある。\n", true},
        Form{"NINECHARS",
             "Error : line 2: \nAn address constant(or a label) must be written in eight letters or less. \n"
             "There are 9 characters in  \"NINECHARS\" . \n",
             "エラー： 2 行目：  \"NINECHARS\" \nアドレス定数は８文字以内の制限がある。\n9 文字ある。\n",
             true},
        Form{
            "GR1",
            "Error : line 2:  \"GR1\" \nGR0-GR7 are reserved words.  They cannot be used as an operand of the "
            "macro instruction. \nEvery operand of macro instructions must be a label in the program. (Spec. of "
            "CASL2  2-4) \n",
            "エラー： 2 行目：  \"GR1\" \n マクロ命令のオペランドに予約語( GR0 - GR7 )は使えない。\n"
            "マクロ命令のオペランドはラベル で指定する。（CASL2の仕様 2-4）\n",
            false},
        Form{"#10", kHex, kLabelJa, true}, Form{"-1", kHex, kLabelJa, true},
        Form{"10",
             "Error : line 2: An operand of IN must be a label in the program. (Spec. of CASL2: 2-4) "
             "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) \n",
             kLabelJa, true},
        Form{"=#0010", kHexLiteral, kLabelLiteralJa, true}, Form{"=+1", kHexLiteral, kLabelLiteralJa, true},
        Form{"=10",
             "Error : line 2: An operand of IN must be a label in the program. (Spec. 2-4) \n"
             "An operand of OUT must be a label in the program. (Spec. of CASL2: 2-4) \n",
             kLabelLiteralJa, true},
        Form{"='A'",
             "Error : line 2: An operand of IN must be a label in the program. (Spec. 2-4) "
             "An operand of OUT must be a label in the program. (Spec. of CASl2: 2-4) \n",
             kLabelJa, true}));

struct Missing {
  const char* line;
  const char* en;
  const char* ja;
  int errorsBefore;
};

class MacroLabels : public ::testing::TestWithParam<Missing> {};

TEST_P(MacroLabels, TellsWhatIsMissing) {
  const Missing& c = GetParam();
  for (const int lang : {kEnglish, kJapanese}) {
    Bench<> bench(c.line, lang);
    bench.cs.ErrorKazu = c.errorsBefore;
    InOut1<WP>(bench.a, bench.tested());
    EXPECT_EQ(bench.printed(), lang == kEnglish ? c.en : c.ja) << c.line;
    EXPECT_FALSE(bench.tested().IsWordsComplete);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Oprnds, MacroLabels,
    ::testing::Values(
        Missing{
            "IN NONE LEN",
            "Error : line 2:  \"NONE\"  is an undefined address constant. \n"
            "No label or program name matches the address constant. \nMake sure of your spelling of  \"NONE\" . \n",
            "エラー： 2 行目： アドレス定数  \"NONE\"  と一致するラベルが存在しない。\n"
            "ラベルのミススペリングではありませんか？ \n",
            0},
        Missing{"IN BUF NONE",
                "Error : line 2:  \"NONE\"  is an undefined address constant. \n"
                "No label or program name matches the address constant. \n",
                "エラー： 2 行目： アドレス定数  \"NONE\"  と一致するラベルが存在しない。\n", 0},
        Missing{"IN BUF", "Error : line 2: IN takes two operands. \n",
                "エラー： 2 行目： IN はオペランドを二つ必要とする。　\n", 0},
        Missing{"OUT BUF", "", "", 1},
        Missing{"IN 10 LEN", "Error : line 2:  \"10\"  is not an address constant. \n",
                "エラー： 2 行目：  \"10\"  はアドレス定数ではない。\n", 0}));

TEST(InOut, OnlyLabelsOfTheOwnProgramCount) {
  for (const char* line : {"IN BUF INNER", "IN BUF OTHER", "IN BUF ATEND"}) {
    Bench<> bench(line);
    bench.addressPass();
    EXPECT_EQ(bench.tallies(), "1 0 0") << line;
  }
}

TEST(InOut, AMissingSecondOperandIsToldOnce) {
  for (const int lang : {kEnglish, kJapanese}) {
    Bench<> bench("IN BUF,", lang);
    macro2<WP>(bench.a, bench.tested());
    bench.addressPass();
    EXPECT_EQ(bench.printed(), lang == kEnglish ? "Error : line 2: IN takes two operands. \n"
                                                : "エラー： 2 行目： IN はオペランドを二つ必要とする。  \n");
    EXPECT_EQ(bench.tallies(), "1 0 0");
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

TEST(RpushRpop, GuardAgainstOtherOpcodes) {
  for (const int lang : {kEnglish, kJapanese}) {
    Bench<> bench("NOP", lang);
    macroR2<WP>(bench.a, bench.tested());
    EXPECT_EQ(bench.printed(), lang == kEnglish ? "Error : line 2: NOP is not a macro instruction. \n"
                                                : "エラー： 2 行目： 該当するマクロ命令がない。\n");
    EXPECT_EQ(bench.tallies(), "1 0 0");
    EXPECT_TRUE(bench.log.records().empty());
  }
}

}  // namespace
}  // namespace zelvaro
