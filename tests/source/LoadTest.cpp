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

std::string utf16(std::u16string_view text, bool little) {
  std::string out;
  for (const char16_t c : text) {
    const char bytes[] = {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
    out += bytes[little ? 0 : 1];
    out += bytes[little ? 1 : 0];
  }
  return out;
}

class LoadTest : public ::testing::Test {
 protected:
  /// Loads a file in a family's manner; null where it does not open.
  bool load(const char* bytes, FamilyId id, bool reportsEncoding = true) {
    return load(std::string(bytes), id, reportsEncoding);
  }
  bool load(const std::string& bytes, FamilyId id, bool reportsEncoding = true) {
    sink.taken();
    platform.files[name] = bytes;
    return again(id, reportsEncoding);
  }
  bool again(FamilyId id, bool reportsEncoding = true) {
    Assembly a{sh, cs, b, family(id)};
    isWide = family(id).text == TextForm::Wide;
    const LoadRequest request{platform, code, name, reportsEncoding};
    switch (family(id).loader) {
      case Loader::Detecting:
        return loadDetecting(a, request);
      case Loader::Narrow:
        return loadNarrow(a, request);
      case Loader::Widened:
        return loadWidened(a, request);
      default:
        return loadFixed(a, request);
    }
  }
  /// The lines with a statement as "index:text|", and the number of all lines.
  std::string lines() { return isWide ? linesOf(b.vecSrcW) : linesOf(b.vecSrcA); }
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
  const std::string name = "f";
  bool isWide = true;
};

TEST_F(LoadTest, DetectionOfEachEncoding) {
  struct Case {
    std::string bytes;
    int codePage;
    std::string bom, counts;
  };
  const Case cases[] = {
      {"", 932, "", "0, 0, 0"},
      {"A B\r\n\t;~", 932, "", "8, 0, 0"},
      {std::string(100, 'a') + "\x7F", 65001, "", "100, 0, 1"},
      {"\x82\xA0\xE0\xFF", 932, "", "0, 2, 0"},          // the second bytes are skipped
      {"\x80\x80\x97\x80\xFC\x80", 932, "", "0, 3, 0"},  // ends of the ranges
      {"\x98\xDF\xFD\xFF\x7F", 65001, "", "0, 0, 5"},
      {"\x98 ", 65001, "", "1, 0, 1"},
      {"\xB1", 65001, "", "0, 0, 1"},  // half-width katakana
      {"a\x82", 932, "", "1, 1, 0"},   // nothing left to skip
      {"あ", 932, "", "0, 2, 0"},      // the counting has its limits
      {"漢字", 65001, "", "0, 3, 1"},
      {kUtf8Bom + "a", 65001, "EFBBBF", ""},
      {"\xFF\xFE", 1200, "FFFE", ""},
      {"\xFE\xFF", 1201, "FEFF", ""},
      {"\xEF\xBB", 932, "", "0, 1, 0"},  // no whole mark
  };
  for (const Case& c : cases) {
    load(c.bytes, FamilyId::WP);
    EXPECT_EQ(code.CodePage, c.codePage) << testing::PrintToString(c.bytes);
    EXPECT_EQ(code.BomText, c.bom);
    EXPECT_EQ(code.BomKazu, static_cast<int>(c.bom.size() / 2));
    EXPECT_NE(sink.text.find("(" + c.counts + ")"), c.bom.empty() ? std::string::npos : 0) << sink.text;
  }
  load(kUtf8Bom, FamilyId::WP);
  load("あ", FamilyId::WP, false);
  EXPECT_TRUE(code.CodePage == 65001 && code.BomText.empty())
      << "the code page of the file before, not its mark";
  EXPECT_EQ(lines(), "0:あ|1");
  code.CodePage = 0;
  load("\x82\xA0", FamilyId::WP, false);
  EXPECT_EQ(lines(), "0:あ|1") << "any other code page is read as Shift-JIS";
}

TEST_F(LoadTest, Lines) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "0"},
      {"\n", "1"},
      {"A", "0:A|1"},
      {"A\n\n", "0:A|2"},
      {"A\r\nB\nC", "0:A|1:B|2:C|3"},
      {"A\rB\r\r\nC\r", "0:A\rB\r|1:C\r|2"},      // a lone CR stays
      {" ; c\n;\n \t \n A ;\n\t;x", "3: A ;|5"},  // only statements leave a record
      {"A\0B\n\0"s, "0:A\0B|1:\0|2"s},
      {"A\x1A\nB", "0:A\x1A|1:B|2"},
      {kUtf8Bom + kUtf8Bom + "A", "0:\uFEFFA|1"},  // exactly the 3 bytes of the mark
      {kUtf8Bom + "あ ;𠮷\n; 𠮷\n𠮷", "0:あ ;𠮷|2:𠮷|3"},
      {"\x82\xA0\x83\x5C ;\x81\x7C\r\n", "0:あソ ;－|1"},
  };
  for (const auto& [bytes, expected] : cases) {
    EXPECT_TRUE(load(bytes, FamilyId::WP));
    EXPECT_EQ(lines(), expected) << testing::PrintToString(bytes);
  }
  load("A\xFF\xFE\x81\nB\n;\x98\x20\xFF\n\x82\xA0\xB1\n", FamilyId::WP);  // counted as UTF-8, no line is
  EXPECT_NE(lines().find("|1:B|3:あｱ|4"), std::string::npos) << lines();
  EXPECT_EQ(sink.text,
            "characters-counted(7, 2, 5)@1 reading-as(f, utf-8)@1 source-not-text@1 source-not-text@1 ");
}

TEST_F(LoadTest, LinesOfUtf16) {
  const std::pair<std::u16string, std::string> cases[] = {
      {u"\uFEFF", "1"},
      {u"\uFEFFA\r\nあ 𠮷\r\n", "0:A|1:あ 𠮷|3"},
      {u"\uFEFFA\nB\rC\r\r\nD", "0:A\nB\rC\r|1:D|2"},
      {u"\uFEFF\xD800x\r\n\uFFFF", "0:\uFFFDx|1:\uFFFF|2"},
      {u"\uFEFF\u0A0D\u0D0A", "0:\u0A0D\u0D0A|1"},
  };
  for (const auto& [text, expected] : cases)
    for (const bool little : {true, false})
      for (const char* half : {"", "A"}) {  // half a character at the end is dropped
        EXPECT_TRUE(load(utf16(text, little) + half, FamilyId::WP));
        EXPECT_EQ(lines(), expected);
      }
}

TEST_F(LoadTest, NarrowLinesAndTheSameWidened) {
  for (const FamilyId id : {FamilyId::AP, FamilyId::NaW}) {
    EXPECT_TRUE(load(kUtf8Bom + "A あ\r\n; 𠮷\n 𠮷x\n\n\x82\xA0\xB1", id));
    EXPECT_EQ(lines(), "0:A あ|2: ?x|4:あｱ|5");
    platform.files.clear();
    EXPECT_FALSE(again(id));
    EXPECT_EQ(linesOf(b.vecSrcA), id == FamilyId::AP ? "0:A あ|2: ?x|4:あｱ|5" : "0");
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
      {read + "\nX\n", "0:" + cut + "|2:X|3",
       "line-length(104)@1 "},  // the line end has no room in the first read
      {read + read + "BC\nX\n", "0:" + cut + "|1:" + cut + "|2:BC|3:X|4", "line-length(104)@1 "},
      {kana + "\n", "0:" + kana + "|1", ""},
      {"X" + kana + "\n", "0:X" + kana.substr(3) + "|1",
       "line-length(81)@1 "},  // bytes are measured, characters stay whole
      {many + "\n", "0", "lines-many(311)@1 "},
  };
  for (const auto& [bytes, expected, issued] : cases) {
    EXPECT_EQ(load(bytes, FamilyId::NH), expected != "0");
    EXPECT_EQ(lines(), expected);
    EXPECT_EQ(sink.text, "reading-narrow(f)@1 " + std::string(issued));
    b.clearTables();
  }
  EXPECT_TRUE(load(many.substr(5) + read, FamilyId::NH))
      << "without a line end there is nothing more to read";
  EXPECT_EQ(b.vecSrcA.lineCount(), 310);
}

// Names: the form that the system passes on, the form that the file layer wants.
TEST(Paths, NormalizePathAndBack) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {" \t\u3000 ", "", ""},
      {" \u3000src/pn100\t\u3000", "src\\pn100", "src/pn100"},
      {"my src/a b", "\"my src\\a b\"", "my src/a b"},
      {"あ\u3000い", "\"あ\u3000い\"", "あ\u3000い"},
      {"a\tb", "a\tb", "a\tb"},
      {"say\"so", "say\"so", "say\"so"},
      {"\xFF\x80/x", "\xFF\x80\\x", "\xFF\x80/x"},
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
  const std::string kept(247, 'n');
  std::string kanji;
  for (int i = 0; i < 247; ++i) kanji += "漢";
  for (const std::string& base : {"p"s, kept, kanji}) {
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
