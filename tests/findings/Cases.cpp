#include "findings/Cases.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "support/Texts.h"

namespace zelvaro::test {
namespace {

std::string bytesOf(const std::string& source) {
  const std::string bytes = unescaped(source);
  const bool isMarked = !isAscii(bytes) && source.find("\\x") == std::string::npos;
  return (isMarked ? "\xEF\xBB\xBF" : "") + bytes;
}

Expectation expectationOf(const std::string& field) {
  if (!field.starts_with("but ")) return {{}, field, ""};
  const std::size_t colon = field.find(": ");
  return {cut(field.substr(4, colon - 4), " "), field.substr(colon + 2), ""};
}

bool areWords(const std::string& field) {
  return field.find_first_not_of("0123456789ABCDEF ") == std::string::npos;
}

Case caseOf(const std::vector<std::string>& fields, const std::map<std::string, std::string>& frames) {
  Case c;
  c.runs = fields[0] == "run";
  std::string source = fields.at(1);
  if (const auto frame = frames.find(fields[0]); frame != frames.end()) {
    const auto around = cut(frame->second, "<line>");
    c.line = static_cast<int>(cut(around[0], "\\n").size());
    source = around[0] + source + around[1];
  }
  c.bytes = bytesOf(source);
  for (std::size_t i = 2; i < fields.size(); ++i) {
    if (areWords(fields[i]) && !c.expected.empty()) {
      c.expected.back().words = fields[i];
    } else {
      c.expected.push_back(expectationOf(fields[i]));
    }
  }
  return c;
}

}  // namespace

const Expectation& Case::expectedOf(const Family& family) const {
  for (const Expectation& e : expected)
    if (std::ranges::find(e.families, family.name) != e.families.end()) return e;
  return expected.at(0);
}

std::vector<Case> allCases() {
  std::set<std::string> files;
  for (const auto& e : std::filesystem::directory_iterator(ZELVARO_ROOT "/tests/findings"))
    if (e.path().extension() == ".cases") files.insert(e.path().string());
  std::vector<Case> out;
  for (const std::string& file : files) {
    std::map<std::string, std::string> frames;
    std::ifstream in(file);
    std::string text;
    for (int line = 1; std::getline(in, text); ++line) {
      if (text.empty() || text[0] == '#') continue;
      if (const std::size_t equals = text.find(" = "); equals < text.find(" | ")) {
        frames[text.substr(0, equals)] = text.substr(equals + 3);
        continue;
      }
      out.push_back(caseOf(cut(text, " | ", true), frames));
      out.back().file = file;
      out.back().lineOfFile = line;
    }
  }
  return out;
}

}  // namespace zelvaro::test
