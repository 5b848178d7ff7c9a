// SetMemory10: copies the words of one program to the memory of the machine; of a number beyond 16 bits only
// the low 16 bits.
#include "link/SetMemory10.h"

#include <algorithm>
#include <array>

#include "data/EmptyStrConst.h"
#include "link/Layout.h"
#include "macro/Macro.h"

namespace zelvaro {
namespace {

constexpr Message wordOverwritten =
    selfCheck("self-word-overwritten", args("address", "cell", "word"),
              "(adr, Mry[adr], iVal)=({address}, {cell}, {word}) 2BAC3F64 at SetMemoryNA();");
constexpr Message constWithoutKind = selfCheck("self-constant-kind", args("index"),
                                               "Prg. Error of else: Const line={line}\n"
                                               "a strange DataTypeStrFlag of vecOprndAtDC[{index}] = Const");

/// Writes words one after the other.  Nothing is written outside the memory.
template <class Char>
class Writer {
 public:
  Writer(Assembly& a, Tcomet2& m, std::int32_t adr) : a_(a), m_(m), adr_(adr) {}

  std::int32_t adr() const { return adr_; }
  void put(std::int32_t word) {
    if (word > 0xFFFF || word < -0x8000) word = unsignedWord(word);
    const auto at = static_cast<std::size_t>(adr_++);
    if (at >= m_.Memory.size()) return;
    std::int32_t& cell = m_.Memory[at];
    if (a_.family.keepsWords && cell != 0 && cell != word) return refuse(at, word);
    cell = word;
  }
  /// Words of 0.  Cells that have not been written since the reset are already 0.
  void putZeros(std::int32_t words) {
    const auto begin = static_cast<std::size_t>(adr_);
    const std::size_t end = std::min(begin + static_cast<std::size_t>(words), m_.Memory.touched());
    for (std::size_t at = begin; at < end; ++at) m_.Memory[at] = 0;
    adr_ += words;
  }
  int putChars(ViewOf<Char> text) {
    const std::int32_t start = adr_;
    forEachCharConstWord(text, [this](int word) { put(word); });
    return adr_ - start;
  }

 private:
  // The narrow pipelines do not overwrite a word.
  void refuse(std::size_t at, std::int32_t word) { a_.b.say(wordOverwritten, at, m_.Memory[at], word); }

  Assembly& a_;
  Tcomet2& m_;
  std::int32_t adr_;
};

template <class Char>
bool putDC(Assembly& a, const SrcData<Char>& line, Writer<Char>& out) {
  int place = 0;
  for (OprndAtDC<Char>& constant : a.store<Char>().oprndsAtDC(line)) {
    ++place;
    constant.AbAdr = out.adr();
    switch (constant.DataType) {
      case ConstKind::Dec:
      case ConstKind::Hex:
      case ConstKind::AdrConst:
        out.put(constant.Value);
        break;
      case ConstKind::CharConst:
        if (out.putChars(constant.ConstStr) == 0 && !a.family.linksEmptyString) {
          a.b.report(strConstNoMozi, line.Line, place);
          return false;
        }
        break;
      case ConstKind::Const:
        a.b.report(constWithoutKind, line.Line, place - 1);
        return false;
    }
  }
  return true;
}

template <class Char>
void putMacro(const SrcData<Char>& line, Writer<Char>& out) {
  std::array<std::int32_t, kRpushWords> words{};
  const auto count = std::min(static_cast<std::size_t>(line.word_kazu), words.size());
  macroWords(opOf(line), line.Word1, line.Word2, std::span(words).first(count));
  for (std::size_t i = 0; i < count; ++i) out.put(words[i]);
}

/// False after an Error, which ends the copy of the program.
template <class Char>
bool putLine(Assembly& a, SrcData<Char>& line, Writer<Char>& out) {
  if (line.OpStr.empty()) return true;
  const Op op = opOf(line);
  if (op == Op::DC) return putDC(a, line, out);
  if (op == Op::DS) {
    line.AbAdr = out.adr();
    out.putZeros(line.word_kazu);
  } else if (op != Op::Unknown && instruction(op).opClass == OpClass::Macro) {
    putMacro(line, out);
  } else if (line.word_kazu == 1 || line.word_kazu == 2) {
    out.put(line.Word1);
    if (line.word_kazu == 2) out.put(line.Word2);
  }
  return true;
}

template <class Char>
void putLiteral(SrcData<Char>& line, AdrConst<Char>& literal, Writer<Char>& out) {
  literal.AbAdr = out.adr();
  line.Word2 = out.adr();
  if (literal.DataType == ConstKind::CharConst) {
    out.putChars(literal.ConstStr);
  } else {
    out.put(literal.Value);
  }
}

/// The literals of a program, after its lines.
template <class Char>
void putLiterals(LineStore<Char>& store, const PrgData<Char>& program, Writer<Char>& out) {
  for (SrcData<Char>& line : store.linesBeforeEnd(program)) {
    if (line.LiteralNr < 0 || line.OpStr.empty() || line.word_kazu == 0) continue;
    putLiteral(line, *store.literal(line), out);
  }
}

// --- the fixed form ---

// Guards: the checks of the size have refused such programs.
constexpr Message linkerError{"linker-error", Severity::Notice, Head::None, args(),
                              bothLanguages("Linker Error: ")};
constexpr Message areaOfData =
    notice("linker-area-data", args(), bothLanguages("u+cs->Get_max_rl_memory_d()\n"));
constexpr Message areaOfLiterals =
    notice("linker-area-literals", args(), bothLanguages("u+cs->Get_max_rl_memory_l()\n"));
constexpr Message endOfMemory = selfCheck("self-end-of-memory", args(), "Prg. Error: MaxMemory < maxAdr");

/// Whether the areas of a program fit after what is in memory; reported if not.
template <class Char>
bool ckAreas(Assembly& a, int prg) {
  const PrgData<Char>& program = a.program<Char>(prg);
  FixedWords words = fixedWords(a.store<Char>(), program);
  words.code += program.AbAdrAtStart;
  if (words.total() <= MaxMemory) return true;
  const bool isData = words.code + words.max_rl_memory_d > MaxMemory;
  a.b.report(linkerError, program.StartLine);
  ckMaxMemory(a, program.StartLine, words);
  a.b.say(isData ? areaOfData : areaOfLiterals);
  return false;
}

/// The address of a DS without words is that of the next DC or DS with words, or the end of the memory.
template <class Char>
void placeEmptyDS(std::span<SrcData<Char>> lines) {
  std::int32_t next = MaxMemory;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    if (!isDcOrDs(opOf(*line))) continue;
    if (line->word_kazu == 0) line->AbAdr = next;
    next = line->AbAdr;
  }
}

/// The last step for a program: LastAdr is the address after the image, whose word stays 0.
void setLastAdr(Assembly& a, Tcomet2& m, std::int32_t adr) {
  if (adr < MaxMemory) {
    m.LastAdr = adr;
  } else {
    a.b.say(endOfMemory);
  }
}

}  // namespace

template <class Char>
bool SetMemory10(Assembly& a, Tcomet2& m, int prg) {
  LineStore<Char>& store = a.store<Char>();
  const PrgData<Char>& program = a.program<Char>(prg);
  const DataPlace dataPlace = a.family.dataPlace;
  Writer<Char> out(a, m, program.AbAdrAtStart);
  const int errors = a.errors();
  if (dataPlace == DataPlace::AfterCode && !ckAreas<Char>(a, prg)) return false;
  if (!forEachInMemory(store.linesBeforeEnd(program), dataPlace,
                       [&](SrcData<Char>& line) { return putLine(a, line, out); }))
    return false;
  putLiterals(store, program, out);
  if (dataPlace == DataPlace::AfterCode) {
    placeEmptyDS(store.linesBeforeEnd(program));
    setLastAdr(a, m, out.adr());
    return true;
  }
  const auto next = static_cast<std::size_t>(prg) + 1;
  if (next < store.vecPrg.size()) store.vecPrg[next].AbAdrAtStart = out.adr();
  return a.errors() == errors;
}

template bool SetMemory10<char16_t>(Assembly&, Tcomet2&, int);
template bool SetMemory10<char>(Assembly&, Tcomet2&, int);

RowList rowsOfSetMemory10() {
  return rows(wordOverwritten, constWithoutKind, linkerError, areaOfData, areaOfLiterals, endOfMemory);
}

}  // namespace zelvaro
