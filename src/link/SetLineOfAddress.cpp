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

/// The fixed form enters each line where its words are, and no literal.
template <class Family>
void enterLinesOnly(LineStore<CharOf<Family>>& store, Tcomet2& m) {
  for (const PrgData<CharOf<Family>>& program : store.vecPrg) {
    forEachInMemory<Family>(store.linesBeforeEnd(program), [&m](const SrcOf<Family>& line) {
      std::int64_t adr = line.AbAdr;
      enter(m, adr, line.word_kazu, line.Line);
      return true;
    });
  }
}

}  // namespace

template <class Family>
void SetLineOfAddress(Assembly& a, Tcomet2& m) {
  LineStore<CharOf<Family>>& store = a.store<Family>();
  if constexpr (kIsFixedForm<Family>) return enterLinesOnly<Family>(store, m);
  std::int64_t adr = 0;
  for (const PrgData<CharOf<Family>>& program : store.vecPrg) {
    for (const SrcOf<Family>& line : store.linesBeforeEnd(program))
      if (!line.OpStr.empty() && line.AbAdr == adr) enter(m, adr, line.word_kazu, line.Line);
    for (const SrcOf<Family>& line : store.linesBeforeEnd(program))
      if (const AdrConst<CharOf<Family>>* literal = store.literal(line))
        enter(m, adr, literal->WordKazu, line.Line);
  }
}

#define ZELVARO_INSTANTIATE(F) template void SetLineOfAddress<F>(Assembly&, Tcomet2&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
