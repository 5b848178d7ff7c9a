// The word split: label, opcode, and the operand text after the opcode.
#include <algorithm>

#include "diag/Limits.h"
#include "structure/Structure.h"
#include "structure/Words.h"

namespace zelvaro {
namespace {

constexpr Message textIsCut =
    Message{
        "operand-text-cut",
        Severity::Warning,
        Head::Own,
        args("count", limit("most", kOprndLengthRead)),
        {.ja =
             "Zelvaroの仕様よりも長い行がある。 {count} 文字ある。 {most} 文字まで読取り、それ以降の文字は読み捨てる。",
         .en = "There are {count} characters in the line. "
               "The Spec. of Zelvaro has a length limit for every line. "
               "The assembler reads {most} characters or less a line. "
               "This might have caused an error for all your intention. "}}
        .withHead({.ja = "警告: {line}行目：", .en = "Warning: {line}: "})
        .uncounted();

/// Removes the text up to the first blank from `rest` and returns it; left-trims `rest`.
template <class Char>
std::basic_string_view<Char> takeWord(std::basic_string_view<Char>& rest) {
  const std::size_t end = std::min(findBlank(rest), rest.size());
  const auto word = rest.substr(0, end);
  rest = trimLeft(rest.substr(end));
  return word;
}

/// Reports the first operand text of a program that is longer than its buffer.  The text itself is not cut:
/// CopyOprndComStrToBuffer cuts the copy that the operands are taken from.
template <class Lines>
void warnOfCutText(Assembly& a, Lines lines) {
  const auto at = std::find_if(lines.begin(), lines.end(), [&a](const auto& line) {
    return line.OprndComStr.size() > a.family.oprndLength;
  });
  if (at != lines.end()) a.b.report(textIsCut, at->Line, at->OprndComStr.size());
}

}  // namespace

template <class Char>
void TakeOutLabelStr(Assembly& a, int prg) {
  const auto lines = a.store<Char>().linesWithEnd(a.program<Char>(prg));
  for (auto& line : lines) {
    auto rest = line.SrcWork;
    line.LabelStr = takeWord(rest);
    line.OpStr = takeWord(rest);
    line.OprndComStr = rest;
  }
  if (a.family.warnsOfCutOprnd) warnOfCutText(a, lines);
}

template void TakeOutLabelStr<char16_t>(Assembly&, int);
template void TakeOutLabelStr<char>(Assembly&, int);

RowList rowsOfTakeOutLabelStr() {
  return rows(textIsCut);
}

}  // namespace zelvaro
