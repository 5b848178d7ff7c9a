// Whole dialogues: the cases of tests/transcripts/*.transcript.  Blocks of a case:
//   file NAME       a file beside the program before it starts; the samples of workspace/src are there too
//   language        "ja" for a user of a Japanese machine
//   typed           the lines typed; behind the last one the input ends
//   console         all that is shown
//   report NAME     a file after the end, report or settings
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/Golden.h"
#include "whole/Dialogue.h"

namespace zelvaro::test {
namespace {

class Transcripts : public ::testing::TestWithParam<std::string> {};

std::string fileBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// All sample sources, under the names that a learner types.
void addSamples(ScriptedPlatform& platform) {
  const std::filesystem::path root = std::string(ZELVARO_ROOT) + "/workspace";
  for (const auto& e : std::filesystem::recursive_directory_iterator(root / "src"))
    if (e.is_regular_file()) platform.files[e.path().lexically_relative(root).string()] = fileBytes(e.path());
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> out;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) out.push_back(line);
  return out;
}

TEST_P(Transcripts, RunAsTheFileTells) {
  GoldenFile file = readGolden(GetParam());
  ASSERT_FALSE(file.cases.empty()) << GetParam();
  for (GoldenCase& c : file.cases) {
    Dialogue d;
    d.platform.now.tm_year = 126;
    d.platform.now.tm_mon = 10;
    d.platform.now.tm_mday = 22;
    addSamples(d.platform);
    for (const std::string& block : c.order) {
      if (block.starts_with("file ")) d.platform.files[block.substr(5)] = c.blocks[block];
      if (block == "language") d.platform.japanese = c.blocks[block] == "ja\n";
    }
    const std::string seen = d.run(linesOf(c.blocks["typed"]));
    expectBlock(c, "console", seen + "\n");
    for (const std::string& block : std::vector<std::string>(c.order))
      if (block.starts_with("report ")) expectBlock(c, block, d.platform.files[block.substr(7)]);
  }
  if (rewriting()) writeGolden(file);
}

std::string nameOf(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param.substr(info.param.rfind('/') + 1);
  name.resize(name.rfind('.'));
  return name;
}

INSTANTIATE_TEST_SUITE_P(Golden, Transcripts, ::testing::ValuesIn(goldenFiles("transcripts", ".transcript")),
                         nameOf);

}  // namespace
}  // namespace zelvaro::test
