// What a case of one line does not show: second runs, the walk over several lines, large lines,
// narrow text.
#include <gtest/gtest.h>

#include "data/DataBench.h"

namespace zelvaro::test {
namespace {

std::vector<int> valuesOf(LineStore<char16_t>& store, const SrcDataW& line) {
  std::vector<int> out;
  for (const auto& o : store.oprndsAtDC(line)) out.push_back(o.Value);
  return out;
}

TEST(DataDC, CleanTextStaysWhereItIsAndASecondRunIsSilent) {
  DataBench<WP> bench({"DC 1,' a ',HERE", "DC 1 ,\t2"});
  const auto* const before = bench.line().Oprnd[0].data();
  for (int run = 0; run < 2; ++run) {
    EXPECT_TRUE(OprndAtDCtoChH<WP>(bench.a, bench.line()));
    EXPECT_TRUE(OprndAtDCtoChH<WP>(bench.a, bench.line(2)));
    EXPECT_EQ(bench.line().Oprnd[0].data(), before);
    EXPECT_EQ(bench.line(2).Oprnd[0], u"1,2");
  }
  EXPECT_EQ(bench.printed(), "");
}

TEST(DataDC, TheLinkRunTakesTheFinalAddressesAndNoteAgain) {
  DataBench<WP> bench({"DC HERE,40000,'AB'"});
  dispatchDC<WP>(bench.a, bench.line());
  SetMryInAtDC<WP>(bench.a, 0);
  bench.line(bench.here).AbAdr = 77;
  bench.line().AbAdr = 20;
  EXPECT_EQ(SetMryInAtDC<WP>(bench.a, 0), 0);
  EXPECT_EQ(valuesOf(bench.store, bench.line()), (std::vector<int>{77, 40000, 0}));
  EXPECT_EQ(bench.store.oprndsAtDC(bench.line())[2].AbAdr, 22);
  EXPECT_EQ(bench.line().word_kazu, 4);
  EXPECT_EQ(bench.cs.NoteKazu, 2);
}

TEST(DataDC, ALineTakenOutAgainKeepsItsPlace) {
  DataBench<WP> bench({"DC 1,2", "DC 3"});
  for (int run = 0; run < 2; ++run) {
    dispatchDC<WP>(bench.a, bench.line(1));
    dispatchDC<WP>(bench.a, bench.line(2));
  }
  EXPECT_EQ(bench.store.vecOprndAtDC.size(), 3u);
  SetMryInAtDC<WP>(bench.a, 0);
  EXPECT_EQ(valuesOf(bench.store, bench.line(1)), (std::vector<int>{1, 2}));
  EXPECT_EQ(valuesOf(bench.store, bench.line(2)), (std::vector<int>{3}));
  EXPECT_EQ(bench.line(1).OprndKazu, 2);
}

TEST(DataDC, AFaultLeavesOnlyItsOwnLine) {
  DataBench<WP> bench({"DC OTHER,5", "DC ,", "DC 7"});
  for (int nr = 1; nr <= 3; ++nr) dispatchDC<WP>(bench.a, bench.line(nr));
  EXPECT_EQ(bench.cs.ErrorKazu, 0);
  EXPECT_EQ(SetMryInAtDC<WP>(bench.a, 0), 0);
  EXPECT_EQ(bench.cs.ErrorKazu, 2);
  EXPECT_EQ(valuesOf(bench.store, bench.line(3)), (std::vector<int>{7}));
}

// Nothing of the source reaches it: the checks in front refuse it.
TEST(DataDC, AKindThatThereIsNot) {
  DataBench<WP> bench({"DC 'A'"});
  dispatchDC<WP>(bench.a, bench.line());
  bench.store.vecOprndAtDC[0].ConstStr = u"@";
  SetWordKazuAtDC<WP>(bench.a, bench.line());
  EXPECT_EQ(bench.printed(), "Prg. Error: Unknown error of else. \n");
  EXPECT_EQ(bench.cs.ErrorKazu, 1);
}

TEST(DataDC, ManyOperands) {
  std::string line = "DC 0";
  for (int i = 1; i < 100'000; ++i) line += " ," + std::to_string(i % 1000);
  DataBench<WP> bench({line});
  dispatchDC<WP>(bench.a, bench.line());
  SetMryInAtDC<WP>(bench.a, 0);
  EXPECT_EQ(bench.line().word_kazu, 100'000);
  EXPECT_EQ(valuesOf(bench.store, bench.line()).back(), 999);
  EXPECT_EQ(bench.cs.ErrorKazu, 0);
}

TEST(DataDS, NumberAndRestBecomeOperandsOfTheirOwn) {
  DataBench<WP> bench({"DS 5  ,\tnote it"});
  dispatchDS<WP>(bench.a, bench.line());
  EXPECT_EQ(bench.line().Oprnd[1], u"5");
  EXPECT_EQ(bench.line().Oprnd[2], u",note it");
  EXPECT_EQ(bench.line().OprndKazu, 1);
  bench.printed();
  bench.line().Oprnd[1] = u"5X";
  SetMryInAtDS<WP>(bench.a, 0);
  EXPECT_NE(bench.printed().find("Prg. Error: Fail to strtoL(); buf=5X\n"), std::string::npos);
}

struct Walk {
  std::initializer_list<std::string> lines;
  int errorsOfForms;
  int errorsOfClosure;
};

TEST(DataLiteral, WhichFaultsEndTheWalkOverTheProgram) {
  const Walk walks[] = {
      {{"LD GR1,=LABEL", "LD GR1,=LABEL"}, 1, 0},
      {{"LD GR1,=12X", "LD GR1,=#ABCG", "LD GR1,=3Y"}, 4, 0},
      {{"LD GR1,='A", "LD GR1,='B"}, 1, 2},
      {{"LD GR1,=''", "LD GR1,=''"}, 1, 0},
      {{"LD GR1,='A' B", "LD GR1,='A' B"}, 0, 2},
      {{"OUT =X,LEN", "LD GR1,='A'"}, 1, 0},
      {{"DS =X", "NOP =X", "RPUSH =X", "RPOP =X", "RET =X", "DC ='A"}, 0, 0},
  };
  for (const Walk& w : walks) {
    DataBench<WP> bench(w.lines);
    CkLiteral15<WP>(bench.a, 0);
    EXPECT_EQ(bench.cs.ErrorKazu, w.errorsOfForms) << *w.lines.begin();
    bench.cs.clearTallies();
    CkStrConstLiteral<WP>(bench.a, 0);
    EXPECT_EQ(bench.cs.ErrorKazu, w.errorsOfClosure) << *w.lines.begin();
  }
}

TEST(DataNarrow, WordsAreThoseOfWideText) {
  DataBench<AP> bench({"DC 'あソ''A' , HERE ; note", "DC 'あ　"});
  dispatchDC<AP>(bench.a, bench.line());
  SetMryInAtDC<AP>(bench.a, 0);
  const auto oprnds = bench.store.oprndsAtDC(bench.line());
  ASSERT_EQ(oprnds.size(), 2u);
  EXPECT_EQ(oprnds[0].WordKazu, 4);
  EXPECT_EQ(oprnds[1].Value, 40);
  EXPECT_EQ(oprnds[1].AbAdr, 14);
  EXPECT_EQ(bench.printed(), "");
  EXPECT_FALSE(OprndAtDCtoChH<AP>(bench.a, bench.line(2)));
  EXPECT_TRUE(bench.printed().starts_with("Error : line 3:  \"'あ　\" : The "));
}

}  // namespace
}  // namespace zelvaro::test
