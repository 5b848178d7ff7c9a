// The pipelines do one job: a source without faults gives the same words, the same run and the same text in
// each of them, a faulty one the same tallies.  Where a pipeline differs on purpose, the tests here say so.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"
#include "support/Dialogue.h"
#include "support/RandomSource.h"

namespace zelvaro::test {
namespace {

/// The fixed form has another image (code, DC and DS, literals), no line for a literal, and refuses longer files.
const std::string kFixed = "NH";
constexpr std::ptrdiff_t kFixedLines = 310;

/// What a run leaves.
struct Outcome {
  Tallies tallies{};
  std::vector<std::int32_t> memory, lines, machine;
  std::string shown;  ///< all that the run printed
};

std::vector<std::int32_t> cellsOf(const Cells& cells, std::int32_t unused) {
  std::vector<std::int32_t> out;
  for (std::size_t at = 0; at < cells.touched(); ++at) out.push_back(cells[at]);
  while (!out.empty() && out.back() == unused) out.pop_back();
  return out;
}

Outcome runThrough(const std::string& source, const std::string& pipeline) {
  Dialogue d;
  const std::string console = d.assemble(source, pipeline, {"x, ｱ表\tソ", "no such command"});
  const Tcomet2& m = d.session().m;
  Outcome out{d.platform.tallies, cellsOf(m.Memory, 0), cellsOf(m.LineOfAddress, -1), cellsOf(m.ExecCount, 0),
              ""};
  out.machine.insert(out.machine.end(), m.StackArea.begin(), m.StackArea.end());
  out.machine.insert(out.machine.end(), m.GR.begin(), m.GR.end());
  out.machine.insert(out.machine.end(), {m.PR, m.SP, m.OS, m.Fovf, m.Fsign, m.Fzero});
  const std::size_t from = console.find("---> aaAssembledRegMry.txt"),
                    to = console.find("---> aaResultantRegMry.txt");
  out.shown = to == std::string::npos ? "no run:\n" + console : console.substr(from, to - from);
  return out;
}

/// How far a source can be compared where the words of a program are in another order.
enum class OtherOrder { SameWords, SameText, Nothing };

void expectAgreement(const std::string& source, OtherOrder otherOrder) {
  const Outcome reference = runThrough(kMark8 + source, "WP");
  ASSERT_FALSE(reference.shown.starts_with("no run")) << reference.shown;
  EXPECT_EQ(reference.tallies[0] + reference.tallies[1], 0);
  std::vector<std::pair<std::string, std::string>> plays;
  for (const char* pipeline : {"NWW", "NwW", "NaW", "AP", "NA"})
    plays.emplace_back(pipeline, kMark8 + source);
  if (otherOrder != OtherOrder::Nothing && std::ranges::count(source, '\n') <= kFixedLines)
    plays.emplace_back(kFixed, kMark8 + source);
  std::string cp932;
  if (utf16ToCp932(toUtf16(source), cp932)) plays.insert(plays.end(), {{"WP", cp932}, {"AP", cp932}});
  for (const auto& [pipeline, bytes] : plays) {
    SCOPED_TRACE(pipeline);
    const Outcome seen = runThrough(bytes, pipeline);
    EXPECT_EQ(seen.tallies, reference.tallies);
    EXPECT_EQ(seen.shown, reference.shown);
    if (pipeline == kFixed && otherOrder == OtherOrder::SameText) continue;
    EXPECT_EQ(seen.memory, reference.memory);
    EXPECT_EQ(seen.machine, reference.machine);
    EXPECT_TRUE(pipeline == kFixed || seen.lines == reference.lines) << "the map from addresses to lines";
  }
}

TEST(Agreement, OfRandomPrograms) {
  for (unsigned seed = 0; seed < 200; ++seed) {
    const bool among = seed % 4 == 0;
    const std::string source = randomSource(seed, among ? DataPlace::AmongCode : DataPlace::AfterCode);
    // Such a program computes with addresses: in another order of its words it takes another way.
    expectAgreement(source, among ? OtherOrder::Nothing : OtherOrder::SameWords);
    ASSERT_FALSE(HasFailure()) << "seed " << seed << "\n" << source;
  }
}

TEST(Agreement, OfTheSamplesAndOfJapaneseText) {
  for (const auto& [name, source] : samples()) {
    // the narrow pipelines read UTF-8 alone
    if (name.find("faults") != std::string::npos || name.find("encodings") != std::string::npos) continue;
    SCOPED_TRACE(name);
    expectAgreement(source, OtherOrder::SameText);
  }
  const std::string text =
      "A START\n OUT X,N\n IN B,L\n OUT B,L\n LD GR1,='表'\n RET\nX DC 'あ表ソ能ｱー　'\nN DC 7\nB DS 20\nL DS 1\n END\n";
  expectAgreement(text, OtherOrder::SameWords);
  for (const char* shown : {"\nあ表ソ能ｱー　\n", "\nx, ｱ表\tソ\n"})
    EXPECT_NE(runThrough(kMark8 + text, "WP").shown.find(shown), std::string::npos) << shown;
}

/// A source in which one character is lost, doubled or another one, in a line without full-width text.  WP
/// alone reports a double comma, and what LD lacks before all else.
std::string damaged(unsigned seed) {
  const std::string source = randomSource(seed, DataPlace::AfterCode);
  std::mt19937 random(seed);
  for (;;) {
    const std::size_t at = random() % source.size(), begin = source.substr(0, at).rfind('\n') + 1;
    const char other = ", 'Gx=9;#"[random() % 9];
    std::string out = source;
    out.replace(at, random() % 2, random() % 3 > 0 ? 1 : 0, other);
    const std::string line = out.substr(begin, out.find('\n', begin) - begin);
    if (isAscii(line) && line.find("LD") == line.npos && line.find(",,") == line.npos) return out;
  }
}

TEST(Agreement, OfTheErrorsOfFaultySources) {
  int faulty = 0;
  for (unsigned seed = 0; seed < 400; ++seed) {
    const std::string source = kMark8 + damaged(seed);
    const int errors = runThrough(source, "WP").tallies[0];
    faulty += errors > 0 ? 1 : 0;
    for (const std::string pipeline : {"NWW", "NwW", "NaW", "AP", "NA"})
      ASSERT_EQ(runThrough(source, pipeline).tallies[0], errors) << pipeline << ", seed " << seed << "\n"
                                                                 << source;
  }
  EXPECT_GT(faulty, 160);
}

/// What a label and an entry of START are that are the names of other programs, too.
TEST(Differences, InNamesOfPrograms) {
  const std::string twoNames = "A START\n LAD GR1,B\n RET\nB DC 5\n END\nB START\n RET\n END\n";
  const std::string entry = "A START B\n RET\n END\nB START\n RET\n END\n";
  for (const std::string p : {"WP", "NWW", "NaW", "AP", "NA", "NH"}) {
    EXPECT_EQ(runThrough(twoNames, p).memory[2], p == kFixed ? 4 : 5) << p << ": which one comes first";
    EXPECT_EQ(runThrough(entry, p).tallies[0] > 0, p == "AP" || p == "NA" || p == kFixed) << p;
    // Elsewhere such a label keeps the address 0, and the program never leaves its first word.
    if (p == "AP" || p == "NA" || p == kFixed) {
      EXPECT_EQ(runThrough("A START GO\n LAD GR1,5\nGO ;\n LAD GR2,7\n RET\n END\n", p).memory[1], 4) << p;
    }
  }
}

}  // namespace
}  // namespace zelvaro::test
