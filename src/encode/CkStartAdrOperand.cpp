// CkStartAdrOperand: the entry point that a START names.  Its line becomes a JUMP to it.
#include <algorithm>
#include <limits>

#include "diag/Quote.h"
#include "encode/AdrConst.h"

namespace zelvaro {
namespace {

constexpr Message badMozi{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "\n{quote} アドレス定数に英大文字と数字以外の文字がある。",
     .en = "\nNo uppercase alphanumeric characters are found in the address constant of {quote}. \n"
           "The address constant must be written in uppercase alphanumeric letters. "},
    {{families(FamilyId::NWW),
      {.ja = {},
       .en = "\nA non-alphanumeric letter is found in the address constant of {quote}. \n"
             "The address constant should be written in uppercase alphanumeric letters. "}},
     {families(FamilyId::AP),
      {.ja = {},
       .en = "\nAn invalid character is found in the address constant of {quote}. \n"
             "The address constant should be written in uppercase alphanumerals. \n"
             "The label name that is defined within this program specifies the execution start address. \n"
             "(CASl2 Spec:  2.3 (1))"}},
     {families(FamilyId::NA, FamilyId::NH),
      {.ja = {},
       .en = "\nThere is a non-alphanumeric letter in the address constant of {quote}. \n"
             "The address constant should be written in capital alphanumeric letters. "}}}};
constexpr Message tooLong{
    Severity::Error,
    Head::Line,
    args("quote", "count"),
    {.ja = "{quote}\n アドレス定数は８文字以内の制限がある。\n{count} 文字ある。",
     .en = "{quote}\nAn address constant must be 1 to 8 characters in length. \nThere are {count} in it."},
    {{families(FamilyId::NWW, FamilyId::AP, FamilyId::NA, FamilyId::NH),
      {.ja = "{quote}\n アドレス定数は８文字以内。\n{count} 文字ある。", .en = {}}}}};
constexpr Message undefinedName{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "\nアドレス定数 {quote} と一致するラベルが存在しない。",
     .en = "{quote}\nNo label or program name matches the address constant of {quote}. "},
    {{families(FamilyId::NWW),
      {.ja = {}, .en = "{quote}\nThe address constant does not match any label or program name. "}},
     {families(FamilyId::AP),
      {.ja = {}, .en = "{quote}\nNo label or program name matches the address constant of the {quote}. "}},
     {families(FamilyId::NA),
      {.ja = {}, .en = "{quote}\nNo label or program name matches the addres constant. "}},
     {families(FamilyId::NH),
      {.ja = "\nアドレス定数 {quote} と一致するラベルが存在しない。\n"
             " START 命令は、プログラムの先頭を定義する。 \n実行開始番地は、そのプログラム内で定義された\n"
             "ラベルで指定する。（仕様 2・3（１））",
       .en = "{quote}\nNo label or program name matches the address constant of {quote}. \n"
             "START assembler instruction defines a top of the program. \n"
             "A top of the address at which a program starts is \n"
             "specified by a label defined in a program. \n(Spec. of CASL2: 2.3 (1)) "}}}};
constexpr Message prgNameRefused{
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "\n START 命令は、プログラムの先頭を定義する。 \n実行開始番地は、そのプログラム内で定義された\n"
           "ラベルで指定する。（仕様 2・3（１））\nSTART 命令の右にあるアドレス定数を修正する必要がある。",
     .en = "\nSTART assembler instruction defines a top of the program. \n"
           "A top of the address at which a program starts is \nspecified by a label defined in a program. \n"
           "(Spec. 2.3 (1)) \nThe address constant at the right side of the START \n"
           "is expected to be corrected. "},
    {{families(FamilyId::NH),
      {.ja = {},
       .en =
           "\nSTART assembler instruction defines a top of the program. \n"
           "A top of the address at which a program starts is \nspecified by a label defined in a program. \n"
           "(Spec. of CASL2: 2.3 (1)) \nThe address constant at the right side of the START \n"
           "is expected to be corrected. "}}}};

/// The address of a line of the program.  Worked out at once it holds for a label without an opcode too, which
/// no address pass looks at.
template <class Family>
std::int32_t entryAddress(Assembly& a, int prg, const SrcOf<Family>& target) {
  if constexpr (!Family::worksOutEntry) return target.AbAdr;
  const PrgData<CharOf<Family>>& program = a.program<Family>(prg);
  std::int64_t adr = program.AbAdrAtStart;
  for (const SrcOf<Family>& line : a.store<Family>().linesBeforeEnd(program)) {
    if (line.Line == target.Line) break;
    adr += line.word_kazu;
  }
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();  // refused behind the address pass
  return static_cast<std::int32_t>(std::min(adr, kMost));
}

template <class Family>
int jumpTo(SrcOf<Family>& line, std::int32_t address, SrcOf<Family>& target) {
  line.Word1 = firstWord(instruction(Op::JUMP).adrCode);
  line.Word2 = address;
  line.word_kazu = 2;
  target.IsLabelInUse = true;
  return 0;
}

}  // namespace

template <class Family>
int CkStartAdrOperand(Assembly& a, int prg, SrcOf<Family>& line) {
  const ViewOf<Family> p = line.Oprnd[1];
  // An offender in the first place is left to the search: nothing carries such a name.
  if (upperCaseTest(p) > 0) a.cs.report<Family, badMozi>(line.Line, quote(p));
  AnalystZenKSpace20<Family>(a.cs, p, line.Line);
  AnalystZenKakuMoziStr<Family>(a.cs, line.Line, p);
  if (p.size() > TCorrectScode::kLabelLength) {
    a.cs.report<Family, tooLong>(line.Line, quote(p), p.size());
    return 1;
  }
  LineStore<CharOf<Family>>& store = a.store<Family>();
  const PrgData<CharOf<Family>>& program = a.program<Family>(prg);
  const int label = program.findLabel(p);
  // the label of the START itself is the name of a program
  if (label >= 0 && (Family::prgNameIsEntry || label != program.RecStart))
    return jumpTo<Family>(line, entryAddress<Family>(a, prg, store[label]), store[label]);
  const int other = store.findPrg(p, -1);
  if (other >= 0) {
    if constexpr (Family::prgNameIsEntry) {
      PrgData<CharOf<Family>>& target = a.program<Family>(other);
      target.IsPrgNameInUse = true;
      SrcOf<Family>& start = store[target.RecStart];
      return jumpTo<Family>(line, start.AbAdr, start);
    } else {
      a.cs.report<Family, prgNameRefused>(line.Line);
      return 1;
    }
  }
  a.cs.report<Family, undefinedName>(line.Line, quote(p));
  AnalystZenKSpace20NW<Family>(a.cs, line.Line, p);
  return 1;
}

#define ZELVARO_INSTANTIATE(F) template int CkStartAdrOperand<F>(Assembly&, int, SrcOf<F>&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
