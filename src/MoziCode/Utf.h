// UTF-8 and UTF-16, both ways.  Ill-formed input becomes U+FFFD, one for each maximal ill-formed part.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zelvaro {

inline constexpr char16_t kReplacement = 0xFFFD;
inline constexpr std::string_view kZenKakuSpaceUtf8 = "\u3000";  ///< the full-width space
// byte order marks, as bytes of a file
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view kUtf16LeMark = "\xFF\xFE";
inline constexpr std::string_view kUtf16BeMark = "\xFE\xFF";

/// UTF-16 to UTF-8.  A lone surrogate becomes U+FFFD; a pair is one character.
std::string toUtf8(std::u16string_view text);
void appendUtf8(std::string& out, char32_t codePoint);

/// UTF-8 to UTF-16.  Returns false if an ill-formed part was replaced.
bool utf8ToUtf16(std::string_view bytes, std::u16string& out);
std::u16string toUtf16(std::string_view utf8);

/// The beginning of a UTF-8 text.
struct Utf8Mozi {
  enum class Kind : std::uint8_t {
    Whole,      ///< a character
    Cut,        ///< the bytes end inside a character that is well-formed so far
    IllFormed,  ///< not a character: an overlong form, a surrogate, beyond U+10FFFF, a stray byte
  };
  Kind kind = Kind::IllFormed;
  std::size_t size = 0;    ///< in bytes; for an ill-formed part, the longest prefix of a possible character
  char32_t codePoint = 0;  ///< set for a whole character
};
/// Decodes the first character of `bytes`, which must not be empty.
Utf8Mozi decodeUtf8(std::string_view bytes);

/// Whether a character must not be sent to a terminal as it is: it controls the terminal (C0, C1, line and
/// paragraph separators), reorders the text around it (bidirectional controls), is invisible (tags, fillers,
/// word joiners and the like) or is not a character at all (surrogates, beyond U+10FFFF).  True for line feed
/// and tab too; a caller that allows them tests them first.  False for what ordinary text needs: combining
/// marks, variation selectors, the joiners in emoji.
bool isUnsafeOnTerminal(char32_t codePoint);

/// Whether all bytes are below 0x80.
bool isAscii(std::string_view bytes);

constexpr bool isHighSurrogate(char16_t c) {
  return (c & 0xFC00) == 0xD800;
}
constexpr bool isLowSurrogate(char16_t c) {
  return (c & 0xFC00) == 0xDC00;
}
/// Whether a byte of UTF-8 is a continuation byte.
constexpr bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0u) == 0x80u;
}

/// The first characters of UTF-8 text, at most `count`.
std::string_view firstCharacters(std::string_view utf8, std::size_t count);
/// The first bytes of UTF-8 text, at most `most` (4 or more), without a partial character at the end.
std::string_view firstBytes(std::string_view utf8, std::size_t most);
/// UTF-8 text without spaces, tabs and full-width spaces at either end.
std::string_view trimAnyBlanks(std::string_view utf8);

enum class ByteOrder : std::uint8_t { Little, Big };

/// The 16-bit units of UTF-16 text given as bytes; an odd byte at the end is ignored.
class Utf16Units {
 public:
  Utf16Units(std::string_view bytes, ByteOrder order)
      : bytes_(reinterpret_cast<const unsigned char*>(bytes.data())),
        size_(bytes.size() / 2),
        low_(order == ByteOrder::Little ? 0 : 1) {}
  std::size_t size() const { return size_; }
  char16_t operator[](std::size_t i) const {
    return static_cast<char16_t>(bytes_[2 * i + low_] | (bytes_[2 * i + (1 - low_)] << 8));
  }

 private:
  const unsigned char* bytes_;
  std::size_t size_;
  std::size_t low_;  ///< index of the low byte in a pair of bytes
};

}  // namespace zelvaro
