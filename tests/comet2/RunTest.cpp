// The guards: what stops a run, in which words, and what is left in the machine.
#include <gtest/gtest.h>

#include "Machines.h"
#include "comet2/Guards.h"
#include "comet2/Run.h"

namespace zelvaro {
namespace {

using test::kEnd;
using test::kEndJa;
using test::machineWith;
using test::runAll;

/// Runs the same machine in English and in Japanese.
struct InBoth {
  Tcomet2 m, ja;
  std::string en, jaWords;
  explicit InBoth(const Tcomet2& machine, int PrgEndAdr = 100) : m(machine), ja(machine) {
    en = runAll(m, PrgEndAdr);
    ja.IsEnglish = 0;
    jaWords = runAll(ja, PrgEndAdr);
    EXPECT_EQ(m.PR, ja.PR);
  }
};

TEST(Guards, RunIntoTheEndOfMemory) {
  const InBoth run(machineWith({0}));
  EXPECT_EQ(run.m.PR, 65001);
  EXPECT_EQ(run.m.ExecCount[65000], 1);
  EXPECT_EQ(run.m.ExecCount[65001], 0);
  EXPECT_TRUE(
      run.en.starts_with("Runtime Error: The comet2 is terminated！\nBecause the Program Register(PR) has "
                         "exceeded the maximum memory address of 64500. Your program"));
  EXPECT_TRUE(
      run.en.ends_with("only 64000 memories for the sake of simplicity. PR = #FDE9 = 65001(dec) \n" + kEnd));
  EXPECT_TRUE(run.jaWords.starts_with("実行時エラー：実行途中停止！\nプログラムレジスター(PR)が"));
  EXPECT_NE(run.jaWords.find("64700 番地を超えました。 さらに、"), std::string::npos);
  EXPECT_TRUE(run.jaWords.ends_with("部分が実行されたものと考えられます。" + kEndJa));
}

TEST(Guards, RegistersAboveSeven) {
  // bits of r and x that nobody reads are no fault: PUSH, JUMP, SVC by r; POP by x; RET by both
  Tcomet2 good = machineWith({0x7080, 5, 0x7118, 0xF0F0, 9, 0x64A0, 7, 0x81FF});
  EXPECT_TRUE(runAll(good).ends_with(kEnd));
  EXPECT_EQ(good.PR, 7);

  for (const int word : {0x1208, 0x1280, 0x7008, 0x7180, 0x6409, 0x8008, 0xF008, 0x8880, 0x9008, 0x24F0}) {
    SCOPED_TRACE(word);
    Tcomet2 m = machineWith({word, 0, 0x8100});
    EXPECT_NE(runAll(m).find("such a non-general register as GR8, GR9. \n"), std::string::npos);
    EXPECT_EQ(m.PR, 0);
    EXPECT_EQ(m.ExecCount[0], 0);
  }
  const InBoth run(machineWith({0, 0x1208}));
  EXPECT_TRUE(run.en.ends_with(
      "an opcode of #1208 is going to be executed. \nProgram Register(PR)=#0001= 1(Address in "
      "Decimal Number).  \n" +
      kEnd));
  EXPECT_TRUE(
      run.jaWords.ends_with("命令コード #1208 を実行しようとしたのでCOMET2を停止させました。 Program "
                            "Register(PR)=#0001= 1 （十進数）番地  " +
                            kEndJa));
}

TEST(Guards, LoadBeyondTheLimit) {
  Tcomet2 good = machineWith({0x1010, 65000, 0x1022, 64999, 0x8100});
  good.GR[2] = 1;
  EXPECT_EQ(runAll(good), kEnd);

  for (const int x : {0, 2}) {
    Tcomet2 m = machineWith({0x1230, 7, 0x1010 | x, x == 0 ? 65001 : 65000, 0x8100});
    m.GR[1] = 5;
    m.GR[2] = 1;
    m.Fovf = 1;
    const InBoth run(m);
    EXPECT_EQ(run.m.PR, 3);
    EXPECT_EQ(run.m.GR[1], 5);
    EXPECT_EQ(run.m.GR[3], 7);
    EXPECT_EQ(run.m.Fovf, 1);
    EXPECT_EQ(run.m.EffAdr, 65001);
    if (x == 0) continue;
    EXPECT_EQ(
        run.en,
        "\nRuntime Error: --> OS: Forced Termination of the comet2.  The virtual OS has detected that the comet2 "
        "is going to access a memory beyond tMaxMemory. \n"
        "PR=2 (address), Memory[2]=#1012=4114(dec) and \nPR=3 (address), Memory[3]=#FDE8=65000(dec) \n"
        "Memory[65000]=#0000=0(dec). \nin 1 micro second or less. ");
    EXPECT_EQ(
        run.jaWords,
        "\n実行時エラー：途中中止：  tMaxMemory を超えてロードしようとしたので実行を中止しました。 \n"
        "PR=2 番地の Memory[2]=#1012=4114(dec) と \nPR=3 番地の Memory[3]=#FDE8=65000(dec)\n を実行により発生。 \n"
        "Memory[65000]=#0000=0(dec). \n1 micro second or less 実行時間 ");
  }
}

TEST(Guards, StoreBeyondTheLimit) {
  Tcomet2 m = machineWith({0x1112, 64999, 0x1112, 65000, 0x8100});
  m.GR[1] = 9;
  Tcomet2 good = m;
  good.Memory[2] = 0x8100;
  EXPECT_TRUE(runAll(good).ends_with(kEnd));
  EXPECT_EQ(good.Memory[64999], 9);

  const InBoth run(m, 65000);
  EXPECT_EQ(run.m.PR, 3);
  EXPECT_EQ(run.m.Memory[65000], 0);
  EXPECT_EQ(
      run.en,
      "Terminated!\nThe COMET2 has 65536 words in memory. \nWhen an opcode at #0002 was executed, a virtual OS in "
      "zelvaro has detected the comet2 was going to store a data beyond the maximam address of 65000. So the OS "
      "has terminated the comet2;  otherwise the comet2 would get out of control. \n" +
          kEnd);
  EXPECT_TRUE(run.jaWords.starts_with(
      "実行時エラー：　中止\n#2 = 2 （10進数）番地の命令の実行時 65000 番地を超えて"));
}

TEST(Guards, StoreOutsideTheReservedAreaIsWarnedOfOnce) {
  // a loop that stores at 10 + GR1 for GR1 = 0 to 4; the Reserved Area ends at 12
  const Tcomet2 m = machineWith({0x1211, 1, 0x1111, 9, 0x4110, 9, 0x6100, 0, 0x8100, 5});
  const InBoth run(m, 12);
  EXPECT_EQ(run.m.Memory[14], 5);
  EXPECT_EQ(
      run.en,
      "\nWarning: Out of Range\nYour reserved memory is 12 words in size. \nA data has stored in an address of "
      "12(Dec).\nThe address is out of the reserved area.\nIs this your intention?  It has occured when a machine "
      "code of \n(Address, Machine Code)=(#0002, #1111)\nis done at the 3rd execution. \n" +
          kEnd);
  EXPECT_EQ(
      run.jaWords,
      "\n\n 警告： 確保した（comet2の）メモリ領域以外への書き込み！\nあなたのプログラムが確保したメモリ領域は 11 "
      "（10進数）番地までです。\nこれを超えて 12 （10進数）番地にデータがストア（ST）されました。\nこれはあなたが意図した"
      "ものですか。\n(Address, Machine Code）=（#0002, #1111）を\n3回目に実行した時に発生しました。 \n" +
          kEndJa);
}

TEST(Guards, TheStackHas500Words) {
  // PUSH and count in a loop, 500 times and 501 times
  for (const int times : {500, 501}) {
    const Tcomet2 m = machineWith({0x7001, 0, 0x1211, 1, 0x4110, 9, 0x6100, 0, 0x8100, times});
    const InBoth run(m);
    EXPECT_EQ(run.m.SP, 0xFFFF - times);
    EXPECT_EQ(run.m.StackArea[500], 499);
    EXPECT_EQ(run.m.PR, times == 500 ? 8 : 1);
    if (times == 500) continue;
    EXPECT_TRUE(
        run.en.starts_with("The virtual OS has terminated the comet2. Because the comet2 was going to save"));
    EXPECT_TRUE(
        run.en.ends_with("address of #0 is executed. The stack area is allocated between #FFFF and "
                         "(#FFFF(hex)-500(dec)) in memory. " +
                         kEnd));
    EXPECT_EQ(
        run.jaWords,
        "スタックエリア（このシミレイターでは 500 個）をこえてスタックしようとしたので実行を中止しました。"
        "#0=Dec0番地の実行で発生。" +
            kEndJa);
  }
  Tcomet2 calls = machineWith({0x8000, 0});
  EXPECT_TRUE(runAll(calls).ends_with("in memory. " + kEnd));
  EXPECT_EQ(calls.OS, 501);
  EXPECT_EQ(calls.SP, 0xFE0A);
  EXPECT_EQ(calls.PR, 1);
}

TEST(Guards, PopOfAnEmptyStack) {
  Tcomet2 m = machineWith({0, 0x7130});
  m.GR[3] = 6;
  const InBoth run(m);
  EXPECT_EQ(run.m.GR[3], 6);
  EXPECT_EQ(run.m.SP, kFirstSP);
  EXPECT_EQ(run.m.PR, 1);
  EXPECT_TRUE(run.en.ends_with("of #1 is executed. " + kEnd));
  EXPECT_TRUE(run.jaWords.ends_with("#1=Dec1番地の実行で発生。" + kEndJa));
}

TEST(Guards, ReturnWithoutAStack) {
  Tcomet2 above = machineWith({0x8100});
  above.OS = 1;
  above.SP = 0x10000;
  EXPECT_EQ(runAll(above), "SP=#10000 An unknown error has happened in Tcomet2::ret581(), ret681. " + kEnd);
  EXPECT_EQ(above.OS, 0);
  EXPECT_EQ(above.PR, 0);

  Tcomet2 unused = machineWith({0x7100, 0x8100});  // the cell 0 gives PR 0, where a POP finds nothing
  unused.OS = 1;
  unused.SP = 0xFFFE;
  runAll(unused);
  EXPECT_EQ(unused.PR, 0);
  EXPECT_EQ(unused.SP, 0x10000);
}

TEST(Guards, NopIsTheWholeCellZero) {
  const InBoth run(machineWith({0, 0x0008}));
  EXPECT_EQ(run.m.PR, 1);
  EXPECT_EQ(run.m.ExecCount[1], 1);
  const std::string words =
      "An unknown error has happened while comet2 is running. The comet2 is going to execute #0008 at an address of 1 "
      "(Dec). It is strange. Because NOP machine code is not #0008 but #0000. Please check your source code carefully, "
      "you will find out this main cause in it.\n\n";
  EXPECT_EQ(run.en, "\nRuntime Error: Forced Termination of comet2 by OS:\n" + words + kEnd);
  EXPECT_EQ(run.jaWords, "\n実行時エラー：COMET2 を強制終了させました。\nソースコードを見直してください。\n" +
                             words + kEndJa);
  Tcomet2 high = machineWith({-65536, 0x8100});
  EXPECT_NE(runAll(high).find("execute #0000 at"), std::string::npos);
}

TEST(Guards, UnregisteredCode) {
  const Tcomet2 m = machineWith({0, 0x9000});
  const InBoth run(m);
  EXPECT_EQ(run.m.ExecCount[1], 1);
  EXPECT_EQ(
      run.en,
      "\nRuntime Error: The comet2 has been terminated by OS.  Because a non-registered machine code of #9000 is "
      "going to be executed.  Program Register(pr)=#1=dec1 \nAn unknown error has happened in Tcomet2::Run(). ");
  EXPECT_EQ(
      run.jaWords,
      "\n実行時エラー： comet2 を強制終了させました。\n登録されていない命令コード #9000 を実行しようとしたので実行を中止しました。\n"
      "Program Register(pr)=#1=dec1\n An unknown error has happened in Tcomet2::Run(). ");
  test::ScriptedPlatform platform;
  Tcomet2 again = m;
  int code = 0;
  runAll<WP>(again, platform, 10, &code);
  EXPECT_EQ(code, 1);
  again = machineWith({0x8100});
  runAll<WP>(again, platform, 10, &code);
  EXPECT_EQ(code, 0);
}

TEST(Guards, NarrowFamiliesSpeakInTheirWords) {
  test::ScriptedPlatform platform;
  Tcomet2 m = machineWith({0x0001});
  m.ExecCount[0] = 7;
  EXPECT_EQ(
      runAll<AP>(m, platform, 10),
      "An unknown error has happened in Tcomet2::Run(). NOP should be #0000. But this NOP is #0001 at an address "
      "of 0 in the comet2.  8DFA436D" +
          kEnd);
  EXPECT_EQ(m.ExecCount[0], 8);  // their counts go on
  m.reset();
  m.IsEnglish = 0;
  EXPECT_TRUE(runAll<AP>(m, platform, 10).starts_with("--> 中止！\n"));
}

}  // namespace
}  // namespace zelvaro
