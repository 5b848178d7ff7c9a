// The analysers of one word: a full-width space or character that makes it invalid.
#include <algorithm>

#include "diag/Quote.h"
#include "structure/Words.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message spaceInWord{
    "full-width-space",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} の中に全角の空白がある。 CASL2には全角の空白は使えない。　 CASL2では半角の空白を使う。",
     .en = "{quote}: \nA full-width space is found in {quote}\n"
           "A full-width space is not allowed to be used in CASL2. \n"
           "A full-width space should be deleted or replaced with a half-width space.  "}};
constexpr Message spaceInOperand{
    "full-width-space-in-operand",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} の中に全角の空白がある。\nCASL2には全角の空白は使えない。　\nCASL2では半角の空白を使う。",
     .en = "{quote}: \nA full-width space in the word. \n"
           "It is not allowed to be used in casl2. \n"
           "A half-width space is allowed to be used in casl2.  \n"
           "The full-width space should be deleted or replaced with a half-width space. "},
    {{kNarrow,
      {.ja = {},
       .en = "{quote}: \nA full-width is found. \n"
             "It is not allowed to be used in casl2. \n"
             "A half-width space is allowed to be used in casl2.  \n"
             "The full-width space should be deleted or replaced with a half-width space. "}}}};
constexpr Message moziInAdrConst{
    "full-width-in-address",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} の中に全角の文字がある。\n CASL2では全角の文字は使えない。\n CASL2では半角の空白を使う。",
     .en = "{quote}: \nA full-width character is found in the word. \n"
           "This character is not allowed in CASL2. \n"
           "Remove off the full-width character. \n"
           "A half-width space is allowed in CASL2.  "}};
constexpr Message moziInStart{"full-width-in-start",
                              Severity::Error,
                              Head::Line,
                              args("quote"),
                              {.ja = "{quote}:  の中に全角の文字がある。 \n CASL2では全角の文字は使えない。",
                               .en = "{quote}: \nA full-width character is found. \n"
                                     "This character is not allowed to use in CASL2. \n"
                                     "It should be deleted. "}};

}  // namespace

template <class Char>
bool AnalystZenKSpace20NW(TMsgBase& owner, int line, ViewOf<Char> word) {
  if (!holdsZenKakuSpace(word)) return false;
  owner.report(spaceInWord, line, quote(word));
  return true;
}

template <class Char>
bool AnalystZenKSpace20(TMsgBase& owner, int line, ViewOf<Char> word) {
  if (!holdsZenKakuSpace(word)) return false;
  owner.report(spaceInOperand, line, quote(word));
  return true;
}

template <class Char>
bool AnalystZenKMozi(TMsgBase& owner, int line, ViewOf<Char> word) {
  if (!holdsFullWidth(word)) return false;
  owner.report(moziInAdrConst, line, quote(word));
  return true;
}

template <class Char>
bool AnalystZenKakuMoziStr(TMsgBase& owner, int line, ViewOf<Char> word) {
  if (!holdsFullWidth(word)) return false;
  owner.report(moziInStart, line, quote(word));
  return true;
}

template <class Char>
int DetNonLabelMoziPos(ViewOf<Char> word) {
  const auto at = std::find_if_not(word.begin(), word.end(), isLabelMozi<Char>);
  return at == word.end() ? -1 : static_cast<int>(at - word.begin());
}

template bool AnalystZenKSpace20NW<char16_t>(TMsgBase&, int, ViewOf<char16_t>);
template bool AnalystZenKSpace20NW<char>(TMsgBase&, int, ViewOf<char>);
template bool AnalystZenKSpace20<char16_t>(TMsgBase&, int, ViewOf<char16_t>);
template bool AnalystZenKSpace20<char>(TMsgBase&, int, ViewOf<char>);
template bool AnalystZenKMozi<char16_t>(TMsgBase&, int, ViewOf<char16_t>);
template bool AnalystZenKMozi<char>(TMsgBase&, int, ViewOf<char>);
template bool AnalystZenKakuMoziStr<char16_t>(TMsgBase&, int, ViewOf<char16_t>);
template bool AnalystZenKakuMoziStr<char>(TMsgBase&, int, ViewOf<char>);
template int DetNonLabelMoziPos<char16_t>(ViewOf<char16_t>);
template int DetNonLabelMoziPos<char>(ViewOf<char>);

RowList rowsOfZenKakuWord() {
  return rows(spaceInWord, spaceInOperand, moziInAdrConst, moziInStart);
}

}  // namespace zelvaro
