// The encoders: words of every form, missing operands, refusals, the stop rule.
#include "encode/EncoderFixture.h"

namespace zelvaro::test {
namespace {

TEST(Encoders, FirstWordOfEveryForm) {
  struct Case {
    const char* op;
    std::vector<std::string> oprnds;
    int words;
    int word1;
  };
  const Case cases[] = {
      {"LD", {"GR1,", "GR2"}, 1, 0x1412},
      {"LD", {"GR1,", "ADR,", "GR2"}, 2, 0x1012},
      {"LD", {"GR1,", "GR1X"}, 2, 0x1010},
      {"LD", {"GR1,", "GR8"}, 2, 0x1010},
      {"ADDL", {"GR7,", "GR0"}, 1, 0x2670},
      {"SUBA", {"GR0,", "A,", "GR7"}, 2, 0x2107},
      {"SUBL", {"GR3,", "GR4"}, 1, 0x2734},
      {"AND", {"GR1,", "=1"}, 2, 0x3010},
      {"OR", {"GR1,", "GR2"}, 1, 0x3512},
      {"XOR", {"GR1,", "GR2"}, 1, 0x3612},
      {"CPA", {"GR1,", "GR2"}, 1, 0x4412},
      {"CPL", {"GR1,", "A"}, 2, 0x4110},
      {"ST", {"GR2,", "A"}, 2, 0x1120},
      {"ST", {"GR1,", "GR2,", "GR3"}, 2, 0x1113},
      {"SLA", {"GR1,", "1"}, 2, 0x5010},
      {"SRA", {"GR1,", "GR8"}, 2, 0x5110},
      {"SLL", {"GR1,", "GR1X"}, 2, 0x5210},
      {"SRL", {"GR1,", "0,", "GR2"}, 2, 0x5312},
      {"JPL", {"LOOP,", "GR5"}, 2, 0x6505},
      {"CALL", {"SUB"}, 2, 0x8000},
      {"PUSH", {"0,", "GR1"}, 2, 0x7001},
      {"POP", {"GR3"}, 1, 0x7130},
      {"ADDA", {"GR1,", "GR2,"}, 1, 0x2412},
      {"ADDA", {"GR1,", "GR2,", "GR3"}, 1, 0x2412},
      {"ADDA", {"GR1,", "GR2", "GR3"}, 1, 0x2412},
      {"POP", {"GR1,", "GR2"}, 1, 0x7110},
  };
  for (const Case& c : cases) {
    EncoderBench<WP> wide;
    const Encoded e = wide.run(c.op, c.oprnds);
    EXPECT_EQ(e.errors, 0) << c.op << ": " << e.said;
    EXPECT_EQ(e.words, c.words) << c.op;
    EXPECT_EQ(e.word1, c.word1) << c.op;
    EXPECT_EQ(wide.line.Word2, 0) << c.op;
    const Encoded narrow = EncoderBench<AP>().run(c.op, c.oprnds);
    EXPECT_EQ(narrow.words, c.words) << c.op;
    EXPECT_EQ(narrow.word1, c.word1) << c.op;
  }
}

TEST(Encoders, AMissingSecondOperandInTheWordsOfItsMnemonic) {
  struct Case {
    const char* op;
    std::string en;
    std::string ja;
  };
  const Case cases[] = {
      {"ST", E + "The 2nd operand is expected for the ST instruction. ", "ストア ST 先を示す記述が必要。"},
      {"LAD", E + "The 2nd operand of LAD is expected. ", "LAD するアドレスを示す記述が必要。"},
      {"ADDA",
       E + "ADDA Add Arithmetic: Either a general register or a label is expected as the 2nd operand. ",
       "算術加算 ADDA 元を示すレジスター名又はアドレス名（ラベル）が必要。"},
      {"SUBA",
       E + "SUBA: Either a general register or an address constant is expected as the 2nd operand of the SUBA. ",
       "算術減算命令  SUBA の２番目のオペランドを示すレジスター名又はアドレス名（ラベル）が必要。"},
      {"ADDL",
       E + "The 2nd operand is expected. \nIt is either a general register or an address constant, that is, a "
           "label. \n",
       "論理加算命令 ADDL のオペランドとして\nレジスター名またはアドレス定数（ラベル）が必要。\n"},
      {"SUBL",
       E + "Either a general register or an address constant is expected as the 2nd operand of the SUBL. ",
       "論理減算 SUBL の２番目のレジスター名又はアドレス名（ラベル）が必要。"},
      {"AND", E + "Either GRn or an address constant (or a label) is expected as the 2nd operand of AND. ",
       "論理積 AND の第２オペランドを示すレジスター名又はアドレス名（ラベル）が必要。"},
      {"OR", E + "Either a general register or an address constan is expected as the 2nd operand of OR. ",
       "論理和命令  OR の右にレジスター名又はアドレス名（ラベル）が必要。"},
      {"XOR", E + "Either a general register or a label is expected as the 2nd operand. ",
       "排他的論理和 XOR 元を示すレジスター名又はアドレス名（ラベル）が必要。"},
      {"CPA",
       E + "Compare Arithmetic CPA needs the 2nd operand. It is either a general register or an address "
           "constant(or a label) . ",
       "算術比較 CPA の第2オペランドとしてレジスター名又はアドレス名（ラベル）が必要。"},
      {"CPL",
       E + "An operand is expected at the right side of the CPL.The operand is either a GRn or an address "
           "constant or a label. ",
       "論理比較 CPL 元を示すレジスター名又はアドレス名（ラベル）が必要。"},
      {"SLA",
       E + "SLA : An address constant is expected as the 2nd operand. It specifies the number of shift-left "
           "arithmetic conversion. ",
       "算術左シフト SLA するビット数を示すアドレス定数の記述が必要。"},
      {"SRA",
       E + "SRA: An address constant is expected as the 2nd operand of the SRA.  It specifies the number of "
           "shift-right arithmetic conversion. ",
       "算術右シフト SRA するビット数を示すアドレスの記述が必要。"},
      {"SLL",
       E + "An address constant is expected as the 2nd operand of the SLL, which specifies the number of "
           "shift-left logical conversion. ",
       "論理左シフト SLL するビット数を示すアドレスの記述が必要。"},
      {"SRL",
       "Error : line 1 SRL : An address constant is expected as the 2nd operand of the SRL, which specifies the "
       "number of shift-right logical conversion. ",
       "論理右シフト SRL するビット数を示すアドレスの記述が必要。"},
  };
  for (const Case& c : cases) {
    const Encoded en = encodeWP(c.op, {"GR1,"});
    EXPECT_EQ(en.said, c.en + "\n" + E + "The 2nd operand is expected. \n") << c.op;
    EXPECT_EQ(en.errors, 2) << c.op;
    const Encoded ja = encodeWP(c.op, {"GR1,"}, kJapanese);
    EXPECT_TRUE(ja.said.starts_with(EJ + c.ja + "\n" + EJ)) << c.op << ja.said;
    EXPECT_EQ(ja.errors, 2) << c.op;
  }
}

TEST(Encoders, LdTellsAMissingOperandFirstAndStops) {
  const std::string first = E + "The 1st operand(GR0-GR7) of LD is expected. \n";
  const std::string second =
      E + "The 2nd operand of LD should be either an address constant(label) or GR0-GR7. \n";
  EXPECT_EQ(encodeWP("LD", {}).said, first);
  EXPECT_EQ(encodeWP("LD", {"GR1"}).said, second);
  EXPECT_EQ(encodeWP("LD", {"GR1,"}).said, second);
  EXPECT_EQ(encodeWP("LD", {}, kJapanese).said,
            EJ + "LD命令の第1オペランドを示すレジスター名(GR0-GR7)が必要。\n");
  EXPECT_EQ(encodeWP("LD", {"GR1,"}, kJapanese).said,
            EJ + "LD命令の第2オペランドを示すレジスター名又はアドレス定数（ラベル）が必要。\n");
  EXPECT_EQ(EncoderBench<AP>().run("LD", {"GR1,"}).errors, 2) << "the address check of AP speaks too";
}

TEST(Encoders, InstructionsWithoutTheRegisterFormRefuseIt) {
  for (const char* op : {"ST", "LAD", "SLA", "SLL", "SRL"}) {
    const std::string m = op;
    const Encoded e = encodeWP(op, {"GR1,", "GR2"});
    EXPECT_EQ(e.said, E + m + " cannot be written in a format of " + m + " r1, r2. \nThe 2nd operand of " +
                          m + " must be an address constant(or a label). (Spec.of COMET2 1.2 (1))\n");
    EXPECT_EQ(e.errors, 1) << op;
    EXPECT_EQ(e.words, 0) << op;
    EXPECT_EQ(encodeWP(op, {"GR1,", "GR2"}, kJapanese).said,
              EJ + m + " 命令は " + m + " r1, r2 形式をとらない。\n" + m + " r1,adr または " + m +
                  " r1, adr, r2(COMET2の仕様 1.2命令(1)）\n");
    EXPECT_EQ(encodeWP(op, {"GR1,", "GR8"}).errors, m == "LAD" ? 0 : 1) << op;
  }
  const std::string lines = "Format1: SRA r1,adr\nFormat2: SRA r1,adr,r2\n\n";
  const Encoded sra = encodeWP("SRA", {"GR1,", "GR2"});
  EXPECT_EQ(sra.said, E + "SRA does not take a format of SRA r1, r2. " + lines);
  EXPECT_EQ(sra.errors, 1);
  EXPECT_EQ(encodeWP("SRA", {"GR1,", "GR2"}, kJapanese).said,
            EJ + ": SRA 命令は SRA r1,r2 形式をとらない。" + lines);
}

TEST(Encoders, BehindTheFirstErrorOnlyFirstOperandsAreChecked) {
  EncoderBench<WP> bench;
  EXPECT_EQ(bench.run("ADDA", {"GR1,", "GR1X"}).errors, 1);
  EXPECT_EQ(bench.run("ADDA", {"GR1,", "GR1X"}).said, "");
  EXPECT_EQ(bench.run("JUMP", {","}).said, "");
  EXPECT_EQ(bench.run("ADDA", {"gr1,", "GR2"}).errors, 2);
  EXPECT_EQ(bench.run("LD", {"GR1,"}).errors, 1) << "the check of LD comes ahead of the rule";
  EncoderBench<WP> warned;
  EXPECT_EQ(warned.run("POP", {"GR1,"}).warnings, 1);
  EXPECT_EQ(warned.run("ADDA", {"GR1,", "GR1X"}).errors, 1) << "a Warning does not set it off";
}

TEST(Encoders, TheCommaFlagOfOneLineDoesNotReachTheNext) {
  EncoderBench<WP> bench;
  bench.run("LD", {"GR1,", "A,", "GR2"});
  EXPECT_TRUE(bench.cs.CommaAriFlag);
  EXPECT_EQ(bench.run("ADDA", {"GR1,"}).errors, 2);
}

TEST(Encoders, ABranchWithoutAnAddressPrintsItsInternalLineUncounted) {
  const Encoded e = encodeWP("JUMP", {","});
  EXPECT_EQ(e.errors, 1);
  EXPECT_NE(e.said.find("\nsome error about word_kazu[i]; !\n"), std::string::npos) << e.said;
}

TEST(Encoders, EverySvcOfASourceIsWarnedOf) {
  EncoderBench<WP> bench;
  const Encoded e = bench.run("SVC", {"1"}, 2);
  EXPECT_EQ(e.said,
            W + "Do not write SVC 1 in the source code, or the comet2 will run out of control. "
                "SVC 1 in Macro IN and OUT does not cause this problem. "
                "There does not exist any exact definition about SVC in the Spec. of CASL2 at present. \n");
  EXPECT_EQ(e.warnings, 1);
  EXPECT_EQ(e.word1, 0xF000);
  EXPECT_EQ(
      encodeWP("SVC", {"1"}, kJapanese).said,
      WJ +
          " ソースコードに直接 SVC 命令を記述しないでください。SVC 1 の場合、COMET2 は暴走します。 "
          "（将来のバージョンで修正します。）マクロ命令 IN, OUT の中で使われる SVC1, SVC2 "
          "については問題はおこりません。COMET2 の仕様に現在のところ SVC の具体的な記述がなく動作は定まっていません。\n");
}

}  // namespace
}  // namespace zelvaro::test
