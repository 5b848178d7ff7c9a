// UTF-8, UTF-16 and CP932, both ways.
#include <gtest/gtest.h>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;

TEST(Utf, WellFormedTextGoesBothWays) {
  for (const char16_t* text : {u"", u"abc", u"long ascii text, longer than a word", u"\x7F\x80\u07FF\u0800",
                               u"\uD7FF\uE000\uFFFF", u"a𠮷\U00010000\U0010FFFFz", u"日本語 ｱ"}) {
    std::u16string back;
    EXPECT_TRUE(utf8ToUtf16(toUtf8(text), back));
    EXPECT_EQ(back, text);
  }
  EXPECT_EQ(toUtf8(u"aあ𠮷"), "aあ𠮷");
}

TEST(Utf, LoneSurrogatesBecomeAReplacement) {
  const char16_t high = 0xD842, low = 0xDFB7;
  EXPECT_EQ(toUtf8(std::u16string{high, low}), "𠮷");
  EXPECT_EQ(toUtf8(std::u16string{low, high}), "\uFFFD\uFFFD");
  EXPECT_EQ(toUtf8(std::u16string{high, high, low, u'x', low}), "\uFFFD𠮷x\uFFFD");
  EXPECT_EQ(toUtf8(std::u16string{high, u'x'}), "\uFFFDx");
}

TEST(Utf, IllFormedPartsAreReplacedOneByOne) {
  const std::pair<std::string, std::u16string> cases[] = {
      {"\x80", u"\uFFFD"},
      {"a\xFF"
       "b",
       u"a\uFFFDb"},
      {"\xC0\xAF", u"\uFFFD\uFFFD"},  // longer than needed
      {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},            // a surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond U+10FFFF
      {"\xE3\x81", u"\uFFFD"},
      {"\xE3\x81(", u"\uFFFD("},
      {"\xF0\x9F\x98x", u"\uFFFDx"},
      {"\xE3\x81\xE3\x81\x82", u"\uFFFDあ"},
  };
  for (const auto& [bytes, text] : cases) {
    std::u16string out = u"before";
    EXPECT_FALSE(utf8ToUtf16(bytes, out));
    EXPECT_EQ(out, u"before" + text) << testing::PrintToString(bytes);
  }
}

TEST(Utf, IsAsciiLooksAtEveryByte) {
  EXPECT_TRUE(isAscii(""));
  EXPECT_TRUE(isAscii(std::string(33, '\x7F')));
  for (std::size_t i = 0; i < 33; ++i) {
    std::string s(33, '\0');
    s[i] = '\x80';
    EXPECT_FALSE(isAscii(s)) << i;
  }
}

TEST(Cp932, KnownCharactersGoBothWays) {
  const std::pair<std::string, std::u16string> cases[] = {
      {"abc", u"abc"},
      {"\x82\xA0\x81\x40", u"あ\u3000"},
      {"\xB1\xDF", u"ｱﾟ"},
      {"\x83\x5C\x94\x5C", u"ソ能"},  // the second byte is a backslash
      {"\x5C\x7E", u"\\~"},           // not yen and overline
      {"\x81\x60\x81\x7C", u"～－"},  // Microsoft's choice among look-alikes
      {"\x87\x40", u"①"},
      {"\xFB\xFC\xFC\x4B", u"髙黑"},
      {"\xEA\xA4", u"熙"},
  };
  for (const auto& [bytes, text] : cases) {
    std::u16string wide;
    std::string narrow;
    EXPECT_TRUE(cp932ToUtf16(bytes, wide)) << testing::PrintToString(bytes);
    EXPECT_EQ(wide, text);
    EXPECT_TRUE(utf16ToCp932(text, narrow));
    EXPECT_EQ(narrow, bytes);
  }
}

TEST(Cp932, EveryDoubleByteCodeAndEveryCharacterAgree) {
  int known = 0;
  for (int lead = 0x81; lead <= 0xFC; ++lead)
    for (int trail = 0x40; trail <= 0xFC; ++trail) {
      const std::string code{static_cast<char>(lead), static_cast<char>(trail)};
      std::u16string one, twice;
      if (!isCp932Lead(code[0]) || !cp932ToUtf16(code, one)) continue;
      ++known;
      ASSERT_EQ(one.size(), 1u);
      EXPECT_TRUE(isFullWidth(one[0])) << std::hex << lead << trail;
      EXPECT_TRUE(cp932ToUtf16(code + code + "x", twice));
      EXPECT_EQ(twice, one + one + u"x");
    }
  EXPECT_GT(known, 9000);
}

TEST(Cp932, UndecodableBytesAreReplaced) {
  const std::pair<std::string, std::u16string> cases[] = {
      {"\x82", u"\uFFFD"},
      {"a\x81 b", u"a\uFFFD b"},
      {"\x82\xA0\x81\x7F\x82\xA2", u"あ\uFFFD\x7Fい"},
      {"\x81\x81\x81", u"＝\uFFFD"},
  };
  for (const auto& [bytes, text] : cases) {
    std::u16string out = u"-";
    EXPECT_FALSE(cp932ToUtf16(bytes, out));
    EXPECT_EQ(out, u"-" + text) << testing::PrintToString(bytes);
  }
  std::string narrow = "-";
  EXPECT_FALSE(utf16ToCp932(u"a𠮷\u00E9あ\xD842", narrow));
  EXPECT_EQ(narrow, "-a??\x82\xA0?");
}

TEST(Cp932, FullWidthMeansTwoBytes) {
  for (const char16_t c : std::u16string(u"あ漢Ａ１\u3000、①"))
    EXPECT_TRUE(isFullWidth(c)) << static_cast<int>(c);
  for (const char16_t c : std::u16string(u"aｱ\\\u00E9\xD842\uFFFD\0", 7))
    EXPECT_FALSE(isFullWidth(c)) << static_cast<int>(c);
}

TEST(Cp932, NarrowTextPrintsAsUtf8) {
  EXPECT_EQ(cp932ToUtf8("plain"), "plain");
  EXPECT_EQ(cp932ToUtf8("\x82\xA0\xFF\xB1"), cp932ToUtf8("\x82\xA0") + cp932ToUtf8("\xFF") + "ｱ");
}

}  // namespace
}  // namespace zelvaro
