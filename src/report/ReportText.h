// The text of a report: one buffer, written to the file whenever it is full.
#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "MoziCode/Characters.h"
#include "comet2/Comet2.h"
#include "diag/Quote.h"
#include "platform/Platform.h"

namespace zelvaro {

/// Appends to the file in pieces of the buffer's size.  A report has one row per word of memory, so numbers
/// are written digit by digit into the buffer, and no string is built for a row.
class ReportText {
 public:
  explicit ReportText(OutputFile& file) : file_(file) {}
  ReportText(const ReportText&) = delete;
  ReportText& operator=(const ReportText&) = delete;

  ReportText& text(std::string_view utf8) {
    while (utf8.size() > room()) {
      const std::size_t fits = room();
      std::memcpy(take(fits), utf8.data(), fits);
      utf8.remove_prefix(fits);
      flush();
    }
    std::memcpy(take(utf8.size()), utf8.data(), utf8.size());
    return *this;
  }
  /// A text of a line record.  ASCII, the usual case, is copied into the buffer without conversion.
  template <class Char>
  ReportText& source(std::basic_string_view<Char> s) {
    if (s.size() > kTake) return text(plain(s));
    char* at = take(s.size());
    unsigned seen = 0;
    for (const Char c : s) {
      seen |= static_cast<unsigned>(c);
      *at++ = static_cast<char>(c);
    }
    if (seen < 0x80) return *this;
    used_ -= s.size();
    return text(plain(s));
  }
  ReportText& blanks(int count) {
    for (; count > 0; count -= static_cast<int>(kTake)) {
      const auto size = std::min(static_cast<std::size_t>(count), kTake);
      std::memset(take(size), ' ', size);
    }
    return *this;
  }
  /// A number in decimal, right-aligned; a number wider than the column is not cut.
  ReportText& number(std::int32_t value, int columns = 0) {
    std::array<char, 11> digits;
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    const auto length = static_cast<std::size_t>(end - digits.data());
    return blanks(columns - static_cast<int>(length)).text({digits.data(), length});
  }
  /// The head of a row: the address in hexadecimal and in five columns in decimal, each with its colon.
  ReportText& address(int adr);
  /// "#" and the number in hexadecimal, upper case, zero-filled to four digits.
  ReportText& hex(std::uint32_t value) {
    int digits = 4;
    while (digits < 8 && value >> (4 * digits) != 0) ++digits;
    char* at = take(static_cast<std::size_t>(digits) + 1);
    *at++ = '#';
    while (digits-- > 0) *at++ = kDigits[value >> (4 * digits) & 0xF];
    return *this;
  }
  /// The view of a word: Char, Hex, UD, SD and Binary Code, each with its colon.
  ReportText& word(std::int32_t cell);

  /// Writes the rest of the buffer to the file.
  void flush() {
    file_.write({buffer_.data(), used_});
    used_ = 0;
  }

 private:
  static constexpr std::size_t kSize = 64 * 1024;
  static constexpr std::size_t kTake = 1024;  ///< the longest piece that is written in place, in characters

  std::size_t room() const { return kSize - used_; }
  /// The place for the next `size` characters, at most kTake.
  char* take(std::size_t size) {
    if (size > room()) flush();
    char* at = buffer_.data() + used_;
    used_ += size;
    return at;
  }

  OutputFile& file_;
  std::size_t used_ = 0;
  std::array<char, kSize> buffer_;
};

}  // namespace zelvaro
