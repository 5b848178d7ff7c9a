// The name as an address constant: the name of another program of the file, or a label of the own program.
// The order of the two searches matters if a label has the name of another program.
#include "diag/Quote.h"
#include "encode/AdrConst.h"

namespace zelvaro {
namespace {

constexpr Message badMozi{"address-character",
                          Severity::Error,
                          Head::QuoteLine,
                          args("quote"),
                          {.ja = "アドレス定数の中に英大文字と数字以外の文字がある。",
                           .en = "\nAn address constant should be written in capital alphanumeric letters. \n"
                                 "A non-alphanumeric character is found in the constant. "}};
constexpr Message lowerCase{"address-lower-case",
                            Severity::Error,
                            Head::QuoteLine,
                            args("quote"),
                            {.ja = "アドレス定数の中に小文字がある。\nCASL2 では小文字は使えない。",
                             .en = "\nA lowercase letter is found in the address constant. \n"
                                   "A lowercase letter is not allowed in casl2. "},
                            {{kNWW,
                              {.ja = {},
                               .en = "\nA small letter is found in the address constant. \n"
                                     "A lowercase character is not allowed in casl2. "}}}};
constexpr Message tooLong{"address-length",
                          Severity::Error,
                          Head::Line,
                          args("quote", "count", limit("most", kLabelLength)),
                          {.ja = ": \n{quote}: \nアドレス定数は８文字以内の制限がある。 {count} 文字ある。 ",
                           .en = "\n{quote}: An address constant must be 1 to {most} characters in length. \n"
                                 "There are {count} characters in it. "}};
constexpr Message externalName{
    "address-external-name",
    Severity::Warning,
    Head::Line,
    args(),
    {.ja =
         ": アドレス定数として外部のプログラム名を用いている。\n暴走の可能性がある。\n これはあなたの意図ですか？",
     .en = ": The address constant is an external program name. \n"
           "The comet2 might be out of control.\nIs this your intention? "}};
constexpr Message undefinedName{
    "address-undefined",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "\nアドレス定数 {quote} と一致するラベル又はプログラム名（START "
           "アセンブラ命令の左にあるラベル）が存在しない。",
     .en = "{quote} \nUndefined address constant.  \nNeither a label nor a program name it is. "},
    {{kNWW, {.ja = {}, .en = "{quote} does not match any existing label or program name. "}},
     {kNH,
      {.ja = {},
       .en = " Neither the label nor the program name matches the address constant of {quote}\n"
             "The program name is a label.  It is at the left side of START assembler instruction. "}}}};

template <class Char>
void resolveToPrg(Assembly& a, SrcData<Char>& line, int prg) {
  PrgData<Char>& other = a.program<Char>(prg);
  line.Word2 = other.AbAdrAtStart;
  line.IsLabelInUse = true;
  other.IsPrgNameInUse = true;
  if (!a.family.warnsOfExternalName) return;
  const Op op = opOf(line);
  if (op != Op::CALL && op != Op::LAD) a.cs.report(externalName, line.Line);
}

}  // namespace

template <class Char>
bool CkAdrName(Assembly& a, SrcData<Char>& line, ViewOf<Char> p) {
  if (upperCaseTest(p) > 0) {
    a.cs.report(badMozi, line.Line, quote(p));
    AnalystZenKMozi(a.cs, line.Line, p);
  }
  if (lowerCaseTest(p) > 0) a.cs.report(lowerCase, line.Line, quote(p));
  if (p.size() > kLabelLength) {
    a.cs.report(tooLong, line.Line, quote(p), p.size());
    return false;
  }
  LineStore<Char>& store = a.store<Char>();
  const PrgData<Char>& own = a.program<Char>(line.PrgNr);
  int label = own.findLabel(p);
  int prg = store.findPrg(p, line.PrgNr);
  if (!a.family.ownNameIsLabel && label == own.RecStart) {
    label = -1;
    prg = line.PrgNr;
  }
  if (prg >= 0 && (label < 0 || a.family.nameOrder == NameOrder::ProgramsFirst)) {
    resolveToPrg(a, line, prg);
    return true;
  }
  if (label >= 0) {
    SrcData<Char>& target = store[label];
    line.Word2 = target.AbAdr;
    target.IsLabelInUse = true;
    return true;
  }
  a.cs.report(undefinedName, line.Line, quote(p));
  AnalystZenKSpace20(a.cs, line.Line, p);
  return false;
}

template bool CkAdrName<char16_t>(Assembly&, SrcData<char16_t>&, ViewOf<char16_t>);
template bool CkAdrName<char>(Assembly&, SrcData<char>&, ViewOf<char>);

RowList rowsOfAdrName() {
  return rows(badMozi, lowerCase, tooLong, externalName, undefinedName);
}

}  // namespace zelvaro
