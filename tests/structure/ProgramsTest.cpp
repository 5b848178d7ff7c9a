// Programs: what START and END make of a file, and the names.
#include <gtest/gtest.h>

#include "structure/Source.h"

namespace zelvaro::test {
namespace {

TEST(StartEnd, LabelsOnSeveralProgramsAreAllTold) {
  Source<WP> source(" START\n RET\n END\nB START\n RET\nE END\nC START\n RET\n END");
  EXPECT_FALSE(source.structure());
  EXPECT_EQ(source.cs.ErrorKazu, 2);
}

TEST(StartEnd, OneProgramMayHaveTextAroundIt) {
  Source<WP> source("what\nA START\n RET\n END\nso　");
  EXPECT_TRUE(source.structure());
  EXPECT_EQ(source.platform.console, "One program is found in it.\n");
}

TEST(StartEnd, ProgramRecordsAndNumbersOfLines) {
  Source<WP> source("; head\nA START\n\n RET\n END\n\nB\tSTARTX\n NOP ; RET\n\tEND;");
  ASSERT_TRUE(source.structure());
  EXPECT_EQ(source.sh.PrgKazuInFile, 2);
  ASSERT_EQ(source.programs(), 2);
  const auto& second = source.store().vecPrg[1];
  EXPECT_EQ(second.StartLine, 6);
  EXPECT_EQ(second.EndLine, 8);
  EXPECT_EQ(second.RecStart, 3);
  EXPECT_EQ(second.RecEnd, 5);
  for (const int number : {2, 4, 5}) EXPECT_EQ(source.line(number).PrgNr, 0);
  for (const int number : {7, 8, 9}) EXPECT_EQ(source.line(number).PrgNr, 1);
  EXPECT_EQ(source.log.records().size(), 0u);
}

TEST(PrgName, StoredWithTheLabelOfStart) {
  Source<WP> source("ABCDEFGH START\n RET\n END");
  ASSERT_TRUE(source.structure());
  EXPECT_EQ(plain(source.store().vecPrg[0].PrgName), "ABCDEFGH");
  EXPECT_EQ(source.words(1), "ABCDEFGH||");
}

TEST(PrgNameDouble, FillsTheIndexOfUniqueNames) {
  Source<AP> source("A START\nB RET\n END\nB START\n RET\n END");
  ASSERT_TRUE(source.structure());
  EXPECT_EQ(source.store().findPrg("B", 0), 1);
  EXPECT_EQ(source.store().findPrg("B", 1), -1);
  EXPECT_EQ(source.store().findPrg("C", 0), -1);
}

}  // namespace
}  // namespace zelvaro::test
