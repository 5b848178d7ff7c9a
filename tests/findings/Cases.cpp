#include "findings/Cases.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "MoziCode/Utf.h"

namespace zelvaro::test {
namespace {

std::vector<std::string> fieldsOf(const std::string& text) {
  std::vector<std::string> out;
  for (std::size_t from = 0, end = 0; end != text.npos; from = end + 3) {
    end = text.find(" | ", from);
    const std::string field = text.substr(from, end - from);
    const std::size_t first = std::min(field.find_first_not_of(' '), field.size());
    out.push_back(field.substr(first, field.find_last_not_of(' ') + 1 - first));
    if (end == text.npos) break;
  }
  return out;
}

/// Turns what \x and its like stand for into bytes, and repeats.
std::string unescaped(const std::string& text) {
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

std::string bytesOf(const std::string& source) {
  const std::string bytes = unescaped(source);
  const bool isMarked = !isAscii(bytes) && source.find("\\x") == std::string::npos;
  return (isMarked ? "\xEF\xBB\xBF" : "") + bytes;
}

Expectation expectationOf(const std::string& field) {
  Expectation e;
  e.found = field;
  if (!field.starts_with("but ")) return e;
  const std::size_t colon = field.find(": ");
  for (std::size_t i = 4; i < colon;) {
    const std::size_t end = std::min(field.find(' ', i), colon);
    e.families.push_back(field.substr(i, end - i));
    i = end + 1;
  }
  e.found = field.substr(colon + 2);
  return e;
}

bool areWords(const std::string& field) {
  return field.find_first_not_of("0123456789ABCDEF ") == std::string::npos;
}

Case caseOf(const std::vector<std::string>& fields, const std::map<std::string, std::string>& frames) {
  Case c;
  std::string source = fields.at(1);
  c.runs = fields[0] == "run";
  if (const auto frame = frames.find(fields[0]); frame != frames.end()) {
    const std::size_t hole = frame->second.find("<line>");
    const std::string before = unescaped(frame->second.substr(0, hole));
    c.line = static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1;
    source = frame->second.substr(0, hole) + source + frame->second.substr(hole + 6);
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
      out.push_back(caseOf(fieldsOf(text), frames));
      out.back().file = file;
      out.back().lineOfFile = line;
    }
  }
  return out;
}

}  // namespace zelvaro::test
