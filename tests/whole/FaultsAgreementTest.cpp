// The faulty sources of tests/diagnostics/ draw the same tallies in every pipeline.  Where one is told to
// count otherwise, the table says so.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/Golden.h"
#include "whole/Dialogue.h"

namespace zelvaro::test {
namespace {

using Tallies = std::array<int, 4>;  // Errors, Warnings, Notes, Memos

/// A case that counts otherwise than in WP.
struct Difference {
  std::string_view name;       ///< of the case
  std::string_view pipelines;  ///< the names, each with a blank behind it
  Tallies tallies;
  std::string_view why;
};

constexpr std::string_view kAll = "NWW NaW AP NA NH ";

constexpr Difference kDifferences[] = {
    {"LD", kAll, {2, 0, 0, 0}, "WP alone tells the missing operands of LD ahead of all else, and stops"},
    {"LD GR1,", kAll, {2, 0, 0, 0}, "the same"},
    {"LD GR1,A,,GR2", kAll, {1, 0, 0, 0}, "WP alone tells the double comma besides"},
    {"DC 65535", "AP NH ", {0, 0, 1, 0}, "the words of a DC are made once"},
    {"DC 70000,-40000", "AP NH ", {0, 0, 2, 0}, "the same"},
    {"LAD GR1,70000", "NH ", {0, 0, 2, 0}, "the address pass runs once"},
    {"LAD GR1,-32769", "NH ", {0, 0, 2, 0}, "the same"},
    {"LD GR1,=32768", "NH ", {0, 0, 2, 0}, "a Note for the Warning, and once"},
    {"LD GR1,=-32769", "NH ", {0, 0, 2, 0}, "the same"},
    {"LD GR1,=99999999999", "NH ", {0, 0, 2, 0}, "the same"},
    {"a jump to another program", "NH ", {0, 0, 0, 0}, "no Warning of an external name"},
    {"a register with a comma as an address", "NH ", {1, 0, 0, 0}, "only DC and DS stand behind the RET"},
    {"DS 5 TEXT", "NH ", {0, 0, 0, 1}, "a Memo tells that the text is a comment"},
    {"DS 65035", "NH ", {2, 0, 0, 0}, "the limit of the DC and DS words, and that of all"},
    {"two programs of 40000 words", "NH ", {2, 0, 0, 0}, "the same, of the first program"},
    {"a label alone", "NH ", {0, 0, 2, 0}, "a label may stand alone"},
    {"a comment glued to a label", "NH ", {0, 0, 2, 0}, "the same"},
    {"RPUSH;", "NH ", {1, 0, 0, 0}, "more than 5 characters are refused at once"},
    {"LD　GR1,A", "NH ", {1, 0, 0, 0}, "the same"},
    {"EXIT", "NH ", {0, 0, 1, 0}, "known here"},
};

const Difference* differenceOf(const std::string& name, const std::string& pipeline) {
  const auto at = std::ranges::find_if(kDifferences, [&](const Difference& d) {
    return d.name == name && d.pipelines.find(pipeline + " ") != std::string_view::npos;
  });
  return at == std::end(kDifferences) ? nullptr : at;
}

class FaultyFiles : public ::testing::TestWithParam<std::string> {};

TEST_P(FaultyFiles, CountAlikeInEveryPipeline) {
  GoldenFile file = readGolden(GetParam());
  ASSERT_FALSE(file.cases.empty());
  for (GoldenCase& c : file.cases) {
    if (c.has("pipeline")) continue;  // a case of one pipeline alone
    const std::string& source = c.blocks["source"];
    const Tallies reference = assemble(source, kEnglish).tallies;
    for (const std::string pipeline : {"NWW", "NaW", "AP", "NA", "NH"}) {
      const Difference* told = differenceOf(c.name, pipeline);
      const Tallies expected = told != nullptr ? told->tallies : reference;
      EXPECT_EQ(assemble(source, kEnglish, pipeline).tallies, expected) << c.name << " in " << pipeline;
      EXPECT_TRUE(told == nullptr || expected != reference) << c.name << ": no difference in " << pipeline;
    }
  }
}

/// An entry of START that is another program, and operand texts round the length of the fixed buffers.
TEST(Faults, CountOtherwiseWhereARuleIsAnotherOne) {
  struct Case {
    std::string source;
    std::string faulty;  ///< the pipelines that find Errors; the others find none
  };
  const std::string entry = "A START B\n RET\n END\nB START\n RET\n END\n";
  const auto longText = [](std::size_t size) {
    return "A START\n RET\n DC '" + std::string(size - 2, 'x') + "'\n END\n";
  };
  for (const Case& c : {Case{entry, "AP NA NH"}, Case{longText(225), "NH"}, Case{longText(226), "NWW NaW NH"},
                        Case{longText(250), "NWW NaW NA NH"}, Case{longText(5000), "NWW NaW NA NH"}}) {
    for (const std::string pipeline : {"WP", "NWW", "NaW", "AP", "NA", "NH"}) {
      const int errors = assemble(c.source, kEnglish, pipeline).tallies[0];
      const bool isFaulty = (c.faulty + " ").find(pipeline + " ") != std::string::npos;
      EXPECT_EQ(errors > 0, isFaulty) << pipeline << "\n" << c.source;
    }
  }
}

std::string nameOf(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param.substr(info.param.rfind('/') + 1);
  name.resize(name.rfind('.'));
  return name;
}

INSTANTIATE_TEST_SUITE_P(Golden, FaultyFiles, ::testing::ValuesIn(goldenFiles("diagnostics", ".golden")),
                         nameOf);

}  // namespace
}  // namespace zelvaro::test
