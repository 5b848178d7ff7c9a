// Bad sources and what they draw: every case of the .golden files, in both languages, through the whole
// dialogue of pipeline WP, or of that of a block "pipeline".
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

std::string firstLine(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

TEST_P(Diagnostics, SaysWhatTheFileTells) {
  GoldenFile file = readGolden(GetParam());
  ASSERT_FALSE(file.cases.empty()) << GetParam();
  for (GoldenCase& c : file.cases) {
    std::string source = c.blocks["source"];
    const std::string pipeline = c.has("pipeline") ? firstLine(c.blocks["pipeline"]) : "WP";
    const Findings en = assemble(source, kEnglish, pipeline);
    const Findings ja = assemble(source, kJapanese, pipeline);
    EXPECT_EQ(en.tallies, ja.tallies) << c.name;
    if (pipeline == "WP") {
      EXPECT_EQ(en.replayed, en.tallies[0] > 0) << c.name << ": the replay in English";
      EXPECT_EQ(ja.replayed, ja.tallies[0] > 0) << c.name << ": the replay in Japanese";
    }
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
