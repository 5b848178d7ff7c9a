// UTF-8 and UTF-16, both ways.  Ill-formed input becomes U+FFFD, one for each maximal ill-formed part.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zelvaro {

inline constexpr char16_t kReplacement = 0xFFFD;
inline constexpr char16_t kZenKakuSpace = 0x3000;  ///< the full-width space; no blank for any stage

/// UTF-16 to UTF-8.  A lone surrogate becomes U+FFFD; a pair is one character.
std::string toUtf8(std::u16string_view text);
void appendUtf8(std::string& out, char32_t codePoint);

/// UTF-8 to UTF-16.  Returns false if an ill-formed part was replaced.
bool utf8ToUtf16(std::string_view bytes, std::u16string& out);
std::u16string toUtf16(std::string_view utf8);

/// Whether all bytes are below 0x80.
bool isAscii(std::string_view bytes);

}  // namespace zelvaro
