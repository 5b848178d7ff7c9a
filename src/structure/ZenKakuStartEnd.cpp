// The scanners that look for a full-width space at START and END if one of them is missing.  Each reports the
// first line where it finds one.
#include "diag/Quote.h"
#include "structure/Structure.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message spaceAfterStart{
    "full-width-after-start",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}START の右（直後）に全角の空白がある。　 CASL2では全角の空白は使えない。　 "
           "CASL2では半角の空白を使う。",
     .en = "{quote}A full-width space is found at the end of START. \n"
           "A full-width space is not allowed to be used in casl2. \n"
           "A half-width space is allowed to be used in casl2. \n"
           "A full-width space should be deleted or replaced with a half-width space. "}};
constexpr Message spaceBeforeStart{
    "full-width-before-start",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}START の左（直前）に全角の空白がある。　 CASL2では全角の空白は使えない。　 "
           "CASL2では半角の空白を使う。",
     .en = "{quote}A full-width space at the front of START. \n"
           "A full-width space is not allowed to be used in casl2. \n"
           "A half-width space is allowed to be used in casl2. \n"
           "The full-width space should be deleted or replaced with a half-width space. "}};
constexpr Message spaceAfterEnd{
    "full-width-after-end",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}END の右（直後）に全角の空白がある。　 CASL2では全角の空白は使えない。　 "
           "CASL2では半角の空白を使う。",
     .en = "{quote}: A full-width space is found at the end of END. \n"
           "A full-width space is not allowed to be used in casl2. \n"
           "Delete the full-width space at the end of the END. "}};
constexpr Message spaceBeforeEnd{
    "full-width-before-end",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}END の左（直前）に全角の空白がある。　 CASL2では全角の空白は使えない。　 "
           "CASL2では半角の空白を使う。",
     .en = "{quote}: A full-width space is found at the front of END. \n"
           "A full-width space is not allowed to be used in casl2. \n"
           "A half-width space is allowed to be used in casl2.  \n"
           "Delete the full-width space at the front of the END. "}};

constexpr Words kStartHead{.ja = "エラー： {line} 行目： START の文字はある。けれども、 ",
                           .en = "Error : line {line}: "};
constexpr Message startThenSpace =
    Message{"start-then-full-width",
            Severity::Error,
            Head::Own,
            args(),
            {.ja = "START の右に全角の空白がある。 全角の空白文字は使えない。　",
             .en = "A full-width space is found at the right side of START statement. \n"
                   "A full-width space is not allowed in CASL2. \n"
                   "A full-width space should be deleted or replaced with a half-width space. "}}
        .withHead(kStartHead);
constexpr Message spaceThenStart =
    Message{"full-width-then-start",
            Severity::Error,
            Head::Own,
            args(),
            {.ja = "START の左に全角の空白がある。 全角の空白文字は使えない。　",
             .en = "A full-width space is found before START statement. \n"
                   "A full-width space is not allowed for use in CASL2. \n"
                   "A full-width space should be deleted or replaced with a half-width space. "}}
        .withHead(kStartHead);

constexpr Words kEndHead{.ja = "エラー： {line} 行目： END の文字はある。けれども、 ",
                         .en = "Error : line {line}: "};
constexpr Message endThenSemicolon =
    Message{"end-then-semicolon",
            Severity::Error,
            Head::Own,
            args(),
            {.ja = " END の右に１個以上の空白が必要です。 \n"
                   "' END;'はエラー、' END' または 'END 'と記述する。 \n"
                   " （２．１　言語の仕様（４）　オペランドのない命令の場合） ",
             .en = " A space is expected at the right side of END instruction. \n"
                   "(Spce. of CASl2: 2.1  (4) in a case of Without operand. "}}
        .withHead(kEndHead);
constexpr Message spaceThenEnd =
    Message{"full-width-then-end",
            Severity::Error,
            Head::Own,
            args(),
            {.ja = " ENDの左に全角の空白がある。 全角の空白文字は使えない。　",
             .en = " A full-width space is found at the left side of END instruction. \n"
                   "It is not allowed to be used in CASL2. \n"
                   "It should be deleted or replaced with a half-width space. "},
            {{kNH,
              {.ja = {},
               .en = " There is a 2-byte space at the left side of END instruction. \n"
                     "The 2-byte space is not allowed for use in CASL2. \n"
                     "It should be replaced with a 1-byte space, or deleted. "}}}}
        .withHead(kEndHead);
constexpr Message endThenSpace =
    Message{"end-then-full-width",
            Severity::Error,
            Head::Own,
            args(),
            {.ja = " ENDの右に全角の空白がある。 全角の空白文字は使えない。　",
             .en = " A full-width space is found at the right side of END instruction. \n"
                   "It is not allowed for use in CASL2. \n"
                   "It should be deleted or replaced with a half-width space. "}}
        .withHead(kEndHead);

/// Whether a text holds a word directly followed by a full-width space ...
template <class Char>
bool wordThenSpace(std::basic_string_view<Char> text, std::string_view word) {
  for (std::size_t at = zelvaro::find(text, word); at != text.npos; at = zelvaro::find(text, word, at + 1))
    if (text.substr(at + word.size()).starts_with(zenKakuSpace<Char>())) return true;
  return false;
}
/// ... or directly after one.
template <class Char>
bool spaceThenWord(std::basic_string_view<Char> text, std::string_view word) {
  for (std::size_t at = zelvaro::find(text, word); at != text.npos; at = zelvaro::find(text, word, at + 1))
    if (text.substr(0, at).ends_with(zenKakuSpace<Char>())) return true;
  return false;
}

/// Reports the first line with a full-width space at the word; a space after the word is searched first.
template <class Char>
void detSpace(Assembly& a, std::string_view word, const Message<1>& after, const Message<1>& before) {
  for (const auto& line : a.store<Char>().lines()) {
    if (wordThenSpace(line.SrcWork, word)) {
      a.sh.report(after, line.Line, quote(line.SrcStr));
      return;
    }
    if (spaceThenWord(line.SrcWork, word)) {
      a.sh.report(before, line.Line, quote(line.SrcStr));
      return;
    }
  }
}

}  // namespace

template <class Char>
void DetSTARTatZenKakuSpace(Assembly& a) {
  detSpace<Char>(a, "START", spaceAfterStart, spaceBeforeStart);
}

template <class Char>
void DetENDatZenKakuSpace(Assembly& a) {
  detSpace<Char>(a, "END", spaceAfterEnd, spaceBeforeEnd);
}

template <class Char>
void CkSTART_LR(Assembly& a) {
  for (const auto& line : a.store<Char>().lines()) {
    if (wordThenSpace(line.SrcWork, "START")) {
      a.sh.report(startThenSpace, line.Line);
      return;
    }
    if (spaceThenWord(line.SrcWork, "START")) {
      a.sh.report(spaceThenStart, line.Line);
      return;
    }
  }
}

template <class Char>
void CkEnd_LR(Assembly& a) {
  for (const auto& line : a.store<Char>().lines()) {
    if (find(line.SrcWork, " END;") != line.SrcWork.npos) {
      a.sh.report(endThenSemicolon, line.Line);
      return;
    }
    if (spaceThenWord(line.SrcWork, "END")) {
      a.sh.report(spaceThenEnd, line.Line);
      return;
    }
    if (wordThenSpace(line.SrcWork, "END")) {
      a.sh.report(endThenSpace, line.Line);
      return;
    }
  }
}

template void DetSTARTatZenKakuSpace<char16_t>(Assembly&);
template void DetSTARTatZenKakuSpace<char>(Assembly&);
template void DetENDatZenKakuSpace<char16_t>(Assembly&);
template void DetENDatZenKakuSpace<char>(Assembly&);
template void CkSTART_LR<char16_t>(Assembly&);
template void CkSTART_LR<char>(Assembly&);
template void CkEnd_LR<char16_t>(Assembly&);
template void CkEnd_LR<char>(Assembly&);

RowList rowsOfZenKakuStartEnd() {
  return rows(spaceAfterStart, spaceBeforeStart, spaceAfterEnd, spaceBeforeEnd, startThenSpace,
              spaceThenStart, endThenSemicolon, spaceThenEnd, endThenSpace);
}

}  // namespace zelvaro
