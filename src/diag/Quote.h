// A text of the source as an argument of a message: converted to UTF-8, and quoted.
#pragma once

#include <string>
#include <string_view>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"
#include "diag/Diagnostic.h"

namespace zelvaro {

/// A text of a line record as UTF-8: wide text is UTF-16, narrow text CP932.
inline std::string plain(std::u16string_view text) {
  return toUtf8(text);
}
inline std::string plain(std::string_view text) {
  return cp932ToUtf8(text);
}

/// The text as a quoted argument.
inline Quoted QuoteStrW(std::u16string_view text) {
  return {plain(text)};
}
inline Quoted QuoteStrA(std::string_view text) {
  return {plain(text)};
}
inline Quoted quote(std::u16string_view text) {
  return QuoteStrW(text);
}
inline Quoted quote(std::string_view text) {
  return QuoteStrA(text);
}

}  // namespace zelvaro
