// Detection of the encoding and the loaders.
#include <gtest/gtest.h>

#include "diag/Quote.h"
#include "source/Load.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;

const std::string kUtf8Bom = "\xEF\xBB\xBF";
const std::string kUndecodable =
    "in function utf_16_to_shift_jis, WideCharToMultiByte fail. cause: ERROR_NO_UNICODE_TRANSLATION\n";

std::string utf16(std::u16string_view text, bool little) {
  std::string out;
  for (const char16_t c : text) {
    const char low = static_cast<char>(c & 0xFF);
    const char high = static_cast<char>(c >> 8);
    out += little ? low : high;
    out += little ? high : low;
  }
  return out;
}

class LoadTest : public ::testing::Test {
 protected:
  template <class Family = WP>
  int load(const std::string& bytes, int simpleTitleIndex = 0) {
    platform.console.clear();
    platform.files["f"] = bytes;
    return loadSource<Family>(a, code, "f", simpleTitleIndex);
  }
  /// The lines with a statement as "index:text|".
  template <class Family = WP>
  std::string lines() {
    std::string out;
    for (const auto& s : a.store<Family>().lines()) {
      EXPECT_EQ(s.SrcStr, s.SrcWork);
      out += std::to_string(s.Line) + ":" + plain(s.SrcStr) + "|";
    }
    return out + std::to_string(a.store<Family>().lineCount());
  }

  test::ScriptedPlatform platform;
  TDiagLog log;
  TShellData sh{platform, log};
  TCorrectScode cs{platform, log};
  TBasicData b{platform, log};
  Assembly a{sh, cs, b};
  MoziCodeData code;
};

TEST_F(LoadTest, DetectionOfEachEncoding) {
  struct Case {
    std::string bytes;
    int codePage;
    std::string bom, name, counts;
  };
  const Case cases[] = {
      {"", 932, "", "sjis", "(0, 0, 0)"},
      {"A B\r\n\t;~", 932, "", "sjis", "(8, 0, 0)"},
      {std::string(100, 'a') + "\x7F", 65001, "", "utf-8", "(100, 0, 1)"},
      {"\x82\xA0\xE0\xFF", 932, "", "sjis", "(0, 2, 0)"},          // the second bytes are skipped
      {"\x80\x80\x97\x80\xFC\x80", 932, "", "sjis", "(0, 3, 0)"},  // ends of the ranges
      {"\x98\xDF\xFD\xFF\x7F", 65001, "", "utf-8", "(0, 0, 5)"},
      {"\x98 ", 65001, "", "utf-8", "(1, 0, 1)"},
      {"\xB1", 65001, "", "utf-8", "(0, 0, 1)"},  // half-width katakana
      {"a\x82", 932, "", "sjis", "(1, 1, 0)"},    // nothing left to skip
      {"あ", 932, "", "sjis", "(0, 2, 0)"},       // the counting has its limits
      {"漢字", 65001, "", "utf-8", "(0, 3, 1)"},
      {kUtf8Bom + "a", 65001, "EFBBBF", "utf-8 with bom(EF BB BF)", ""},
      {"\xFF\xFE"
       "a",
       1200, "FFFE", "utf-16 le(FF FE)", ""},
      {"\xFE\xFF"
       "a",
       1201, "FEFF", "utf-16 be(FE FF)", ""},
      {"\xEF\xBB", 932, "", "sjis", "(0, 1, 0)"},  // no whole mark
      {"\xFF", 65001, "", "utf-8", "(0, 0, 1)"},
  };
  for (const Case& c : cases) {
    load(c.bytes);
    EXPECT_EQ(code.CodePage, c.codePage) << testing::PrintToString(c.bytes);
    EXPECT_EQ(code.BomText, c.bom);
    EXPECT_EQ(code.BomKazu, static_cast<int>(c.bom.size() / 2));
    EXPECT_EQ(code.CodeName, c.name);
    const std::string counts = c.counts.empty() ? "" : "MoziKazu(ascii, sjis, non)=" + c.counts + "\n";
    EXPECT_EQ(platform.console.substr(0, platform.console.find("* Reading")), counts + "\n");
    EXPECT_NE(platform.console.find("\n* Reading f   " + c.name + "\n"), std::string::npos);
  }
}

TEST_F(LoadTest, WithoutCountingTheCodePageOfTheFileBeforeHolds) {
  const std::string bytes = "\x82\xA0";
  EXPECT_EQ(load(kUtf8Bom), 0);
  load("あ", 1);
  EXPECT_EQ(code.CodePage, 65001);
  EXPECT_EQ(code.BomText, "") << "never that of an earlier file";
  EXPECT_EQ(code.CodeName, "utf-8 or sjis");
  EXPECT_EQ(lines(), "0:あ|1");
  code.CodePage = 0;
  load(bytes, 1);
  EXPECT_EQ(code.CodePage, 0);
  EXPECT_EQ(lines(), "0:あ|1") << "any other code page is read as Shift-JIS";
}

TEST_F(LoadTest, LinesOfTextFiles) {
  struct Case {
    std::string bytes, lines;
  };
  const Case cases[] = {
      {"", "0"},
      {"\n", "1"},
      {"A", "0:A|1"},
      {"A\n", "0:A|1"},
      {"A\n\n", "0:A|2"},
      {"A\r\nB\nC", "0:A|1:B|2:C|3"},
      {"A\rB\r\r\nC\r", "0:A\rB\r|1:C\r|2"},      // a lone CR stays
      {" ; c\n;\n \t \n A ;\n\t;x", "3: A ;|5"},  // only statements leave a record
      {"\r\n\r\nA", "2:A|3"},
      {"A\0B\n\0"s, "0:A\0B|1:\0|2"s},
      {"A\x1A\nB", "0:A\x1A|1:B|2"},
      {kUtf8Bom, "1"},
      {kUtf8Bom + "\nA", "1:A|2"},
      {kUtf8Bom + "A\r\nB", "0:A|1:B|2"},
      {kUtf8Bom + kUtf8Bom + "A", "0:\uFEFFA|1"},  // exactly the 3 bytes of the mark
      {kUtf8Bom + "あ ;𠮷\n; 𠮷\n𠮷", "0:あ ;𠮷|2:𠮷|3"},
      {"\x82\xA0\x83\x5C ;\x81\x7C\r\n", "0:あソ ;－|1"},
      {" DC '日本'\n", "0: DC '日本'|1"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(load(c.bytes), 0);
    EXPECT_EQ(lines(), c.lines) << testing::PrintToString(c.bytes);
    EXPECT_EQ(platform.console.find("WideCharToMultiByte"), std::string::npos);
  }
}

TEST_F(LoadTest, LinesOfUtf16Files) {
  struct Case {
    std::u16string text;
    std::string lines;
  };
  const Case cases[] = {
      {u"\uFEFF", "1"},
      {u"\uFEFF\r\n", "2"},
      {u"\uFEFFA\r\nあ 𠮷\r\n", "0:A|1:あ 𠮷|3"},
      {u"\uFEFFA\nB\rC\r\r\nD", "0:A\nB\rC\r|1:D|2"},
      {u"\uFEFF ;c\r\n\t \r\n D", "2: D|3"},
      {u"\uFEFF\xD800x\r\n\uFFFF", "0:\uFFFDx|1:\uFFFF|2"},
      {u"\uFEFF\u0A0D\u0D0A", "0:\u0A0D\u0D0A|1"},
      {u"\uFEFF\r", "0:\r|1"},
  };
  for (const Case& c : cases)
    for (const bool little : {true, false}) {
      EXPECT_EQ(load(utf16(c.text, little)), 0);
      EXPECT_EQ(code.CodePage, little ? 1200 : 1201);
      EXPECT_EQ(lines(), c.lines);
      load(utf16(c.text, little) + "A");
      EXPECT_EQ(lines(), c.lines) << "half a character at the end is dropped";
    }
}

TEST_F(LoadTest, UndecodableBytesAreToldOncePerLineAndReadOn) {
  load("A\xFF\xFE\x81\nB\n;\x98\x20\xFF\n\x82\xA0\xB1\n");  // counted as UTF-8, no line is
  EXPECT_EQ(code.CodePage, 65001);
  std::size_t told = 0;
  for (std::size_t at = 0; (at = platform.console.find(kUndecodable, at)) != std::string::npos; ++at) ++told;
  EXPECT_EQ(told, 2u) << "the comment's too; the last line is Shift-JIS";
  EXPECT_EQ(lines().substr(0, 3), "0:A");
  EXPECT_NE(lines().find("\uFFFD"), std::string::npos);
  EXPECT_NE(lines().find("|1:B|3:あｱ|4"), std::string::npos);
  EXPECT_EQ(sh.ErrorKazu, 0);
  load("A\x81\x20\n");
  EXPECT_EQ(code.CodePage, 932);
  EXPECT_NE(platform.console.find(kUndecodable), std::string::npos);
  EXPECT_EQ(lines(), "0:A\uFFFD |1");
}

TEST_F(LoadTest, AnEmptyNameLeavesTheRecordAsItWas) {
  load("\xFF\xFE");
  platform.console.clear();
  EXPECT_EQ(loadSource<WP>(a, code, "", 0), -3);
  EXPECT_TRUE(
      platform.console.starts_with("fname is empty.\nFail to open .\n\n* Reading    utf-16 le(FF FE)\n"))
      << platform.console;
  EXPECT_EQ(code.BomText, "FFFE");
}

TEST_F(LoadTest, TheNarrowLoaderKeepsCp932) {
  EXPECT_EQ(load<AP>("A あ\r\n; 𠮷\n 𠮷x\n\n\x82\xA0\xB1"), 0);
  EXPECT_EQ(platform.console, "Reading f. \n");
  EXPECT_EQ(lines<AP>(), "0:A あ|2: ?x|4:あｱ|5");
  EXPECT_EQ(a.store<AP>()[0].SrcStr, "A \x82\xA0");
  load<AP>(kUtf8Bom + "A");
  EXPECT_EQ(lines<AP>(), "0:A|1");
  platform.files.clear();
  EXPECT_EQ(loadSource<AP>(a, code, "f", 0), -3);
  EXPECT_EQ(lines<AP>(), "0:A|1") << "the table is as it was";
}

TEST_F(LoadTest, TheNarrowLinesWidenedKeepTheirPlaces) {
  platform.files["f"] = "\n; 注釈\nA あ\r\n 𠮷x\n\n\x82\xA0\xB1\n\n";
  EXPECT_EQ(loadWidened(a, code, "f", 0), 0);
  EXPECT_EQ(platform.console, "Reading f. \n") << "no encoding is detected";
  EXPECT_EQ(lines<NWW>(), "2:A あ|3: ?x|5:あｱ|7");
  EXPECT_EQ(lines<NA>(), "0");
  platform.files.clear();
  EXPECT_EQ(loadWidened(a, code, "f", 0), -3);
}

}  // namespace
}  // namespace zelvaro
