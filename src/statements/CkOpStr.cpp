// Opcode recognition.  An opcode matches exactly or not at all; a wrong one is explained, never repaired.
// The first unknown opcode of a program ends the stage.
#include <algorithm>
#include <array>

#include "diag/Limits.h"
#include "diag/Quote.h"
#include "statements/Statements.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message notAnInstruction{
    "opcode-unknown",
    Severity::Error,
    Head::LineBare,
    args("quote", "op"),
    {.ja =
         "{quote} は アセンブラ命令 でも 機械語命令 でも マクロ命令 でもない。  正しい 命令語 の記述が必要です。 ",
     .en = "{quote} is not an assembler, machine, or macro instruction. "},
    {{kNH,
      {.ja = {},
       .en = ": '{op}' is neither an assembler, machine, nor macro instruction. "
             "A valid instruction code is expected. "}}}};
constexpr Message opTooLong{
    "opcode-length",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja =
         "{quote} は アセンブラ命令 でも 機械語命令 でも マクロ命令 でもない。  正しい 命令語 の記述が必要です。 ",
     .en = "There does not exist any operator which consists of more than 5 characters. "}};
constexpr Message fullWidthLetter =
    Message{"opcode-full-width",
            Severity::Error,
            Head::Line,
            args(),
            {.ja = "全角の空白文字がある。", .en = "A full-width letter is found. "},
            {{kNarrow, {.ja = {}, .en = "A full-width space is found. "}}}}
        .withHead(bothLanguages("Error: "));
constexpr Message gluedSemicolon{
    "opcode-semicolon",
    Severity::Error,
    Head::Bare,
    args("quote"),
    {.ja = "{quote}\nオペランドをとらない命令（NOP, RPUSH, RPOP, RET, END）の右に記述する\n"
           "コメントには、命令の直後にひとつ以上の空白と セミコロン; が必要。\n"
           "例１： RPUSH; GR1 - GR7　の内容をスタックへ格納(正）\n"
           "例２： RPUSH;GR1-GR7　の内容をスタックへ格納 (誤）\n"
           "仕様２．１（４）表の３行目",
     .en = "{quote}: \n"
           "NOP, RPUSH, RPOP, RET, and END do not take any operand, but a space at the right side. \n"
           "One space or more are expected between the opcode and a comment mark(;).\n"
           "Example 1: RPUSH ;Comments (Good)\n"
           "Example 2: RPUSH;Comments  (Error)\n"
           "Spec. 2. 1, Table (4) Row 3."}};
constexpr Message smallLetter{
    "opcode-lower-case",
    Severity::Error,
    Head::Line,
    args("op"),
    {.ja = ": 演算子 {op} の中に小文字がある。", .en = "A lowercase letter is found. in {op}. "},
    {{kNarrow, {.ja = {}, .en = "A lowercase letter is found in '{op}'. "}},
     {kNH, {.ja = {}, .en = "There is a small letter in {op}. "}}}};
constexpr Message commaAfterOpcode{
    "opcode-comma",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "演算子の右は空白にする。コンマは不要です。 ",
     .en = "A space is expected at the right side of the opcode. A comma is of no use. "}};

/// Reports a semicolon directly after an opcode without operands, as it was written.  True if it reported.
/// Only the first opcode that the word contains is searched.
template <class Char>
bool RemoveNoOprndOpSemiColn(Assembly& a, const SrcData<Char>& line) {
  constexpr auto npos = ViewOf<Char>::npos;
  constexpr std::array kNoOprnd{Op::NOP, Op::RPUSH, Op::RPOP, Op::RET, Op::END};
  const auto held = std::find_if(kNoOprnd.begin(), kNoOprnd.end(), [&line](Op op) {
    return find(line.OpStr, instruction(op).mnemonic) != npos;
  });
  if (held == kNoOprnd.end()) return false;
  const std::string glued = std::string(instruction(*held).mnemonic) + ";";
  if (find(line.SrcStr, " " + glued) == npos && find(line.SrcStr, "\t" + glued) == npos) return false;
  a.cs.report(gluedSemicolon, line.Line, QuoteStrA(" " + glued));
  return true;
}

/// Reports a comma at the end of the opcode.  A longer word is cut at the length of the buffer.
template <class Char>
void AnalystOP(Assembly& a, const SrcData<Char>& line) {
  constexpr std::size_t kBuffer = 94;
  if (line.OpStr.substr(0, kBuffer).back() == ',') a.cs.report(commaAfterOpcode, line.Line);
}

template <class Char>
void explainUnknown(Assembly& a, const SrcData<Char>& line) {
  a.cs.report(notAnInstruction, line.Line, quote(line.OpStr), plain(line.OpStr));
  if (AnalystZenKSpace20NW(a.cs, line.Line, line.OpStr)) a.cs.report(fullWidthLetter, line.Line);
  if (RemoveNoOprndOpSemiColn(a, line)) a.cs.countError();
  if (lowerCaseTest(line.OpStr) > 0) a.cs.report(smallLetter, line.Line, plain(line.OpStr));
  AnalystOP(a, line);
}

}  // namespace

template <class Char>
void CkOpStr(Assembly& a, int prg) {
  for (SrcData<Char>& line : a.store<Char>().linesWithEnd(a.program<Char>(prg))) {
    if (line.OpStr.empty()) continue;
    if (line.OpStr.size() > a.family.opLength) {
      a.cs.report(opTooLong, line.Line, quote(line.OpStr));
      return;
    }
    const Op op = findOp(line.OpStr, a.family.knowsEXIT ? Mnemonics::WithEXIT : Mnemonics::Common);
    line.OpNr = static_cast<std::int16_t>(op);
    if (op != Op::Unknown) continue;
    explainUnknown(a, line);
    return;
  }
}

template void CkOpStr<char16_t>(Assembly&, int);
template void CkOpStr<char>(Assembly&, int);

RowList rowsOfCkOpStr() {
  return rows(notAnInstruction, opTooLong, fullWidthLetter, gluedSemicolon, smallLetter, commaAfterOpcode);
}

}  // namespace zelvaro
