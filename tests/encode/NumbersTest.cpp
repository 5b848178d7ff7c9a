// The numbers of literals: the two checks and the two conversions.
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace zelvaro
