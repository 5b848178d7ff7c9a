// The word split: label, opcode, and the operand text behind the opcode.
#include <algorithm>

#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

constexpr Message textIsCut =
    Message{
        Severity::Warning,
        Head::Own,
        args("count"),
        {.ja =
             "Zelvaroの仕様よりも長い行がある。 {count} 文字ある。 225 文字まで読取り、それ以降の文字は読み捨てる。",
         .en = "There are {count} characters in the line. "
               "The Spec. of Zelvaro has a length limit for every line. "
               "The assembler reads 225 characters or less a line. "
               "This might have caused an error for all your intention. "}}
        .withHead({.ja = "警告: {line}行目：", .en = "Warning: {line}: "})
        .uncounted();

/// Takes the text up to the first blank off `rest`, which keeps what stands behind, left-trimmed.
template <class Char>
std::basic_string_view<Char> takeWord(std::basic_string_view<Char>& rest) {
  const std::size_t end = std::min(findBlank(rest), rest.size());
  const auto word = rest.substr(0, end);
  rest = trimLeft(rest.substr(end));
  return word;
}

/// Tells the first operand text of a program that is longer than its buffer.  The text itself stays whole:
/// CopyOprndComStrToBuffer cuts what the operands are taken from.
template <class Family, class Lines>
void warnOfCutText(Assembly& a, Lines lines) {
  const auto at = std::ranges::find_if(
      lines, [](const auto& line) { return line.OprndComStr.size() > Family::oprndText; });
  if (at != lines.end()) a.b.report<Family, textIsCut>(at->Line, at->OprndComStr.size());
}

}  // namespace

template <class Family>
void TakeOutLabelStr(Assembly& a, int prg) {
  const auto lines = a.store<Family>().linesWithEnd(a.program<Family>(prg));
  for (auto& line : lines) {
    auto rest = line.SrcWork;
    line.LabelStr = takeWord(rest);
    line.OpStr = takeWord(rest);
    line.OprndComStr = rest;
  }
  if constexpr (Family::warnsOfCutOprndText) warnOfCutText<Family>(a, lines);
}

#define ZELVARO_INSTANTIATE(F) template void TakeOutLabelStr<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
