// The messages of the guards, in the order in which one step of a run checks them.  Only Guards.cpp includes
// this.  The numbers 64500, 64700, 64000, 3200 and 3465 are parts of the texts and do not follow any
// constant.
#pragma once

#include "diag/Message.h"

namespace zelvaro {

inline constexpr Message prGuard{
    "pr-guard",
    Severity::Notice,
    Head::Open,
    args("hex4", "dec"),
    {.ja = "実行時エラー：実行途中停止！\n"
           "プログラムレジスター(PR)が この COMET2 シミレーター の "
           "最大メモリー 64700 番地を超えました。 "
           "さらに、最大アドレスを超えてメモリにアクセスしようとしたので"
           "実行を中止しました。  "
           "本来の COMET2 では もちろん "
           "PR = 65535 までアクセス可能ですが、Zelvaro では制限を設けています。"
           "プログラムを工夫修正してご利用ください。 "
           "PR = #{hex4} = {dec}（十進数）番地 Run. "
           "おそらく、プログラムの定義域を飛び出して、メモリ後半にある "
           "NOP=#0000 の連続部分が実行されたものと考えられます。",
     .en = "Runtime Error: The comet2 is terminated！\n"
           "Because the Program Register(PR) has exceeded the maximum memory address "
           "of 64500. "
           "Your program cannnot access any address over there. "
           "It might haved executed a lot of opcodes in vain "
           "in the higher address area. "
           "The comet2 has 65536 words in memory in truth. "
           "But this simulator has only 64000 memories for the sake of simplicity. "
           "PR = #{hex4} = {dec}(dec) \n"},
    {{kNarrow,
      {.ja = "--> 中止！\n"
             "プログラムレジスター(PR)が この COMET2 シミレーター の "
             "最大メモリー 64700 番地を超えました。 "
             "そして、最大メモリーを超えてアクセスしようとしたので"
             "実行を中止しました。  "
             "本来の COMET2 では もちろん "
             "PR = 65535 までアクセス可能ですが、Zelvaro では。"
             "プログラムを工夫修正してご利用ください。 "
             "PR = #{hex4} = {dec}（十進数）番地 Run. "
             "おそらく、プログラムの定義域を飛び出して、メモリ後半にある "
             "NOP=#0000 の連続部分が実行されたものと考えられます。",
       .en = "--> The comet2 is terminated！\n"
             "Because the Program Register(PR) has exceeded the maximum memory address "
             "of 64500. "
             "Your program cannnot access any address over there. "
             "It might haved executed a lot of opcodes in vain "
             "in the higher address parts. "
             "The comet2 has 65536 words in memory in truth. "
             "But this simulator has only 64000 memories for the sake of simplicity. "
             "PR = #{hex4} = {dec}(dec) \n"}},
     {kNH,
      {.ja = "--> 中止！\n"
             "プログラムレジスター(PR)が この COMET2 シミレーター の "
             "最大メモリー 3200 番地を超えました。 "
             "そして、最大メモリーを超えてアクセスしようとしたので"
             "実行を中止しました。  "
             "本来の COMET2 では もちろん "
             "PR = 65535 までアクセス可能ですが、Zelvaro では。"
             "プログラムを工夫修正してご利用ください。 "
             "PR = #{hex4} = {dec}（十進数）番地 Run. "
             "おそらく、プログラムの定義域を飛び出して、メモリ後半にある "
             "NOP=#0000 の連続部分が実行されたものと考えられます。",
       .en = "--> The comet2 is terminated！\n"
             "Because the Program Register(PR) has exceeded the maximum memory address "
             "of 3200. "
             "It might haved executed a lot of opcodes in vain "
             "in the higher address parts. "
             "Your program cannnot access any address over there. "
             "The comet2 has 65536 words in memory in truth, "
             "But this simulator has only 3200 memories for the sake of simplicity. "
             "PR = #{hex4} = {dec}(dec). \n"}}}};

inline constexpr Message registerGuard{
    "register-guard",
    Severity::Notice,
    Head::Open,
    args("word", "hex4", "dec"),
    {.ja = "実行時エラー：実行途中停止\n"
           "機械語命令が GR0-GR7 以外のレジスターを指定している。 "
           "あるいは、機械語命令が実行中に変更された。 "
           "命令コード #{word} を実行しようとしたのでCOMET2を停止させました。 "
           "Program Register(PR)=#{hex4}= {dec} （十進数）番地  ",
     .en = "Runtime Error: The comet2 is terminated! \n"
           "The binary code has been rewriten "
           "while the comet2 is running. \n"
           "The machine code has specifyed "
           "such a non-general register as GR8, GR9. \n"
           "The comet2 has been terminated "
           "because an opcode of #{word} is going to be executed. \n"
           "Program Register(PR)=#{hex4}= {dec}(Address in Decimal Number).  \n"},
    {{kNarrow | kNH,
      {.ja = "中止\n"
             "機械語命令が GR0-GR7 以外のレジスターを指定しているかのように読み取れる。 "
             "あるいは、機械語命令がそのように変化している。 "
             "命令コード #{word} を実行しようとしたので実行が中断された。 "
             "Program Register(PR)=#{hex4}= {dec} （十進数）番地  ",
       .en = "The comet2 is terminated! \n"
             "There is a machine code instruction to specify "
             "a non-exisitinggeneral register excluding GR0-GR7. "
             " Or the instruction has been rewriten so "
             "during the execution of the comet2. \n"
             "The comet2 has been terminated "
             "because an opcode of #{word} is going to be executed. \n"
             "Program Register(PR)=#{hex4}= {dec}(Address in Decimal Number).  \n"}}}};

/// The first part of the message; loadGuardCells follows.
inline constexpr Message loadGuard{
    "load-guard",
    Severity::Notice,
    Head::Open,
    args(),
    {.ja = "\n実行時エラー：途中中止：  tMaxMemory を超えてロードしようとしたので"
           "実行を中止しました。 \n",
     .en = "\nRuntime Error: --> OS: Forced Termination of the comet2.  "
           "The virtual OS has detected that the comet2 "
           "is going to access a memory beyond tMaxMemory. \n"},
    {{kNarrow,
      {.ja = "-> 中止。  tMaxMemory を超えてロードしようとしたので"
             "実行を中止しました。 \n",
       .en = "--> OS: Termination of the comet2.  "
             "The virtual OS has detected that the comet2 "
             "is going to access a memory beyond tMaxMemory. \n"}},
     {kNH,
      {.ja = "-> 中止。  MaxMemory を超えてロードしようとしたので"
             "実行を中止しました。 \n",
       .en = "--> OS: Termination of the comet2.  "
             "The virtual OS has detected that the comet2 "
             "is going to access a memory beyond MaxMemory. \n"}}}};

/// The instruction's two words and the cell that the second one addresses, without the index register.
inline constexpr Message loadGuardCells{
    "load-guard-cells",
    Severity::Notice,
    Head::Open,
    args("adr1", "hex1", "dec1", "adr2", "hex2", "dec2", "hex3", "dec3"),
    {.ja = "PR={adr1} 番地の Memory[{adr1}]=#{hex1}={dec1}(dec) と \n"
           "PR={adr2} 番地の Memory[{adr2}]=#{hex2}={dec2}(dec)\n"
           " を実行により発生。 \n"
           "Memory[{dec2}]=#{hex3}={dec3}(dec). \n",
     .en = "PR={adr1} (address), Memory[{adr1}]=#{hex1}={dec1}(dec) and \n"
           "PR={adr2} (address), Memory[{adr2}]=#{hex2}={dec2}(dec) \n"
           "Memory[{dec2}]=#{hex3}={dec3}(dec). \n"}};

inline constexpr Message storeGuard{
    "store-guard",
    Severity::Notice,
    Head::Open,
    args("hex4", "hex", "dec"),
    {.ja = "実行時エラー：　中止\n"
           "#{hex} = {dec} （10進数）番地の命令の実行時 65000 番地を超えてデータを"
           "ストア（ＳＴ）しようとしました。"
           "これは危険なので暴走をしないように実行を停止させました。\n",
     .en = "Terminated!\n"
           "The COMET2 has 65536 words in memory. \n"
           "When an opcode at "
           "#{hex4} was executed, "
           "a virtual OS in zelvaro has detected the comet2 was "
           "going to store a data beyond the maximam address "
           "of 65000. "
           "So the OS has terminated the comet2; "
           " otherwise the comet2 would get out of control. \n"},
    {{kNH,
      {.ja = "実行時エラー：　中止"
             "警告： このシミレイターで用意しているメモリは 3465 個だけです。 "
             "  {hex} = {dec} （10進数）番地の命令を実行したときに"
             "3465 番地を超えてデータをストア（ＳＴ）しようとしたので"
             "暴走をしないように実行を停止させました。"
             "本来ＣＯＭＥＴ２は0番地から６５５３５番地までメモリがあります。 "
             "プログラムを工夫してお使いください。 ",
       .en = "Terminated!"
             "Originally the comet2 "
             "has 65536 words in memory. "
             "This simulator have only 3465 words for the sake of simplicity. "
             "When an opcode at "
             "#{hex4} was executed, "
             "a virtual OS in zelvaro has detected the comet2 was "
             "going to store a data beyond the maximam address "
             "of 3465. "
             "So the OS has terminated the comet2; "
             " otherwise the comet2 would get out of control. \n"}}}};

/// `reserved` is the first address after the Reserved Area, `last` the address before it; in the fixed form
/// both are LastAdr.
inline constexpr Message storeWarning{
    "store-outside",
    Severity::Notice,
    Head::Open,
    args("reserved", "last", "effAdr", "adr", "hex4", "hex", "count", "ordinal"),
    {.ja = "\n\n 警告： 確保した（comet2の）メモリ領域以外への書き込み！\n"
           "あなたのプログラムが確保したメモリ領域は {last} （10進数）番地までです。\n"
           "これを超えて {effAdr} （10進数）番地にデータがストア（ST）されました。\n"
           "これはあなたが意図したものですか。\n"
           "(Address, Machine Code）=（#{adr}, #{hex4}）を\n"
           "{count}回目に"
           "実行した時に発生しました。 \n",
     .en = "\nWarning: Out of Range\n"
           "Your reserved memory is {reserved} words in size. \n"
           "A data has stored in an address of {effAdr}(Dec).\n"
           "The address is out of the reserved area.\n"
           "Is this your intention?  "
           "It has occured when a machine code of \n"
           "(Address, Machine Code)=(#{adr}, #{hex4})\n"
           "is done at the {ordinal} execution. \n"},
    {{kNH,
      {.ja = " 警告： あなたが作成したプログラムが確保したメモリ領域は {last} （10進数）番地までです。 "
             "これを超えて {effAdr} （10進数）番地にデータがストア（ＳＴ）されました。 "
             "これはあなたが意図したものですか。"
             " #{adr} 番地の機械語命令 "
             "#{hex} を実行した時に検出しました。 ",
       .en = "WARNING: Your reserved memory size is {reserved} words. "
             "A data has stored "
             "beyond the reserved area. "
             "The address is {effAdr}(dec) in memory. "
             "Is this your intention? "
             "It has occured when a machine code of "
             "#{hex} at the address of #{adr}is executed. "}}}};

inline constexpr Message stackGuard{"stack-guard",
                                    Severity::Notice,
                                    Head::Open,
                                    args("hex", "dec"),
                                    {.ja = "スタックエリア（このシミレイターでは 500 個）をこえて"
                                           "スタックしようとしたので実行を中止しました。"
                                           "#{hex}=Dec{dec}番地の実行で発生。",
                                     .en = "The virtual OS has terminated the comet2. "
                                           "Because the comet2 was going to save a data "
                                           "into an inappropriate memory area "
                                           "beyond the so-called stack area. "
                                           "It has happened when an opcode at address "
                                           "of #{hex} is executed. "
                                           "The stack area is allocated between "
                                           "#FFFF and (#FFFF(hex)-500(dec)) in memory. "}};

inline constexpr Message emptyStackGuard{"empty-stack-guard",
                                         Severity::Notice,
                                         Head::Open,
                                         args("hex", "dec"),
                                         {.ja = "スタックエリアが空なのに、POP 命令でデータを"
                                                "取り出そうとしたので実行を中止しました。"
                                                "PUSH と POP の回数を確かめてください。"
                                                "#{hex}=Dec{dec}番地の実行で発生。",
                                          .en = "The virtual OS has terminated the comet2. "
                                                "Because the comet2 was going to take a data "
                                                "from the stack area with POP "
                                                "although the stack area is empty. "
                                                "Please check that each POP has its PUSH. "
                                                "It has happened when an opcode at address "
                                                "of #{hex} is executed. "}};

inline constexpr Message inputEndedGuard{
    "input-ended-guard",
    Severity::Notice,
    Head::Open,
    args("count"),
    {.ja = "\nOS: 入力がすでに終わっているのに、マクロ命令( IN )が続けて {count} 回実行されたので、"
           "実行を中止しました。 \n",
     .en =
         "\nOS: The comet2 is terminated, because a Macro Instruction of IN has been executed {count} times "
         "in a row although the input has come to its end. \n"}};

inline constexpr Message nobodyThereGuard{
    "nobody-there-guard",
    Severity::Notice,
    Head::Open,
    args(),
    {.ja = "\nOS: コンソールの相手がいなくなったので、実行を中止しました。 \n",
     .en = "\nOS: The comet2 is terminated, because nobody follows the console any more. \n"}};

inline constexpr Message returnGuard{"return-guard", Severity::Notice, Head::Open, args("sp"),
                                     bothLanguages("SP=#{sp} "
                                                   "An unknown error has happened "
                                                   "in Tcomet2::ret581(), ret681. ")};

inline constexpr Message nopGuard{
    "nop-guard",
    Severity::Notice,
    Head::Open,
    args("word", "dec"),
    {.ja = "\n実行時エラー：COMET2 を強制終了させました。\n"
           "ソースコードを見直してください。\n"
           "An unknown error has happened while comet2 is running. "
           "The comet2 is going to "
           "execute #{word} at an address of {dec} (Dec). "
           "It is strange. Because NOP machine code is not #{word} but #0000. "
           "Please check your source code carefully, "
           "you will find out this main cause in it.\n\n",
     .en = "\nRuntime Error: Forced Termination of comet2 by OS:\n"
           "An unknown error has happened while comet2 is running. "
           "The comet2 is going to "
           "execute #{word} at an address of {dec} (Dec). "
           "It is strange. Because NOP machine code is not #{word} but #0000. "
           "Please check your source code carefully, "
           "you will find out this main cause in it.\n\n"},
    {{kNarrow, bothLanguages("An unknown error has happened in Tcomet2::Run(). "
                             "NOP should be #0000. But this NOP is "
                             "#{word} at an address of {dec} in the comet2.  8DFA436D")},
     {kNH, bothLanguages("An unknown error has happened in Tcomet2::Run(). "
                         "Because NOP should be #0000, "
                         "but this NOP is "
                         "#{word} at the address of {dec} in the memory of comet2.  8DFA436D")}}};

inline constexpr Message unregisteredGuard{"unregistered-code",
                                           Severity::Notice,
                                           Head::Open,
                                           args("word", "hex", "dec"),
                                           {.ja = "\n実行時エラー： comet2 を強制終了させました。\n"
                                                  "登録されていない命令コード "
                                                  "#{word} を実行しようとしたので実行を中止しました。\n"
                                                  "Program Register(pr)=#{hex}=dec{dec}\n"
                                                  " An unknown error has happened in Tcomet2::Run(). ",
                                            .en = "\nRuntime Error: "
                                                  "The comet2 has been terminated by OS.  "
                                                  "Because a non-registered machine code of "
                                                  "#{word} is going to be executed.  "
                                                  "Program Register(pr)=#{hex}=dec{dec} \n"
                                                  "An unknown error has happened in Tcomet2::Run(). "},
                                           {{kNarrow | kNH,
                                             {.ja = "登録されていない命令コード "
                                                    "#{word} を実行しようとしたので実行を中止しました。\n"
                                                    "Program Register(pr)=#{hex}=dec{dec}\n"
                                                    " An unknown error has happened in Tcomet2::Run(). ",
                                              .en = "The comet2 has been terminated.  "
                                                    "Because a non-registered machine code of "
                                                    "#{word} is going to be executed.  "
                                                    "Program Register(pr)=#{hex}=dec{dec} \n"
                                                    "An unknown error has happened in Tcomet2::Run(). "}}}};

}  // namespace zelvaro
