// Sources, settings and lines far beyond anything sensible: memory stays within bounds and grows with the size.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <functional>

#include "program/Program.h"

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMemoryIsTheProgramsOwn = false;  // a sanitizer needs several times as much
#else
constexpr bool kMemoryIsTheProgramsOwn = true;
#endif

namespace zelvaro::test {
namespace {

using ::testing::HasSubstr;

std::string repeated(std::size_t times, const std::string& text) {
  std::string out;
  out.reserve(times * text.size());
  for (std::size_t i = 0; i < times; ++i) out += text;
  return out;
}

std::string program(const std::string& body) {
  return "P START\n" + body + " RET\n END\n";
}

std::string programs(std::size_t count) {
  std::string out;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string name = "P" + std::to_string(i);
    out += name + " START\n LD GR1,A\n RET\nA DC 1\n END\n";
  }
  return out;
}

/// A size that a source may have, and what it may cost.
struct Case {
  const char* name;
  std::size_t size;
  std::size_t mostMiB;
  std::string (*source)(std::size_t size);
};

void PrintTo(const Case& c, std::ostream* out) {
  *out << c.name;
}

const Case kCases[] = {
    {"LineOfTenMegabytes", 10'000'000, 128,
     [](std::size_t n) { return program(" LD GR1," + std::string(n, '9') + "\n"); }},
    {"OpcodeOfTenMegabytes", 10'000'000, 160,
     [](std::size_t n) { return program(" " + std::string(n, 'X') + "\n"); }},
    {"CommentOfTenMegabytes", 10'000'000, 96,
     [](std::size_t n) { return program(" NOP ;" + std::string(n, '-') + "\n"); }},
    {"StringOfTenMegabytes", 10'000'000, 96,
     [](std::size_t n) { return program("A DC '" + std::string(n, 's') + "'\n"); }},
    {"CommentLines", 1'000'000, 48, [](std::size_t n) { return program(repeated(n, "; a comment line\n")); }},
    {"StatementLines", 60'000, 64, [](std::size_t n) { return program(repeated(n, " NOP\n")); }},
    {"FaultyLines", 10'000, 32, [](std::size_t n) { return program(repeated(n, " LD GR9,a b,'\n")); }},
    {"ReservedWords", 10'000, 32, [](std::size_t n) { return program(repeated(n, " DS 65035\n")); }},
    {"Constants", 100'000, 32,
     [](std::size_t n) { return program("A DC 1" + repeated(n - 1, ",1") + "\n"); }},
    {"Literals", 20'000, 32, [](std::size_t n) { return program(repeated(n, " LD GR1,='a'\n")); }},
    {"Label", 100'000, 16,
     [](std::size_t n) {
       return program(std::string(n, 'L') + " NOP\n LD GR1," + std::string(n, 'L') + "\n");
     }},
    {"ProgramName", 100'000, 16,
     [](std::size_t n) {
       return std::string(n, 'P') + " START\n CALL " + std::string(n, 'P') + "\n RET\n END\n";
     }},
    {"Operand", 100'000, 16,
     [](std::size_t n) {
       return program(" LD GR1," + std::string(n, 'o') + ",GR1\n IN " + std::string(n, ',') + "\n");
     }},
    {"Programs", 5'000, 32, programs},
};

class Bounds : public ::testing::TestWithParam<Case> {
 protected:
  std::size_t peakMiB(const std::string& pipeline, std::size_t size) {
    const TemporaryFolder folder;
    folder.write("p.txt", GetParam().source(size));
    folder.write("zelvaro.ini", "[Mode]\nLangStr=ENU\nFightFunc=" + pipeline + "\n");
    const Ended ended = runProgram(folder.path(), "\n1\np.txt\n2\n\n123\n");
    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_THAT(ended.console, HasSubstr("Reading p.txt"));
    return ended.peakMiB;
  }
};

TEST_P(Bounds, MemoryGrowsWithTheSizeOnly) {
  for (const char* pipeline : {"WP", "AP", "NH"}) {
    SCOPED_TRACE(pipeline);
    const std::size_t none = peakMiB(pipeline, 1);
    const std::size_t half = peakMiB(pipeline, GetParam().size / 2);
    const std::size_t whole = peakMiB(pipeline, GetParam().size);
    RecordProperty(std::string(pipeline) + "MiB", std::to_string(whole));
    if (!kMemoryIsTheProgramsOwn) continue;
    EXPECT_LE(whole, GetParam().mostMiB);
    constexpr std::size_t kSlackMiB = 8;
    EXPECT_LE(whole - none, (half - none) * 9 / 4 + kSlackMiB) << "half the size took " << half << " MiB";
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, Bounds, ::testing::ValuesIn(kCases),
                         [](const auto& c) { return c.param.name; });

TEST(BoundsOfTheDialogue, LongTypedLines) {
  const TemporaryFolder folder;
  folder.write("zelvaro.ini",
               "[Mode]\nLangStr=ENU\n[Src]\nLastSrcFile=" + std::string(1'000'000, 'x') + "\n");
  std::string typed;
  for (const char* front : {"\n1\n", "\n5\n", "\n4\n", "\n"})
    typed += front + std::string(1'000'000, '1') + "\n";
  const Ended ended = runProgram(folder.path(), typed + "123\n");
  EXPECT_EQ(ended.status, 0) << ended.errors;
  EXPECT_TRUE(folder.read("zelvaro.ini").ends_with("TextEditorPath2=\n"));
  if (kMemoryIsTheProgramsOwn) {
    EXPECT_LE(ended.peakMiB, 96u);
  }
}

TEST(BoundsOfTheDialogue, WithoutEnoughMemoryTheMenuComesBackOrTheProgramSaysSo) {
  if (!kMemoryIsTheProgramsOwn) GTEST_SKIP() << "a sanitizer reserves more than any limit";
  const TemporaryFolder folder;
  folder.write("large.txt", program(repeated(60'000, "; one\n LAD GR1,1\n NOP ; two\n")));
  folder.write("small.txt", program(""));
  folder.write("zelvaro.ini", "[Mode]\nLangStr=ENU\nFightFunc=WP\n");
  bool wasShort = false;
  bool small = false;
  for (std::size_t limit = 5'600; limit < 65'536; limit += limit < 8'000 ? 28 : 4'000) {
    const Ended ended =
        runProgram(folder.path(), "\n1\nlarge.txt\n\n1\nsmall.txt\n\n123\n", {.addressSpaceKiB = limit});
    SCOPED_TRACE(std::to_string(limit) + " KiB: " + ended.console + ended.errors);
    ASSERT_TRUE(WIFEXITED(ended.status));
    constexpr int kNotLoaded = 127;  // the system had no room for the program itself
    if (WEXITSTATUS(ended.status) == kNotLoaded) continue;
    if (WEXITSTATUS(ended.status) == 0) {
      EXPECT_TRUE(folder.read("zelvaro.ini").ends_with("TextEditorPath2=\n"));
      EXPECT_EQ(ended.console.find("Misspellings"), std::string::npos);
      const bool isShort = ended.console.find("not enough memory") != std::string::npos;
      wasShort |= isShort;
      small |= isShort && ended.console.find("Successfully Assembled!") != std::string::npos;
    } else {
      EXPECT_THAT(ended.errors, HasSubstr("There is not enough memory"));
    }
  }
  EXPECT_TRUE(wasShort) << "no limit hit the large file";
  EXPECT_TRUE(small) << "a small source needs little";
}

}  // namespace
}  // namespace zelvaro::test
