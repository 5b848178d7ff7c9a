// Opcode recognition and the dispatch of what takes no operand.
#include "statements/Program.h"

namespace zelvaro::test {
namespace {

template <class Family = WP>
struct Recognised {
  explicit Recognised(const std::string& line, int lang = kEnglish) : p(line, lang) {
    TakeOutLabelStr<Family>(p.a, 0);
    result = CkOpStr<Family>(p.a, 0);
    said = p.said();
    errors = p.cs.ErrorKazu;
  }
  Program<Family> p;
  int result;
  std::string said;
  int errors;
};

std::string unknown(const std::string& q, int lang = kEnglish) {
  return lang == kEnglish
             ? "Error : line 2 \"" + q + "\"  is not an assembler, machine, or macro instruction. \n"
             : "エラー： 2 行目：  \"" + q +
                   "\"  は アセンブラ命令 でも 機械語命令 でも マクロ命令 でもない。  正しい 命令語 の記述が必要です。 \n";
}

TEST(Opcodes, EveryMnemonicIsKnownAndLinesWithoutOneArePassedOver) {
  for (const Instruction& i : kInstructions) {
    if (i.opClass == OpClass::NhOnly || i.op == Op::START || i.op == Op::END) continue;
    Recognised<> r("A " + std::string(i.mnemonic) + "\nALONE");
    EXPECT_EQ(r.result, 0) << i.mnemonic << r.said;
    EXPECT_EQ(opOf(r.p.line()), i.op);
    EXPECT_EQ(opOf(r.p.store()[2]), Op::Unknown);
  }
}

TEST(Opcodes, WhatIsSaidOfAnUnknownOne) {
  const std::string small = "Error : line 2: A lowercase letter is found. in ";
  const std::string comma =
      "Error : line 2: A space is expected at the right side of the opcode. A comma is of no use. \n";
  struct Case {
    const char* line;
    std::string said;
    int errors;
  };
  const Case cases[] = {
      {" Ld GR1,A", unknown("Ld") + small + "Ld. \n", 2},
      {" ld GR1,A", unknown("ld"), 1},
      {" LD, GR1,A", unknown("LD,") + comma, 2},
      {" Ld, GR1,A", unknown("Ld,") + small + "Ld,. \n" + comma, 3},
      {" XNOP;", unknown("XNOP;"), 1},
      {" EXIT", unknown("EXIT"), 1},
      {" FOO\n BAR", unknown("FOO"), 1},
  };
  for (const Case& c : cases) {
    const Recognised<> r(c.line);
    EXPECT_EQ(r.said, c.said) << c.line;
    EXPECT_EQ(r.errors, c.errors) << c.line;
    EXPECT_EQ(r.result, -c.errors) << c.line;
  }
  EXPECT_EQ(Recognised<>(" Ld, GR1,A", kJapanese).said,
            unknown("Ld,", kJapanese) + "エラー： 2 行目： : 演算子 Ld, の中に小文字がある。\n" +
                "エラー： 2 行目： 演算子の右は空白にする。コンマは不要です。 \n");
  EXPECT_NE(Recognised<AP>(" Ld GR1,A").said.find("A lowercase letter is found in 'Ld'. \n"),
            std::string::npos);
}

TEST(Opcodes, AGluedSemicolonCountsTwiceBesides) {
  const std::string english =
      "Error :  \" NOP;\" : \n"
      "NOP, RPUSH, RPOP, RET, and END do not take any operand, but a space at the right side. \n"
      "One space or more are expected between the opcode and a comment mark(;).\n"
      "Example 1: RPUSH ;Comments (Good)\n"
      "Example 2: RPUSH;Comments  (Error)\n"
      "Spec. 2. 1, Table (4) Row 3.\n";
  const std::string japanese =
      "エラー：  \" NOP;\" \n"
      "オペランドをとらない命令（NOP, RPUSH, RPOP, RET, END）の右に記述する\n"
      "コメントには、命令の直後にひとつ以上の空白と セミコロン; が必要。\n"
      "例１： RPUSH; GR1 - GR7　の内容をスタックへ格納(正）\n"
      "例２： RPUSH;GR1-GR7　の内容をスタックへ格納 (誤）\n"
      "仕様２．１（４）表の３行目\n";
  const Recognised<> r(" NOP;X");
  EXPECT_EQ(r.said, unknown("NOP;X") + english);
  EXPECT_EQ(r.errors, 3);
  EXPECT_EQ(r.result, -3);
  EXPECT_EQ(Recognised<>(" NOP;X", kJapanese).said, unknown("NOP;X", kJapanese) + japanese);
  EXPECT_EQ(Recognised<>(" NOP;x").said,
            unknown("NOP;x") + english + "Error : line 2: A lowercase letter is found. in NOP;x. \n");
  for (const char* line : {" RET;", "\tRET;", " RPUSH;", " RPOP;"})
    EXPECT_EQ(Recognised<>(line).errors, 3) << line;
  EXPECT_EQ(Recognised<>(" NOP ;x").errors, 0);
}

TEST(Opcodes, AFullWidthSpaceIsToldTwice) {
  for (const int lang : {kEnglish, kJapanese}) {
    const Recognised<> r(" LD　GR1,A", lang);
    EXPECT_EQ(r.errors, 3) << r.said;
    EXPECT_TRUE(r.said.ends_with(lang == kEnglish ? "Error: A full-width letter is found. \n"
                                                  : "Error: 全角の空白文字がある。\n"))
        << r.said;
  }
  EXPECT_TRUE(Recognised<AP>(" LD　GR1,A").said.ends_with("Error: A full-width space is found. \n"));
}

TEST(Opcodes, AnOperandOnAnInstructionWithoutOperands) {
  for (const char* line : {" NOP x", " RET 1"}) {
    const std::string oprnd(1, line[5]);
    Program<WP> p(line);
    EXPECT_EQ(p.loop(), -130);
    EXPECT_EQ(p.said(),
              "Error : line 2:  \"" + oprnd +
                  "\" NOP, RET, and END do not take any operand. One space and a comment mark(;) are "
                  "expected between the instruction code and a comment description. \n"
                  "Good Example: RET ;Comment (Spec. of CASL2 2.1 (4)) \n");
    Program<WP> ja(line, kJapanese);
    ja.loop();
    EXPECT_EQ(ja.said(),
              "エラー：2 行目：  \"" + oprnd +
                  "\" オペランドをとらない命令（NOP, RET, END）の右のコメントには\n"
                  "必ず一個の空白とセミコロン（；）が必要。 例： RET ;コメント (仕様２．１の（４）)   \n");
  }
}

TEST(Opcodes, TheWordsOfWhatIsEncodedInTheDispatch) {
  Program<WP> p("MAIN START A\n NOP ;x\nA RET\n END ABC\n");
  EXPECT_EQ(p.loop(), 0) << p.said();
  EXPECT_EQ(p.store()[0].word_kazu, 2);
  EXPECT_EQ(p.store()[1].word_kazu, 1);
  EXPECT_EQ(p.store()[1].Word1, 0);
  EXPECT_EQ(p.store()[2].Word1, 0x8100);
  EXPECT_EQ(p.store()[3].word_kazu, 1) << "END has a word of its own that reaches no memory";
  EXPECT_EQ(p.said(), "");
}

}  // namespace
}  // namespace zelvaro::test
