// Detection of the encoding and the loaders: marks, line ends, halves of characters, the limits of the fixed form.
#include <gtest/gtest.h>

#include "diag/Quote.h"
#include "source/Load.h"
#include "support/Recorder.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;

const std::string kUtf8Bom = "\xEF\xBB\xBF";

class LoadTest : public ::testing::Test {
 protected:
  /// Loads a file in a family's manner and returns its statements as "index:text|", then the number of all lines.
  std::string load(const std::string& bytes, FamilyId id, bool reportsEncoding = true) {
    platform.files["f"] = bytes;
    return loadAgain(id, reportsEncoding);
  }
  std::string loadAgain(FamilyId id, bool reportsEncoding = true) {
    constexpr std::array kLoaders{loadDetecting, loadNarrow, loadWidened, loadFixed};
    Assembly a{sh, cs, b, family(id)};
    opens = kLoaders[static_cast<std::size_t>(a.family.loader)](a, {platform, code, "f", reportsEncoding});
    return a.family.text == TextForm::Wide ? linesOf(b.vecSrcW) : linesOf(b.vecSrcA);
  }
  template <class Char>
  static std::string linesOf(const LineStore<Char>& store) {
    std::string out;
    for (const auto& s : store.lines()) out += std::to_string(s.Line) + ":" + plain(s.SrcStr) + "|";
    return out + std::to_string(store.lineCount());
  }

  test::ScriptedPlatform platform;
  test::Recorder sink;
  TShellData sh{sink};
  TCorrectScode cs{sink};
  TBasicData b{sink};
  MoziCodeData code;
  bool opens = false;
};

TEST_F(LoadTest, DetectionOfEachEncoding) {
  const std::tuple<std::string, int, std::string> cases[] = {
      {"", 932, "(0, 0, 0)"},
      {std::string(100, 'a') + "\x7F", 65001, "(100, 0, 1)"},
      {"\x82\xA0\xE0\xFF", 932, "(0, 2, 0)"},          // the second bytes are skipped
      {"\x80\x80\x97\x80\xFC\x80", 932, "(0, 3, 0)"},  // ends of the ranges
      {"\x98\xDF\xFD\xFF\x7F", 65001, "(0, 0, 5)"},
      {"a\x82", 932, "(1, 1, 0)"},  // nothing left to skip
      {"あ", 932, "(0, 2, 0)"},     // the counting has its limits
      {"漢字", 65001, "(0, 3, 1)"},
      {"\xEF\xBB", 932, "(0, 1, 0)"},  // no whole mark
      {kUtf8Bom + "a", 65001, "utf-8 with bom(EF BB BF))"},
      {"\xFF\xFE", 1200, "utf-16 le(FF FE))"},
      {"\xFE\xFF", 1201, "utf-16 be(FE FF))"},
  };
  for (const auto& [bytes, codePage, reported] : cases) {
    load(bytes, FamilyId::WP);
    EXPECT_EQ(code.CodePage, codePage) << testing::PrintToString(bytes);
    EXPECT_NE(sink.taken().find(reported), std::string::npos) << testing::PrintToString(bytes);
  }
  load(kUtf8Bom, FamilyId::WP);
  EXPECT_EQ(code.BomKazu, 3);
  EXPECT_EQ(load("あ", FamilyId::WP, false), "0:あ|1") << "the code page of the file before, not its mark";
  code.CodePage = 0;
  EXPECT_EQ(load("\x82\xA0", FamilyId::WP, false), "0:あ|1") << "any other code page is read as Shift-JIS";
}

TEST_F(LoadTest, Lines) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "0"},
      {"\n", "1"},
      {"A\r\nB\n\nC", "0:A|1:B|3:C|4"},
      {"A\rB\r\r\nC\r", "0:A\rB\r|1:C\r|2"},      // a lone CR stays
      {" ; c\n;\n \t \n A ;\n\t;x", "3: A ;|5"},  // only statements leave a record
      {"A\0B\n\0\nA\x1A"s, "0:A\0B|1:\0|2:A\x1A|3"s},
      {kUtf8Bom + kUtf8Bom + "A", "0:\uFEFFA|1"},  // exactly the 3 bytes of the mark
      {kUtf8Bom + "あ ;𠮷\n; 𠮷\n𠮷", "0:あ ;𠮷|2:𠮷|3"},
      {"\x82\xA0\x83\x5C ;\x81\x7C\r\n", "0:あソ ;－|1"},
  };
  for (const auto& [bytes, expected] : cases)
    EXPECT_EQ(load(bytes, FamilyId::WP), expected) << testing::PrintToString(bytes);
  sink.taken();
  // counted as UTF-8, which no line is
  const std::string lines = load("A\xFF\xFE\x81\nB\n;\x98\x20\xFF\n\x82\xA0\xB1\n", FamilyId::WP);
  EXPECT_NE(lines.find("|1:B|3:あｱ|4"), std::string::npos) << lines;
  EXPECT_EQ(sink.text,
            "characters-counted(7, 2, 5)@1 reading-as(f, utf-8)@1 source-not-text@1 source-not-text@1 ");
}

TEST_F(LoadTest, LinesOfUtf16) {
  const std::pair<std::u16string, std::string> cases[] = {
      {u"\uFEFF", "1"},
      {u"\uFEFFA\r\nあ 𠮷\r\n", "0:A|1:あ 𠮷|3"},
      {u"\uFEFFA\nB\rC\r\r\n ;\r\n\uFFFF", "0:A\nB\rC\r|2:\uFFFF|3"},
      {u"\uFEFF\xD800x\u0A0D\u0D0A", "0:\uFFFDx\u0A0D\u0D0A|1"},
  };
  for (const auto& [text, expected] : cases) {
    std::string little, big;
    for (const char16_t c : text) {
      const char low = static_cast<char>(c & 0xFF), high = static_cast<char>(c >> 8);
      little += {low, high};
      big += {high, low};
    }
    for (const char* half : {"", "A"})  // half a character at the end is dropped
      for (const std::string& bytes : {little, big}) EXPECT_EQ(load(bytes + half, FamilyId::WP), expected);
  }
}

TEST_F(LoadTest, NarrowLinesAndTheSameWidened) {
  for (const FamilyId id : {FamilyId::AP, FamilyId::NaW}) {
    EXPECT_EQ(load(kUtf8Bom + "A あ\r\n; 𠮷\n 𠮷x\n\n\x82\xA0\xB1\n\n", id), "0:A あ|2: ?x|4:あｱ|6");
    platform.files.clear();
    loadAgain(id);
    EXPECT_FALSE(opens);
    EXPECT_EQ(b.vecSrcA.lines().empty(), id == FamilyId::NaW);
    b.clearTables();
  }
}

TEST_F(LoadTest, LimitsOfTheFixedForm) {
  const std::string k80 = " NOP" + std::string(75, ' ') + "8", read(104, 'A'), cut(80, 'A');
  std::string kana, many;
  for (int i = 0; i < 40; ++i) kana += "あ";
  for (int i = 0; i < 310; ++i) many += " NOP\n";
  const std::tuple<std::string, std::string, const char*> cases[] = {
      {k80 + "\r\n" + k80 + "9\n\n" + k80 + "9\n", "0:" + k80 + "|1:" + k80 + "|3:" + k80 + "|4",
       "line-length(81)@2 "},
      {read.substr(1) + "\nX\n", "0:" + cut + "|1:X|2", "line-length(103)@1 "},
      // the line end has no room in the first read
      {read + "\nX\n", "0:" + cut + "|2:X|3", "line-length(104)@1 "},
      {read + read + "BC\nX\n", "0:" + cut + "|1:" + cut + "|2:BC|3:X|4", "line-length(104)@1 "},
      // bytes are measured, characters stay whole
      {kana + "\nX" + kana, "0:" + kana + "|1:X" + kana.substr(3) + "|2", "line-length(81)@2 "},
      {many + "\n", "0", "lines-many(311)@1 "},
  };
  for (const auto& [bytes, expected, issued] : cases) {
    EXPECT_EQ(load(bytes, FamilyId::NH), expected);
    EXPECT_EQ(opens, expected != "0");
    EXPECT_EQ(sink.taken(), "reading-narrow(f)@1 " + std::string(issued));
  }
  load(many.substr(5) + read, FamilyId::NH);
  EXPECT_EQ(b.vecSrcA.lineCount(), 310) << "without a line end there is nothing more to read";
}

// Names: the form that the system passes on, the form that the file layer wants.
TEST(Paths, NormalizePathAndBack) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {" \u3000src/pn100\t\u3000", "src\\pn100", "src/pn100"},
      {"my src/a b", "\"my src\\a b\"", "my src/a b"},
      {"あ\u3000い", "\"あ\u3000い\"", "あ\u3000い"},
      {"say\t\"so\xFF\x80/x", "say\t\"so\xFF\x80\\x", "say\t\"so\xFF\x80/x"},
      {"\"", "\"", "\""},
  };
  for (const auto& [typed, passedOn, native] : cases) {
    EXPECT_EQ(NormalizePath(typed), passedOn);
    EXPECT_EQ(nativePath(NormalizePath(typed)), native);
    EXPECT_EQ(NormalizePath(NormalizePath(typed)), passedOn) << "a passed-on name stays as it is";
  }
}

TEST_F(LoadTest, FindSrcFileTriesTheExtensionsAndCutsALongName) {
  const char* extensions[] = {"", ".txt", ".asl", ".asm", ".cas", ".casl"};
  std::string kanji;
  for (int i = 0; i < 247; ++i) kanji += "漢";
  for (const std::string& base : {"p"s, kanji}) {
    for (const char* e : extensions) platform.files[base + e] = "";
    for (const char* e : extensions) {
      platform.typed = {base == "p" ? " \t p" : base + "字dropped"};
      EXPECT_EQ(FindSrcFile(sh, platform), base + e);
      platform.files.erase(base + e);
    }
  }
  EXPECT_EQ(sh.LastSrcFile, kanji + ".casl");
  platform.typed = {std::string(1'000'000, 'x')};
  EXPECT_EQ(FindSrcFile(sh, platform), "");
  EXPECT_EQ(FindSrcFile(sh, platform), std::nullopt);
}

}  // namespace
}  // namespace zelvaro
