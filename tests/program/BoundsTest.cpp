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
constexpr std::size_t k1M = 1'000'000;

/// A program whose `part` comes `size` times, "#" in it being its number, and the memory that it may cost.
struct Large {
  std::size_t size, mostMiB;
  const char *before, *part, *after;

  std::string source(std::size_t times) const {
    std::string out = before;
    const std::string_view text = part;
    const std::size_t mark = text.find('#');
    for (std::size_t i = 0; i < times; ++i) {
      out += text.substr(0, mark);
      if (mark != text.npos) out.append(std::to_string(i)).append(text.substr(mark + 1));
    }
    return out + after;
  }
};

constexpr const char *kStart = "P START\n", *kEnd = " RET\n END\n", *kLineEnd = "\n RET\n END\n";
const Large kLarge[] = {{10 * k1M, 128, "P START\n LD GR1,", "9", kLineEnd},
                        {10 * k1M, 160, "P START\n ", "X", kLineEnd},
                        {10 * k1M, 96, "P START\n NOP ;", "-", kLineEnd},
                        {10 * k1M, 96, "P START\nA DC '", "s", "'\n RET\n END\n"},
                        {k1M, 48, kStart, "; a comment line\n", kEnd},
                        {60'000, 64, kStart, " NOP\n", kEnd},
                        {10'000, 32, kStart, " LD GR9,a b,'\n", kEnd},
                        {40'000, 48, kStart, " DS 65035\n", kEnd},
                        {100'000, 32, "P START\nA DC 1", ",1", kLineEnd},
                        {20'000, 32, kStart, " LD GR1,='a'\n", kEnd},
                        {100'000, 16, kStart, "L", " NOP\n RET\n END\n"},
                        {100'000, 16, "", "P", " START\n RET\n END\n"},
                        {100'000, 16, "P START\n LD GR1,", "o", ",GR1\n RET\n END\n"},
                        {100'000, 16, "P START\n IN ", ",", kLineEnd},
                        {5'000, 32, "", "P# START\n LD GR1,A\n RET\nA DC 1\n END\n", ""}};

TEST(Bounds, MemoryGrowsWithTheSizeOnly) {
  for (const Large& c : kLarge) {
    for (const std::string pipeline : {"WP", "AP", "NH"}) {
      const auto peakMiB = [&](std::size_t size) {
        const TemporaryFolder folder;
        folder.write("p.txt", c.source(size));
        folder.write("zelvaro.ini", "[Mode]\nLangStr=ENU\nFightFunc=" + pipeline + "\n");
        const Ended ended = runProgram(folder.path(), "\n1\np.txt\n2\n\n123\n");
        EXPECT_EQ(ended.status, 0) << ended.errors;
        EXPECT_THAT(ended.console, HasSubstr("Reading p.txt"));
        return ended.peakMiB;
      };
      const std::size_t none = peakMiB(1), half = peakMiB(c.size / 2), whole = peakMiB(c.size);
      RecordProperty(pipeline + std::to_string(&c - kLarge) + "MiB", std::to_string(whole));
      if (!kMemoryIsTheProgramsOwn) continue;
      EXPECT_LE(whole, c.mostMiB);
      constexpr std::size_t kSlackMiB = 8;
      EXPECT_LE(whole * 4 + none * 5, half * 9 + kSlackMiB * 4) << "half the size took " << half << " MiB";
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
  folder.write("large.txt", Large{0, 0, kStart, "; one\n LAD GR1,1\n NOP ; two\n", kEnd}.source(60'000));
  folder.write("small.txt", std::string(kStart) + kEnd);
  folder.write("zelvaro.ini", "[Mode]\nLangStr=ENU\nFightFunc=WP\n");
  int onlySmall = 0, ended = 0;
  for (std::size_t limit = 5'600; limit < 65'536; limit += limit < 8'000 ? 28 : 4'000) {
    const Ended run =
        runProgram(folder.path(), "\n1\nlarge.txt\n\n1\nsmall.txt\n\n123\n", {.addressSpaceKiB = limit});
    SCOPED_TRACE(std::to_string(limit) + " KiB: " + run.console + run.errors);
    ASSERT_TRUE(WIFEXITED(run.status));
    constexpr int kNotLoaded = 127;  // the system had no room for the program itself
    if (WEXITSTATUS(run.status) == 0) {
      EXPECT_TRUE(folder.read("zelvaro.ini").ends_with("TextEditorPath2=\n"));
      EXPECT_EQ(run.console.find("Misspellings"), std::string::npos);
      const std::size_t told = run.console.find("not enough memory");
      onlySmall += told != std::string::npos && run.console.find("Successfully", told) != std::string::npos;
    } else if (WEXITSTATUS(run.status) != kNotLoaded) {
      EXPECT_THAT(run.errors, HasSubstr("There is not enough memory"));
      ++ended;
    }
  }
  folder.write("large.txt", Large{0, 0, kStart, " NOP\n", ""}.source(300) +
                                Large{0, 0, "", "; a comment line\n", kEnd}.source(250'000));
  EXPECT_THAT(runProgram(folder.path(), "\n1\nlarge.txt\n", {.addressSpaceKiB = 24'576}).console,
              HasSubstr("Successfully Assembled!"))
      << "comments need no records";
  EXPECT_GT(onlySmall, 0) << "a small source needs little";
  EXPECT_GT(ended, 0) << "no limit hit the program";
}

}  // namespace
}  // namespace zelvaro::test
