// Kind and number of words of the operands of a DC.
#include "data/DC.h"
#include "diag/Quote.h"

namespace zelvaro {
namespace {

// The run goes on to SetMryInAtDC, which counts the Error.
constexpr Message oprndWithoutText =
    Message{"dc-operand-without-text", Severity::Error, Head::Line, args("text", "ordinal"),
            bothLanguages("\"{text}\": The {ordinal} operand at DC is empty in description.")}
        .uncounted();

constexpr Message unknownKind = selfCheck("self-dc-kind", args(), "Prg. Error: Unknown error of else. ");
constexpr Message notConverted{"dc-not-text", Severity::Error, Head::None, args(),
                               bothLanguages("mbsrtowcs_s() has returned Error. MbChToWCs(). ")};

/// The fixed form keeps the bytes of a file unchanged: an undecodable byte is found here.  The characters are
/// then counted in bytes.
template <class Char>
int wordsOfCharConst(Assembly& a, int line, ViewOf<Char> text) {
  if constexpr (std::is_same_v<Char, char>) {
    std::u16string wide;
    if (a.family.loader == Loader::Fixed && !cp932ToUtf16(text, wide)) {
      a.cs.report(notConverted, line);
      wide.assign(text.begin(), text.end());
      return CountWordKazuAtCharConst(std::u16string_view(wide));
    }
  }
  return CountWordKazuAtCharConst(text);
}

}  // namespace

template <class Char>
void SetWordKazuAtDC(Assembly& a, SrcData<Char>& line) {
  int nr = 0;
  line.word_kazu = 0;
  for (auto& oprnd : a.store<Char>().oprndsAtDC(line)) {
    ++nr;
    oprnd.DataType = kindOfConst(oprnd.ConstStr);
    if (isEmptyConst(oprnd.ConstStr)) {
      a.cs.report(oprndWithoutText, line.Line, plain(oprnd.ConstStr), ordinal(nr));
      return;
    }
    if (oprnd.DataType == ConstKind::Const) {
      a.cs.report(unknownKind, line.Line);
      return;
    }
    oprnd.WordKazu =
        oprnd.DataType == ConstKind::CharConst ? wordsOfCharConst(a, line.Line, oprnd.ConstStr) : 1;
    line.word_kazu += oprnd.WordKazu;
  }
}

template void SetWordKazuAtDC<char16_t>(Assembly&, SrcData<char16_t>&);
template void SetWordKazuAtDC<char>(Assembly&, SrcData<char>&);

RowList rowsOfSetWordKazuAtDC() {
  return rows(oprndWithoutText, unknownKind, notConverted);
}

}  // namespace zelvaro
