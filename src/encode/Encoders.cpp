// The encoders, one function a form.  The encoder of a mnemonic (adda2NWPCS, adda2APCS ... xor2APCS) is that
// of its form, on the codes and rules of its row of the instruction table.
//
// An encoder stops where CkOpTypeOprndOne* gives a value above 0.  That value is the tally of `cs`, not a
// count for the line, so behind the first Error of a program every line is checked up to its first operand.
#include "encode/Encoders.h"

namespace zelvaro {
namespace {

constexpr Message registerRefused{Severity::Error,
                                  Head::Line,
                                  args(),
                                  {.ja = ": SRA 命令は SRA r1,r2 形式をとらない。Format1: SRA r1,adr\n"
                                         "Format2: SRA r1,adr,r2\n",
                                   .en = "SRA does not take a format of SRA r1, r2. Format1: SRA r1,adr\n"
                                         "Format2: SRA r1,adr,r2\n"}};
constexpr Message addressNotBuilt =
    Message{Severity::Plain, Head::None, args(), bothLanguages("some error about word_kazu[i]; !")}
        .unlogged();
constexpr Message serviceInSource{
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
    {{families(FamilyId::NWW),
      {.ja = {},
       .en = "Do not write SVC 1 in the source code, or the comet2 will run out of control. "
             "SVC 1 expanded by Macro IN and OUT does not cause this problem. "
             "A fine definition about SVC does not exist in the Spec. of CASL2 at present. "}},
     {families(FamilyId::AP, FamilyId::NA),
      {.ja = {},
       .en = "Do not write SVC 1 in the source code, or the comet2 will run out of control. "
             "SVC 1 expanded in Macro IN and OUT instructions does not cause this problem. "
             "There is not any exact definition about SVC in the casl2 specification at present. "}},
     {families(FamilyId::NH),
      {.ja = {},
       .en = "Do not write SVC 1 in the source code, or the comet2 will run out of control. "
             "SVC 1 expanded in Macro IN and OUT instructions does not cause this problem. "
             "There is not any fine definition about SVC in the casl2 specification at present. "}}}};

template <class View>
constexpr bool isRegisterForm(SecondOprnd rule, View second) {
  return rule == SecondOprnd::Begins ? beginsLikeRegister(second) : isReservedWord(second);
}

template <class View>
constexpr bool isRefused(SecondOprnd rule, View second) {
  return beginsLikeRegister(second, rule == SecondOprnd::Refuse9 ? '9' : '7') &&
         (second.size() == 3 || isBlank(second[3]));
}

/// Puts the register of operand 1 into field r and takes the comma off.  False: the line stops here.
template <class Family>
bool firstRegister(Assembly& a, SrcOf<Family>& line) {
  line.Word1 = 0;
  if (CkOpTypeOprndOneRegister<Family>(a, line) > 0) return false;
  line.Word1 |= firstWord(0, registerNumber(line.Oprnd[1]));
  line.Oprnd[1] = line.Oprnd[1].substr(0, 3);
  return true;
}

/// r,adr[,x]
template <class Family>
void addressWay(Assembly& a, SrcOf<Family>& line) {
  CkAdrOperand<Family>(a, line, 2);
  if (line.word_kazu == 2) line.Word1 |= firstWord(instruction(opOf(line)).adrCode);
  RegX<Family>(a, line, 3);
}

/// r,adr[,x] in two words, or r1,r2 in one.
template <class Family>
void encodeBoth(Assembly& a, SrcOf<Family>& line) {
  const Instruction& row = instruction(opOf(line));
  if (Family::asksForOprndsOfLD && row.extra == OpExtra::TellsMissing) {
    if (line.Oprnd[1].empty()) return MissingFirstOprnd<Family>(a, line);
    if (line.Oprnd[2].empty()) return MissingSecondOprnd<Family>(a, line);
  }
  if (!firstRegister<Family>(a, line)) return;
  if (line.Oprnd[2].empty()) MissingSecondOprnd<Family>(a, line);
  if (!isRegisterForm(row.second, line.Oprnd[2])) return addressWay<Family>(a, line);
  line.Word1 |= firstWord(0, 0, registerNumber(line.Oprnd[2]));
  if (r2<Family>(a, line) != 0) return;
  line.word_kazu = 1;
  line.Word1 |= firstWord(row.regCode);
}

/// r,adr[,x] only.
template <class Family>
void encodeMemory(Assembly& a, SrcOf<Family>& line) {
  const Instruction& row = instruction(opOf(line));
  if (!firstRegister<Family>(a, line)) return;
  if (line.Oprnd[2].empty()) MissingSecondOprnd<Family>(a, line);
  if (row.extra == OpExtra::WarnsGR89) AnalystGR89<Family>(a, line);
  if (!isRefused(row.second, line.Oprnd[2])) return addressWay<Family>(a, line);
  if (row.extra == OpExtra::OwnRefusal) {
    a.cs.report<Family, registerRefused>(line.Line);
  } else {
    DspSyntaxErrorMsg<Family>(a, line);
    a.cs.countError();
  }
}

/// adr[,x]
template <class Family>
void encodeBranch(Assembly& a, SrcOf<Family>& line) {
  const Instruction& row = instruction(opOf(line));
  line.Word1 = 0;
  if (CkOpTypeOprndOneAddress<Family>(a, line) > 0) return;
  CkAdrOperand<Family>(a, line, 1);
  if (line.word_kazu == 2) {
    line.Word1 |= firstWord(row.adrCode);
  } else {
    a.cs.report<Family, addressNotBuilt>(line.Line);
  }
  if (row.extra == OpExtra::WarnsAlways) a.cs.report<Family, serviceInSource>(line.Line);
  RegX<Family>(a, line, 2);
}

/// r only.  What stands behind the register is dropped.
template <class Family>
void encodeSingle(Assembly& a, SrcOf<Family>& line) {
  line.Word1 = firstWord(instruction(opOf(line)).adrCode);
  if (CkOpTypeOprndOnePop<Family>(a, line) > 0) return;
  line.Word1 |= firstWord(0, registerNumber(line.Oprnd[1]));
  line.Word2 = 0;
  line.word_kazu = 1;
  line.Oprnd[1] = line.Oprnd[1].substr(0, 3);
  for (std::size_t n = 2; n < line.Oprnd.size(); ++n) line.Oprnd[n] = emptied(line.Oprnd[n]);
}

}  // namespace

template <class Family>
void encode(Assembly& a, SrcOf<Family>& line) {
  a.cs.CommaAriFlag = false;
  switch (instruction(opOf(line)).form) {
    case OpForm::Both:
      return encodeBoth<Family>(a, line);
    case OpForm::Memory:
      return encodeMemory<Family>(a, line);
    case OpForm::Branch:
      return encodeBranch<Family>(a, line);
    case OpForm::Single:
      return encodeSingle<Family>(a, line);
    default:
      return;
  }
}

#define ZELVARO_INSTANTIATE(F) template void encode<F>(Assembly&, SrcOf<F>&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
