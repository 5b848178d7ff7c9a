// DS: its operand, its number of words.  The words themselves are all 0 and are held as a count only.
#include "data/Data.h"
#include "diag/Limits.h"
#include "diag/Quote.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message oprndEmpty{
    "ds-operand-missing",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "DS 命令 の 右に オペランド（10 進定数）の記述がない。 ",
     .en = "The operand is empty. A constant in decimal number is expected at the right side of DS assembler "
           "instruction. "},
    {{kNH,
      {.ja = {},
       .en = "A constant operand in decimal number is expected at the right side of the DS instruction. "}}}};

// The fixed form reports the faults of the number one by one.
constexpr Message textAfterNumber{
    "ds-comment",
    Severity::Memo,
    Head::Line,
    args(),
    {.ja = "DS 命令のオペランド（数字）の右に空白があればそれ以降はコメントとみなされる。 ",
     .en = "When there is a space at the right side of DS instruction, the followings in the line are "
           "regarded as a comment. "}};
constexpr Message hexNumber{"ds-hex",
                            Severity::Error,
                            Head::Line,
                            args(),
                            {.ja = "DS 命令は 10 進数で指定する。 16 進数は使えない。",
                             .en = "An operand of DS must be specified in decimal. "
                                   "It cannot be specified in hexadecimal. "}};
constexpr Message minusSign{"ds-minus",
                            Severity::Error,
                            Head::Line,
                            args(),
                            {.ja = "負の符号 は使えない。 DS 命令は 語数を ０ 以上の 10 進定数で指定する。 "
                                   "語数が ０ のとき 領域は確保しないが、ラベルは有効。",
                             .en = "A minus sign cannot be used. "
                                   "An operand of the DS assembere instructions is specified "
                                   "in a decimal number including zero. "
                                   "When it is zero, the assembler does not reserve any memory "
                                   "domain.  Nevertheless, a label of the DS is effective. "
                                   "(Spec. 2 2.3.(3)) "}};

constexpr Message nonDigit{
    "ds-digit",
    Severity::Error,
    Head::Line,
    args("mozi", "quote"),
    {.ja = ": {mozi}: {quote}: DS 命令のオペランドに正の十進数以外の文字がある。 \n"
           "DS アセンブラ命令のオペランドは、ゼロまたはゼロ以上の正の十進数で指定する。\n"
           "CASL2の仕様：２．３　アセンブラ命令（３）",
     .en = "{mozi}: {quote}: Non numerical character is detected. \n"
           "An operand of DS must be specified in decimal number.\n"
           "And it must be positive or zero.\n"
           " It cannot be specified in hexadecimal.\n"
           " (CASL2 Spec:  2.3 (3) "},
    {{kNH,
      {.ja = "DS 命令に数字以外の文字がある。 ",
       .en = "There is non-numeral character in the operand of DS instruction. "}}}};

constexpr Message commaAfterNumber{
    "ds-comma",
    Severity::Warning,
    Head::Line,
    args(),
    {.ja = "DS 命令のオペランドの場合、数字の右に( ,) は不要。 空白でよい。",
     .en = "A comma is of no use at the end of the operand of DS assembler "
           "instruction. It could be deleted. "},
    {{kNH,
      {.ja = "DS 命令の場合数字の右に , は不要です。 空白でよい。",
       .en = "A comma is of no use at the end of the operand of DS instruction. "
             "It could be deleted. "}}}};

constexpr Message notANumber =
    selfCheck("self-ds-number", args("number"), "Prg. Error: Fail to wcstol(); buf={number}");
constexpr Message notANumberLater =
    selfCheck("self-ds-number-later", args("number"), "Prg. Error: Fail to strtoL(); buf={number}");

constexpr Message overMachine{
    "ds-over-machine", Severity::Error, Head::Line, args(limit("most", kGreatestUnsigned)),
    bothLanguages("More than {most} words cannot be reserved, because the come2 is a 16-bit machine. ")};

constexpr Message overStack{
    "ds-over-stack", Severity::Error, Head::Line,
    args(limit("most", kGreatestImage), limit("stack", kStackDepth)),
    bothLanguages("More than {most} words cannot be reserved, because {stack} words has been "
                  "prereserved for Stack Area in comet2. ")};

template <class Char>
void tellNonDigit(Assembly& a, int line, ViewOf<Char> number, std::size_t i) {
  if (a.family.explainsDsNumber) {
    if (number[0] == Char('#')) return a.cs.report(hexNumber, line);
    if (number[0] == Char('-')) return a.cs.report(minusSign, line);
  }
  a.cs.report(nonDigit, line, plain(moziAt(number, i)), quote(number));
}

/// Splits the operand text into the number, operand 1, and the text after it, operand 2.
template <class Char>
bool OprndAtDS(Assembly& a, SrcData<Char>& line) {
  const ViewOf<Char> text = line.Oprnd[0];
  if (text.empty()) {
    a.cs.report(oprndEmpty, line.Line);
    return false;
  }
  std::size_t end = 0;
  // a comma after the number is not part of it
  while (end < text.size() && !isBlank(text[end]) && (end == 0 || text[end] != Char(','))) ++end;
  const ViewOf<Char> number = text.substr(0, end);
  const ViewOf<Char> rest = trim(text.substr(end));
  if (a.family.explainsDsNumber && end < text.size() && isBlank(text[end]) && !rest.empty())
    a.cs.report(textAfterNumber, line.Line);
  for (std::size_t i = 0; i < number.size(); ++i) {
    if (number[i] == Char('+') || isDigit(number[i])) continue;
    tellNonDigit(a, line.Line, number, i);
    return false;
  }
  if (!rest.empty() && rest[0] == Char(',')) a.cs.report(commaAfterNumber, line.Line);
  line.Oprnd[1] = number;
  line.Oprnd[2] = rest;
  return true;
}

/// Operand 1 becomes the number of words.  False, with a self-check's message, if it is not a number: "+" is
/// accepted anywhere up to here.
template <class Char>
bool convert(Assembly& a, SrcData<Char>& line, const Message<1>& fault) {
  const ViewOf<Char> number = line.Oprnd[1];
  const ViewOf<Char> digits = number.substr(!number.empty() && number[0] == Char('+') ? 1 : 0);
  bool isNumber = !digits.empty();
  for (const auto c : digits) isNumber = isNumber && isDigit(c);
  if (!isNumber) {
    a.cs.report(fault, line.Line, plain(number));
    return false;
  }
  line.word_kazu = decimalValue(number);
  line.Word1 = 0;
  return true;
}

template <class Char>
void SetWordKazuAtDS(Assembly& a, SrcData<Char>& line) {
  if (!convert(a, line, notANumber)) return;
  if (line.word_kazu > kGreatestUnsigned) {
    a.cs.report(overMachine, line.Line);
  } else if (line.word_kazu > kGreatestImage) {
    a.cs.report(overStack, line.Line);
  }
}

}  // namespace

template <class Char>
void dispatchDS(Assembly& a, SrcData<Char>& line) {
  if (OprndAtDCtoChH(a, line) && OprndAtDS(a, line)) SetWordKazuAtDS(a, line);
}

template <class Char>
void SetMryInAtDS(Assembly& a, int prg) {
  for (SrcData<Char>& line : a.store<Char>().linesBeforeEnd(a.program<Char>(prg)))
    if (opOf(line) == Op::DS) convert(a, line, notANumberLater);
}

template void dispatchDS<char16_t>(Assembly&, SrcData<char16_t>&);
template void dispatchDS<char>(Assembly&, SrcData<char>&);
template void SetMryInAtDS<char16_t>(Assembly&, int);
template void SetMryInAtDS<char>(Assembly&, int);

RowList rowsOfDS() {
  return rows(oprndEmpty, textAfterNumber, hexNumber, minusSign, nonDigit, commaAfterNumber, notANumber,
              notANumberLater, overMachine, overStack);
}

}  // namespace zelvaro
