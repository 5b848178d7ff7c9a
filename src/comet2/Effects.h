// What the instructions do to a register and the flags: the effects of the instruction table.
#pragma once

#include <cstdint>

#include "comet2/Comet2.h"

namespace zelvaro {

/// The flags during a run.  They become the fields of Tcomet2 when it stops.
struct Flags {
  std::int32_t sz;   ///< negative: Fsign; zero: Fzero
  std::int32_t ovf;  ///< not zero: Fovf
};

/// Each effect takes the register and the operand m of its form.
namespace effect {

inline void LD(std::int32_t& r, std::int32_t m, Flags& f) {
  r = f.sz = signedWord(m);
  f.ovf = 0;
}

/// The result of ADDA and SUBA, in 32 bits.
inline void storeSigned(std::int32_t& r, std::int32_t t, Flags& f) {
  r = f.sz = signedWord(t);
  f.ovf = t - r;
}
inline void ADDA(std::int32_t& r, std::int32_t m, Flags& f) {
  storeSigned(r, signedWord(r) + signedWord(m), f);
}
inline void SUBA(std::int32_t& r, std::int32_t m, Flags& f) {
  storeSigned(r, signedWord(r) - signedWord(m), f);
}

/// The result of ADDL and SUBL: a carry and a borrow both show in bit 16.
inline void storeUnsigned(std::int32_t& r, std::int32_t t, Flags& f) {
  r = unsignedWord(t);
  f.sz = signedWord(t);
  f.ovf = t & 0x10000;
}
inline void ADDL(std::int32_t& r, std::int32_t m, Flags& f) {
  storeUnsigned(r, unsignedWord(r) + unsignedWord(m), f);
}
inline void SUBL(std::int32_t& r, std::int32_t m, Flags& f) {
  storeUnsigned(r, unsignedWord(r) - unsignedWord(m), f);
}

/// AND, OR and XOR operate on all 32 bits.
inline void storeWhole(std::int32_t& r, std::int32_t v, Flags& f) {
  r = v;
  f.sz = signedWord(v);
  f.ovf = 0;
}
inline void AND(std::int32_t& r, std::int32_t m, Flags& f) {
  storeWhole(r, r & m, f);
}
inline void OR(std::int32_t& r, std::int32_t m, Flags& f) {
  storeWhole(r, r | m, f);
}
inline void XOR(std::int32_t& r, std::int32_t m, Flags& f) {
  storeWhole(r, r ^ m, f);
}

inline void CPA(const std::int32_t& r, std::int32_t m, Flags& f) {
  f = {signedWord(r) - signedWord(m), 0};
}
inline void CPL(const std::int32_t& r, std::int32_t m, Flags& f) {
  f = {unsignedWord(r) - unsignedWord(m), 0};
}

/// LAD and the shifts take the value of the register and the effective address n, 0 to 65535.  They return the
/// new value of the register; a shift sets the flags in `f`.

inline std::int32_t LAD(std::int32_t, std::int32_t n, Flags&) {
  return n;
}

inline std::int32_t sla550(std::int32_t r, std::int32_t n, Flags& f) {
  const std::int32_t v = unsignedWord(r);
  const std::int32_t sign = v & 0x8000;
  const std::int32_t shifted = n > 15 ? 0 : (v & 0x7FFF) << n;
  f.ovf = n == 0 ? 0 : shifted & 0x8000;  // the last bit shifted out of bit 14
  f.sz = signedWord(sign | (shifted & 0x7FFF));
  return f.sz;
}

inline std::int32_t sra551(std::int32_t r, std::int32_t n, Flags& f) {
  const std::int32_t v = signedWord(r);
  const std::int32_t count = n > 16 ? 16 : n;
  f.ovf = count == 0 ? 0 : (v >> (count - 1)) & 1;
  f.sz = v >> count;
  return f.sz;
}

inline std::int32_t sll652(std::int32_t r, std::int32_t n, Flags& f) {
  const std::int32_t shifted =
      n > 16 ? 0 : static_cast<std::int32_t>(static_cast<std::uint32_t>(unsignedWord(r)) << n);
  f.ovf = n == 0 ? 0 : shifted & 0x10000;
  f.sz = signedWord(shifted);
  return unsignedWord(shifted);
}

inline std::int32_t srl653(std::int32_t r, std::int32_t n, Flags& f) {
  const std::int32_t v = n > 16 ? 0 : unsignedWord(r);
  const std::int32_t count = n > 16 ? 16 : n;
  f.ovf = count == 0 ? 0 : (v >> (count - 1)) & 1;
  f.sz = signedWord(v >> count);
  return f.sz;
}

}  // namespace effect
}  // namespace zelvaro
