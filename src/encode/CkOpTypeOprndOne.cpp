// The first operand of the instructions: a register, an address, or the register of POP.
#include "diag/Quote.h"
#include "encode/Encoders.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

// --- a register ---
constexpr Message noFirstRegister{
    "register-missing",
    Severity::Error,
    Head::Line,
    args("op"),
    {.ja = "{op} の右にレジスター名がない。",
     .en = "A general register(GR0-GR7) is expected at the right side of {op}. "}};
constexpr Message nothingAfterRegister{
    "operand-missing",
    Severity::Error,
    Head::Line,
    args("op"),
    {.ja = "{op} の右にオペランドが必要。", .en = "An operand is expected at the right side of {op}. "},
    {{kNWW, {.ja = "{op} 元を示すレジスター名又はアドレス名（ラベル）が必要。", .en = {}}}}};
constexpr Message noRegister{"register-invalid",
                             Severity::Error,
                             Head::Line,
                             args("quote", "op"),
                             {.ja = "{quote}{op} の右に正しいレジスター名が必要。",
                              .en = "{quote} is not a general register. \n"
                                    "A valid general register name is required at the right side of {op}. "},
                             {{kNWW | kNarrow,
                               {.ja = {},
                                .en = "A valid general register name is expected "
                                      "at the right side of {op}. "}}}};

// --- an address ---
constexpr Message registerInBranch{"branch-takes-address",
                                   Severity::Error,
                                   Head::Line,
                                   args("op"),
                                   {.ja = "{op} は、一つ目のオペランドとしてレジスター GR0-GR7 をとらない。",
                                    .en = "{op} does not take a general register as the 1st operand. "}};
constexpr Message noBranchAddress{
    "branch-address-missing",
    Severity::Error,
    Head::LineBlank,
    args("nameJa", "nameEn", "op"),
    {.ja = "{nameJa}  \n{op} は分岐先を示すアドレス名（ラベル）が必要。",
     .en = "{nameEn}:  \nAn operand is expected at the right side of the {op}. \n"
           "The operand specifies a branching address. "}};
constexpr Message noCallAddress{
    "call-address-missing",
    Severity::Error,
    Head::LineBlank,
    args("nameJa", "nameEn", "op"),
    {.ja = "{nameJa}  \n{op} 命令は呼び出し先を示すアドレス（ラベル）が必要。 \n"
           "ただし、他のプログラム名は指定できるが、他のプログラム内のラベルは指定できない。 ",
     .en = "{nameEn}:  \nAn operand is expected at the right side of CALL. \n"
           "CALL command calls a subroutine. "}};
constexpr Message noPushAddress{
    "push-address-missing",
    Severity::Error,
    Head::LineBlank,
    args("nameJa", "nameEn", "op"),
    {.ja = "{nameJa}  \n"
           "{op}命令はオペランドとして（スタック内容が格納してある）アドレス名（ラベル）が必要。",
     .en = "{nameEn}:  \nPUSH takes an address constant ( or a label) as an operand. \n"
           "The stacked contents are stored at the address. "}};
// The second line of SVC has a head of its own.
constexpr Message noServiceNumber{"svc-number-missing",
                                  Severity::Error,
                                  Head::LineBlank,
                                  args("nameJa", "nameEn"),
                                  {.ja = "{nameJa}  ", .en = "{nameEn}:  "}};
constexpr Message serviceTakesAddress =
    Message{"svc-takes-address",
            Severity::Error,
            Head::Line,
            args("op"),
            {.ja = "命令 {op} はオペランドとしてアドレス名（ラベル）が必要。",
             .en = "SVC takes an address constant(or a label) as an operand. "}}
        .continued();

// --- the register of POP ---
constexpr Message noPopRegister{
    "pop-register-missing",
    Severity::Error,
    Head::Line,
    args("op"),
    {.ja = "{op} の右にレジスター名がない。", .en = "A GRx is not found at the right side of '{op}'. "}};
constexpr Message badPopRegister{
    "pop-register",
    Severity::Error,
    Head::Line,
    args("opnd", "op"),
    {.ja = "{opnd}: {op} の右に正しいレジスター名が必要。",
     .en = "{opnd}: A valid register name is expected at the right side of {op}. "}};

template <class Char>
void missingAddress(Assembly& a, const SrcData<Char>& line) {
  const Instruction& i = instruction(opOf(line));
  switch (i.op) {
    case Op::CALL:
      a.cs.report(noCallAddress, line.Line, i.nameJa, i.nameEn, i.mnemonic);
      break;
    case Op::PUSH:
      a.cs.report(noPushAddress, line.Line, i.nameJa, i.nameEn, i.mnemonic);
      break;
    case Op::SVC:
      a.cs.report(noServiceNumber, line.Line, i.nameJa, i.nameEn);
      a.cs.report(serviceTakesAddress, line.Line, i.mnemonic);
      break;
    default:
      a.cs.report(noBranchAddress, line.Line, i.nameJa, i.nameEn, i.mnemonic);
      break;
  }
}

}  // namespace

template <class Char>
bool CkOpTypeOprndOneRegister(Assembly& a, SrcData<Char>& line) {
  const ViewOf<Char> first = line.Oprnd[1];
  if (first.empty()) a.cs.report(noFirstRegister, line.Line, mnemonicOf(line));
  if (beginsLikeRegister(first) && GRxLabelAll(a, line)) {
    if (!endsInComma(first)) a.cs.report(nothingAfterRegister, line.Line, mnemonicOf(line));
    return a.cs.ErrorKazu == 0;
  }
  a.cs.report(noRegister, line.Line, quote(first), mnemonicOf(line));
  AnalystZenKSpace20NW(a.cs, line.Line, first);
  AnalystNW(a, line, first);
  return a.cs.ErrorKazu == 0;
}

template <class Char>
bool CkOpTypeOprndOneAddress(Assembly& a, SrcData<Char>& line) {
  const ViewOf<Char> first = line.Oprnd[1];
  if (beginsLikeRegister(first) && GRxLabelAll(a, line, opOf(line))) {
    a.cs.report(registerInBranch, line.Line, mnemonicOf(line));
  } else if (first.empty()) {
    missingAddress(a, line);
  }
  return a.cs.ErrorKazu == 0;
}

template <class Char>
bool CkOpTypeOprndOnePop(Assembly& a, SrcData<Char>& line) {
  const ViewOf<Char> first = line.Oprnd[1];
  if (first.empty()) a.cs.report(noPopRegister, line.Line, mnemonicOf(line));
  if (beginsLikeRegister(first) && GRxLabelAll(a, line, opOf(line))) return a.cs.ErrorKazu == 0;
  a.cs.report(badPopRegister, line.Line, plain(first), mnemonicOf(line));
  AnalystNW(a, line, first);
  return a.cs.ErrorKazu == 0;
}

template bool CkOpTypeOprndOneRegister<char16_t>(Assembly&, SrcData<char16_t>&);
template bool CkOpTypeOprndOneRegister<char>(Assembly&, SrcData<char>&);
template bool CkOpTypeOprndOneAddress<char16_t>(Assembly&, SrcData<char16_t>&);
template bool CkOpTypeOprndOneAddress<char>(Assembly&, SrcData<char>&);
template bool CkOpTypeOprndOnePop<char16_t>(Assembly&, SrcData<char16_t>&);
template bool CkOpTypeOprndOnePop<char>(Assembly&, SrcData<char>&);

RowList rowsOfCkOpTypeOprndOne() {
  return rows(noFirstRegister, nothingAfterRegister, noRegister, registerInBranch, noBranchAddress,
              noCallAddress, noPushAddress, noServiceNumber, serviceTakesAddress, noPopRegister,
              badPopRegister);
}

}  // namespace zelvaro
