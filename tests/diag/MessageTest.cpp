// From a row to its words: heads by severity and language, quotes and holes, other families' words, the tallies
// and what they add up to, the log and its replay.
#include <gtest/gtest.h>

#include "diag/ConsoleSink.h"
#include "diag/DiagLog.h"
#include "diag/Heads.h"
#include "diag/MsgBase.h"
#include "diag/Quote.h"
#include "diag/Summaries.h"
#include "support/Recorder.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

constexpr Wording kEn{Language::English, FamilyId::WP}, kJa{Language::Japanese, FamilyId::WP};
constexpr Words kText{"{q}: 一\n二", "{q}: One\ntwo"};

constexpr Message note{"a-note", Severity::Note, Head::QuoteLine, args("q"), {"\n一", "\nOne"}};
constexpr Message leading{
    "a-warning", Severity::Warning, Head::Line, args("quote"), {"{quote}: 一", "{quote}: One"}};
constexpr Message own =
    Message{"own-head", Severity::Error, Head::Line, args("other"), {"一", "One"}}.withHead(
        {.ja = "エラー：{line} と {other}： ", .en = "Error : line={line} and {other} "});
constexpr Message aside =
    Message{"aside", Severity::Error, Head::Line, args(), {"独言", "Aside"}}.uncounted().unlogged();
constexpr Message emptyLine{"empty-line", Severity::Memo, Head::Line, args(),
                            bothLanguages("Up to here\n\nnot again")};
constexpr Message more =
    Message{"more", Severity::Error, Head::None, args(), bothLanguages("More")}.continued();
constexpr Message nothing{"nothing", Severity::Error, Head::Line, args(), bothLanguages("")};
constexpr Message bare{"bare", Severity::Error, Head::None, args("quote"), bothLanguages("{quote}!")};
constexpr Message words{"words", Severity::Notice, Head::Open, args(), bothLanguages("Words")};

consteval Message<1> with(Severity severity, Head head) {
  return {"row", severity, head, args("q"), kText};
}

TEST(Heads, ByHeadSeverityAndLanguage) {
  static constexpr struct {
    Message<1> row;
    std::string_view en, ja;
  } kCases[] = {
      {with(Severity::Error, Head::None), "", ""},
      {with(Severity::Error, Head::Prefix), "Error: ", "エラー： "},
      {with(Severity::Memo, Head::Prefix), "Memo: ", "メモ； "},
      {with(Severity::Warning, Head::Bare), "Warning : ", "警告： "},
      {with(Severity::Error, Head::Line), "Error : line 5: ", "エラー： 5 行目： "},
      {with(Severity::Memo, Head::BreakLine), "\nNote : line 5: ", "\nメモ： 5 行目： "},
      {with(Severity::Note, Head::LineBlank), "Note : line 5 ", "注意： 5 行目： "},
      {with(Severity::Warning, Head::LineBare), "Warning : line 5", "警告： 5 行目： "},
      {with(Severity::Note, Head::QuoteLine), "Note :  \"A{q}\" line 5: ", "注意：  \"A{q}\" 5 行目： "},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(render(diagnostic(c.row, 4, quote(u"A{q}")), kEn),
              std::string(c.en) + " \"A{q}\" : One\ntwo\n");
    EXPECT_EQ(render(diagnostic(c.row, 4, quote(u"A{q}")), kJa), std::string(c.ja) + " \"A{q}\" : 一\n二\n");
  }
  EXPECT_EQ(render(diagnostic(own, 1, 7), kEn), "Error : line=2 and 7 One\n");
  EXPECT_EQ(renderText(diagnostic(bare, 1, quote(u"A")), kEn), " \"A\" !") << "without a head";
  EXPECT_EQ(render(diagnostic(words, Diagnostic::kNoLine), kEn), "Words");
  EXPECT_EQ(ordinal(1) + ordinal(2) + ordinal(3) + ordinal(4) + ordinal(11), "1st2nd3rd4th11th");
}

TEST(Message, OtherFamiliesWordsFallBackByLanguage) {
  static constexpr Message row{
      "row",  Severity::Note, Head::Line,
      args(), {"一", "One"},  {{kNWW, {.ja = {}, .en = "Two"}}, {kNH, {.ja = "三", .en = kNoWords}}}};
  EXPECT_EQ(row.text(FamilyId::NwW, Language::English), "Two");
  EXPECT_EQ(row.text(FamilyId::NwW, Language::Japanese), "一");
  EXPECT_EQ(row.text(FamilyId::AP, Language::English), "One");
  EXPECT_EQ(render(diagnostic(row, 0), {Language::English, FamilyId::NH}), "Note : line 1: \n");
}

TEST(Message, TalliesBySeverityUnlessTheRowSaysNo) {
  test::Recorder sink;
  TMsgBase object(sink);
  object.report(own, 0, 1);
  object.report(leading, 0, "q");
  object.report(note, 0, "q");
  object.report(emptyLine, 0);
  object.report(aside, 0);
  object.say(words);
  object.say(more);
  EXPECT_EQ(sink.taken(), "own-head(1)@1 a-warning(q)@1 a-note(q)@1 empty-line@1 aside@1 words more ");
  EXPECT_TRUE(object.WarningKazu == 1 && object.NoteKazu == 1 && object.MemoKazu == 1);
  SumUpWarnings(object);  // issues nothing where there are Errors
  SumUpErrors(object);
  object.countError();
  SumUpErrors(object);
  object.ErrorKazu = 0;
  SumUpErrors(object);
  SumUpWarnings(object);
  object.WarningKazu = 2;
  SumUpWarnings(object);
  EXPECT_EQ(sink.text,
            "sum-one-error(1) sum-errors(2) sum-one-warning(1) sum-notes sum-notes "
            "sum-warnings(2) sum-notes sum-notes ");
}

TEST(DiagLog, ReplaysTextsWithoutHeadAndLeadingQuoteUpToAnEmptyLine) {
  test::ScriptedPlatform platform;
  Wording wording = kEn;
  ConsoleSink console(platform, wording);
  TDiagLog log;
  DiagChannel channel;
  channel.add(console);
  channel.add(log);
  TMsgBase object(channel);
  object.report(leading, 0, quote(u"A"));
  object.report(more, 0);
  wording = kJa;
  object.report(note, 0, quote(u"A"));
  object.report(aside, 0);
  object.report(own, 1, 7);
  object.report(emptyLine, 0);
  object.report(nothing, 0);
  object.say(words);
  log.writes = false;
  object.report(own, 1, 7);
  EXPECT_EQ(log.ReplayLog(kEn), ": One\nMore\n\nOne\n\nOne\n\nUp to here\n\n\n");
  EXPECT_EQ(log.ReplayLog(kJa), ": 一\nMore\n\n一\n\n一\n\nUp to here\n\n\n");
  EXPECT_EQ(platform.console.substr(0, platform.console.find("独言")),
            "Warning : line 1:  \"A\" : One\nMore\n注意：  \"A\" 1 行目： \n一\nエラー： 1 行目： ");
  log.ClearLog();
  EXPECT_EQ(log.ReplayLog(kEn), "");
}

}  // namespace
}  // namespace zelvaro
