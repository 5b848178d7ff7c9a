// Every row of the catalogue, in both languages and for every family: its holes fill, and nothing of them is left.
#include <fmt/args.h>
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <set>

#include "diag/Message.h"
#include "whole/Dialogue.h"

namespace zelvaro {
namespace {

constexpr FamilyId kFamilies[] = {FamilyId::WP, FamilyId::NWW, FamilyId::AP, FamilyId::NA, FamilyId::NH};

std::string filled(const Message& row, std::string_view text) {
  fmt::dynamic_format_arg_store<fmt::format_context> values;
  for (std::size_t i = 0; i < row.argNames.count; ++i)
    values.push_back(fmt::arg(row.argNames.name[i], std::string("<") + row.argNames.name[i] + ">"));
  values.push_back(fmt::arg("line", 7));
  return fmt::vformat(text, values);
}

TEST(Catalogue, EveryRowPrintsInBothLanguagesForEveryFamily) {
  test::Dialogue().run({});  // links the whole program, and with it every row
  std::set<const Message*> rows;
  for (const Catalogue::Entry* e = Catalogue::first(); e != nullptr; e = e->next) rows.insert(e->row);
  EXPECT_GT(rows.size(), 200u);
  for (const Message* row : rows) {
    std::set<std::string_view> names;
    for (std::size_t i = 0; i < row->argNames.count; ++i)
      EXPECT_TRUE(names.insert(row->argNames.name[i]).second) << row->words.en;
    for (const FamilyId family : kFamilies) {
      for (const int lang : {kJapanese, kEnglish}) {
        const std::string text = filled(*row, row->text(family, lang));
        EXPECT_FALSE(text.empty()) << row->words.en;
        EXPECT_EQ(text.find_first_of("{}"), std::string::npos) << text;
        // the channel ends the last line; a text of its own may end in one line break more, not in two
        EXPECT_FALSE(row->head != Head::None && text.ends_with("\n\n")) << text;
      }
    }
  }
}

}  // namespace
}  // namespace zelvaro
