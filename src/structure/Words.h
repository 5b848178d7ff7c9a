// Shared by the stages of this folder: plain text search in a line.
#pragma once

#include <string_view>

#include "MoziCode/Characters.h"

namespace zelvaro {

/// Whether a text contains an ASCII word directly after a blank.  Any text may follow it.
template <class Char>
constexpr bool holdsAfterBlank(std::basic_string_view<Char> text, std::string_view word) {
  for (std::size_t i = 1; i + word.size() <= text.size(); ++i)
    if (isBlank(text[i - 1]) && equals(text.substr(i, word.size()), word)) return true;
  return false;
}

}  // namespace zelvaro
