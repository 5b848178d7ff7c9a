// The first operand of the instructions: a register, an address, or the register of POP.
#include "diag/Quote.h"
#include "encode/Encoders.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr std::uint8_t kOthers = families(FamilyId::NWW, FamilyId::AP, FamilyId::NA);

// --- a register ---
constexpr Message noFirstRegister{
    Severity::Error,
    Head::Line,
    args("op"),
    {.ja = "{op} の右にレジスター名がない。",
     .en = "A general register(GR0-GR7) is expected at the right side of {op}. "}};
constexpr Message nothingBehindRegister{
    Severity::Error,
    Head::Line,
    args("op"),
    {.ja = "{op} の右にオペランドが必要。", .en = "An operand is expected at the right side of {op}. "},
    {{families(FamilyId::NWW),
      {.ja = "{op} 元を示すレジスター名又はアドレス名（ラベル）が必要。", .en = {}}}}};
constexpr Message noRegister{Severity::Error,
                             Head::Line,
                             args("quote", "op"),
                             {.ja = "{quote}{op} の右に正しいレジスター名が必要。",
                              .en = "{quote} is not a general register. \n"
                                    "A valid general register name is required at the right side of {op}. "},
                             {{kOthers,
                               {.ja = {},
                                .en = "A valid general register name is expected "
                                      "at the right side of {op}. "}}}};

// --- an address ---
constexpr Message registerInBranch{Severity::Error,
                                   Head::Line,
                                   args("op"),
                                   {.ja = "{op} は、一つ目のオペランドとしてレジスター GR0-GR7 をとらない。",
                                    .en = "{op} does not take a general register as the 1st operand. "}};
constexpr Message noBranchAddress{
    Severity::Error,
    Head::LineBlank,
    args("nameJa", "nameEn", "op"),
    {.ja = "{nameJa}  \n{op} は分岐先を示すアドレス名（ラベル）が必要。",
     .en = "{nameEn}:  \nAn operand is expected at the right side of the {op}. \n"
           "The operand specifies a branching address. "}};
constexpr Message noCallAddress{
    Severity::Error,
    Head::LineBlank,
    args("nameJa", "nameEn", "op"),
    {.ja = "{nameJa}  \n{op} 命令は呼び出し先を示すアドレス（ラベル）が必要。 \n"
           "ただし、他のプログラム名は指定できるが、他のプログラム内のラベルは指定できない。 ",
     .en = "{nameEn}:  \nAn operand is expected at the right side of CALL. \n"
           "CALL command calls a subroutine. "}};
constexpr Message noPushAddress{
    Severity::Error,
    Head::LineBlank,
    args("nameJa", "nameEn", "op"),
    {.ja = "{nameJa}  \n"
           "{op}命令はオペランドとして（スタック内容が格納してある）アドレス名（ラベル）が必要。",
     .en = "{nameEn}:  \nPUSH takes an address constant ( or a label) as an operand. \n"
           "The stacked contents are stored at the address. "}};
// The second line of SVC has a head of its own.
constexpr Message noServiceNumber{
    Severity::Error, Head::LineBlank, args("nameJa", "nameEn"), {.ja = "{nameJa}  ", .en = "{nameEn}:  "}};
constexpr Message serviceTakesAddress =
    Message{Severity::Error,
            Head::Line,
            args("op"),
            {.ja = "命令 {op} はオペランドとしてアドレス名（ラベル）が必要。",
             .en = "SVC takes an address constant(or a label) as an operand. "}}
        .continued();

// --- the register of POP ---
constexpr Message noPopRegister{
    Severity::Error,
    Head::Line,
    args("op"),
    {.ja = "{op} の右にレジスター名がない。", .en = "A GRx is not found at the right side of '{op}'. "}};
constexpr Message badPopRegister{
    Severity::Error,
    Head::Line,
    args("opnd", "op"),
    {.ja = "{opnd}: {op} の右に正しいレジスター名が必要。",
     .en = "{opnd}: A valid register name is expected at the right side of {op}. "}};

template <class Family>
void missingAddress(Assembly& a, const SrcOf<Family>& line) {
  const Instruction& i = instruction(opOf(line));
  switch (i.op) {
    case Op::CALL:
      a.cs.report<Family, noCallAddress>(line.Line, i.nameJa, i.nameEn, i.mnemonic);
      break;
    case Op::PUSH:
      a.cs.report<Family, noPushAddress>(line.Line, i.nameJa, i.nameEn, i.mnemonic);
      break;
    case Op::SVC:
      a.cs.report<Family, noServiceNumber>(line.Line, i.nameJa, i.nameEn);
      a.cs.report<Family, serviceTakesAddress>(line.Line, i.mnemonic);
      break;
    default:
      a.cs.report<Family, noBranchAddress>(line.Line, i.nameJa, i.nameEn, i.mnemonic);
      break;
  }
}

}  // namespace

template <class Family>
int CkOpTypeOprndOneRegister(Assembly& a, SrcOf<Family>& line) {
  const ViewOf<Family> first = line.Oprnd[1];
  if (first.empty()) a.cs.report<Family, noFirstRegister>(line.Line, mnemonicOf(line));
  if (beginsLikeRegister(first) && GRxLabelAll<Family>(a, line)) {
    if (!endsInComma(first)) a.cs.report<Family, nothingBehindRegister>(line.Line, mnemonicOf(line));
    return a.cs.ErrorKazu;
  }
  a.cs.report<Family, noRegister>(line.Line, quote(first), mnemonicOf(line));
  AnalystZenKSpace20NW<Family>(a.cs, line.Line, first);
  AnalystNW<Family>(a, line, first);
  return a.cs.ErrorKazu;
}

template <class Family>
int CkOpTypeOprndOneAddress(Assembly& a, SrcOf<Family>& line) {
  const ViewOf<Family> first = line.Oprnd[1];
  if (beginsLikeRegister(first) && GRxLabelAll<Family>(a, line, opOf(line))) {
    a.cs.report<Family, registerInBranch>(line.Line, mnemonicOf(line));
  } else if (first.empty()) {
    missingAddress<Family>(a, line);
  }
  return a.cs.ErrorKazu;
}

template <class Family>
int CkOpTypeOprndOnePop(Assembly& a, SrcOf<Family>& line) {
  const ViewOf<Family> first = line.Oprnd[1];
  if (first.empty()) a.cs.report<Family, noPopRegister>(line.Line, mnemonicOf(line));
  if (beginsLikeRegister(first) && GRxLabelAll<Family>(a, line, opOf(line))) return a.cs.ErrorKazu;
  a.cs.report<Family, badPopRegister>(line.Line, plain(first), mnemonicOf(line));
  AnalystNW<Family>(a, line, first);
  return a.cs.ErrorKazu;
}

#define ZELVARO_INSTANTIATE(F)                                    \
  template int CkOpTypeOprndOneRegister<F>(Assembly&, SrcOf<F>&); \
  template int CkOpTypeOprndOneAddress<F>(Assembly&, SrcOf<F>&);  \
  template int CkOpTypeOprndOnePop<F>(Assembly&, SrcOf<F>&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
