// Bad sources and what they draw: every case of the .golden files, in both languages, through the whole
// dialogue of pipeline WP.
#include <gtest/gtest.h>

#include "support/Golden.h"
#include "whole/Dialogue.h"

namespace zelvaro::test {
namespace {

class Diagnostics : public ::testing::TestWithParam<std::string> {};

std::string tallyText(const Findings& f) {
  std::string out;
  for (const int t : f.tallies) out += (out.empty() ? "" : " ") + std::to_string(t);
  return out + "\n";
}

TEST_P(Diagnostics, SaysWhatTheFileTells) {
  GoldenFile file = readGolden(GetParam());
  ASSERT_FALSE(file.cases.empty()) << GetParam();
  for (GoldenCase& c : file.cases) {
    std::string source = c.blocks["source"];
    const Findings en = assemble(source, kEnglish);
    const Findings ja = assemble(source, kJapanese);
    EXPECT_EQ(en.tallies, ja.tallies) << c.name;
    EXPECT_EQ(en.replayed, en.tallies[0] > 0) << c.name << ": the replay in English";
    EXPECT_EQ(ja.replayed, ja.tallies[0] > 0) << c.name << ": the replay in Japanese";
    expectBlock(c, "tallies", tallyText(en));
    expectBlock(c, "en", en.text);
    expectBlock(c, "ja", ja.text);
  }
  if (rewriting()) writeGolden(file);
}

std::string nameOf(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param.substr(info.param.rfind('/') + 1);
  name.resize(name.rfind('.'));
  return name;
}

INSTANTIATE_TEST_SUITE_P(Golden, Diagnostics, ::testing::ValuesIn(goldenFiles("diagnostics", ".golden")),
                         nameOf);

}  // namespace
}  // namespace zelvaro::test
