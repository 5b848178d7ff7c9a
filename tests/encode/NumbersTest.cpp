// The numbers of literals: the two checks, the two conversions and their words.
#include <gtest/gtest.h>

#include <functional>

#include "support/SourceLines.h"

namespace zelvaro {
namespace {

using test::SourceLines;

struct Bench : SourceLines<WP> {
  explicit Bench(int lang = kEnglish) : SourceLines("A START\n END\n", lang) {}
};

TEST(Numbers, DecimalConversion) {
  const std::vector<std::tuple<std::u16string_view, int, int>> cases{{u"32767", 32767, 0},
                                                                     {u"-32768", -32768, 0},
                                                                     {u"+5", 5, 0},
                                                                     {u"-5", -5, 0},
                                                                     {u"32768", 32768, 1},
                                                                     {u"-32769", -32769, 1},
                                                                     {u"65535", 65535, 1},
                                                                     {u"99999999999", 2147483647, 1},
                                                                     {u"007", 7, 0},
                                                                     {u"2147483648", 2147483647, 1},
                                                                     {u"-99999999999", -2147483647 - 1, 1}};
  for (const auto& [text, value, warnings] : cases) {
    Bench bench;
    EXPECT_EQ(CkDecConstG<WP>(bench.cs, 0, 2, text), 0) << plain(text);
    EXPECT_EQ(DecStrToIntG<WP>(bench.cs, 0, 2, text), value) << plain(text);
    EXPECT_EQ(bench.cs.WarningKazu, warnings) << plain(text);
    EXPECT_EQ(bench.cs.ErrorKazu, 0) << plain(text);
  }
}

TEST(Numbers, HexCheckAndConversion) {
  const std::vector<std::tuple<std::u16string_view, int, int, int>> cases{
      // text, result of the check, value, Errors of the conversion
      {u"#00FF", 0, 255, 0},
      {u"#FFFF", 0, 65535, 0},
      {u"#0000", 0, 0, 0},
      {u"#00ff", -1, 0, 1},
      {u"#12G4", -1, 18, 1},
      {u"#12345", -2, 74565, 0},
      {u"#123456789", -2, 2147483647, 0},
      {u"#", -3, 0, 1},
      {u"#1", -4, 1, 0},
      {u"#123", -4, 291, 0},
      {u"#GGGGG", -1, 0, 1}};
  for (const auto& [text, result, value, errors] : cases) {
    Bench check, conversion;
    EXPECT_EQ(CkHexConstG<WP>(check.cs, 0, 2, text), result) << plain(text);
    EXPECT_EQ(check.cs.ErrorKazu, result == 0 ? 0 : 1) << plain(text);
    EXPECT_EQ(HexStrToIntG<WP>(conversion.cs, 0, 2, text), value) << plain(text);
    EXPECT_EQ(conversion.cs.ErrorKazu, errors) << plain(text);
  }
}

TEST(Numbers, SelfChecksOfTheFirstCharacter) {
  Bench bench;
  EXPECT_EQ(CkDecConstG<WP>(bench.cs, 0, 1, u"X1"), -1);
  EXPECT_EQ(
      bench.printed().find("Prg. Error: 先頭文字が(+, -, 数字)でこの関数に引き渡されることになっている。X\n"),
      0u);
  EXPECT_EQ(CkDecConstG<WP>(bench.cs, 0, 1, u""), 0);
  EXPECT_EQ(CkHexConstG<WP>(bench.cs, 0, 1, u""), -3);
  EXPECT_EQ(bench.cs.ErrorKazu, 5);
}

struct WordsOf {
  std::function<void(TCorrectScode&)> call;
  const char* en;
  const char* ja;
};

class NumbersWords : public ::testing::TestWithParam<WordsOf> {};

TEST_P(NumbersWords, InBothLanguages) {
  Bench en, ja(kJapanese);
  GetParam().call(en.cs);
  GetParam().call(ja.cs);
  EXPECT_EQ(en.printed(), GetParam().en);
  EXPECT_EQ(ja.printed(), GetParam().ja);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, NumbersWords,
    ::testing::Values(
        WordsOf{[](TCorrectScode& cs) { CkDecConstG<WP>(cs, 4, 2, u"+12X"); },
                "Error : line 5:  Constant Nr=3: \n \"12X\" : \n"
                "A non-numerical letter is found in the decimal constant. \n",
                "エラー： 5 行目： 3 番目の定数： :\n \"12X\" : \n10進定数の中に数字以外の文字がある。\n"},
        WordsOf{[](TCorrectScode& cs) { DecStrToIntG<WP>(cs, 4, 1, u"40000"); },
                "Warning : line 5:  Constant Nr=2: 40000 \nThe decimal number constant is out of range. \n"
                "It should be between -32768 and 32767. \nSo its lower 16 bits are saved in memory. \n"
                "(CASL2 Spec: 2.3 (4)) \n",
                "警告： 5 行目： : 2 番目の定数： : \n十進定数 40000 が -32768 から 32767 "
                "までの範囲にないので、その下位１６ビットが格納される。（仕様2・3（４））  \n"},
        WordsOf{
            [](TCorrectScode& cs) { CkHexConstG<WP>(cs, 4, 2, u"#00f"); },
            "Error : line 5:  Constant Nr=3: \n \"00f\" : \nA hexadecimal number is written in 0-9 and A-F. \n"
            "A hexadecimal number is written in uppercase letter. \n"
            "A non-numeric charcter is found in the hexadecimal number.\n",
            "エラー： 5 行目： : 3 番目の定数： : \n \"00f\" : \n"
            " 16進数は 0-9 の数字と A-F の英大文字で記述する。\n"
            "16進数の中に 0-9 の数字と A-F の英大文字以外の文字がある。\n"},
        WordsOf{[](TCorrectScode& cs) { CkHexConstG<WP>(cs, 4, 2, u"#12345"); },
                "Error : line 5:  Constant Nr=3  \"12345\"  "
                "A hexadecimal number should be written in four letters. \nThere are 5 letters in it. \n",
                "エラー： 5 行目： 3 番目の定数：  \"12345\"  16進数は4文字で記述する。5 文字ある。\n"},
        WordsOf{[](TCorrectScode& cs) { CkHexConstG<WP>(cs, 4, 2, u"#"); }, "Missing a value after '#'. \n",
                "# の右に記述がない。\n"},
        WordsOf{
            [](TCorrectScode& cs) { CkHexConstG<WP>(cs, 4, 2, u"#1"); },
            "Error : line 5:  Constant Nr=3: \n \"1\"  \nA hexadecimal number is written in four letters. \n"
            "There is only one letter in it. \n",
            "エラー： 5 行目： 3 番目の定数： \n \"1\"  : 16進数は4文字で記述する。\n1 文字しかない。\n"},
        WordsOf{
            [](TCorrectScode& cs) { CkHexConstG<WP>(cs, 4, 2, u"#123"); },
            "Error : line 5:  Constant Nr=3: \n \"123\"  \n"
            "A hexadecimal number is written in four letters. \nThere are only 3 letters in it. \n",
            "エラー： 5 行目： 3 番目の定数： \n \"123\"  : 16進数は4文字で記述する。\n3 文字しかない。\n"}));

}  // namespace
}  // namespace zelvaro
