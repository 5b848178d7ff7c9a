// The text of a report on its way into the file: one buffer, handed on whenever it is full.
#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "comet2/Comet2.h"
#include "diag/Quote.h"
#include "platform/Platform.h"

namespace zelvaro {

/// Appends to the file in pieces of the buffer's size.  A report has one row a word of memory, so numbers
/// are set digit by digit into the buffer: no string is built for a row.
class ReportText {
 public:
  explicit ReportText(OutputFile& file) : file_(file) {}
  ReportText(const ReportText&) = delete;
  ReportText& operator=(const ReportText&) = delete;

  ReportText& text(std::string_view utf8) {
    while (utf8.size() > room()) {
      const std::size_t fits = room();
      put(utf8.substr(0, fits));
      utf8.remove_prefix(fits);
      flush();
    }
    put(utf8);
    return *this;
  }
  /// A text of a line record.
  template <class Char>
  ReportText& source(std::basic_string_view<Char> s) {
    if (std::any_of(s.begin(), s.end(), [](Char c) { return (c & ~0x7F) != 0; })) return text(plain(s));
    for (; s.size() > room(); flush()) s.remove_prefix(putAscii(s.substr(0, room())));
    putAscii(s);
    return *this;
  }
  ReportText& blanks(int count) {
    for (; count > 0; --count) text(" ");
    return *this;
  }
  /// A number in decimal, right-aligned; one that is wider than the column is not cut.
  ReportText& number(std::int64_t value, int columns = 0) {
    std::array<char, 24> digits;
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    const auto length = static_cast<std::size_t>(end - digits.data());
    blanks(columns - static_cast<int>(length));
    return text({digits.data(), length});
  }
  /// "#" and the number in hexadecimal, upper case, filled to four digits.
  ReportText& hex(std::uint32_t value) {
    int digits = 4;
    while (digits < 8 && value >> (4 * digits) != 0) ++digits;
    char* at = take(static_cast<std::size_t>(digits) + 1);
    *at++ = '#';
    while (digits-- > 0) *at++ = kHexDigits[value >> (4 * digits) & 0xF];
    return *this;
  }
  /// The view of a word: Char, Hex, UD, SD and Binary Code, each with its colon.
  ReportText& word(std::int32_t cell);

  /// Hands what is left to the file.
  void flush() {
    file_.write({buffer_.data(), used_});
    used_ = 0;
  }

 private:
  static constexpr std::string_view kHexDigits = "0123456789ABCDEF";

  std::size_t room() const { return buffer_.size() - used_; }
  /// The place of the next `size` characters; `size` is far below the buffer's.
  char* take(std::size_t size) {
    if (size > room()) flush();
    char* at = buffer_.data() + used_;
    used_ += size;
    return at;
  }
  void put(std::string_view bytes) {
    std::memcpy(buffer_.data() + used_, bytes.data(), bytes.size());
    used_ += bytes.size();
  }
  template <class Char>
  std::size_t putAscii(std::basic_string_view<Char> s) {
    std::transform(s.begin(), s.end(), buffer_.data() + used_, [](Char c) { return static_cast<char>(c); });
    used_ += s.size();
    return s.size();
  }

  OutputFile& file_;
  std::size_t used_ = 0;
  std::array<char, 64 * 1024> buffer_;
};

}  // namespace zelvaro
