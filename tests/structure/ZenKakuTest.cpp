// The analysers for full-width spaces and characters.
#include <gtest/gtest.h>

#include "structure/Source.h"
#include "structure/ZenKaku.h"

namespace zelvaro::test {
namespace {

template <class Family, class Analyser>
std::string told(std::string_view word, int lang, Analyser analyse, int finds = 1) {
  Source<Family> source("", lang);
  const auto text = Source<Family>::encoded(word);
  EXPECT_EQ(analyse(source.cs, ViewOf<Family>(text)), finds);
  EXPECT_EQ(source.cs.ErrorKazu, finds);
  return source.platform.console;
}

template <class Family>
int spaceInWord(TMsgBase& o, ViewOf<Family> w) {
  return AnalystZenKSpace20NW<Family>(o, 6, w);
}
template <class Family>
int spaceInOperand(TMsgBase& o, ViewOf<Family> w) {
  return AnalystZenKSpace20<Family>(o, w, 6);
}
template <class Family>
int moziInAdrConst(TMsgBase& o, ViewOf<Family> w) {
  return AnalystZenKMozi<Family>(o, w, 6);
}
template <class Family>
int moziInStart(TMsgBase& o, ViewOf<Family> w) {
  return AnalystZenKakuMoziStr<Family>(o, 6, w);
}

TEST(ZenKaku, WordsWithoutAFind) {
  for (const char* word : {"", "L1", "l_@", "ｱｲ", "é"}) {
    EXPECT_EQ(told<WP>(word, kEnglish, spaceInWord<WP>, 0), "") << word;
    EXPECT_EQ(told<WP>(word, kEnglish, moziInAdrConst<WP>, 0), "") << word;
    EXPECT_EQ(told<AP>(word, kEnglish, moziInStart<AP>, 0), "") << word;
  }
  EXPECT_EQ(told<WP>("Ａ", kEnglish, spaceInOperand<WP>, 0), "");
}

TEST(ZenKaku, NarrowTextIsReadCharacterByCharacter) {
  EXPECT_TRUE(told<AP>("L　", kEnglish, spaceInOperand<AP>)
                  .starts_with("Error : line 7:  \"L　\" : \nA full-width is found. \nIt is"));
  EXPECT_NE(told<AP>("ｱ表", kEnglish, moziInAdrConst<AP>), "");
  EXPECT_TRUE(holdsZenKakuSpace(std::string_view("\x83\x81\x81\x40")));
  EXPECT_FALSE(holdsZenKakuSpace(std::string_view("\x83\x81@")));  // the second byte of a kana and an '@'
  EXPECT_EQ(lowerCaseTest(std::string_view("A\x82\x6B")), 0);      // a full-width L
  EXPECT_EQ(lowerCaseTest(std::string_view("\x82\x6Bx")), 2);
  Source<AP> source("");
  EXPECT_EQ(AnalystZenKMozi<AP>(source.cs, "A\x82", 0), 0);
  EXPECT_EQ(AnalystZenKMozi<AP>(source.cs, "A\x82\x20\x82\xA0", 0), 0);
}

TEST(ZenKaku, FirstCharacterThatIsNoneOfALabel) {
  Source<WP> source("");
  EXPECT_EQ(DetNonLabelMoziPos<WP>(source.cs, 0, u"AB1", true), -1);
  EXPECT_EQ(DetNonLabelMoziPos<WP>(source.cs, 0, u"AB_a", false), 2);
  EXPECT_EQ(source.platform.console, "");
}

}  // namespace
}  // namespace zelvaro::test
