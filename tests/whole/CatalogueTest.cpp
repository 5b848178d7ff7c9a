// Every row of the catalogue: its words in both languages and for every family, and that it is issued in each
// language, by a case of the golden files or, where no source reaches it, by its stage alone.
#include <fmt/args.h>
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include "comet2/Guards.h"
#include "data/DC.h"
#include "encode/AdrConst.h"
#include "link/Link.h"
#include "macro/Macro.h"
#include "shell/Settings.h"
#include "shell/UserCommands.h"
#include "structure/Structure.h"
#include "structure/ZenKaku.h"
#include "support/SourceLines.h"
#include "whole/Transcript.h"

namespace zelvaro::test {
namespace {

constexpr FamilyId kFamilies[] = {FamilyId::WP, FamilyId::NWW, FamilyId::AP, FamilyId::NA, FamilyId::NH};

std::string filled(const Message& row, std::string_view text) {
  fmt::dynamic_format_arg_store<fmt::format_context> values;
  for (std::size_t i = 0; i < row.argNames.count; ++i)
    values.push_back(fmt::arg(row.argNames.name[i], std::string("<") + row.argNames.name[i] + ">"));
  values.push_back(fmt::arg("line", 7));
  return fmt::vformat(text, values);
}

/// Every row, and the languages in which it has been issued in this process.
std::map<const Message*, std::set<int>> catalogue() {
  std::map<const Message*, std::set<int>> rows;
  for (const Catalogue::Entry* e = Catalogue::first(); e != nullptr; e = e->next) {
    std::set<int>& languages = rows[e->row];
    if (e->fired[kJapanese]) languages.insert(kJapanese);
    if (e->fired[kEnglish]) languages.insert(kEnglish);
  }
  return rows;
}

TEST(Catalogue, EveryRowPrintsInBothLanguagesForEveryFamily) {
  Dialogue().run({});  // links the whole program, and with it every row
  EXPECT_GT(catalogue().size(), 200u);
  for (const auto& [row, languages] : catalogue()) {
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

/// Hands a line of a program to a stage, in every family.  Returns what is printed, the same words once.
template <class Stage>
std::string onLine(const std::string& text, int lang, Stage stage) {
  std::string all;
  const auto in = [&]<class Family>(Family) {
    SourceLines<Family> s(text + "\n END\n", lang);
    stage(s, s.line(s.line(0).LabelStr.empty() ? 0 : 1));
    if (all.find(s.platform.console) == std::string::npos) all += s.platform.console;
  };
  in(WP{});
  in(NWW{});
  in(AP{});
  in(NA{});
  in(NH{});
  return all;
}

/// A row that no source and no dialogue reaches, since another check comes first: its stage issues it when
/// it is handed what that check would have refused.  The words stand in guards.golden.
struct Guard {
  std::string why;
  std::string (*issue)(int lang);
};

#define ON_LINE(text, call)                                                                               \
  [](int lang) {                                                                                          \
    return onLine(text, lang, []<class F>(SourceLines<F>& s, [[maybe_unused]] SrcOf<F>& line) { call; }); \
  }
const Guard kGuards[] = {
    {"the opcode check knows every line that has an opcode", ON_LINE("A START\n QUUX", AdrCk53<F>(s.a, 0))},
    {"the dispatch sends IN and OUT only", ON_LINE("A START\n LD A,B", macro2<F>(s.a, line))},
    {"the dispatch sends RPUSH and RPOP only", ON_LINE("A START\n LD A,B", macroR2<F>(s.a, line))},
    {"address3_ck tells the missing operand", ON_LINE("A START\n IN", InOut1<F>(s.a, line))},
    {"the encoders of one operand ask for it", ON_LINE("A START\n JUMP", CkAdrOperand<F>(s.a, line, 1))},
    {"no address is a third operand", ON_LINE("A START\n LD", CkAdrOperand<F>(s.a, line, 3))},
    {"OprndAtDCtoChH refuses a constant without characters",
     ON_LINE("A START\n DC ''", (TakeOutOprndsAtDC10<F>(s.a, line), SetMryInAtDC<F>(s.a, 0)))},
    {"CkLiteral15 looks at the digits of a literal",
     ON_LINE("A START\n LD", CkHexConstG<F>(s.cs, 0, 0, s.keep("#12G4")))},
    {"CkLiteral15 counts the digits of a literal",
     ON_LINE("A START\n LD", CkHexConstG<F>(s.cs, 0, 0, s.keep("#12345")))},
    {"StartEnd refuses a START without a label", ON_LINE(" START", CkPrgName<F>(s.a, 0))},
    {"looked for where the letters END stand nowhere", ON_LINE("A START\nEND　", DetENDatZenKakuSpace<F>(s.a))},
    {"the same, in front", ON_LINE("A START\n　END", DetENDatZenKakuSpace<F>(s.a))},
    {"CkAdrConst22 tells it in a row of its own",
     ON_LINE("A START\n LD", DetNonLabelMoziPos<F>(s.cs, 0, s.keep("A_B"), true))},
    {"CkMaxMrySize refuses the file",
     [](int lang) {
       SourceLines<NH> s("A START\n DS 3500\n END\n", lang);
       s.line(1).word_kazu = MaxMemory + 1;
       Link31<NH>(s.a, *std::make_unique<Tcomet2>());
       return s.printed();
     }},
};
#undef ON_LINE

/// Refuses what the menu asks of it, for the reason that is set.
class RefusingPlatform : public ScriptedPlatform {
 public:
  FileFailure::Kind kind = FileFailure::Kind::Missing;
  EditResult::Status edited = EditResult::Status::Refused;
  bool deletes = false;
  std::optional<std::string> folderListing(const std::string&, FileFailure*) override { return std::nullopt; }
  bool deleteFile(const std::string&, FileFailure*) override { return deletes; }
  EditResult editFile(const EditorCommand&, const std::string&) override { return {edited, {}, {}}; }
  bool openOnDesktop(const std::string&) override { return false; }
  std::optional<std::string> readFile(const std::string& path, FileFailure* failure,
                                      std::size_t most) override {
    if (files.count(path) != 0) return ScriptedPlatform::readFile(path, failure, most);
    *failure = {kind, "reason"};
    return std::nullopt;
  }
  std::unique_ptr<OutputFile> createFile(const std::string&, FileFailure*, FileWriting) override {
    return {};
  }
};

/// What is printed where the system refuses something.
void playRefusals(int lang) {
  RefusingPlatform platform;
  TSession s(platform);
  platform.files = {{"f", std::string("\0", 1)}};
  listFolder(platform, lang, "f");
  showFile(platform, lang, {}, "none");
  openDocument(platform, lang, "none");
  openDocument(platform, lang, "f");
  for (const auto status : {EditResult::Status::NotStarted, EditResult::Status::Refused}) {
    platform.edited = status;
    editFile(platform, lang, {}, "f");
  }
  deleteAfterQuestion(platform, lang, "none");
  for (const char* answer : {"n", "y", "y"}) {
    platform.typed = {answer};
    deleteAfterQuestion(platform, lang, "f");
    platform.deletes = answer == std::string("y");
  }
  using Kind = FileFailure::Kind;
  for (const Kind kind : {Kind::Missing, Kind::Folder, Kind::NotRegular, Kind::TooLarge, Kind::NoMemory}) {
    platform.kind = kind;
    s.setLanguage(lang);
    tellRefusal(s.sh, "f", {kind, "reason"});
    ReadIni(s, "none");
  }
  platform.files["broken"] = "[";
  ReadIni(s, "broken");
  s.m.IsEnglish = lang;
  for (const Stop stop : {Stop::InputEnded, Stop::NobodyThere}) tellStop<WP>(stop, s.m, platform);
}

auto rowsNotIssued(int lang) {
  return std::ranges::count_if(catalogue(), [lang](const auto& e) { return !e.second.contains(lang); });
}

/// The words of all these cases are compared by the tests of their files.
void playGoldenFiles() {
  for (const std::string& path : goldenFiles("diagnostics", ".golden")) {
    GoldenFile file = readGolden(path);
    for (GoldenCase& c : file.cases) {
      std::string pipeline = c.has("pipeline") ? c.blocks["pipeline"] : "WP\n";
      pipeline.pop_back();
      for (const int lang : {kJapanese, kEnglish}) assemble(c.blocks["source"], lang, pipeline);
    }
  }
  for (const std::string& path : goldenFiles("transcripts", ".transcript")) {
    const GoldenFile file = readGolden(path);
    for (const GoldenCase& c : file.cases) play(c);
  }
}

TEST(Catalogue, EveryRowIsIssuedInEachLanguage) {
  playGoldenFiles();
  RecordProperty("rows", static_cast<int>(catalogue().size()));
  GoldenFile guards = readGolden(std::string(ZELVARO_ROOT) + "/tests/whole/guards.golden");
  if (rewriting()) guards.cases.clear();
  guards.cases.resize(std::size(kGuards));
  for (const int lang : {kJapanese, kEnglish}) {
    // too long for a file of cases; its words are compared in source/OpenFileChHTest.cpp
    assemble("A START\n" + std::string(310, '\n') + " END\n", lang, "NH");
    playRefusals(lang);
    GoldenCase* told = guards.cases.data();
    for (const Guard& g : kGuards) {
      const auto before = rowsNotIssued(lang);
      if (rewriting()) told->name = g.why;
      EXPECT_EQ(told->name, g.why);
      expectBlock(*told++, lang == kEnglish ? "en" : "ja", g.issue(lang));
      EXPECT_LT(rowsNotIssued(lang), before) << "no row of its own: " << g.why;
    }
    for (const auto& [row, languages] : catalogue())
      EXPECT_TRUE(languages.contains(lang)) << "language " << lang << ": " << row->words.en;
  }
  if (rewriting()) writeGolden(guards);
}

}  // namespace
}  // namespace zelvaro::test
