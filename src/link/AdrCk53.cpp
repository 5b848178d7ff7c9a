// AdrCk53: the address pass over one program.  It counts the addresses forward and resolves the address
// operands with the labels known so far; in the second run, in the link, all are known.
#include <algorithm>
#include <limits>

#include "diag/Quote.h"
#include "link/Layout.h"
#include "link/Link.h"
#include "macro/Macro.h"

namespace zelvaro {
namespace {

// A guard: no line that has passed the opcode check gets here.
constexpr Message unknownOp =
    Message{"self-opcode-unknown",
            Severity::Error,
            Head::None,
            args("op", "count"),
            {.ja = "{line} 行目： {op} に該当する命令がない。\nword_kazu[{line}]={count}",
             .en = "line {line}: {op} is not an op code defined in casl2. "}}
        .unlogged();

/// The relative and the absolute address of the next word.  They saturate at the greatest int, which is far
/// above the machine's size and refused after the pass.
struct Counters {
  std::int32_t rel = 0;
  std::int32_t abs = 0;

  void advance(std::int32_t words) {
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    rel = rel > kMost - words ? kMost : rel + words;
    abs = abs > kMost - words ? kMost : abs + words;
  }
};

/// Gives a line the current addresses and advances them by its words.
template <class Char>
void place(SrcData<Char>& line, Counters& at) {
  line.RelAdr = at.rel;
  line.AbAdr = at.abs;
  at.advance(line.word_kazu);
}

template <class Char>
void placeOneWord(SrcData<Char>& line, Counters& at, int word) {
  line.Word1 = word;
  line.word_kazu = 1;
  place(line, at);
}

template <class Char>
bool placeMachine(Assembly& a, SrcData<Char>& line, const Instruction& i, Counters& at) {
  switch (i.form) {
    case OpForm::None:
      placeOneWord(line, at, firstWord(i.adrCode));
      return true;
    case OpForm::Both:
    case OpForm::Memory:
    case OpForm::Branch:
    case OpForm::Single:
      break;
    default:
      return false;
  }
  if (line.word_kazu == 2) {
    line.RelAdr = at.rel;
    line.AbAdr = at.abs;
    // After a fault the line gets no words, so the addresses do not advance.
    if (CkAdrConst22(a, line, addressOprnd(i))) at.advance(line.word_kazu);
    return true;
  }
  if (line.word_kazu != 1) return false;
  place(line, at);
  return true;
}

template <class Char>
void placeStart(Assembly& a, int prg, SrcData<Char>& line, Counters& at) {
  if (line.word_kazu == 2) {
    if (CkStartAdrOperand(a, prg, line)) place(line, at);
  } else {
    placeOneWord(line, at, 0);
  }
}

template <class Char>
bool placeMacro(Assembly& a, SrcData<Char>& line, Op op, Counters& at) {
  switch (op) {
    case Op::IN:
    case Op::OUT:
      if (line.word_kazu != kInOutWords) return false;
      address3_ck(a, line, 1);
      address3_ck(a, line, 2);
      InOut1(a, line);
      break;
    case Op::RPUSH:
      if (line.word_kazu != kRpushWords) return false;
      break;
    case Op::RPOP:
      if (line.word_kazu != kRpopWords) return false;
      break;
    default:
      return false;
  }
  place(line, at);
  return true;
}

/// False for a line without a case of its own.
template <class Char>
bool placeLine(Assembly& a, int prg, SrcData<Char>& line, Counters& at) {
  const Op op = opOf(line);
  if (op == Op::Unknown) return false;
  const Instruction& i = instruction(op);
  switch (i.opClass) {
    case OpClass::Machine:
      return placeMachine(a, line, i, at);
    case OpClass::Macro:
      return placeMacro(a, line, op, at);
    case OpClass::Assembler:
      break;
    case OpClass::NhOnly:
      return a.family.knowsEXIT && placeMachine(a, line, i, at);
  }
  if (op == Op::END) return false;
  if (op == Op::START) {
    placeStart(a, prg, line, at);
  } else {
    place(line, at);  // DC and DS, in the order of the lines
  }
  return true;
}

/// The literals follow the lines, in the order of the lines that use them.
template <class Char>
void placeLiterals(LineStore<Char>& store, const PrgData<Char>& program, Counters& at) {
  for (SrcData<Char>& line : store.linesBeforeEnd(program)) {
    if (line.LiteralNr < 0 || line.OpStr.empty() || line.word_kazu == 0) continue;
    AdrConst<Char>& literal = *store.literal(line);
    literal.AbAdr = at.abs;
    line.Word2 = at.abs;
    at.advance(literal.WordKazu);
  }
}

}  // namespace

template <class Char>
void AdrCk53(Assembly& a, int prg) {
  LineStore<Char>& store = a.store<Char>();
  PrgData<Char>& program = a.program<Char>(prg);
  Counters at{0, program.AbAdrAtStart};
  forEachInMemory(store.linesBeforeEnd(program), a.family.dataPlace, [&](SrcData<Char>& line) {
    if (!placeLine(a, prg, line, at)) a.cs.report(unknownOp, line.Line, plain(line.OpStr), line.word_kazu);
    return true;
  });
  program.AbAdrAfterCode = at.abs;
  placeLiterals(store, program, at);
  program.PrgSize = at.rel;
  program.AbAdrAtEnd = at.abs - 1;
  const auto next = static_cast<std::size_t>(prg) + 1;
  if (next < store.vecPrg.size()) {
    store.vecPrg[next].AbAdrAtStart = at.abs;
  } else {
    a.b.PrgEndAdr = at.abs;
  }
}

template void AdrCk53<char16_t>(Assembly&, int);
template void AdrCk53<char>(Assembly&, int);

RowList rowsOfAdrCk53() {
  return rows(unknownOp);
}

}  // namespace zelvaro
