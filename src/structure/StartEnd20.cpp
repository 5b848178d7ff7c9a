// The exact test of START and END: pairing, counts, order, and the program records.  A keyword counts
// directly after a blank, even in a comment after an instruction.
#include <algorithm>
#include <vector>

#include "structure/Structure.h"
#include "structure/Words.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message noStart{
    "start-missing",
    Severity::Error,
    Head::Bare,
    args(),
    {.ja = "START アセンブラ命令 が どこにもない。 \nSTART の左に空白が必要です",
     .en = "Missing START assembler statement. \nA half-width space is expected before START. "},
    {{kNarrow,
      {.ja = {},
       .en = "START is not found anywhere. \nA space is expected at the left side of the START. "}}}};
constexpr Message startWithoutName{"start-name-missing",
                                   Severity::Error,
                                   Head::Line,
                                   args(),
                                   {.ja = "START アセンブラ命令の左にプログラム名（ラベル）が必要です。 ",
                                    .en = "A program name is requiered before START statement. "}};
constexpr Message tooManyStart{
    "start-many",
    Severity::Error,
    Head::Bare,
    args("most"),
    {.ja = "START アセンブラ命令の数を減らす必要がある。 "
           "このアセンブラでは、一つのファイルの中のプログラムの数は {most} 個に制限されています。",
     .en = "The number of START assembler instructions should be reduced. "
           "The number of the programs in a src fileis limited to {most}."}};
constexpr Message noEnd{
    "end-missing",
    Severity::Error,
    Head::Bare,
    args(),
    {.ja = "END アセンブラ命令 が どこにもない。\nEND 命令は、プログラムの終わりを定義する。\n"
           "END の左には、空白が必要です。",
     .en = "END directive is not found anywhere. \nThe END statement defines the end of a program.\n"
           "A space is expected at the left side of the END. "}};
constexpr Message tooManyEnd{
    "end-many",
    Severity::Error,
    Head::Bare,
    args("most"),
    {.ja = "END アセンブラ命令の数を減らす必要がある。 "
           "このアセンブラでは、一つのファイルの中のプログラムの数は {most} 個に制限されています。",
     .en = "The number of END assembler instructions should be reduced. "
           "The number of the programs in a src fileis limited to {most}."}};
constexpr Message endWithLabel{
    "end-label",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "END アセンブラ命令の左にラベルがある。 \n"
           "END アセンブラ命令の左のラベルには、CASL2 仕様上の役目はないので不要である。",
     .en = "A label is found at the left side of the END assembler statement. \nIt is of no use. "}};
constexpr Message moreStart{
    "start-without-end",
    Severity::Error,
    Head::Bare,
    args("starts", "ends", "file"),
    {.ja = "(START > END): プログラムが正しく閉じていない。\n"
           "START アセンブラ命令の個数と END アセンブラ命令の個数が異なる。 同数のはずです。 \n"
           "START アセンブラ命令 が ファイル({file} ) の中に全部で {starts} 個ある。 \n"
           "END アセンブラ命令 が ファイル({file} ) の中に全部で {ends} 個ある。 ",
     .en = "(START > END): The program is not correctly closed. \n"
           "Mismached number of START and END assembler statements. \n"
           "The number of START and END must be equal. \n"
           "There are {starts} START assembler instructions in {file}. \n"
           "There are {ends} END assembler instructions in {file}. "},
    {{kNarrow,
      {.ja = {},
       .en = "(START > END): The program is not correctly closed. \n"
             "The number of the START assembler instructions is different from that of the END's. \n"
             "The number of START and END must be equal. \n"
             "There are {starts} START assembler instructions in {file}. \n"
             "There are {ends} END assembler instructions in {file}. "}}}};
constexpr Message fewerStart{
    "end-without-start",
    Severity::Error,
    Head::Bare,
    args("starts", "ends", "file", "directives"),
    {.ja = "(START < END): プログラムが正しく閉じていない。 \n"
           "START アセンブラ命令の個数と END アセンブラ命令の個数が異なる。 \n"
           "同数のはずです。\n"
           "START アセンブラ命令 が ファイル( {file} ) の中に全部で {starts} 個ある。 \n"
           "END アセンブラ命令 が ファイル( {file} ) の中に全部で {ends} 個ある。 ",
     .en = "(START < END): The program is not correctly closed.\n"
           "Mismach between START and END statement. \n"
           "The number of START and END must be equal. \n"
           "{starts}START assembler {directives} found in {file}. \n"
           "{ends}END assembler directives are found in {file}. "},
    {{kNarrow,
      {.ja = {},
       .en = "(START < END): The program is not correctly closed.\n"
             "The number of the START assembler instructions is different from that of the END's. \n"
             "The number of START and END must be equal. \n"
             "{starts}START assembler {directives} found in {file}. \n"
             "{ends}END assembler directives are found in {file}. "}}}};
constexpr std::string_view kOutOfOrderNarrow = "START and END are out of order. \nEND should follow START. ";
constexpr Message startNotBeforeEnd{
    "start-after-end",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "START と END アセンブラ命令 が逆順です。 ",
     .en = "START and END are out of order. \nSTART should be followed by END. "},
    {{kNarrow, {.ja = {}, .en = kOutOfOrderNarrow}}}};
constexpr Message nextStartBeforeEnd{
    "start-inside-program",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = " START と END アセンブラ命令 が逆順です。 ",
     .en = "START and END are out of order. \nSTART should be followed by END."},
    {{kNarrow, {.ja = {}, .en = kOutOfOrderNarrow}}}};
constexpr Message oneProgram{"one-program",
                             Severity::Notice,
                             Head::None,
                             args("count"),
                             {.ja = "  {count} 個のプログラムがある。 ", .en = "One program is found in it."},
                             {{kNarrow, {.ja = {}, .en = "There is one program found in it. "}}}};
constexpr Message programs{
    "programs",
    Severity::Notice,
    Head::None,
    args("count"),
    {.ja = "  {count} 個のプログラムがある。 ", .en = "{count} programs are found in it."}};
constexpr Message noRet{
    "ret-missing",
    Severity::Warning,
    Head::Line,
    args("count", "ordinal"),
    {.ja = "{count} 番目のプログラム： RET 命令が一つもない。 暴走の可能性が大きい。 \n"
           "あるいは、無限ループに入り、実行が終了しない。\n"
           "意図的でなければ修正が必要です。 \n"
           "NOTE: RET の 右 又は 左 に空白が必要です。 ",
     .en = "The {ordinal} program: No RET instruction is found in the program. \n"
           "It may run out of control. It may go into an infinite loop. \n"
           "Is this your intention? If not, you should add RET instructions to the program. \n"
           "Note: A space is expected at the both sides of RET. "},
    {{kNarrow,
      {.ja = {},
       .en = "The {ordinal} program: No RET instruction is found in the program. \n"
             "It may run out of control. It may go into an infinite loop. \n"
             "Is this your intention? If not, you should add a RET code at least. \n"
             "Note: A space is expected at the both sides of RET. "}}}};

/// The records whose working text contains the keyword after a blank, in order.
template <class Char>
std::vector<int> recordsWith(const LineStore<Char>& store, std::string_view keyword) {
  std::vector<int> found;
  int record = 0;
  for (const auto& line : store.lines()) {
    if (holdsAfterBlank(line.SrcWork, keyword)) found.push_back(record);
    ++record;
  }
  return found;
}

/// Whether the family's tables have room for the lines; reported if not.
bool fits(Assembly& a, const std::vector<int>& records, const Message<1>& tooMany) {
  if (records.size() <= a.family.mostPrograms) return true;
  a.sh.report(tooMany, 0, a.family.mostPrograms);
  return false;
}

/// Whether each START has its END, in order; the first fault is reported.
template <class Char>
bool checkPairs(Assembly& a, const std::vector<int>& starts, const std::vector<int>& ends) {
  const auto& store = a.store<Char>();
  if (starts.size() > ends.size()) {
    a.sh.report(moreStart, 0, starts.size(), ends.size(), a.b.SrcFilename);
    CkEnd_LR<Char>(a);
    return false;
  }
  if (starts.size() < ends.size()) {
    a.sh.report(fewerStart, 0, starts.size(), ends.size(), a.b.SrcFilename,
                starts.size() == 1 ? "directive is" : "directives are");
    return false;
  }
  for (std::size_t k = 0; k < starts.size(); ++k) {
    if (starts[k] < ends[k]) continue;
    a.sh.report(startNotBeforeEnd, store[ends[k]].Line);
    return false;
  }
  for (std::size_t k = 0; k + 1 < starts.size(); ++k) {
    if (starts[k + 1] >= ends[k]) continue;
    a.sh.report(nextStartBeforeEnd, store[ends[k]].Line);
    return false;
  }
  return true;
}

/// Sets the number of programs and creates their records.
template <class Char>
void createPrograms(Assembly& a, const std::vector<int>& starts, const std::vector<int>& ends) {
  auto& store = a.store<Char>();
  a.sh.PrgKazuInFile = static_cast<int>(starts.size());
  if (starts.size() == 1) {
    a.sh.report(oneProgram, 0, starts.size());
  } else {
    a.sh.report(programs, 0, starts.size());
  }
  store.vecPrg.reserve(starts.size());
  for (std::size_t k = 0; k < starts.size(); ++k) {
    auto& prg = store.vecPrg.emplace_back();
    prg.RecStart = starts[k];
    prg.RecEnd = ends[k];
    prg.StartLine = store[starts[k]].Line;
    prg.EndLine = store[ends[k]].Line;
  }
}

/// Warns of the first program without RET.
template <class Char>
void checkRet(Assembly& a) {
  auto& store = a.store<Char>();
  int ordinalNr = 0;
  for (const auto& prg : store.vecPrg) {
    ++ordinalNr;
    const auto lines = store.linesWithEnd(prg);
    const bool ret = std::any_of(lines.begin(), lines.end(),
                                 [](const auto& line) { return holdsAfterBlank(line.SrcWork, "RET"); });
    if (ret) continue;
    a.sh.report(noRet, prg.StartLine, ordinalNr, ordinal(ordinalNr));
    return;
  }
}

}  // namespace

template <class Char>
void StartEnd20(Assembly& a) {
  const auto& store = a.store<Char>();
  const std::vector<int> starts = recordsWith(store, "START");
  if (starts.empty()) {
    a.sh.report(noStart, 0);
    DetSTARTatZenKakuSpace<Char>(a);
    CkSTART_LR<Char>(a);
    return;
  }
  if (!fits(a, starts, tooManyStart)) return;
  const auto& lastStart = store[starts.back()];
  if (isBlank(lastStart.SrcWork.front())) a.sh.report(startWithoutName, lastStart.Line);
  const std::vector<int> ends = recordsWith(store, "END");
  if (ends.empty()) {
    a.sh.report(noEnd, 0);
    CkEnd_LR<Char>(a);
    return;
  }
  if (!fits(a, ends, tooManyEnd)) return;
  const auto& lastEnd = store[ends.back()];
  if (!isBlank(lastEnd.SrcWork.front())) a.sh.report(endWithLabel, lastEnd.Line);
  if (!checkPairs<Char>(a, starts, ends)) return;
  createPrograms<Char>(a, starts, ends);
  checkRet<Char>(a);
}

template void StartEnd20<char16_t>(Assembly&);
template void StartEnd20<char>(Assembly&);

RowList rowsOfStartEnd20() {
  return rows(noStart, startWithoutName, tooManyStart, noEnd, tooManyEnd, endWithLabel, moreStart, fewerStart,
              startNotBeforeEnd, nextStartBeforeEnd, oneProgram, programs, noRet);
}

}  // namespace zelvaro
