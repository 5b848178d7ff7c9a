// The parts and escapes of the cases and scripts that tests read.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "MoziCode/Utf.h"

namespace zelvaro::test {

/// The parts of a text between the separators, without the blanks round each part if `trims`.
inline std::vector<std::string> cut(std::string_view text, std::string_view separator, bool trims = false) {
  std::vector<std::string> out;
  for (std::size_t from = 0, end = 0; end != text.npos; from = end + separator.size()) {
    end = text.find(separator, from);
    std::string_view part = text.substr(from, end == text.npos ? end : end - from);
    if (trims) part.remove_prefix(std::min(part.find_first_not_of(' '), part.size()));
    if (trims) part = part.substr(0, part.find_last_not_of(' ') + 1);
    out.emplace_back(part);
  }
  return out;
}

/// The text with \n \t \\ \xHH \uXXXX replaced by what they mean, and {N:text} by a text N times.
inline std::string unescaped(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '{') {
      const std::size_t end = text.find('}', i), colon = text.find(':', i);
      const std::string part = unescaped(text.substr(colon + 1, end - colon - 1));
      for (int times = std::stoi(text.substr(i + 1)); times > 0; --times) out += part;
      i = end;
    } else if (text[i] != '\\') {
      out += text[i];
    } else if (const char kind = text[++i]; kind == 'x' || kind == 'u') {
      const std::size_t digits = kind == 'x' ? 2 : 4;
      const int value = std::stoi(text.substr(i + 1, digits), nullptr, 16);
      out += kind == 'x' ? std::string(1, static_cast<char>(value))
                         : toUtf8(std::u16string(1, static_cast<char16_t>(value)));
      i += digits;
    } else {
      out += kind == 'n' ? '\n' : kind == 't' ? '\t' : kind;
    }
  }
  return out;
}

}  // namespace zelvaro::test
