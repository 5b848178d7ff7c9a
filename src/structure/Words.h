// Shared by the stages of this folder: plain text search in a line, the families of narrow wording, and the
// first pair of equal names.
#pragma once

#include <string_view>
#include <unordered_map>

#include "MoziCode/Characters.h"
#include "diag/Message.h"
#include "source/LineStore.h"

namespace zelvaro {

/// The families AP and NA share their wording.

/// Whether a text contains an ASCII word directly after a blank.  Any text may follow it.
template <class Char>
constexpr bool holdsAfterBlank(std::basic_string_view<Char> text, std::string_view word) {
  for (std::size_t i = 1; i + word.size() <= text.size(); ++i)
    if (isBlank(text[i - 1]) && equals(text.substr(i, word.size()), word)) return true;
  return false;
}

/// The pair of equal names that a nested loop (each name, then those after it) would find first: the smallest
/// earlier one, and the next one equal to it.
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
