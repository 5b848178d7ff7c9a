// The label rules, in five passes over the lines of a program; each pass looks at all lines.
#include <algorithm>

#include "diag/Quote.h"
#include "structure/Structure.h"
#include "structure/Words.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message labelAlone{
    "label-alone",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = ": {quote}: ラベルはあるが、命令語の記述がない。",
     .en = "{quote}: A label is detected. But there is not any instruction code in the line. "}};
constexpr Message firstLetter{
    "label-first-letter",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: ラベルの先頭文字は英大文字であること。\n先頭文字に数字は使えない。",
     .en = "{quote}: The first letter of a label must be a capital alphabetical letter. \n"
           "A numeral cannot be used as the first letter of a label. "}};
constexpr Message otherCharacter{
    "label-character",
    Severity::Error,
    Head::Line,
    args("label"),
    {.ja = "ラベル {label} に英大文字、 数字 以外の文字が使われている。 ",
     .en = "Non uppercase alphanumeric characters are found in the label of '{label}'. "},
    {{kNarrow, {.ja = {}, .en = "An invalid character is found in the label."}},
     {kNH, {.ja = {}, .en = "An invalid character is found in the label of '{label}'. "}}}};
constexpr Message tooLong{
    "label-length",
    Severity::Error,
    Head::Line,
    args("quote", "count", limit("most", kLabelLength)),
    {.ja = "{quote} ラベルの長さは {most} 文字までに制限されている。 {count} 文字ある。",
     .en =
         "{quote}  A label must be 1 to {most} characters in length. It includes {count} characters in it. "},
    {{kNarrow, {.ja = "{quote} ラベルの長さは {most} 文字まで。 {count} 文字ある。", .en = {}}},
     {kNH,
      {.ja = {},
       .en =
           "{quote}  A label must be 1 to {most} characters in length. There are {count} characters in it. "}}}};
constexpr Message reservedWord{
    "label-register",
    Severity::Error,
    Head::Line,
    args("label"),
    {.ja = "ラベルに予約語(GR0 - GR7) は使えない。CASL2の仕様　2.1（注）",
     .en = "{label} is one of the reserved words(GR0-GR7). \n"
           "Reserved words, GR0 through GR7, are not available for labels. Spec. of CASL2   2.1 (Note) "}};

/// Pass 1: extracts the labels of the lines.  In the fixed form a line may hold a label alone.
template <class Char, class Lines>
void takeOut(Assembly& a, Lines lines) {
  for (auto& line : lines) {
    const std::size_t blank = findBlank(line.SrcWork);
    line.LabelStr = line.SrcWork.substr(0, blank);
    if (blank == line.SrcWork.npos && !a.family.labelAlone)
      a.cs.report(labelAlone, line.Line, quote(line.LabelStr));
  }
}

/// Pass 3: the characters after the first one, which pass 2 checks.  Only the first bad label of a program is
/// reported.
template <class Char, class Lines>
void checkLetters(Assembly& a, Lines lines) {
  for (const auto& line : lines) {
    if (line.LabelStr.empty()) continue;
    const std::size_t first = std::min(sizeOfMozi(line.LabelStr.front()), line.LabelStr.size());
    if (std::all_of(line.LabelStr.begin() + first, line.LabelStr.end(), isLabelMozi<Char>)) continue;
    a.cs.report(otherCharacter, line.Line, plain(line.LabelStr));
    AnalystZenKSpace20NW(a.cs, line.Line, line.LabelStr);
    return;
  }
}

}  // namespace

template <class Char>
void Label35G(Assembly& a, int prg) {
  const auto lines = a.store<Char>().linesWithEnd(a.program<Char>(prg));
  takeOut<Char>(a, lines);
  for (const auto& line : lines)
    if (!line.LabelStr.empty() && !isCapital(line.LabelStr.front()))
      a.cs.report(firstLetter, line.Line, quote(line.LabelStr));
  checkLetters<Char>(a, lines);
  for (const auto& line : lines)
    if (line.LabelStr.size() > kLabelLength)
      a.cs.report(tooLong, line.Line, quote(line.LabelStr), line.LabelStr.size());
  for (const auto& line : lines)
    if (isReservedWord(line.LabelStr)) a.cs.report(reservedWord, line.Line, plain(line.LabelStr));
  CkLabelDouble<Char>(a, prg);
}

template void Label35G<char16_t>(Assembly&, int);
template void Label35G<char>(Assembly&, int);

RowList rowsOfLabel35G() {
  return rows(labelAlone, firstLetter, otherCharacter, tooLong, reservedWord);
}

}  // namespace zelvaro
