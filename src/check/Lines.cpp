#include "check/Lines.h"

#include "MoziCode/Cp932.h"

namespace zelvaro::check {

std::vector<std::string> linesOfText(std::string_view utf8) {
  std::vector<std::string> out;
  while (!utf8.empty()) {
    const std::size_t end = std::min(utf8.find('\n'), utf8.size());
    std::string_view line = utf8.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    out.emplace_back(line);
    utf8.remove_prefix(std::min(end + 1, utf8.size()));
  }
  return out;
}

std::vector<std::string> linesOf(std::string_view bytes) {
  return linesOfText(fileTextAsUtf8(bytes));
}

}  // namespace zelvaro::check
