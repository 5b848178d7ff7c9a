// CP932 (Shift-JIS with Microsoft's mapping), both ways, by a built-in table: the same on every platform.
// There is no state, so any number of threads may call these functions.
#pragma once

#include <string>
#include <string_view>

namespace zelvaro {

/// CP932 to UTF-16.  An undecodable byte becomes U+FFFD; returns false if there was any.
bool cp932ToUtf16(std::string_view bytes, std::u16string& out);
std::u16string cp932ToUtf16(std::string_view bytes);

/// UTF-16 to CP932.  A character without a code becomes '?'; returns false if there was any.
bool utf16ToCp932(std::u16string_view text, std::string& out);
std::string utf16ToCp932(std::u16string_view text);

/// CP932 to UTF-8, for printing narrow text.
std::string cp932ToUtf8(std::string_view bytes);

/// The text of a file in any of the encodings that a source may have, as UTF-8: UTF-16 and UTF-8 by their
/// byte order marks, else UTF-8 if it is well-formed, else CP932.
std::string fileTextAsUtf8(std::string_view bytes);

/// Whether a character has a double-byte code in CP932; this is what "full-width" means everywhere.  False
/// for a character that CP932 does not have.
bool isFullWidth(char16_t c);

/// Whether `c` is the first byte of a double-byte character of CP932.
constexpr bool isCp932Lead(char c) {
  const auto b = static_cast<unsigned char>(c);
  return (b >= 0x81 && b <= 0x9F) || (b >= 0xE0 && b <= 0xFC);
}

}  // namespace zelvaro
