// The run loop and the slow machine must not differ in anything, whatever the image.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "comet2/RunLoop.h"
#include "comet2/SlowMachine.h"
#include "encode/Instructions.h"
#include "support/Recorder.h"

namespace zelvaro {
namespace {

using test::SilentWatch;
using test::SlowMachine;
using test::typeSomething;

/// Images full of what the loop takes together, of stores into the code and of words that are none.
class RandomImage {
 public:
  explicit RandomImage(unsigned seed) : random_(seed) {}

  int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
  bool oneIn(int n) { return below(n) == 0; }

  Tcomet2 machine() {
    Tcomet2 m;
    size_ = 24 + below(72);
    if (oneIn(4)) jumpToTheEndOfMemory(m);
    while (adr_ - base_ < size_) group(m);
    if (oneIn(4)) m.Memory[cell(below(size_))] = below(0x10000) - 0x8000;
    for (int& gr : m.GR) gr = oneIn(3) ? below(0x18000) - 0x8000 : oneIn(8) ? any(kEdges) : below(size_);
    const int flags = below(3);
    m.Fsign = flags == 1;
    m.Fzero = flags == 2;
    m.Fovf = below(2);
    m.OS = below(3);
    m.SP = oneIn(8) ? 0xFE0B + below(4) : 0xFFFF - below(4);
    return m;
  }

 private:
  static constexpr int kEdges[] = {0,      1,       -1,      0x7FFF, -0x8000, 0xFFFE,
                                   0xFFFF, 0x10000, 0x1FFFE, 0xFE0B, 0xFE0C};
  static constexpr int kMemoryForms[] = {0x10, 0x20, 0x21, 0x22, 0x23, 0x30, 0x31, 0x32, 0x40, 0x41};
  static constexpr int kAddressForms[] = {0x11, 0x12, 0x50, 0x51, 0x52, 0x53};
  static constexpr int kJumps[] = {0x61, 0x62, 0x63, 0x64, 0x65, 0x66};
  static constexpr int kOthers[] = {0x70, 0x80, 0xF0};

  template <std::size_t n>
  int any(const int (&of)[n]) {
    return of[below(static_cast<int>(n))];
  }
  int reg() { return oneIn(150) ? below(16) : below(8); }
  int address() {
    if (oneIn(40)) return below(0x10000);
    if (oneIn(40)) return 64996 + below(8);
    if (oneIn(40)) return any(kEdges) & 0xFFFF;
    return (base_ + below(size_)) & 0xFFFF;
  }
  /// The cell so many words behind the first of the code; behind the last one of memory comes the first.
  std::size_t cell(int at) const { return static_cast<std::size_t>((base_ + at) & 0xFFFF); }
  void put(Tcomet2& m, int word) { m.Memory[cell(adr_++ - base_)] = word; }
  /// The code stands around the last word, so that it runs out of memory, jumps and stores across its end.
  void jumpToTheEndOfMemory(Tcomet2& m) {
    put(m, 0x6400);
    base_ = oneIn(2) ? 0x10000 - below(2 * size_) : tMaxMemory - below(size_);
    m.Memory[1] = base_ & 0xFFFF;
    adr_ = base_;
  }
  void two(Tcomet2& m, int code, int x) {
    put(m, code << 8 | reg() << 4 | x);
    put(m, code >= 0x50 && code <= 0x53 ? below(20) : address());
  }
  int index() { return oneIn(2) ? 0 : reg(); }

  /// An operation and, often, the jump on it.
  void withJumps(Tcomet2& m, int code) {
    if (oneIn(3))
      put(m, (code | 0x04) << 8 | reg() << 4 | reg());
    else
      two(m, code, index());
    for (int jumps = below(3); jumps > 0; --jumps) two(m, any(kJumps), oneIn(6) ? reg() : 0);
  }
  void twice(Tcomet2& m, int code) {
    two(m, code, index());
    two(m, code, index());
  }
  void group(Tcomet2& m) {
    const int kind = below(9);
    if (kind == 0) two(m, 0x12, 1 + below(7));
    if (kind == 0) return withJumps(m, oneIn(2) ? 0x40 : 0x41);
    if (kind == 1) return withJumps(m, any(kMemoryForms));
    if (kind == 2) return twice(m, 0x10);
    if (kind == 3) return twice(m, 0x11);
    if (kind == 4) return two(m, any(kAddressForms), index());
    if (kind == 5) return two(m, any(kJumps), index());
    if (kind == 6) return two(m, any(kOthers), index());
    if (kind == 7) return put(m, oneIn(2) ? 0x7100 | reg() << 4 : oneIn(2) ? 0x8100 : 0);
    if (oneIn(30)) return put(m, below(0x10000));
    withJumps(m, oneIn(2) ? 0x40 : 0x10);
  }

  std::mt19937 random_;
  int size_ = 0, adr_ = 0;
  int base_ = 0;  ///< address of the first word of the code
};

/// A machine with what a run needs, and what it leaves behind.
struct Run {
  Tcomet2 m;
  SilentWatch watch;
  test::ScriptedPlatform platform{};
  test::Recorder sink{};

  Run(const Tcomet2& machine, int PrgEndAdr, int limit) : m(machine), watch(PrgEndAdr, limit) {
    typeSomething(platform);
  }
};

/// Runs one image on both, for at most `cap` instructions in two parts, and returns how many these were.  One that
/// ends sooner is run once more by the loop that counts no steps.
std::int64_t compare(const Tcomet2& m, int PrgEndAdr, int limit, std::int64_t cap) {
  Run stepped(m, PrgEndAdr, limit), whole = stepped;
  std::int64_t left = cap / 2;
  Stop stop = runLoop(stepped.m, {stepped.platform, stepped.sink}, stepped.watch, limit, left);
  left += cap - cap / 2;
  if (stop == Stop::Steps)
    stop = runLoop(stepped.m, {stepped.platform, stepped.sink}, stepped.watch, limit, left);

  Run slowRun(m, PrgEndAdr, limit);
  SlowMachine slow(m, {slowRun.platform, slowRun.sink}, limit, PrgEndAdr);
  const Stop slowStop = slow.run(stop == Stop::Steps ? cap - left : cap + 3);
  EXPECT_EQ(stop, slowStop) << "word " << std::hex
                            << slow.m.Memory[static_cast<std::size_t>(slow.m.PR & 0xFFFF)];
  EXPECT_EQ(cap - left, slow.executed);
  const auto expectSame = [&](Run& run) {
    EXPECT_EQ(test::difference(run.m, slow.m), "");
    EXPECT_EQ(run.watch.warnings, slow.warnings);
    EXPECT_EQ(run.platform.console, slowRun.platform.console);
    EXPECT_EQ(run.sink.text, slowRun.sink.text);
  };
  expectSame(stepped);
  if (stop != slowStop || stop == Stop::Steps) return slow.executed;
  EXPECT_EQ(runLoop(whole.m, {whole.platform, whole.sink}, whole.watch, limit), slowStop);
  expectSame(whole);
  return slow.executed;
}

std::int64_t compareRandom(unsigned seed) {
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomImage image(seed);
  const Tcomet2 m = image.machine();
  const int PrgEndAdr = image.below(120);
  const int limit = image.oneIn(5) ? MaxMemory : tMaxMemory;
  return compare(m, PrgEndAdr, limit, 1 + image.below(1500));
}

enum class Kind { Direct, Indexed, Register, Plain };
struct Part {
  Op op;
  Kind kind;
};
using Parts = std::vector<Part>;

/// The instructions that each handler of the loop does.
const Parts kHandlerParts[] = {
#define ZELVARO_STOP(name)
#define ZELVARO_SINGLE(m, kind) {{Op::m, Kind::kind}},
#define ZELVARO_FUSED2(a, ka, b, kb) {{Op::a, Kind::ka}, {Op::b, Kind::kb}},
#define ZELVARO_FUSED3(a, ka, b, kb, c, kc) {{Op::a, Kind::ka}, {Op::b, Kind::kb}, {Op::c, Kind::kc}},
#include "comet2/Handlers.inc"
};

/// What a handler meets: GR1 is 1, and its operands are GR2 and the cell at `address` + GR3.
struct Circumstances {
  int operand;  ///< in GR2 and in the cell at `address`
  int sign;     ///< of the last result
  int address = 60;
  int index = 0;  ///< in GR3
};
// The operand is below, the same, above, above but negative; a store changes the code; round the limit, and after
// the end of the address space.
constexpr Circumstances kCircumstances[] = {
    {0, -1},        {1, 0},        {2, 1},        {0xFFFF, 1},        {3, -1, 1},        {3, 0, 2},
    {0x8000, 1, 3}, {3, 0, 65000}, {3, 1, 65001}, {3, -1, 60, 64940}, {3, 0, 60, 64941}, {3, 1, 60, 65480}};

Tcomet2 machineWith(const Parts& parts, const Circumstances& c) {
  Tcomet2 m;
  std::size_t at = 0;
  for (const Part& p : parts) {
    const Instruction& row = instruction(p.op);
    const int x = p.kind == Kind::Register ? 2 : p.kind == Kind::Indexed ? 3 : 0;
    m.Memory[at++] = (p.kind == Kind::Register ? row.regCode : row.adrCode) << 8 | 1 << 4 | x;
    if (p.kind == Kind::Direct || p.kind == Kind::Indexed) m.Memory[at++] = c.address;
  }
  m.Memory[at] = 0x8100;
  if (c.address > 3) m.Memory[static_cast<std::size_t>(c.address)] = c.operand;
  m.GR = {0, 1, c.operand, c.index};
  m.Fsign = c.sign < 0;
  m.Fzero = c.sign == 0;
  m.Fovf = c.sign > 0;
  return m;
}

TEST(Agreement, EveryHandlerWhereverItIsCutOff) {
  for (const Parts& parts : kHandlerParts) {
    for (const Circumstances& c : kCircumstances) {
      const Tcomet2 m = machineWith(parts, c);
      SCOPED_TRACE(testing::Message() << std::hex << "words " << m.Memory[0] << " " << m.Memory[1] << " "
                                      << m.Memory[2] << " operand " << c.operand << " address " << c.address);
      for (const int steps : {2, 3, 20}) compare(m, 10, tMaxMemory, steps);
      if (::testing::Test::HasFailure()) return;
    }
  }
}

constexpr unsigned kFewestImages = 1500;

TEST(Agreement, RandomImagesThatChangeThemselves) {
  // ZELVARO_AGREEMENT_STEPS asks for a longer run
  const char* asked = std::getenv("ZELVARO_AGREEMENT_STEPS");
  const std::int64_t wanted = asked != nullptr ? std::atoll(asked) : 300'000;
  std::int64_t executed = 0;
  unsigned seed = 1;
  while ((executed < wanted || seed <= kFewestImages) && !::testing::Test::HasFailure())
    executed += compareRandom(seed++);
  EXPECT_GE(executed, wanted) << "stopped at seed " << seed - 1;
}

}  // namespace
}  // namespace zelvaro
