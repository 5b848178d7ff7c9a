// The encoders, one function a form.  The encoder of a mnemonic (adda2NWPCS, adda2APCS ... xor2APCS) is that
// of its form, on the codes and rules of its row of the instruction table.
//
// An encoder stops where CkOpTypeOprndOne* gives false.  It looks at the tally of `cs`, not at a count for
// the line, so after the first Error of a program every line is checked only up to its first operand.
#include "encode/Encoders.h"

namespace zelvaro {
namespace {

constexpr Message registerRefused{"sra-register-form",
                                  Severity::Error,
                                  Head::Line,
                                  args(),
                                  {.ja = ": SRA 命令は SRA r1,r2 形式をとらない。Format1: SRA r1,adr\n"
                                         "Format2: SRA r1,adr,r2\n",
                                   .en = "SRA does not take a format of SRA r1, r2. Format1: SRA r1,adr\n"
                                         "Format2: SRA r1,adr,r2\n"}};
constexpr Message addressNotBuilt{"address-not-built", Severity::Notice, Head::None, args(),
                                  bothLanguages("some error about word_kazu[i]; !")};
constexpr Message serviceInSource{
    "svc-in-source",
    Severity::Warning,
    Head::Line,
    args(),
    {.ja =
         " ソースコードに直接 SVC 命令を記述しないでください。SVC 1 の場合、COMET2 は暴走します。 "
         "（将来のバージョンで修正します。）マクロ命令 IN, OUT の中で使われる SVC1, SVC2 "
         "については問題はおこりません。COMET2 の仕様に現在のところ SVC の具体的な記述がなく動作は定まっていません。",
     .en = "Do not write SVC 1 in the source code, or the comet2 will run out of control. "
           "SVC 1 in Macro IN and OUT does not cause this problem. "
           "There does not exist any exact definition about SVC in the Spec. of CASL2 at present. "},
    {{kNWW,
      {.ja = {},
       .en = "Do not write SVC 1 in the source code, or the comet2 will run out of control. "
             "SVC 1 expanded by Macro IN and OUT does not cause this problem. "
             "A fine definition about SVC does not exist in the Spec. of CASL2 at present. "}},
     {kNarrow,
      {.ja = {},
       .en = "Do not write SVC 1 in the source code, or the comet2 will run out of control. "
             "SVC 1 expanded in Macro IN and OUT instructions does not cause this problem. "
             "There is not any exact definition about SVC in the casl2 specification at present. "}},
     {kNH,
      {.ja = {},
       .en = "Do not write SVC 1 in the source code, or the comet2 will run out of control. "
             "SVC 1 expanded in Macro IN and OUT instructions does not cause this problem. "
             "There is not any fine definition about SVC in the Spec. of CASL2 at present. "}}}};

template <class View>
constexpr bool isRegisterForm(SecondOprnd rule, View second) {
  return rule == SecondOprnd::Begins ? beginsLikeRegister(second) : isReservedWord(second);
}

template <class View>
constexpr bool isRefused(SecondOprnd rule, View second) {
  return beginsLikeRegister(second, rule == SecondOprnd::Refuse9 ? '9' : '7') &&
         (second.size() == 3 || isBlank(second[3]));
}

/// Writes the register of operand 1 to field r and removes its comma.  False: the line is not encoded
/// further.
template <class Char>
bool firstRegister(Assembly& a, SrcData<Char>& line) {
  line.Word1 = 0;
  if (!CkOpTypeOprndOneRegister(a, line)) return false;
  line.Word1 |= firstWord(0, registerNumber(line.Oprnd[1]));
  line.Oprnd[1] = line.Oprnd[1].substr(0, 3);
  return true;
}

/// r,adr[,x]
template <class Char>
void addressWay(Assembly& a, SrcData<Char>& line) {
  CkAdrOperand(a, line, 2);
  if (line.word_kazu == 2) line.Word1 |= firstWord(instruction(opOf(line)).adrCode);
  RegX(a, line, 3);
}

/// r,adr[,x] in two words, or r1,r2 in one.
template <class Char>
void encodeBoth(Assembly& a, SrcData<Char>& line) {
  const Instruction& row = instruction(opOf(line));
  if (a.family.asksForOprndsOfLD && row.extra == OpExtra::MissingFirst) {
    if (line.Oprnd[1].empty()) return MissingFirstOprnd(a, line.Line);
    if (line.Oprnd[2].empty()) return MissingSecondOprnd(a, row.op, line.Line);
  }
  if (!firstRegister(a, line)) return;
  if (line.Oprnd[2].empty()) MissingSecondOprnd(a, row.op, line.Line);
  if (!isRegisterForm(row.second, line.Oprnd[2])) return addressWay(a, line);
  line.Word1 |= firstWord(0, 0, registerNumber(line.Oprnd[2]));
  if (!r2(a, line)) return;
  line.word_kazu = 1;
  line.Word1 |= firstWord(row.regCode);
}

/// r,adr[,x] only.
template <class Char>
void encodeMemory(Assembly& a, SrcData<Char>& line) {
  const Instruction& row = instruction(opOf(line));
  if (!firstRegister(a, line)) return;
  if (line.Oprnd[2].empty()) MissingSecondOprnd(a, row.op, line.Line);
  if (row.extra == OpExtra::WarnsGR89) AnalystGR89(a, line);
  if (!isRefused(row.second, line.Oprnd[2])) return addressWay(a, line);
  if (row.extra == OpExtra::OwnRefusal) {
    a.cs.report(registerRefused, line.Line);
  } else {
    DspSyntaxErrorMsg(a, line);
    a.cs.countError();
  }
}

/// adr[,x]
template <class Char>
void encodeBranch(Assembly& a, SrcData<Char>& line) {
  const Instruction& row = instruction(opOf(line));
  line.Word1 = 0;
  if (!CkOpTypeOprndOneAddress(a, line)) return;
  CkAdrOperand(a, line, 1);
  if (line.word_kazu == 2) {
    line.Word1 |= firstWord(row.adrCode);
  } else {
    a.cs.report(addressNotBuilt, line.Line);
  }
  if (row.extra == OpExtra::WarnsAlways) a.cs.report(serviceInSource, line.Line);
  RegX(a, line, 2);
}

/// r only.  The text after the register is ignored.
template <class Char>
void encodeSingle(Assembly& a, SrcData<Char>& line) {
  line.Word1 = firstWord(instruction(opOf(line)).adrCode);
  if (!CkOpTypeOprndOnePop(a, line)) return;
  line.Word1 |= firstWord(0, registerNumber(line.Oprnd[1]));
  line.Word2 = 0;
  line.word_kazu = 1;
  line.Oprnd[1] = line.Oprnd[1].substr(0, 3);
  for (std::size_t n = 2; n < line.Oprnd.size(); ++n) line.Oprnd[n] = emptied(line.Oprnd[n]);
}

}  // namespace

template <class Char>
void encode(Assembly& a, SrcData<Char>& line) {
  a.cs.CommaAriFlag = false;
  switch (instruction(opOf(line)).form) {
    case OpForm::Both:
      return encodeBoth(a, line);
    case OpForm::Memory:
      return encodeMemory(a, line);
    case OpForm::Branch:
      return encodeBranch(a, line);
    case OpForm::Single:
      return encodeSingle(a, line);
    default:
      return;
  }
}

template void encode<char16_t>(Assembly&, SrcData<char16_t>&);
template void encode<char>(Assembly&, SrcData<char>&);

RowList rowsOfEncoders() {
  return rows(registerRefused, addressNotBuilt, serviceInSource);
}

}  // namespace zelvaro
