// The catalogue's rows: heads by severity, tallies, replay, other families' words.
#include <gtest/gtest.h>

#include "diag/Heads.h"
#include "diag/Message.h"
#include "diag/MsgBase.h"
#include "diag/Quote.h"
#include "support/ScriptedPlatform.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;

constexpr Message plainLine{Severity::Error,
                            Head::Line,
                            args("count"),
                            {.ja = "{count} 文字ある。", .en = "There are {count}."},
                            {{families(FamilyId::NWW), {.ja = {}, .en = "It has {count}."}}}};
constexpr Message quoted{Severity::Warning,
                         Head::Line,
                         args("quote"),
                         {.ja = "{quote}: 悪い。\n直す。", .en = "{quote}: Bad.\nMend it."}};
constexpr Message quotedHead{
    Severity::Note, Head::QuoteLine, args("quote"), {.ja = "\n第一", .en = "\nFirst"}};
constexpr Message aside =
    Message{Severity::Error, Head::LineBlank, args(), {.ja = "独言", .en = "Aside"}}.uncounted().unlogged();
constexpr Message withEmptyLine{Severity::Error, Head::Line, args(),
                                bothLanguages("Up to here\n\nnot shown again")};
constexpr Message ownHead =
    Message{Severity::Error, Head::Line, args("other"), {.ja = "同じ", .en = "The same"}}.withHead(
        {.ja = "エラー：{line} と {other}： ", .en = "Error : line={line} and {other} "});

class MessageTest : public ::testing::Test {
 protected:
  test::ScriptedPlatform platform;
  TDiagLog log;
  TMsgBase object{platform, log};
  std::string printed() {
    std::string out;
    out.swap(platform.console);
    return out;
  }
};

TEST(Heads, BySeverityAndLanguage) {
  struct Case {
    Severity severity;
    std::string_view headEn, headJa, prefixEn, prefixJa;
  };
  for (const Case& c : {Case{Severity::Error, "Error : ", "エラー： ", "Error: ", "エラー： "},
                        Case{Severity::Warning, "Warning : ", "警告： ", "Warning: ", "警告： "},
                        Case{Severity::Note, "Note : ", "注意： ", "Note: ", "注意： "},
                        Case{Severity::Memo, "Note : ", "メモ： ", "Memo: ", "メモ； "},
                        Case{Severity::Plain, "", "", "", ""}}) {
    EXPECT_EQ(severityHead(c.severity, kEnglish), c.headEn);
    EXPECT_EQ(severityHead(c.severity, kJapanese), c.headJa);
    EXPECT_EQ(logPrefix(c.severity, kEnglish), c.prefixEn);
    EXPECT_EQ(logPrefix(c.severity, kJapanese), c.prefixJa);
  }
}

TEST(Ordinal, HasItsOwnEndingUpToThree) {
  EXPECT_EQ(ordinal(1) + ordinal(2) + ordinal(3) + ordinal(4) + ordinal(11), "1st2nd3rd4th11th");
}

TEST_F(MessageTest, CountsBySeverityUnlessTheRowSaysNo) {
  object.report<WP, plainLine>(0, 1);
  object.report<WP, quoted>(0, "q");
  object.report<WP, quotedHead>(0, "q");
  object.report<WP, aside>(0);
  EXPECT_EQ(object.ErrorKazu, 1);
  EXPECT_EQ(object.WarningKazu, 1);
  EXPECT_EQ(object.NoteKazu, 1);
}

TEST_F(MessageTest, ReplayLeavesOutHeadAndLeadingQuote) {
  object.report<WP, quoted>(0, quote(u"A"));
  object.report<WP, quotedHead>(0, quote(u"A"));
  object.report<WP, aside>(0);
  object.report<WP, ownHead>(1, 7);
  object.report<WP, withEmptyLine>(0);
  printed();
  log.ReplayLog(platform);
  EXPECT_EQ(printed(), ": Bad.\nMend it.\n\nFirst\n\nThe same\n\nUp to here\n\n");
}

TEST_F(MessageTest, OtherFamiliesWordsFallBackByLanguage) {
  EXPECT_EQ(plainLine.text(FamilyId::NWW, kEnglish), "It has {count}.");
  EXPECT_EQ(plainLine.text(FamilyId::NWW, kJapanese), "{count} 文字ある。");
  EXPECT_EQ(plainLine.text(FamilyId::AP, kEnglish), "There are {count}.");
}

TEST_F(MessageTest, BracesInAQuotedTextAreNoHoles) {
  object.report<WP, quoted>(0, quote(u"{count}{"));
  EXPECT_EQ(printed(), "Warning : line 1:  \"{count}{\" : Bad.\nMend it.\n");
}

}  // namespace
}  // namespace zelvaro
