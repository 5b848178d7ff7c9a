// Names: the form that the system passes on, the form that the file layer wants, completion.
#include <gtest/gtest.h>

#include "source/Load.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

TEST(Paths, NormalizePathAndBack) {
  struct Case {
    const char *name, *passedOn, *native;
  };
  const Case cases[] = {
      {"", "", ""},
      {" \t\u3000 ", "", ""},
      {"src/pn100", "src\\pn100", "src/pn100"},
      {"src\\pn100", "src\\pn100", "src/pn100"},
      {" \u3000src/pn100\t\u3000", "src\\pn100", "src/pn100"},
      {"my src/a b", "\"my src\\a b\"", "my src/a b"},
      {"あ\u3000い", "\"あ\u3000い\"", "あ\u3000い"},
      {"a\tb", "a\tb", "a\tb"},
      {"\"my src\\a b\"", "\"my src\\a b\"", "my src/a b"},
      {"say\"so", "say\"so", "say\"so"},
      {"$(x);`y`", "$(x);`y`", "$(x);`y`"},
      {"\xFF\x80/x", "\xFF\x80\\x", "\xFF\x80/x"},
      {"\"", "\"", "\""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(NormalizePath(c.name), c.passedOn);
    EXPECT_EQ(nativePath(NormalizePath(c.name)), c.native);
    EXPECT_EQ(NormalizePath(NormalizePath(c.name)), c.passedOn) << "a passed-on name stays as it is";
  }
}

class FindSrcFileTest : public ::testing::Test {
 protected:
  std::optional<std::string> find(const std::string& typed) {
    platform.console.clear();
    platform.typed = {typed};
    return FindSrcFile(sh);
  }

  test::ScriptedPlatform platform;
  TDiagLog log;
  TShellData sh{platform, log};
};

TEST_F(FindSrcFileTest, ExtensionsInTheirOrder) {
  const char* extensions[] = {"", ".txt", ".asl", ".asm", ".cas", ".casl"};
  for (const char* e : extensions) platform.files[std::string("src/p") + e] = "";
  for (const char* e : extensions) {
    EXPECT_EQ(find("src/p"), std::string("src\\p") + e);
    platform.files.erase(std::string("src/p") + e);
  }
  EXPECT_EQ(find("src/p"), "");
}

TEST_F(FindSrcFileTest, AHitIsTheCurrentAndTheLastFile) {
  platform.files["src/p.casl"] = "";
  EXPECT_EQ(find(" \t src\\p \t"), "src\\p.casl");
  EXPECT_EQ(sh.CurrentFile, "src\\p.casl");
  EXPECT_EQ(sh.LastSrcFile, "src\\p.casl");
  EXPECT_EQ(platform.console, "");
  find("none");
  EXPECT_EQ(sh.LastSrcFile, "src\\p.casl");
}

TEST_F(FindSrcFileTest, BlanksQuotesAndFoldersInNames) {
  platform.files["my src/a b.txt"] = "";
  platform.folders.insert("d");
  platform.files["d.txt"] = "";
  for (const char* typed : {"my src/a b", "\"my src/a b\"", "\"my src\\a b.txt\"", "\u3000my src/a b\u3000"})
    EXPECT_EQ(find(typed), "\"my src\\a b.txt\"") << typed;
  EXPECT_EQ(find("d"), "d.txt") << "a folder is no source file";
}

TEST_F(FindSrcFileTest, NoFileIsTold) {
  platform.files[".txt"] = "";
  for (const char* typed : {"none", "", "   ", "\"\""}) {
    EXPECT_EQ(find(typed), "") << typed;
    EXPECT_EQ(platform.console, "The file is not found there. *");
  }
  sh.Lang = kJapanese;
  EXPECT_EQ(find("none"), "");
  EXPECT_EQ(platform.console, "ファイルが見つかりませんでした。\n");
  platform.console.clear();
  platform.typed.clear();
  EXPECT_EQ(FindSrcFile(sh), std::nullopt);
  EXPECT_EQ(platform.console, "");
}

TEST_F(FindSrcFileTest, ALongNameIsCutBehindTheLimit) {
  const std::string kept(247, 'n');
  platform.files[kept + ".asm"] = "";
  EXPECT_EQ(find("  " + kept + "dropped"), kept + ".asm");
  std::string kanji;
  for (int i = 0; i < 247; ++i) kanji += "漢";
  platform.files[kanji] = "";
  EXPECT_EQ(find(kanji + "字"), kanji);
  EXPECT_EQ(find(std::string(1'000'000, 'x')), "");
}

}  // namespace
}  // namespace zelvaro
