// Whole dialogues: every case of the .transcript files shows, to the letter, what its file tells.
#include <gtest/gtest.h>

#include <algorithm>

#include "whole/Transcript.h"

namespace zelvaro::test {
namespace {

class Transcripts : public ::testing::TestWithParam<std::string> {};

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

TEST_P(Transcripts, RunAsTheFileTells) {
  GoldenFile file = readGolden(GetParam());
  ASSERT_FALSE(file.cases.empty()) << GetParam();
  for (GoldenCase& c : file.cases) {
    const std::unique_ptr<Dialogue> d = play(c);
    ASSERT_TRUE(c.has("console") || c.has("seen")) << c.name;
    if (c.has("console")) expectBlock(c, "console", d->platform.console + "\n");
    if (c.has("seen")) expectBlock(c, "seen", shortened(d->platform.seen));
    EXPECT_TRUE(d->platform.typed.empty()) << c.name << ": lines were left over";
    for (const std::string& block : std::vector<std::string>(c.order))
      if (block.starts_with("report ")) expectBlock(c, block, d->platform.files[block.substr(7)]);
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
