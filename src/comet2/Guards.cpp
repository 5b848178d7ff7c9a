#include "comet2/Guards.h"

#include <fmt/format.h>

#include <algorithm>

#include "comet2/GuardWords.h"
#include "comet2/Services.h"
#include "diag/Say.h"

namespace zelvaro {

namespace {

/// The low 16 bits in upper-case hexadecimal: four digits, and without filling.
std::string hex4(std::int32_t word) {
  return fmt::format("{:04X}", unsignedWord(word));
}
std::string hex(std::int32_t number) {
  return fmt::format("{:X}", static_cast<std::uint32_t>(number));
}

constexpr bool isFixedForm(FamilyId family) {
  return family == FamilyId::NH;
}

std::int32_t cell(const Tcomet2& m, std::int32_t adr) {
  return m.Memory[static_cast<std::size_t>(unsignedWord(adr))];
}

template <class Family>
void tellLoadGuard(const Tcomet2& m, Platform& platform) {
  const std::int32_t first = unsignedWord(cell(m, m.PR - 1));
  const std::int32_t second = unsignedWord(cell(m, m.PR));
  const std::int32_t named = unsignedWord(cell(m, second));
  say<Family, loadGuard>(platform, m.IsEnglish);
  say<Family, loadGuardCells>(platform, m.IsEnglish, m.PR - 1, hex4(first), first, m.PR, hex4(second), second,
                              hex4(named), named);
}

template <class Family>
std::int32_t firstWarned(const Tcomet2& m, int PrgEndAdr) {
  return std::min(isFixedForm(Family::id) ? m.LastAdr + 1 : PrgEndAdr, kRunLimit<Family>);
}

}  // namespace

template <class Family>
FamilyStoreWatch<Family>::FamilyStoreWatch(const Tcomet2& m, Platform& platform, int PrgEndAdr)
    : StoreWatch(firstWarned<Family>(m, PrgEndAdr)), platform_(platform), PrgEndAdr_(PrgEndAdr) {}

template <class Family>
int FamilyStoreWatch<Family>::st511(Tcomet2& m, std::int32_t effAdr, std::int32_t count) {
  const std::int32_t adr = m.PR - 1;
  if (effAdr >= kRunLimit<Family>) {
    say<Family, storeGuard>(platform_, m.IsEnglish, hex4(adr), hex(adr), adr);
    return kRunMustStop;
  }
  const std::int32_t word = unsignedWord(cell(m, adr));
  const std::int32_t reserved = isFixedForm(Family::id) ? m.LastAdr : PrgEndAdr_;
  const std::int32_t last = isFixedForm(Family::id) ? m.LastAdr : PrgEndAdr_ - 1;
  say<Family, storeWarning>(platform_, m.IsEnglish, reserved, last, effAdr, hex4(adr), hex4(word), hex(word),
                            count, ordinal(count));
  platform_.flush();
  // the fixed form warns again of each address above the last one, the others once a run
  if (isFixedForm(Family::id)) m.LastAdr = effAdr;
  from_ = isFixedForm(Family::id) ? effAdr + 1 : kRunLimit<Family>;
  return 0;
}

template <class Family>
void tellStop(Stop stop, Tcomet2& m, Platform& platform) {
  const std::int32_t word = cell(m, m.PR);
  switch (stop) {
    case Stop::Pr:
      say<Family, prGuard>(platform, m.IsEnglish, hex4(m.PR), m.PR);
      break;
    case Stop::Register:
      say<Family, registerGuard>(platform, m.IsEnglish, hex4(word), hex4(m.PR), m.PR);
      break;
    case Stop::Load:
      tellLoadGuard<Family>(m, platform);
      break;
    case Stop::Stack:
      say<Family, stackGuard>(platform, m.IsEnglish, hex(m.PR - 1), m.PR - 1);
      break;
    case Stop::EmptyStack:
      say<Family, emptyStackGuard>(platform, m.IsEnglish, hex(m.PR), m.PR);
      break;
    case Stop::Return:
      say<Family, returnGuard>(platform, m.IsEnglish, hex(m.SP));
      break;
    case Stop::Nop:
      say<Family, nopGuard>(platform, m.IsEnglish, hex4(word), m.PR);
      break;
    case Stop::Unregistered:
      say<Family, unregisteredGuard>(platform, m.IsEnglish, hex4(word), hex(m.PR), m.PR);
      break;
    case Stop::InputEnded:
      say<Family, inputEndedGuard>(platform, m.IsEnglish, kMostEmptyInputs);
      break;
    case Stop::NobodyThere:
      say<Family, nobodyThereGuard>(platform, m.IsEnglish);
      break;
    case Stop::End:
    case Stop::Store:
    case Stop::Steps:
      break;
  }
}

#define ZELVARO_INSTANTIATE(F)        \
  template class FamilyStoreWatch<F>; \
  template void tellStop<F>(Stop, Tcomet2&, Platform&);
ZELVARO_FAMILIES(ZELVARO_INSTANTIATE)

}  // namespace zelvaro
