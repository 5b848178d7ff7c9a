// The machine once more, slow and obvious: the tables of the instruction set as they are, one instruction a call.
// Compared.h compares the run loop with it.
#pragma once

#include <cstdint>
#include <tuple>
#include <vector>

#include "comet2/Comet2.h"
#include "comet2/Guards.h"
#include "comet2/Services.h"

namespace zelvaro::test {

/// A store that was warned of: effective address, PR (on the second word), executions of the ST.
using StoreWarned = std::tuple<int, int, int>;

class SlowMachine {
 public:
  Tcomet2 m;
  int limit;
  int PrgEndAdr;
  std::int64_t executed = 0;
  std::vector<StoreWarned> warnings;

  SlowMachine(const Tcomet2& machine, const Services& services, int limitOfRun, int prgEndAdr)
      : m(machine), limit(limitOfRun), PrgEndAdr(prgEndAdr), services_(services) {}

  /// Runs to a stop, or until `steps` instructions have been executed.
  Stop run(std::int64_t steps) {
    emptyInputs_ = 0;
    Stop stop = kGoesOn;
    while (executed < steps && stop == kGoesOn) stop = step();
    return stop;
  }

 private:
  static constexpr Stop kGoesOn = Stop::Steps;

  static int u(int v) { return v & 0xFFFF; }
  static int s(int v) { return u(v) >= 0x8000 ? u(v) - 0x10000 : u(v); }
  int at(int adr) const { return m.Memory[static_cast<std::size_t>(adr)]; }
  std::int32_t& stack() { return m.StackArea[static_cast<std::size_t>(0xFFFF - m.SP)]; }
  std::int32_t& count(int adr) { return m.ExecCount[static_cast<std::size_t>(adr)]; }

  /// One turn of the loop.
  Stop step() {
    if (m.PR > 65535) return Stop::End;
    if (m.PR > limit) return Stop::Pr;
    cell_ = at(m.PR);
    code_ = cell_ >> 8 & 0xFF;
    r_ = static_cast<std::size_t>(cell_ >> 4 & 0xF);
    x_ = static_cast<std::size_t>(cell_ & 0xF);
    if (registerIsRefused()) return Stop::Register;
    count(m.PR) += 1;
    ++executed;
    return isJump() ? jump() : isOperation() ? operation() : other();
  }

  bool isJump() const { return code_ >= 0x61 && code_ <= 0x66; }
  /// The forms with memory and with a register differ in one bit.
  bool isOperation() const {
    const int code = code_ & 0xFB;
    return code == 0x10 || (code >= 0x20 && code <= 0x23) || (code >= 0x30 && code <= 0x32) || code == 0x40 ||
           code == 0x41;
  }

  /// Whether a field above 7 is one that the instruction reads.
  bool registerIsRefused() const {
    const bool readsNone = code_ == 0x00 || code_ == 0x81, pops = code_ == 0x71;
    const bool readsXOnly = isJump() || code_ == 0x70 || code_ == 0x80 || code_ == 0xF0;
    return !readsNone && ((r_ > 7 && !readsXOnly) || (x_ > 7 && !pops));
  }

  /// Moves PR to the second word.
  int effAdr() {
    m.PR += 1;
    return m.EffAdr = u(x_ == 0 ? at(m.PR) : u(at(m.PR)) + u(m.GR[x_]));
  }

  void setSignAndZero(int v) {
    m.Fzero = u(v) == 0;
    m.Fsign = u(v) >= 0x8000;
  }

  Stop operation() {
    const bool ofRegister = (code_ & 0x04) != 0;
    if (!ofRegister && effAdr() > limit) return Stop::Load;
    const int v = ofRegister ? m.GR[x_] : at(m.EffAdr);
    const int code = code_ & 0xFB;
    int& gr = m.GR[r_];
    m.PR += 1;
    m.Fovf = 0;
    if (code >= 0x40) {
      const auto read = code == 0x40 ? s : u;
      m.Fsign = read(gr) < read(v);
      m.Fzero = read(gr) == read(v);
      return kGoesOn;
    }
    int result = 0;
    if (code == 0x10) {
      gr = result = s(v);
    } else if (code >= 0x30) {
      gr = result = code == 0x30 ? gr & v : code == 0x31 ? gr | v : gr ^ v;
    } else {
      const auto read = code < 0x22 ? s : u;
      result = (code & 1) == 0 ? read(gr) + read(v) : read(gr) - read(v);
      gr = read(result);
      m.Fovf = result != gr;
    }
    setSignAndZero(result);
    return kGoesOn;
  }

  Stop jump() {
    const bool taken[] = {m.Fsign == 1, m.Fzero == 0, m.Fzero == 1, true, m.Fsign == 0 && m.Fzero == 0,
                          m.Fovf == 1};
    if (!taken[code_ - 0x61]) {
      m.PR += 2;
      return kGoesOn;
    }
    const bool cuts = code_ == 0x62 || code_ == 0x64 || code_ == 0x66;
    const int cut = effAdr(), uncut = u(at(m.PR)) + (x_ == 0 ? 0 : u(m.GR[x_]));
    m.PR = cuts ? cut : uncut;
    return kGoesOn;
  }

  Stop other() {
    if (code_ == 0x00 && cell_ != 0) return Stop::Nop;
    if (code_ == 0x71 && m.SP >= 0xFFFF) return Stop::EmptyStack;
    if (code_ == 0x81) return ret();
    if (code_ == 0x88) return Stop::End;
    if (code_ == 0x71) m.GR[r_] = pop();
    if (code_ != 0x00 && code_ != 0x71)
      if (const Stop stop = withAddress(); stop != kGoesOn || code_ == 0x80) return stop;
    m.PR += 1;
    return kGoesOn;
  }

  Stop withAddress() {
    if (code_ == 0x11) return store(effAdr());
    if (code_ == 0x12) return m.GR[r_] = effAdr(), kGoesOn;
    if (code_ >= 0x50 && code_ <= 0x53) return shift(effAdr());
    if (code_ == 0x70) return push(effAdr());
    if (code_ == 0x80) return call(effAdr());
    if (code_ == 0xF0) return serve(effAdr());
    return Stop::Unregistered;
  }

  Stop store(int adr) {
    if (x_ != 0 && adr >= limit) return Stop::Store;
    if (x_ != 0 && adr >= PrgEndAdr && warnings.empty()) warnings.emplace_back(adr, m.PR, count(m.PR - 1));
    m.Memory[static_cast<std::size_t>(adr)] = m.GR[r_];
    return kGoesOn;
  }

  /// One place after the other.
  Stop shift(int n) {
    const bool left = code_ == 0x50 || code_ == 0x52, arithmetic = code_ < 0x52;
    int w = u(m.GR[r_]);
    const int sign = w & 0x8000;
    m.Fovf = 0;
    for (int i = 0; i < n && i < 20; ++i) {
      m.Fovf = left ? (arithmetic ? w >> 14 & 1 : w >> 15 & 1) : w & 1;
      w = left ? u(w << 1) : w >> 1;
      if (arithmetic) w = (w & 0x7FFF) | sign;
    }
    setSignAndZero(w);
    m.GR[r_] = code_ == 0x52 ? u(w) : s(w);
    return kGoesOn;
  }

  Stop push(int value) {
    m.SP -= 1;
    if (0xFFFF - m.SP > 500) return Stop::Stack;
    stack() = value;
    return kGoesOn;
  }
  int pop() {
    const int value = stack();
    m.SP += 1;
    return value;
  }
  Stop call(int adr) {
    m.OS += 1;
    const Stop stop = push(m.PR + 1);
    if (stop == kGoesOn) m.PR = adr;
    return stop;
  }
  Stop ret() {
    if (m.OS == 0) return Stop::End;
    m.OS -= 1;
    if (m.SP > 0xFFFF) return Stop::Return;
    m.PR = pop();
    return kGoesOn;
  }

  Stop serve(int number) {
    const int read = SvcCall(m, services_, number);
    if (number == kSvcIn) emptyInputs_ = read == kNoLine ? emptyInputs_ + 1 : 0;
    if (emptyInputs_ < kMostEmptyInputs) return kGoesOn;
    m.PR += 1;
    return Stop::InputEnded;
  }

  int emptyInputs_ = 0;  ///< IN in a row that have found no line any more
  Services services_;
  int cell_ = 0, code_ = 0;
  std::size_t r_ = 0, x_ = 0;
};

}  // namespace zelvaro::test
