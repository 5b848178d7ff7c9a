// Lines of a file read as text: CR LF and LF end a line.
#pragma once

#include <string_view>

namespace zelvaro {

/// Removes the next line from `rest` and returns it without its line end.
inline std::string_view takeLine(std::string_view& rest) {
  const std::size_t lineFeed = rest.find('\n');
  std::string_view line = rest.substr(0, lineFeed);
  if (lineFeed == std::string_view::npos) {
    rest = {};
    return line;
  }
  rest.remove_prefix(lineFeed + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace zelvaro
