// The dispatch of a DC line, and the rules of its commas and blanks.
#include "data/DC.h"
#include "data/StrConst.h"
#include "diag/Quote.h"

namespace zelvaro {
namespace {

constexpr Message oprndEmpty{"dc-operand-missing",
                             Severity::Error,
                             Head::Line,
                             args(),
                             {.ja = "DC 命令 の 右に オペランド(定数) の記述がない。",
                              .en = "An constant operand is empty. \n"
                                    "An constant operand is expected at the right side of DC instruction. "},
                             {{kNH,
                               {.ja = {},
                                .en = "An constant operand is expected at the right side of the DC "
                                      "instruction. "}}}};

constexpr Message commaTwice{"dc-comma-twice",
                             Severity::Error,
                             Head::Line,
                             args("quote"),
                             {.ja = "{quote} コンマの連続 ", .en = "{quote} Duplication of comma. "}};

constexpr Message blankAfterSign{
    "dc-blank-after-sign",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "\n正負符号の直後に空白がある。空白を取り除くこと。",
     .en = "\nA space is found at the right side of the sign mark(+, -). \nRemove off the space. "},
    {{kNWW,
      {.ja = "正負符号の直後に空白がある。\n空白を取り除くこと。",
       .en = "A space after a sign mark(+, -) is found. \nDelete the space. "}},
     {kNarrow, {.ja = {}, .en = "There is a space after a sign mark(+, -). Remove off the space123. "}}}};

constexpr Message blankAfterHexMark{
    "dc-blank-after-hash",
    Severity::Error,
    Head::Line,
    args(),
    {.ja = "\n１６進数を表す記号 # の直後に空白がある。\n# と１６進数数字の間にある空白を取り除くこと。",
     .en = "\nHex constants must have four hex digits. \n"
           "The # is a prefix of hexadecimal number. \n"
           "Remove off the space at the right side of the #. "},
    {{kNWW,
      {.ja = {},
       .en = "Hex constants must have at least one hex digit. \n"
             "A space just after # is found. The # is a prefix of hexadecimal number. \n"
             "Delete the space at the right side of the #. "}},
     {kNH,
      {.ja = {},
       .en = "Hex constants must have at least one hex digit. "
             "There is a space just after #. The # is a prefix of hexadecimal number. "
             "Remove off the space at the right side of the #. "}}}};

constexpr Message commaAtEnd{
    "dc-comma-at-end",
    Severity::Note,
    Head::Line,
    args("quote"),
    {.ja = "\n{quote} \nコンマの右に 定数 がないのだからコンマは不要です。 ",
     .en = "\n{quote} \n"
           "The comma at the end of the constant is unnecessary because no further constants follow it. "},
    {{kNH,
      {.ja = {},
       .en = "The comma is of no use at the end of the constant. "
             "Because there is not any constant description at the right side of the comma. "}}}};

constexpr Message constOrComment{
    "dc-constant-or-comment",
    Severity::Error,
    Head::Line,
    args("quote", "text"),
    {.ja = "\n{quote} が定数ならば、\n"
           "定数でないならばセミコロン；を記述して\n"
           "定数 DC 命令の複数のオペランドはコンマで区切る。\n"
           "　例： LABEL DC 22, 55, 'abc', 88 ; コメント",
     .en = "\nIs this a constant or a comment?  You should clarify your intention. \n"
           "If {quote} is a constant, \n"
           "a comma is needed at the left side of the constant.  \n"
           "If this is a comment, a semicolon is needed at the top of the comment. \n"
           "Each of the multiple operands of DC insturction is separated by a comma.  \n"
           "Example:  LABEL DC 22, 55, 'abc', 88 ; Comments "},
    {{kNWW | kNH,
      {.ja = "\n\"{text}\" が定数ならば、\n"
             "定数の前にコンマが必要です。 \n"
             "定数でないならばセミコロン；を記述して\n"
             "明示的に注釈にすること。（推奨） \n"
             "定数 DC 命令の複数のオペランドはコンマで区切る。\n"
             "　例： LABEL DC 22, 55, 'abc', 88 ; コメント",
       .en = "\nIs this a constant or a comment?  \nYou should clarify your intention. \n"
             "If \"{text}\" is a constant, \n"
             "a comma is needed at the left side of the constant.  \n"
             "If this is a comment, a semicolon is needed there. \n"
             "Multiple operands of DC insturction are separated by a comma.  \n"
             "Example:  LABEL DC 22, 55, 'abc', 88 ; Comments "}}}};

enum class Scan { GoOn, Fault, Ended };

/// One character outside the character constants.
template <class Char>
Scan ckMozi(Assembly& a, int line, ViewOf<Char> text, std::size_t i) {
  const Char c = text[i];
  const bool isLast = i + 1 == text.size();
  const bool blankFollows = !isLast && isBlank(text[i + 1]);
  if (c == Char(',') && isLast) {
    a.cs.report(commaAtEnd, line, quote(text));
    return Scan::Ended;
  }
  if (c == Char(',') && text[i + 1] == Char(',')) {
    a.cs.report(commaTwice, line, quote(text));
    return Scan::Fault;
  }
  if (isSign(c) && blankFollows) {
    a.cs.report(blankAfterSign, line);
    return Scan::Fault;
  }
  if (c == Char('#') && blankFollows) {
    a.cs.report(blankAfterHexMark, line);
    return Scan::Fault;
  }
  if (isBlank(c) && !isLast) {
    const ViewOf<Char> rest = text.substr(i + 1);
    a.cs.report(constOrComment, line, quote(rest), plain(rest));
    return Scan::Fault;
  }
  return Scan::GoOn;
}

/// The rules of commas and blanks, then the extraction of the operands.  False after a fault.
template <class Char>
bool dc45(Assembly& a, SrcData<Char>& line) {
  const ViewOf<Char> text = line.Oprnd[0];
  Scan scan = Scan::GoOn;
  findOutsideStrConst(text, [&](std::size_t i) {
    scan = ckMozi(a, line.Line, text, i);
    return scan != Scan::GoOn;
  });
  return scan != Scan::Fault && TakeOutOprndsAtDC10(a, line);
}

template <class Char>
bool ckOprndAtDC(Assembly& a, SrcData<Char>& line) {
  if (line.Oprnd[0].empty()) {
    a.cs.report(oprndEmpty, line.Line);
    return false;
  }
  return dc45(a, line);
}

}  // namespace

template <class Char>
void dispatchDC(Assembly& a, SrcData<Char>& line) {
  if (OprndAtDCtoChH(a, line) && ckOprndAtDC(a, line)) SetWordKazuAtDC(a, line);
}

template void dispatchDC<char16_t>(Assembly&, SrcData<char16_t>&);
template void dispatchDC<char>(Assembly&, SrcData<char>&);

RowList rowsOfOprndAtDC() {
  return rows(oprndEmpty, commaTwice, blankAfterSign, blankAfterHexMark, commaAtEnd, constOrComment);
}

}  // namespace zelvaro
