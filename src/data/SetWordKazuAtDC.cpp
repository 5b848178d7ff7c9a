// Kind and number of words of the operands of a DC.
#include "data/DC.h"
#include "diag/Quote.h"
#include "source/FixedForm.h"

namespace zelvaro {
namespace {

// The run goes on to SetMryInAtDC, which counts the Error.
constexpr Message oprndWithoutText =
    Message{Severity::Error, Head::Line, args("text", "ordinal"),
            bothLanguages("\"{text}\": The {ordinal} operand at DC is empty in description.")}
        .uncounted();

constexpr Message notConverted{Severity::Error, Head::None, args(),
                               bothLanguages("mbsrtowcs_s() has returned Error. MbChToWCs(). ")};

/// The fixed form keeps the bytes of a file as they are: one without a character shows here.  The
/// characters are counted by bytes then.
template <class Family>
int wordsOfCharConst(Assembly& a, int line, ViewOf<Family> text) {
  if constexpr (kIsFixedForm<Family>) {
    std::u16string wide;
    if (!cp932ToUtf16(text, wide)) {
      a.cs.report<Family, notConverted>(line);
      wide.assign(text.begin(), text.end());
      return CountWordKazuAtCharConst(std::u16string_view(wide));
    }
  }
  return CountWordKazuAtCharConst(text);
}

}  // namespace

template <class Family>
void SetWordKazuAtDC(Assembly& a, SrcOf<Family>& line) {
  int nr = 0;
  line.word_kazu = 0;
  for (auto& oprnd : a.store<Family>().oprndsAtDC(line)) {
    ++nr;
    oprnd.DataType = kindOfConst(oprnd.ConstStr);
    if (isEmptyConst(oprnd.ConstStr)) {
      a.cs.report<Family, oprndWithoutText>(line.Line, plain(oprnd.ConstStr), ordinal(nr));
      return;
    }
    if (oprnd.DataType == ConstKind::Const) {
      a.cs.selfCheck("Prg. Error: Unknown error of else. ");
      return;
    }
    oprnd.WordKazu =
        oprnd.DataType == ConstKind::CharConst ? wordsOfCharConst<Family>(a, line.Line, oprnd.ConstStr) : 1;
    line.word_kazu += oprnd.WordKazu;
  }
}

#define ZELVARO_INSTANTIATE(F) template void SetWordKazuAtDC<F>(Assembly&, SrcOf<F>&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)
#undef ZELVARO_INSTANTIATE

}  // namespace zelvaro
