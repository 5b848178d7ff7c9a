#include "engine/Trace.h"

#include <algorithm>

#include "comet2/Services.h"
#include "encode/Instructions.h"

namespace zelvaro::engine {
namespace {

using Place = Change::Place;

int wordAt(const Tcomet2& m, int address) {
  return unsignedWord(m.Memory[static_cast<std::size_t>(unsignedWord(address))]);
}

int valueOf(const Tcomet2& m, Place place, int index) {
  switch (place) {
    case Place::GR:
      return unsignedWord(m.GR[static_cast<std::size_t>(index)]);
    case Place::PR:
      return m.PR;
    case Place::SP:
      return m.SP;
    case Place::OS:
      return m.OS;
    case Place::Overflow:
      return m.Fovf;
    case Place::Sign:
      return m.Fsign;
    case Place::Zero:
      return m.Fzero;
    case Place::Memory:
      return wordAt(m, index);
    case Place::Stack:
      return unsignedWord(m.StackArea[static_cast<std::size_t>(kFirstSP - index)]);
  }
  return 0;
}

}  // namespace

BeforeStep::BeforeStep(const Tcomet2& m) {
  for (int i = 0; i <= kMostRegister; ++i) watched_.push_back({Place::GR, i, 0, 0});
  for (const Place p : {Place::PR, Place::SP, Place::OS, Place::Overflow, Place::Sign, Place::Zero})
    watched_.push_back({p, 0, 0, 0});
  if (m.PR >= 0 && m.PR < kAddressSpace) watchMemory(m);
  // the place of the next PUSH or CALL
  if (m.SP > kFirstSP - kStackDepth && m.SP <= kFirstSP) watched_.push_back({Place::Stack, m.SP - 1, 0, 0});
  for (Change& c : watched_) c.before = valueOf(m, c.place, c.index);
}

void BeforeStep::watch(int address) {
  watched_.push_back({Place::Memory, unsignedWord(address), 0, 0});
}

/// The words that a store or an IN at PR writes.
void BeforeStep::watchMemory(const Tcomet2& m) {
  const int word = wordAt(m, m.PR);
  const int x = word & 0xF;
  if (x > kMostRegister) return;
  const int second = wordAt(m, m.PR + 1);
  const int address = unsignedWord(second + (x == 0 ? 0 : m.GR[static_cast<std::size_t>(x)]));
  if (word >> 8 == instruction(Op::ST).adrCode) watch(address);
  if (word >> 8 != instruction(Op::SVC).adrCode || address != kSvcIn) return;
  const int length = unsignedWord(m.GR[2]);
  const int first = unsignedWord(m.GR[1]);
  for (int i = 0; i < kMostBytesOfInput; ++i)
    if (unsignedWord(first + i) != length) watch(first + i);
  watch(length);
}

std::vector<Change> BeforeStep::changes(const Tcomet2& m) const {
  std::vector<Change> out;
  for (Change c : watched_) {
    c.after = valueOf(m, c.place, c.index);
    if (c.after != c.before) out.push_back(c);
  }
  return out;
}

Registers registersOf(const Tcomet2& m) {
  Registers r;
  std::transform(m.GR.begin(), m.GR.end(), r.gr.begin(),
                 [](std::int32_t v) { return static_cast<std::uint16_t>(v); });
  r.pr = m.PR;
  r.sp = m.SP;
  r.os = m.OS;
  r.overflow = m.Fovf != 0;
  r.sign = m.Fsign != 0;
  r.zero = m.Fzero != 0;
  return r;
}

}  // namespace zelvaro::engine
