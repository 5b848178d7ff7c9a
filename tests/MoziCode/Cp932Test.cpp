// CP932 and UTF-16, both ways: against the system's converter where there is one, and by a digest of all codes.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"

#if __has_include(<iconv.h>)
#include <iconv.h>
#endif

namespace zelvaro {
namespace {

/// What one conversion gave.
struct Result {
  bool known = false;
  std::string bytes;  ///< of the text; of UTF-16 in the machine's order
  bool operator==(const Result&) const = default;
};

std::string bytesOf(std::u16string_view text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}
Result decoded(std::string_view code) {
  std::u16string text;
  const bool known = cp932ToUtf16(code, text);
  return {known, bytesOf(text)};
}
Result encoded(char16_t c) {
  Result r;
  r.known = utf16ToCp932({&c, 1}, r.bytes);
  return r;
}

std::string pairOf(int first, int second) {
  return {static_cast<char>(first), static_cast<char>(second)};
}

#if __has_include(<iconv.h>)
/// The system's converter, one character at a time; a byte or a code unit that it refuses becomes `bad`.
class SystemConverter {
 public:
  SystemConverter(const char* to, const char* from, std::size_t unit, std::string bad)
      : cd_(iconv_open(to, from)), unit_(unit), bad_(std::move(bad)) {}
  ~SystemConverter() {
    if (exists()) iconv_close(cd_);
  }
  SystemConverter(const SystemConverter&) = delete;
  SystemConverter& operator=(const SystemConverter&) = delete;

  bool exists() const { return std::bit_cast<std::intptr_t>(cd_) != -1; }
  Result convert(std::string_view in) {
    Result r{true, {}};
    while (!in.empty()) {
      const std::size_t taken = one(in, r.bytes);
      if (taken == 0) {
        r.known = false;
        r.bytes += bad_;
      }
      in.remove_prefix(taken == 0 ? unit_ : taken);
    }
    return r;
  }

 private:
  /// Converts the shortest front that is a character; its size, or 0 if none of one or two units is.
  std::size_t one(std::string_view in, std::string& out) {
    for (std::size_t size = unit_; size <= 2 * unit_ && size <= in.size(); size += unit_) {
      char* from = const_cast<char*>(in.data());
      char room[8];
      char* to = room;
      std::size_t left = size, free = sizeof room;
      iconv(cd_, nullptr, nullptr, nullptr, nullptr);
      if (iconv(cd_, &from, &left, &to, &free) != 0 || left != 0) continue;
      out.append(room, to);
      return size;
    }
    return 0;
  }

  iconv_t cd_;
  std::size_t unit_;
  std::string bad_;
};

TEST(Cp932, AgreesWithTheSystemsConverter) {
  const char* const utf16 = std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";
  SystemConverter decode(utf16, "CP932", 1, bytesOf(u"\uFFFD"));
  SystemConverter encode("CP932", utf16, sizeof(char16_t), "?");
  if (!decode.exists() || !encode.exists()) GTEST_SKIP() << "the system has no converter for CP932";
  for (int first = 0; first < 256; ++first) {
    const std::string single(1, static_cast<char>(first));
    EXPECT_EQ(decoded(single), decode.convert(single)) << std::hex << first;
    for (int second = 0; second < 256; ++second) {
      const std::string pair = pairOf(first, second);
      ASSERT_EQ(decoded(pair), decode.convert(pair)) << std::hex << first << ' ' << second;
    }
  }
  for (int unit = 0; unit < 0x10000; ++unit) {
    const auto c = static_cast<char16_t>(unit);
    const Result expected = encode.convert(bytesOf({&c, 1}));
    ASSERT_EQ(encoded(c), expected) << std::hex << unit;
    ASSERT_EQ(isFullWidth(c), expected.bytes.size() == 2) << std::hex << unit;
  }
}
#endif

/// FNV-1a, for a table of which every entry counts.
class Digest {
 public:
  void add(const Result& r) {
    step(r.known ? 1 : 0);
    for (const char c : r.bytes) step(static_cast<unsigned char>(c));
  }
  std::uint64_t value() const { return value_; }

 private:
  void step(std::uint64_t byte) { value_ = (value_ ^ byte) * 0x100000001B3u; }
  std::uint64_t value_ = 0xCBF29CE484222325u;
};

// The value is that of a table which agreed with the system's converter.
TEST(Cp932, TheTableIsTheSameOnEveryMachine) {
  if (std::endian::native != std::endian::little) GTEST_SKIP() << "the digest was made of little-endian text";
  Digest digest;
  for (int pair = 0; pair < 0x10000; ++pair) digest.add(decoded(pairOf(pair >> 8, pair & 0xFF)));
  for (int unit = 0; unit < 0x10000; ++unit) digest.add(encoded(static_cast<char16_t>(unit)));
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
  EXPECT_EQ(fileTextAsUtf8("\xFF\xFE" + std::string("\x42\x30\x61\0", 4) + "x"),
            "あa");  // half a unit is dropped
  EXPECT_EQ(fileTextAsUtf8("\xFE\xFF" + std::string("\x30\x42\0\x61", 4)), "あa");
  EXPECT_EQ(fileTextAsUtf8("\xEF\xBB\xBFあ"), "あ");
  EXPECT_EQ(fileTextAsUtf8("あ"), "あ");
  EXPECT_EQ(fileTextAsUtf8("\x82\xA0\xFF\xB1"), "あ\uFFFDｱ");
}

}  // namespace
}  // namespace zelvaro
