#include "whole/RandomSource.h"

#include <algorithm>
#include <array>
#include <random>

namespace zelvaro::test {
namespace {

constexpr int kWords = 4;  // labels D0 to D3, a word each, and the table T after them
constexpr std::array kBothForms{"LD", "ADDA", "SUBA", "ADDL", "SUBL", "AND", "OR", "XOR", "CPA", "CPL"};
constexpr std::array kShifts{"SLA", "SRA", "SLL", "SRL"};
constexpr std::array kJumps{"JPL", "JMI", "JNZ", "JZE", "JOV", "JUMP"};
constexpr std::array kComments{"", "", "", " ; note, with 'quotes'", " ;あ、表ソ能", "\t; ;;"};
/// Characters of one word each, in all the encodings that a source may have; the quote is written twice.
constexpr std::array kMozi{"A", "z", "0", " ", ",", ";", "=", "''", "&", "あ", "表", "ソ", "ｱ", "ー", "　"};

class Writer {
 public:
  Writer(unsigned seed, DataPlace place) : random_(seed), place_(place) {}

  std::string file() {
    constexpr std::ptrdiff_t kLines = 310;  // a file of the fixed form has no more
    do {
      out_.clear();
      programs_ = 1 + below(3);
      reads_ = oneIn(3);
      for (int nr = 0; nr < programs_; ++nr) program(nr);
    } while (std::count(out_.begin(), out_.end(), '\n') > kLines);
    return out_;
  }

 private:
  int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  bool oneIn(int n) { return below(n) == 0; }
  template <class Row>
  auto any(const Row& row) {
    return row[static_cast<std::size_t>(below(static_cast<int>(std::size(row))))];
  }
  std::string comma() { return any(std::array{",", ",", ", ", " ,", " , "}); }
  std::string reg() { return "GR" + std::to_string(below(6)); }
  std::string number() { return std::to_string(below(65536) - 32768); }
  std::string hex() {
    std::string out = "#";
    for (int i = 0; i < 4; ++i) out += "0123456789ABCDEF"[below(16)];
    return out;
  }
  std::string text(int length) {
    std::string out = "'";
    for (int i = 0; i < length; ++i) out += any(kMozi);
    return out + "'";
  }
  std::string constant() { return oneIn(3) ? number() : oneIn(2) ? hex() : text(1 + below(6)); }
  /// An address in the data of the program, with an index register (GR6, 0 to 3) or without.
  std::string memory() {
    if (oneIn(3)) return "T" + comma() + "GR6";
    return oneIn(4) ? "T" : "D" + std::to_string(below(kWords));
  }

  void line(const std::string& label, const std::string& op, const std::string& oprnds = "") {
    out_ += (label.empty() ? label_ : label) + any(std::array{" ", "\t", "   ", " \t "}) + op;
    if (label.empty()) label_.clear();
    if (!oprnds.empty()) out_ += any(std::array{" ", "\t", "    "}) + oprnds;
    out_ += any(kComments) + std::string("\n");
    if (oneIn(12)) out_ += any(std::array{"\n", "; 注釈\n", "  ; comment\n", "\t \n"});
  }
  void line(const std::string& op) { line("", op); }

  void operation() {
    const int kind = below(6);
    if (kind == 0)
      return line("", any(kShifts), reg() + comma() + std::to_string(below(18)) + (oneIn(4) ? ",GR6" : ""));
    if (kind == 1) return line("", "LAD", reg() + comma() + (oneIn(2) ? number() : memory()));
    if (kind == 2) return line("", "ST", reg() + comma() + memory());
    const std::string second = kind == 3 ? reg() : kind == 4 ? "=" + constant() : memory();
    line("", any(kBothForms), reg() + comma() + second);
  }
  void operations(int least, int most) {
    for (int n = least + below(most - least + 1); n > 0; --n) operation();
  }
  /// A loop over GR7, which nothing else touches.
  void loop() {
    const std::string label = "L" + std::to_string(loops_++);
    line("", "LAD", "GR7" + comma() + std::to_string(1 + below(5)));
    line(label, "NOP");
    operations(1, 3);
    line("", "SUBA", "GR7" + comma() + "=1");
    line("", "JPL", label);
  }
  void statement() {
    const int kind = below(12);
    if (kind > 5) return operation();
    if (kind == 0) return line("", any(kJumps), "B" + std::to_string(block_ + 1 + below(blocks_ - block_)));
    if (kind == 1) return loop();
    if (kind == 2) {
      line("", "PUSH", number() + (oneIn(2) ? ",GR" + std::to_string(1 + below(5)) : ""));
      line("", "POP", reg());
    } else if (kind == 3) {
      line("RPUSH");
      operation();
      line("RPOP");
    } else if (kind == 4) {
      line("", "LAD", "GR6" + comma() + std::to_string(below(4)));
    } else {
      const bool other = isFirst_ && programs_ > 1;
      line("", "CALL", other ? "SUB" + std::to_string(1 + below(programs_ - 1)) : "OWN");
    }
  }
  /// The code is a row of blocks that jump ahead only, so it comes to its end.
  void blocks() {
    blocks_ = 2 + below(4);
    for (block_ = 0; block_ < blocks_; ++block_) {
      label_ = "B" + std::to_string(block_);
      line("NOP");
      if (oneIn(3)) {
        const std::string nr = std::to_string(texts_++);
        line("", "OUT", "X" + nr + comma() + "N" + nr);
      }
      for (int n = below(6); n > 0; --n) statement();
      if (place_ == DataPlace::AfterCode || block_ > 0) continue;
      line("", "JUMP", "B1");
      words();
    }
    line("B" + std::to_string(blocks_), "NOP");
    if (!isFirst_) line("RPOP");
    line("RET");
    line("OWN", "RPUSH");
    operations(0, 2);
    line("RPOP");
    line("RET");
  }
  void words() {
    for (int i = 0; i < kWords; ++i)
      line("D" + std::to_string(i), "DC",
           any(std::array{number(), hex(), std::string("T"), std::string("'x'")}));
    line("T", "DC", number() + comma() + hex() + comma() + "'ab'");
    line("", "DS", "4");
  }
  /// The first program sets the index register and calls every other one.
  void program(int nr) {
    texts_ = loops_ = 0;
    isFirst_ = nr == 0;
    const bool entry = oneIn(3), reads = isFirst_ && reads_;
    line(isFirst_ ? "MAIN" : "SUB" + std::to_string(nr), "START", entry ? "GO" : "");
    if (entry && place_ == DataPlace::AmongCode) line("HEAD", "DC", "#FFFF");
    if (entry) label_ = "GO";
    isFirst_ ? line("", "LAD", "GR6" + comma() + "1") : line("RPUSH");
    for (int other = 1; isFirst_ && other < programs_; ++other)
      line("", "CALL", "SUB" + std::to_string(other));
    for (const char* op : {"IN", "OUT"})
      if (reads) line("", op, "INBUF" + comma() + "INLEN");
    blocks();
    if (place_ == DataPlace::AfterCode) words();
    if (reads) line("INBUF", "DS", "20");
    if (reads) line("INLEN", "DS", "1");
    for (int i = 0; i < texts_; ++i) {
      const int length = 1 + below(6);
      line("X" + std::to_string(i), "DC", text(length));
      line("N" + std::to_string(i), "DC", std::to_string(length));
    }
    line("END");
  }

  std::mt19937 random_;
  DataPlace place_;
  std::string out_;
  std::string label_;  ///< of the next line
  int programs_ = 0, block_ = 0, blocks_ = 0, loops_ = 0, texts_ = 0;
  bool isFirst_ = true, reads_ = false;
};

}  // namespace

std::string randomSource(unsigned seed, DataPlace place) {
  return Writer(seed, place).file();
}

}  // namespace zelvaro::test
