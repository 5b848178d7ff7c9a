// macro2: the operand text of IN and OUT.  An operand includes the comma after it.
#include "diag/Quote.h"
#include "macro/Macro.h"

namespace zelvaro {
namespace {

constexpr Message commaExpected =
    Message{"macro-comma-missing",
            Severity::Error,
            Head::Line,
            args(),
            {.ja = "マクロ命令の１番目のオペランドの右にコンマが必要です。　IN と OUT "
                   "のマクロ命令はオペランドを2つとる。",
             .en = "A comma is expected at the right side of the first operand. "
                   "Each of the IN and OUT macro instructions takes two operands. "}}
        .unlogged();
constexpr Message commaOfNoUse =
    Message{
        "macro-comma",
        Severity::Warning,
        Head::Line,
        args(),
        {.ja = "二つ目のオペランドの右のコンマは不要です。空白が適切です。 ",
         .en = "A comma is of no use at the right side of the second operand. It should be deleted. "},
        {{kNWW | kNarrow,
          {.ja = {},
           .en = "A comma at the right side of the second operand is of no use.  It should be deleted. "}}}}
        .unlogged();
// A guard: the dispatcher sends IN and OUT only.
constexpr Message noMacro =
    Message{"self-macro-in-out",
            Severity::Error,
            Head::Line,
            args("op"),
            {.ja = "該当するマクロ命令がない。", .en = ": '{op}' is not a macro instruction in casl2. "}}
        .unlogged();

}  // namespace

template <class Char>
void macro2(Assembly& a, SrcData<Char>& line) {
  if (!line.hasOprnd(0) || !line.hasOprnd(1) || !line.hasOprnd(2)) return;
  line.word_kazu = kInOutWords;

  ViewOf<Char>& first = line.Oprnd[1];
  if (first.ends_with(Char(','))) {
    first.remove_suffix(1);
    if (!first.empty() && isBlank(first.back())) first.remove_suffix(1);
  } else {
    a.cs.report(commaExpected, line.Line);
  }
  ViewOf<Char>& second = line.Oprnd[2];
  if (second.ends_with(Char(','))) {
    second.remove_suffix(1);
    a.cs.report(commaOfNoUse, line.Line);
  } else if (!second.empty() && isBlank(second.back())) {
    second.remove_suffix(1);
    line.Oprnd[3] = line.Oprnd[3].substr(0, 0);
  }
  if (opOf(line) != Op::IN && opOf(line) != Op::OUT) a.cs.report(noMacro, line.Line, plain(line.OpStr));
}

template void macro2<char16_t>(Assembly&, SrcData<char16_t>&);
template void macro2<char>(Assembly&, SrcData<char>&);

RowList rowsOfMacro2() {
  return rows(commaExpected, commaOfNoUse, noMacro);
}

}  // namespace zelvaro
