// The handlers are labels in one function, reached by computed jumps; Handlers.inc lists them.  A handler is
// a sequence of parts (Parts.h), one for each instruction that it executes.
#include "comet2/RunLoop.h"

#include "comet2/Parts.h"
#include "comet2/Services.h"

// Labels as values are an extension that g++ and clang support.
#pragma GCC diagnostic ignored "-Wpedantic"

namespace zelvaro {
namespace {

Flags flagsOf(const Tcomet2& m) {
  return {m.Fzero != 0 ? 0 : m.Fsign != 0 ? -1 : 1, m.Fovf};
}

void setFlags(Tcomet2& m, Flags f) {
  m.Fsign = f.sz < 0 ? 1 : 0;
  m.Fzero = f.sz == 0 ? 1 : 0;
  m.Fovf = f.ovf != 0 ? 1 : 0;
}

/// Executes an SVC and updates the decoded image for the cells that it has written.  Returns Stop::End if the
/// run continues.
Stop serve(Tcomet2& m, const Services& services, Slices& slices, std::uint32_t number) {
  if (services.gate != nullptr)
    if (const Stop stop = services.gate->before(static_cast<std::int32_t>(number)); stop != Stop::End)
      return stop;
  Decoded& image = slices.image;
  const int stored = SvcCall(m, services, static_cast<std::int32_t>(number));
  if (number == static_cast<std::uint32_t>(kSvcIn)) {
    image.stored(unsignedWord(m.GR[2]));
    for (int i = 0; i < stored; ++i) image.stored(unsignedWord(unsignedWord(m.GR[1]) + i));
    slices.emptyInputs = stored == kNoLine ? slices.emptyInputs + 1 : 0;
    if (slices.emptyInputs >= kMostEmptyInputs) return Stop::InputEnded;
  }
  return services.platform.consoleIsGone() ? Stop::NobodyThere : Stop::End;
}

/// Why a run ends after a part with such a result.
Stop causeOf(Go why) {
  switch (why) {
    case Go::RegisterRefused:
      return Stop::Register;
    case Go::LoadRefused:
      return Stop::Load;
    case Go::StackFull:
      return Stop::Stack;
    case Go::StackEmpty:
      return Stop::EmptyStack;
    case Go::ReturnRefused:
      return Stop::Return;
    case Go::NopRefused:
      return Stop::Nop;
    case Go::Unregistered:
      return Stop::Unregistered;
    default:
      return Stop::End;
  }
}

/// PR then: the address of the instruction, or of its second word.
int wordsRead(Go why) {
  return why == Go::LoadRefused || why == Go::StackFull ? 1 : 0;
}

// --- what must be a macro: labels, and the jumps to them ---

/// Ends a handler: executes that of `s.e`.
#define ZELVARO_NEXT()                 \
  {                                    \
    if constexpr (stepped)             \
      if (s.steps <= 0) goto Leave;    \
    goto*(decodeLabel + s.e->handler); \
  }

/// Goes where the result of a part says.  A part is inlined, so only the cases of its own results are left.
#define ZELVARO_FOLLOW(result)        \
  switch (const Go go = result; go) { \
    case Go::On:                      \
      break;                          \
    case Go::Next:                    \
      ZELVARO_NEXT();                 \
    case Go::StoredIntoCode:          \
      goto StoredIntoCode;            \
    case Go::Serve:                   \
      goto Serve;                     \
    case Go::Look:                    \
      goto Look;                      \
    case Go::StoreWatched:            \
      goto StoreWatched;              \
    default:                          \
      why = go;                       \
      goto Stopped;                   \
  }
#define ZELVARO_PART(mnemonic, kind) ZELVARO_FOLLOW((part<Op::mnemonic, Kind::kind>(s)))

template <bool stepped>
[[gnu::noinline]] Stop loop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit,
                            Slices& slices, std::int64_t& steps) {
  static const std::int32_t handlerLabels[kHandlers] = {
      0,
// NOLINTBEGIN(bugprone-macro-parentheses): the name of a label takes none
#define ZELVARO_LABEL(name) \
  static_cast<std::int32_t>(static_cast<const char*>(&&name) - static_cast<const char*>(&&Decode)),
// NOLINTEND(bugprone-macro-parentheses)
#define ZELVARO_STOP(name) ZELVARO_LABEL(name)
#define ZELVARO_SINGLE(mnemonic, kind) ZELVARO_LABEL(mnemonic##kind)
#define ZELVARO_FUSED2(a, ka, b, kb) ZELVARO_LABEL(a##ka##_##b##kb)
#define ZELVARO_FUSED3(a, ka, b, kb, c, kc) ZELVARO_LABEL(a##ka##_##b##kb##_##c##kc)
#include "comet2/Handlers.inc"
  };
  const char* const decodeLabel = static_cast<const char*>(&&Decode);

  Decoded& image = slices.image;
  LoopState<stepped> s{m,
                       m.Memory.data(),
                       m.GR.data(),
                       image.entries(),
                       image.readers(),
                       static_cast<std::uint32_t>(limit),
                       static_cast<std::uint32_t>(watch.from()),
                       static_cast<std::uint32_t>(m.EffAdr),
                       static_cast<std::uint32_t>(m.PR),
                       flagsOf(m),
                       image.entries(),
                       steps};
  Stop stop = Stop::Steps;
  Go why = Go::On;

  if (s.far > kHighestAddress) {
    why = Go::FarJump;
    goto Stopped;
  }
  s.e = s.entries + s.far;
  ZELVARO_NEXT();

Decode : {
  const auto adr = static_cast<int>(s.e - s.entries);
  if (adr > limit) {
    stop = Stop::Pr;
    goto Leave;
  }
  s.e->handler = handlerLabels[static_cast<std::size_t>(image.decode(adr))];
  ZELVARO_NEXT();
}

RegisterStop:
  why = Go::RegisterRefused;
  goto Stopped;
LoadStop:
  ZELVARO_FOLLOW(stopAtLoad(s));
NopStop:
  ZELVARO_FOLLOW(stopAt(s, Go::NopRefused));
BreakStop:
  stop = Stop::Breakpoint;
  goto Leave;
UnregisteredStop:
  ZELVARO_FOLLOW(stopAt(s, Go::Unregistered));

#define ZELVARO_STOP(name)
#define ZELVARO_SINGLE(mnemonic, kind) mnemonic##kind : ZELVARO_PART(mnemonic, kind) ZELVARO_NEXT();
#define ZELVARO_FUSED2(a, ka, b, kb) a##ka##_##b##kb : ZELVARO_PART(a, ka) ZELVARO_PART(b, kb) ZELVARO_NEXT();
#define ZELVARO_FUSED3(a, ka, b, kb, c, kc) \
  a##ka##_##b##kb##_##c##kc : ZELVARO_PART(a, ka) ZELVARO_PART(b, kb) ZELVARO_PART(c, kc) ZELVARO_NEXT();
#include "comet2/Handlers.inc"

  // An indexed store at or after the end of the Reserved Area.
StoreWatched:
  m.PR = static_cast<std::int32_t>(s.e - s.entries) + 1;
  if (!watch.st511(m, static_cast<std::int32_t>(s.effAdr), image.countOf(m.ExecCount, m.PR - 1))) {
    stop = Stop::Store;
    goto Left;
  }
  s.watchedFrom = static_cast<std::uint32_t>(watch.from());
  s.memory[s.effAdr] = s.gr[s.e->r];
StoredIntoCode:
  image.stored(static_cast<int>(s.effAdr));
  s.e += 2;
  ZELVARO_NEXT();

Serve:
  if (const Stop served = serve(m, services, slices, s.effAdr); served != Stop::End) {
    stop = served;
    if (stopsBeforeInstruction(stop)) {  // the SVC has not been executed
      s.e -= 2;
      --s.e->count;
      if constexpr (stepped) ++s.steps;
    }
    goto Leave;
  }
  ZELVARO_NEXT();
Look:
  if (services.platform.consoleIsGone()) {
    stop = Stop::NobodyThere;
    goto Leave;
  }
  ZELVARO_NEXT();

Stopped:
  stop = causeOf(why);
Leave:
  m.PR = why == Go::FarJump ? static_cast<std::int32_t>(s.far)
                            : static_cast<std::int32_t>(s.e - s.entries) + wordsRead(why);
Left:
  m.EffAdr = static_cast<std::int32_t>(s.effAdr);
  setFlags(m, s.f);
  slices.executed = image.addCountsTo(m.ExecCount);
  steps = s.steps;
  return stop;
}

#undef ZELVARO_NEXT
#undef ZELVARO_FOLLOW
#undef ZELVARO_PART
#undef ZELVARO_LABEL

}  // namespace

Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit) {
  Slices slices{Decoded(m.Memory.data(), limit)};
  return runLoop(m, services, watch, limit, slices);
}

Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit, std::int64_t& steps) {
  Slices slices{Decoded(m.Memory.data(), limit)};
  return runLoop(m, services, watch, limit, slices, steps);
}

Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit, Slices& slices) {
  std::int64_t unlimited = 0;
  return loop<false>(m, services, watch, limit, slices, unlimited);
}

Stop runLoop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit, Slices& slices,
             std::int64_t& steps) {
  return loop<true>(m, services, watch, limit, slices, steps);
}

}  // namespace zelvaro
