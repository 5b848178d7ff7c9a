// macroR2: RPUSH and RPOP, which take no operand.
#include "diag/Quote.h"
#include "macro/Macro.h"

namespace zelvaro {
namespace {

// A guard: the dispatcher sends RPUSH and RPOP only.
constexpr Message noMacro =
    Message{"self-macro-registers",
            Severity::Error,
            Head::Line,
            args("op"),
            {.ja = "該当するマクロ命令がない。", .en = "{op} is not a macro instruction. "}}
        .unlogged();

}  // namespace

template <class Char>
void macroR2(Assembly& a, SrcData<Char>& line) {
  if (!line.hasOprnd(0) || !line.hasOprnd(1) || !line.hasOprnd(2)) return;
  const Op op = opOf(line);
  if (op != Op::RPUSH && op != Op::RPOP) {
    a.cs.report(noMacro, line.Line, plain(line.OpStr));
    return;
  }
  line.word_kazu = op == Op::RPUSH ? kRpushWords : kRpopWords;
  if (OpNoOperand(a, line)) return;
  for (std::size_t n = 1; n <= 3; ++n) line.Oprnd[n] = line.Oprnd[n].substr(0, 0);
}

template void macroR2<char16_t>(Assembly&, SrcData<char16_t>&);
template void macroR2<char>(Assembly&, SrcData<char>&);

RowList rowsOfMacroR2() {
  return rows(noMacro);
}

}  // namespace zelvaro
