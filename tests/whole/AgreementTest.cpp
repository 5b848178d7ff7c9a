// The pipelines do one job: a source without faults gives the same words, the same run and the same text in
// each of them.  Where a pipeline is told to differ, the tables here say so.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "MoziCode/Cp932.h"
#include "MoziCode/Utf.h"
#include "whole/Dialogue.h"
#include "whole/RandomSource.h"

namespace zelvaro::test {
namespace {

/// A pipeline beside WP.
struct Other {
  const char* name;
  bool isFixedForm;  ///< its image holds code, DC and DS, literals, not the lines in their order, and the
                     ///< map from addresses to lines does not know literals
  int mostLines;     ///< longer files are refused
};
constexpr int kAnyLength = 1 << 30;
constexpr std::array kOthers{
    Other{"NWW", false, kAnyLength}, Other{"NwW", false, kAnyLength}, Other{"NaW", false, kAnyLength},
    Other{"AP", false, kAnyLength},  Other{"NA", false, kAnyLength},  Other{"NH", true, 310},
};

/// What a run left behind.
struct Outcome {
  std::array<int, 4> tallies{};
  std::vector<std::int32_t> memory, counts, lines, stack, registers;
  std::string shown;  ///< all that the run printed
};

std::vector<std::int32_t> cellsOf(const Cells& cells, std::int32_t unused) {
  std::vector<std::int32_t> out;
  for (std::size_t at = 0; at < cells.touched(); ++at) out.push_back(cells[at]);
  while (!out.empty() && out.back() == unused) out.pop_back();
  return out;
}

/// The text between the two lines that tell of the reports.
std::string runText(const std::string& console) {
  const std::string first = "---> aaAssembledRegMry.txt";
  const std::size_t from = console.find(first);
  const std::size_t to = console.find("---> aaResultantRegMry.txt");
  if (from == std::string::npos || to == std::string::npos) return "no run:\n" + console;
  return console.substr(from + first.size(), to - from - first.size());
}

/// A whole use of the program in English.  `source` is the file, byte by byte.
Outcome runThrough(const std::string& source, const std::string& pipeline) {
  Dialogue d;
  d.platform.files["a.txt"] = source;
  d.platform.files["zelvaro.ini"] = "[Mode]\nLangStr=ENU\nFightFunc=" + pipeline + "\n";
  Outcome out;
  out.shown = runText(d.run({"", "1", "a.txt", "x, ｱ表\tソ", "no such command"}));
  const Tcomet2& m = d.session().m;
  out.tallies = d.platform.tallies;
  out.memory = cellsOf(m.Memory, 0);
  out.counts = cellsOf(m.ExecCount, 0);
  out.lines = cellsOf(m.LineOfAddress, -1);
  out.stack.assign(m.StackArea.begin(), m.StackArea.end());
  out.registers.assign(m.GR.begin(), m.GR.end());
  for (const std::int32_t r : {m.PR, m.SP, m.OS, m.Fovf, m.Fsign, m.Fzero}) out.registers.push_back(r);
  return out;
}

/// How far a source can be compared where the words of a program stand in another order.
enum class OtherOrder { SameWords, SameText, Nothing };

void expectSame(const Outcome& seen, const Outcome& reference, bool isFixedForm, OtherOrder otherOrder) {
  EXPECT_EQ(seen.tallies, reference.tallies);
  EXPECT_EQ(seen.shown, reference.shown);
  if (isFixedForm && otherOrder != OtherOrder::SameWords) return;
  EXPECT_EQ(seen.memory, reference.memory);
  EXPECT_EQ(seen.counts, reference.counts);
  EXPECT_EQ(seen.stack, reference.stack);
  EXPECT_EQ(seen.registers, reference.registers);
  EXPECT_TRUE(isFixedForm || seen.lines == reference.lines) << "the map from addresses to lines";
}

void expectAgreement(const std::string& text, OtherOrder otherOrder) {
  const std::string source = "\xEF\xBB\xBF" + text;
  const Outcome reference = runThrough(source, "WP");
  ASSERT_FALSE(reference.shown.starts_with("no run")) << reference.shown;
  EXPECT_EQ(reference.tallies[0] + reference.tallies[1], 0);
  const auto lines = std::count(source.begin(), source.end(), '\n');
  for (const Other& p : kOthers) {
    if (lines > p.mostLines || (p.isFixedForm && otherOrder == OtherOrder::Nothing)) continue;
    SCOPED_TRACE(p.name);
    expectSame(runThrough(source, p.name), reference, p.isFixedForm, otherOrder);
  }
}

class RandomPrograms : public ::testing::TestWithParam<unsigned> {};

TEST_P(RandomPrograms, GiveTheSameInEveryPipeline) {
  constexpr unsigned kPrograms = 25;
  for (unsigned seed = GetParam(); seed < GetParam() + kPrograms; ++seed) {
    const bool among = seed % 4 == 0;
    const std::string source =
        RandomSource(seed, among ? DataPlace::AmongCode : DataPlace::BehindCode).file();
    // Such a program computes with addresses: in another order of its words it takes another way.
    expectAgreement(source, among ? OtherOrder::Nothing : OtherOrder::SameWords);
    if (HasFailure()) FAIL() << "seed " << seed << "\n" << source;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomPrograms, ::testing::Values(0u, 25u, 50u, 75u, 100u, 125u, 150u, 175u));

TEST(JapaneseText, IsTheSameInEveryEncodingAndPipeline) {
  const std::string text =
      "A START\n OUT X,N\n IN B,L\n OUT B,L\n LD GR1,='表'\n RET\nX DC 'あ表ソ能ｱー　'\nN DC 7\n"
      "B DS 20\nL DS 1\n END\n";
  std::string cp932;
  utf16ToCp932(toUtf16(text), cp932);
  const Outcome reference = runThrough("\xEF\xBB\xBF" + text, "WP");
  EXPECT_NE(reference.shown.find("あ表ソ能ｱー　"), std::string::npos) << reference.shown;
  EXPECT_NE(reference.shown.find("x, ｱ表\tソ"), std::string::npos) << reference.shown;
  EXPECT_EQ(unsignedWord(reference.registers[1]), 0x8868);
  expectSame(runThrough(cp932, "WP"), reference, false, OtherOrder::SameWords);
  for (const Other& p : kOthers) {
    SCOPED_TRACE(p.name);
    expectSame(runThrough(cp932, p.name), reference, p.isFixedForm, OtherOrder::SameWords);
  }
}

/// Sources without faults whose words are told to differ.
TEST(ToldDifferences, InWords) {
  const std::string twoNames = "A START\n LAD GR1,B\n RET\nB DC 5\n END\nB START\n RET\n END\n";
  for (const char* p : {"WP", "NWW", "NaW", "AP", "NA"})
    EXPECT_EQ(runThrough(twoNames, p).memory[2], 5) << p << ": another program comes before an own label";
  EXPECT_EQ(runThrough(twoNames, "NH").memory[2], 4) << "the own label comes first";
  // Elsewhere such a label keeps the address 0, and the program never leaves its first word.
  const std::string labelAlone = "A START GO\n LAD GR1,5\nGO ;\n LAD GR2,7\n RET\n END\n";
  for (const char* p : {"AP", "NA", "NH"}) {
    const Outcome out = runThrough(labelAlone, p);
    EXPECT_EQ(out.memory[1], 4) << p;
    EXPECT_EQ(out.registers[2], 7) << p;
  }
}

TEST(Samples, GiveTheSameInEveryPipeline) {
  int samples = 0;
  for (const auto& e : std::filesystem::recursive_directory_iterator(ZELVARO_ROOT "/workspace/src")) {
    const std::string folder = e.path().parent_path().filename().string();
    // the narrow pipelines read UTF-8 only
    if (!e.is_regular_file() || folder == "faults" || folder == "encodings") continue;
    SCOPED_TRACE(e.path().filename().string());
    std::ifstream in(e.path(), std::ios::binary);
    const std::string source{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    expectAgreement(source, OtherOrder::SameText);
    ++samples;
  }
  EXPECT_GE(samples, 14);
}

}  // namespace
}  // namespace zelvaro::test
