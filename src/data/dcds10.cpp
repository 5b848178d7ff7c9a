// The fixed form has its data after the code: checks how many DC and DS lines a program has, and that nothing
// else follows its last instruction.
#include "data/Data.h"
#include "diag/Limits.h"

namespace zelvaro {
namespace {

constexpr Message tooManyLines{
    "data-lines-many", Severity::Error, Head::Bare, args("dc", "ds", "lines", limit("most", kFixedDcDsLines)),
    bothLanguages("仕様：DCとDSの行の数の合計は「最大行数の６分の１」={most} 行に制限されています。\n"
                  "DC行が {dc} 行あります。 \n"
                  "DS行が {ds} 行あります。 \n"
                  "DCとDSの行の数の合計が {lines} 行あります。 \n"
                  "メモリの節約のため削減をお願いします。 ")};
constexpr Message noData{
    "data-missing",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "DC 又は DS の記述が必要。", .en = "Either DC or DS instruction is expected. "}};

/// The index of ret_line, the line of the last instruction: the last RET or EXIT, or if there is none, the
/// last line that is neither DC nor DS.
template <class Char>
std::size_t retLine(std::span<const SrcData<Char>> lines) {
  std::size_t lastRet = 0;
  std::size_t lastCode = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const Op op = opOf(lines[i]);
    if (op == Op::RET || op == Op::EXIT) lastRet = i;
    if (op != Op::Unknown && !isDcOrDs(op)) lastCode = i;
  }
  return lastRet > 0 ? lastRet : lastCode;
}

}  // namespace

template <class Char>
void dcds10(Assembly& a, int prg) {
  const auto lines = std::span<const SrcData<Char>>(a.store<Char>().linesBeforeEnd(a.program<Char>(prg)));
  int dc = 0;
  int ds = 0;
  for (const SrcData<Char>& line : lines) {
    dc += opOf(line) == Op::DC ? 1 : 0;
    ds += opOf(line) == Op::DS ? 1 : 0;
  }
  if (dc + ds > kFixedDcDsLines) a.cs.report(tooManyLines, 0, dc, ds, dc + ds);
  for (const SrcData<Char>& line : lines.subspan(retLine(lines) + 1))
    if (opOf(line) != Op::Unknown && !isDcOrDs(opOf(line))) a.cs.report(noData, line.Line);
}

template void dcds10<char16_t>(Assembly&, int);
template void dcds10<char>(Assembly&, int);

RowList rowsOfDcds10() {
  return rows(tooManyLines, noData);
}

}  // namespace zelvaro
