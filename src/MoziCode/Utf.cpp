#include "MoziCode/Utf.h"

#include <cstdint>
#include <cstring>

namespace zelvaro {
namespace {

/// Length of the sequence that `lead` announces and the range of its second byte; 0 for no lead byte.
struct Sequence {
  int length;
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

/// Decodes one non-ASCII sequence at `i` and moves `i` behind it.  False for an ill-formed one, of which
/// `i` passes the longest part that a well-formed sequence could begin with.
bool decodeSequence(std::string_view bytes, std::size_t& i, char32_t& codePoint) {
  const auto lead = static_cast<unsigned char>(bytes[i++]);
  const Sequence s = sequenceOf(lead);
  if (s.length == 0) return false;
  codePoint = lead & (0x7Fu >> s.length);
  for (int k = 1; k < s.length; ++k) {
    if (i >= bytes.size()) return false;
    const auto c = static_cast<unsigned char>(bytes[i]);
    const unsigned char low = k == 1 ? s.low : 0x80;
    const unsigned char high = k == 1 ? s.high : 0xBF;
    if (c < low || c > high) return false;
    codePoint = (codePoint << 6) | (c & 0x3F);
    ++i;
  }
  return true;
}

/// How many bytes the character has that begins with `c`, by its first byte alone.
std::size_t announcedLength(char c) {
  const auto b = static_cast<unsigned char>(c);
  return b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : b >= 0xC0 ? 2 : 1;
}

/// Takes one blank of any kind off either end; false if there is none.
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

bool utf8ToUtf16(std::string_view bytes, std::u16string& out) {
  bool wellFormed = true;
  out.reserve(out.size() + bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    if (static_cast<unsigned char>(bytes[i]) < 0x80) {
      out.push_back(static_cast<char16_t>(bytes[i++]));
      continue;
    }
    char32_t codePoint = 0;
    if (!decodeSequence(bytes, i, codePoint)) {
      wellFormed = false;
      codePoint = kReplacement;
    }
    appendUtf16(out, codePoint);
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
