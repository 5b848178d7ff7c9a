#include "report/ReportText.h"

namespace zelvaro {
namespace {

constexpr std::size_t kViewSize = 45;  // characters of a word view

/// Writes a number of at most five digits so that it ends before `end`; returns where it begins.
char* setDigits(char* end, std::uint32_t value) {
  do {
    *--end = static_cast<char>('0' + value % 10);
    value /= 10;
  } while (value != 0);
  return end;
}

}  // namespace

ReportText& ReportText::address(int adr) {
  hex(static_cast<std::uint32_t>(adr));
  constexpr std::string_view kField = ":     :";
  char* const at = take(kField.size());
  kField.copy(at, kField.size());
  setDigits(at + 6, static_cast<std::uint32_t>(adr));
  return *this;
}

//  'A':#0041:   65:   +65: 0000 0000 0100 0001:
// 0    5     11    17     24                  44
ReportText& ReportText::word(std::int32_t cell) {
  const auto w = static_cast<std::uint32_t>(unsignedWord(cell));
  const std::int32_t s = signedWord(cell);
  char* const at = take(kViewSize);
  std::memset(at, ' ', kViewSize);
  if (w >= 0x20 && w <= 0x7E) {
    at[1] = at[3] = '\'';
    at[2] = static_cast<char>(w);
  }
  at[4] = at[10] = at[16] = at[23] = at[44] = ':';
  at[5] = '#';
  for (int digit = 0; digit < 4; ++digit) at[6 + digit] = kDigits[w >> (12 - 4 * digit) & 0xF];
  setDigits(at + 16, w);
  *(setDigits(at + 23, static_cast<std::uint32_t>(s < 0 ? -s : s)) - 1) = s < 0 ? '-' : '+';
  for (int bit = 0; bit < 16; ++bit) at[25 + bit + bit / 4] = static_cast<char>('0' + (w >> (15 - bit) & 1));
  return *this;
}

}  // namespace zelvaro
