// SetMemory10: the words of one program into the memory of the machine, as they stand; of a number beyond 16
// bits the low ones alone.
#include "link/SetMemory10.h"

#include <algorithm>
#include <array>

#include "data/EmptyStrConst.h"
#include "link/Layout.h"
#include "macro/Macro.h"

namespace zelvaro {
namespace {

/// Writes words one behind the other.  Nothing is written outside the memory.
template <class Family>
class Writer {
 public:
  Writer(Assembly& a, Tcomet2& m, std::int32_t adr) : a_(a), m_(m), adr_(adr) {}

  std::int32_t adr() const { return adr_; }
  void put(std::int32_t word) {
    if (word > 0xFFFF || word < -0x8000) word = unsignedWord(word);
    const auto at = static_cast<std::size_t>(adr_++);
    if (at >= m_.Memory.size()) return;
    std::int32_t& cell = m_.Memory[at];
    if constexpr (sizeof(CharOf<Family>) == 1) {
      if (cell != 0 && cell != word) return refuse(at, word);
    }
    cell = word;
  }
  /// Words of 0.  Cells that nobody has touched since the reset are 0 already.
  void putZeros(std::int32_t words) {
    const auto begin = static_cast<std::size_t>(adr_);
    const std::size_t end = std::min(begin + static_cast<std::size_t>(words), m_.Memory.touched());
    for (std::size_t at = begin; at < end; ++at) m_.Memory[at] = 0;
    adr_ += words;
  }
  int putChars(ViewOf<Family> text) {
    const std::int32_t start = adr_;
    forEachCharConstWord(text, [this](int word) { put(word); });
    return adr_ - start;
  }

 private:
  // The narrow pipelines do not overwrite a word.
  void refuse(std::size_t at, std::int32_t word) {
    a_.b.selfCheck("(adr, Mry[adr], iVal)=(" + std::to_string(at) + ", " + std::to_string(m_.Memory[at]) +
                   ", " + std::to_string(word) + ") 2BAC3F64 at SetMemoryNA();");
  }

  Assembly& a_;
  Tcomet2& m_;
  std::int32_t adr_;
};

template <class Family>
bool putDC(Assembly& a, const SrcOf<Family>& line, Writer<Family>& out) {
  int place = 0;
  for (OprndAtDC<CharOf<Family>>& constant : a.store<Family>().oprndsAtDC(line)) {
    ++place;
    constant.AbAdr = out.adr();
    switch (constant.DataType) {
      case ConstKind::Dec:
      case ConstKind::Hex:
      case ConstKind::AdrConst:
        out.put(constant.Value);
        break;
      case ConstKind::CharConst:
        if (out.putChars(constant.ConstStr) == 0 && sizeof(CharOf<Family>) > 1) {
          a.b.report<Family, strConstNoMozi>(line.Line, place);
          return false;
        }
        break;
      case ConstKind::Const:
        a.b.selfCheck("Prg. Error of else: Const line=" + std::to_string(line.Line + 1) +
                      "\na strange DataTypeStrFlag of vecOprndAtDC[" + std::to_string(place - 1) +
                      "] = Const");
        return false;
    }
  }
  return true;
}

template <class Family>
void putMacro(const SrcOf<Family>& line, Writer<Family>& out) {
  std::array<std::int32_t, kRpushWords> words{};
  const auto count = std::min(static_cast<std::size_t>(line.word_kazu), words.size());
  macroWords(opOf(line), line.Word1, line.Word2, std::span(words).first(count));
  for (std::size_t i = 0; i < count; ++i) out.put(words[i]);
}

/// False after an Error, which ends the copy of the program.
template <class Family>
bool putLine(Assembly& a, SrcOf<Family>& line, Writer<Family>& out) {
  if (line.OpStr.empty()) return true;
  const Op op = opOf(line);
  if (op == Op::DC) return putDC<Family>(a, line, out);
  if (op == Op::DS) {
    line.AbAdr = out.adr();
    out.putZeros(line.word_kazu);
  } else if (op != Op::Unknown && instruction(op).opClass == OpClass::Macro) {
    putMacro<Family>(line, out);
  } else if (line.word_kazu == 1 || line.word_kazu == 2) {
    out.put(line.Word1);
    if (line.word_kazu == 2) out.put(line.Word2);
  }
  return true;
}

template <class Family>
void putLiteral(SrcOf<Family>& line, AdrConst<CharOf<Family>>& literal, Writer<Family>& out) {
  literal.AbAdr = out.adr();
  line.Word2 = out.adr();
  if (literal.DataType == ConstKind::CharConst) {
    out.putChars(literal.ConstStr);
  } else {
    out.put(literal.Value);
  }
}

/// The literals of a program, behind its lines.
template <class Family>
void putLiterals(LineStore<CharOf<Family>>& store, const PrgData<CharOf<Family>>& program,
                 Writer<Family>& out) {
  for (SrcOf<Family>& line : store.linesBeforeEnd(program)) {
    if (line.LiteralNr < 0 || line.OpStr.empty() || line.word_kazu == 0) continue;
    putLiteral<Family>(line, *store.literal(line), out);
  }
}

// --- the fixed form ---

// Guards: the checks of the size have refused such programs.
constexpr Message linkerError{Severity::Plain, Head::None, args(), bothLanguages("Linker Error: ")};

/// Whether the areas of a program fit behind what stands in memory: 0, or the words that are missing,
/// negative, after an Error.
template <class Family>
int ckAreas(Assembly& a, int prg) {
  const PrgData<CharOf<Family>>& program = a.program<Family>(prg);
  FixedWords words = fixedWords<Family>(a.store<Family>(), program);
  words.code += program.AbAdrAtStart;
  if (words.total() <= MaxMemory) return 0;
  const bool isData = words.code + words.max_rl_memory_d > MaxMemory;
  a.b.report<Family, linkerError>(program.StartLine);
  ckMaxMemory<Family>(a, program.StartLine, words);
  a.b.print(isData ? "u+cs->Get_max_rl_memory_d()\n" : "u+cs->Get_max_rl_memory_l()\n");
  return MaxMemory - words.total();
}

/// A DS of no words stands for the next DC or DS that has some, or for the end of the memory.
template <class Family>
void placeEmptyDS(std::span<SrcOf<Family>> lines) {
  std::int32_t next = MaxMemory;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    if (!isDcOrDs(opOf(*line))) continue;
    if (line->word_kazu == 0) line->AbAdr = next;
    next = line->AbAdr;
  }
}

/// What SetMemory25 does behind the words: LastAdr is the word behind the image, which stays 0.
template <class Family>
void setLastAdr(Assembly& a, Tcomet2& m, std::int32_t adr) {
  if (adr < MaxMemory) {
    m.LastAdr = adr;
  } else {
    a.b.selfCheck("Prg. Error: MaxMemory < maxAdr");
  }
}

}  // namespace

template <class Family>
int SetMemory10(Assembly& a, Tcomet2& m, int prg) {
  LineStore<CharOf<Family>>& store = a.store<Family>();
  const PrgData<CharOf<Family>>& program = a.program<Family>(prg);
  Writer<Family> out(a, m, program.AbAdrAtStart);
  const int errors = a.errors();
  if constexpr (kIsFixedForm<Family>) {
    if (const int missing = ckAreas<Family>(a, prg); missing < 0) return missing;
  }
  if (!forEachInMemory<Family>(store.linesBeforeEnd(program),
                               [&](SrcOf<Family>& line) { return putLine<Family>(a, line, out); }))
    return -1;
  putLiterals<Family>(store, program, out);
  if constexpr (kIsFixedForm<Family>) {
    placeEmptyDS<Family>(store.linesBeforeEnd(program));
    setLastAdr<Family>(a, m, out.adr());
    return 0;
  }
  const auto next = static_cast<std::size_t>(prg) + 1;
  if (next < store.vecPrg.size()) store.vecPrg[next].AbAdrAtStart = out.adr();
  return a.errors() > errors ? -1 : 0;
}

#define ZELVARO_INSTANTIATE(F) template int SetMemory10<F>(Assembly&, Tcomet2&, int);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
