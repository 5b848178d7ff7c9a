// START and END: the coarse and the exact test, labels on them, text between programs.
#include <gtest/gtest.h>

#include "structure/Source.h"

namespace zelvaro::test {
namespace {

#define ONE_EN "One program is found in it.\n"
#define TWO_EN "2 programs are found in it.\n"
#define ONE_JA "  1 個のプログラムがある。 \n"
#define TWO_JA "  2 個のプログラムがある。 \n"

TEST(StartEnd, EveryRowInBothLanguages) {
  const Drawn noStart{" NOP",
                      "Error : START directive is not found anywhere. \n"
                      "START assembler instruction is expected. \n",
                      "エラー： START アセンブラ命令 が どこにもない。\n", 1};
  const Drawn noEnd{
      "MAIN START\n RET",
      "Error : END directive is not found anywhere. \nEND assembler instruction is expected. \n",
      "エラー： END アセンブラ命令 が どこにもない。\n", 1};
  Drawn lowerCase = noStart;
  lowerCase.source = "main start\n end";
  expectAllDrawn(
      {noStart,
       lowerCase,
       noEnd,
       {" END\n\nMAIN START\n RET", "Error : line 3: END is expected to be followed after START. \n",
        "エラー： 3 行目： START アセンブラ命令 の後の行に END アセンブラ命令が必要。\n", 1},
       {"START\n RET\n END",
        "Error : Missing START assembler statement. \nA half-width space is expected before START. \n",
        "エラー： START アセンブラ命令 が どこにもない。 \nSTART の左に空白が必要です\n", 1},
       {" START\n RET\n END", "Error : line 1: A program name is requiered before START statement. \n" ONE_EN,
        "エラー： 1 行目： START アセンブラ命令の左にプログラム名（ラベル）が必要です。 \n" ONE_JA, 1},
       {"MAIN START\n RET\nEND",
        "Error : END directive is not found anywhere. \nThe END statement defines the end of a program.\n"
        "A space is expected at the left side of the END. \n",
        "エラー： END アセンブラ命令 が どこにもない。\nEND 命令は、プログラムの終わりを定義する。\n"
        "END の左には、空白が必要です。\n",
        1},
       {"MAIN START\n RET\nE END",
        "Error : line 3: A label is found at the left side of the END assembler statement. \n"
        "It is of no use. \n" ONE_EN,
        "エラー： 3 行目： END アセンブラ命令の左にラベルがある。 \n"
        "END アセンブラ命令の左のラベルには、CASL2 仕様上の役目はないので不要である。\n" ONE_JA,
        1},
       {"A START\n RET\n END\nB START\n RET\nEND",
        "Error : (START > END): The program is not correctly closed. \n"
        "Mismached number of START and END assembler statements. \n"
        "The number of START and END must be equal. \n"
        "There are 2 START assembler instructions in src\\two.txt. \n"
        "There are 1 END assembler instructions in src\\two.txt. \n",
        "エラー： (START > END): プログラムが正しく閉じていない。\n"
        "START アセンブラ命令の個数と END アセンブラ命令の個数が異なる。 同数のはずです。 \n"
        "START アセンブラ命令 が ファイル(src\\two.txt ) の中に全部で 2 個ある。 \n"
        "END アセンブラ命令 が ファイル(src\\two.txt ) の中に全部で 1 個ある。 \n",
        1},
       {"A START\n RET ; END\n END",
        "Error : (START < END): The program is not correctly closed.\n"
        "Mismach between START and END statement. \nThe number of START and END must be equal. \n"
        "1START assembler directive is found in src\\two.txt. \n"
        "2END assembler directives are found in src\\two.txt. \n",
        "エラー： (START < END): プログラムが正しく閉じていない。 \n"
        "START アセンブラ命令の個数と END アセンブラ命令の個数が異なる。 \n同数のはずです。\n"
        "START アセンブラ命令 が ファイル( src\\two.txt ) の中に全部で 1 個ある。 \n"
        "END アセンブラ命令 が ファイル( src\\two.txt ) の中に全部で 2 個ある。 \n",
        1},
       {" NOP ; END\nA START\nB START\n RET\n END",
        "Error : line 1: START and END are out of order. \nSTART should be followed by END. \n",
        "エラー： 1 行目： START と END アセンブラ命令 が逆順です。 \n", 1},
       {"A START\nB START\n RET\n END\n END",
        "Error : line 4: START and END are out of order. \nSTART should be followed by END.\n",
        "エラー： 4 行目：  START と END アセンブラ命令 が逆順です。 \n", 1},
       {"A START\nRET NOP\n END\nB START\n END",
        TWO_EN
        "Warning : line 1: The 1st program: No RET instruction is found in the program. \n"
        "It may run out of control. It may go into an infinite loop. \n"
        "Is this your intention? If not, you should add RET instructions to the program. \n"
        "Note: A space is expected at the both sides of RET. \n"
        "Note : line 2:  \"RET\"  Unreferenced label  \n"
        "Warning : line 4: A program of the \"B\" is never executed, becasue it is not called by any other "
        "program. \n",
        TWO_JA "警告： 1 行目： 1 番目のプログラム： RET 命令が一つもない。 暴走の可能性が大きい。 \n"
               "あるいは、無限ループに入り、実行が終了しない。\n意図的でなければ修正が必要です。 \n"
               "NOTE: RET の 右 又は 左 に空白が必要です。 \n"
               "注意： 2 行目： ラベル  \"RET\"  は一度も参照されない。 \n"
               "警告： 4 行目： プログラム B は他のプログラムから呼び出しがなく一度も実行されない。 \n",
        0, 2, 1},
       {" START\n RET\n END\nB START\n RET\n END",
        TWO_EN "Error : line 1: A label is expected at the left side of the START assembler instruction. \n",
        TWO_JA "エラー： 1 行目： START アセンブラ命令の左にラベルが必要\n", 1},
       {"A START\n RET\nE END \nB START\n RET\n END",
        TWO_EN "Error : line 3:  \"E END \" \n"
               "A label is found at the left side of the END assembler instruction. \nIt is of no use. \n",
        TWO_JA "エラー： 3 行目：  \"E END \" \nEND アセンブラ命令の左にラベルがある。 \n"
               "END アセンブラ命令の左のラベルは不要です。（CASL2 の仕様） \n",
        1},
       {"A START\n RET\n END\n; END\n what\nso\nB START\n RET\n END",
        TWO_EN
        "Error : line 5:  \" what\" : There are some unknown string between two programs. \n"
        "There are some unknown string between END and START. \n"
        "It should be deleted. Or a comment mark(;) is expected at the left side of the description.\n",
        TWO_JA
        "エラー： 5 行目：  \" what\" プログラムとプログラムの間にソースコードがある。END 命令と次の"
        "プログラムの STRAT 命令の間に不明の文字がある。コメント記号(;)を前置する、あるいは、削除する。\n",
        1},
       {"A START\n RET\n END\n 　\nB START\n RET\n END",
        TWO_EN
        "Error : line 4:  \" 　\" : There are some unknown string between two programs. \n"
        "There are some unknown string between END and START. \n"
        "It should be deleted. Or a comment mark(;) is expected at the left side of the description.\n"
        "It is not a 1-byte space, but a 2-byte one.  \nA 2-byte space is not allowed for use in CASL2. \n",
        TWO_JA
        "エラー： 4 行目：  \" 　\" プログラムとプログラムの間にソースコードがある。END 命令と次の"
        "プログラムの STRAT 命令の間に不明の文字がある。コメント記号(;)を前置する、あるいは、削除する。\n"
        "それは「全角の空白」文字である。\n"
        "「全角の空白」文字は、コメントの中を除き、CASL2では使うことができない。 \n",
        1}});
}

TEST(StartEnd, FewerStartThanEndInThePlural) {
  const char* text = "A START\n RET\n END\nB START\n RET\n END\n END";
  Source<WP> en(text);
  en.run();
  EXPECT_TRUE(
      en.platform.console.ends_with("2START assembler directives are found in src\\two.txt. \n"
                                    "3END assembler directives are found in src\\two.txt. \n"));
  Source<WP> ja(text, kJapanese);
  ja.run();
  EXPECT_TRUE(ja.platform.console.ends_with("( src\\two.txt ) の中に全部で 3 個ある。 \n"));
}

TEST(StartEnd, LabelsOnSeveralProgramsAreAllTold) {
  Source<WP> source(" START\n RET\n END\nB START\n RET\nE END\nC START\n RET\n END");
  EXPECT_FALSE(source.structure());
  EXPECT_EQ(source.cs.ErrorKazu, 2);
}

TEST(StartEnd, OneProgramMayHaveTextAroundIt) {
  Source<WP> source("what\nA START\n RET\n END\nso　");
  EXPECT_TRUE(source.structure());
  EXPECT_EQ(source.platform.console, ONE_EN);
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

TEST(StartEnd, ReplayHoldsTextsWithoutHeadsAndNotTheNumberOfPrograms) {
  Source<WP> between("A START\n RET\n END\n　\nB START\n RET\n END");
  between.run();
  ASSERT_EQ(between.log.records().size(), 1u);
  EXPECT_TRUE(between.log.records()[0].Text.ends_with("not allowed for use in CASL2. "));
  Source<WP> source("A START\n RET\n END\n　\nB START\n RET\nE END");
  source.run();
  source.platform.console.clear();
  source.log.ReplayLog(source.platform);
  EXPECT_EQ(source.platform.console,
            "A label is found at the left side of the END assembler statement. \nIt is of no use. \n\n");
}

TEST(StartEnd, NarrowWords) {
  const auto drawn = [](const char* text) {
    Source<AP> source(text);
    source.run();
    EXPECT_TRUE(source.log.records().empty());
    return source.platform.console;
  };
  EXPECT_EQ(drawn(" NOP"),
            "Error : START description is not found anywhere. \nSTART assembler instruction is expected. \n");
  EXPECT_EQ(drawn("START\n RET\n END"),
            "Error : START is not found anywhere. \nA space is expected at the left side of the START. \n");
  EXPECT_EQ(drawn(" NOP ; END\nA START\nB START\n RET\n END"),
            "Error : line 1: START and END are out of order. \nEND should follow START. \n");
  EXPECT_EQ(drawn("A START\n END"),
            "There is one program found in it. \n"
            "Warning : line 1: The 1st program: No RET instruction is found in the program. \n"
            "It may run out of control. It may go into an infinite loop. \n"
            "Is this your intention? If not, you should add a RET code at least. \n"
            "Note: A space is expected at the both sides of RET. \n");
  EXPECT_NE(drawn("A START\n RET\n END\n　\nB START\n RET\n END").find("but a 2-byte one."),
            std::string::npos);
}

}  // namespace
}  // namespace zelvaro::test
