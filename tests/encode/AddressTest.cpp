// Address operands: their shape in the statement pass, their value in the address pass, their words.
#include <gtest/gtest.h>

#include "encode/AdrConst.h"
#include "support/SourceLines.h"

namespace zelvaro {
namespace {

using test::SourceLines;

constexpr int kALine = 2;  // record of the label A

/// MAIN with the line under test at record 1; labels A and OTHER2 at 7 and 8, the program OTHER at 20.
template <class Family = WP>
struct Bench : SourceLines<Family> {
  explicit Bench(const std::string& line, int lang = kEnglish)
      : SourceLines<Family>("MAIN START\n " + line +
                                "\nA DS 1\nEIGHTCHR DS 1\nGR1X DS 1\n END A\nOTHER START\nINNER DS 1\n END\n",
                            lang) {
    this->line(2).AbAdr = 7;
    this->line(3).AbAdr = 8;
    this->line(4).AbAdr = 9;
    this->line(7).AbAdr = 21;
    this->program(1).AbAdrAtStart = 20;
  }
  SrcData<CharOf<Family>>& tested() { return this->line(1); }
  int oprnd() { return instruction(opOf(tested())).form == OpForm::Branch ? 1 : 2; }
  /// The address operand alone, without its comma.
  int resolve() {
    auto& p = tested().Oprnd[static_cast<std::size_t>(oprnd())];
    if (p.ends_with(CharOf<Family>(','))) p.remove_suffix(1);
    return CkAdrConst22<Family>(this->a, tested(), oprnd());
  }
};

// --- shape ---

struct Shape {
  const char* line;
  const char* en;  ///< empty: nothing is said
  const char* ja;
  int word_kazu;
  bool comma;
};

class AddressShape : public ::testing::TestWithParam<Shape> {};

TEST_P(AddressShape, SaysOneThingAtMost) {
  const Shape& c = GetParam();
  for (const int lang : {kEnglish, kJapanese}) {
    Bench<> bench(c.line, lang);
    bench.cs.CommaAriFlag = false;
    CkAdrOperand<WP>(bench.a, bench.tested(), bench.oprnd());
    EXPECT_EQ(bench.printed(), lang == kEnglish ? c.en : c.ja) << c.line;
    EXPECT_EQ(bench.tested().word_kazu, c.word_kazu) << c.line;
    EXPECT_EQ(bench.cs.CommaAriFlag, c.comma) << c.line;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Lines, AddressShape,
    ::testing::Values(
        Shape{"LD GR1,A", "", "", 2, false}, Shape{"LD GR1,A,GR2", "", "", 2, true},
        Shape{"JUMP A", "", "", 2, false},
        Shape{"JUMP", "Error : line 2: The 1st operand is expected. \n",
              "エラー： 2 行目： 1 つ目のオペランドが必要。\n", 0, false},
        Shape{"LD GR1,", "Error : line 2: The 2nd operand is expected. \n",
              "エラー： 2 行目： 2 つ目のオペランドが必要。\n", 0, false},
        Shape{
            "JUMP ,",
            "Error : line 2: Dupulication of comma. Or an operand is expected at the left side of the comma. \n",
            "エラー： 2 行目： コンマの重複あるいはコンマの前にオペランドの記述がない。  \n", 0, false},
        Shape{"LD GR1,A GR2",
              "Error : line 2:  \"GR2\" : A comma is expected between the 2nd operand and the 3rd one. 2nd "
              "operand=A   3rd operand=GR2  \n",
              "エラー： 2 行目： :  二つ目のオペランド  \"A\"  "
              "の右にコンマが無いのに三つ目のオペランド（指標レジスタ） \"GR2\"  の記述がある。 \n",
              0, false},
        Shape{
            "JUMP A,",
            "Warning : line 2: A comma is found at the right side of the operand. This comma is of no use. Or an "
            "index register is expected at the right side of the comma. \n",
            "警告： 2 行目： 指標レジスターの記述がないのだから 1 つ目のオペランドの右のコンマは不要です。"
            "あるいは、このコンマに続く指標レジスターの記述が必要です。\n",
            2, true}));

TEST(AddressShape, CutsTheCommaAndForgetsAnOldAddress) {
  Bench<> bench("LD GR1,A,GR2");
  bench.tested().Word2 = 99;
  CkAdrOperand<WP>(bench.a, bench.tested(), 2);
  EXPECT_EQ(bench.tested().Oprnd[2], u"A");
  EXPECT_EQ(bench.tested().Word2, 0);
}

TEST(AddressShape, BlankAndCommaAreNoOperand) {
  Bench<> bench("LD GR1,A");
  bench.tested().Oprnd[2] = u"\t,";
  CkAdrOperand<WP>(bench.a, bench.tested(), 2);
  EXPECT_EQ(bench.tallies(), "1 0 0");
  bench.tested().Oprnd[3] = u"";
  CkAdrOperand<WP>(bench.a, bench.tested(), 3);
  EXPECT_NE(bench.printed().find("Another operand is expected. \n"), std::string::npos);
}

// --- value ---

struct Value {
  const char* line;
  int result;
  int word2;
  const char* tallies;  ///< Errors, Warnings, Notes
};

class AddressValue : public ::testing::TestWithParam<Value> {};

template <class Family>
void expectValue(const Value& c) {
  Bench<Family> bench(c.line);
  EXPECT_EQ(bench.resolve(), c.result) << c.line;
  EXPECT_EQ(bench.tested().Word2, c.word2) << c.line;
  EXPECT_EQ(bench.tallies(), c.tallies) << c.line << "\n" << bench.printed();
}

TEST_P(AddressValue, WideAndNarrow) {
  expectValue<WP>(GetParam());
  expectValue<AP>(GetParam());
}

INSTANTIATE_TEST_SUITE_P(
    Names, AddressValue,
    ::testing::Values(
        Value{"LD GR1,A", 0, 7, "0 0 0"}, Value{"LD GR1,EIGHTCHR", 0, 8, "0 0 0"},
        Value{"JUMP NINECHARS", kAdrTooLong, 0, "1 0 0"}, Value{"LD GR1,GR1X", 0, 9, "0 0 0"},
        Value{"JUMP MAIN", 0, 0, "0 0 0"}, Value{"JUMP INNER", kAdrUndefined, 0, "1 0 0"},
        Value{"CALL OTHER", 0, 20, "0 0 0"}, Value{"LAD GR1,OTHER", 0, 20, "0 0 0"},
        Value{"JUMP OTHER", 0, 20, "0 1 0"}, Value{"LD GR1,GR2,", 0, 0, "0 0 0"},
        Value{"JUMP GR8", kAdrUndefined, 0, "1 0 0"}, Value{"LD GR1,A+1", kAdrUndefined, 0, "2 0 0"},
        Value{"LD GR1,Abc", kAdrUndefined, 0, "3 0 0"}, Value{"LD GR1,LONGlab", kAdrUndefined, 0, "3 0 0"},
        Value{"LD GR1,LONGlabel1", kAdrTooLong, 0, "3 0 0"}, Value{"LD GR1,abc", kAdrInvalid, 0, "1 0 0"}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, AddressValue,
    ::testing::Values(
        Value{"LAD GR1,0", 0, 0, "0 0 0"}, Value{"LAD GR1,40000", 0, 0x9C40, "0 0 0"},
        Value{"LAD GR1,65535", 0, 0xFFFF, "0 0 0"}, Value{"LAD GR1,65536", 0, 0, "0 0 1"},
        Value{"LAD GR1,70000", 0, 0x1170, "0 0 1"}, Value{"LAD GR1,99999999999", 0, 0xFFFF, "0 0 1"},
        Value{"LAD GR1,-1", 0, 0xFFFF, "0 0 0"}, Value{"LAD GR1,+65535", 0, 0xFFFF, "0 0 0"},
        Value{"LAD GR1,-32768", 0, 0x8000, "0 0 0"}, Value{"LAD GR1,-32769", 0, 0x7FFF, "0 0 1"},
        Value{"LAD GR1,-99999999999", 0, 0, "0 0 1"}, Value{"LAD GR1,12X", kAdrBadDecimal, 0, "1 0 0"},
        Value{"LAD GR1,-1X", kAdrBadDecimal, 0, "1 0 0"}, Value{"LAD GR1,+", kAdrInvalid, 0, "1 0 0"},
        Value{"LAD GR1,-X", kAdrInvalid, 0, "1 0 0"}, Value{"LAD GR1,'A'", kAdrInvalid, 0, "1 0 0"}));

INSTANTIATE_TEST_SUITE_P(Hex, AddressValue,
                         ::testing::Values(Value{"LAD GR1,#FFFF", 0, 0xFFFF, "0 0 0"},
                                           Value{"LAD GR1,#0A1F", 0, 0x0A1F, "0 0 0"},
                                           Value{"LAD GR1,#", kAdrNoHexDigit, 0, "1 0 0"},
                                           Value{"LAD GR1,#12", kAdrFewHexDigits, 0, "1 0 0"},
                                           Value{"LAD GR1,#1g", kAdrFewHexDigits, 0, "2 0 0"},
                                           Value{"LAD GR1,#12345", 0, 0x2345, "1 0 0"},
                                           Value{"LAD GR1,#FFFFFFFFF", 0, 0xFFFF, "1 0 0"},
                                           Value{"LAD GR1,#00ff", 0, 0, "2 0 0"},
                                           Value{"LAD GR1,#12Gff", 0, 0x12, "3 0 0"}));

INSTANTIATE_TEST_SUITE_P(
    Literals, AddressValue,
    ::testing::Values(Value{"LD GR1,=5", 0, 0, "0 0 0"}, Value{"LD GR1,=+5", 0, 0, "0 0 0"},
                      Value{"LD GR1,=40000", 0, 0, "0 1 0"}, Value{"LD GR1,=#00FF", 0, 0, "0 0 0"},
                      Value{"LD GR1,=#FF", kAdrBadLiteral, 0, "2 0 0"},
                      Value{"LD GR1,=+12X", kAdrBadLiteral, 0, "2 0 0"},
                      Value{"LD GR1,=+", kAdrInvalid, 0, "1 0 0"},
                      Value{"LD GR1,=-X", kAdrInvalid, 0, "1 0 0"},
                      Value{"LD GR1,=", kAdrInvalid, 0, "1 0 0"}, Value{"LD GR1,=A", kAdrInvalid, 0, "1 0 0"},
                      Value{"LD GR1,='A,B'", 0, 0, "0 0 0"}));

TEST(AddressConst, WithoutBuffersThereIsNothingToDo) {
  Bench<> bench("LD GR1,A");
  bench.tested().Oprnd[2] = {};
  EXPECT_EQ(CkAdrConst22<WP>(bench.a, bench.tested(), 2), kAdrNoOprnd);
  bench.tested().Oprnd[0] = {};
  EXPECT_EQ(CkAdrConst22<WP>(bench.a, bench.tested(), 2), kAdrNoOprndText);
  EXPECT_EQ(bench.tallies(), "0 0 0");
}

TEST(AddressConst, MarksWhatItNames) {
  Bench<> label("LD GR1,A");
  label.resolve();
  EXPECT_TRUE(label.line(kALine).IsLabelInUse);
  EXPECT_FALSE(label.tested().IsLabelInUse);

  Bench<> prg("CALL OTHER");
  prg.resolve();
  EXPECT_TRUE(prg.tested().IsLabelInUse);
  EXPECT_TRUE(prg.program(1).IsPrgNameInUse);
  EXPECT_FALSE(prg.program(0).IsPrgNameInUse);
}

TEST(AddressConst, AProgramGoesBeforeALabelOfTheSameText) {
  SourceLines<WP> source("MAIN START\n LAD GR1,OTHER\nOTHER DS 1\n END\nOTHER START\n END\n");
  source.line(2).AbAdr = 3;
  source.program(1).AbAdrAtStart = 4;
  EXPECT_EQ(CkAdrConst22<WP>(source.a, source.line(1), 2), 0);
  EXPECT_EQ(source.line(1).Word2, 4);
  EXPECT_FALSE(source.line(2).IsLabelInUse);
}

TEST(AddressConst, ALiteralKeepsItsRecordFromRunToRun) {
  Bench<> bench("LD GR1,='It''s'");
  bench.resolve();
  ASSERT_EQ(bench.store.vecAdrConst.size(), 1u);
  AdrConst<char16_t>& literal = bench.store.vecAdrConst[0];
  EXPECT_EQ(literal.WordKazu, 4);
  EXPECT_EQ(literal.DataType, ConstKind::CharConst);
  EXPECT_EQ(literal.ConstStr, u"'It''s'");
  literal.AbAdr = 50;
  bench.resolve();
  EXPECT_EQ(bench.store.vecAdrConst.size(), 1u);
  EXPECT_EQ(bench.tested().Word2, 50);

  Bench<> number("PUSH =-5");
  number.resolve();
  number.store.vecAdrConst[0].AbAdr = 60;
  number.resolve();
  EXPECT_EQ(number.store.vecAdrConst[0].Value, -5);
  EXPECT_EQ(number.store.vecAdrConst[0].DataType, ConstKind::Dec);
  EXPECT_EQ(number.store.vecAdrConst[0].WordKazu, 1);
  EXPECT_EQ(number.tested().Word2, 60);
}

TEST(AddressConst, FullWidthCausesAreNamed) {
  Bench<> mozi("LD GR1,Aあ");  // bad character, its cause, undefined
  mozi.resolve();
  EXPECT_EQ(mozi.tallies(), "3 0 0");
  Bench<> space("LD GR1,A　");  // the full-width space is a full-width character as well
  space.resolve();
  EXPECT_EQ(space.tallies(), "4 0 0");
  Bench<> decimal("LAD GR1,1　");
  decimal.resolve();
  EXPECT_EQ(decimal.tallies(), "2 0 0");
}

// --- words ---

struct WordsOf {
  const char* line;
  const char* en;
  const char* ja;
};

class AddressWords : public ::testing::TestWithParam<WordsOf> {};

TEST_P(AddressWords, InBothLanguages) {
  const WordsOf& c = GetParam();
  Bench<> en(c.line), ja(c.line, kJapanese);
  en.resolve();
  ja.resolve();
  EXPECT_EQ(en.printed(), c.en);
  EXPECT_EQ(ja.printed(), c.ja);
}

constexpr const char* kRangeJa =
    "注意：  \"65536\" 2 行目： \n10 進数の記述が 0 から 65535 までの範囲外にある。\n"
    "その下位 16 ビットが格納される。(仕様 １・２、 注の２)  \n10 進数の記述が -32768 から 32767 のとき、\n"
    "16ビットの2進数データ（最上位ビットを符号ビットとする ）として格納する。 \n"
    "その範囲外にあるとき、その下位 16 ビットが格納される。（独自仕様）  \n";
constexpr const char* kSignedRangeJa =
    "注意：  \"-32769\" 2 行目： \n10 進数の記述が 0 から 65535 までの範囲外にある。\n"
    "その下位 16 ビットが格納される。(仕様 １・２、 注の２)  \n10 進数の記述が -32768 から 32767 のとき、\n"
    "16ビットの2進数データ（最上位ビットを符号ビットとする ）として格納する。 \n"
    "その範囲外にあるとき、その下位 16 ビットが格納される。（独自仕様）  \n";

INSTANTIATE_TEST_SUITE_P(
    Rows, AddressWords,
    ::testing::Values(
        WordsOf{
            "LD GR1,Ab",
            "Error :  \"Ab\" line 2: \nAn address constant should be written in capital alphanumeric letters. \n"
            "A non-alphanumeric character is found in the constant. \n"
            "Error :  \"Ab\" line 2: \nA lowercase letter is found in the address constant. \n"
            "A lowercase letter is not allowed in casl2. \n"
            "Error : line 2:  \"Ab\"  \nUndefined address constant.  \n"
            "Neither a label nor a program name it is. \n",
            "エラー：  \"Ab\" 2 行目： アドレス定数の中に英大文字と数字以外の文字がある。\n"
            "エラー：  \"Ab\" 2 行目： アドレス定数の中に小文字がある。\nCASL2 では小文字は使えない。\n"
            "エラー： 2 行目： \nアドレス定数  \"Ab\"  と一致するラベル又はプログラム名（START "
            "アセンブラ命令の左にあるラベル）が存在しない。\n"},
        WordsOf{
            "JUMP NINECHARS",
            "Error : line 2: \n \"NINECHARS\" : An address constant must be 1 to 8 characters in length. \n"
            "There are 9 characters in it. \n",
            "エラー： 2 行目： : \n \"NINECHARS\" : \nアドレス定数は８文字以内の制限がある。 9 文字ある。 \n"},
        WordsOf{"JUMP OTHER",
                "Warning : line 2: : The address constant is an external program name. \n"
                "The comet2 might be out of control.\nIs this your intention? \n",
                "警告： 2 行目： : アドレス定数として外部のプログラム名を用いている。\n"
                "暴走の可能性がある。\n これはあなたの意図ですか？\n"},
        WordsOf{"LAD GR1,#00fF",
                "Error : line 2:  \"#00fF\" \nA hexadecimal number is written in 0-9 and A-F. \n"
                "Hexadecimal notation uses 0 through 9 and A through F.\n"
                "line 2: k=2: \n* Prg. Error: Fail to wcstol(); *endptr is non LY0.\n"
                "A non-numeric character is found, so it cannot be converted to a numeric value.\n",
                "エラー： 2 行目： \n \"#00fF\" :  16進数字に0-9又はA-F以外の文字がある。 \n"
                "line 2: k=2: \n* Prg. Error: Fail to wcstol(); *endptr is non LY0.\n"
                "A non-numeric character is found, so it cannot be converted to a numeric value.\n"},
        WordsOf{"JUMP #", "Error : line 2:  \"#\"  \nMissing a value after '#'. \n",
                "エラー： 2 行目： \n# の右に記述がない。\n"},
        WordsOf{"JUMP #12345",
                "Error : line 2:  \"#12345\" : \n"
                "A hexadecimal nmuber should be written as four digits. (Spec. of CASL2: 2.3 (4)) \n"
                "It has 5 digits. \n",
                "エラー： 2 行目：  \"#12345\" : \n １６ 進数は ４ 桁で記述する。(CASL2 の仕様2･3 (4)) \n"
                "5 桁ある。\n"},
        WordsOf{"JUMP #1",
                "Error : line 2: : \nA hexadecimal number should be written as four digits. \n"
                "(Spec. of CASL2: 2.3 (4))  \"#1\" \nIt has only 1 digit. \n",
                "エラー： 2 行目：  １６ 進数は ４ 桁で記述する。(仕様2･3 (4)) :  \"#1\" \n1 桁しかない。\n"},
        WordsOf{
            "JUMP #12",
            "Error : line 2: : \nA hexadecimal number should be written as four digits. \n"
            "(Spec. of CASL2: 2.3 (4))  \"#12\" \nIt has only 2 digits. \n",
            "エラー： 2 行目：  １６ 進数は ４ 桁で記述する。(仕様2･3 (4)) :  \"#12\" \n2 桁しかない。\n"},
        WordsOf{
            "JUMP abc",
            "Error : line 2:  \"abc\" \nAn invalid character is found in the address constant of  \"abc\" .\n",
            "エラー： 2 行目：  \"abc\" \n1　文字目にアドレス定数で使えない文字がある。\n"},
        WordsOf{"JUMP 1X",
                "Error : line 2:  \"1X\" \nA non-numerical character is found in the decimal number. \n",
                "エラー： 2 行目：  \"1X\" \n１０進数の中に数字以外の文字がある。\n"},
        WordsOf{"JUMP 65536",
                "Note :  \"65536\" line 2: \nThe decimal number is out of range. \n"
                "The valid range for an unsigned decimal number is from 0 to 65535.\n"
                "The valid range for an signed decimal number is -32768 to +32767.\n"
                "When a decimal number exceeds this range, its lower 16 bits are \n"
                "saved in memory. \n(CASL2 Spec: 2.3 (4)) \nThe 15th bit is the sign bit. (Zelvaro Spec.) \n",
                kRangeJa},
        WordsOf{"JUMP -32769",
                "Note :  \"-32769\" line 2: \nThe decimal number is out of range. \n"
                "The range of a decimal number is from zerp to 65535.\n"
                "When a decimal number exceeds the range, its lower 16-bits is\n"
                " saved in memory. (Spec.of CASL2 2.3 (4)) \n"
                "When a decimal number is between -32768 and 32767 \n"
                "it is saved in memory as binary data in 16 bits. \n"
                "The 15th bit is the sign bit. (Spec. of Zelvaro) \n",
                kSignedRangeJa}));

}  // namespace
}  // namespace zelvaro
