// The name of a program: the rules of a label with other messages; the first fault ends the test.
#include "diag/Limits.h"
#include "diag/Quote.h"
#include "structure/Structure.h"
#include "structure/Words.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message noName{"program-name-missing",
                         Severity::Error,
                         Head::Line,
                         args(),
                         {.ja = "START アセンブラ命令の左にラベルが必要です。",
                          .en = "A label is expected at the left side of the START assembler instruction. "}};
constexpr Message firstLetter{"program-name-first-letter",
                              Severity::Error,
                              Head::QuoteLine,
                              args("quote"),
                              {.ja = "ラベルの先頭文字は英大文字であること。 先頭文字に数字は使えない。",
                               .en = "\nThe first letter of a label must be a capital alphabetical letter. \n"
                                     "A numeral is not allowed to be used as the first letter of a label. "}};
constexpr Message otherCharacter{
    "program-name-character",
    Severity::Error,
    Head::QuoteLine,
    args("quote", "label", "position"),
    {.ja = "ラベル {quote} の第 {position} 文字目に英大文字、 数字 以外の文字が使われている。 ",
     .en = "A non-alpha-numeral character is found in the label of '{label}'. "},
    {{kNarrow,
      {.ja = "ラベル {quote} の第 {position} 文字目に英大文字、 数字 以外の文字が使われている。", .en = {}}},
     {kNH, {.ja = {}, .en = "There is non-alpha-numeral character in the label of '{label}'. "}}}};
constexpr Message lowerCase{
    "program-name-lower-case",
    Severity::Error,
    Head::QuoteLine,
    args("quote", "position"),
    {.ja = "ラベル {quote} の第 {position} 文字目に英小文字が使われている。 英小文字は使えない。 ",
     .en = "A lowercase letter is found in the label. \nIt is not allowed to be used in a lebel of CASL2. "},
    {{kNarrow, {.ja = {}, .en = "A lowercase letter is not allowed to be used in a lebel of casl2. "}},
     {kNH,
      {.ja = {}, .en = "There is a small letter in the label. A small letter is not allowed for casl2. "}}}};
constexpr Message tooLong{
    "program-name-length",
    Severity::Error,
    Head::QuoteLine,
    args("quote", "count", limit("most", kLabelLength)),
    {.ja = "ラベル の長さは８文字までの制限（仕様）がある。。 \n{quote}: {count} 文字ある。",
     .en =
         "A label must be 1 to {most} characters in length. \nLabel: {quote}: There are {count} letters in it. "},
    {{kNarrow, {.ja = "ラベル の長さは８文字まで。\n{quote}: {count} 文字ある。", .en = {}}},
     {kNH, {.ja = "ラベルの長さは８文字まで。\n{quote}: {count} 文字ある。", .en = {}}}}};
constexpr Message reservedWord{
    "program-name-register",
    Severity::Error,
    Head::QuoteLine,
    args("quote"),
    {.ja = "ラベルに予約語(GR0 - GR7) は使えない。",
     .en = "The reserved words(GR0-GR7) are not allowed in a label. "},
    {{kNH, {.ja = {}, .en = "The reserved words(GR0-GR7) are not allowed in a label of casl2. "}}}};

/// True if the name has passed.
template <class Char>
bool checkName(Assembly& a, int line, ViewOf<Char> name) {
  if (AnalystZenKSpace20NW(a.cs, line, name)) a.cs.countError();
  if (!isCapital(name.front())) {
    a.cs.report(firstLetter, line, quote(name));
    return false;
  }
  if (const int p = upperCaseTest(name); p > 0) {
    a.cs.report(otherCharacter, line, quote(name), plain(name), p + 1);
    if (const int small = lowerCaseTest(name); small > 0)
      a.cs.report(lowerCase, line, quote(name), small + 1);
    return false;
  }
  if (name.size() > kLabelLength) {
    a.cs.report(tooLong, line, quote(name), name.size());
    return false;
  }
  if (isReservedWord(name)) {
    a.cs.report(reservedWord, line, quote(name));
    return false;
  }
  return true;
}

}  // namespace

template <class Char>
void CkPrgName(Assembly& a, int prg) {
  auto& program = a.program<Char>(prg);
  auto& start = a.store<Char>()[program.RecStart];
  if (isBlank(start.SrcWork.front())) {
    a.cs.report(noName, start.Line);
    return;
  }
  const auto word = start.SrcWork.substr(0, findBlank(start.SrcWork));
  const auto name = word.substr(0, a.family.prgNameLength);
  if (checkName(a, start.Line, name)) program.PrgName = start.LabelStr = name;
}

template void CkPrgName<char16_t>(Assembly&, int);
template void CkPrgName<char>(Assembly&, int);

RowList rowsOfCkPrgName() {
  return rows(noName, firstLetter, otherCharacter, lowerCase, tooLong, reservedWord);
}

}  // namespace zelvaro
