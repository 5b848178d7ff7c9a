// What the reports of tests/transcripts do not show: edges of words, labels, echoes and the stack.
#include <gtest/gtest.h>

#include "diag/MsgBase.h"
#include "report/Report.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

const std::string assembled{AssembledRegFile};
const std::string resultant{ResultantRegFile};
const std::string dashes = "//" + std::string(72, '-');

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    lines.push_back(text.substr(at, end - at));
    at = end == std::string::npos ? text.size() : end + 1;
  }
  return lines;
}

template <class Family>
class Report {
 public:
  using Char = CharOf<Family>;

  test::ScriptedPlatform platform;
  TDiagLog log;
  TBasicData b{platform, log};
  Tcomet2 m;
  TimeData time;

  Report() {
    b.SrcFilename = "src/small.txt";
    platform.now.tm_year = 126;
    platform.now.tm_mon = 10;
    platform.now.tm_mday = 22;
    platform.now.tm_wday = 0;
    platform.now.tm_hour = 21;
    platform.now.tm_min = 5;
    platform.now.tm_sec = 9;
  }

  LineStore<Char>& store() { return b.store<Char>(); }

  /// A line of the image: its words, from the next free address on.
  SrcData<Char>& line(std::string_view label, std::string_view op, std::string_view operands,
                      std::initializer_list<int> words) {
    const int record = static_cast<int>(store().lines().size());
    const int number = store().lineCount();
    store().addLine(text(op.empty() ? label : op));  // a line with nothing on it leaves no record
    SrcData<Char>& s = store()[record];
    s.LabelStr = text(label);
    s.OpStr = text(op);
    s.OprndComStr = text(operands);
    s.AbAdr = b.PrgEndAdr;
    put(number, words);
    return s;
  }
  /// The literal of a line; call it when all lines stand.
  void literal(int record, std::initializer_list<int> words) {
    store()[record].LiteralNr = static_cast<int>(store().vecAdrConst.size());
    store().vecAdrConst.emplace_back();
    put(store()[record].Line, words);
  }
  void endOfProgram() {
    PrgData<Char> p;
    p.AbAdrAtEnd = b.PrgEndAdr - 1;
    store().vecPrg.push_back(p);
  }
  /// The image of a small program with a literal.
  void small() {
    line("MAIN", "START", "", {0});
    line("", "LD", "GR1,A", {0x1010, 6});
    line("LOOP", "LD", "GR2,=5", {0x1020, 7});
    line("", "RET", "", {0x8100});
    line("A", "DC", "65", {65});
    literal(2, {5});
    endOfProgram();
  }

  std::string write(const std::string& name) {
    DspRegMry<Family>(name, m, b, time, platform);
    return platform.files[name];
  }
  /// The rows of the table, with the dashed line.
  std::vector<std::string> rows() {
    const std::vector<std::string> all = linesOf(write(assembled));
    const auto head = std::find_if(all.begin(), all.end(),
                                   [](const std::string& l) { return l.find("  Address   ") == 0; });
    const auto note =
        std::find_if(head, all.end(), [](const std::string& l) { return l.find("The area") == 0; });
    return {head, note};
  }
  /// The rows of the stack.
  std::vector<std::string> stackRows() {
    const std::vector<std::string> all = linesOf(write(assembled));
    const auto pointer = std::find_if(all.begin(), all.end(),
                                      [](const std::string& l) { return l.find("The Stack Pointer") == 0; });
    return {pointer + 1, all.end() - 1};
  }

 private:
  std::basic_string_view<Char> text(std::string_view ascii) {
    return store().arena.keep(std::basic_string<Char>(ascii.begin(), ascii.end()));
  }
  void put(int number, std::initializer_list<int> words) {
    for (const int word : words) {
      m.Memory[static_cast<std::size_t>(b.PrgEndAdr)] = word;
      m.LineOfAddress[static_cast<std::size_t>(b.PrgEndAdr++)] = number;
    }
  }
};

using WideReport = Report<WP>;
using NarrowReport = Report<AP>;

const std::string zeroView = "    :#0000:    0:    +0: 0000 0000 0000 0000:";

TEST(DspRegMry, ResultantReportTellsRunTimeCountsAndState) {
  WideReport r;
  r.small();
  r.m.IsEnglish = kJapanese;
  r.b.Lang = kJapanese;
  r.m.PR = 5;
  r.m.GR[7] = -1;
  r.m.Fovf = r.m.Fsign = r.m.Fzero = 1;
  r.m.SP = 0x10000;
  r.m.ExecCount[3] = 100;
  r.m.ExecCount[5] = 1;
  r.m.MaxExecCount = 100;
  const std::vector<std::string> lines = linesOf(r.write(resultant));
  ASSERT_GT(lines.size(), 30u);
  EXPECT_EQ(lines[0], "Src. File: src/small.txt    作成日時：2026年11月22日 21時5分9秒");
  EXPECT_EQ(lines[3], "             1 micro second or less = 実行時間 ");
  EXPECT_EQ(lines[5], "VM COMET2: aaResultantRegMry.txt");
  EXPECT_EQ(lines[8], "   PR:    :#0005:    5:    +5: 0000 0000 0000 0101:");
  EXPECT_EQ(lines[16], "  GR7:    :#FFFF:65535:    -1: 1111 1111 1111 1111:");
  EXPECT_EQ(lines[17], "Flags:    f_Ovf=1, f_Sign=1(minus), f_Zero=1(zero).");
  EXPECT_EQ(lines[18], "   SP:" + zeroView);
  EXPECT_EQ(lines[22], "#0000:    0:  MAIN:" + zeroView + "   0:MAIN START ");
  EXPECT_EQ(lines[25], "#0003:    3:  LOOP:    :#1020: 4128: +4128: 0001 0000 0010 0000: 100:LOOP LD GR2,=5");
  EXPECT_NE(r.write(resultant).find("has pointed at #10000 at present. \n"), std::string::npos);
  r.m.IsEnglish = kEnglish;
  EXPECT_NE(r.write(resultant).find("or less = Running Time of the COMET2\n\nVM"), std::string::npos);
}

TEST(DspRegMry, TipsStandUnlessTheNumberIsAMultipleOfThree) {
  WideReport r;
  r.small();
  for (const int number : {0, 4, 5, 6}) {
    r.platform.random = number;
    EXPECT_EQ(r.write(assembled).starts_with("Open this file using a monospaced font"), number % 3 != 0)
        << number;
  }
}

TEST(DspRegMry, WordViewsAtTheirEdges) {
  const std::vector<std::pair<int, std::string>> views{
      {0x1F, "    :#001F:   31:   +31: 0000 0000 0001 1111:"},
      {0x20, " ' ':#0020:   32:   +32: 0000 0000 0010 0000:"},
      {0x27, " ''':#0027:   39:   +39: 0000 0000 0010 0111:"},
      {0x7E, " '~':#007E:  126:  +126: 0000 0000 0111 1110:"},
      {0x7F, "    :#007F:  127:  +127: 0000 0000 0111 1111:"},
      {0x7FFF, "    :#7FFF:32767:+32767: 0111 1111 1111 1111:"},
      {0x8000, "    :#8000:32768:-32768: 1000 0000 0000 0000:"},
      {-1, "    :#FFFF:65535:    -1: 1111 1111 1111 1111:"},
      {0x10041, " 'A':#0041:   65:   +65: 0000 0000 0100 0001:"},
  };
  WideReport r;
  for (const auto& [word, view] : views) r.line("", "DC", "", {word});
  const std::vector<std::string> rows = r.rows();
  for (std::size_t i = 0; i < views.size(); ++i)
    EXPECT_EQ(rows[i + 1].substr(19, 45), views[i].second) << views[i].first;
}

TEST(DspRegMry, LongLabelsWidenRowsHeadAndStack) {
  WideReport r;
  r.line("MAIN", "START", "", {0});
  r.line("EMPTY", "DS", "0", {});
  r.line("NEXT", "RET", "", {0x8100});
  r.line("BEHIND78", "DS", "0", {});
  r.endOfProgram();
  const std::vector<std::string> rows = r.rows();
  // two labels at one address: ten characters, so a column of eleven, and 11 / 2 = 5
  EXPECT_EQ(rows[0], "  Address       Label  Char  Hex    UD     SD       Binary Code");
  EXPECT_EQ(rows[1], "#0000:    0:       MAIN:" + zeroView + " 0:MAIN START ");
  EXPECT_EQ(rows[2].substr(0, 24), "#0001:    1: EMPTY NEXT:");
  EXPECT_EQ(rows[2].substr(69), " 0:NEXT RET ");
  EXPECT_EQ(rows[3], dashes);
  // a label behind the image stands in its row
  EXPECT_EQ(rows[4], "#0002:    2:   BEHIND78:" + zeroView + " 0:");
  EXPECT_EQ(r.stackRows().back(), "#FFFF:65535:           :" + zeroView);
}

TEST(DspRegMry, EchoStandsOncePerStatement) {
  WideReport r;
  r.line("MAIN", "START", "", {0});
  r.line("", "DC", "'AB',3", {65, 66, 3});
  r.line("", "LD", "GR1,='XY'", {0x1010, 7});
  r.line("", "RET", "", {0x8100});
  r.literal(2, {88, 89});
  r.line("X", "", "", {9});  // no opcode: no echo
  r.endOfProgram();
  const std::vector<std::string> rows = r.rows();
  const auto echo = [&rows](std::size_t adr) { return rows[adr + 1].substr(67); };
  EXPECT_EQ(echo(1), "   DC 'AB',3");
  EXPECT_EQ(echo(2), "");
  EXPECT_EQ(echo(3), "");
  EXPECT_EQ(echo(4), "   LD GR1,='XY'");
  EXPECT_EQ(echo(5), "");
  EXPECT_EQ(echo(7), "Literal Const. in (LD GR1,='XY')");
  EXPECT_EQ(echo(8), "");
  EXPECT_EQ(echo(9), "");
  EXPECT_EQ(rows[11], dashes);
}

TEST(DspRegMry, LiteralBehindItsOwnStatementHasNoSecondEcho) {
  WideReport r;
  r.line("MAIN", "START", "", {0});
  r.line("", "LAD", "GR1,=5", {0x1210, 3});
  r.literal(1, {5});
  r.endOfProgram();
  EXPECT_EQ(r.rows()[4].substr(67), "");
}

TEST(DspRegMry, NoDashedLineWithoutTheEndOfTheLastProgram) {
  WideReport r;
  r.line("MAIN", "RET", "", {0x8100});
  EXPECT_EQ(r.rows().size(), 12u);  // head, one word, ten behind it
}

TEST(DspRegMry, StackRowsEndBehindFourZerosInARow) {
  WideReport r;
  r.line("MAIN", "RET", "", {0x8100});
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
  WideReport r;
  r.line("MAIN", "RET", "", {0x8100});
  r.m.Fsign = 2;
  r.m.Fzero = -1;
  EXPECT_NE(r.write(assembled).find("Flags:    f_Ovf=0, f_Sign=2(Error of else: at Fsign ! in comet2.cpp.),"
                                    "f_Zero=-1(Error of else: at Fzero ! in comet2.cpp.).\n"),
            std::string::npos);
}

TEST(DspRegMry, NarrowReport) {
  NarrowReport r;
  r.small();
  const std::string text = r.write(assembled);
  const std::vector<std::string> rows = r.rows();
  EXPECT_NE(text.find("\nFlags:    Fovf=0, Fsign=0(plus), Fzero=0(non zero).\n"), std::string::npos);
  EXPECT_NE(text.find("\n//------------------------------------------------------------\n  Address"),
            std::string::npos);
  EXPECT_NE(text.find("=(ReadFile, Assemble, Link)Time QPC  \n"), std::string::npos);
  EXPECT_EQ(rows[0], "  Address   Label Char  Hex    UD     SD       Binary Code");
  EXPECT_EQ(rows[1], "#0000:    0:       MAIN:" + zeroView + " 0:MAIN START ");
  EXPECT_EQ(rows[8].substr(69), " 0:Literal Const:(LOOP LD GR2,=5)");
  EXPECT_EQ(r.m.LastAdr, 8);
  EXPECT_EQ(r.stackRows()[0], "#FFFB:65531:           :" + zeroView);
}

TEST(DspRegMry, NarrowColumnWidensAboveEleven) {
  NarrowReport r;
  r.line("ABCDEFGH", "DS", "0", {});
  r.line("IJK", "RET", "", {0x8100});
  const std::vector<std::string> rows = r.rows();
  EXPECT_EQ(rows[0], "  Address   Label   Char  Hex    UD     SD       Binary Code");
  EXPECT_EQ(rows[1].substr(0, 26), "#0000:    0: ABCDEFGH IJK:");
}

// An image of the greatest size: every row stands whole, whatever the pieces that go to the file.
TEST(DspRegMry, GreatestImage) {
  WideReport r;
  for (int adr = 0; adr < kGreatestImage + 10; ++adr) {
    r.line("L" + std::to_string(adr), "NOP", "", {adr});
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
