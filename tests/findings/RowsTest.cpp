// Every row of the catalogue: its code, its words, and that some test issues it.
#include <gtest/gtest.h>

#include <set>

#include "engine/Catalogue.h"
#include "findings/Assembled.h"
#include "findings/Cases.h"
#include "shell/ShellRows.h"

namespace zelvaro::test {
namespace {

RowList everyRow() {
  RowList all = allRows();
  for (const MessageRow* row : shellRows()) all.push_back(row);
  return all;
}

TEST(Rows, HaveUniqueCodesAndPrintInBothLanguagesForEveryFamily) {
  std::set<std::string_view> codes;
  for (const MessageRow* row : everyRow()) {
    EXPECT_TRUE(codes.insert(row->code).second) << row->code << " occurs twice";
    std::set<std::string_view> names;
    Diagnostic d{row, 6, {}};
    for (std::size_t i = 0; i < row->argCount; ++i) {
      EXPECT_TRUE(names.insert(row->argName[i]).second) << row->code << ": " << row->argName[i];
      d.args.emplace_back(std::string("<") + row->argName[i] + ">");
    }
    for (const Family& family : families())
      for (const Language language : {Language::Japanese, Language::English}) {
        const std::string text = render(d, {language, family.id});
        EXPECT_FALSE(text.empty()) << row->code;
        EXPECT_EQ(text.find_first_of("{}"), text.npos) << row->code << ": " << text;
        // the renderer ends the last line; words of their own may end in one line break more, not in two
        EXPECT_FALSE(row->head != Head::Open && text.ends_with("\n\n\n")) << row->code;
      }
  }
  EXPECT_GT(codes.size(), 200u);
}

TEST(Rows, AreIssuedByACaseOrByTheirStageAlone) {
  std::set<std::string_view> issued;
  for (const Case& c : allCases())
    for (const Family& family : families()) {
      const Assembled a(family, c.bytes, c.runs);
      for (const Diagnostic& d : a.recorder.issued) issued.insert(d.row->code);
    }
  for (const MessageRow* row : allRows()) EXPECT_TRUE(issued.contains(row->code)) << row->code;
}

}  // namespace
}  // namespace zelvaro::test
