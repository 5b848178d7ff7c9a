// How a text of the source stands in a message: as UTF-8, and quoted.
#pragma once

#include <string>
#include <string_view>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"

namespace zelvaro {

/// A text of a line record as UTF-8: wide text is UTF-16, narrow text CP932.
inline std::string plain(std::u16string_view text) {
  return toUtf8(text);
}
inline std::string plain(std::string_view text) {
  return cp932ToUtf8(text);
}

/// The text as messages quote it: a blank, a double quote, the text, a double quote, a blank.
inline std::string QuoteStrW(std::u16string_view text) {
  return " \"" + plain(text) + "\" ";
}
inline std::string QuoteStrA(std::string_view text) {
  return " \"" + plain(text) + "\" ";
}
inline std::string quote(std::u16string_view text) {
  return QuoteStrW(text);
}
inline std::string quote(std::string_view text) {
  return QuoteStrA(text);
}

}  // namespace zelvaro
