// A first operand that is exactly a register, and the comma after it.
#include "diag/Quote.h"
#include "encode/Encoders.h"

namespace zelvaro {
namespace {

constexpr Message commaAfterRegister{
    "comma-missing",
    Severity::Error,
    Head::Line,
    args("GRn"),
    {.ja = "{GRn} の右にコンマが必要！", .en = "A comma is expected at the right side of {GRn}. "}};
constexpr Message commaAfterPop{
    "pop-comma",
    Severity::Warning,
    Head::Line,
    args("GRn"),
    {.ja = "{GRn} の右にコンマは不要です。", .en = "A comma at the right side of {GRn} is of no use. "}};
constexpr Message registerForAddress{
    "register-for-address",
    Severity::Error,
    Head::Line,
    args("op"),
    {.ja = "{op} は第一オペランドとしてレジスタ名をとらない。\n"
           "アドレス定数を第一オペランドとする。（COMET2の仕様 1.2）",
     .en = "\nThe 1st operand of {op} is an address constant. (Spec. of COMET2  1.2)\n"
           "The opcode {op} does not take a general register as the 1st operand."},
    {{kNWW | kNarrow,
      {.ja = "{op} は一つめオペランドとしてレジスタ名をとらない。\nアドレス定数をオペランドとする。",
       .en = "\nThe opcode {op} does not take a general register "
             "but an address constant as the first operand.  "}}}};

/// Operand 1 without its comma if it is exactly a register, else an empty view.
template <class Char>
std::basic_string_view<Char> registerInOprndOne(const SrcData<Char>& line) {
  std::basic_string_view<Char> text = line.Oprnd[1];
  if (line.Oprnd[0].empty()) return {};
  if (endsInComma(text)) text.remove_suffix(1);
  return isReservedWord(text) ? text : std::basic_string_view<Char>();
}

}  // namespace

template <class Char>
bool GRxLabelAll(Assembly& a, const SrcData<Char>& line) {
  const ViewOf<Char> GRn = registerInOprndOne(line);
  if (GRn.empty()) return false;
  if (!endsInComma(line.Oprnd[1])) a.cs.report(commaAfterRegister, line.Line, plain(GRn));
  return true;
}

template <class Char>
bool GRxLabelAll(Assembly& a, const SrcData<Char>& line, Op op) {
  const ViewOf<Char> GRn = registerInOprndOne(line);
  if (GRn.empty()) return false;
  switch (instruction(op).form) {
    case OpForm::Single:
      if (endsInComma(line.Oprnd[1])) a.cs.report(commaAfterPop, line.Line, plain(GRn));
      break;
    case OpForm::Branch:
    case OpForm::InOut:
      a.cs.report(registerForAddress, line.Line, instruction(op).mnemonic);
      break;
    default:
      break;
  }
  return true;
}

template bool GRxLabelAll<char16_t>(Assembly&, const SrcData<char16_t>&);
template bool GRxLabelAll<char>(Assembly&, const SrcData<char>&);
template bool GRxLabelAll<char16_t>(Assembly&, const SrcData<char16_t>&, Op);
template bool GRxLabelAll<char>(Assembly&, const SrcData<char>&, Op);

RowList rowsOfGRxLabelAll() {
  return rows(commaAfterRegister, commaAfterPop, registerForAddress);
}

}  // namespace zelvaro
