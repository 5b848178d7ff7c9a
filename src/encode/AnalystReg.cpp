// Explanations for what a learner is likely to have meant as a register: GR8, a number, small letters.
#include "diag/Quote.h"
#include "encode/Encoders.h"
#include "structure/ZenKaku.h"

namespace zelvaro {
namespace {

// --- a bad first operand ---
// The previous message has counted the fault.
constexpr Message firstIsGR89 =
    Message{"register-gr89",
            Severity::Error,
            Head::Line,
            args(),
            {.ja = " レジスタは GR0-GR7 の8個だけです。 GR8-GR9 はレジスタではない。 ",
             .en = "The comet2 has eight general registers of GR0-GR7. \n"
                   "Neither GR8 nor GR9 a general register is. \n"}}
        .uncounted();
constexpr Message firstBeginsWithDigit{
    "register-digit-first",
    Severity::Error,
    Head::Line,
    args("opnd"),
    {.ja = "{opnd} レジスタ名（やラベル）の先頭文字に数字は使えない。",
     .en = "The first character must be an alphabetical letter. \n"
           "A numerical is not allowed to be used as the 1st letter of a label of {opnd}. "}};
constexpr Message firstHoldsSmall{
    "register-lower-case",
    Severity::Error,
    Head::Line,
    args("opnd"),
    {.ja = "{opnd} 小文字がある。 小文字は CASL2 では使えない。",
     .en = "{opnd}: A half-width letter is found in it. It cannot be used in casl2."}};

// --- a bad index register ---
constexpr Message indexIsGR89{"index-gr89",
                              Severity::Error,
                              Head::Line,
                              args(),
                              {.ja = " 指標レジスタに使えるのは GR1-GR7 の7個だけです。\n"
                                     " GR8-GR9 はCASL2のレジスタとして存在しないので使えない。 ",
                               .en = "Neither GR8 nor GR9 a general register is. \n"
                                     "Each of the GR1-GR7 can be used as an index register. \n"
                                     "GR0 is not allowed to be an index register. "}};
constexpr Message indexBeginsWithDigit{
    "index-digit-first",
    Severity::Error,
    Head::Line,
    args("opnd"),
    {.ja = "{opnd}: レジスタ名（やラベル）の先頭文字に数字は使えない。",
     .en = "{opnd}: The 1st character of a label must be a capital alphabetical letter. \n"
           "A numeral cannot be used as the 1st letter of a label. "}};
constexpr Message indexHoldsSmall{"index-lower-case",
                                  Severity::Error,
                                  Head::Line,
                                  args("opnd"),
                                  {.ja = "{opnd}: 小文字がある。 小文字は CASL2 では使えない。",
                                   .en = "{opnd}: A lowercase character is found in it. \n"
                                         "A lowercase character is not allowed to be used in casl2. "}};

// --- LAD with a label that looks like a register ---
constexpr Message labelGR89{
    "label-gr89",
    Severity::Warning,
    Head::Line,
    args("opnd"),
    {.ja = "{opnd}  レジスタは GR0-GR7 の８個である。 CASL2 には GR8-GR9 のレジスタは無い。 "
           "GR0-GR7 は予約語だが、GR8-GR9 は予約語ではない。 GR8-GR9 の記述はラベルとみなされる。  "
           "混乱をさけるため GR8-GR9 をラベルとして使わないほうがよい。（推奨） ",
     .en = "{opnd} : The comet2 has eight general registers of GR0-GR7. "
           "Neither GR8 nor GR9 is a general register of comet2. "
           "GR0-GR7 are reserved words, but GR8-GR9 are not reserved ones. "
           "A description of GR8 or GR9 is regarded as a label. "
           "Using GR8-GR9 as a label would decrease readability of the source codes.  "
           "It would be better for you not to use GR8 or GR9 as a label. (Recommended) "}};

template <class View>
constexpr bool isGR89(View s) {
  return s.size() == 3 && beginsLikeGR89(s);
}

}  // namespace

template <class Char>
void AnalystNW(Assembly& a, const SrcData<Char>& line, ViewOf<Char> text) {
  if (beginsLikeGR89(text)) a.cs.report(firstIsGR89, line.Line);
  if (!text.empty() && isDigit(text.front())) a.cs.report(firstBeginsWithDigit, line.Line, plain(text));
  if (findSmall(text) != text.npos) a.cs.report(firstHoldsSmall, line.Line, plain(text));
}

template <class Char>
void AnalystIndexReg(Assembly& a, const SrcData<Char>& line, int n) {
  const ViewOf<Char> text = line.Oprnd[static_cast<std::size_t>(n)];
  if (isGR89(text)) {
    a.cs.report(indexIsGR89, line.Line);
  } else if (!text.empty() && isDigit(text.front())) {
    a.cs.report(indexBeginsWithDigit, line.Line, plain(text));
  }
  if (findSmall(text) != text.npos) a.cs.report(indexHoldsSmall, line.Line, plain(text));
}

template <class Char>
void AnalystGR89(Assembly& a, SrcData<Char>& line) {
  if (isGR89(line.Oprnd[2])) a.cs.report(labelGR89, line.Line, plain(line.Oprnd[2]));
}

template void AnalystNW<char16_t>(Assembly&, const SrcData<char16_t>&, ViewOf<char16_t>);
template void AnalystNW<char>(Assembly&, const SrcData<char>&, ViewOf<char>);
template void AnalystIndexReg<char16_t>(Assembly&, const SrcData<char16_t>&, int);
template void AnalystIndexReg<char>(Assembly&, const SrcData<char>&, int);
template void AnalystGR89<char16_t>(Assembly&, SrcData<char16_t>&);
template void AnalystGR89<char>(Assembly&, SrcData<char>&);

RowList rowsOfAnalystReg() {
  return rows(firstIsGR89, firstBeginsWithDigit, firstHoldsSmall, indexIsGR89, indexBeginsWithDigit,
              indexHoldsSmall, labelGR89);
}

}  // namespace zelvaro
