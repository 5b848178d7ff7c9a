// The words of the DC lines.  Runs after the checks of a program and again in the link, when labels further
// down have their addresses.
#include "data/DC.h"
#include "data/EmptyStrConst.h"
#include "diag/Limits.h"
#include "diag/Quote.h"

namespace zelvaro {
namespace {

constexpr Message decOutOfRange =
    Message{"dc-range",
            Severity::Note,
            Head::Line,
            args("nr", "number"),
            {.ja = "\n十進定数 {number} が -32768 から 32767 "
                   "までの範囲にないので、その下位１６ビットが格納される。（仕様2・3（４））  ",
             .en = "{number} \nThe decimal number constant is out of range. \n"
                   "It should be between -32768 and +32767. \n"
                   "So its lower 16 bits are saved in memory. \n(CASL2 Spec. 2.3 (4)) "}}
        .withHead({.ja = "注意： {line} 行目： {nr} 番目の定数： ",
                   .en = "Note : line {line}:  Constant Nr={nr}: "});

constexpr Message labelUnknown{"dc-label-unknown",
                               Severity::Error,
                               Head::Line,
                               args("text"),
                               {.ja = ": アドレス定数 {text} と一致する ラベル が存在しない。",
                                .en = "{text} is not an address constant. \n"
                                      "No label or program name matches the address constant of '{text}'. "}};

constexpr Message oprndWithoutText{
    "dc-operand-empty", Severity::Error, Head::Line, args("quote", "ordinal"),
    bothLanguages("{quote}: The {ordinal} operand at DC is empty in description.")};

/// The number after "#".
template <class View>
int hexValue(View text) {
  unsigned value = 0;
  for (const auto c : text.substr(1)) {
    value = value << 4 | static_cast<unsigned>(digitValue(c));
  }
  return static_cast<int>(value);
}

template <class Char>
int decOfDC(Assembly& a, int line, int nr, ViewOf<Char> text) {
  const int value = decimalValue(text);
  if (value < kLeastSigned || value > kGreatestSigned) a.cs.report(decOutOfRange, line, nr, value);
  return value;
}

template <class Char>
int addressOfLabel(Assembly& a, const SrcData<Char>& line, ViewOf<Char> text) {
  const int label = a.program<Char>(line.PrgNr).findLabel(text);
  if (label >= 0) return a.store<Char>()[label].AbAdr;
  a.cs.report(labelUnknown, line.Line, plain(text));
  return 0;
}

/// One element: its kind and its words.  False for a constant without characters.
template <class Char>
bool setMry(Assembly& a, SrcData<Char>& line, int nr, OprndAtDC<Char>& oprnd) {
  oprnd.DataType = kindOfConst(oprnd.ConstStr);
  oprnd.WordKazu = 1;
  switch (oprnd.DataType) {
    case ConstKind::Hex:
      oprnd.Value = hexValue(oprnd.ConstStr);
      break;
    case ConstKind::Dec:
      oprnd.Value = decOfDC(a, line.Line, nr, oprnd.ConstStr);
      break;
    case ConstKind::AdrConst:
      oprnd.Value = addressOfLabel(a, line, oprnd.ConstStr);
      break;
    case ConstKind::CharConst:
      oprnd.WordKazu = CountWordKazuAtCharConst(oprnd.ConstStr);
      if (oprnd.WordKazu == 0) {
        a.cs.report(strConstNoMozi, line.Line, nr);
        return false;
      }
      break;
    case ConstKind::Const:
      a.cs.report(oprndWithoutText, line.Line, quote(oprnd.ConstStr), ordinal(nr));
      oprnd.WordKazu = 0;
      break;
  }
  line.word_kazu += oprnd.WordKazu;
  return true;
}

}  // namespace

template <class Char>
void SetMryInAtDC(Assembly& a, int prg) {
  LineStore<Char>& store = a.store<Char>();
  for (SrcData<Char>& line : store.linesBeforeEnd(a.program<Char>(prg))) {
    if (opOf(line) != Op::DC) continue;
    line.word_kazu = 0;
    int nr = 0;
    for (auto& oprnd : store.oprndsAtDC(line))
      if (!setMry(a, line, ++nr, oprnd)) return;
  }
}

template void SetMryInAtDC<char16_t>(Assembly&, int);
template void SetMryInAtDC<char>(Assembly&, int);

RowList rowsOfSetMryInAtDC() {
  return rows(strConstNoMozi, decOutOfRange, labelUnknown, oprndWithoutText);
}

}  // namespace zelvaro
