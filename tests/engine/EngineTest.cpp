// The engine by itself: what a run in slices, back and forth, with breakpoints, with input that comes late and on two
// threads must have in common with one run in one piece.
#include <gtest/gtest.h>

#include <random>
#include <thread>

#include "comet2/Services.h"
#include "engine/Machine.h"
#include "support/RandomSource.h"

namespace zelvaro::engine {
namespace {

/// Reads a line, prints it, and counts a word down meanwhile.
const std::string kReader =
    "MAIN START\nLOOP IN B,L\n OUT B,L\n LD GR1,N\n SUBA GR1,=1\n ST GR1,N\n JPL LOOP\n RET\n"
    "B DS 256\nL DS 1\nN DC 3\n END\n";
/// A loop in a loop, with calls and stores into itself: 20 million steps.
const std::string kLong =
    "MAIN START\n LAD GR2,0\nA LAD GR1,0\nB LAD GR1,1,GR1\n CALL SUB\n CPL GR1,=1000\n JMI B\n LAD GR2,1,GR2\n"
    " ST GR2,D\n DC #1230\nD DC 0\n CPL GR2,=2857\n JMI A\n RET\nSUB ADDL GR4,GR1\n ST GR4,X\n RET\nX DS 1\n END\n";

Machine machineOf(const std::string& source, FamilyId pipeline = FamilyId::WP) {
  const Assembled a = assemble(source, {.pipeline = pipeline, .encoding = Encoding::Utf8});
  std::string words;
  for (const Finding& f : a.findings()) words += f.printed.en;
  EXPECT_TRUE(a.ok()) << words;
  return Machine(a);
}

/// All that can be seen of a machine.
std::string stateOf(const Machine& m) {
  std::string out = m.report() + std::to_string(m.steps()) + " OS " + std::to_string(m.registers().os);
  for (const Event& e : m.events())
    out += "\n" + std::to_string(e.step) + e.text + (e.message ? e.message->printed.en : "");
  for (int adr = 0; adr < 400; ++adr) out += " " + std::to_string(m.word(adr));
  return out + " read " + std::to_string(m.linesRead());
}

void giveLines(Machine& m) {
  for (const char* line : {"x, ｱ表ソ", "two", "", "four"}) m.giveLine(line);
  m.endInput();
}

TEST(Slices, OfAnySizeEqualOneRun) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    Machine whole = machineOf(zelvaro::test::randomSource(seed, zelvaro::test::DataPlace::AfterCode));
    giveLines(whole);
    Machine sliced = whole;
    const Halt end = whole.run(10'000'000);
    ASSERT_EQ(end.executed, whole.steps());
    Halt h;
    while (kindOf(h.stop) == HaltKind::Pause && h.stop != Stop::InputExhausted &&
           sliced.steps() < 10'000'000) {
      const std::int64_t count = 1 + static_cast<std::int64_t>(random() % (1u << random() % 12));
      const std::int64_t before = sliced.steps();
      h = random() % 5 == 0 ? sliced.step() : sliced.run(count);
      ASSERT_EQ(sliced.steps() - before, h.executed);
      ASSERT_TRUE(h.stop != Stop::Steps || h.executed == count || h.executed == 1);
      if (h.stop == Stop::Steps && random() % 7 == 0) sliced.back(static_cast<std::int64_t>(random() % 50));
    }
    EXPECT_EQ(h.stop, end.stop);
    EXPECT_EQ(stateOf(sliced), stateOf(whole));
  }
}

TEST(Steps, BackAndForthEqualAReplay) {
  Machine m = machineOf(kLong);
  Machine end = m;
  ASSERT_EQ(end.run(100'000'000).stop, Stop::End);
  ASSERT_GT(end.steps(), 15'000'000);
  EXPECT_EQ(m.run(end.steps() / 3).stop, Stop::Steps);
  EXPECT_EQ(m.steps(), end.steps() / 3);
  m = end;
  for (const std::int64_t step : {end.steps() - 1, end.steps() / 2, std::int64_t{1}, std::int64_t{0}}) {
    SCOPED_TRACE(step);
    end.goTo(step);
    Machine direct = machineOf(kLong);
    direct.goTo(step);
    EXPECT_EQ(stateOf(end), stateOf(direct));
  }
  EXPECT_EQ(end.run(100'000'000).stop, Stop::End);
  EXPECT_EQ(stateOf(end), stateOf(m));
  EXPECT_EQ(end.run(1).executed, 0) << "after the end there is no step";
}

/// A trace is the whole story: from the first state, the changes lead to the last one.
TEST(Steps, ChangesAddUp) {
  Machine m = machineOf(kReader);
  giveLines(m);
  Machine end = m;
  end.run(10'000);
  std::vector<int> memory(0x10000), gr(8);
  for (int adr = 0; adr < 400; ++adr) memory[static_cast<std::size_t>(adr)] = m.word(adr);
  int pr = 0, sp = 0xFFFF, stores = 0;
  while (m.step().stop == Stop::Steps) {
    for (const Change& c : m.changes()) {
      const auto at = static_cast<std::size_t>(c.index);
      int ignored = c.before;
      int& value = c.place == Change::Place::GR       ? gr[at]
                   : c.place == Change::Place::Memory ? memory[at]
                   : c.place == Change::Place::PR     ? pr
                   : c.place == Change::Place::SP     ? sp
                                                      : ignored;
      EXPECT_EQ(value, c.before);
      value = c.after;
      stores += c.place == Change::Place::Memory ? 1 : 0;
    }
  }
  EXPECT_EQ(stateOf(m), stateOf(end));
  EXPECT_GT(stores, 10);
  EXPECT_EQ(pr, m.registers().pr);
  EXPECT_EQ(sp, m.registers().sp);
  for (int adr = 0; adr < 400; ++adr) ASSERT_EQ(memory[static_cast<std::size_t>(adr)], m.word(adr)) << adr;
  const std::vector<Change> last(m.changes().begin(), m.changes().end());
  m.back(1);
  m.step();
  EXPECT_EQ(std::vector<Change>(m.changes().begin(), m.changes().end()), last);
}

TEST(Input, ThatComesLateResumesTheSameIn) {
  Machine all = machineOf(kReader), late = all;
  giveLines(all);
  ASSERT_EQ(all.run(100'000).stop, Stop::End);
  std::vector<std::string> asked;
  for (const char* line : {"x, ｱ表ソ", "two", ""}) {
    ASSERT_EQ(late.run(100'000).stop, Stop::InputWanted);
    EXPECT_EQ(late.run(100'000).executed, 0);
    asked.push_back(late.stopMessages()[0].printed.en);
    late.giveLine(line);
  }
  EXPECT_EQ(late.run(100'000).stop, Stop::End);
  late.giveLine("four");
  EXPECT_EQ(stateOf(late), stateOf(all));
  EXPECT_EQ(late.events()[1].text, "x, ｱ表ソ");
  EXPECT_EQ(asked[0], asked[2]);

  late.back(late.steps());
  EXPECT_TRUE(late.events().empty());
  late.forgetFuture();
  ASSERT_EQ(late.run(100'000).stop, Stop::InputWanted);
  late.giveLine("other");
  late.endInput();
  EXPECT_EQ(late.run(100'000).stop, Stop::InputExhausted);
  EXPECT_EQ(late.events().back().text, "other");
}

/// The machine of the dialogue does so; it stops what reads on and on.
TEST(Input, ThatHasEndedMayReadAsEmptyLines) {
  const Assembled a = assemble("A START\nX IN B,N\n JUMP X\n RET\nB DS 256\nN DC 5\n END\n");
  Machine m(a, {.endedInputIsEmpty = true});
  m.endInput();
  EXPECT_EQ(m.run(1'000'000).stop, Stop::InputEnded);
  EXPECT_EQ(m.word(a.addressOf("N").value()), 0);
  EXPECT_EQ(m.linesRead(), static_cast<std::size_t>(kMostEmptyInputs));
  EXPECT_EQ(m.step().executed, 0);
  EXPECT_EQ(m.stop(), Stop::InputEnded);
}

TEST(Start, IsWhatHasBeenSet) {
  Machine m = machineOf("A START\n ADDA GR1,X\n RET\nX DS 1\n END\n");
  m.setRegister(1, 40);
  m.setWord(m.assembled().addressOf("X").value(), 2);
  for (int times = 0; times < 2; ++times) {
    EXPECT_EQ(m.run(10).stop, Stop::End);
    EXPECT_EQ(m.registers().gr[1], 42);
    EXPECT_THROW(m.setWord(0, 1), std::logic_error);
    m.goTo(0);
    EXPECT_EQ(m.registers().gr[1], 40);
  }
  EXPECT_THROW(m.setWord(0x10000, 1), std::out_of_range);
  EXPECT_THROW(m.setWord(-1, 1), std::out_of_range);
  EXPECT_THROW(m.setRegister(8, 1), std::out_of_range);
  EXPECT_THROW(m.setRegister(-1, 1), std::out_of_range);
}

TEST(Stack, IsTheLastWordFirstAndGoesBackToo) {
  Machine m = machineOf("A START\n PUSH 9\n CALL B\n RET\nB PUSH 7\n POP GR1\n RET\n END\n");
  m.run(4);
  EXPECT_EQ(m.stack(), (std::vector<std::uint16_t>{7, 5, 9}));
  Machine moved = std::move(m);
  moved.step();
  EXPECT_EQ(moved.stack(), (std::vector<std::uint16_t>{5, 9}));
  moved.back(3);
  EXPECT_EQ(moved.stack(), std::vector<std::uint16_t>{9});
  moved.back(0);
  m = std::move(moved);
  EXPECT_EQ(m.steps(), 2);
}

TEST(Output, HasALimit) {
  const Assembled b = assemble("A START\nX OUT T,N\n JUMP X\n RET\nT DC 'abc'\nN DC 3\n END\n");
  ASSERT_TRUE(b.ok());
  Machine m(b, {.mostOutput = 10'000});
  EXPECT_EQ(m.run(1'000'000'000).stop, Stop::OutputFull);
  EXPECT_LT(m.events().size(), 200u);
  EXPECT_EQ(m.stopMessages()[0].code, "output-full");
}

TEST(Breakpoints, StopBeforeTheirInstructionEachTimeItIsReached) {
  for (const FamilyId id : {FamilyId::WP, FamilyId::NH}) {
    Machine m = machineOf(kLong, id), plain = m;
    plain.run(30'000);
    const int sub = m.assembled().addressOf("SUB").value(), x = m.assembled().addressOf("MAIN.B").value();
    m.setBreakpoint(sub);
    m.setBreakpoint(x + 2);
    for (const std::int64_t slice : {1'000'000, 3}) {
      std::uint32_t hits = 0;
      while (m.steps() < 30'000) {
        const Halt h = m.run(std::min<std::int64_t>(slice, 30'000 - m.steps()));
        if (h.stop != Stop::Breakpoint) continue;
        ++hits;
        const int pr = m.registers().pr;
        ASSERT_TRUE(pr == sub || pr == x + 2);
      }
      EXPECT_EQ(stateOf(m), stateOf(plain));
      EXPECT_EQ(hits, m.count(sub) + m.count(x + 2) + (m.registers().pr == sub ? 1u : 0u));
      m.back(m.steps());
    }
    m.clearBreakpoint(sub);
    for (const int outside : {-1, 0x10000}) m.setBreakpoint(outside);
    EXPECT_EQ(m.breakpoints(), std::vector<int>{x + 2});
  }
}

TEST(Places, OfQuotedTextsAndOfSecondLines) {
  const Assembled a =
      assemble("MAIN START\n LD GR1,表９ ; 表\nA LD GR9,=5\n RET\n END\n", {.encoding = Encoding::Utf8});
  ASSERT_FALSE(a.ok());
  EXPECT_GT(a.tallies().errors, 0);
  bool isPlaced = false;
  for (const Finding& f : a.findings()) {
    if (f.column == 0) continue;
    isPlaced = true;
    const std::string line = a.sourceLines()[static_cast<std::size_t>(f.line) - 1];
    EXPECT_NE(line.find(f.quoted), std::string::npos);
    EXPECT_NE(f.printed.ja, f.printed.en);
  }
  EXPECT_TRUE(isPlaced);
  const Assembled twice = assemble("MAIN START\nABC NOP\nABC RET\n END\n");
  const auto& all = twice.findings();
  ASSERT_FALSE(all.empty());
  EXPECT_EQ(all.back().code, "label-twice");
  EXPECT_NE(all.back().secondLine, 0);
}

TEST(Tables, OfAnAssembledSource) {
  const std::string cp932 = "MAIN START\n; \x95\x5C\n LD GR1,=#12AB ; load\nX DC 'A',5\n RET\n END\n";
  const Assembled a =
      assemble(cp932, {.encoding = Encoding::Cp932, .name = "m.cas", .reportsEncoding = false});
  ASSERT_TRUE(a.ok());
  EXPECT_EQ(a.encoding(), Encoding::Cp932);
  EXPECT_EQ(a.sourceLines()[1], "; 表");
  EXPECT_EQ(a.programs()[0].name, "MAIN");
  EXPECT_EQ(a.programs()[0].size, 7);
  ASSERT_EQ(a.literals().size(), 1u);
  EXPECT_EQ(a.literals()[0].text, "=#12AB");
  EXPECT_EQ(a.literals()[0].words[0], 0x12AB);
  const auto rows = a.listing();
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_EQ(rows[2].label + " " + rows[2].opcode + " " + rows[2].operands, "X DC 'A',5");
  EXPECT_EQ(std::vector<std::uint16_t>(rows[2].words.begin(), rows[2].words.end()),
            (std::vector<std::uint16_t>{0x41, 5}));
  EXPECT_EQ(a.addressOf("0x10"), 16);
  EXPECT_EQ(a.addressOf("X"), rows[2].address);
  EXPECT_EQ(a.addressOf("Y"), std::nullopt);
  EXPECT_EQ(a.lineOf(rows[2].address), 4);
  const auto image = a.image();
  EXPECT_EQ(std::vector<std::uint16_t>(image.begin(), image.end()), Machine(a).memory(0, 7));
}

TEST(Tables, OfASourceInUtf16) {
  const std::u16string lines = u"MAIN START\r\n RET ; 表\r𠮷\r\n END\r\n";
  const auto bytesOf = [](const std::u16string& text, bool isLittle) {
    std::string bytes;
    for (const char16_t c : text)
      for (const int shift : {isLittle ? 0 : 8, isLittle ? 8 : 0}) bytes += static_cast<char>(c >> shift);
    return bytes;
  };
  for (const std::string& bytes :
       {bytesOf(u"\uFEFF" + lines, true), bytesOf(u"\uFEFF" + lines, false), bytesOf(lines, true)}) {
    const Assembled a = assemble(bytes, {.encoding = Encoding::Utf16});
    ASSERT_TRUE(a.ok());
    EXPECT_EQ(a.sourceLines(), (std::vector<std::string>{"MAIN START", " RET ; 表\r𠮷", " END", ""}));
  }
  EXPECT_TRUE(assemble(bytesOf(lines, true), {.pipeline = FamilyId::NA, .encoding = Encoding::Utf16}).ok());
}

TEST(Limits, OfTheSource) {
  const std::string big(10'000'000, 'x');
  const Assembled refused = assemble(big, {.mostBytes = 1'000'000});
  EXPECT_EQ(refused.outcome(), Outcome::NotLoaded);
  EXPECT_EQ(refused.findings().back().code, "source-too-large");
  EXPECT_EQ(refused.findings().back().args[1], "1000000");
  EXPECT_EQ(assemble(big).outcome(), Outcome::Faulty);
  std::string faulty = "A START\n";
  for (int i = 0; i < 100'000; ++i) faulty += " LD GR9,A\n";
  const Assembled many = assemble(faulty + " RET\n END\n", {.mostFindings = 50});
  EXPECT_EQ(many.findings().size(), 50u);
  EXPECT_GE(many.tallies().errors, 100'000);
  EXPECT_GE(many.findingsLeftOut(), 99'950u);
  EXPECT_THROW(Machine{many}, std::invalid_argument);
}

TEST(Threads, TwoEnginesAtOnceFindWhatEachFindsAlone) {
  const auto work = [](FamilyId id) {
    const Assembled bad = assemble("A START\n FOO 表\n END\n", {.pipeline = id});
    std::string out = bad.findings().back().printed.ja + bad.findings().back().printed.en;
    Machine m = machineOf(kReader, id);
    giveLines(m);
    m.run(100);
    m.back(7);
    m.run(100'000);
    return out + stateOf(m);
  };
  const std::string alone[] = {work(FamilyId::WP), work(FamilyId::NH)};
  std::string atOnce[2];
  std::thread first([&] { atOnce[0] = work(FamilyId::WP); });
  std::thread second([&] { atOnce[1] = work(FamilyId::NH); });
  first.join();
  second.join();
  EXPECT_EQ(atOnce[0], alone[0]);
  EXPECT_EQ(atOnce[1], alone[1]);
}

}  // namespace
}  // namespace zelvaro::engine
