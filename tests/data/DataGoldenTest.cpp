// One line of a program, checked and turned into words: every case of the .golden files of this folder, in
// both languages.  A case names its line; "words" are its size, the tallies (Errors, Warnings, Notes) and
// the words as address=value.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include "data/DataBench.h"
#include "support/Golden.h"

namespace zelvaro::test {
namespace {

void assembleLine(DataBench<WP>& bench) {
  SrcDataW& line = bench.line();
  if (opOf(line) == Op::DC) {
    dispatchDC<WP>(bench.a, line);
    if (bench.cs.ErrorKazu == 0) SetMryInAtDC<WP>(bench.a, 0);
  } else if (opOf(line) == Op::DS && line.OprndComStr.find(u'=') == std::u16string_view::npos) {
    dispatchDS<WP>(bench.a, line);
    if (bench.cs.ErrorKazu == 0) dispatchDS<WP>(bench.a, bench.line(bench.here));
    if (bench.cs.ErrorKazu == 0) SetMryInAtDS<WP>(bench.a, 0);
  } else {
    const int forms = CkLiteral15<WP>(bench.a, 0);
    EXPECT_EQ(forms<0, bench.cs.ErrorKazu> 0);
    if (forms == 0) {
      const int closure = CkStrConstLiteral<WP>(bench.a, 0);
      EXPECT_EQ(closure<0, bench.cs.ErrorKazu> 0);
    }
  }
}

std::string wordsOf(const DataBench<WP>& bench) {
  const SrcDataW& line = bench.store[1];
  std::string out = fmt::format("{} words, {} {} {}\n", line.word_kazu, bench.cs.ErrorKazu,
                                bench.cs.WarningKazu, bench.cs.NoteKazu);
  for (const auto& o : bench.store.oprndsAtDC(line)) {
    if (bench.cs.ErrorKazu > 0) break;
    EXPECT_EQ(o.AbAdr - o.RelAdr, 7);
    int at = o.AbAdr;
    const auto put = [&](int value) { out += fmt::format("{}=#{:04X}\n", at++, value & 0xFFFF); };
    if (o.DataType == ConstKind::CharConst) {
      forEachCharConstWord(o.ConstStr, put);
    } else {
      put(o.Value);
    }
    EXPECT_EQ(at, o.AbAdr + o.WordKazu);
  }
  return out;
}

void expect(GoldenCase& c, const std::string& block, const std::string& seen) {
  if (c.has(block) || !seen.empty()) expectBlock(c, block, seen);
}

TEST(DataGolden, EachLineSaysAndHoldsWhatTheFileTells) {
  for (const std::string& path : goldenFiles("data", ".golden")) {
    GoldenFile file = readGolden(path);
    ASSERT_FALSE(file.cases.empty()) << path;
    for (GoldenCase& c : file.cases) {
      DataBench<WP> en({c.name}, kEnglish), ja({c.name}, kJapanese);
      assembleLine(en);
      assembleLine(ja);
      expect(c, "words", wordsOf(en));
      EXPECT_EQ(wordsOf(en), wordsOf(ja)) << c.name;
      expect(c, "en", en.printed());
      expect(c, "ja", ja.printed());
    }
    if (rewriting()) writeGolden(file);
  }
}

}  // namespace
}  // namespace zelvaro::test
