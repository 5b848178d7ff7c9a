#include "platform/CommandLine.h"

#include <algorithm>

namespace zelvaro {

std::vector<std::string> splitCommandLine(std::string_view commandLine) {
  std::vector<std::string> words;
  bool inWord = false;
  bool quoted = false;
  for (const char c : commandLine) {
    if (!quoted && (c == ' ' || c == '\t')) {
      inWord = false;
      continue;
    }
    if (!inWord) words.emplace_back();
    inWord = true;
    if (c == '"') {
      quoted = !quoted;
    } else {
      words.back() += c;
    }
  }
  return words;
}

std::vector<std::string> editorCommand(std::string_view setting,
                                       const std::function<bool(const std::string&)>& isProgram) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = std::min(setting.find_first_not_of(kBlanks), setting.size());
  std::string_view whole = setting.substr(first, setting.find_last_not_of(kBlanks) + 1 - first);
  if (whole.size() > 1 && whole.front() == '"' && whole.back() == '"')
    whole = whole.substr(1, whole.size() - 2);
  std::string name(whole);
  if (!name.empty() && isProgram(name)) return {std::move(name)};
  return splitCommandLine(setting);
}

}  // namespace zelvaro
