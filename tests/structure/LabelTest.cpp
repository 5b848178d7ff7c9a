// The label rules, duplicates, the label table.
#include <gtest/gtest.h>

#include "structure/Source.h"

namespace zelvaro::test {
namespace {

std::string drawn(const std::string& lines) {
  Source<WP> source("MAIN START\n" + lines + "\n RET\n END");
  EXPECT_TRUE(source.structure());
  source.platform.console.clear();
  Label35G<WP>(source.a, 0);
  return source.platform.console;
}
int errors(const std::string& lines) {
  Source<WP> source("MAIN START\n" + lines + "\n RET\n END");
  EXPECT_TRUE(source.structure());
  Label35G<WP>(source.a, 0);
  return source.a.errors();
}

TEST(Label, HowManyFindingsALineDraws) {
  const std::vector<std::pair<const char*, int>> table{
      {"ABCDEFGH NOP", 0},  {"L1 ;x", 0},     {"GR8 NOP", 0},  {"GR10 NOP", 0}, {"GRA NOP", 0},
      {"1ABC NOP", 1},      {"_ABC NOP", 1},  {"_AB_ NOP", 2}, {"abc NOP", 2},  {"a NOP", 1},
      {"aBCDEFGHI NOP", 2}, {"abcdefghi", 4}, {"A　B NOP", 2}, {"　B NOP", 1},  {"GR1 NOP\nGR1 NOP", 3}};
  for (const auto& [lines, count] : table) EXPECT_EQ(errors(lines), count) << lines;
}

TEST(Label, FirstPairOfDuplicatesInTheOrderOfNestedWalks) {
  const auto pair = [](const char* lines) { return drawn(lines).substr(0, 26); };
  EXPECT_EQ(pair("X NOP\nX NOP\nX NOP"), "Error : line=2 and line=3 ");
  EXPECT_EQ(pair("X NOP\nY NOP\nY NOP\nX NOP\nX NOP"), "Error : line=2 and line=5 ");
  EXPECT_EQ(pair("Y NOP\nX NOP\nX NOP\nZ NOP\nZ NOP\nY NOP"), "Error : line=2 and line=7 ");
}

TEST(Label, TableOfTheProgram) {
  Source<WP> source("A START\nL1 NOP\n RET\n END\nB START\nL1 NOP\n RET\n END");
  ASSERT_TRUE(source.run());
  const auto& second = source.store().vecPrg[1];
  EXPECT_EQ(second.findLabel(u"L1"), 5);
  EXPECT_EQ(second.findLabel(u"B"), 4);
  EXPECT_EQ(second.findLabel(u"A"), -1);
  EXPECT_EQ(second.Labels.size(), 2u);
}

}  // namespace
}  // namespace zelvaro::test
