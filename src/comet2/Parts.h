// What the handlers of the run loop are made of: one part for each mnemonic, a function of the loop's state.
#pragma once

#include <cstdint>

#include "comet2/Decode.h"
#include "comet2/Effects.h"
#include "encode/Instructions.h"

namespace zelvaro {

/// What the run loop does after a part.
enum class Go : std::uint8_t {
  On,              ///< the next part of the handler, if it has one; `e` is the entry of the next instruction
  Next,            ///< the handler of `e`: a jump has been taken
  Look,            ///< the same, after a look at the console
  FarJump,         ///< the end of the run: a jump to `far`, which is above the address space
  StoreWatched,    ///< an indexed store to `effAdr`, not done yet, at or after the end of the Reserved Area
  StoredIntoCode,  ///< a store to `effAdr`, a word that has been decoded
  Serve,           ///< the service of number `effAdr`
  // The run stops at `e`:
  End,
  RegisterRefused,
  LoadRefused,
  StackFull,
  StackEmpty,
  ReturnRefused,
  NopRefused,
  Unregistered
};

inline constexpr std::uint32_t kHighestAddress = 0xFFFF;

/// The state of the run loop.  Every function that takes it is inlined, so that its members are in registers.
template <bool stepped>
struct LoopState {
  Tcomet2& m;
  std::int32_t* const memory;
  std::int32_t* const gr;
  Entry* const entries;
  const std::uint8_t* const readers;  ///< see Decoded::readers()
  const std::uint32_t highest;        ///< the highest address of a load
  std::uint32_t watchedFrom;          ///< the lowest address of a watched store
  std::uint32_t effAdr;
  std::uint32_t far;  ///< the target of a jump, more than 16 bits wide
  Flags f;
  Entry* e;            ///< of the instruction that is executed next
  std::int64_t steps;  ///< that are left, if stepped
};

#define ZELVARO_INLINE [[gnu::always_inline]] inline

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

/// Every loop contains a jump or a CALL.  Each of these polls the console when its count is a multiple of
/// this: at least once a second for any image, and too rarely to cost time.
inline constexpr std::uint32_t kJumpsBetweenLooks = 4096;
constexpr Go nextOrLook(std::uint32_t count) {
  return count % kJumpsBetweenLooks == 0 ? Go::Look : Go::Next;
}

template <bool stepped>
ZELVARO_INLINE void count(LoopState<stepped>& s) {
  ++s.e->count;
  if constexpr (stepped) --s.steps;
}

/// The effective address of a two-word instruction.
template <Kind kind, bool stepped>
ZELVARO_INLINE std::uint32_t address(LoopState<stepped>& s) {
  return s.effAdr = kind == Kind::Indexed ? indexedAddress(s.e->second, s.gr[s.e->x]) : s.e->second;
}

/// An instruction of which the operand m is a register or a cell.
template <Kind kind, auto effect, bool stepped>
ZELVARO_INLINE Go operation(LoopState<stepped>& s) {
  count(s);
  std::int32_t operand = 0;
  if constexpr (kind == Kind::Register) {
    operand = s.gr[s.e->x];
  } else {
    const std::uint32_t adr = address<kind>(s);
    if (kind == Kind::Indexed && adr > s.highest) return Go::LoadRefused;
    operand = s.memory[adr];
  }
  effect(s.gr[s.e->r], operand, s.f);
  s.e += kind == Kind::Register ? 1 : 2;
  return Go::On;
}

/// LAD and the shifts: the effective address is the operand.
template <Kind kind, auto effect, bool stepped>
ZELVARO_INLINE Go fromAddress(LoopState<stepped>& s) {
  count(s);
  const auto n = static_cast<std::int32_t>(address<kind>(s));
  std::int32_t& r = s.gr[s.e->r];
  r = effect(r, n, s.f);
  s.e += 2;
  return Go::On;
}

/// Goes to an address.  False, with the address in `far`, if it is above the address space.
template <bool stepped>
ZELVARO_INLINE bool enter(LoopState<stepped>& s, std::uint32_t target) {
  if (target > kHighestAddress) {
    s.far = target;
    return false;
  }
  s.e = s.entries + target;
  return true;
}

/// A jump that is not taken computes no address.  JMI, JZE and JPL do not cut an indexed target.
enum class Target : std::uint8_t { Cut, Uncut };
template <Kind kind, Target form, bool stepped>
ZELVARO_INLINE Go jumpIf(LoopState<stepped>& s, bool condition) {
  count(s);
  if (!condition) {
    s.e += 2;
    return Go::On;
  }
  const std::uint32_t executed = s.e->count;
  if constexpr (kind == Kind::Indexed && form == Target::Uncut) {
    const std::uint32_t target = uncutAddress(s.e->second, s.gr[s.e->x]);
    s.effAdr = target & kHighestAddress;
    if (!enter(s, target)) return Go::FarJump;
  } else {
    s.e = s.entries + address<kind>(s);
  }
  return nextOrLook(executed);
}

/// Counts down SP.  False if the stack is full: SP stays decremented.
template <bool stepped>
ZELVARO_INLINE bool push(LoopState<stepped>& s, std::uint32_t value) {
  const std::uint32_t at = stackCell(--s.m.SP);
  if (at > kStackDepth) return false;
  s.m.StackArea[at] = static_cast<std::int32_t>(value);
  return true;
}

template <Kind kind, bool stepped>
ZELVARO_INLINE Go store(LoopState<stepped>& s) {
  count(s);
  const std::uint32_t adr = address<kind>(s);
  if (kind == Kind::Indexed && adr >= s.watchedFrom) return Go::StoreWatched;
  s.memory[adr] = s.gr[s.e->r];
  if (s.readers[adr] != 0) return Go::StoredIntoCode;
  s.e += 2;
  return Go::On;
}

template <Kind kind, bool stepped>
ZELVARO_INLINE Go pushAddress(LoopState<stepped>& s) {
  count(s);
  if (!push(s, address<kind>(s))) return Go::StackFull;
  s.e += 2;
  return Go::On;
}

template <bool stepped>
ZELVARO_INLINE Go pop(LoopState<stepped>& s) {
  count(s);
  const std::uint32_t at = stackCell(s.m.SP);
  if (at - 1 >= kStackDepth) return Go::StackEmpty;
  s.gr[s.e->r] = s.m.StackArea[at];
  ++s.m.SP;
  s.e += 1;
  return Go::On;
}

template <Kind kind, bool stepped>
ZELVARO_INLINE Go call(LoopState<stepped>& s) {
  count(s);
  ++s.m.OS;
  const std::uint32_t target = address<kind>(s);
  if (!push(s, static_cast<std::uint32_t>(s.e - s.entries + 2))) return Go::StackFull;
  const std::uint32_t executed = s.e->count;
  s.e = s.entries + target;
  return nextOrLook(executed);
}

/// ret581, the return step: cell 0, which no PUSH uses, is read if OS and the stack do not agree.
template <bool stepped>
ZELVARO_INLINE Go ret(LoopState<stepped>& s) {
  count(s);
  if (s.m.OS == 0) return Go::End;
  --s.m.OS;
  const std::uint32_t at = stackCell(s.m.SP);
  if (at > kStackDepth) return Go::ReturnRefused;
  const auto target = static_cast<std::uint32_t>(s.m.StackArea[at]);
  ++s.m.SP;
  return enter(s, target) ? Go::Next : Go::FarJump;
}

/// The number of the service is the effective address.
template <Kind kind, bool stepped>
ZELVARO_INLINE Go service(LoopState<stepped>& s) {
  count(s);
  address<kind>(s);
  s.e += 2;
  return Go::Serve;
}

template <bool stepped>
ZELVARO_INLINE Go nop(LoopState<stepped>& s) {
  count(s);
  s.e += 1;
  return Go::On;
}

/// Words that stop the run.
template <bool stepped>
ZELVARO_INLINE Go stopAt(LoopState<stepped>& s, Go why) {
  count(s);
  return why;
}
template <bool stepped>
ZELVARO_INLINE Go stopAtLoad(LoopState<stepped>& s) {
  count(s);
  address<Kind::Direct>(s);
  return Go::LoadRefused;
}

/// The part of a mnemonic.
template <Op op, Kind kind, bool stepped>
ZELVARO_INLINE Go part(LoopState<stepped>& s) {
  // clang-format off
  switch (op) {
    case Op::LD:   return operation<kind, effect::LD>(s);
    case Op::ADDA: return operation<kind, effect::ADDA>(s);
    case Op::SUBA: return operation<kind, effect::SUBA>(s);
    case Op::ADDL: return operation<kind, effect::ADDL>(s);
    case Op::SUBL: return operation<kind, effect::SUBL>(s);
    case Op::AND:  return operation<kind, effect::AND>(s);
    case Op::OR:   return operation<kind, effect::OR>(s);
    case Op::XOR:  return operation<kind, effect::XOR>(s);
    case Op::CPA:  return operation<kind, effect::CPA>(s);
    case Op::CPL:  return operation<kind, effect::CPL>(s);
    case Op::LAD:  return fromAddress<kind, effect::LAD>(s);
    case Op::SLA:  return fromAddress<kind, effect::sla550>(s);
    case Op::SRA:  return fromAddress<kind, effect::sra551>(s);
    case Op::SLL:  return fromAddress<kind, effect::sll652>(s);
    case Op::SRL:  return fromAddress<kind, effect::srl653>(s);
    case Op::ST:   return store<kind>(s);
    case Op::JMI:  return jumpIf<kind, Target::Uncut>(s, s.f.sz < 0);
    case Op::JNZ:  return jumpIf<kind, Target::Cut>(s, s.f.sz != 0);
    case Op::JZE:  return jumpIf<kind, Target::Uncut>(s, s.f.sz == 0);
    case Op::JUMP: return jumpIf<kind, Target::Cut>(s, true);
    case Op::JPL:  return jumpIf<kind, Target::Uncut>(s, s.f.sz > 0);
    case Op::JOV:  return jumpIf<kind, Target::Cut>(s, s.f.ovf != 0);
    case Op::PUSH: return pushAddress<kind>(s);
    case Op::POP:  return pop(s);
    case Op::CALL: return call<kind>(s);
    case Op::RET:  return ret(s);
    case Op::SVC:  return service<kind>(s);
    case Op::EXIT: return stopAt(s, Go::End);
    default:       return nop(s);
  }
  // clang-format on
}

#undef ZELVARO_INLINE

}  // namespace zelvaro
