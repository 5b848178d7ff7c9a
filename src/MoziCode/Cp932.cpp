#include "MoziCode/Cp932.h"

#include <iconv.h>

#include <cerrno>
#include <cstring>

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

  /// Converts `size` bytes at `in` into at most `room` bytes at `out`; returns how many were written, or
  /// -1 if they are no complete, known character.
  long convert(const void* in, std::size_t size, void* out, std::size_t room) {
    if (!usable()) return -1;
    char buffer[8];
    std::memcpy(buffer, in, size);
    char* from = buffer;
    char* to = static_cast<char*>(out);
    const std::size_t before = room;
    iconv(cd_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(cd_, &from, &size, &to, &room) == static_cast<std::size_t>(-1) || size != 0) return -1;
    return static_cast<long>(before - room);
  }

 private:
  bool usable() const { return cd_ != reinterpret_cast<iconv_t>(-1); }
  iconv_t cd_;
};

Converter& wideFromCp932() {
  static Converter c("UTF-16LE", "CP932");
  return c;
}
Converter& cp932FromWide() {
  static Converter c("CP932", "UTF-16LE");
  return c;
}

/// The CP932 code of one character: 1 or 2 bytes, or 0 for none.
int encodeCharacter(char16_t c, char (&out)[4]) {
  if (c < 0x80) {
    out[0] = static_cast<char>(c);
    return 1;
  }
  const unsigned char bytes[2] = {static_cast<unsigned char>(c & 0xFF), static_cast<unsigned char>(c >> 8)};
  const long n = cp932FromWide().convert(bytes, 2, out, sizeof out);
  return n == 1 || n == 2 ? static_cast<int>(n) : 0;
}

}  // namespace

bool cp932ToUtf16(std::string_view bytes, std::u16string& out) {
  bool known = true;
  out.reserve(out.size() + bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    if (static_cast<unsigned char>(bytes[i]) < 0x80) {
      out.push_back(static_cast<char16_t>(bytes[i++]));
      continue;
    }
    const std::size_t want = isCp932Lead(bytes[i]) && i + 1 < bytes.size() ? 2 : 1;
    unsigned char unit[4] = {};
    if (wideFromCp932().convert(bytes.data() + i, want, unit, sizeof unit) == 2) {
      out.push_back(static_cast<char16_t>(unit[0] | (unit[1] << 8)));
      i += want;
    } else {
      known = false;
      out.push_back(kReplacement);
      ++i;
    }
  }
  return known;
}

std::u16string cp932ToUtf16(std::string_view bytes) {
  std::u16string out;
  cp932ToUtf16(bytes, out);
  return out;
}

bool utf16ToCp932(std::u16string_view text, std::string& out) {
  bool known = true;
  out.reserve(out.size() + text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char code[4] = {};
    const int n = encodeCharacter(text[i], code);
    if (n == 0) {
      known = false;
      out.push_back('?');
      const bool pair = (text[i] & 0xFC00) == 0xD800 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
      if (pair) ++i;
    } else {
      out.append(code, static_cast<std::size_t>(n));
    }
  }
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

bool isFullWidth(char16_t c) {
  char code[4] = {};
  return encodeCharacter(c, code) == 2;
}

}  // namespace zelvaro
