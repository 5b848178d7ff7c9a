// What several stages of this folder share: plain text search in a line, the families of narrow wording,
// and the first pair of equal names.
#pragma once

#include <string_view>
#include <unordered_map>

#include "MoziCode/Characters.h"
#include "diag/Message.h"
#include "source/LineStore.h"

namespace zelvaro {

/// The families AP and NA share their wording.
inline constexpr std::uint8_t kNarrow = families(FamilyId::AP, FamilyId::NA);

/// Whether an ASCII word stands in a text directly behind a blank.  What follows it does not matter.
template <class Char>
constexpr bool holdsBehindBlank(std::basic_string_view<Char> text, std::string_view word) {
  for (std::size_t i = 1; i + word.size() <= text.size(); ++i)
    if (isBlank(text[i - 1]) && equals(text.substr(i, word.size()), word)) return true;
  return false;
}

/// The pair of equal names that a nested walk (each name, then those behind it) would meet first: the
/// smallest earlier one, and the nearest that follows it.
struct FirstPair {
  int first = -1;
  int second = -1;

  bool found() const { return first >= 0; }
  /// Enters the next name in an index of first occurrences; names are given in order of `at`.
  template <class View>
  void enter(std::unordered_map<View, int>& index, View name, int at) {
    const auto [place, fresh] = index.try_emplace(name, at);
    if (fresh || (found() && place->second >= first)) return;
    first = place->second;
    second = at;
  }
};

}  // namespace zelvaro
