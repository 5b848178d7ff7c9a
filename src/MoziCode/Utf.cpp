#include "MoziCode/Utf.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zelvaro {
namespace {

/// Length of the sequence that begins with `lead` and the range of its second byte; 0 if it is not a lead
/// byte.
struct Sequence {
  std::size_t length;
  unsigned char low, high;
};

Sequence sequenceOf(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return {2, 0x80, 0xBF};
  if (lead == 0xE0) return {3, 0xA0, 0xBF};
  if (lead == 0xED) return {3, 0x80, 0x9F};
  if (lead >= 0xE1 && lead <= 0xEF) return {3, 0x80, 0xBF};
  if (lead == 0xF0) return {4, 0x90, 0xBF};
  if (lead >= 0xF1 && lead <= 0xF3) return {4, 0x80, 0xBF};
  if (lead == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

/// How many bytes a character has whose first byte is `c`.
std::size_t announcedLength(char c) {
  const auto b = static_cast<unsigned char>(c);
  return b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : b >= 0xC0 ? 2 : 1;
}

/// Removes one blank of any kind from either end; false if there is none.
bool dropBlank(std::string_view& utf8) {
  for (const std::string_view blank : {std::string_view(" "), std::string_view("\t"), kZenKakuSpaceUtf8}) {
    if (utf8.starts_with(blank)) {
      utf8.remove_prefix(blank.size());
      return true;
    }
    if (utf8.ends_with(blank)) {
      utf8.remove_suffix(blank.size());
      return true;
    }
  }
  return false;
}

void appendUtf16(std::u16string& out, char32_t codePoint) {
  if (codePoint < 0x10000) {
    out.push_back(static_cast<char16_t>(codePoint));
    return;
  }
  codePoint -= 0x10000;
  out.push_back(static_cast<char16_t>(0xD800 + (codePoint >> 10)));
  out.push_back(static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF)));
}

}  // namespace

void appendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else if (c < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (c >> 18)));
    out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  }
}

std::string toUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
    } else if ((c & 0xF800) == 0xD800) {
      c = kReplacement;
    }
    appendUtf8(out, c);
  }
  return out;
}

Utf8Mozi decodeUtf8(std::string_view bytes) {
  using Kind = Utf8Mozi::Kind;
  const auto lead = static_cast<unsigned char>(bytes[0]);
  if (lead < 0x80) return {Kind::Whole, 1, lead};
  const Sequence s = sequenceOf(lead);
  if (s.length == 0) return {Kind::IllFormed, 1, 0};
  char32_t codePoint = lead & (0x7Fu >> s.length);
  for (std::size_t k = 1; k < s.length; ++k) {
    if (k == bytes.size()) return {Kind::Cut, k, 0};
    const auto c = static_cast<unsigned char>(bytes[k]);
    const unsigned char low = k == 1 ? s.low : 0x80;
    const unsigned char high = k == 1 ? s.high : 0xBF;
    if (c < low || c > high) return {Kind::IllFormed, k, 0};
    codePoint = (codePoint << 6) | (c & 0x3Fu);
  }
  return {Kind::Whole, s.length, codePoint};
}

bool isUnsafeOnTerminal(char32_t codePoint) {
  struct Range {
    char32_t first, last;
  };
  static constexpr Range kUnsafe[] = {
      {0x00, 0x1F},           // C0
      {0x7F, 0x9F},           // delete, C1
      {0xAD, 0xAD},           // soft hyphen
      {0x61C, 0x61C},         // bidirectional: Arabic letter mark
      {0x115F, 0x1160},       // Hangul fillers
      {0x180E, 0x180E},       // Mongolian vowel separator
      {0x200B, 0x200B},       // zero width space
      {0x200E, 0x200F},       // bidirectional: marks
      {0x2028, 0x202E},       // line and paragraph separator; bidirectional: embeddings, overrides
      {0x2060, 0x206F},       // word joiner, invisible operators; bidirectional: isolates
      {0x3164, 0x3164},       // Hangul filler
      {0xD800, 0xDFFF},       // surrogates
      {0xFEFF, 0xFEFF},       // byte order mark
      {0xFFA0, 0xFFA0},       // half-width Hangul filler
      {0xFFF0, 0xFFFB},       // annotations; unassigned, invisible
      {0x1BCA0, 0x1BCA3},     // shorthand format controls
      {0x1D173, 0x1D17A},     // musical format controls
      {0xE0000, 0xE00FF},     // tags
      {0xE01F0, 0xE0FFF},     // unassigned, invisible
      {0x110000, 0xFFFFFFFF}  // beyond Unicode
  };
  const auto range = std::lower_bound(std::begin(kUnsafe), std::end(kUnsafe), codePoint,
                                      [](const Range& r, char32_t c) { return r.last < c; });
  return codePoint >= range->first;
}

bool utf8ToUtf16(std::string_view bytes, std::u16string& out) {
  bool wellFormed = true;
  out.reserve(out.size() + bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    if (static_cast<unsigned char>(bytes[i]) < 0x80) {
      out.push_back(static_cast<char16_t>(bytes[i++]));
      continue;
    }
    const Utf8Mozi mozi = decodeUtf8(bytes.substr(i));
    const bool whole = mozi.kind == Utf8Mozi::Kind::Whole;
    wellFormed = wellFormed && whole;
    appendUtf16(out, whole ? mozi.codePoint : kReplacement);
    i += mozi.size;
  }
  return wellFormed;
}

std::u16string toUtf16(std::string_view utf8) {
  std::u16string out;
  utf8ToUtf16(utf8, out);
  return out;
}

bool isAscii(std::string_view bytes) {
  std::uint64_t seen = 0;
  std::size_t i = 0;
  for (; i + 8 <= bytes.size(); i += 8) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data() + i, 8);
    seen |= word;
  }
  for (; i < bytes.size(); ++i) seen |= static_cast<unsigned char>(bytes[i]);
  return (seen & 0x8080808080808080u) == 0;
}

std::string_view firstCharacters(std::string_view utf8, std::size_t count) {
  for (std::size_t i = 0; i < utf8.size(); ++i)
    if (!isContinuation(utf8[i]) && count-- == 0) return utf8.substr(0, i);
  return utf8;
}

std::string_view firstBytes(std::string_view utf8, std::size_t most) {
  if (utf8.size() <= most) return utf8;
  std::size_t lead = most - 1;
  while (lead > most - 3 && isContinuation(utf8[lead])) --lead;
  const bool isCut = isContinuation(utf8[most]) && lead + announcedLength(utf8[lead]) > most;
  return utf8.substr(0, isCut ? lead : most);
}

std::string_view trimAnyBlanks(std::string_view utf8) {
  while (dropBlank(utf8)) {
  }
  return utf8;
}

}  // namespace zelvaro
