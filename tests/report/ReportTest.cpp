// What the dialogues' reports do not show: the whole stack, states that no program leaves, an image of the
// greatest size; and the label column against the search that it stands for.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "report/LabelColumn.h"
#include "report/Report.h"
#include "support/Recorder.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

class ReportTest : public ::testing::Test {
 protected:
  test::ScriptedPlatform platform;
  test::Recorder sink;
  TBasicData b{sink};
  TimeData time;
  Tcomet2 m;

  /// A NOP at the next address.
  void line(std::u16string_view label, int word) {
    LineStore<char16_t>& store = b.vecSrcW;
    const auto adr = static_cast<std::size_t>(b.PrgEndAdr);
    m.Memory[adr] = word;
    m.LineOfAddress[adr] = store.lineCount();
    store.addLine(u"NOP");
    SrcDataW& s = store[static_cast<int>(store.lines().size()) - 1];
    s.LabelStr = store.arena.keep(label);
    s.OpStr = u"NOP";
    s.AbAdr = b.PrgEndAdr++;
  }
  const std::string& write() {
    DspRegMry<char16_t>({platform, sink, time, family(FamilyId::WP), Language::English}, m, b);
    return platform.files[std::string(AssembledRegFile)];
  }
  /// The lines after the first that begins with `from`, up to one that begins with `to`.
  std::vector<std::string> linesBetween(const std::string& from, const std::string& to) {
    std::vector<std::string> out;
    std::istringstream text(write());
    bool inside = false;
    for (std::string l; std::getline(text, l);) {
      if (inside && l.starts_with(to)) break;
      if (inside) out.push_back(l);
      inside = inside || l.starts_with(from);
    }
    return out;
  }
  std::vector<std::string> stackRows() { return linesBetween("The Stack Pointer", "no such line"); }
};

TEST_F(ReportTest, StackRowsEndAfterFourZerosInARow) {
  line(u"", 0x8100);
  const std::size_t none = stackRows().size();
  m.StackArea[1] = 65;
  EXPECT_EQ(stackRows().size(), none + 2);
  EXPECT_EQ(stackRows().at(5), "#FFFE:65534:      : 'A':#0041:   65:   +65: 0000 0000 0100 0001:");
  m.StackArea[5] = 66;  // after three zeros
  EXPECT_EQ(stackRows().size(), none + 6);
  m.StackArea[10] = 67;  // after four: not seen
  EXPECT_EQ(stackRows().size(), none + 6);
  m.StackArea.fill(1);
  EXPECT_EQ(stackRows().size(), none + 496);
  EXPECT_EQ(stackRows().front().substr(0, 12), "#FE0B:65035:");
}

TEST_F(ReportTest, NoDashedLineWithoutTheEndOfTheLastProgramAndStrangeFlags) {
  line(u"", 0x8100);
  m.Fsign = 2;
  m.Fzero = -1;
  EXPECT_EQ(linesBetween("  Address   ", "The area").size(), 11u);  // one word, ten after it
  EXPECT_NE(write().find("Flags:    f_Ovf=0, f_Sign=2(Error of else: at Fsign ! in comet2.cpp.),"
                         "f_Zero=-1(Error of else: at Fzero ! in comet2.cpp.).\n"),
            std::string::npos);
}

// Every row is whole, whatever the pieces that go to the file.
TEST_F(ReportTest, GreatestImage) {
  for (int adr = 0; adr < kGreatestImage + 10; ++adr) {
    line(toUtf16("L" + std::to_string(adr)), adr);
    m.ExecCount[static_cast<std::size_t>(adr)] = adr;
  }
  b.PrgEndAdr = kGreatestImage;
  m.MaxExecCount = kGreatestImage;
  const std::vector<std::string> rows = linesBetween("  Address   ", "The area");
  ASSERT_EQ(rows.size(), kGreatestImage + 10u);
  for (std::size_t adr = 0; adr < rows.size(); ++adr) {
    const std::string name = "L" + std::to_string(adr);
    const std::string& row = rows[adr];
    ASSERT_EQ(row.substr(12, 8), std::string(7 - name.size(), ' ') + name + ":") << row;
    ASSERT_EQ(row.substr(65, 7), std::string(7 - name.size(), ' ') + name.substr(1) + ":") << row;
    ASSERT_EQ(row.substr(72), adr < kLinesKnown ? name + (name.size() < 2 ? "  NOP " : " NOP ") : "") << row;
  }
}

/// The labels of an address, as the walk over all lines finds them.
std::vector<std::string_view> search(const std::vector<SrcDataA>& lines, int adr) {
  std::vector<std::string_view> found;
  for (const SrcDataA& s : lines) {
    if (s.LabelStr.empty()) continue;
    if (s.AbAdr > adr) break;
    if (s.AbAdr == adr) found.push_back(s.LabelStr);
  }
  return found;
}
SrcDataA labelAt(std::string_view label, int adr) {
  SrcDataA s;
  s.LabelStr = label;
  s.AbAdr = adr;
  return s;
}

TEST(LabelColumn, AgreesWithTheSearch) {
  constexpr std::string_view names[] = {"A", "B2", "LOOP", "", "ABCDEFGH", "X"};
  std::mt19937 random(20);
  for (int table = 0; table < 2000 && !::testing::Test::HasFailure(); ++table) {
    std::vector<SrcDataA> lines;
    int adr = 0;
    for (auto n = random() % 40; n > 0; --n) {
      const auto kind = random() % 10;
      // mostly rising; a line without an opcode stays at 0, a program of odd addresses jumps about
      const int at = kind == 0 ? 0 : kind == 1 ? static_cast<int>(random() % 60) : adr;
      lines.push_back(labelAt(names[random() % std::size(names)], at));
      adr += static_cast<int>(random() % 3);
    }
    if (table % 50 == 0) lines.push_back(labelAt("BEYOND", kMemoryCells));
    const LabelColumn<char> column{std::span<const SrcDataA>(lines)};
    for (adr = -1; adr < 100; ++adr) {
      const auto labels = column.at(adr);
      EXPECT_EQ(std::vector(labels.begin(), labels.end()), search(lines, adr)) << "address " << adr;
    }
  }
}

TEST(LabelColumn, WidthIsThatOfTheJoinedTextBelowTheEnd) {
  const std::vector<SrcDataA> lines{labelAt("ABC", 1), labelAt("DEF", 1), labelAt("ABCDEFGH", 2)};
  const LabelColumn<char> column{std::span<const SrcDataA>(lines)};
  EXPECT_TRUE(column.longest(3, 5) == 8 && column.longest(2, 5) == 7 && column.longest(1, 5) == 5);
}

}  // namespace
}  // namespace zelvaro
