// The machine once more, slow and obvious: the tables of the instruction set as they stand, one instruction a
// call.  The run loop is compared with it, in the tests and under the fuzzer.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "comet2/Comet2.h"
#include "comet2/Guards.h"
#include "comet2/Services.h"
#include "support/ScriptedPlatform.h"

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
    while (executed < steps)
      if (const auto stop = step()) return *stop;
    return Stop::Steps;
  }

 private:
  using Codes = std::initializer_list<int>;
  static constexpr Codes kMemoryForms{0x10, 0x20, 0x21, 0x22, 0x23, 0x30, 0x31, 0x32, 0x40, 0x41};
  static constexpr Codes kRegisterForms{0x14, 0x24, 0x25, 0x26, 0x27, 0x34, 0x35, 0x36, 0x44, 0x45};
  static constexpr Codes kOtherAddressForms{0x11, 0x12, 0x50, 0x51, 0x52, 0x53, 0x70, 0x80, 0xF0};
  static constexpr Codes kJumps{0x61, 0x62, 0x63, 0x64, 0x65, 0x66};

  static int u(int v) { return v & 0xFFFF; }
  static int s(int v) { return u(v) >= 0x8000 ? u(v) - 0x10000 : u(v); }
  int at(int adr) const { return m.Memory[static_cast<std::size_t>(adr)]; }
  bool isOneOf(Codes codes) const { return std::find(codes.begin(), codes.end(), code_) != codes.end(); }
  std::int32_t& stack() { return m.StackArea[static_cast<std::size_t>(0xFFFF - m.SP)]; }

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
    if (code_ == 0x71) return pop();
    if (code_ == 0x81) return ret();
    if (code_ == 0x88) return Stop::End;
    if (isOneOf(kJumps)) {
      jump();
      return {};
    }
    if (isOneOf(kMemoryForms)) {
      if (effAdr() > limit) return Stop::Load;
      operation(at(m.EffAdr));
    } else if (isOneOf(kRegisterForms)) {
      operation(m.GR[x_]);
    } else if (isOneOf(kOtherAddressForms)) {
      if (const auto stop = withAddress(effAdr())) return stop;
      if (code_ == 0x80) return {};
    } else if (cell != 0) {
      return code_ == 0 ? Stop::Nop : Stop::Unregistered;
    }
    m.PR += 1;
    return {};
  }

  /// Whether a field above 7 is one that the instruction reads.
  bool registerIsRefused() const {
    if (r_ <= 7 && x_ <= 7) return false;
    if (code_ == 0x00 || code_ == 0x81) return false;
    if (code_ == 0x71) return r_ > 7;
    if (isOneOf(kJumps) || isOneOf({0x70, 0x80, 0xF0})) return x_ > 7;
    return true;
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

  /// GR and an operand, of memory or of a register: the codes of the two differ in one bit.
  void operation(int v) {
    const int code = code_ & 0xFB;
    int& gr = m.GR[r_];
    m.Fovf = 0;
    if (code == 0x40 || code == 0x41) {
      const auto read = code == 0x40 ? s : u;
      m.Fsign = read(gr) < read(v);
      m.Fzero = read(gr) == read(v);
      return;
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
  }

  std::optional<Stop> withAddress(int adr) {
    switch (code_) {
      case 0x11:
        return store(adr);
      case 0x12:
        m.GR[r_] = adr;
        return {};
      case 0x70:
        return push(adr);
      case 0x80:
        m.OS += 1;
        if (const auto stop = push(m.PR + 1)) return stop;
        m.PR = adr;
        return {};
      case 0xF0:
        return serve(adr);
      default:
        shift(adr);
        return {};
    }
  }

  std::optional<Stop> serve(int number) {
    const int read = SvcCall(m, services_, number);
    if (number == kSvcIn) emptyInputs_ = read == kNoLine ? emptyInputs_ + 1 : 0;
    if (emptyInputs_ < kMostEmptyInputs) return {};
    m.PR += 1;
    return Stop::InputEnded;
  }

  std::optional<Stop> store(int adr) {
    if (x_ != 0 && adr >= limit) return Stop::Store;
    if (x_ != 0 && adr >= PrgEndAdr && warnings.empty())
      warnings.emplace_back(adr, m.PR, m.ExecCount[static_cast<std::size_t>(m.PR - 1)]);
    m.Memory[static_cast<std::size_t>(adr)] = m.GR[r_];
    return {};
  }

  /// One place after the other.
  void shift(int n) {
    const bool left = code_ == 0x50 || code_ == 0x52;
    const bool arithmetic = code_ == 0x50 || code_ == 0x51;
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
  }

  void jump() {
    const bool taken[] = {m.Fsign == 1, m.Fzero == 0, m.Fzero == 1, true, m.Fsign == 0 && m.Fzero == 0,
                          m.Fovf == 1};
    if (!taken[code_ - 0x61]) {
      m.PR += 2;
      return;
    }
    effAdr();
    const int target = u(at(m.PR)) + (x_ == 0 ? 0 : u(m.GR[x_]));
    m.PR = isOneOf({0x62, 0x64, 0x66}) ? u(target) : target;
  }

  std::optional<Stop> push(int value) {
    m.SP -= 1;
    if (0xFFFF - m.SP > 500) return Stop::Stack;
    stack() = value;
    return {};
  }
  std::optional<Stop> pop() {
    if (m.SP >= 0xFFFF) return Stop::EmptyStack;
    m.GR[r_] = stack();
    m.SP += 1;
    m.PR += 1;
    return {};
  }
  std::optional<Stop> ret() {
    if (m.OS == 0) return Stop::End;
    m.OS -= 1;
    if (m.SP > 0xFFFF) return Stop::Return;
    m.PR = stack();
    m.SP += 1;
    return {};
  }

  int emptyInputs_ = 0;  ///< IN in a row that have found no line any more
  Services services_;
  int code_ = 0;
  std::size_t r_ = 0, x_ = 0;
};

/// Watches stores as the families do that warn once a run, and says nothing.
class SilentWatch : public StoreWatch {
 public:
  SilentWatch(int PrgEndAdr, int limit) : StoreWatch(std::min(PrgEndAdr, limit)), limit_(limit) {}
  bool st511(Tcomet2& m, std::int32_t effAdr, std::int32_t count) override {
    if (effAdr >= limit_) return false;
    warnings.emplace_back(effAdr, m.PR, count);
    from_ = limit_;
    return true;
  }
  std::vector<StoreWarned> warnings;

 private:
  int limit_;
};

/// Lines for the INs of a run: none at all, plain ones, pairs of units, bytes that are no text.
inline void typeSomething(ScriptedPlatform& platform) {
  for (const char* line :
       {"", "A", "abcdefgh", "日本語𠮷", "\xFF", "0123456789012345678901234567890123456789"})
    platform.typed.emplace_back(line);
}

/// In what two machines differ, in words; empty where they are the same.
inline std::string difference(Tcomet2& a, Tcomet2& b) {
  const auto same = [](Cells& x, Cells& y) { return std::equal(x.begin(), x.end(), y.begin()); };
  std::string out;
  if (a.PR != b.PR) out += " PR";
  if (a.SP != b.SP) out += " SP";
  if (a.OS != b.OS) out += " OS";
  if (a.EffAdr != b.EffAdr) out += " effective address";
  if (a.GR != b.GR) out += " registers";
  if (a.Fovf != b.Fovf || a.Fsign != b.Fsign || a.Fzero != b.Fzero) out += " flags";
  if (a.StackArea != b.StackArea) out += " stack";
  if (!same(a.Memory, b.Memory)) out += " memory";
  if (!same(a.ExecCount, b.ExecCount)) out += " counts";
  return out;
}

}  // namespace zelvaro::test
