// An operand on an instruction that takes none.
#include "diag/Quote.h"
#include "encode/Encode.h"

namespace zelvaro {
namespace {

constexpr Message takesNoOperand =
    Message{"no-operand-taken",
            Severity::Error,
            Head::Line,
            args("quote"),
            {.ja = "{quote}オペランドをとらない命令（NOP, RET, END）の右のコメントには\n"
                   "必ず一個の空白とセミコロン（；）が必要。 例： RET ;コメント (仕様２．１の（４）)   ",
             .en = "{quote}NOP, RET, and END do not take any operand. One space and a comment mark(;) are "
                   "expected between the instruction code and a comment description. \n"
                   "Good Example: RET ;Comment (Spec. of CASL2 2.1 (4)) "}}
        .withHead({.ja = "エラー：{line} 行目： ", .en = "Error : line {line}: "});

}  // namespace

template <class Char>
bool OpNoOperand(Assembly& a, SrcData<Char>& line) {
  if (line.Oprnd[1].empty()) return false;
  a.cs.report(takesNoOperand, line.Line, quote(line.Oprnd[1]));
  return true;
}

template bool OpNoOperand<char16_t>(Assembly&, SrcData<char16_t>&);
template bool OpNoOperand<char>(Assembly&, SrcData<char>&);

RowList rowsOfOpNoOperand() {
  return rows(takesNoOperand);
}

}  // namespace zelvaro
