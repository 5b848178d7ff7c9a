// Sources and lines far beyond anything sensible: memory stays within bounds and grows with the size.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "program/Program.h"

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMemoryIsTheProgramsOwn = false;  // a sanitizer needs several times as much
#else
constexpr bool kMemoryIsTheProgramsOwn = true;
#endif

namespace zelvaro::test {
namespace {

using ::testing::HasSubstr;
constexpr int k1M = 1'000'000;

/// A text whose part in braces comes so many times, "#" in it being its number.
std::string repeated(const std::string& text, int times) {
  const std::size_t open = text.find('{'), close = text.find('}');
  const std::string part = text.substr(open + 1, close - open - 1);
  const std::size_t mark = part.find('#');
  std::string out = text.substr(0, open);
  for (int i = 0; i < times; ++i) {
    out += part.substr(0, mark);
    if (mark != part.npos) out.append(std::to_string(i)).append(part, mark + 1);
  }
  return out + text.substr(close + 1);
}

struct Large {
  int size, mostMiB;
  const char* source;
};
const Large kLarge[] = {{10 * k1M, 128, "P START\n LD GR1,{9}\n RET\n END\n"},
                        {10 * k1M, 160, "P START\n {X}\n RET\n END\n"},
                        {10 * k1M, 96, "P START\n NOP ;{-}\n RET\n END\n"},
                        {10 * k1M, 96, "P START\nA DC '{s}'\n RET\n END\n"},
                        {k1M, 48, "P START\n{; a comment line\n} RET\n END\n"},
                        {60'000, 64, "P START\n{ NOP\n} RET\n END\n"},
                        {10'000, 32, "P START\n{ LD GR9,a b,'\n} RET\n END\n"},
                        {40'000, 48, "P START\n{ DS 65035\n} RET\n END\n"},
                        {100'000, 32, "P START\nA DC 1{,1}\n RET\n END\n"},
                        {20'000, 32, "P START\n{ LD GR1,='a'\n} RET\n END\n"},
                        {100'000, 16, "{P} START\n RET\n END\n"},
                        {100'000, 16, "P START\n{L} NOP\n RET\n END\n"},
                        {100'000, 16, "P START\n LD GR1,{o},GR1\n RET\n END\n"},
                        {100'000, 16, "P START\n IN {,}\n RET\n END\n"},
                        {5'000, 32, "{P# START\n LD GR1,A\n RET\nA DC 1\n END\n}"}};

TEST(Bounds, MemoryGrowsWithTheSizeOnly) {
  for (const Large& c : kLarge) {
    for (const std::string pipeline : {"WP", "AP", "NH"}) {
      const auto peakMiB = [&](int size) {
        const TemporaryFolder folder;
        folder.write("p.txt", repeated(c.source, size));
        folder.write("zelvaro.ini", "[Mode]\nLangStr=ENU\nFightFunc=" + pipeline + "\n");
        const Ended ended = runProgram(folder.path(), "\n1\np.txt\n2\n\n123\n");
        EXPECT_EQ(ended.status, 0) << ended.errors;
        EXPECT_THAT(ended.console, HasSubstr("Reading p.txt"));
        return static_cast<int>(ended.peakMiB);
      };
      const int none = peakMiB(1), half = peakMiB(c.size / 2), whole = peakMiB(c.size);
      RecordProperty(pipeline + std::to_string(&c - kLarge) + "MiB", whole);
      if (!kMemoryIsTheProgramsOwn) continue;
      EXPECT_LE(whole, c.mostMiB) << c.source;
      constexpr int kSlackMiB = 8;
      EXPECT_LE(whole * 4 + none * 5, half * 9 + kSlackMiB * 4) << c.source << "half the size took " << half;
    }
  }
}

TEST(Bounds, LongTypedLinesAndNames) {
  const TemporaryFolder folder;
  folder.write("zelvaro.ini", "[Mode]\nLangStr=ENU\n[Src]\nLastSrcFile=" + std::string(k1M, 'x') + "\n");
  std::string typed;
  for (const char* asked : {"\n11\n\n1\n", "\n5\n", "\n4\n", "\n"})
    typed += asked + std::string(k1M, '1') + "\n";
  const Ended ended = runProgram(folder.path(), typed + "123\n");
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_TRUE(folder.read("zelvaro.ini").ends_with("TextEditorPath2=\n"));
  EXPECT_LE(ended.peakMiB, kMemoryIsTheProgramsOwn ? 96u : 2000u);
}

TEST(Bounds, WithoutEnoughMemoryTheMenuComesBackOrTheProgramSaysSo) {
  if (!kMemoryIsTheProgramsOwn) GTEST_SKIP() << "a sanitizer reserves more than any limit";
  const TemporaryFolder folder;
  folder.write("large.txt", repeated("P START\n{; one\n LAD GR1,1\n NOP ; two\n} RET\n END\n", 60'000));
  folder.write("small.txt", "P START\n RET\n END\n");
  folder.write("zelvaro.ini", "[Mode]\nLangStr=ENU\nFightFunc=WP\n");
  int onlySmall = 0, ended = 0;
  for (std::size_t limit = 5'600; limit < 65'536; limit += limit < 8'000 ? 28 : 4'000) {
    const Ended run = runProgram(folder.path(), "\n1\nlarge.txt\n\n1\nsmall.txt\n\n123\n",
                                 "ulimit -v " + std::to_string(limit));
    SCOPED_TRACE(std::to_string(limit) + " KiB: " + run.console + run.errors);
    ASSERT_TRUE(WIFEXITED(run.status));
    constexpr int kNotLoaded = 127;  // the system had no room for the program itself
    if (WEXITSTATUS(run.status) == 0) {
      EXPECT_TRUE(folder.read("zelvaro.ini").ends_with("TextEditorPath2=\n"));
      EXPECT_EQ(run.console.find("Misspellings"), std::string::npos);
      const std::size_t reported = run.console.find("not enough memory");
      onlySmall +=
          reported != run.console.npos && run.console.find("Successfully", reported) != run.console.npos;
    } else if (WEXITSTATUS(run.status) != kNotLoaded) {
      EXPECT_THAT(run.errors, HasSubstr("There is not enough memory"));
      ++ended;
    }
  }
  folder.write("large.txt",
               repeated("P START\n{ NOP\n}", 300) + repeated("{; a comment line\n} RET\n END\n", 250'000));
  EXPECT_THAT(runProgram(folder.path(), "\n1\nlarge.txt\n", "ulimit -v 24576").console,
              HasSubstr("Successfully Assembled!"))
      << "comments need no records";
  EXPECT_GT(onlySmall, 0) << "a small source needs little";
  EXPECT_GT(ended, 0) << "no limit hit the program";
}

}  // namespace
}  // namespace zelvaro::test
