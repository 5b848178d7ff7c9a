// The machine once more, slow and obvious: the tables of the instruction set as one switch, one instruction a
// call.  The run loop is compared with it.
#pragma once

#include <cstdint>
#include <optional>
#include <tuple>
#include <vector>

#include "comet2/Comet2.h"
#include "comet2/Guards.h"
#include "comet2/Services.h"

namespace zelvaro::test {

/// A store that was warned of: effective address, PR (on the second word), executions of the ST.
using Warning = std::tuple<int, int, int>;

class SlowMachine {
 public:
  Tcomet2 m;
  int limit;
  int PrgEndAdr;
  std::int64_t executed = 0;
  std::vector<Warning> warnings;

  SlowMachine(const Tcomet2& machine, Platform& platform, int limitOfRun, int prgEndAdr)
      : m(machine), limit(limitOfRun), PrgEndAdr(prgEndAdr), platform_(platform) {}

  /// Runs to a stop, or until `steps` instructions have been executed.
  Stop run(std::int64_t steps) {
    for (;;) {
      if (executed >= steps) return Stop::Steps;
      if (const auto stop = step()) return *stop;
    }
  }

  /// One turn of the loop.
  std::optional<Stop> step() {
    if (m.PR > 65535) return Stop::End;
    if (m.PR > limit) return Stop::Pr;
    const int cell = at(m.PR);
    code_ = cell >> 8 & 0xFF;
    r_ = static_cast<std::size_t>(cell >> 4 & 0xF);
    x_ = static_cast<std::size_t>(cell & 0xF);
    if (registerIsRefused()) return Stop::Register;
    m.ExecCount[static_cast<std::size_t>(m.PR)] += 1;
    ++executed;
    switch (code_) {
      case 0x00:
        if (cell != 0) return Stop::Nop;
        m.PR += 1;
        return {};
      case 0x11:
        return store();
      case 0x12:
        m.GR[r_] = effAdr();
        m.PR += 1;
        return {};
      case 0x50:
      case 0x51:
      case 0x52:
      case 0x53:
        shift();
        return {};
      case 0x61:
        jump(m.Fsign == 1, false);
        return {};
      case 0x62:
        jump(m.Fzero == 0, true);
        return {};
      case 0x63:
        jump(m.Fzero == 1, false);
        return {};
      case 0x64:
        jump(true, true);
        return {};
      case 0x65:
        jump(m.Fsign == 0 && m.Fzero == 0, false);
        return {};
      case 0x66:
        jump(m.Fovf == 1, true);
        return {};
      case 0x70:
        return push(effAdr());
      case 0x71:
        return pop();
      case 0x80: {
        const int target = effAdr();
        m.OS += 1;
        if (const auto stop = push(m.PR + 1)) return stop;
        m.PR = target;
        return {};
      }
      case 0x81:
        return ret();
      case 0x88:
        return Stop::End;
      case 0xF0:
        SvcCall(m, platform_, effAdr());
        m.PR += 1;
        return {};
      default:
        return operation();
    }
  }

 private:
  static int u(int v) { return v & 0xFFFF; }
  static int s(int v) { return u(v) >= 0x8000 ? u(v) - 0x10000 : u(v); }
  int at(int adr) const { return m.Memory[static_cast<std::size_t>(adr)]; }

  bool registerIsRefused() const {
    if (r_ <= 7 && x_ <= 7) return false;
    switch (code_) {
      case 0x00:
      case 0x81:
        return false;
      case 0x61:
      case 0x62:
      case 0x63:
      case 0x64:
      case 0x65:
      case 0x66:
      case 0x70:
      case 0x80:
      case 0xF0:
        return x_ > 7;
      case 0x71:
        return r_ > 7;
      default:
        return true;
    }
  }

  /// Moves PR to the second word.
  int effAdr() {
    m.PR += 1;
    m.EffAdr = u(x_ == 0 ? at(m.PR) : u(at(m.PR)) + u(m.GR[x_]));
    return m.EffAdr;
  }

  void ruleF(int v) {
    m.Fzero = u(v) == 0;
    m.Fsign = u(v) >= 0x8000;
  }

  std::optional<Stop> operation() {
    int operand = 0;
    switch (code_) {
      case 0x10:
      case 0x20:
      case 0x21:
      case 0x22:
      case 0x23:
      case 0x30:
      case 0x31:
      case 0x32:
      case 0x40:
      case 0x41:
        if (effAdr() > limit) return Stop::Load;
        operand = at(m.EffAdr);
        break;
      case 0x14:
      case 0x24:
      case 0x25:
      case 0x26:
      case 0x27:
      case 0x34:
      case 0x35:
      case 0x36:
      case 0x44:
      case 0x45:
        operand = m.GR[x_];
        break;
      default:
        return Stop::Unregistered;
    }
    int& gr = m.GR[r_];
    int t = 0;
    m.Fovf = 0;
    switch (code_ & 0xFB) {
      case 0x10:
        gr = s(operand);
        ruleF(gr);
        break;
      case 0x20:
        t = s(gr) + s(operand);
        gr = s(t);
        m.Fovf = t < -32768 || t > 32767;
        ruleF(t);
        break;
      case 0x21:
        t = s(gr) - s(operand);
        gr = s(t);
        m.Fovf = t < -32768 || t > 32767;
        ruleF(t);
        break;
      case 0x22:
        t = u(gr) + u(operand);
        gr = u(t);
        m.Fovf = t > 65535;
        ruleF(t);
        break;
      case 0x23:
        t = u(gr) - u(operand);
        gr = u(t);
        m.Fovf = t < 0;
        ruleF(t);
        break;
      case 0x30:
        gr &= operand;
        ruleF(gr);
        break;
      case 0x31:
        gr |= operand;
        ruleF(gr);
        break;
      case 0x32:
        gr ^= operand;
        ruleF(gr);
        break;
      case 0x40:
        m.Fsign = s(gr) < s(operand);
        m.Fzero = s(gr) == s(operand);
        break;
      default:
        m.Fsign = u(gr) < u(operand);
        m.Fzero = u(gr) == u(operand);
        break;
    }
    m.PR += 1;
    return {};
  }

  std::optional<Stop> store() {
    const int adr = effAdr();
    if (x_ != 0 && adr >= limit) return Stop::Store;
    if (x_ != 0 && adr >= PrgEndAdr && !storeWarned_) {
      storeWarned_ = true;
      warnings.emplace_back(adr, m.PR, m.ExecCount[static_cast<std::size_t>(m.PR - 1)]);
    }
    m.Memory[static_cast<std::size_t>(adr)] = m.GR[r_];
    m.PR += 1;
    return {};
  }

  /// One place after the other.
  void shift() {
    const int n = effAdr();
    const int v = u(m.GR[r_]);
    const bool left = code_ == 0x50 || code_ == 0x52;
    const bool arithmetic = code_ == 0x50 || code_ == 0x51;
    const int sign = v & 0x8000;
    int w = v;
    m.Fovf = 0;
    for (int i = 0; i < n && i < 20; ++i) {
      m.Fovf = left ? (arithmetic ? w >> 14 & 1 : w >> 15 & 1) : w & 1;
      w = left ? u(w << 1) : w >> 1;
      if (arithmetic) w = (w & 0x7FFF) | sign;
    }
    ruleF(w);
    if (code_ == 0x52)
      m.GR[r_] = u(w);
    else
      m.GR[r_] = s(w);
    m.PR += 1;
  }

  void jump(bool taken, bool cut) {
    if (!taken) {
      m.PR += 2;
      return;
    }
    effAdr();
    const int target = u(at(m.PR)) + (x_ == 0 ? 0 : u(m.GR[x_]));
    m.PR = cut ? u(target) : target;
  }

  /// PR stands on the second word.
  std::optional<Stop> push(int value) {
    m.SP -= 1;
    if (0xFFFF - m.SP > 500) return Stop::Stack;
    m.StackArea[static_cast<std::size_t>(0xFFFF - m.SP)] = value;
    m.PR += 1;
    return {};
  }

  std::optional<Stop> pop() {
    if (m.SP >= 0xFFFF) return Stop::EmptyStack;
    m.GR[r_] = m.StackArea[static_cast<std::size_t>(0xFFFF - m.SP)];
    m.SP += 1;
    m.PR += 1;
    return {};
  }

  std::optional<Stop> ret() {
    if (m.OS == 0) return Stop::End;
    m.OS -= 1;
    if (m.SP > 0xFFFF) return Stop::Return;
    m.PR = m.StackArea[static_cast<std::size_t>(0xFFFF - m.SP)];
    m.SP += 1;
    return {};
  }

  Platform& platform_;
  bool storeWarned_ = false;
  int code_ = 0;
  std::size_t r_ = 0, x_ = 0;
};

}  // namespace zelvaro::test
