// Cleans the operand text of DC and DS: comment, runs of blanks, blanks at commas.
#include <algorithm>

#include "data/Data.h"
#include "data/StrConst.h"
#include "diag/Quote.h"

namespace zelvaro {
namespace {

constexpr Message strConstEmpty{
    "dc-string-empty",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: 文字定数の文字数は１個以上必要です。 ０個は不可。 （仕様 2.3 (4) 文字定数）",
     .en = "{quote}: The size of a character constant must be greater than zero. "
           "* It is not allowed to be zero. \n"
           "This instruction allocates a continuous area for the number of characters(> 0) in the character "
           "string.(Spec. 2.3 (4) Character Constant) "},
    {{kNWW,
      {.ja = "文字定数の文字数は１個以上必要。０個は不可。 仕様 2.3 (4) 文字定数",
       .en = "The length of a literal character constant must be more than zero. "
             "It is not allowed to be zero. (Spec. of CASL2 2.3 (4) Character Constant) "}},
     {kNH,
      {.ja = "文字定数の文字数は１個以上必要です。０個は不可。 仕様 2.3 (4) 文字定数",
       .en = "One or more characters must be contained in a character constant. "
             "It is not allowed that the length of of the character constant is zero. "
             "(Spec. of CASL2: 2.3 (4) Character Constant) "}}}};

constexpr Message strConstOpen{
    "dc-string-not-closed",
    Severity::Error,
    Head::Line,
    args("quote"),
    {.ja = "{quote}: アポストロフィに着目: アポストロフィ(')は２個続けて('')書く。 （仕様 2.3 (4) 文字定数）",
     .en =
         "{quote}: The character constant is not correctly closed. "
         "Note! Apostrophe.  If you want an apostrophe to appear within a character constant, you must type "
         "two apostrophes such as ('') in a row. (Spec. 2.3 (4) Character Constant) "},
    {{kNH,
      {.ja = "文字定数が正しく閉じていない。アポストロフィに着目。 アポストロフィ(')は２個続けて('')書く。 "
             "仕様 2.3 (4) 文字定数",
       .en = "The string constant is not correctly closed. Note! Apostrophe.  If you want an apostrophe to "
             "appear within a string constant, you must type two apostrophes such as ('') in a row. "
             "(Specification 2.3 (4) String Constant) "}}}};

/// The text without the blanks for which drop(index) is true; every other tab becomes a blank.  Character
/// constants are not changed.  A text without any change is returned itself.
template <class Char, class Drop>
std::basic_string_view<Char> withoutBlanks(TextArena<Char>& arena, std::basic_string_view<Char> text,
                                           Drop drop) {
  const auto changes = [&](std::size_t i) { return text[i] == Char('\t') || drop(i); };
  if (findOutsideStrConst(text, changes) == text.size()) return text;
  Char* const out = arena.allocate(text.size());
  Char* next = out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == Char('\'')) {
      const std::size_t last = std::min(DetStrConstGL10(text, i), text.size() - 1);
      next = std::copy(text.begin() + i, text.begin() + last + 1, next);
      i = last;
    } else if (!drop(i)) {
      *next++ = isBlank(text[i]) ? Char(' ') : text[i];
    }
  }
  return {out, static_cast<std::size_t>(next - out)};
}

template <class Char>
bool ckStrConsts(Assembly& a, int line, ViewOf<Char> text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != Char('\'')) continue;
    const std::size_t open = i;
    i = DetStrConstGL10(text, open);
    if (i == text.size()) {
      a.cs.report(strConstOpen, line, quote(text));
      return false;
    }
    if (i == open + 1) {
      a.cs.report(strConstEmpty, line, quote(text));
      return false;
    }
  }
  return true;
}

}  // namespace

template <class Char>
bool OprndAtDCtoChH(Assembly& a, SrcData<Char>& line) {
  TextArena<Char>& arena = a.store<Char>().arena;
  ViewOf<Char> text = line.Oprnd[0];
  text =
      trim(text.substr(0, findOutsideStrConst(text, [text](std::size_t i) { return text[i] == Char(';'); })));
  text = withoutBlanks(arena, text,
                       [text](std::size_t i) { return isBlank(text[i]) && i > 0 && isBlank(text[i - 1]); });
  line.Oprnd[0] = text;
  if (!ckStrConsts(a, line.Line, text)) return false;
  line.Oprnd[0] = withoutBlanks(arena, text, [text](std::size_t i) {
    if (!isBlank(text[i])) return false;
    return (i > 0 && text[i - 1] == Char(',')) || (i + 1 < text.size() && text[i + 1] == Char(','));
  });
  return true;
}

template bool OprndAtDCtoChH<char16_t>(Assembly&, SrcData<char16_t>&);
template bool OprndAtDCtoChH<char>(Assembly&, SrcData<char>&);

RowList rowsOfOprndAtDCtoChH() {
  return rows(strConstEmpty, strConstOpen);
}

}  // namespace zelvaro
