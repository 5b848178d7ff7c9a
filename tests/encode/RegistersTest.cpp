// Register operands: every message in both languages, and what the word becomes.
#include "encode/EncoderFixture.h"

namespace zelvaro::test {
namespace {

struct Case {
  const char* op;
  std::vector<std::string> oprnds;
  int errors;
  int warnings;
  std::string en;
  std::string ja;
};

void expectSaid(const Case& c) {
  std::string name = c.op;
  for (const std::string& o : c.oprnds) name += " " + o;
  const Encoded en = encodeWP(c.op, c.oprnds);
  EXPECT_EQ(en.said, c.en) << name;
  EXPECT_EQ(en.errors, c.errors) << name;
  EXPECT_EQ(en.warnings, c.warnings) << name;
  EXPECT_EQ(encodeWP(c.op, c.oprnds, kJapanese).said, c.ja) << name;
}

std::string notRegister(const std::string& q) {
  return E + " \"" + q + "\"  is not a general register. \n" +
         "A valid general register name is required at the right side of ADDA. \n";
}
std::string notRegisterJ(const std::string& q) {
  return EJ + " \"" + q + "\" ADDA の右に正しいレジスター名が必要。\n";
}
const std::string kD4 = E +
                        "The comet2 has eight general registers of GR0-GR7. \n"
                        "Neither GR8 nor GR9 a general register is. \n\n";
const std::string kD4J = EJ + " レジスタは GR0-GR7 の8個だけです。 GR8-GR9 はレジスタではない。 \n";

TEST(Registers, FirstOperandOfTwo) {
  const Case cases[] = {
      {"ADDA",
       {"GR1"},
       2,
       0,
       E + "A comma is expected at the right side of GR1. \n" + E +
           "An operand is expected at the right side of ADDA. \n",
       EJ + "GR1 の右にコンマが必要！\n" + EJ + "ADDA の右にオペランドが必要。\n"},
      {"ADDA",
       {},
       2,
       0,
       E + "A general register(GR0-GR7) is expected at the right side of ADDA. \n" + notRegister(""),
       EJ + "ADDA の右にレジスター名がない。\n" + notRegisterJ("")},
      {"ADDA", {"GR1X,", "GR2"}, 1, 0, notRegister("GR1X,"), notRegisterJ("GR1X,")},
      {"ADDA", {"GR8,", "A"}, 1, 0, notRegister("GR8,") + kD4, notRegisterJ("GR8,") + kD4J},
      {"ADDA",
       {"1,", "GR2"},
       2,
       0,
       notRegister("1,") + E +
           "The first character must be an alphabetical letter. \n"
           "A numerical is not allowed to be used as the 1st letter of a label of 1,. \n",
       notRegisterJ("1,") + EJ + "1, レジスタ名（やラベル）の先頭文字に数字は使えない。\n"},
      {"ADDA",
       {"gr1,", "GR2"},
       2,
       0,
       notRegister("gr1,") + E + "gr1,: A half-width letter is found in it. It cannot be used in casl2.\n",
       notRegisterJ("gr1,") + EJ + "gr1, 小文字がある。 小文字は CASL2 では使えない。\n"},
  };
  for (const Case& c : cases) expectSaid(c);
}

TEST(Registers, AFullWidthSpaceInARegisterIsExplained) {
  const Encoded e = encodeWP("ADDA", {"　GR1,", "GR2"});
  EXPECT_EQ(e.errors, 2);
  EXPECT_NE(e.said.find("A full-width space is found in"), std::string::npos) << e.said;
}

TEST(Registers, FirstOperandOfABranch) {
  const std::string jump = "Error : line 1 ";
  const Case cases[] = {
      {"JUMP",
       {"GR1"},
       2,
       0,
       E +
           "\nThe 1st operand of JUMP is an address constant. (Spec. of COMET2  1.2)\n"
           "The opcode JUMP does not take a general register as the 1st operand.\n" +
           E + "JUMP does not take a general register as the 1st operand. \n",
       EJ +
           "JUMP は第一オペランドとしてレジスタ名をとらない。\n"
           "アドレス定数を第一オペランドとする。（COMET2の仕様 1.2）\n" +
           EJ + "JUMP は、一つ目のオペランドとしてレジスター GR0-GR7 をとらない。\n"},
      {"JMI",
       {},
       1,
       0,
       jump + "Jump on Minus JMI:  \nAn operand is expected at the right side of the JMI. \n"
              "The operand specifies a branching address. \n",
       EJ + "負分岐命令  \nJMI は分岐先を示すアドレス名（ラベル）が必要。\n"},
      {"CALL",
       {},
       1,
       0,
       jump + "CALL subroutine:  \nAn operand is expected at the right side of CALL. \n"
              "CALL command calls a subroutine. \n",
       EJ + "コール  \nCALL 命令は呼び出し先を示すアドレス（ラベル）が必要。 \n"
            "ただし、他のプログラム名は指定できるが、他のプログラム内のラベルは指定できない。 \n"},
      {"PUSH",
       {},
       1,
       0,
       jump + "PUSH:  \nPUSH takes an address constant ( or a label) as an operand. \n"
              "The stacked contents are stored at the address. \n",
       EJ + "プッシュ  \n"
            "PUSH命令はオペランドとして（スタック内容が格納してある）アドレス名（ラベル）が必要。\n"},
      {"SVC",
       {},
       1,
       0,
       jump + "SuperVisor Call:  \n" + E + "SVC takes an address constant(or a label) as an operand. \n",
       EJ + "スーパバイザコール命令  \n" + EJ + "命令 SVC はオペランドとしてアドレス名（ラベル）が必要。\n"},
  };
  for (const Case& c : cases) expectSaid(c);
  for (const char* label : {"GR1X", "GR8"}) {
    const Encoded e = encodeWP("JUMP", {label});
    EXPECT_EQ(e.said, "") << label;
    EXPECT_EQ(e.word1, 0x6400) << label;
  }
}

TEST(Registers, OperandOfPop) {
  const Case cases[] = {
      {"POP",
       {"GR1,"},
       0,
       1,
       W + "A comma at the right side of GR1 is of no use. \n",
       WJ + "GR1 の右にコンマは不要です。\n"},
      {"POP",
       {},
       2,
       0,
       E + "A GRx is not found at the right side of 'POP'. \n" + E +
           ": A valid register name is expected at the right side of POP. \n",
       EJ + "POP の右にレジスター名がない。\n" + EJ + ": POP の右に正しいレジスター名が必要。\n"},
      {"POP",
       {"GR8"},
       1,
       0,
       E + "GR8: A valid register name is expected at the right side of POP. \n" + kD4,
       EJ + "GR8: POP の右に正しいレジスター名が必要。\n" + kD4J},
  };
  for (const Case& c : cases) expectSaid(c);
}

TEST(Registers, SecondRegister) {
  const Case cases[] = {
      {"ADDA",
       {"GR1,", "GR2,"},
       0,
       1,
       W + "A comma is of no use at the right side of the 2nd operand register. \n"
           "The comma should be deleted or replaced a space or a semicolon.\n",
       WJ + "２つ目のレジスターの右にコンマは不要です。\n"
            "２つ目のレジスターの右には空白又はセミコロンの記述が適正です。\n"
            "空白以降はコメントとなる。 \n"},
      {"ADDA",
       {"GR1,", "GR2,", "GR3"},
       0,
       1,
       W + "The comma is of no use at the right side of the 2nd operand register. \n"
           "The comma should be deleted or replaced with a space or semicolon.\n",
       WJ + "２つ目のレジスターの右にコンマは不要です。\n"
            "コンマがあるとオペランドがさらに続くと読める。\n"
            "２つ目のレジスターの右には空白又はセミコロンの記述が適正です。\n"
            "空白以降はコメントとなる。 \n"},
      {"ADDA", {"GR1,", "GR2", "GR3"}, 0, 0, "", ""},
      {"ADDA",
       {"GR1,", "GR1X"},
       1,
       0,
       "Error :  \"GR1X\" line 1: \nA valid general register name is expected. \n",
       "エラー：  \"GR1X\" 1 行目： \nレジスタ名 (GR0 - GR7) が正しくない。\n"},
  };
  for (const Case& c : cases) expectSaid(c);
}

TEST(Registers, TheIndexRegister) {
  const std::string c5 =
      "\"  is not an index register.\n"
      "A valid index register name (GR1-GR7) is expected there. \n";
  const std::string c5j = "\"  指標レジスター GR1-GR7 が正しく記述されていない。\n";
  const Case cases[] = {
      {"LD",
       {"GR1,", "A,", "GR0"},
       1,
       0,
       E + "GR0 cannnot be used as an index register. \n",
       EJ + "指標レジスターに GR0 は使えない。 \n"},
      {"LD",
       {"GR1,", "A,", "GR2,", "GR3"},
       0,
       1,
       W + "A comma is of no use at the right side of the the index register. \n",
       WJ + "指標レジスターの右のコンマは不要です。\n"},
      {"LD",
       {"GR1,", "A,", "GR8"},
       2,
       0,
       E + " \"GR8" + c5 + E +
           "Neither GR8 nor GR9 a general register is. \n"
           "Each of the GR1-GR7 can be used as an index register. \n"
           "GR0 is not allowed to be an index register. \n",
       EJ + " \"GR8" + c5j + EJ +
           " 指標レジスタに使えるのは GR1-GR7 の7個だけです。\n"
           " GR8-GR9 はCASL2のレジスタとして存在しないので使えない。 \n"},
      {"LD",
       {"GR1,", "A,", "1"},
       2,
       0,
       E + " \"1" + c5 + E +
           "1: The 1st character of a label must be a capital alphabetical letter. \n"
           "A numeral cannot be used as the 1st letter of a label. \n",
       EJ + " \"1" + c5j + EJ + "1: レジスタ名（やラベル）の先頭文字に数字は使えない。\n"},
      {"LD",
       {"GR1,", "A,", "gr1"},
       2,
       0,
       E + " \"gr1" + c5 + E +
           "gr1: A lowercase character is found in it. \n"
           "A lowercase character is not allowed to be used in casl2. \n",
       EJ + " \"gr1" + c5j + EJ + "gr1: 小文字がある。 小文字は CASL2 では使えない。\n"},
      {"LD",
       {"GR1,", "A,", ",", "GR2"},
       2,
       0,
       E + " \"," + c5 + E + " \",\"   Duplication of comma between two operands! \n",
       EJ + " \"," + c5j + EJ + " \",\"  コンマの連続がある。\n"},
  };
  for (const Case& c : cases) expectSaid(c);
}

TEST(Registers, AnAddressWithACommaNeedsAnIndex) {
  for (const int lang : {kEnglish, kJapanese}) {
    const Encoded e = encodeWP("LD", {"GR1,", "A,"}, lang);
    EXPECT_EQ(e.errors, 1);
    EXPECT_EQ(e.warnings, 1);
    EXPECT_TRUE(e.said.ends_with(
        lang == kEnglish ? E + " \"A\" :   Although there is a comma at the right side of the 2nd operand, \n"
                               "there is no description of an index register follwing the comma. \n"
                         : EJ + " \"A\" :   二つめのオペランドの右にコンマがあるのに"
                                "コンマの右に指標レジスタの記述がない。 \n"))
        << e.said;
  }
}

TEST(Registers, WordsBehindAnAddressWithoutAComma) {
  for (const int lang : {kEnglish, kJapanese}) {
    const Encoded e = encodeWP("LD", {"GR1,", "A", "GR2", "X"}, lang);
    EXPECT_EQ(e.errors, 2);
    EXPECT_TRUE(e.said.ends_with(
        lang == kEnglish
            ? E + " \"GR2\" : Either a comma or a comment mark(;)is expected at the right side of "
                  "the 2nd operand. \n"
            : EJ + " \"GR2\" : 第2オペランドの右にコンマが無い。 \n"
                   "第２オペランドの右にコンマあるいはコメント記号（；）を明示すること。 \n"))
        << e.said;
  }
  EXPECT_EQ(encodeWP("LD", {"GR1,", "A", "GR2"}).errors, 1) << "the address check tells it alone";
}

TEST(Registers, LadWarnsOfALabelThatLooksLikeARegister) {
  expectSaid({"LAD",
              {"GR1,", "GR8"},
              0,
              1,
              W + "GR8 : The comet2 has eight general registers of GR0-GR7. "
                  "Neither GR8 nor GR9 is a general register of comet2. "
                  "GR0-GR7 are reserved words, but GR8-GR9 are not reserved ones. "
                  "A description of GR8 or GR9 is regarded as a label. "
                  "Using GR8-GR9 as a label would decrease readability of the source codes.  "
                  "It would be better for you not to use GR8 or GR9 as a label. (Recommended) \n",
              WJ + "GR8  レジスタは GR0-GR7 の８個である。 CASL2 には GR8-GR9 のレジスタは無い。 "
                   "GR0-GR7 は予約語だが、GR8-GR9 は予約語ではない。 GR8-GR9 の記述はラベルとみなされる。  "
                   "混乱をさけるため GR8-GR9 をラベルとして使わないほうがよい。（推奨） \n"});
}

TEST(Registers, WhatIsDroppedLeavesTheBuffers) {
  EncoderBench<WP> bench;
  bench.run("ADDA", {"GR1,", "GR2,", "GR3"});
  EXPECT_EQ(bench.oprnd(1) + "|" + bench.oprnd(2) + "|" + bench.oprnd(3), "GR1|GR2|");
  EXPECT_TRUE(bench.line.hasOprnd(3));
  bench.run("LD", {"GR1,", "A,", "GR2,", "GR3"});
  EXPECT_EQ(bench.oprnd(3) + "|" + bench.oprnd(4), "GR2|");
  bench.run("POP", {"GR1,", "GR2"});
  EXPECT_EQ(bench.oprnd(1) + "|" + bench.oprnd(2), "GR1|");
}

TEST(Registers, NarrowTextInItsOwnWords) {
  EXPECT_EQ(EncoderBench<AP>().run("ADDA", {"GR1X,", "GR2"}).said,
            E + "A valid general register name is expected at the right side of ADDA. \n");
  const Encoded e = EncoderBench<AP>().run("LD", {"GR1,", "A,", ",", "GR2"});
  EXPECT_EQ(e.said, E + " \",\"   A valid index register name (GR1-GR7) is expected. \n");
  EXPECT_EQ(e.errors, 1);
  EncoderBench<AP> bench;
  bench.run("JUMP", {"GR1"});
  EXPECT_TRUE(bench.log.records().empty()) << "a narrow family writes no log";
}

}  // namespace
}  // namespace zelvaro::test
