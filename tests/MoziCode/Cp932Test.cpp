// CP932 and UTF-16, both ways: all codes by a digest, and what has no counterpart.
#include <gtest/gtest.h>

#include <cstdint>

#include "MoziCode/Characters.h"
#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"

namespace zelvaro {
namespace {

/// FNV-1a, for a table of which every entry counts.
class Digest {
 public:
  void add(int byte) { value_ = (value_ ^ static_cast<std::uint64_t>(byte & 0xFF)) * 0x100000001B3u; }
  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 0xCBF29CE484222325u;
};

// The value is that of a table which agreed with the C library's converter in every code.
TEST(Cp932, TheTableIsTheSameOnEveryMachine) {
  Digest digest;
  for (int pair = 0; pair < 0x10000; ++pair) {
    std::u16string text;
    digest.add(cp932ToUtf16(std::string{static_cast<char>(pair >> 8), static_cast<char>(pair)}, text));
    for (const char16_t c : text) {
      digest.add(c);
      digest.add(c >> 8);
    }
  }
  for (int unit = 0; unit < 0x10000; ++unit) {
    const auto c = static_cast<char16_t>(unit);
    std::string bytes;
    digest.add(utf16ToCp932({&c, 1}, bytes));
    for (const char byte : bytes) digest.add(byte);
    ASSERT_EQ(isFullWidth(c), bytes.size() == 2) << std::hex << unit;
  }
  EXPECT_EQ(digest.value(), 4888314879289346923u);
}

TEST(Cp932, WhatHasNoCounterpartIsReplaced) {
  const std::pair<std::string, std::u16string> cases[] = {
      {"\x82", u"\uFFFD"},
      {"a\x81 b", u"a\uFFFD b"},
      {"\x82\xA0\x81\x7F\x82\xA2", u"あ\uFFFD\x7Fい"},
      {"\x81\x81\x81", u"＝\uFFFD"},
      {"\x80\xA0\xFD\xFF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\x81\xAD\xB1", u"\uFFFD\uFF6Dｱ"},  // an empty code: its second byte is read again
  };
  for (const auto& [bytes, text] : cases) {
    std::u16string out = u"-";
    EXPECT_FALSE(cp932ToUtf16(bytes, out));
    EXPECT_EQ(out, u"-" + text) << testing::PrintToString(bytes);
  }
  // a pair is one character, also a tag; a lone surrogate is one too
  std::string narrow = "-";
  EXPECT_FALSE(utf16ToCp932(u"a𠮷\u00E9あ\U000E0041" + std::u16string{0xDC00, 0xD842, u'b', 0xD842}, narrow));
  EXPECT_EQ(narrow, "-a??\x82\xA0???b?");
}

TEST(Cp932, TextOfAFileIsReadInEachEncoding) {
  EXPECT_EQ(fileTextAsUtf8("\xFF\xFE" + std::string("\x42\x30\x61\0", 4) + "x"), "あa")
      << "half a unit is dropped";
  EXPECT_EQ(fileTextAsUtf8("\xFE\xFF" + std::string("\x30\x42\0\x61", 4)), "あa");
  EXPECT_EQ(fileTextAsUtf8("\xEF\xBB\xBFあ"), "あ");
  EXPECT_EQ(fileTextAsUtf8("あ"), "あ");
  EXPECT_EQ(fileTextAsUtf8("\x82\xA0\xFF\xB1"), "あ\uFFFDｱ");
}

TEST(Characters, AreJudgedAndCutWhole) {
  EXPECT_EQ(firstMozi<char16_t>(u"a𠮷", 2), u"a");
  EXPECT_FALSE(holdsFullWidth<char>("\x81\x7F"));  // 7F is no second byte
}

}  // namespace
}  // namespace zelvaro
