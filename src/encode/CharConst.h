// The characters of a character constant, one word each.
#pragma once

#include <string>
#include <string_view>

#include "MoziCode/Cp932.h"
#include "encode/Encode.h"

namespace zelvaro {

template <class Char, class Put>
void forEachCharConstWord(std::basic_string_view<Char> text, Put put) {
  if constexpr (sizeof(Char) == 1) {
    const std::u16string wide = cp932ToUtf16(text);
    forEachCharConstWord(std::u16string_view(wide), put);
  } else {
    for (std::size_t i = 1; i < text.size(); ++i) {
      if (text[i] == u'\'') {
        if (i + 1 >= text.size() || text[i + 1] != u'\'') return;
        ++i;
      }
      put(static_cast<int>(text[i]));
    }
  }
}

template <class Char>
int CountWordKazuAtCharConst(std::basic_string_view<Char> text) {
  int count = 0;
  forEachCharConstWord(text, [&count](int) { ++count; });
  return count;
}

}  // namespace zelvaro
