// What a case of one line does not show: marks, second runs, the walk over several lines, large lines,
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

TEST(DataDC, AddressConstantsMarkWhatTheyName) {
  DataBench<WP> own({"DC HERE"});
  dispatchDC<WP>(own.a, own.line());
  EXPECT_TRUE(own.line(own.here).IsLabelInUse);
  EXPECT_FALSE(own.line().IsLabelInUse);
  DataBench<WP> other({"DC OTHER"});
  dispatchDC<WP>(other.a, other.line());
  EXPECT_TRUE(other.line().IsLabelInUse);
  EXPECT_TRUE(other.store.vecPrg[1].IsPrgNameInUse);
  EXPECT_FALSE(other.store.vecPrg[0].IsPrgNameInUse);
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

// Nothing of the source reaches these two: the checks in front refuse it.
TEST(DataDC, Guards) {
  for (const int lang : {kJapanese, kEnglish}) {
    DataBench<WP> bench({"DC 'A',5"}, lang);
    dispatchDC<WP>(bench.a, bench.line());
    bench.store.vecOprndAtDC[0].ConstStr = u"''";
    EXPECT_EQ(SetMryInAtDC<WP>(bench.a, 0), -1);
    EXPECT_EQ(bench.cs.ErrorKazu, 1);
    const std::string head = lang == kEnglish
                                 ? "Error : line 2:  Constant Nr=1: The size of the constant is zero"
                                 : "エラー： 2 行目： 1 番目の定数： の文字列定数: サイズがゼロ";
    EXPECT_TRUE(bench.printed().starts_with(head)) << head;
  }
  DataBench<WP> bench({"DC 'A'"});
  dispatchDC<WP>(bench.a, bench.line());
  bench.store.vecOprndAtDC[0].ConstStr = u"@";
  SetWordKazuAtDC<WP>(bench.a, bench.line());
  EXPECT_EQ(bench.printed(), "Prg. Error: Unknown error of else. \n");
  EXPECT_EQ(bench.cs.ErrorKazu, 1);
}

TEST(DataDC, TheReplayLeavesOutHeadPlaceAndQuote) {
  DataBench<WP> bench({"DC 1,12X,NONE"});
  dispatchDC<WP>(bench.a, bench.line());
  bench.printed();
  bench.log.ReplayLog(bench.platform);
  EXPECT_EQ(bench.printed(),
            ": \nA non-numerical character is found in the decimal constant. \n\n"
            ": Undefined address constant \n \"NONE\"  No label or program name matches  \"NONE\" . \n"
            "Make sure of your spelling of  \"NONE\" . \n\n");
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

TEST(DataNarrow, KnowsNoProgramNamesInADC) {
  const std::pair<int, std::string> told[] = {
      {kEnglish,
       "Error : line 2:  Constant Nr=1 \"OTHER\" : Undefined address constant  \"OTHER\"  It is neither label nor "
       "program name. An address constant must be one of the labels inside the program.  Make sure of your "
       "spelling of  \"OTHER\" . \n"},
      {kJapanese,
       "エラー： 2 行目： 1 番目の定数：  \"OTHER\"   と一致するラベル又はプログラム名が存在しない。\n"
       "アドレス定数としては同じプログラム内のラベルのみが使える。スペリングは正しいですか？ \n"}};
  for (const auto& [lang, words] : told) {
    DataBench<AP> bench({"DC OTHER"}, lang);
    dispatchDC<AP>(bench.a, bench.line());
    EXPECT_EQ(bench.printed(), words);
    EXPECT_FALSE(bench.store.vecPrg[1].IsPrgNameInUse);
    EXPECT_TRUE(bench.log.records().empty());
  }
}

TEST(DataNarrow, QuotesAWholeCharacter) {
  DataBench<AP> bench({"DS あ5"});
  dispatchDS<AP>(bench.a, bench.line());
  EXPECT_TRUE(bench.printed().starts_with("Error : line 2: あ:  \"あ5\" : "));
}

}  // namespace
}  // namespace zelvaro::test
