// The analysers of one word: a full-width space or character that makes it fail.
#include <algorithm>

#include "diag/Quote.h"
#include "structure/Words.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

constexpr Message spaceInWord{
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} の中に全角の空白がある。 CASL2には全角の空白は使えない。　 CASL2では半角の空白を使う。",
     .en = "{quote}: \nA full-width space is found in {quote}\n"
           "A full-width space is not allowed to be used in CASL2. \n"
           "A full-width space should be deleted or replaced with a half-width space.  "}};
constexpr Message spaceInOperand{
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
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote} の中に全角の文字がある。\n CASL2では全角の文字は使えない。\n CASL2では半角の空白を使う。",
     .en = "{quote}: \nA full-width character is found in the word. \n"
           "This character is not allowed in CASL2. \n"
           "Remove off the full-width character. \n"
           "A half-width space is allowed in CASL2.  "}};
constexpr Message moziInStart{Severity::Error,
                              Head::Line,
                              args("quote"),
                              {.ja = "{quote}:  の中に全角の文字がある。 \n CASL2では全角の文字は使えない。",
                               .en = "{quote}: \nA full-width character is found. \n"
                                     "This character is not allowed to use in CASL2. \n"
                                     "It should be deleted. "}};
constexpr Message notLabelMozi =
    Message{Severity::Error,
            Head::Own,
            args("quote", "position"),
            {.ja = "{position}　文字目にアドレス定数で使えない文字がある。",
             .en = "An invalid character is found in the address constant of {quote}."}}
        .withHead({.ja = "エラー： {line} 行目： {quote}", .en = "Error : {quote}line {line}: "});

}  // namespace

template <class Family>
int AnalystZenKSpace20NW(TMsgBase& owner, int line, ViewOf<Family> word) {
  if (!holdsZenKakuSpace(word)) return 0;
  owner.report<Family, spaceInWord>(line, quote(word));
  return 1;
}

template <class Family>
int AnalystZenKSpace20(TMsgBase& owner, ViewOf<Family> word, int line) {
  if (!holdsZenKakuSpace(word)) return 0;
  owner.report<Family, spaceInOperand>(line, quote(word));
  return 1;
}

template <class Family>
int AnalystZenKMozi(TMsgBase& owner, ViewOf<Family> word, int line) {
  if (!holdsFullWidth(word)) return 0;
  owner.report<Family, moziInAdrConst>(line, quote(word));
  return 1;
}

template <class Family>
int AnalystZenKakuMoziStr(TMsgBase& owner, int line, ViewOf<Family> word) {
  if (!holdsFullWidth(word)) return 0;
  owner.report<Family, moziInStart>(line, quote(word));
  return 1;
}

template <class Family>
int DetNonLabelMoziPos(TMsgBase& owner, int line, ViewOf<Family> word, bool report) {
  const auto at = std::ranges::find_if_not(word, isLabelMozi<CharOf<Family>>);
  if (at == word.end()) return -1;
  const int position = static_cast<int>(at - word.begin());
  if (report) owner.report<Family, notLabelMozi>(line, quote(word), position + 1);
  return position;
}

#define ZELVARO_INSTANTIATE(F)                                      \
  template int AnalystZenKSpace20NW<F>(TMsgBase&, int, ViewOf<F>);  \
  template int AnalystZenKSpace20<F>(TMsgBase&, ViewOf<F>, int);    \
  template int AnalystZenKMozi<F>(TMsgBase&, ViewOf<F>, int);       \
  template int AnalystZenKakuMoziStr<F>(TMsgBase&, int, ViewOf<F>); \
  template int DetNonLabelMoziPos<F>(TMsgBase&, int, ViewOf<F>, bool);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
