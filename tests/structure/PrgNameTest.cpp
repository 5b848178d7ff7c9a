// Program names: the rules, duplicates, the table, programs that nothing names.
#include <gtest/gtest.h>

#include "structure/Source.h"

namespace zelvaro::test {
namespace {

/// What the structure stages say of a one-program file behind the number of programs.
template <class Family = WP>
std::string drawn(const std::string& name, int lang = kEnglish, int errors = 1) {
  Source<Family> source(name + " START\n RET\n END", lang);
  EXPECT_FALSE(source.structure());
  EXPECT_EQ(source.a.errors(), errors);
  EXPECT_TRUE(source.store().vecPrg[0].PrgName.empty());
  return source.platform.console.substr(source.platform.console.find('\n') + 1);
}

TEST(PrgName, EveryRowInBothLanguages) {
  EXPECT_EQ(drawn("main"),
            "Error :  \"main\" line 1: \n"
            "The first letter of a label must be a capital alphabetical letter. \n"
            "A numeral is not allowed to be used as the first letter of a label. \n");
  EXPECT_EQ(drawn("1A", kJapanese),
            "エラー：  \"1A\" 1 行目： ラベルの先頭文字は英大文字であること。 先頭文字に数字は使えない。\n");
  EXPECT_EQ(drawn("MA_N"),
            "Error :  \"MA_N\" line 1: A non-alpha-numeral character is found in the label of 'MA_N'. \n");
  EXPECT_EQ(drawn("Main", kEnglish, 2),
            "Error :  \"Main\" line 1: A non-alpha-numeral character is found in the label of 'Main'. \n"
            "Error :  \"Main\" line 1: A lowercase letter is found in the label. \n"
            "It is not allowed to be used in a lebel of CASL2. \n");
  EXPECT_EQ(drawn("M_Ain", kJapanese, 2),
            "エラー：  \"M_Ain\" 1 行目： ラベル  \"M_Ain\"  の第 2 文字目に英大文字、 数字 以外の文字が"
            "使われている。 \n"
            "エラー：  \"M_Ain\" 1 行目： ラベル  \"M_Ain\"  の第 4 文字目に英小文字が使われている。 "
            "英小文字は使えない。 \n");
  EXPECT_EQ(drawn("ABCDEFGHI"),
            "Error :  \"ABCDEFGHI\" line 1: A label must be 1 to 8 characters in length. \n"
            "Label:  \"ABCDEFGHI\" : There are 9 letters in it. \n");
  EXPECT_EQ(drawn("ABCDEFGHI", kJapanese),
            "エラー：  \"ABCDEFGHI\" 1 行目： ラベル の長さは８文字までの制限（仕様）がある。。 \n"
            " \"ABCDEFGHI\" : 9 文字ある。\n");
  EXPECT_EQ(drawn("GR0"),
            "Error :  \"GR0\" line 1: The reserved words(GR0-GR7) are not allowed in a label. \n");
  EXPECT_EQ(drawn("GR7", kJapanese), "エラー：  \"GR7\" 1 行目： ラベルに予約語(GR0 - GR7) は使えない。\n");
}

TEST(PrgName, AFullWidthSpaceCountsTwiceAndTheTestGoesOn) {
  EXPECT_EQ(drawn("A　B", kEnglish, 3),
            "Error : line 1:  \"A　B\" : \nA full-width space is found in  \"A　B\" \n"
            "A full-width space is not allowed to be used in CASL2. \n"
            "A full-width space should be deleted or replaced with a half-width space.  \n"
            "Error :  \"A　B\" line 1: A non-alpha-numeral character is found in the label of 'A　B'. \n");
  EXPECT_TRUE(drawn<AP>("　B", kJapanese, 3).starts_with("エラー： 1 行目：  \"　B\"  の中に全角の空白"));
}

TEST(PrgName, NoNameIsToldWhenAskedDirectly) {
  for (const int lang : {kEnglish, kJapanese}) {
    Source<WP> source("A START\n RET\n END", lang);
    ASSERT_TRUE(source.structure());
    source.store()[0].SrcWork = u" START";
    source.platform.console.clear();
    CkPrgName<WP>(source.a, 0);
    EXPECT_EQ(
        source.platform.console,
        lang == kEnglish
            ? "Error : line 1: A label is expected at the left side of the START assembler instruction. \n"
            : "エラー： 1 行目： START アセンブラ命令の左にラベルが必要です。\n");
  }
}

TEST(PrgName, NarrowWords) {
  EXPECT_EQ(drawn<AP>("Main", kEnglish, 2),
            "Error :  \"Main\" line 1: A non-alpha-numeral character is found in the label of 'Main'. \n"
            "Error :  \"Main\" line 1: A lowercase letter is not allowed to be used in a lebel of casl2. \n");
  EXPECT_EQ(drawn<AP>("ABCDEFGHI", kJapanese),
            "エラー：  \"ABCDEFGHI\" 1 行目： ラベル の長さは８文字まで。\n \"ABCDEFGHI\" : 9 文字ある。\n");
}

TEST(PrgName, StoredWithTheLabelOfStart) {
  Source<WP> source("ABCDEFGH START\n RET\n END");
  ASSERT_TRUE(source.structure());
  EXPECT_EQ(plain(source.store().vecPrg[0].PrgName), "ABCDEFGH");
  EXPECT_EQ(source.words(1), "ABCDEFGH||");
}

TEST(PrgName, NamesOfSeveralProgramsAreAllTold) {
  Source<WP> source("a START\n RET\n END\nGR3 START\n RET\n END");
  EXPECT_FALSE(source.structure());
  EXPECT_EQ(source.a.errors(), 2);
}

TEST(PrgNameDouble, FirstPairOnly) {
  const char* text =
      "A START\n RET\n END\nB START\n RET\n END\nC START\n RET\n END\nB START\n RET\n END\nB START\n RET\n END\n";
  Source<WP> en(text);
  EXPECT_FALSE(en.structure());
  EXPECT_EQ(en.platform.console,
            "5 programs are found in it.\n"
            "Error :  \"B\"  is already defined. Duplication of the program name. \n"
            "Program 2, line 4 and Program 4, line 10.\nTheir names must be unique each other. \n");
  EXPECT_EQ(en.a.errors(), 1);
  EXPECT_TRUE(en.store().PrgIndex.empty());
  Source<WP> ja(text, kJapanese);
  EXPECT_FALSE(ja.structure());
  EXPECT_EQ(ja.platform.console,
            "  5 個のプログラムがある。 \nエラー：プログラム名の重複：  \"B\"  が二つある。 \n"
            "プログラム2 と プログラム4 の名前 \n4 行目 と 10 行目にある。\n");
}

TEST(PrgNameDouble, FillsTheIndexOfUniqueNames) {
  Source<AP> source("A START\nB RET\n END\nB START\n RET\n END");
  ASSERT_TRUE(source.structure());
  EXPECT_EQ(source.store().findPrg("B", 0), 1);
  EXPECT_EQ(source.store().findPrg("B", 1), -1);
  EXPECT_EQ(source.store().findPrg("C", 0), -1);
}

TEST(PrgNameInUse, AllButTheFirstThatNothingNames) {
  Source<AP> narrow("A START\n RET\n END\nB START\n RET\n END");
  ASSERT_TRUE(narrow.run());
  EXPECT_EQ(narrow.platform.console,
            "2 programs are found in it.\nWarning : line 4: A program of the \"B\"  is never executed. "
            "Becasue it is not called by any other program. \n");
  Source<WP> called("A START\n RET\n END\nB START\n RET\n END\nC START\n RET\n END");
  ASSERT_TRUE(called.structure());
  called.store().vecPrg[1].IsPrgNameInUse = true;
  CkPrgNameInUse<WP>(called.a);
  EXPECT_EQ(called.warnings(), 1);
  EXPECT_NE(called.platform.console.find("line 7: A program of the \"C\" is never"), std::string::npos);
}

}  // namespace
}  // namespace zelvaro::test
