// SetLineOfAddress: the map from addresses to source lines.
#include <algorithm>

#include "link/Layout.h"
#include "link/SetMemory10.h"

namespace zelvaro {
namespace {

/// Enters `line` for the next `words` addresses, as far as the map reaches.
void enter(Tcomet2& m, std::int64_t& adr, std::int32_t words, std::int32_t line) {
  const std::int64_t end = adr + words;
  for (const std::int64_t last = std::min<std::int64_t>(end, kLinesKnown); adr < last; ++adr)
    m.LineOfAddress[static_cast<std::size_t>(adr)] = line;
  adr = end;
}

/// With the data after the code each line is entered where its words are, and no literal.
template <class Char>
void enterLinesOnly(LineStore<Char>& store, Tcomet2& m) {
  for (const PrgData<Char>& program : store.vecPrg) {
    forEachInMemory(store.linesBeforeEnd(program), DataPlace::AfterCode, [&m](const SrcData<Char>& line) {
      std::int64_t adr = line.AbAdr;
      enter(m, adr, line.word_kazu, line.Line);
      return true;
    });
  }
}

}  // namespace

template <class Char>
void SetLineOfAddress(Assembly& a, Tcomet2& m) {
  LineStore<Char>& store = a.store<Char>();
  if (a.family.dataPlace == DataPlace::AfterCode) return enterLinesOnly(store, m);
  std::int64_t adr = 0;
  for (const PrgData<Char>& program : store.vecPrg) {
    for (const SrcData<Char>& line : store.linesBeforeEnd(program))
      if (!line.OpStr.empty() && line.AbAdr == adr) enter(m, adr, line.word_kazu, line.Line);
    for (const SrcData<Char>& line : store.linesBeforeEnd(program))
      if (const AdrConst<Char>* literal = store.literal(line)) enter(m, adr, literal->WordKazu, line.Line);
  }
}

template void SetLineOfAddress<char16_t>(Assembly&, Tcomet2&);
template void SetLineOfAddress<char>(Assembly&, Tcomet2&);

}  // namespace zelvaro
