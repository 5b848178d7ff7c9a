// What is found in a source, case by case, in every family.
#include <gtest/gtest.h>

#include "findings/Assembled.h"
#include "findings/Cases.h"

namespace zelvaro::test {
namespace {

TEST(Findings, AreAsTheCasesHaveThemInEveryFamily) {
  const std::vector<Case> cases = allCases();
  EXPECT_GT(cases.size(), 200u);
  for (const Case& c : cases) {
    ASSERT_FALSE(c.expected.empty()) << c.file << ":" << c.lineOfFile;
    for (const Family& family : families()) {
      const Assembled a(family, c.bytes, c.runs);
      const Expectation& expected = c.expectedOf(family);
      const std::string words =
          expected.words.empty() ? "" : a.words(c.line, (expected.words.size() + 1) / 5);
      const std::string found = a.found(c.line, expected.found);
      if (found != expected.found || words != expected.words)
        ADD_FAILURE_AT(c.file.c_str(), c.lineOfFile)
            << family.name << "\nexpected " << expected.found << " | " << expected.words << "\nfound    "
            << found << " | " << words;
    }
  }
}

}  // namespace
}  // namespace zelvaro::test
