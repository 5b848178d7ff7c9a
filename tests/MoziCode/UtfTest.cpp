// UTF-8 and UTF-16, both ways, and what is counted, cut and judged in UTF-8.
#include <gtest/gtest.h>

#include "MoziCode/Utf.h"

namespace zelvaro {
namespace {

TEST(Utf, EveryCharacterGoesBothWays) {
  std::u16string wide, back;
  std::string narrow;
  for (char32_t c = 0; c < 0x110000; c = c == 0xD7FF ? 0xE000 : c + 1) {
    std::string one;
    appendUtf8(one, c);
    const Utf8Mozi mozi = decodeUtf8(one);
    ASSERT_TRUE(mozi.kind == Utf8Mozi::Kind::Whole && mozi.codePoint == c)
        << std::hex << static_cast<unsigned>(c);
    ASSERT_EQ(mozi.size, c < 0x80 ? 1u : c < 0x800 ? 2u : c < 0x10000 ? 3u : 4u);
    narrow += one;
    if (c >= 0x10000)
      wide += {static_cast<char16_t>(0xD7C0 + (c >> 10)), static_cast<char16_t>(0xDC00 + (c & 0x3FF))};
    else
      wide += static_cast<char16_t>(c);
  }
  EXPECT_TRUE(utf8ToUtf16(narrow, back));
  EXPECT_TRUE(back == wide && toUtf8(wide) == narrow);
}

TEST(Utf, LoneSurrogatesBecomeAReplacement) {
  const char16_t high = 0xD842, low = 0xDFB7;
  EXPECT_EQ(toUtf8(std::u16string{low, high}), "\uFFFD\uFFFD");
  EXPECT_EQ(toUtf8(std::u16string{high, high, low, u'x', low}), "\uFFFD𠮷x\uFFFD");
  EXPECT_EQ(toUtf8(std::u16string{high, u'x'}), "\uFFFDx");
}

TEST(Utf, IllFormedPartsAreReplacedOneByOne) {
  using Kind = Utf8Mozi::Kind;
  const struct {
    std::string bytes;
    Kind kind;         ///< of the first part
    std::size_t size;  ///< its bytes
    std::u16string text;
  } cases[] = {
      {"a\xFFz", Kind::Whole, 1, u"a\uFFFDz"},
      {"\x80\x80", Kind::IllFormed, 1, u"\uFFFD\uFFFD"},
      {"\xC1\x9B", Kind::IllFormed, 1, u"\uFFFD\uFFFD"},  // longer than needed: an escape's disguise
      {"\xE0\x9F\x80", Kind::IllFormed, 1, u"\uFFFD\uFFFD\uFFFD"},            // longer than needed
      {"\xED\xA0\x80", Kind::IllFormed, 1, u"\uFFFD\uFFFD\uFFFD"},            // a surrogate
      {"\xF4\x90\x80\x80", Kind::IllFormed, 1, u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond U+10FFFF
      {"\xE3\x81", Kind::Cut, 2, u"\uFFFD"},
      {"\xF0\x9F\x98", Kind::Cut, 3, u"\uFFFD"},
      {"\xF0\x9F\x98(", Kind::IllFormed, 3, u"\uFFFD("},
      {"\xE3\x81\xE3\x81\x82", Kind::IllFormed, 2, u"\uFFFDあ"},
  };
  for (const auto& c : cases) {
    const Utf8Mozi mozi = decodeUtf8(c.bytes);
    EXPECT_TRUE(mozi.kind == c.kind && mozi.size == c.size) << testing::PrintToString(c.bytes);
    std::u16string out = u"before";
    EXPECT_FALSE(utf8ToUtf16(c.bytes, out));
    EXPECT_EQ(out, u"before" + c.text) << testing::PrintToString(c.bytes);
  }
}

TEST(Utf, IsAsciiLooksAtEveryByte) {
  for (std::size_t i = 0; i < 33; ++i) {
    std::string s(33, '\x7F');
    EXPECT_TRUE(isAscii(s.substr(i)));
    s[i] = '\x80';
    EXPECT_FALSE(isAscii(s)) << i;
  }
}

TEST(Utf, TheFirstPartEndsWithAWholeCharacter) {
  EXPECT_EQ(firstCharacters("aあ𠮷z", 0), "");
  EXPECT_EQ(firstCharacters("aあ𠮷z", 3), "aあ𠮷");
  EXPECT_EQ(firstCharacters("aあ", 9), "aあ");
  EXPECT_EQ(firstBytes("abcdあ", 7), "abcdあ");
  EXPECT_EQ(firstBytes("abcdあ", 6), "abcd");
  EXPECT_EQ(firstBytes("abcd𠮷", 7), "abcd");
  EXPECT_EQ(firstBytes("あい𠮷", 6), "あい");
  EXPECT_EQ(trimAnyBlanks("　 \t　a　b　 "), "a　b");
  EXPECT_EQ(trimAnyBlanks("　"), "");
}

TEST(Utf, WhatATerminalWouldObeyOrHideIsUnsafe) {
  // escape, delete, CSI; bidirectional marks, overrides and isolates; separators; surrogates, beyond Unicode;
  // tags; characters without a shape
  for (const char32_t c : std::initializer_list<char32_t>{
           0x00,   0x1B,   0x7F,   0x80,   0x9B,   0x9F,   0x61C,    0x200E,     0x200F,  0x202A,  0x202E,
           0x2066, 0x2069, 0x2028, 0x2029, 0xD800, 0xDFFF, 0x110000, 0x7FFFFFFF, 0xE0001, 0xE0041, 0xE007F,
           0xAD,   0x115F, 0x200B, 0x2060, 0x3164, 0xFEFF, 0xFFA0,   0xFFF9,     0x1D173})
    EXPECT_TRUE(isUnsafeOnTerminal(c)) << std::hex << static_cast<unsigned>(c);
  // ASCII, the neighbours of what is unsafe, Japanese, the parts of an emoji, variation selectors
  for (const char32_t c :
       std::u32string(U" ~\u00A0\u00AC\u00AE\u00E9\u0301\u061B\u200A\u200C\u200D\u2010\u2027\u202F"
                      U"\u3000あｱ漢～\uD7FF\uE000\uFE0F\uFF9F\uFFFC\uFFFD𠮷😀\U000E0100\U000E01EF\U0010FFFF"))
    EXPECT_FALSE(isUnsafeOnTerminal(c)) << std::hex << static_cast<unsigned>(c);
}

}  // namespace
}  // namespace zelvaro
