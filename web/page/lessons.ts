// The course: ten lessons, each with a program to change and a task that marks it.
import * as programs from "./programs.js";
import type { Text } from "./protocol.js";

export interface Lesson {
  id: string;
  title: Text;
  /// Paragraphs; what is between backquotes is code.
  text: Record<keyof Text, string[]>;
  /// To be put in the editor.
  program: string;
  /// The task, as TOML, and a source put before the program when it is marked.
  task: string;
  driver?: string;
  /// A program that passes.
  answer?: string;
}

interface Change {
  from: string;
  to: string;
}

/// The program with some of its lines replaced.
function changed(program: string, ...changes: Change[]): string {
  return changes.reduce((text, { from, to }) => text.replace(from, () => to), program);
}
export const lessons: Lesson[] = [
  {
    id: "1",
    title: { en: "Run a program", ja: "プログラムを実行する" },
    text: {
      en: [
        "This program adds two numbers. Put it in the editor and press Run: the console shows `7`.",
        "Then go back to the start and press Step several times. The marked line is the one that runs next; `GR1` changes as you go. Step back takes a step back.",
        "Your task: change one number so that the program prints `9`.",
      ],
      ja: [
        "二つの数を足すプログラムです。エディタに入れて「実行」を押すと、コンソールに `7` と表示されます。",
        "次に「最初に戻る」を押し、「1 ステップ」を何度か押してください。印のついた行が次に実行される行です。`GR1` の変化を見てください。「1 ステップ戻る」で前の状態に戻れます。",
        "課題：数を一つ変えて、`9` と表示されるようにしてください。",
      ],
    },
    program: programs.first,
    answer: changed(programs.first, { from: "DC    4", to: "DC    6" }),
    task: `title = "1"
[[case]]
name = "OUT"
output = ["9"]
`,
  },
  {
    id: "2",
    title: { en: "Load and store", ja: "ロードとストア" },
    text: {
      en: [
        "The machine computes in registers, `GR0` to `GR7`. `LD GR1,X` loads the word at the label `X` into `GR1`; `ST GR1,Y` stores `GR1` at `Y`.",
        "`DC` puts a number into the memory, `DS` reserves room.",
        "Your task: `Y` is to become a copy of `X`. One line is missing.",
      ],
      ja: [
        "計算は `GR0` から `GR7` までのレジスタで行います。`LD GR1,X` はラベル `X` の語を `GR1` に読み込み、`ST GR1,Y` は `GR1` を `Y` に書き込みます。",
        "`DC` はメモリに数を置き、`DS` は場所を確保します。",
        "課題：`Y` を `X` の写しにしてください。1 行足りません。",
      ],
    },
    program: programs.copy,
    answer: changed(programs.copy, { from: "         RET", to: "         ST    GR1,Y\n         RET" }),
    task: `title = "2"
[rules]
labels = ["X", "Y"]
[[case]]
name = "X = 5"
after = { Y = 5 }
[[case]]
name = "X = -3"
before = { X = -3 }
after = { Y = -3 }
`,
  },
  {
    id: "3",
    title: { en: "Add and subtract", ja: "足し算と引き算" },
    text: {
      en: [
        "`ADDA` adds to a register, `SUBA` subtracts from it. The second operand is a word of memory, or another register.",
        "After each of them the flags say how the result was: negative (sign), zero, or too large (overflow).",
        "Your task: `D` is to become `A + B - C`.",
      ],
      ja: [
        "`ADDA` はレジスタに足し、`SUBA` はレジスタから引きます。第 2 オペランドはメモリの語か、ほかのレジスタです。",
        "結果が負 (サイン)、ゼロ、大きすぎた (オーバフロー) ことは、フラグでわかります。",
        "課題：`D` を `A + B - C` にしてください。",
      ],
    },
    program: programs.sum,
    answer: changed(programs.sum, { from: "         ST    GR1,D", to: "         SUBA  GR1,C\n         ST    GR1,D" }),
    task: `title = "3"
[rules]
labels = ["A", "B", "C", "D"]
[[case]]
name = "10 + 20 - 7"
after = { D = 23 }
[[case]]
name = "1 + 2 - 5"
before = { A = 1, B = 2, C = 5 }
after = { D = -2 }
`,
  },
  {
    id: "4",
    title: { en: "Compare and jump", ja: "比較と分岐" },
    text: {
      en: [
        "`CPA GR1,B` compares and sets the flags only. A jump looks at them: `JPL` jumps on greater, `JMI` on less, `JZE` on equal, `JNZ` on not equal, `JUMP` always.",
        "Set a breakpoint at `CPA` by a click into the margin beside the line number, run, and look at the flags after a step.",
        "Your task: `MAX` is to become the larger number. Where `GR1` is less than `B`, it has to be loaded anew.",
      ],
      ja: [
        "`CPA GR1,B` は比較してフラグだけを変えます。分岐命令はフラグを見ます。`JPL` は大きいとき、`JMI` は小さいとき、`JZE` は等しいとき、`JNZ` は等しくないとき、`JUMP` はいつも分岐します。",
        "行番号の横をクリックして `CPA` にブレークポイントを置き、実行して、1 ステップ後のフラグを見てください。",
        "課題：`MAX` を大きい方の数にしてください。`GR1` が `B` より小さいときは読み込み直します。",
      ],
    },
    program: programs.larger,
    answer: changed(
      programs.larger,
      { from: "         ST ", to: "         JPL   STORE\n         LD    GR1,B\nSTORE    ST " },
    ),
    task: `title = "4"
[rules]
labels = ["A", "B", "MAX"]
[[case]]
name = "3, 8"
after = { MAX = 8 }
[[case]]
name = "9, -2"
before = { A = 9, B = -2 }
after = { MAX = 9 }
[[case]]
name = "4, 4"
before = { A = 4, B = 4 }
after = { MAX = 4 }
`,
  },
  {
    id: "5",
    title: { en: "A loop", ja: "繰り返し" },
    text: {
      en: [
        "A loop is a jump back. `SUBA` sets the zero flag when the counter becomes 0, and `JNZ LOOP` jumps as long as it is not.",
        "A loop without an end is no harm here: press Pause. The page names the lines that were executed most.",
        "Your task: add the jump, so that `SUM` becomes `1 + 2 + ... + N`.",
      ],
      ja: [
        "繰り返しは後ろへの分岐です。カウンタが 0 になると `SUBA` がゼロフラグを立て、0 でないあいだは `JNZ LOOP` が分岐します。",
        "終わらない繰り返しになっても大丈夫です。「一時停止」を押すと、よく実行された行がわかります。",
        "課題：分岐を加えて、`SUM` を `1 + 2 + ... + N` にしてください。",
      ],
    },
    program: programs.loop,
    answer: changed(programs.loop, { from: "         ST ", to: "         JNZ   LOOP\n         ST " }),
    task: `title = "5"
steps = 100000
[rules]
labels = ["N", "SUM"]
[[case]]
name = "N = 10"
after = { SUM = 55 }
[[case]]
name = "N = 100"
before = { N = 100 }
after = { SUM = 5050 }
`,
  },
  {
    id: "6",
    title: { en: "A table and an index register", ja: "表と指標レジスタ" },
    text: {
      en: [
        "`ADDA GR1,TABLE,GR2` takes the word at `TABLE` plus the content of `GR2`. `GR2` is the index register then.",
        "`LAD GR2,1,GR2` adds 1 to `GR2`: it loads the address `1 + GR2` itself, not the word there.",
        "Your task: the program adds the first word five times. Let it add all five words.",
      ],
      ja: [
        "`ADDA GR1,TABLE,GR2` は `TABLE` に `GR2` の値を加えた番地の語を使います。このとき `GR2` は指標レジスタです。",
        "`LAD GR2,1,GR2` は `GR2` に 1 を加えます。番地の語ではなく、番地 `1 + GR2` そのものを入れる命令です。",
        "課題：このプログラムは最初の語を 5 回足しています。5 語すべてを足すようにしてください。",
      ],
    },
    program: programs.table,
    answer: changed(programs.table, { from: "ADDA  GR1,TABLE", to: "ADDA  GR1,TABLE,GR2" }),
    task: `title = "6"
steps = 10000
[rules]
labels = ["TABLE", "SUM"]
[[case]]
name = "4 8 15 16 23"
after = { SUM = 66 }
[[case]]
name = "1 0 0 0 -5"
before = { TABLE = [1, 0, 0, 0, -5] }
after = { SUM = -4 }
`,
  },
  {
    id: "7",
    title: { en: "Single bits", ja: "ビットを扱う" },
    text: {
      en: [
        "The binary view of the registers shows the 16 bits of a word. `AND` keeps the bits that are 1 in both words, `OR` those that are 1 in one of them, `XOR` those that differ. `SLL` and `SRL` shift all bits.",
        "`=#000F` is a literal: the assembler reserves a word with this number.",
        "Your task: `LOW` is right. Let `REST` become `X` with its lowest four bits set to 0.",
      ],
      ja: [
        "レジスタの 2 進表示は 1 語の 16 ビットです。`AND` は両方が 1 のビット、`OR` は少なくとも一方が 1 のビット、`XOR` は異なるビットを 1 にします。`SLL` と `SRL` は全ビットをずらします。",
        "`=#000F` はリテラルで、この数の語をアセンブラが確保します。",
        "課題：`LOW` はできています。`REST` を、`X` の下位 4 ビットを 0 にした値にしてください。",
      ],
    },
    program: programs.bits,
    answer: changed(programs.bits, { from: "         ST    GR1,REST", to: "         AND   GR1,=#FFF0\n         ST    GR1,REST" }),
    task: `title = "7"
[rules]
labels = ["X", "LOW", "REST"]
[[case]]
name = "#12A7"
after = { LOW = 7, REST = "#12A0" }
[[case]]
name = "#FFFF"
before = { X = "#FFFF" }
after = { LOW = 15, REST = "#FFF0" }
`,
  },
  {
    id: "8",
    title: { en: "Read and write lines", ja: "行の入出力" },
    text: {
      en: [
        "`IN LINE,LEN` reads a line: its characters go to the words from `LINE` on, their number to `LEN`. The console asks for the line. `OUT LINE,LEN` prints as many words.",
        "Reserve 256 words for a line: nobody checks whether it fits.",
        "Your task: print `Hello` on a line of its own before the line that was read.",
      ],
      ja: [
        "`IN LINE,LEN` は 1 行読み、文字を `LINE` からの語に、文字数を `LEN` に入れます。行はコンソールで入力します。`OUT LINE,LEN` はその数の語を表示します。",
        "1 行のために 256 語を確保してください。入りきるかどうかは調べられません。",
        "課題：読んだ行の前に、`Hello` を 1 行表示してください。",
      ],
    },
    program: programs.echo,
    answer: changed(programs.echo, { from: "         OUT ", to: "         OUT   HELLO,FIVE\n         OUT " }),
    task: `title = "8"
[rules]
must = ["IN", "OUT"]
[[case]]
name = "Hanako"
input = ["Hanako"]
output = ["Hello", "Hanako"]
[[case]]
name = "Ada Byron"
input = ["Ada Byron"]
output = ["Hello", "Ada Byron"]
`,
  },
  {
    id: "9",
    title: { en: "A subroutine", ja: "サブルーチン" },
    text: {
      en: [
        "`CALL DOUBLE` pushes the address of the next instruction on the stack and jumps to `DOUBLE`. `RET` takes it from the stack and goes on there. The `RET` of the first program ends the run.",
        "Watch the stack while you step. Step over executes a CALL with all that it calls.",
        "Your task: `FOUR` is to become four times `X`, by two calls of `DOUBLE`.",
      ],
      ja: [
        "`CALL DOUBLE` は次の命令の番地をスタックに積み、`DOUBLE` に移ります。`RET` はその番地を取り出して戻ります。最初のプログラムの `RET` は実行の終わりです。",
        "1 ステップずつ実行して、スタックを見てください。「CALL を飛ばす」は呼び出し全体を一度に実行します。",
        "課題：`DOUBLE` を 2 回呼び出して、`FOUR` を `X` の 4 倍にしてください。",
      ],
    },
    program: programs.call,
    answer: changed(programs.call, { from: "         ST ", to: "         CALL  DOUBLE\n         ST " }),
    task: `title = "9"
[rules]
must = ["CALL"]
labels = ["DOUBLE", "X", "FOUR"]
[[case]]
name = "X = 3"
after = { FOUR = 12 }
[[case]]
name = "X = -10"
before = { X = -10 }
after = { FOUR = -40 }
`,
  },
  {
    id: "10",
    title: { en: "The stack", ja: "スタック" },
    text: {
      en: [
        "`PUSH 0,GR1` puts `GR1` on the stack, `POP GR1` takes the word that was put there last. What was put first comes last.",
        "Take as many words as you have put: the stack also holds the addresses to return to.",
        "Your task: the program pushes all characters of a line and takes them again, but does not keep them. Let it print the line backwards.",
      ],
      ja: [
        "`PUSH 0,GR1` は `GR1` をスタックに積み、`POP GR1` は最後に積んだ語を取り出します。先に積んだものほど後に出てきます。",
        "積んだ数だけ取り出してください。スタックには戻り先の番地も入っています。",
        "課題：このプログラムは 1 行の文字をすべて積んで取り出しますが、しまっていません。逆順に表示するようにしてください。",
      ],
    },
    program: programs.reverse,
    answer: changed(programs.reverse, { from: "         POP   GR1\n", to: "         POP   GR1\n         ST    GR1,LINE,GR2\n" }),
    task: `title = "10"
steps = 100000
[rules]
must = ["PUSH", "POP"]
[[case]]
name = "abc"
input = ["abc"]
output = ["cba"]
[[case]]
name = "CASL2"
input = ["CASL2"]
output = ["2LSAC"]
`,
  },
];
