// The words of the DC lines.  Runs behind the checks of a program and once more in the link: a label
// further down has its address then.
#include "data/DC.h"
#include "data/EmptyStrConst.h"
#include "diag/Quote.h"

namespace zelvaro {
namespace {

constexpr Message decOutOfRange =
    Message{Severity::Note,
            Head::Line,
            args("nr", "number"),
            {.ja = "\n十進定数 {number} が -32768 から 32767 "
                   "までの範囲にないので、その下位１６ビットが格納される。（仕様2・3（４））  ",
             .en = "{number} \nThe decimal number constant is out of range. \n"
                   "It should be between -32768 and +32767. \n"
                   "So its lower 16 bits are saved in memory. \n(CASL2 Spec. 2.3 (4)) "}}
        .withHead({.ja = "注意： {line} 行目： {nr} 番目の定数： ",
                   .en = "Note : line {line}:  Constant Nr={nr}: "});

constexpr Message labelUnknown{Severity::Error,
                               Head::Line,
                               args("text"),
                               {.ja = ": アドレス定数 {text} と一致する ラベル が存在しない。",
                                .en = "{text} is not an address constant. \n"
                                      "No label or program name matches the address constant of '{text}'. "}};

constexpr Message oprndWithoutText{
    Severity::Error, Head::Line, args("quote", "ordinal"),
    bothLanguages("{quote}: The {ordinal} operand at DC is empty in description.")};

/// The number behind "#".
template <class View>
int hexValue(View text) {
  unsigned value = 0;
  for (const auto c : text.substr(1)) {
    value = value << 4 | static_cast<unsigned>(digitValue(c));
  }
  return static_cast<int>(value);
}

template <class Family>
int decOfDC(Assembly& a, int line, int nr, ViewOf<Family> text) {
  const int value = decimalValue(text);
  if (value < -32768 || value > 32767) a.cs.report<Family, decOutOfRange>(line, nr, value);
  return value;
}

template <class Family>
int addressOfLabel(Assembly& a, const SrcOf<Family>& line, ViewOf<Family> text) {
  const int label = a.program<Family>(line.PrgNr).findLabel(text);
  if (label >= 0) return a.store<Family>()[label].AbAdr;
  a.cs.report<Family, labelUnknown>(line.Line, plain(text));
  return 0;
}

/// One element: its kind, its words and their addresses.  Negative for a constant without characters.
template <class Family>
int setMry(Assembly& a, SrcOf<Family>& line, int nr, OprndAtDC<CharOf<Family>>& oprnd) {
  oprnd.RelAdr = line.RelAdr + line.word_kazu;
  oprnd.AbAdr = line.AbAdr + line.word_kazu;
  oprnd.DataType = kindOfConst(oprnd.ConstStr);
  oprnd.WordKazu = 1;
  switch (oprnd.DataType) {
    case ConstKind::Hex:
      oprnd.Value = hexValue(oprnd.ConstStr);
      break;
    case ConstKind::Dec:
      oprnd.Value = decOfDC<Family>(a, line.Line, nr, oprnd.ConstStr);
      break;
    case ConstKind::AdrConst:
      oprnd.Value = addressOfLabel<Family>(a, line, oprnd.ConstStr);
      break;
    case ConstKind::CharConst:
      oprnd.WordKazu = CountWordKazuAtCharConst(oprnd.ConstStr);
      if (oprnd.WordKazu == 0) {
        a.cs.report<Family, strConstNoMozi>(line.Line, nr);
        return -1;
      }
      break;
    case ConstKind::Const:
      a.cs.report<Family, oprndWithoutText>(line.Line, quote(oprnd.ConstStr), ordinal(nr));
      oprnd.WordKazu = 0;
      break;
  }
  line.word_kazu += oprnd.WordKazu;
  return 0;
}

}  // namespace

template <class Family>
int SetMryInAtDC(Assembly& a, int prg) {
  LineStore<CharOf<Family>>& store = a.store<Family>();
  for (SrcOf<Family>& line : store.linesBeforeEnd(a.program<Family>(prg))) {
    if (opOf(line) != Op::DC) continue;
    line.word_kazu = 0;
    int nr = 0;
    for (auto& oprnd : store.oprndsAtDC(line))
      if (setMry<Family>(a, line, ++nr, oprnd) < 0) return -1;
  }
  return 0;
}

#define ZELVARO_INSTANTIATE(F) template int SetMryInAtDC<F>(Assembly&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)
#undef ZELVARO_INSTANTIATE

}  // namespace zelvaro
