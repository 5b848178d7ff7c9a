// The fixed form keeps its data behind the code: how many DC and DS lines a program may have, and that
// nothing else stands behind its last instruction.
#include "data/Data.h"
#include "source/FixedForm.h"

namespace zelvaro {
namespace {

constexpr Message tooManyLines{
    Severity::Error, Head::Bare, args("dc", "ds", "lines"),
    bothLanguages("仕様：DCとDSの行の数の合計は「最大行数の６分の１」=55 行に制限されています。\n"
                  "DC行が {dc} 行あります。 \n"
                  "DS行が {ds} 行あります。 \n"
                  "DCとDSの行の数の合計が {lines} 行あります。 \n"
                  "メモリの節約のため削減をお願いします。 ")};
constexpr Message noData{
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "DC 又は DS の記述が必要。", .en = "Either DC or DS instruction is expected. "}};

/// The place of ret_line, the line of the last instruction: the last RET or EXIT, or without one the last
/// line that is neither DC nor DS.
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

template <class Family>
void dcds10(Assembly& a, int prg) {
  const auto lines = std::span<const SrcOf<Family>>(a.store<Family>().linesBeforeEnd(a.program<Family>(prg)));
  int dc = 0;
  int ds = 0;
  for (const SrcOf<Family>& line : lines) {
    dc += opOf(line) == Op::DC ? 1 : 0;
    ds += opOf(line) == Op::DS ? 1 : 0;
  }
  if (dc + ds > kFixedDcDsLines) a.cs.report<Family, tooManyLines>(0, dc, ds, dc + ds);
  for (const SrcOf<Family>& line : lines.subspan(retLine(lines) + 1))
    if (opOf(line) != Op::Unknown && !isDcOrDs(opOf(line))) a.cs.report<Family, noData>(line.Line);
}

#define ZELVARO_INSTANTIATE(F) template void dcds10<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)
#undef ZELVARO_INSTANTIATE

}  // namespace zelvaro
