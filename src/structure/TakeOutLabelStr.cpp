// The word split: label, opcode, and the operand text behind the opcode.
// Tested by tests/structure/LinesTest.cpp.
#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

/// Takes the text up to the first blank off `rest`, which keeps what stands behind, left-trimmed.
template <class Char>
std::basic_string_view<Char> takeWord(std::basic_string_view<Char>& rest) {
  const std::size_t end = std::min(findBlank(rest), rest.size());
  const auto word = rest.substr(0, end);
  rest = trimLeft(rest.substr(end));
  return word;
}

}  // namespace

template <class Family>
void TakeOutLabelStr(Assembly& a, int prg) {
  for (auto& line : a.store<Family>().linesWithEnd(a.program<Family>(prg))) {
    auto rest = line.SrcWork;
    line.LabelStr = takeWord(rest);
    line.OpStr = takeWord(rest);
    line.OprndComStr = rest;
  }
}

#define ZELVARO_INSTANTIATE(F) template void TakeOutLabelStr<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
