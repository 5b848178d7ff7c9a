// Whole sessions in which something goes wrong: system calls one by one and two in a row, memory, the console.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <iterator>

#include "diag/MsgBase.h"
#include "engine/Engine.h"
#include "faults/Session.h"
#include "platform/Descriptors.h"

namespace zelvaro::test {
namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;

const std::string kIni = "zelvaro.ini";
const std::string kReports[] = {std::string(AssembledRegFile), std::string(ResultantRegFile)};
const std::string kSettings = "[Mode]\nLangStr=ENU\nLangInt=1\nFightFunc=WP\n";
const std::string kSource =
    "P START\n LD GR1,A\n ADDA GR1,B\n OUT TEXT,LENGTH\n RET\n"
    "A DC 3\nB DC 4\nTEXT DC 'sum'\nLENGTH DC 3\n END\n";
/// Assembles, runs, shows and leaves: writes both reports and the settings, and starts an editor where there is one.
constexpr std::string_view kTyped = "\n1\np\n\n2\n\n123\n";

/// A folder in use, with settings that leaving will change, after a byte order mark, and an editor.
const Files kInUse = {
    {"p.txt", kSource},
    {kIni, "\uFEFF" + kSettings + "[Editor]\nTextEditorIndex=1\nTextEditorPath1=/bin/true\n"},
    {kReports[0], "the old report"},
    {kReports[1], "the old result"}};
/// A fresh one with a source so large that its memory comes straight from the system.
const Files kFresh = {{"p.txt", kSource + std::string(std::size_t{1} << 20, ';')}};
/// Settings that are not understood and have to be kept aside, beside those that have been before.
const Files kBroken = {{"p.txt", kSource}, {kIni, "[Mode\n"}, {kIni + ".bak", "the first"}};

bool isWholeIni(const std::string& text) {
  return text.starts_with("[Mode]\nLangStr=") && text.ends_with("TextEditorPath2=\n");
}

std::string fileOf(const Files& files, const std::string& name) {
  const auto at = files.find(name);
  return at == files.end() ? "(none)" : at->second;
}

/// Old file or new one, never half, what was once set aside as it was, and so many temporary files at most.
void expectWhole(const Files& before, const Files& after, const Files& faultless, int temporary = 0) {
  for (const auto& [name, bytes] : after) {
    if (name.ends_with(".tmp") && temporary-- > 0) continue;
    EXPECT_TRUE(bytes == fileOf(before, name) || bytes == fileOf(faultless, name) ||
                (name == kIni && isWholeIni(bytes)))
        << name << ":\n"
        << bytes;
  }
  if (fileOf(after, kIni) != fileOf(before, kIni) && before.count(kIni + ".bak") != 0) {
    EXPECT_EQ(fileOf(after, kIni + ".bak2"), before.at(kIni));
  }
}

class FileFaults : public ::testing::TestWithParam<Files> {
 protected:
  const Files before = GetParam();
  const Outcome faultless = play(before, kTyped);
};

TEST_P(FileFaults, OneFailureOrTwoInARowLeaveOldOrNewAndAreReported) {
  ASSERT_EQ(faultless.status, 0);
  ASSERT_GT(faultless.calls, 30);
  RecordProperty("calls", faultless.calls);
  constexpr int kFallsShort = 0;
  for (const int error : {kFallsShort, EINTR, ENOSPC, EDQUOT, EACCES, EROFS, EMFILE, EIO, ENOMEM}) {
    const auto kind = error == kFallsShort ? Fault::FallsShort : Fault::Fails;
    for (int at = 1; at <= faultless.calls; ++at) {
      for (const int inRow : {1, 2}) {
        SCOPED_TRACE(std::to_string(inRow) + " from call " + std::to_string(at) + ": " +
                     std::strerror(error));
        const Outcome struck = play(before, kTyped, {kind, at, error, inRow});
        EXPECT_EQ(struck.status, 0);
        expectWhole(before, struck.files, faultless.files);
        if (struck.files == faultless.files && struck.console == faultless.console) continue;
        EXPECT_TRUE(error != kFallsShort && error != EINTR) << "these change nothing";
        EXPECT_THAT(struck.console,
                    AnyOf(HasSubstr(std::strerror(error)), HasSubstr("does not open on binary mode"),
                          HasSubstr("not enough memory to read"), HasSubstr("Fail to TGame")));
      }
    }
  }
}

TEST_P(FileFaults, AKillLeavesOldOrNewAndTheNextStartGoesOn) {
  for (const Fault::Kind kind : {Fault::KillsBefore, Fault::KillsHalfway, Fault::KillsAfter}) {
    for (int at = 1; at <= faultless.calls; ++at) {
      SCOPED_TRACE("call " + std::to_string(at) + ", kind " + std::to_string(static_cast<int>(kind)));
      const Outcome killed = play(before, kTyped, {kind, at});
      ASSERT_TRUE(WIFSIGNALED(killed.status) && WTERMSIG(killed.status) == SIGKILL);
      expectWhole(before, killed.files, faultless.files, 1);
      const Outcome next = play(killed.files, kTyped);
      EXPECT_EQ(next.status, 0);
      for (const auto& [name, bytes] : next.files) EXPECT_FALSE(name.ends_with(".tmp")) << name;
      for (const std::string& name : {kReports[0], kReports[1], kIni})
        EXPECT_EQ(fileOf(next.files, name), faultless.files.at(name));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Folders, FileFaults, ::testing::Values(kInUse, kFresh, kBroken));

TEST(Reports, WhatHasAReportsNameIsReportedAndLeftAlone) {
  for (const std::string& report : kReports) {
    Files before = kInUse;
    before.erase(report);
    before[report + "@"] = "../outside";
    const Outcome outcome = play(before, kTyped);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.console,
                HasSubstr(report + " does not open.\nMsg:: It is a link that leads out of this folder\n"));
    EXPECT_EQ(outcome.files.at(report + "@"), "../outside");
    EXPECT_EQ(outcome.files.size(), 4u) << "the other report and the settings are written";
    EXPECT_TRUE(isWholeIni(outcome.files.at(kIni)));
  }
}

TEST(MemoryFaults, ALackEndsARunOrTheProgramButNothingElse) {
  const std::string clean =
      "P START\n IN TEXT,LENGTH\n LD GR1,='A'\n CALL SUB\n RET\n"
      "TEXT DS 256\nLENGTH DS 1\nWORDS DC 3,#00FF,'ab''c',P\n END\n"
      "SUB START\n ADDA GR1,=5\n PUSH 0,GR1\n POP GR2\n RET\n END\n";
  const std::string faulty =
      "P START\n LD GR9,A\n ADDA GR1,NONE\n LAD GR1\n DC 3,\n OUT A\n CALL SUB,\n"
      "a DC 'x\nA DC 99999\nP DS -1\n LD GR1,='''\n RET\n END\nSUB START\n";
  constexpr std::string_view typed = "\n1\np\ntyped\n\n11\ntyped\n\n4\n.\n\n5\np\n\n123\n";
  const auto openDescriptors = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  for (const auto& [language, pipeline, source] : {std::tuple{"ENU", "WP", clean},
                                                   {"JPN", "AP", clean},
                                                   {"JPN", "WP", faulty},
                                                   {"ENU", "AP", faulty},
                                                   {"JPN", "NH", faulty}}) {
    Files files = kInUse;
    files["p.txt"] = source;
    files[kIni] = std::string("[Mode]\nLangStr=") + language + "\nFightFunc=" + pipeline + "\n";
    const Outcome faultless = play(files, typed);
    ASSERT_EQ(faultless.status, 0);
    ASSERT_GT(faultless.allocations, 50);
    const auto descriptors = openDescriptors();
    for (const bool lasts : {false, true}) {
      int backAtTheMenu = 0;
      for (long at = 1; at <= faultless.allocations; ++at) {
        SCOPED_TRACE(pipeline + std::string(lasts ? ", from allocation " : ", allocation ") +
                     std::to_string(at));
        const Outcome struck = play(files, typed, {.allocation = at, .lasts = lasts});
        if (struck.status == 0 && struck.console != faultless.console) {
          EXPECT_THAT(struck.console, AnyOf(HasSubstr("not enough memory"), HasSubstr("メモリが足りない"),
                                            HasSubstr("Cannot allocate memory")));
          ++backAtTheMenu;
        }
        // without its settings the program and its reports are in English
        if (struck.console.find(kIni) == std::string::npos) expectWhole(files, struck.files, faultless.files);
      }
      EXPECT_TRUE(backAtTheMenu > 0 || lasts);
    }
    EXPECT_EQ(openDescriptors(), descriptors);
    EXPECT_EQ(play(files, typed).console, faultless.console) << "nothing is left over";
  }
}

TEST(MemoryFaults, OfTheEngineAreAnOutcomeOrAnException) {
  const std::string source = "P START\n LD GR1,='A'\n IN T,N\n LAD GR9\nT DS 9\nN DC 'x',5\n END\n";
  for (const FamilyId pipeline : {FamilyId::WP, FamilyId::AP, FamilyId::NH}) {
    const engine::Options options{.pipeline = pipeline};
    std::size_t findings = 0;
    const auto whole = [&] { findings = engine::assemble(source, options).findings().size(); };
    const long allocations = callWithout({}, whole);
    ASSERT_GT(allocations, 20);
    ASSERT_GT(findings, 0u);
    int outcomes = 0, exceptions = 0;
    for (const bool lasts : {false, true}) {
      for (long at = 1; at <= allocations; ++at) {
        const auto struck = [&] {
          const engine::Assembled a = engine::assemble(source, options);
          outcomes += a.outcome() == engine::Outcome::NoMemory;
          const std::size_t found = a.findings().size();
          EXPECT_LE(found, findings);
          EXPECT_TRUE(found == findings || a.outcome() == engine::Outcome::NoMemory) << at;
        };
        try {
          callWithout({.allocation = at, .lasts = lasts}, struck);
        } catch (const std::bad_alloc&) {
          ++exceptions;
        }
      }
    }
    EXPECT_GT(outcomes, allocations);
    EXPECT_GT(exceptions, 0);
  }
}

const Files kOfTheConsole = {
    {"r.txt",
     "P START\n IN TEXT,LENGTH\n OUT TEXT,LENGTH\n IN TEXT,LENGTH\n RET\nTEXT DS 256\nLENGTH DS 1\n END\n"},
    {"q.txt", "Q START\n LD GR9,A\n XYZ\n DC 3,\n END\n"},
    {kIni, kSettings}};

TEST(ConsoleFaults, TheInputMayEndAfterAnyByte) {
  // every command but the one that leaves, the mode selector and questions among them, in both languages
  const std::string round =
      "\n1\nr.txt\nfirst\nsecond\n\n2\n\n3\n\n4\n.\n\n5\nr.txt\n\n55\n\n1\nq.txt\n\n9\n10\n\n85\nn\n88\nno\n8\n\n"
      "7\n1\n\n7\n2\n\n11\n\n1\nnone.txt\n\n99\nabc\n\n1\nr\nthird\nfourth\n\n9\n7\n3\n\n11\n\n7\n5\n\n1\nq\n\n";
  const std::string dialogue = round + round + round + round;
  // A prompt that finds the end gives up, and there are few from any place to the end of the program.
  constexpr int kFewPrompts = 12;
  for (std::size_t end = 0; end <= dialogue.size(); ++end) {
    SCOPED_TRACE("after byte " + std::to_string(end));
    const Outcome outcome = play(kOfTheConsole, std::string_view(dialogue).substr(0, end));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.files.at(kIni), kSettings);
    EXPECT_LE(outcome.promptsAtTheEnd, kFewPrompts);
  }
}

TEST(ConsoleFaults, AFullOrClosedOutputStopsNoReportAndALostReaderEndsTheDialogue) {
  Pipe noReader;
  noReader.closeFirst();
  const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
  constexpr int kClosed = -1;
  for (const int output : {full, kClosed, noReader.second}) {
    const Outcome outcome = play(kOfTheConsole, "\n1\nr\nline\nline\n\n123\n", {.output = output});
    EXPECT_EQ(outcome.status, 0);
    const bool goesOn = output != noReader.second;
    for (const std::string& report : kReports) EXPECT_EQ(outcome.files.count(report), goesOn ? 1u : 0u);
    EXPECT_EQ(isWholeIni(outcome.files.at(kIni)), goesOn);
  }
  ::close(full);
}

}  // namespace
}  // namespace zelvaro::test
