// The label column against the search that it stands for.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "report/LabelColumn.h"

namespace zelvaro {
namespace {

/// The labels of an address, as the walk over all lines finds them.
std::vector<std::string_view> search(const std::vector<SrcDataA>& lines, int adr) {
  std::vector<std::string_view> found;
  for (const SrcDataA& s : lines) {
    if (s.LabelStr.empty()) continue;
    if (s.AbAdr > adr) break;
    if (s.AbAdr == adr) found.push_back(s.LabelStr);
  }
  return found;
}

SrcDataA labelAt(std::string_view label, int adr) {
  SrcDataA s;
  s.LabelStr = label;
  s.AbAdr = adr;
  return s;
}

void expectAsSearched(const std::vector<SrcDataA>& lines, int addresses) {
  const LabelColumn<char> column{std::span(lines)};
  for (int adr = 0; adr < addresses; ++adr) {
    const auto labels = column.at(adr);
    EXPECT_EQ(std::vector(labels.begin(), labels.end()), search(lines, adr)) << "address " << adr;
  }
}

TEST(LabelColumn, AgreesWithTheSearch) {
  static const std::array<std::string, 6> names{"A", "B2", "LOOP", "", "ABCDEFGH", "X"};
  std::mt19937 random(20);
  for (int table = 0; table < 2000; ++table) {
    std::vector<SrcDataA> lines;
    int adr = 0;
    for (auto n = random() % 40; n > 0; --n) {
      const auto kind = random() % 10;
      // mostly rising; a line without an opcode stays at 0, a program of odd addresses jumps about
      const int at = kind == 0 ? 0 : kind == 1 ? static_cast<int>(random() % 60) : adr;
      lines.push_back(labelAt(names[random() % names.size()], at));
      adr += static_cast<int>(random() % 3);
    }
    expectAsSearched(lines, 100);
    if (HasFailure()) FAIL() << "table " << table;
  }
}

TEST(LabelColumn, LineWithoutOpcodeShowsOnlyBeforeTheAddressesMoveOn) {
  expectAsSearched({labelAt("MAIN", 0), labelAt("EARLY", 0), labelAt("B", 3), labelAt("LATE", 0)}, 5);
  expectAsSearched({labelAt("BEYOND", kMemoryCells), labelAt("B", 3)}, 5);
}

TEST(LabelColumn, WidthIsThatOfTheJoinedTextBelowTheEnd) {
  const std::vector<SrcDataA> lines{labelAt("ABC", 1), labelAt("DEF", 1), labelAt("ABCDEFGH", 2)};
  const LabelColumn<char> column{std::span(lines)};
  EXPECT_EQ(column.longest(3, 5), 8);
  EXPECT_EQ(column.longest(2, 5), 7);
  EXPECT_EQ(column.longest(1, 5), 5);
  EXPECT_TRUE(column.at(-1).empty());
  EXPECT_TRUE(column.at(3).empty());
}

}  // namespace
}  // namespace zelvaro
