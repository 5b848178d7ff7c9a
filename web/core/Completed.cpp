#include "Completed.h"

#include <algorithm>

namespace zelvaro::web {
namespace {

constexpr std::string_view kBlanks = " \t";

/// The opcode of a line; empty for a comment or a blank line.
std::string_view opcodeOf(std::string_view line) {
  if (!line.empty() && kBlanks.find(line[0]) == line.npos) {
    if (line[0] == ';') return {};
    line.remove_prefix(std::min(line.find_first_of(kBlanks), line.size()));
  }
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
  return line.substr(0, line.find_first_of(" \t;"));
}

/// A name of a program that the source does not have.
std::string freeName(std::string_view utf8) {
  std::string name = "MAIN";
  for (char digit = '1'; digit <= '9' && utf8.find(name) != utf8.npos; ++digit)
    name = std::string("MAIN") + digit;
  return name;
}

class Completing {
 public:
  explicit Completing(std::string_view utf8) : left_(utf8), name_(freeName(utf8)) {}

  Completed make() {
    for (int number = 1; !left_.empty(); ++number) {
      const std::string_view line = nextLine();
      take(opcodeOf(line));
      put(line, number);
    }
    if (hasStatement_ && (isOpen_ || (!hasStart_ && !hasEnd_))) {
      addRet();
      add("END", " END");
    }
    if (hasStatement_ && !hasStart_) addStart();
    return std::move(out_);
  }

 private:
  std::string_view nextLine() {
    const std::size_t end = left_.find_first_of("\r\n");
    const std::string_view line = left_.substr(0, end);
    left_.remove_prefix(std::min(end, left_.size()));
    left_.remove_prefix(left_.starts_with("\r\n") ? 2 : left_.empty() ? 0 : 1);
    return line;
  }
  void take(std::string_view opcode) {
    if (opcode.empty()) return;
    hasStatement_ = true;
    if (opcode == "START") {
      isOpen_ = hasStart_ = true;
      hasRet_ = false;
    } else if (opcode == "RET" || opcode == "EXIT") {
      hasRet_ = true;
    } else if (opcode == "END") {
      addRet();
      isOpen_ = false;
      hasEnd_ = true;
    }
  }
  void addRet() {
    if (!hasRet_) add("RET", " RET");
    hasRet_ = true;
  }
  void addStart() {
    out_.text.insert(0, name_ + " START\n");
    out_.lineOf.insert(out_.lineOf.begin(), 0);
    out_.added.insert(out_.added.begin(), "START");
  }
  void add(const char* word, std::string_view line) {
    put(line, 0);
    if (std::find(out_.added.begin(), out_.added.end(), word) == out_.added.end()) out_.added.push_back(word);
  }
  void put(std::string_view line, int number) {
    out_.text.append(line) += '\n';
    out_.lineOf.push_back(number);
  }

  std::string_view left_;
  std::string name_;
  Completed out_;
  bool hasStatement_ = false, hasStart_ = false, isOpen_ = false, hasRet_ = false, hasEnd_ = false;
};

}  // namespace

Completed completed(std::string_view utf8) {
  return Completing(utf8).make();
}

}  // namespace zelvaro::web
