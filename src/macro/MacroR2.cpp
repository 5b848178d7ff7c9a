// macroR2: RPUSH and RPOP, which take no operand.
#include "diag/Quote.h"
#include "macro/Macro.h"

namespace zelvaro {
namespace {

// A guard: the dispatcher sends RPUSH and RPOP only.
constexpr Message noMacro =
    Message{Severity::Error,
            Head::Line,
            args("op"),
            {.ja = "該当するマクロ命令がない。", .en = "{op} is not a macro instruction. "}}
        .unlogged();

}  // namespace

template <class Family>
void macroR2(Assembly& a, SrcOf<Family>& line) {
  if (!line.hasOprnd(0) || !line.hasOprnd(1) || !line.hasOprnd(2)) return;
  const Op op = opOf(line);
  if (op != Op::RPUSH && op != Op::RPOP) {
    a.cs.report<Family, noMacro>(line.Line, plain(line.OpStr));
    return;
  }
  line.word_kazu = op == Op::RPUSH ? kRpushWords : kRpopWords;
  if (OpNoOperand<Family>(a, line)) return;
  for (std::size_t n = 1; n <= 3; ++n) line.Oprnd[n] = line.Oprnd[n].substr(0, 0);
  line.OprndKazu = 0;
}

#define ZELVARO_INSTANTIATE(F) template void macroR2<F>(Assembly&, SrcOf<F>&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
