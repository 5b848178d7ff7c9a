// CkStartAdrOperand: the entry point that a START names.  Its line becomes a JUMP to it.
#include <algorithm>
#include <limits>

#include "diag/Quote.h"
#include "encode/AdrConst.h"

namespace zelvaro {
namespace {

constexpr Message badMozi{
    "start-operand-character",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "\n{quote} アドレス定数に英大文字と数字以外の文字がある。",
     .en = "\nNo uppercase alphanumeric characters are found in the address constant of {quote}. \n"
           "The address constant must be written in uppercase alphanumeric letters. "},
    {{kNWW,
      {.ja = {},
       .en = "\nA non-alphanumeric letter is found in the address constant of {quote}. \n"
             "The address constant should be written in uppercase alphanumeric letters. "}},
     {kAP,
      {.ja = {},
       .en = "\nAn invalid character is found in the address constant of {quote}. \n"
             "The address constant should be written in uppercase alphanumerals. \n"
             "The label name that is defined within this program specifies the execution start address. \n"
             "(CASl2 Spec:  2.3 (1))"}},
     {kNA | kNH,
      {.ja = {},
       .en = "\nThere is a non-alphanumeric letter in the address constant of {quote}. \n"
             "The address constant should be written in capital alphanumeric letters. "}}}};
constexpr Message tooLong{
    "start-operand-length",
    Severity::Error,
    Head::Line,
    args("quote", "count", limit("most", kLabelLength)),
    {.ja = "{quote}\n アドレス定数は８文字以内の制限がある。\n{count} 文字ある。",
     .en =
         "{quote}\nAn address constant must be 1 to {most} characters in length. \nThere are {count} in it."},
    {{kNWW | kNarrow | kNH, {.ja = "{quote} アドレス定数は８文字以内。{count} 文字ある。", .en = {}}}}};
constexpr Message undefinedName{
    "start-operand-undefined",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "\nアドレス定数 {quote} と一致するラベルが存在しない。",
     .en = "{quote}\nNo label or program name matches the address constant of {quote}. "},
    {{kNWW, {.ja = {}, .en = "{quote}\nThe address constant does not match any label or program name. "}},
     {kAP,
      {.ja = {}, .en = "{quote}\nNo label or program name matches the address constant of the {quote}. "}},
     {kNA, {.ja = {}, .en = "{quote}\nNo label or program name matches the addres constant. "}},
     {kNH,
      {.ja = "\nアドレス定数 {quote} と一致するラベルが存在しない。\n"
             " START 命令は、プログラムの先頭を定義する。 \n実行開始番地は、そのプログラム内で定義された\n"
             "ラベルで指定する。（仕様 2・3（１））",
       .en = "{quote}\nNo label or program name matches the address constant of {quote}. \n"
             "START assembler instruction defines a top of the program. \n"
             "A top of the address at which a program starts is \n"
             "specified by a label defined in a program. \n(Spec. of CASL2: 2.3 (1)) "}}}};
constexpr Message prgNameRefused{
    "start-operand-program",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "\n START 命令は、プログラムの先頭を定義する。 \n実行開始番地は、そのプログラム内で定義された\n"
           "ラベルで指定する。（仕様 2・3（１））\nSTART 命令の右にあるアドレス定数を修正する必要がある。",
     .en = "\nSTART assembler instruction defines a top of the program. \n"
           "A top of the address at which a program starts is \nspecified by a label defined in a program. \n"
           "(Spec. 2.3 (1)) \nThe address constant at the right side of the START \n"
           "is expected to be corrected. "},
    {{kNH,
      {.ja = {},
       .en =
           "\nSTART assembler instruction defines a top of the program. \n"
           "A top of the address at which a program starts is \nspecified by a label defined in a program. \n"
           "(Spec. of CASL2: 2.3 (1)) \nThe address constant at the right side of the START \n"
           "is expected to be corrected. "}}}};

/// The address of a line of the program.  It is computed here, so it is valid for a label without an opcode
/// too, which the address pass skips.
template <class Char>
std::int32_t entryAddress(Assembly& a, int prg, const SrcData<Char>& target) {
  if (a.family.entryAddress == EntryAddress::FromAddressPass) return target.AbAdr;
  const PrgData<Char>& program = a.program<Char>(prg);
  std::int64_t adr = program.AbAdrAtStart;
  for (const SrcData<Char>& line : a.store<Char>().linesBeforeEnd(program)) {
    if (line.Line == target.Line) break;
    adr += line.word_kazu;
  }
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();  // refused after the address pass
  return static_cast<std::int32_t>(std::min(adr, kMost));
}

template <class Char>
bool jumpTo(SrcData<Char>& line, std::int32_t address, SrcData<Char>& target) {
  line.Word1 = firstWord(instruction(Op::JUMP).adrCode);
  line.Word2 = address;
  line.word_kazu = 2;
  target.IsLabelInUse = true;
  return true;
}

}  // namespace

template <class Char>
bool CkStartAdrOperand(Assembly& a, int prg, SrcData<Char>& line) {
  const ViewOf<Char> p = line.Oprnd[1];
  // A bad first character is left to the search: no program or label has such a name.
  if (upperCaseTest(p) > 0) a.cs.report(badMozi, line.Line, quote(p));
  AnalystZenKSpace20(a.cs, line.Line, p);
  AnalystZenKakuMoziStr(a.cs, line.Line, p);
  if (p.size() > kLabelLength) {
    a.cs.report(tooLong, line.Line, quote(p), p.size());
    return false;
  }
  LineStore<Char>& store = a.store<Char>();
  const PrgData<Char>& program = a.program<Char>(prg);
  const int label = program.findLabel(p);
  // the label of the START itself is the name of a program
  if (label >= 0 && (a.family.prgNameIsEntry || label != program.RecStart))
    return jumpTo(line, entryAddress(a, prg, store[label]), store[label]);
  const int other = store.findPrg(p, -1);
  if (other >= 0 && !a.family.prgNameIsEntry) {
    a.cs.report(prgNameRefused, line.Line);
    return false;
  }
  if (other >= 0) {
    PrgData<Char>& target = a.program<Char>(other);
    target.IsPrgNameInUse = true;
    SrcData<Char>& start = store[target.RecStart];
    return jumpTo(line, start.AbAdr, start);
  }
  a.cs.report(undefinedName, line.Line, quote(p));
  AnalystZenKSpace20NW(a.cs, line.Line, p);
  return false;
}

template bool CkStartAdrOperand<char16_t>(Assembly&, int, SrcData<char16_t>&);
template bool CkStartAdrOperand<char>(Assembly&, int, SrcData<char>&);

RowList rowsOfCkStartAdrOperand() {
  return rows(badMozi, tooLong, undefinedName, prgNameRefused);
}

}  // namespace zelvaro
