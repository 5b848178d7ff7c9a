// What the dialogues' reports do not show: the whole stack, states that no program leaves, an image of the
// greatest size; and the label column.
#include <gtest/gtest.h>

#include "report/LabelColumn.h"
#include "report/Report.h"
#include "support/Recorder.h"
#include "support/ScriptedPlatform.h"
#include "support/Texts.h"

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
    const std::string& text = write();
    const std::size_t begin = text.find('\n', text.find("\n" + from) + 1) + 1;
    return test::cut(text.substr(begin, text.find("\n" + to, begin) - begin), "\n");
  }
};

TEST_F(ReportTest, StackRowsEndAfterFourZerosInARow) {
  const auto rows = [this] { return linesBetween("The Stack Pointer", "//--"); };
  line(u"", 0x8100);
  EXPECT_EQ(rows().size(), 5u);
  m.StackArea[1] = '~';
  m.StackArea[5] = 66;   // after three zeros
  m.StackArea[10] = 67;  // after four: not seen
  EXPECT_EQ(rows().size(), 11u);
  EXPECT_EQ(rows().at(9), "#FFFE:65534:      : '~':#007E:  126:  +126: 0000 0000 0111 1110:");
  m.StackArea.fill(1);
  EXPECT_EQ(rows().size(), 501u);
  EXPECT_EQ(rows().front().substr(0, 12), "#FE0B:65035:");
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

// A walk over all lines finds the labels of an address; it ends at the first labelled line with a higher one.
TEST(LabelColumn, ShowsWhatTheWalkFinds) {
  std::vector<SrcDataA> lines;
  for (const auto& [label, adr] : {std::pair{"A", 0},
                                   {"B2", 0},
                                   {"", 9},
                                   {"ABC", 3},
                                   {"LOW", 2},
                                   {"DEFG", 3},
                                   {"", 3},
                                   {"NOOP", 0},
                                   {"LAST", 5},
                                   {"BEYOND", kMemoryCells}}) {
    SrcDataA& line = lines.emplace_back();
    line.LabelStr = label;
    line.AbAdr = adr;
  }
  const LabelColumn<char> column{std::span<const SrcDataA>(lines)}, sorted{lines, LabelOrder::OfAddresses};
  const std::vector<std::string> expected{"A B2 ", "", "", "ABC DEFG ", "", "LAST ", ""};
  for (int adr = -1; adr < 7; ++adr) {
    std::string shown;
    for (const std::string_view label : column.at(adr)) shown += std::string(label) + " ";
    EXPECT_EQ(shown, adr < 0 ? "" : expected[static_cast<std::size_t>(adr)]) << adr;
  }
  EXPECT_TRUE(column.longest(4, 5) == 8 && column.longest(3, 3) == 4 && column.longest(3, 5) == 5);
  EXPECT_EQ(sorted.at(0).size() + sorted.at(2).size(), 4u) << "the fixed form sorts them first";
}

}  // namespace
}  // namespace zelvaro
