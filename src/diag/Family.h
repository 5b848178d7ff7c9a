// The families of pipelines.  A stage is a template over one of these structs; what differs between the
// families in a rule is a named trait here, what differs in words only lies in the message.
#pragma once

#include <cstdint>
#include <string_view>

namespace zelvaro {

/// Which wording a message takes.  NaW speaks as NWW does.
enum class FamilyId : std::uint8_t { WP, NWW, AP, NA, NH };

/// Wide text, operand buffers as long as the line.  The reference.
struct WP {
  using Char = char16_t;
  static constexpr FamilyId id = FamilyId::WP;
  static constexpr bool writesLog = true;  ///< its checks append a record to the log of `dg`
};

/// Wide text, fixed buffers.  Serves the pipelines NWW, NwW and NaW.
struct NWW {
  using Char = char16_t;
  static constexpr FamilyId id = FamilyId::NWW;
  static constexpr bool writesLog = true;
};

/// Narrow text in CP932, operand buffers as long as the line.
struct AP {
  using Char = char;
  static constexpr FamilyId id = FamilyId::AP;
  static constexpr bool writesLog = false;
};

/// Narrow text, fixed buffers.
struct NA {
  using Char = char;
  static constexpr FamilyId id = FamilyId::NA;
  static constexpr bool writesLog = false;
};

/// The fixed form: narrow text with limits on lines, programs and memory.
struct NH {
  using Char = char;
  static constexpr FamilyId id = FamilyId::NH;
  static constexpr bool writesLog = false;
};

/// The families that are compiled: ZELVARO_FAMILIES(M) expands M once for each.
#define ZELVARO_FAMILIES(M) M(WP) M(NWW) M(AP) M(NA) M(NH)

template <class Family>
using CharOf = typename Family::Char;
template <class Family>
using ViewOf = std::basic_string_view<typename Family::Char>;

}  // namespace zelvaro
