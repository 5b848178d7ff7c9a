// The families of pipelines.  A stage is a template over one of these structs; what differs between the
// families in a rule is a named trait here, what differs in words only lies in the message.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zelvaro {

/// Which wording a message takes.  NaW speaks as NWW does.
enum class FamilyId : std::uint8_t { WP, NWW, AP, NA, NH };

/// Stands for "as long as the line" where a family has a fixed buffer.
inline constexpr std::size_t kWholeText = static_cast<std::size_t>(-1);

/// Wide text, operand buffers as long as the line.  The reference: the others tell what they do otherwise.
struct WP {
  using Char = char16_t;
  static constexpr FamilyId id = FamilyId::WP;
  static constexpr bool writesLog = true;               ///< its checks append a record to the log of `dg`
  static constexpr std::size_t oprndText = kWholeText;  ///< characters of an operand text that are read
  static constexpr bool warnsOfCutOprndText = false;    ///< the first text of a program that is cut is told
  static constexpr bool asksForOprndsOfLD = true;       ///< LD without its operands is told ahead of all else
  static constexpr bool tellsDoubleComma = true;        ///< in place of an index register
  static constexpr bool prgNameIsEntry = true;          ///< START may name another program
  static constexpr bool worksOutEntry = false;          ///< START counts the words up to its label by itself
  static constexpr bool prgNameInDC = true;             ///< a DC may name another program
  static constexpr bool ownLabelsFirst = false;      ///< an operand is a label first, a program's name second
  static constexpr bool warnsOfExternalName = true;  ///< outside CALL and LAD
};

/// Wide text, fixed buffers.  Serves the pipelines NWW, NwW and NaW.
struct NWW : WP {
  static constexpr FamilyId id = FamilyId::NWW;
  static constexpr std::size_t oprndText = 225;
  static constexpr bool warnsOfCutOprndText = true;
  static constexpr bool asksForOprndsOfLD = false;
  static constexpr bool tellsDoubleComma = false;
};

/// Narrow text in CP932, operand buffers as long as the line.
struct AP : WP {
  using Char = char;
  static constexpr FamilyId id = FamilyId::AP;
  static constexpr bool writesLog = false;
  static constexpr bool asksForOprndsOfLD = false;
  static constexpr bool tellsDoubleComma = false;
  static constexpr bool prgNameIsEntry = false;
  static constexpr bool worksOutEntry = true;
  static constexpr bool prgNameInDC = false;
};

/// Narrow text, fixed buffers: the 250 bytes of a buffer hold its terminator too.
struct NA : AP {
  static constexpr FamilyId id = FamilyId::NA;
  static constexpr std::size_t oprndText = 249;
  static constexpr bool prgNameInDC = true;
};

/// The fixed form: narrow text with limits on lines, programs and memory.
struct NH : NA {
  static constexpr FamilyId id = FamilyId::NH;
  static constexpr bool worksOutEntry = false;  // DC and DS lie elsewhere: the address pass alone knows
  static constexpr bool ownLabelsFirst = true;
  static constexpr bool warnsOfExternalName = false;
};

/// The families that are compiled: ZELVARO_FAMILIES(M) expands M once for each.
#define ZELVARO_FAMILIES(M) M(WP) M(NWW) M(AP) M(NA) M(NH)

template <class Family>
using CharOf = typename Family::Char;
template <class Family>
using ViewOf = std::basic_string_view<typename Family::Char>;

}  // namespace zelvaro
