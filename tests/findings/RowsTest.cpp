// Every row of the catalogue: its code, its words, and that some test issues it.
#include <gtest/gtest.h>

#include <set>

#include "engine/Catalogue.h"
#include "findings/Assembled.h"
#include "findings/Cases.h"
#include "shell/ShellRows.h"
#include "whole/Dialogue.h"

namespace zelvaro::test {
namespace {

using Codes = std::set<std::string_view>;

RowList everyRow() {
  RowList all = allRows();
  for (const MessageRow* row : shellRows()) all.push_back(row);
  return all;
}

TEST(Rows, HaveUniqueCodesAndPrintInBothLanguagesForEveryFamily) {
  Codes codes;
  for (const MessageRow* row : everyRow()) {
    EXPECT_TRUE(codes.insert(row->code).second) << row->code << " occurs twice";
    Codes names;
    Diagnostic d{row, 6, {}};
    for (std::size_t i = 0; i < row->argCount; ++i) {
      EXPECT_TRUE(names.insert(row->argName[i]).second) << row->code << ": " << row->argName[i];
      d.args.emplace_back(std::string("<") + row->argName[i] + ">");
    }
    for (const Family& family : families()) {
      const std::string ja = render(d, {Language::Japanese, family.id});
      const std::string en = render(d, {Language::English, family.id});
      EXPECT_NE(ja + en, "") << row->code;
      EXPECT_EQ((ja + en).find_first_of("{}"), std::string::npos) << row->code << ": " << ja << en;
    }
  }
  EXPECT_GT(codes.size(), 200u);
}

/// What no source and no typed line reaches, since an earlier check refuses it: guards of the stages against one
/// another.
const Codes kGuards{
};
/// Words that are part of a longer text and are not issued.
const Codes kParts{"report-date", "self-no-frequency", "self-clock-unknown"};

/// Typed lines that make the shell, a run and the loaders say the rest.
Recorder sessions() {
  Recorder all;
  const auto play = [&](const std::string& source, const std::vector<std::string>& typed,
                        const std::string& settings = "") {
    for (const std::string family : {"WP", "NaW", "AP", "NH"}) {
      Dialogue d;
      d.alsoTakes = &all;
      d.platform.files["a.txt"] = source;
      d.platform.files["zelvaro.ini"] = "[Mode]\nLangStr=ENU\nFightFunc=" + family + "\n" + settings;
      d.run(typed);
    }
  };
  play("A START\n FOO\n END\n", {"", "1", "a.txt", "", ""});
  play("A START\n LD GR1\n END\n", {"", "1", "a.txt", "", "1", "b.txt"}, "SimpleTitleIndex=1\n");
  play("A START\n SVC 1\n RET\n DC 1,\n END\n", {"", "1", "a.txt", "1", "\xFF\x81", ""});
  play("A START\n SVC 1\n END\nB START\n RET\n END\n", {"", "1", "a.txt", "2"}, "[Editor]\nTextEditorIndex=7\n");
  return all;
}

TEST(Rows, AreIssuedByACaseOrASessionOrAreNamedAsGuards) {
  Codes issued;
  for (const Case& c : allCases())
    for (const Family& family : families())
      for (const Diagnostic& d : Assembled(family, c.bytes, c.runs).recorder.issued) issued.insert(d.row->code);
  for (const Diagnostic& d : sessions().issued) issued.insert(d.row->code);
  for (const MessageRow* row : allRows())
    EXPECT_NE(issued.contains(row->code), kGuards.contains(row->code) || kParts.contains(row->code))
        << row->code << (issued.contains(row->code) ? " is issued" : " is issued nowhere");
}

}  // namespace
}  // namespace zelvaro::test
