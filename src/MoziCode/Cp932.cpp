#include "MoziCode/Cp932.h"

#include <iconv.h>

#include <algorithm>
#include <bit>
#include <cstdint>

#include "MoziCode/Utf.h"

namespace zelvaro {
namespace {

/// One direction of iconv, opened once for the life of the program.  A machine whose C library lacks the
/// table gets ASCII only: every other character counts as one without a code.
class Converter {
 public:
  Converter(const char* to, const char* from) : cd_(iconv_open(to, from)) {}
  ~Converter() {
    if (usable()) iconv_close(cd_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  /// Converts as much of `in` as is complete and known, moves both ends on, and returns whether that was
  /// all.  `to` has room for everything.
  bool convert(std::string_view& in, char*& to, std::size_t room) {
    if (in.empty()) return true;
    if (!usable()) return false;
    char* from = const_cast<char*>(in.data());
    std::size_t left = in.size();
    iconv(cd_, nullptr, nullptr, nullptr, nullptr);
    const bool all = iconv(cd_, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
    in.remove_prefix(in.size() - left);
    return all;
  }

 private:
  /// iconv_open tells a failure as the value -1 of a pointer.
  bool usable() const { return std::bit_cast<std::intptr_t>(cd_) != -1; }
  iconv_t cd_;
};

constexpr const char* kUtf16 = std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

Converter& wideFromCp932() {
  static Converter c(kUtf16, "CP932");
  return c;
}
Converter& cp932FromWide() {
  static Converter c("CP932", kUtf16);
  return c;
}

constexpr std::size_t kUnit = sizeof(char16_t);

std::string_view bytesOf(std::u16string_view text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * kUnit};
}

bool isAscii(char16_t c) {
  return c < 0x80;
}
bool isAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

/// How many characters from the front are ASCII, which is the same on both sides.
template <class Char>
std::size_t asciiPrefix(std::basic_string_view<Char> s) {
  std::size_t n = 0;
  while (n < s.size() && isAscii(s[n])) ++n;
  return n;
}

}  // namespace

bool cp932ToUtf16(std::string_view bytes, std::u16string& out) {
  bool known = true;
  const std::size_t before = out.size();
  out.resize(before + bytes.size());  // no character is shorter in CP932
  char16_t* to = out.data() + before;
  while (!bytes.empty()) {
    const std::size_t ascii = asciiPrefix(bytes);
    to = std::copy_n(bytes.begin(), ascii, to);
    bytes.remove_prefix(ascii);
    char* at = reinterpret_cast<char*>(to);
    const bool all = wideFromCp932().convert(bytes, at, bytes.size() * kUnit);
    to = reinterpret_cast<char16_t*>(at);
    if (all) continue;
    known = false;
    *to++ = kReplacement;
    bytes.remove_prefix(1);
  }
  out.resize(static_cast<std::size_t>(to - out.data()));
  return known;
}

std::u16string cp932ToUtf16(std::string_view bytes) {
  std::u16string out;
  cp932ToUtf16(bytes, out);
  return out;
}

bool utf16ToCp932(std::u16string_view text, std::string& out) {
  bool known = true;
  const std::size_t before = out.size();
  out.resize(before + text.size() * 2);
  char* to = out.data() + before;
  while (!text.empty()) {
    const std::size_t ascii = asciiPrefix(text);
    for (std::size_t i = 0; i < ascii; ++i) *to++ = static_cast<char>(text[i]);
    text.remove_prefix(ascii);
    std::string_view bytes = bytesOf(text);
    const bool all = cp932FromWide().convert(bytes, to, bytes.size());
    text.remove_prefix(text.size() - bytes.size() / kUnit);
    if (all) continue;
    known = false;
    *to++ = '?';
    const bool pair = text.size() > 1 && (text[0] & 0xFC00) == 0xD800 && (text[1] & 0xFC00) == 0xDC00;
    text.remove_prefix(pair ? 2 : 1);
  }
  out.resize(static_cast<std::size_t>(to - out.data()));
  return known;
}

std::string utf16ToCp932(std::u16string_view text) {
  std::string out;
  utf16ToCp932(text, out);
  return out;
}

std::string cp932ToUtf8(std::string_view bytes) {
  return isAscii(bytes) ? std::string(bytes) : toUtf8(cp932ToUtf16(bytes));
}

std::string fileTextAsUtf8(std::string_view bytes) {
  const bool little = bytes.starts_with(kUtf16LeMark);
  if (little || bytes.starts_with(kUtf16BeMark)) {
    std::u16string text;
    const Utf16Units units(bytes, little);
    for (std::size_t i = 1; i < units.size(); ++i) text += units[i];
    return toUtf8(text);
  }
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  std::u16string text;
  return utf8ToUtf16(bytes, text) ? std::string(bytes) : cp932ToUtf8(bytes);
}

bool isFullWidth(char16_t c) {
  if (isAscii(c)) return false;
  char code[4] = {};
  char* to = code;
  std::string_view bytes = bytesOf({&c, 1});
  return cp932FromWide().convert(bytes, to, sizeof code) && to - code == 2;
}

}  // namespace zelvaro
