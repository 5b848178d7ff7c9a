#include "shell/Prompt.h"

#include <cstdlib>

#include "MoziCode/Characters.h"

namespace zelvaro {

std::optional<std::string> askLine(Platform& platform, std::size_t limit) {
  std::optional<std::string> line = platform.readLine();
  if (line) line->resize(firstCharacters(*line, limit).size());
  return line;
}

std::string withoutBlanks(std::string_view text) {
  return std::string(trim(text));
}

std::string withoutAnyBlanks(std::string_view text) {
  return std::string(trimAnyBlanks(text));
}

std::optional<long> decimalNumber(const std::string& text) {
  char* rest = nullptr;
  const long number = std::strtol(text.c_str(), &rest, 10);
  if (rest != text.c_str() + text.size()) return std::nullopt;
  return number;
}

}  // namespace zelvaro
