// The handlers are labels in one function, reached by computed jumps; Handlers.inc lists them.  A handler is
// a sequence of parts, one for each instruction that it executes.  A part counts its instruction, executes it
// and sets `e` to the entry after it, or ends the handler: by a jump, a stop, or a store to a word that has
// been decoded.
#include "comet2/RunLoop.h"

#include "comet2/Decode.h"
#include "comet2/Effects.h"
#include "comet2/Services.h"

// Labels as values are an extension that g++ and clang support.
#pragma GCC diagnostic ignored "-Wpedantic"

namespace zelvaro {
namespace {

constexpr std::uint32_t kHighestAddress = 0xFFFF;

/// The sum of a second word and an index register: the full sum, and the sum cut to 16 bits.
constexpr std::uint32_t uncutAddress(std::uint32_t second, std::int32_t gr) {
  return second + (static_cast<std::uint32_t>(gr) & kHighestAddress);
}
constexpr std::uint32_t indexedAddress(std::uint32_t second, std::int32_t gr) {
  return uncutAddress(second, gr) & kHighestAddress;
}

/// The index in StackArea for SP; above kStackDepth if there is none.
constexpr std::uint32_t stackCell(std::int32_t SP) {
  return static_cast<std::uint32_t>(kFirstSP - SP);
}

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

/// Every loop contains a jump or a CALL.  Each of these polls the console when its count is a multiple of
/// this: at least once a second for any image, and too rarely to cost time.
constexpr std::uint32_t kJumpsBetweenLooks = 4096;
constexpr bool isTimeToLook(std::uint32_t count) {
  return count % kJumpsBetweenLooks == 0;
}

// --- the parts of handlers ---

#define ZELVARO_COUNT() \
  ++e->count;           \
  if constexpr (stepped) --steps;

#define ZELVARO_NEXT()               \
  {                                  \
    if constexpr (stepped)           \
      if (steps <= 0) goto Steps;    \
    goto*(decodeLabel + e->handler); \
  }

// The effective address of a two-word instruction.
#define ZELVARO_ADDRESS_Direct() effAdr = e->second;
#define ZELVARO_ADDRESS_Indexed() effAdr = indexedAddress(e->second, gr[e->x]);

// The operand m of an instruction with both forms, and its words.
#define ZELVARO_OPERAND_Direct() \
  ZELVARO_ADDRESS_Direct();      \
  operand = memory[effAdr];
#define ZELVARO_OPERAND_Indexed()         \
  ZELVARO_ADDRESS_Indexed();              \
  if (effAdr > highest) goto LoadRefused; \
  operand = memory[effAdr];
#define ZELVARO_OPERAND_Register() operand = gr[e->x];
#define ZELVARO_WORDS_Direct 2
#define ZELVARO_WORDS_Indexed 2
#define ZELVARO_WORDS_Register 1

#define ZELVARO_OPERATION(m, kind)   \
  {                                  \
    std::int32_t operand;            \
    ZELVARO_COUNT();                 \
    ZELVARO_OPERAND_##kind();        \
    effect::m(gr[e->r], operand, f); \
    e += ZELVARO_WORDS_##kind;       \
  }
#define ZELVARO_PART_LD(kind) ZELVARO_OPERATION(LD, kind)
#define ZELVARO_PART_ADDA(kind) ZELVARO_OPERATION(ADDA, kind)
#define ZELVARO_PART_SUBA(kind) ZELVARO_OPERATION(SUBA, kind)
#define ZELVARO_PART_ADDL(kind) ZELVARO_OPERATION(ADDL, kind)
#define ZELVARO_PART_SUBL(kind) ZELVARO_OPERATION(SUBL, kind)
#define ZELVARO_PART_AND(kind) ZELVARO_OPERATION(AND, kind)
#define ZELVARO_PART_OR(kind) ZELVARO_OPERATION(OR, kind)
#define ZELVARO_PART_XOR(kind) ZELVARO_OPERATION(XOR, kind)
#define ZELVARO_PART_CPA(kind) ZELVARO_OPERATION(CPA, kind)
#define ZELVARO_PART_CPL(kind) ZELVARO_OPERATION(CPL, kind)

// How LAD and the shifts use the effective address.
#define ZELVARO_FROM_ADDRESS(kind, value)             \
  {                                                   \
    ZELVARO_COUNT();                                  \
    ZELVARO_ADDRESS_##kind();                         \
    const auto n = static_cast<std::int32_t>(effAdr); \
    gr[e->r] = value;                                 \
    e += 2;                                           \
  }
#define ZELVARO_PART_LAD(kind) ZELVARO_FROM_ADDRESS(kind, n)
#define ZELVARO_PART_SLA(kind) ZELVARO_FROM_ADDRESS(kind, effect::sla550(gr[e->r], n, f))
#define ZELVARO_PART_SRA(kind) ZELVARO_FROM_ADDRESS(kind, effect::sra551(gr[e->r], n, f))
#define ZELVARO_PART_SLL(kind) ZELVARO_FROM_ADDRESS(kind, effect::sll652(gr[e->r], n, f))
#define ZELVARO_PART_SRL(kind) ZELVARO_FROM_ADDRESS(kind, effect::srl653(gr[e->r], n, f))

#define ZELVARO_GUARD_Direct()
#define ZELVARO_GUARD_Indexed() \
  if (effAdr >= watchedFrom) goto StoreWatched;
#define ZELVARO_PART_ST(kind)                      \
  {                                                \
    ZELVARO_COUNT();                               \
    ZELVARO_ADDRESS_##kind();                      \
    ZELVARO_GUARD_##kind();                        \
    memory[effAdr] = gr[e->r];                     \
    if (readers[effAdr] != 0) goto StoredIntoCode; \
    e += 2;                                        \
  }

// A jump that is not taken computes no address.  JMI, JZE and JPL do not cut an indexed target.
#define ZELVARO_TARGET_CUT_Direct() e = entries + (effAdr = e->second);
#define ZELVARO_TARGET_CUT_Indexed() e = entries + (effAdr = indexedAddress(e->second, gr[e->x]));
#define ZELVARO_TARGET_UNCUT_Direct() ZELVARO_TARGET_CUT_Direct()
#define ZELVARO_TARGET_UNCUT_Indexed()     \
  far = uncutAddress(e->second, gr[e->x]); \
  effAdr = far & kHighestAddress;          \
  if (far > kHighestAddress) goto FarJump; \
  e = entries + far;
#define ZELVARO_JUMP(kind, cut, condition)  \
  {                                         \
    ZELVARO_COUNT();                        \
    if (condition) {                        \
      const std::uint32_t count = e->count; \
      ZELVARO_TARGET_##cut##_##kind();      \
      if (isTimeToLook(count)) [[unlikely]] \
        goto Look;                          \
      ZELVARO_NEXT();                       \
    }                                       \
    e += 2;                                 \
  }
#define ZELVARO_PART_JMI(kind) ZELVARO_JUMP(kind, UNCUT, f.sz < 0)
#define ZELVARO_PART_JNZ(kind) ZELVARO_JUMP(kind, CUT, f.sz != 0)
#define ZELVARO_PART_JZE(kind) ZELVARO_JUMP(kind, UNCUT, f.sz == 0)
#define ZELVARO_PART_JUMP(kind) ZELVARO_JUMP(kind, CUT, true)
#define ZELVARO_PART_JPL(kind) ZELVARO_JUMP(kind, UNCUT, f.sz > 0)
#define ZELVARO_PART_JOV(kind) ZELVARO_JUMP(kind, CUT, f.ovf != 0)

#define ZELVARO_PUSHED(kind, value)           \
  ZELVARO_ADDRESS_##kind();                   \
  const std::uint32_t at = stackCell(--m.SP); \
  if (at > kStackDepth) goto StackFull;       \
  m.StackArea[at] = static_cast<std::int32_t>(value);
#define ZELVARO_PART_PUSH(kind)   \
  {                               \
    ZELVARO_COUNT();              \
    ZELVARO_PUSHED(kind, effAdr); \
    e += 2;                       \
  }
#define ZELVARO_PART_CALL(kind)            \
  {                                        \
    ZELVARO_COUNT();                       \
    ++m.OS;                                \
    ZELVARO_PUSHED(kind, e - entries + 2); \
    const std::uint32_t count = e->count;  \
    e = entries + effAdr;                  \
    if (isTimeToLook(count)) [[unlikely]]  \
      goto Look;                           \
  }
#define ZELVARO_PART_POP(kind)                  \
  {                                             \
    ZELVARO_COUNT();                            \
    const std::uint32_t at = stackCell(m.SP);   \
    if (at - 1 >= kStackDepth) goto StackEmpty; \
    gr[e->r] = m.StackArea[at];                 \
    ++m.SP;                                     \
    e += 1;                                     \
  }
// ret581, the return step: cell 0, which no PUSH uses, is read if OS and the stack do not agree
#define ZELVARO_PART_RET(kind)                         \
  {                                                    \
    ZELVARO_COUNT();                                   \
    if (m.OS == 0) goto End;                           \
    --m.OS;                                            \
    const std::uint32_t at = stackCell(m.SP);          \
    if (at > kStackDepth) goto ReturnRefused;          \
    far = static_cast<std::uint32_t>(m.StackArea[at]); \
    ++m.SP;                                            \
    if (far > kHighestAddress) goto FarJump;           \
    e = entries + far;                                 \
  }
#define ZELVARO_PART_EXIT(kind) \
  {                             \
    ZELVARO_COUNT();            \
    goto End;                   \
  }
#define ZELVARO_PART_NOP(kind) \
  {                            \
    ZELVARO_COUNT();           \
    e += 1;                    \
  }
#define ZELVARO_PART_SVC(kind)                 \
  {                                            \
    ZELVARO_COUNT();                           \
    ZELVARO_ADDRESS_##kind();                  \
    stop = serve(m, services, slices, effAdr); \
    e += 2;                                    \
    if (stop != Stop::End) [[unlikely]]        \
      goto Served;                             \
  }

// The words that stop a run.
#define ZELVARO_PART_RegisterStop() goto RegisterRefused;
#define ZELVARO_PART_LoadStop() \
  {                             \
    ZELVARO_COUNT();            \
    ZELVARO_ADDRESS_Direct();   \
    goto LoadRefused;           \
  }
#define ZELVARO_PART_NopStop() \
  {                            \
    ZELVARO_COUNT();           \
    goto NopRefused;           \
  }
#define ZELVARO_PART_BreakStop() goto BreakReached;
#define ZELVARO_PART_UnregisteredStop() \
  {                                     \
    ZELVARO_COUNT();                    \
    goto Unregistered;                  \
  }

/// Ends the run: PR is the entry's address and `words` more, 1 for the second word of an instruction.
#define ZELVARO_LEAVE(cause, words)                          \
  {                                                          \
    stop = Stop::cause;                                      \
    m.PR = static_cast<std::int32_t>(e - entries) + (words); \
    goto Leave;                                              \
  }

template <bool stepped>
[[gnu::noinline]] Stop loop(Tcomet2& m, const Services& services, StoreWatch& watch, int limit,
                            Slices& slices, [[maybe_unused]] std::int64_t& steps) {
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
#undef ZELVARO_LABEL
  };
  const char* const decodeLabel = static_cast<const char*>(&&Decode);
  const auto highest = static_cast<std::uint32_t>(limit);

  std::int32_t* const memory = m.Memory.data();
  std::int32_t* const gr = m.GR.data();
  Decoded& image = slices.image;
  Entry* const entries = image.entries();
  const std::uint8_t* const readers = image.readers();
  auto watchedFrom = static_cast<std::uint32_t>(watch.from());
  auto effAdr = static_cast<std::uint32_t>(m.EffAdr);
  Flags f = flagsOf(m);
  Entry* e = entries;
  std::uint32_t far = static_cast<std::uint32_t>(m.PR);
  Stop stop = Stop::End;

  if (far > kHighestAddress) goto FarJump;
  e = entries + far;
  ZELVARO_NEXT();

Decode : {
  const auto adr = static_cast<int>(e - entries);
  if (adr > limit) ZELVARO_LEAVE(Pr, 0);
  e->handler = handlerLabels[static_cast<std::size_t>(image.decode(adr))];
  ZELVARO_NEXT();
}

#define ZELVARO_STOP(name) \
  name:                    \
  ZELVARO_PART_##name();
#define ZELVARO_SINGLE(mnemonic, kind)            \
  mnemonic##kind : ZELVARO_PART_##mnemonic(kind); \
  ZELVARO_NEXT();
#define ZELVARO_FUSED2(a, ka, b, kb)      \
  a##ka##_##b##kb : ZELVARO_PART_##a(ka); \
  ZELVARO_PART_##b(kb);                   \
  ZELVARO_NEXT();
#define ZELVARO_FUSED3(a, ka, b, kb, c, kc)         \
  a##ka##_##b##kb##_##c##kc : ZELVARO_PART_##a(ka); \
  ZELVARO_PART_##b(kb);                             \
  ZELVARO_PART_##c(kc);                             \
  ZELVARO_NEXT();
#include "comet2/Handlers.inc"

  // An indexed store at or after the end of the Reserved Area.
StoreWatched:
  m.PR = static_cast<std::int32_t>(e - entries) + 1;
  if (!watch.st511(m, static_cast<std::int32_t>(effAdr), image.countOf(m.ExecCount, m.PR - 1)))
    ZELVARO_LEAVE(Store, 1);
  watchedFrom = static_cast<std::uint32_t>(watch.from());
  memory[effAdr] = gr[e->r];
StoredIntoCode:
  image.stored(static_cast<int>(effAdr));
  e += 2;
  ZELVARO_NEXT();

Look:
  if (services.platform.consoleIsGone()) ZELVARO_LEAVE(NobodyThere, 0);
  ZELVARO_NEXT();
Served:
  if (stopsBeforeInstruction(stop)) {  // the SVC has not been executed
    e -= 2;
    --e->count;
    if constexpr (stepped) ++steps;
  }
  m.PR = static_cast<std::int32_t>(e - entries);
  goto Leave;
FarJump:
  m.PR = static_cast<std::int32_t>(far);
  goto Leave;
End:
  ZELVARO_LEAVE(End, 0);
RegisterRefused:
  ZELVARO_LEAVE(Register, 0);
LoadRefused:
  ZELVARO_LEAVE(Load, 1);
StackFull:
  ZELVARO_LEAVE(Stack, 1);
StackEmpty:
  ZELVARO_LEAVE(EmptyStack, 0);
ReturnRefused:
  ZELVARO_LEAVE(Return, 0);
NopRefused:
  ZELVARO_LEAVE(Nop, 0);
Unregistered:
  ZELVARO_LEAVE(Unregistered, 0);
BreakReached:
  ZELVARO_LEAVE(Breakpoint, 0);
  [[maybe_unused]] Steps : ZELVARO_LEAVE(Steps, 0);

Leave:
  m.EffAdr = static_cast<std::int32_t>(effAdr);
  setFlags(m, f);
  slices.executed = image.addCountsTo(m.ExecCount);
  return stop;
}

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
