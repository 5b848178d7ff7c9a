#include "BigSource.h"

#include <fmt/format.h>

#include <cstdint>
#include <vector>

namespace zelvaro::bench {
namespace {

/// The same numbers everywhere.
class Numbers {
 public:
  int below(int n) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(n));
  }

 private:
  std::uint64_t state_ = 4;
};

struct Statement {
  const char* text;  ///< {0} a register, {1} a label, {2} a number
  int words;
};

constexpr Statement kStatements[] = {
    {"LD      GR{0},{1}", 2},
    {"ADDL    GR{0},GR{0}", 1},
    {"CPA     GR{0},{1}", 2},
    {"JNZ     {1}", 2},
    {"LAD     GR{0},{2},GR1", 2},
    {"ST      GR{0},{1}", 2},
    {"ADDA    GR{0},={2}", 3},
    {"NOP", 1},
    {"PUSH    {2},GR3", 2},
    {"DC      {2},-{2}", 2},
    {"DC      {1}", 1},
    {"DC      'AB'", 2},
    {"DS      3", 3},
    {"SRA     GR{0},3", 2},
    {"OR      GR{0},GR2", 1},
};

}  // namespace

std::string bigSource(int words, int lines) {
  Numbers random;
  std::vector<std::string> body;
  const int labels = words / 8;
  for (int used = 4, k = 0; used + 3 <= words; ++k) {
    const Statement& s = kStatements[random.below(std::size(kStatements))];
    const std::string label = k % 4 == 0 && k / 4 < labels ? fmt::format("L{:06}", k / 4) : "";
    const std::string target = fmt::format("L{:06}", random.below(labels / 2));
    const std::string text = fmt::format(fmt::runtime(s.text), random.below(8), target, random.below(30000));
    body.push_back(fmt::format("{:8}{:<24}{}", label, text, k % 3 == 0 ? "; a step" : ""));
    used += s.words;
  }
  std::string out = "MAIN    START\n        JUMP    FIN\n";
  const auto size = static_cast<int>(body.size());
  const int comments = std::max(0, lines - size - 4);
  for (int k = 0, done = 0; k < size; ++k) {
    out += body[static_cast<std::size_t>(k)] + "\n";
    const auto due = static_cast<int>(std::int64_t{comments} * (k + 1) / size);
    for (; done < due; ++done) out += "; what the next lines are for, and why they stand just here\n";
  }
  return out + "FIN     RET\n        END\n";
}

}  // namespace zelvaro::bench
