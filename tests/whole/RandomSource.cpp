#include "whole/RandomSource.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace zelvaro::test {
namespace {

constexpr int kWords = 4;  // labels D0 to D3, a word each, and the table T behind them
constexpr int kTable = 8;

constexpr std::array kBothForms{"LD", "ADDA", "SUBA", "ADDL", "SUBL", "AND", "OR", "XOR", "CPA", "CPL"};
constexpr std::array kShifts{"SLA", "SRA", "SLL", "SRL"};
constexpr std::array kJumps{"JPL", "JMI", "JNZ", "JZE", "JOV", "JUMP"};
constexpr std::array kComments{"", "", "", " ; note, with 'quotes'", " ;あ、表ソ能", "\t; ;;"};
/// Characters of one word each, in all the encodings that a source may have; the quote is written twice.
constexpr std::array kMozi{"A", "z", "0", " ", ",", ";", "=", "''", "#", "あ", "表", "ソ", "ｱ", "ー", "　"};

}  // namespace

void RandomSource::line(const std::string& label, const std::string& op, const std::string& oprnds) {
  const std::string shown = label.empty() ? label_ : label;
  if (label.empty()) label_.clear();
  out_ += shown + any(std::array{" ", "\t", "   ", " \t "}) + op;
  if (!oprnds.empty()) out_ += any(std::array{" ", "\t", "    "}) + oprnds;
  out_ += any(kComments);
  out_ += '\n';
  if (oneIn(12)) out_ += any(std::array{"\n", "; 注釈\n", "  ; comment\n", "\t \n"});
}

std::string RandomSource::comma() {
  return any(std::array{",", ",", ", ", " ,", " , "});
}

std::string RandomSource::number() {
  return std::to_string(below(65536) - 32768);
}

std::string RandomSource::hex() {
  char text[8];
  std::snprintf(text, sizeof text, "#%04X", static_cast<unsigned>(below(65536)));
  return text;
}

std::string RandomSource::charConst(std::size_t& length) {
  length = static_cast<std::size_t>(1 + below(6));
  std::string text = "'";
  for (std::size_t i = 0; i < length; ++i) text += any(kMozi);
  return text + "'";
}

std::string RandomSource::literal() {
  std::size_t length = 0;
  switch (below(3)) {
    case 0:
      return "=" + number();
    case 1:
      return "=" + hex();
    default:
      return "=" + charConst(length);
  }
}

std::string RandomSource::word() {
  return "D" + std::to_string(below(kWords));
}

/// An address in the data of the program, with an index register (GR6, 0 to 3) or without.
std::string RandomSource::memory() {
  if (oneIn(3)) return "T" + comma() + "GR6";
  return oneIn(4) ? "T" : word();
}

void RandomSource::operation() {
  switch (below(6)) {
    case 0:
      return line("", any(kShifts), reg() + comma() + std::to_string(below(18)) + (oneIn(4) ? ",GR6" : ""));
    case 1:
      return line("", "LAD", reg() + comma() + (oneIn(2) ? number() : memory()));
    case 2:
      return line("", "ST", reg() + comma() + memory());
    case 3:
      return line("", any(kBothForms), reg() + comma() + reg());
    case 4:
      return line("", any(kBothForms), reg() + comma() + literal());
    default:
      return line("", any(kBothForms), reg() + comma() + memory());
  }
}

void RandomSource::jumpAhead() {
  const int target = block_ + 1 + below(blocks_ - block_);
  line("", any(kJumps), "B" + std::to_string(target));
}

/// A loop over GR7, which nothing else touches.
void RandomSource::loop() {
  const std::string label = "L" + std::to_string(loops_++);
  line("", "LAD", "GR7" + comma() + std::to_string(1 + below(5)));
  line(label, "NOP");
  for (int n = 1 + below(3); n > 0; --n) operation();
  line("", "SUBA", "GR7" + comma() + "=1");
  line("", "JPL", label);
}

void RandomSource::output() {
  const std::string nr = std::to_string(texts_++);
  line("", "OUT", "X" + nr + comma() + "N" + nr);
}

void RandomSource::statement() {
  switch (below(12)) {
    case 0:
      return jumpAhead();
    case 1:
      return loop();
    case 2:
      line("", "PUSH", number() + (oneIn(2) ? ",GR" + std::to_string(1 + below(5)) : ""));
      return line("", "POP", reg());
    case 3:
      line("", "RPUSH");
      operation();
      return line("", "RPOP");
    case 4:
      return line("", "LAD", "GR6" + comma() + std::to_string(below(4)));
    case 5:
      if (isFirst_ && programs_ > 1)
        return line("", "CALL", "SUB" + std::to_string(1 + below(programs_ - 1)));
      return line("", "CALL", "OWN");
    default:
      return operation();
  }
}

/// The code is a row of blocks that jump ahead only, so it comes to its end.
void RandomSource::blocks(int nr) {
  blocks_ = 2 + below(4);
  for (block_ = 0; block_ < blocks_; ++block_) {
    label_ = "B" + std::to_string(block_);
    line("", "NOP");
    if (oneIn(3)) output();
    for (int n = below(6); n > 0; --n) statement();
    if (place_ == DataPlace::AmongCode && block_ == 0) {
      line("", "JUMP", "B1");
      words();
    }
  }
  line("B" + std::to_string(blocks_), "NOP");
  if (nr > 0) line("", "RPOP");
  line("", "RET");
  line("OWN", "RPUSH");
  for (int n = below(3); n > 0; --n) operation();
  line("", "RPOP");
  line("", "RET");
}

void RandomSource::words() {
  for (int i = 0; i < kWords; ++i) {
    const std::string value = any(std::array{number(), hex(), std::string("T"), std::string("'x'")});
    line("D" + std::to_string(i), "DC", value);
  }
  line("T", "DC", number() + comma() + hex() + comma() + "'ab'");
  line("", "DS", std::to_string(kTable - 4));
}

void RandomSource::texts() {
  if (isFirst_ && reads_) {
    line("INBUF", "DS", "20");
    line("INLEN", "DS", "1");
  }
  for (int i = 0; i < texts_; ++i) {
    std::size_t length = 0;
    const std::string text = charConst(length);
    line("X" + std::to_string(i), "DC", text);
    line("N" + std::to_string(i), "DC", std::to_string(length));
  }
}

/// The first program sets the index register, calls every other one and now and then reads a line.
void RandomSource::begin() {
  line("", "LAD", "GR6" + comma() + "1");
  for (int nr = 1; nr < programs_; ++nr) line("", "CALL", "SUB" + std::to_string(nr));
  if (!reads_) return;
  line("", "IN", "INBUF" + comma() + "INLEN");
  line("", "OUT", "INBUF" + comma() + "INLEN");
}

void RandomSource::program(int nr) {
  texts_ = loops_ = 0;
  isFirst_ = nr == 0;
  const std::string name = nr == 0 ? "MAIN" : "SUB" + std::to_string(nr);
  const bool entry = oneIn(3);
  line(name, "START", entry ? "GO" : "");
  if (entry && place_ == DataPlace::AmongCode) line("HEAD", "DC", "#FFFF");
  if (entry) label_ = "GO";
  if (nr == 0) {
    begin();
  } else {
    line("", "RPUSH");
  }
  blocks(nr);
  if (place_ == DataPlace::BehindCode) words();
  texts();
  line("", "END");
}

std::string RandomSource::file() {
  constexpr std::ptrdiff_t kLines = 310;  // a file of the fixed form has no more
  do {
    out_.clear();
    programs_ = 1 + below(3);
    reads_ = oneIn(3);
    for (int nr = 0; nr < programs_; ++nr) program(nr);
  } while (std::count(out_.begin(), out_.end(), '\n') > kLines);
  return out_;
}

}  // namespace zelvaro::test
