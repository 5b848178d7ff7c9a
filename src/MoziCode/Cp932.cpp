#include "MoziCode/Cp932.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "MoziCode/Cp932Chart.h"
#include "MoziCode/Utf.h"

namespace zelvaro {
namespace {

// The tables are computed at compile time, so they are the same everywhere and nothing is written at run
// time.

using Code = std::uint16_t;  ///< a code of one or two bytes; 0 means none: ASCII is not looked up

constexpr std::size_t kTrails = 188;  ///< 40 to FC without 7F
constexpr Code kHalfKatakana = 0xA1;  ///< to DF
constexpr char16_t kHalfKatakanaWide = 0xFF61;
constexpr Code kUserDefined = 0xF040;  ///< to F9FC
constexpr char16_t kUserDefinedWide = 0xE000;
constexpr std::size_t kUserDefinedSize = 10 * kTrails;

constexpr bool isLead(std::uint8_t b) {
  return isCp932Lead(static_cast<char>(b));
}
constexpr bool isTrail(std::uint8_t b) {
  return b >= 0x40 && b <= 0xFC && b != 0x7F;
}
constexpr bool isHalfKatakana(std::uint8_t b) {
  return b >= kHalfKatakana && b <= 0xDF;
}

/// The index of a double-byte code in the table.  Successive codes have successive indexes.
constexpr std::size_t cellOf(std::uint8_t lead, std::uint8_t trail) {
  const std::size_t row = lead - (lead < 0xE0 ? 0x81u : 0xC1u);
  return row * kTrails + trail - (trail < 0x7F ? 0x40u : 0x41u);
}
constexpr std::size_t cellOf(Code code) {
  return cellOf(static_cast<std::uint8_t>(code >> 8), static_cast<std::uint8_t>(code));
}
constexpr Code codeOfCell(std::size_t cell) {
  const std::size_t row = cell / kTrails;
  const std::size_t column = cell % kTrails;
  return static_cast<Code>((row + (row < 31 ? 0x81u : 0xC1u)) << 8 |
                           (column + (column < 63 ? 0x40u : 0x41u)));
}

/// Calls put(cell, character) for each double-byte code, in the order of preference.
template <class Put>
constexpr void forEachCode(Put put) {
  for (const cp932::Run& run : cp932::kRuns)
    for (std::size_t i = 0; i < run.text.size(); ++i) put(cellOf(run.first) + i, run.text[i]);
  for (std::size_t i = 0; i < kUserDefinedSize; ++i)
    put(cellOf(kUserDefined) + i, static_cast<char16_t>(kUserDefinedWide + i));
}

/// From an index to the character, 0 for none.
constexpr auto kWide = [] {
  std::array<char16_t, cellOf(0xFCFC) + 1> wide{};
  forEachCode([&wide](std::size_t cell, char16_t c) { wide[cell] = c; });
  return wide;
}();

// From a character to its code in two steps, since few of the 256 pages of 256 characters are in use.

using Page = std::array<Code, 256>;

struct PageIndex {
  std::array<std::uint8_t, 256> at{};  ///< number of each page; page 0 is empty
  std::size_t count = 1;

  constexpr void use(char16_t c) {
    std::uint8_t& number = at[c >> 8];
    if (number == 0) number = static_cast<std::uint8_t>(count++);
  }
};

constexpr PageIndex kPageOf = [] {
  PageIndex index;
  forEachCode([&index](std::size_t, char16_t c) { index.use(c); });
  for (const cp932::LookAlike& l : cp932::kLookAlikes) index.use(l.character);
  index.use(kHalfKatakanaWide);
  return index;
}();

constexpr auto kPages = [] {
  std::array<Page, kPageOf.count> pages{};
  const auto put = [&pages](char16_t c, Code code) {
    Code& slot = pages[kPageOf.at[c >> 8]][c & 0xFF];
    if (slot == 0) slot = code;
  };
  forEachCode([&put](std::size_t cell, char16_t c) { put(c, codeOfCell(cell)); });
  for (const cp932::LookAlike& l : cp932::kLookAlikes) put(l.character, l.code);
  for (Code b = kHalfKatakana; b <= 0xDF; ++b)
    put(static_cast<char16_t>(kHalfKatakanaWide + (b - kHalfKatakana)), b);
  return pages;
}();

/// The code of a character outside ASCII, 0 for none.
Code codeOf(char16_t c) {
  return kPages[kPageOf.at[c >> 8]][c & 0xFF];
}

/// Removes the first character of `bytes` and returns it; 0 for a byte that begins no character.
char16_t takeCharacter(std::string_view& bytes) {
  const auto first = static_cast<std::uint8_t>(bytes[0]);
  if (isLead(first) && bytes.size() > 1) {
    const auto trail = static_cast<std::uint8_t>(bytes[1]);
    const char16_t wide = isTrail(trail) ? kWide[cellOf(first, trail)] : u'\0';
    bytes.remove_prefix(wide != 0 ? 2 : 1);
    return wide;
  }
  bytes.remove_prefix(1);
  return isHalfKatakana(first) ? static_cast<char16_t>(kHalfKatakanaWide + (first - kHalfKatakana)) : u'\0';
}

bool isAscii(char16_t c) {
  return c < 0x80;
}
bool isAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

}  // namespace

bool cp932ToUtf16(std::string_view bytes, std::u16string& out) {
  bool known = true;
  const std::size_t before = out.size();
  out.resize(before + bytes.size());  // no character is shorter in CP932
  char16_t* to = out.data() + before;
  while (!bytes.empty()) {
    if (isAscii(bytes[0])) {
      *to++ = static_cast<char16_t>(bytes[0]);
      bytes.remove_prefix(1);
      continue;
    }
    const char16_t c = takeCharacter(bytes);
    known = known && c != 0;
    *to++ = c != 0 ? c : kReplacement;
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
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isAscii(text[i])) {
      *to++ = static_cast<char>(text[i]);
      continue;
    }
    const Code code = codeOf(text[i]);
    if (code == 0) {
      known = false;
      *to++ = '?';
      if (isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) ++i;
      continue;
    }
    if (code > 0xFF) *to++ = static_cast<char>(code >> 8);
    *to++ = static_cast<char>(code);
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
    const Utf16Units units(bytes, little ? ByteOrder::Little : ByteOrder::Big);
    for (std::size_t i = 1; i < units.size(); ++i) text += units[i];
    return toUtf8(text);
  }
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  std::u16string text;
  return utf8ToUtf16(bytes, text) ? std::string(bytes) : cp932ToUtf8(bytes);
}

bool isFullWidth(char16_t c) {
  return !isAscii(c) && codeOf(c) > 0xFF;
}

}  // namespace zelvaro
