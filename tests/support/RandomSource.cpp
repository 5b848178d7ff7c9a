#include "support/RandomSource.h"

#include <algorithm>
#include <map>
#include <random>
#include <vector>

namespace zelvaro::test {
namespace {

/// A grammar: "%o" is any text of row o, and so do "_" for blanks and "$" for the end of a line; "@" is
/// the number of the statement.
const std::map<char, std::vector<std::string>> kRows{
    {'_', {" ", "\t", "   ", " \t "}},
    {'$',
     {"\n", "\n", "\n", " ; note, with 'quotes'\n", " ;あ、表ソ能\n", "\t; ;;\n", "\n\n; 注釈\n", "\n\t \n"}},
    {'c', {",", ",", ", ", " ,", " , "}},
    {'r', {"GR0", "GR1", "GR2", "GR3", "GR4", "GR5"}},
    {'d', {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}},
    {'x', {"%d", "%d", "A", "B", "C", "D", "E", "F"}},
    {'i', {"0", "1", "2", "3"}},
    {'p', {"1", "2", "3", "4", "5"}},
    {'n', {"%d", "%p%d%d%d", "-%p%d%d%d", "2%d%d%d%d", "-1%d%d%d%d", "32767", "-32768"}},
    {'h', {"#%x%x%x%x"}},
    // characters of one word each, in all the encodings that a source may have; the quote is written twice
    {'z', {"A", "z", "0", " ", ",", ";", "=", "''", "&", "あ", "表", "ソ", "ｱ", "ー", "　"}},
    {'k', {"%n", "%h", "'%z'", "'%z%z%z'", "'%z%z%z%z%z%z'"}},
    {'m', {"D%i", "D%i", "T", "T%cGR6"}},
    {'s', {"%r", "=%k", "%m"}},
    {'B', {"LD", "ADDA", "SUBA", "ADDL", "SUBL", "AND", "OR", "XOR", "CPA", "CPL"}},
    {'S', {"SLA", "SRA", "SLL", "SRL"}},
    {'J', {"JPL", "JMI", "JNZ", "JZE", "JOV", "JUMP"}},
    {'o',
     {"_%S_%r%c%d$", "_%S_%r%c1%i,GR6$", "_LAD_%r%c%n$", "_LAD_%r%c%m$", "_ST_%r%c%m$", "_%B_%r%c%s$",
      "_%B_%r%c%s$"}},
    // nothing else touches GR7
    {'t',
     {"%o", "%o", "%o", "_PUSH_%n$_POP_%r$", "_PUSH_%n,GR%p$_POP_%r$", "_RPUSH$%o_RPOP$", "_LAD_GR6%c%i$",
      "_CALL_OWN$", "_LAD_GR7%c%p$L@_NOP$%o%o_SUBA_GR7%c=1$_JPL_L@$"}},
    {'v', {"%n", "%h", "T", "'x'"}},
    {'w', {"D0_DC_%v$D1_DC_%v$D2_DC_%v$D3_DC_%v$T_DC_%n%c%h%c'ab'$_DS_4$"}},
    {'X', {"X@_DC_'%z'$N@_DC_1$", "X@_DC_'%z%z%z'$N@_DC_3$", "X@_DC_'%z%z%z%z%z%z'$N@_DC_6$"}},
};

class Writer {
 public:
  Writer(unsigned seed, DataPlace place) : random_(seed), place_(place) {}

  std::string file() {
    constexpr std::ptrdiff_t kLines = 310;  // a file of the fixed form has no more
    do {
      out_.clear();
      programs_ = 1 + below(3);
      for (int nr = 0; nr < programs_; ++nr) program(nr);
    } while (std::count(out_.begin(), out_.end(), '\n') > kLines);
    return out_;
  }

 private:
  int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  std::string expanded(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] == '@') {
        out += std::to_string(statement_);
      } else if (text[i] == '%' || text[i] == '_' || text[i] == '$') {
        const auto& row = kRows.at(text[i] == '%' ? text[++i] : text[i]);
        out += expanded(row[static_cast<std::size_t>(below(static_cast<int>(row.size())))]);
      } else {
        out += text[i];
      }
    }
    return out;
  }
  void write(const std::string& text) { out_ += expanded(text); }

  /// The code is a row of blocks that jump ahead only, so it comes to its end.
  void program(int nr) {
    const std::string name = nr == 0 ? "MAIN" : "SUB" + std::to_string(nr);
    const bool entry = below(3) == 0, among = place_ == DataPlace::AmongCode,
               reads = nr == 0 && below(3) == 0;
    write(name + (entry ? "_START_GO$" : "_START$") + (entry && among ? "HEAD_DC_#FFFF$" : ""));
    write((entry ? "GO" : "") + std::string(nr == 0 ? "_LAD_GR6%c1$" : "_RPUSH$"));
    for (int other = 1; nr == 0 && other < programs_; ++other)
      write("_CALL_SUB" + std::to_string(other) + "$");
    if (reads) write("_IN_INBUF%cINLEN$_OUT_INBUF%cINLEN$");
    const int blocks = 2 + below(4);
    std::string texts;
    for (int block = 0; block < blocks; ++block) {
      write("B" + std::to_string(block) + "_NOP$");
      for (int n = below(7); n > 0; --n, ++statement_) {
        write("%t");
        if (below(4) == 0) write("_%J_B" + std::to_string(block + 1 + below(blocks - block)) + "$");
        if (below(6) > 0) continue;
        write("_OUT_X@%cN@$");
        texts += expanded("%X");
      }
      if (among && block == 0) write("_JUMP_B1$%w");
    }
    write("B" + std::to_string(blocks) + (nr == 0 ? "_NOP$_RET$" : "_RPOP$_RET$") +
          "OWN_RPUSH$%o_RPOP$_RET$");
    if (!among) write("%w");
    if (reads) write("INBUF_DS_20$INLEN_DS_1$");
    out_ += texts;
    write("_END$");
  }

  std::mt19937 random_;
  DataPlace place_;
  std::string out_;
  int programs_ = 0, statement_ = 0;
};

}  // namespace

std::string randomSource(unsigned seed, DataPlace place) {
  return Writer(seed, place).file();
}

}  // namespace zelvaro::test
