// What the reports of tests/transcripts do not show: the tips, the whole stack, states that no program leaves,
// an image of the greatest size.
#include <gtest/gtest.h>

#include "MoziCode/Utf.h"
#include "diag/MsgBase.h"
#include "report/Report.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

const std::string assembled{AssembledRegFile};
std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    lines.push_back(text.substr(at, end - at));
    at = end == std::string::npos ? text.size() : end + 1;
  }
  return lines;
}

class Report {
 public:
  test::ScriptedPlatform platform;
  TDiagLog log;
  TBasicData b{platform, log};
  Tcomet2 m;

  /// A NOP at the next address.
  void line(const std::string& label, int word) {
    LineStore<char16_t>& store = b.vecSrcW;
    const auto adr = static_cast<std::size_t>(b.PrgEndAdr);
    m.Memory[adr] = word;
    m.LineOfAddress[adr] = store.lineCount();
    store.addLine(u"NOP");
    SrcDataW& s = store[static_cast<int>(store.lines().size()) - 1];
    s.LabelStr = store.arena.keep(toUtf16(label));
    s.OpStr = u"NOP";
    s.AbAdr = b.PrgEndAdr++;
  }
  std::string write() {
    DspRegMry<WP>(assembled, m, b, TimeData(), platform);
    return platform.files[assembled];
  }
  /// The rows of the table, with the dashed line.
  std::vector<std::string> rows() {
    const std::vector<std::string> all = linesOf(write());
    const auto head = std::find_if(all.begin(), all.end(),
                                   [](const std::string& l) { return l.starts_with("  Address   "); });
    const auto note =
        std::find_if(head, all.end(), [](const std::string& l) { return l.starts_with("The area"); });
    return {head, note};
  }
  /// The rows of the stack.
  std::vector<std::string> stackRows() {
    const std::vector<std::string> all = linesOf(write());
    const auto pointer = std::find_if(
        all.begin(), all.end(), [](const std::string& l) { return l.starts_with("The Stack Pointer"); });
    return {pointer + 1, all.end() - 1};
  }
};

const std::string zeroView = "    :#0000:    0:    +0: 0000 0000 0000 0000:";

TEST(DspRegMry, TipsStandUnlessTheNumberIsAMultipleOfThree) {
  Report r;
  r.line("", 0);
  for (const int number : {0, 4, 5, 6}) {
    r.platform.random = number;
    EXPECT_EQ(r.write().starts_with("Open this file using a monospaced font"), number % 3 != 0) << number;
  }
}

TEST(DspRegMry, NoDashedLineWithoutTheEndOfTheLastProgram) {
  Report r;
  r.line("", 0x8100);
  EXPECT_EQ(r.rows().size(), 12u);  // head, one word, ten behind it
}

TEST(DspRegMry, StackRowsEndBehindFourZerosInARow) {
  Report r;
  r.line("", 0x8100);
  EXPECT_EQ(r.stackRows().size(), 5u);
  EXPECT_EQ(r.stackRows().front(), "#FFFB:65531:      :" + zeroView);
  r.m.StackArea[1] = 65;
  EXPECT_EQ(r.stackRows().size(), 7u);
  EXPECT_EQ(r.stackRows()[5], "#FFFE:65534:      : 'A':#0041:   65:   +65: 0000 0000 0100 0001:");
  r.m.StackArea[5] = 66;  // behind three zeros
  EXPECT_EQ(r.stackRows().size(), 11u);
  r.m.StackArea[10] = 67;  // behind four: not seen
  EXPECT_EQ(r.stackRows().size(), 11u);
  r.m.StackArea.fill(1);
  EXPECT_EQ(r.stackRows().size(), 501u);
  EXPECT_EQ(r.stackRows().front().substr(0, 12), "#FE0B:65035:");
}

TEST(DspRegMry, StrangeFlagsAreTold) {
  Report r;
  r.line("", 0x8100);
  r.m.Fsign = 2;
  r.m.Fzero = -1;
  EXPECT_NE(r.write().find("Flags:    f_Ovf=0, f_Sign=2(Error of else: at Fsign ! in comet2.cpp.),"
                           "f_Zero=-1(Error of else: at Fzero ! in comet2.cpp.).\n"),
            std::string::npos);
}

// An image of the greatest size: every row stands whole, whatever the pieces that go to the file.
TEST(DspRegMry, GreatestImage) {
  Report r;
  for (int adr = 0; adr < kGreatestImage + 10; ++adr) {
    r.line("L" + std::to_string(adr), adr);
    r.m.ExecCount[static_cast<std::size_t>(adr)] = adr;
  }
  r.b.PrgEndAdr = kGreatestImage;
  r.m.MaxExecCount = kGreatestImage;
  const std::vector<std::string> rows = r.rows();
  ASSERT_EQ(rows.size(), 1u + kGreatestImage + 10u);
  for (int adr = 0; adr < kGreatestImage + 10; ++adr) {
    const std::string name = "L" + std::to_string(adr);
    const std::string& row = rows[static_cast<std::size_t>(adr) + 1];
    ASSERT_EQ(row.substr(12, 8), std::string(7 - name.size(), ' ') + name + ":") << row;
    ASSERT_EQ(row.substr(65, 7), std::string(7 - name.size(), ' ') + name.substr(1) + ":") << row;
    ASSERT_EQ(row.substr(72), adr < kLinesKnown ? name + (name.size() < 2 ? "  NOP " : " NOP ") : "") << row;
  }
}

}  // namespace
}  // namespace zelvaro
