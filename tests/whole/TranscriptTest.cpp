// Whole dialogues: the cases of tests/transcripts/*.transcript.  Blocks of a case:
//   file NAME       a file beside the program before it starts; the samples of workspace/src are there too
//   bytes NAME      the same, for what is no text: hexadecimal digits, blanks and line ends between them
//   edit NAME       what the file holds once it has been edited
//   folder NAME     there is a folder of that name (an empty block)
//   unwritable NAME a file of that name cannot be written (an empty block)
//   language        "ja" for a user of a Japanese machine
//   random          the number that a report draws; 0 where the block is missing
//   ticks           microseconds that pass from one look at a clock to the next; 0 where it is missing
//   typed           the lines typed; behind the last one the input ends
//   console         all that is shown, to the letter
//   seen            what a person sees: typed lines behind "> ", programs started in brackets, the banner
//                   and the main menu by name
//   report NAME     a file after the end, report or settings
#include <gtest/gtest.h>

#include <algorithm>
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

std::string fromHex(const std::string& digits) {
  std::string out;
  std::string pair;
  for (const char c : digits) {
    if (c == ' ' || c == '\n') continue;
    pair += c;
    if (pair.size() < 2) continue;
    out += static_cast<char>(std::stoi(pair, nullptr, 16));
    pair.clear();
  }
  return out;
}

void replaceAll(std::string& text, const std::string& what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
    text.replace(at, what.size(), by);
}

/// Puts a name in the place of the longer texts that come again and again; the cases with a block `console`
/// spell them out.
std::string shortened(std::string seen) {
  replaceAll(seen,
             "Zelvaro Assembly Suite  Ver. 4.6.4  \nWin32  R_std::wstring<--UTF16\n\n"
             "Assembler, Linker, and Simulator\n\n\n",
             "<banner>\n");
  struct Menu {
    std::string head, foot;
  };
  for (const Menu& m : {Menu{"\nMenu:\n 1.  Input", "\nInput a menu number.\n"},
                        Menu{"\nメニュー：\n 1.  ファイル名", "\nメニュー番号を入力してください。\n"}}) {
    for (std::size_t at = seen.find(m.head); at != std::string::npos; at = seen.find(m.head, at)) {
      const std::size_t foot = seen.find(m.foot, at);
      const bool isLong = seen.find("10.  ", at) < foot;
      seen.replace(at, foot + m.foot.size() - at, isLong ? "<menu>\n" : "<short menu>\n");
    }
  }
  return seen;
}

void prepare(ScriptedPlatform& platform, const std::string& block, const std::string& text) {
  const std::size_t blank = block.find(' ');
  const std::string kind = block.substr(0, blank);
  const std::string name = blank == std::string::npos ? "" : block.substr(blank + 1);
  if (kind == "file") platform.files[name] = text;
  if (kind == "bytes") platform.files[name] = fromHex(text);
  if (kind == "folder") platform.folders.insert(name);
  if (kind == "unwritable") platform.unwritable.insert(name);
  if (kind == "language") platform.japanese = text == "ja\n";
  if (kind == "ticks") platform.ticksPerCall = std::stoll(text);
  if (kind == "random") platform.random = std::stoi(text);
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
      prepare(d.platform, block, c.blocks[block]);
      if (block.starts_with("edit ")) d.platform.editing[block.substr(5)] = c.blocks[block];
    }
    const std::string shown = d.run(linesOf(c.blocks["typed"]));
    ASSERT_TRUE(c.has("console") || c.has("seen")) << c.name;
    if (c.has("console")) expectBlock(c, "console", shown + "\n");
    if (c.has("seen")) expectBlock(c, "seen", shortened(d.platform.seen));
    EXPECT_TRUE(d.platform.typed.empty()) << c.name << ": lines were left over";
    for (const std::string& block : std::vector<std::string>(c.order))
      if (block.starts_with("report ")) expectBlock(c, block, d.platform.files[block.substr(7)]);
  }
  if (rewriting()) writeGolden(file);
}

std::string nameOf(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param.substr(info.param.rfind('/') + 1);
  name.resize(name.rfind('.'));
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Golden, Transcripts, ::testing::ValuesIn(goldenFiles("transcripts", ".transcript")),
                         nameOf);

}  // namespace
}  // namespace zelvaro::test
