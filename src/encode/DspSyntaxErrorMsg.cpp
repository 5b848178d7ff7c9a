// The refusal of the form r1,r2, shared by the instructions that only take an address.
#include "diag/Quote.h"
#include "encode/Encoders.h"

namespace zelvaro {
namespace {

constexpr Message noRegisterForm = Message{
    "register-form-refused",
    Severity::Error,
    Head::Line,
    args("op"),
    {.ja = "{op} 命令は {op} r1, r2 形式をとらない。\n"
           "{op} r1,adr または {op} r1, adr, r2(COMET2の仕様 1.2命令(1)）",
     .en = "{op} cannot be written in a format of {op} r1, r2. \n"
           "The 2nd operand of {op} must be an address constant(or a label). "
           "(Spec.of COMET2 1.2 (1))"}}.uncounted();

}  // namespace

template <class Char>
void DspSyntaxErrorMsg(Assembly& a, const SrcData<Char>& line) {
  a.cs.report(noRegisterForm, line.Line, mnemonicOf(line));
}

template void DspSyntaxErrorMsg<char16_t>(Assembly&, const SrcData<char16_t>&);
template void DspSyntaxErrorMsg<char>(Assembly&, const SrcData<char>&);

RowList rowsOfDspSyntaxErrorMsg() {
  return rows(noRegisterForm);
}

}  // namespace zelvaro
