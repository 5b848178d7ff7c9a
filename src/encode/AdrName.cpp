// The name as an address constant: the name of another program of the file, or a label of the own program.
// The order of the two searches shows where a label has the name of another program.
#include "diag/Quote.h"
#include "encode/AdrConst.h"
#include "source/FixedForm.h"

namespace zelvaro {
namespace {

constexpr Message badMozi{Severity::Error,
                          Head::QuoteLine,
                          args("quote"),
                          {.ja = "アドレス定数の中に英大文字と数字以外の文字がある。",
                           .en = "\nAn address constant should be written in capital alphanumeric letters. \n"
                                 "A non-alphanumeric character is found in the constant. "}};
constexpr Message lowerCase{Severity::Error,
                            Head::QuoteLine,
                            args("quote"),
                            {.ja = "アドレス定数の中に小文字がある。\nCASL2 では小文字は使えない。",
                             .en = "\nA lowercase letter is found in the address constant. \n"
                                   "A lowercase letter is not allowed in casl2. "},
                            {{families(FamilyId::NWW),
                              {.ja = {},
                               .en = "\nA small letter is found in the address constant. \n"
                                     "A lowercase character is not allowed in casl2. "}}}};
constexpr Message tooLong{Severity::Error,
                          Head::Line,
                          args("quote", "count"),
                          {.ja = ": \n{quote}: \nアドレス定数は８文字以内の制限がある。 {count} 文字ある。 ",
                           .en = "\n{quote}: An address constant must be 1 to 8 characters in length. \n"
                                 "There are {count} characters in it. "}};
constexpr Message externalName{
    Severity::Warning,
    Head::Line,
    args(),
    {.ja =
         ": アドレス定数として外部のプログラム名を用いている。\n暴走の可能性がある。\n これはあなたの意図ですか？",
     .en = ": The address constant is an external program name. \n"
           "The comet2 might be out of control.\nIs this your intention? "}};
constexpr Message undefinedName{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "\nアドレス定数 {quote} と一致するラベル又はプログラム名（START "
           "アセンブラ命令の左にあるラベル）が存在しない。",
     .en = "{quote} \nUndefined address constant.  \nNeither a label nor a program name it is. "},
    {{families(FamilyId::NWW),
      {.ja = {}, .en = "{quote} does not match any existing label or program name. "}},
     {families(FamilyId::NH),
      {.ja = {},
       .en = " Neither the label nor the program name matches the address constant of {quote}\n"
             "The program name is a label.  It is at the left side of START assembler instruction. "}}}};

template <class Family>
void resolveToPrg(Assembly& a, SrcOf<Family>& line, int prg) {
  PrgData<CharOf<Family>>& other = a.program<Family>(prg);
  line.Word2 = other.AbAdrAtStart;
  line.IsLabelInUse = true;
  other.IsPrgNameInUse = true;
  if constexpr (!Family::warnsOfExternalName) return;
  const Op op = opOf(line);
  if (op != Op::CALL && op != Op::LAD) a.cs.report<Family, externalName>(line.Line);
}

}  // namespace

template <class Family>
int CkAdrName(Assembly& a, SrcOf<Family>& line, ViewOf<Family> p) {
  if (upperCaseTest(p) > 0) {
    a.cs.report<Family, badMozi>(line.Line, quote(p));
    AnalystZenKMozi<Family>(a.cs, p, line.Line);
  }
  if (lowerCaseTest(p) > 0) a.cs.report<Family, lowerCase>(line.Line, quote(p));
  if (p.size() > TCorrectScode::kLabelLength) {
    a.cs.report<Family, tooLong>(line.Line, quote(p), p.size());
    return kAdrTooLong;
  }
  LineStore<CharOf<Family>>& store = a.store<Family>();
  const PrgData<CharOf<Family>>& own = a.program<Family>(line.PrgNr);
  int label = own.findLabel(p);
  int prg = store.findPrg(p, line.PrgNr);
  if (kIsFixedForm<Family> && label == own.RecStart) {
    // the own program is one of the programs there
    label = -1;
    prg = line.PrgNr;
  }
  if (prg >= 0 && (label < 0 || !Family::ownLabelsFirst)) {
    resolveToPrg<Family>(a, line, prg);
    return 0;
  }
  if (label >= 0) {
    SrcOf<Family>& target = store[label];
    line.Word2 = target.AbAdr;
    target.IsLabelInUse = true;
    return 0;
  }
  a.cs.report<Family, undefinedName>(line.Line, quote(p));
  AnalystZenKSpace20<Family>(a.cs, p, line.Line);
  return kAdrUndefined;
}

#define ZELVARO_INSTANTIATE(F) template int CkAdrName<F>(Assembly&, SrcOf<F>&, ViewOf<F>);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
