// The loader of the fixed form: its limits, and which bytes of a line it keeps.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "diag/Quote.h"
#include "source/Load.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class FixedLoad : public ::testing::Test {
 protected:
  int load(const std::string& bytes, int lang = kEnglish) {
    sh.Lang = lang;
    platform.console.clear();
    platform.files["f"] = bytes;
    return loadSource<NH>(a, code, "f", 0);
  }
  std::string text(int record) { return plain(b.vecSrcA[record].SrcStr); }

  test::ScriptedPlatform platform;
  TDiagLog log;
  TShellData sh{platform, log};
  TCorrectScode cs{platform, log};
  TBasicData b{platform, log};
  Assembly a{sh, cs, b};
  MoziCodeData code;
};

const std::string k80 = " NOP" + std::string(75, ' ') + "8";

TEST_F(FixedLoad, CutsALineBehindItsEightiethByteAndTellsTheFirst) {
  ASSERT_EQ(load(k80 + "\r\n" + k80 + "9\n\n" + k80 + "9\n"), 0);
  EXPECT_EQ(b.vecSrcA.lineCount(), 4);
  for (int record = 0; record < 3; ++record) EXPECT_EQ(text(record), k80);
  EXPECT_THAT(platform.console, StartsWith("Reading f.\nWarning : line 2: There are 81 characters"));
  EXPECT_EQ(platform.console.find("line 4"), std::string::npos);
  EXPECT_EQ(sh.WarningKazu, 0);
  EXPECT_EQ(sh.CurrentFile, "f");
}

TEST_F(FixedLoad, CountsWhatTheBufferDoesNotHoldAsFurtherLines) {
  const std::string read(104, 'A');
  ASSERT_EQ(load(read.substr(0, 103) + "\nX\n"), 0);
  EXPECT_EQ(b.vecSrcA.lineCount(), 2);
  // the line end has no room in the first read
  ASSERT_EQ(load(read + "\nX\n"), 0);
  EXPECT_EQ(b.vecSrcA.lineCount(), 3);
  EXPECT_EQ(b.vecSrcA.lines().size(), 2u);
  ASSERT_EQ(load(read + read + "BC\nX\n"), 0);
  EXPECT_EQ(b.vecSrcA.lineCount(), 4);
  EXPECT_EQ(text(1), std::string(80, 'A'));
  EXPECT_EQ(text(2), "BC");
  EXPECT_EQ(text(3), "X");
  EXPECT_THAT(platform.console, HasSubstr("There are 104 characters"));
}

TEST_F(FixedLoad, MeasuresJapaneseTextInBytesAndKeepsItsCharactersWhole) {
  std::string kana;
  for (int i = 0; i < 40; ++i) kana += "あ";
  ASSERT_EQ(load(kana + "\n"), 0);
  EXPECT_EQ(platform.console, "Reading f.\n");
  EXPECT_EQ(text(0), kana);
  ASSERT_EQ(load("X" + kana + "\n"), 0);
  EXPECT_THAT(platform.console, HasSubstr("There are 81 characters"));
  EXPECT_EQ(b.vecSrcA[0].SrcStr.size(), 79u);
  EXPECT_EQ(text(0), "X" + kana.substr(3));
}

TEST_F(FixedLoad, RefusesTheThreeHundredAndEleventhLine) {
  std::string lines;
  for (int i = 0; i < 310; ++i) lines += " NOP\n";
  ASSERT_EQ(load(lines), 0);
  EXPECT_EQ(b.vecSrcA.lines().size(), 310u);
  EXPECT_LT(load(lines + "\n"), 0);
  EXPECT_EQ(b.vecSrcA.lineCount(), 0);
  EXPECT_EQ(
      platform.console,
      "Reading f.\n"
      "There is a limitation to the number of the lines in a source code file. The maximum is 310 lines "
      "in a file. There are 311 lines in your source code. You are expected to decrease the lines in "
      "your file. \n");
  EXPECT_LT(load(lines + "\n\n", kJapanese), 0);
  EXPECT_THAT(platform.console,
              HasSubstr("ソースコードのおおよその制限（一つのファイルにつき） 310行 を超えています。"
                        "行数を減らす工夫をしてご利用ください。 \n"));
}

}  // namespace
}  // namespace zelvaro
