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

TEST(ZenKaku, EveryRowOfAWordInBothLanguages) {
  EXPECT_EQ(told<WP>("L　", kJapanese, spaceInWord<WP>),
            "エラー： 7 行目：  \"L　\"  の中に全角の空白がある。 CASL2には全角の空白は使えない。　 "
            "CASL2では半角の空白を使う。\n");
  EXPECT_EQ(told<WP>("L　", kEnglish, spaceInOperand<WP>),
            "Error : line 7:  \"L　\" : \nA full-width space in the word. \n"
            "It is not allowed to be used in casl2. \nA half-width space is allowed to be used in casl2.  \n"
            "The full-width space should be deleted or replaced with a half-width space. \n");
  EXPECT_EQ(told<WP>("L　", kJapanese, spaceInOperand<WP>),
            "エラー： 7 行目：  \"L　\"  の中に全角の空白がある。\nCASL2には全角の空白は使えない。　\n"
            "CASL2では半角の空白を使う。\n");
  EXPECT_EQ(told<WP>("LＡ", kEnglish, moziInAdrConst<WP>),
            "Error : line 7:  \"LＡ\" : \nA full-width character is found in the word. \n"
            "This character is not allowed in CASL2. \nRemove off the full-width character. \n"
            "A half-width space is allowed in CASL2.  \n");
  EXPECT_EQ(told<WP>("漢", kJapanese, moziInAdrConst<WP>),
            "エラー： 7 行目：  \"漢\"  の中に全角の文字がある。\n CASL2では全角の文字は使えない。\n"
            " CASL2では半角の空白を使う。\n");
  EXPECT_EQ(told<WP>("かな", kEnglish, moziInStart<WP>),
            "Error : line 7:  \"かな\" : \nA full-width character is found. \n"
            "This character is not allowed to use in CASL2. \nIt should be deleted. \n");
  EXPECT_EQ(told<WP>("かな", kJapanese, moziInStart<WP>),
            "エラー： 7 行目：  \"かな\" :  の中に全角の文字がある。 \n CASL2では全角の文字は使えない。\n");
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
  EXPECT_EQ(DetNonLabelMoziPos<WP>(source.cs, 0, u"AB_a", true), 2);
  EXPECT_EQ(
      source.platform.console,
      "Error :  \"AB_a\" line 1: An invalid character is found in the address constant of  \"AB_a\" .\n");
  Source<WP> ja("", kJapanese);
  EXPECT_EQ(DetNonLabelMoziPos<WP>(ja.cs, 0, u"a", true), 0);
  EXPECT_EQ(ja.platform.console, "エラー： 1 行目：  \"a\" 1　文字目にアドレス定数で使えない文字がある。\n");
  EXPECT_EQ(ja.cs.ErrorKazu, 1);
}

/// What a scanner says of a file.
template <class Family = WP>
std::string scanned(const char* text, int lang, void (*scan)(Assembly&)) {
  Source<Family> source(text, lang);
  edit<Family>(source.a);
  scan(source.a);
  EXPECT_EQ(source.sh.ErrorKazu, source.platform.console.empty() ? 0 : 1);
  return source.platform.console;
}

#define SAYS(text, scan, en, ja)                    \
  EXPECT_EQ(scanned(text, kEnglish, scan<WP>), en); \
  EXPECT_EQ(scanned(text, kJapanese, scan<WP>), ja)

TEST(ZenKaku, SpacesAtStart) {
  SAYS(" NOP\n　START　", DetSTARTatZenKakuSpace,
       "Error : line 2:  \"　START　\" A full-width space is found at the end of START. \n"
       "A full-width space is not allowed to be used in casl2. \n"
       "A half-width space is allowed to be used in casl2. \n"
       "A full-width space should be deleted or replaced with a half-width space. \n",
       "エラー： 2 行目：  \"　START　\" START の右（直後）に全角の空白がある。　 "
       "CASL2では全角の空白は使えない。　 CASL2では半角の空白を使う。\n");
  SAYS("A　START\n START　", DetSTARTatZenKakuSpace,
       "Error : line 1:  \"A　START\" A full-width space at the front of START. \n"
       "A full-width space is not allowed to be used in casl2. \n"
       "A half-width space is allowed to be used in casl2. \n"
       "The full-width space should be deleted or replaced with a half-width space. \n",
       "エラー： 1 行目：  \"A　START\" START の左（直前）に全角の空白がある。　 "
       "CASL2では全角の空白は使えない。　 CASL2では半角の空白を使う。\n");
  SAYS("　START　", CkSTART_LR,
       "Error : line 1: A full-width space is found at the right side of START statement. \n"
       "A full-width space is not allowed in CASL2. \n"
       "A full-width space should be deleted or replaced with a half-width space. \n",
       "エラー： 1 行目： START の文字はある。けれども、 START の右に全角の空白がある。 "
       "全角の空白文字は使えない。　\n");
  SAYS("A　START", CkSTART_LR,
       "Error : line 1: A full-width space is found before START statement. \n"
       "A full-width space is not allowed for use in CASL2. \n"
       "A full-width space should be deleted or replaced with a half-width space. \n",
       "エラー： 1 行目： START の文字はある。けれども、 START の左に全角の空白がある。 "
       "全角の空白文字は使えない。　\n");
  EXPECT_EQ(scanned("; START　\nA START", kEnglish, DetSTARTatZenKakuSpace<WP>), "");
  EXPECT_NE(scanned<AP>("A　START", kEnglish, DetSTARTatZenKakuSpace<AP>), "");
}

TEST(ZenKaku, SpacesAtEnd) {
  SAYS(" SEND END　", DetENDatZenKakuSpace,
       "Error : line 1:  \" SEND END　\" : A full-width space is found at the end of END. \n"
       "A full-width space is not allowed to be used in casl2. \n"
       "Delete the full-width space at the end of the END. \n",
       "エラー： 1 行目：  \" SEND END　\" END の右（直後）に全角の空白がある。　 "
       "CASL2では全角の空白は使えない。　 CASL2では半角の空白を使う。\n");
  SAYS("　END", DetENDatZenKakuSpace,
       "Error : line 1:  \"　END\" : A full-width space is found at the front of END. \n"
       "A full-width space is not allowed to be used in casl2. \n"
       "A half-width space is allowed to be used in casl2.  \n"
       "Delete the full-width space at the front of the END. \n",
       "エラー： 1 行目：  \"　END\" END の左（直前）に全角の空白がある。　 "
       "CASL2では全角の空白は使えない。　 CASL2では半角の空白を使う。\n");
  SAYS("X　END END;　", CkEnd_LR,
       "Error : line 1:  A space is expected at the right side of END instruction. \n"
       "(Spce. of CASl2: 2.1  (4) in a case of Without operand. \n",
       "エラー： 1 行目： END の文字はある。けれども、  END の右に１個以上の空白が必要です。 \n"
       "' END;'はエラー、' END' または 'END 'と記述する。 \n"
       " （２．１　言語の仕様（４）　オペランドのない命令の場合） \n");
  SAYS("　END　", CkEnd_LR,
       "Error : line 1:  A full-width space is found at the left side of END instruction. \n"
       "It is not allowed to be used in CASL2. \n"
       "It should be deleted or replaced with a half-width space. \n",
       "エラー： 1 行目： END の文字はある。けれども、  ENDの左に全角の空白がある。 "
       "全角の空白文字は使えない。　\n");
  SAYS("END　", CkEnd_LR,
       "Error : line 1:  A full-width space is found at the right side of END instruction. \n"
       "It is not allowed for use in CASL2. \n"
       "It should be deleted or replaced with a half-width space. \n",
       "エラー： 1 行目： END の文字はある。けれども、  ENDの右に全角の空白がある。 "
       "全角の空白文字は使えない。　\n");
  EXPECT_EQ(scanned(" END", kEnglish, CkEnd_LR<WP>), "");
}

TEST(ZenKaku, WhichScannersTheStructureStagesCall) {
  Source<WP> start("MAIN　START\n RET\n END");
  EXPECT_FALSE(start.structure());
  EXPECT_EQ(start.sh.ErrorKazu, 3);
  Source<WP> end("MAIN START\n RET\n　END");
  EXPECT_FALSE(end.structure());
  EXPECT_EQ(end.sh.ErrorKazu, 2);
  Source<WP> count("A START\n RET\n END\nB START\n RET\n　END");
  EXPECT_FALSE(count.structure());
  EXPECT_EQ(count.sh.ErrorKazu, 2);
}

}  // namespace
}  // namespace zelvaro::test
