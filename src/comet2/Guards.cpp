#include "comet2/Guards.h"

#include <fmt/format.h>

#include <algorithm>

#include "comet2/GuardWords.h"
#include "comet2/Services.h"

namespace zelvaro {

namespace {

/// The low 16 bits in upper-case hexadecimal: with four digits, and without leading zeros.
std::string hex4(std::int32_t word) {
  return fmt::format("{:04X}", unsignedWord(word));
}
std::string hex(std::int32_t number) {
  return fmt::format("{:X}", static_cast<std::uint32_t>(number));
}

std::int32_t cell(const Tcomet2& m, std::int32_t adr) {
  return m.Memory[static_cast<std::size_t>(unsignedWord(adr))];
}

void reportLoadGuard(const Tcomet2& m, DiagSink& sink) {
  const std::int32_t first = unsignedWord(cell(m, m.PR - 1));
  const std::int32_t second = unsignedWord(cell(m, m.PR));
  const std::int32_t named = unsignedWord(cell(m, second));
  sink.say(loadGuard);
  sink.say(loadGuardCells, m.PR - 1, hex4(first), first, m.PR, hex4(second), second, hex4(named), named);
}

bool warnsOfEach(const RunEnvironment& env) {
  return env.family.storeWarning == StoreWarning::EachNewAddress;
}

std::int32_t firstWarned(const Tcomet2& m, const RunEnvironment& env) {
  return std::min(warnsOfEach(env) ? m.LastAdr + 1 : env.PrgEndAdr, env.family.runLimit);
}

}  // namespace

GuardedStores::GuardedStores(const Tcomet2& m, const RunEnvironment& env)
    : StoreWatch(firstWarned(m, env)), env_(env) {}

bool GuardedStores::st511(Tcomet2& m, std::int32_t effAdr, std::int32_t count) {
  const std::int32_t adr = m.PR - 1;
  if (effAdr >= env_.family.runLimit) {
    env_.sink.say(storeGuard, hex4(adr), hex(adr), adr);
    return false;
  }
  const std::int32_t word = unsignedWord(cell(m, adr));
  const bool each = warnsOfEach(env_);
  const std::int32_t reserved = each ? m.LastAdr : env_.PrgEndAdr;
  const std::int32_t last = each ? m.LastAdr : env_.PrgEndAdr - 1;
  env_.sink.say(storeWarning, reserved, last, effAdr, hex4(adr), hex4(word), hex(word), count,
                ordinal(count));
  env_.platform.flush();
  if (each) m.LastAdr = effAdr;
  from_ = each ? effAdr + 1 : env_.family.runLimit;
  return true;
}

void reportStop(Stop stop, const Tcomet2& m, DiagSink& sink) {
  const std::int32_t word = cell(m, m.PR);
  switch (stop) {
    case Stop::Pr:
      return sink.say(prGuard, hex4(m.PR), m.PR);
    case Stop::Register:
      return sink.say(registerGuard, hex4(word), hex4(m.PR), m.PR);
    case Stop::Load:
      return reportLoadGuard(m, sink);
    case Stop::Stack:
      return sink.say(stackGuard, hex(m.PR - 1), m.PR - 1);
    case Stop::EmptyStack:
      return sink.say(emptyStackGuard, hex(m.PR), m.PR);
    case Stop::Return:
      return sink.say(returnGuard, hex(m.SP));
    case Stop::Nop:
      return sink.say(nopGuard, hex4(word), m.PR);
    case Stop::Unregistered:
      return sink.say(unregisteredGuard, hex4(word), hex(m.PR), m.PR);
    case Stop::InputEnded:
      return sink.say(inputEndedGuard, kMostEmptyInputs);
    case Stop::NobodyThere:
      return sink.say(nobodyThereGuard);
    case Stop::End:
    case Stop::Store:
    case Stop::Steps:
    case Stop::Breakpoint:
    case Stop::InputWanted:
    case Stop::InputExhausted:
    case Stop::OutputFull:
      return;
  }
}

RowList rowsOfGuards() {
  return rows(inputEndedGuard, nobodyThereGuard, prGuard, registerGuard, loadGuard, loadGuardCells,
              storeGuard, storeWarning, stackGuard, emptyStackGuard, returnGuard, nopGuard,
              unregisteredGuard);
}

}  // namespace zelvaro
