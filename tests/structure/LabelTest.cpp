// The label rules, duplicates, the label table, unreferenced labels.
#include <gtest/gtest.h>

#include "structure/Source.h"

namespace zelvaro::test {
namespace {

template <class Family = WP>
std::string drawn(const std::string& lines, int lang = kEnglish) {
  Source<Family> source("MAIN START\n" + lines + "\n RET\n END", lang);
  EXPECT_TRUE(source.structure());
  source.platform.console.clear();
  Label35G<Family>(source.a, 0);
  return source.platform.console;
}
int errors(const std::string& lines) {
  Source<WP> source("MAIN START\n" + lines + "\n RET\n END");
  EXPECT_TRUE(source.structure());
  Label35G<WP>(source.a, 0);
  return source.a.errors();
}

TEST(Label, EveryRowInBothLanguages) {
  EXPECT_EQ(
      drawn("L1;x"),
      "Error : line 2:  \"L1\" : A label is detected. But there is not any instruction code in the line. \n");
  EXPECT_EQ(drawn("L1", kJapanese), "エラー： 2 行目： :  \"L1\" : ラベルはあるが、命令語の記述がない。\n");
  EXPECT_EQ(
      drawn("1ABC NOP"),
      "Error : line 2:  \"1ABC\" : The first letter of a label must be a capital alphabetical letter. \n"
      "A numeral cannot be used as the first letter of a label. \n");
  EXPECT_EQ(
      drawn("あ NOP", kJapanese),
      "エラー： 2 行目：  \"あ\" : ラベルの先頭文字は英大文字であること。\n先頭文字に数字は使えない。\n");
  EXPECT_EQ(drawn("ABC_1 NOP\nA-B NOP"),
            "Error : line 2: Non uppercase alphanumeric characters are found in the label of 'ABC_1'. \n");
  EXPECT_EQ(drawn("ABC_1 NOP", kJapanese),
            "エラー： 2 行目： ラベル ABC_1 に英大文字、 数字 以外の文字が使われている。 \n");
  EXPECT_EQ(drawn("ABCDEFGHI NOP"),
            "Error : line 2:  \"ABCDEFGHI\"   A label must be 1 to 8 characters in length. "
            "It includes 9 characters in it. \n");
  EXPECT_EQ(drawn("ABCDEFGHI NOP", kJapanese),
            "エラー： 2 行目：  \"ABCDEFGHI\"  ラベルの長さは 8 文字までに制限されている。 9 文字ある。\n");
  EXPECT_EQ(drawn("GR7 NOP"),
            "Error : line 2: GR7 is one of the reserved words(GR0-GR7). \n"
            "Reserved words, GR0 through GR7, are not available for labels. Spec. of CASL2   2.1 (Note) \n");
  EXPECT_EQ(drawn("GR0 NOP", kJapanese),
            "エラー： 2 行目： ラベルに予約語(GR0 - GR7) は使えない。CASL2の仕様　2.1（注）\n");
  EXPECT_EQ(drawn("X NOP\nL NOP\nX NOP"),
            "Error : line=2 and line=4 Duplication of a label of X. \nThe label X is already defined. \n"
            "Each of the labels must be unique in a program. \n"
            "The same label must not be defined twice within a program.\n");
  EXPECT_EQ(drawn("MAIN NOP", kJapanese),
            "エラー： 1 行目 と 2 行目： 同じラベル MAIN が二つある。\n"
            "ラベルは同一プログラムの中で唯一(unique)でなければならない。\n"
            "ラベルを同一プログラムの中で二重に定義してはならない。 \n");
}

TEST(Label, NarrowWords) {
  EXPECT_EQ(drawn<AP>("あB NOP", kJapanese), drawn<WP>("あB NOP", kJapanese));
  EXPECT_EQ(drawn<AP>("AB_ NOP"), "Error : line 2: An invalid character is found in the label.\n");
  EXPECT_EQ(drawn<AP>("X NOP\nX NOP").substr(0, 70),
            "Error : line=2 and line=3 Duplication of the same label of X. \nThe lab");
  EXPECT_EQ(drawn<AP>("ABCDEFGHI NOP", kJapanese),
            "エラー： 2 行目：  \"ABCDEFGHI\"  ラベルの長さは 8 文字まで。 9 文字ある。\n");
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

TEST(LabelInUse, EveryUnreferencedLabelButTheNameOfTheProgram) {
  Source<WP> source("A START\nL1 NOP\nL2 NOP\nL3 ;x\n RET\n END\nB START\nL4 RET\n END", kJapanese);
  ASSERT_TRUE(source.structure());
  for (int i = 0; i < 2; ++i) source.program(i);
  source.store()[2].IsLabelInUse = true;
  source.platform.console.clear();
  CkLabelInUse<WP>(source.a);
  EXPECT_EQ(source.platform.console,
            "注意： 2 行目： ラベル  \"L1\"  は一度も参照されない。 \n"
            "注意： 4 行目： ラベル  \"L3\"  は一度も参照されない。 \n"
            "注意： 8 行目： ラベル  \"L4\"  は一度も参照されない。 \n");
  EXPECT_EQ(source.notes(), 3);
  EXPECT_EQ(source.a.errors(), 0);
}

}  // namespace
}  // namespace zelvaro::test
