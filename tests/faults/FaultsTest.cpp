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
#include "faults/Session.h"
#include "platform/Descriptors.h"

namespace zelvaro::test {
namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;

const std::string kIni = "zelvaro.ini";
const std::string kReports[] = {std::string(AssembledRegFile), std::string(ResultantRegFile)};
const std::string kSettings = "[Mode]\nLangStr=ENU\nLangInt=1\nFightFunc=WP\n";
const std::string kEditor = "[Editor]\nTextEditorIndex=1\nTextEditorPath1=/bin/true\n";

const std::string kSource =
    "P START\n LD GR1,A\n ADDA GR1,B\n OUT TEXT,LENGTH\n RET\n"
    "A DC 3\nB DC 4\nTEXT DC 'sum'\nLENGTH DC 3\n END\n";
/// Assembles, runs, shows and leaves: writes both reports and the settings, and starts an editor where there is one.
constexpr std::string_view kTyped = "\n1\np\n\n2\n\n123\n";

/// A folder in use: old reports, and settings that leaving will change.
Files inUse() {
  return {{"p.txt", kSource},
          {kIni, kSettings + kEditor},
          {kReports[0], "the old report"},
          {kReports[1], "the old result"}};
}
/// A fresh one with a source so large that its memory comes straight from the system.
Files fresh() {
  return {{"p.txt", kSource + std::string(std::size_t{1} << 20, ';')}};
}
/// Settings that are not understood and have to be kept aside, beside those that have been before.
Files broken() {
  return {{"p.txt", kSource}, {kIni, "[Mode\n"}, {kIni + ".bak", "the first"}};
}

bool isWholeIni(const std::string& text) {
  return text.starts_with("[Mode]\nLangStr=") && text.ends_with("TextEditorPath2=\n");
}

std::string fileOf(const Files& files, const std::string& name) {
  const auto at = files.find(name);
  return at == files.end() ? "(none)" : at->second;
}

/// Old file or new one, never half, and what was once set aside as it was.
void expectWhole(const Files& before, const Files& after, const Files& faultless) {
  for (const auto& [name, bytes] : after) {
    if (name.ends_with(".tmp")) continue;
    EXPECT_TRUE(bytes == fileOf(before, name) || bytes == fileOf(faultless, name) ||
                (name == kIni && isWholeIni(bytes)))
        << name << ":\n"
        << bytes;
  }
  if (fileOf(after, kIni) != fileOf(before, kIni) && before.count(kIni + ".bak") != 0) {
    EXPECT_EQ(fileOf(after, kIni + ".bak2"), before.at(kIni));
  }
}

std::size_t temporaryFiles(const Files& files) {
  std::size_t out = 0;
  for (const auto& [name, bytes] : files) out += name.ends_with(".tmp") ? 1 : 0;
  return out;
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
  for (const int error : {ENOSPC, EDQUOT, EACCES, EROFS, EMFILE, EIO, ENOMEM}) {
    for (int at = 1; at <= faultless.calls; ++at) {
      for (const int inRow : {1, 2}) {
        SCOPED_TRACE(std::to_string(inRow) + " from call " + std::to_string(at) + ": " +
                     std::strerror(error));
        const Outcome struck = play(before, kTyped, {Fault::Fails, at, error, inRow});
        EXPECT_EQ(struck.status, 0);
        EXPECT_EQ(temporaryFiles(struck.files), 0u);
        expectWhole(before, struck.files, faultless.files);
        if (struck.files != faultless.files || struck.console != faultless.console) {
          EXPECT_THAT(struck.console,
                      AnyOf(HasSubstr(std::strerror(error)), HasSubstr("does not open on binary mode"),
                            HasSubstr("not enough memory to read"), HasSubstr("Fail to TGame")));
        }
      }
    }
  }
}

TEST_P(FileFaults, AnInterruptionOrAShortWriteChangesNothing) {
  for (const Fault fault : {Fault{.kind = Fault::Fails, .error = EINTR}, Fault{.kind = Fault::FallsShort}}) {
    for (int at = 1; at <= faultless.calls; ++at) {
      SCOPED_TRACE("call " + std::to_string(at) + (fault.error != 0 ? " interrupted" : " short"));
      const Outcome struck = play(before, kTyped, {fault.kind, at, fault.error});
      EXPECT_EQ(struck.status, 0);
      // getcwd, mmap and the start of a program are never interrupted; a failure is reported as any other
      const auto reported = [&](const char* words) {
        return struck.console.find(words) != std::string::npos;
      };
      if (reported("Interrupted") || reported("Fail to") || reported("not enough memory")) continue;
      EXPECT_EQ(struck.console, faultless.console);
      EXPECT_EQ(struck.files, faultless.files);
    }
  }
}

TEST_P(FileFaults, AKillLeavesOldOrNewAndTheNextStartGoesOn) {
  for (const Fault::Kind kind : {Fault::KillsBefore, Fault::KillsHalfway, Fault::KillsAfter}) {
    for (int at = 1; at <= faultless.calls; ++at) {
      SCOPED_TRACE("call " + std::to_string(at) + ", kind " + std::to_string(static_cast<int>(kind)));
      const Outcome killed = playInChild(before, kTyped, {kind, at});
      ASSERT_TRUE(WIFSIGNALED(killed.status) && WTERMSIG(killed.status) == SIGKILL);
      EXPECT_LE(temporaryFiles(killed.files), 1u);
      expectWhole(before, killed.files, faultless.files);
      const Outcome next = play(killed.files, kTyped);
      EXPECT_EQ(next.status, 0);
      EXPECT_EQ(temporaryFiles(next.files), 0u) << "the next write of a target removes what is left over";
      for (const std::string& name : {kReports[0], kReports[1], kIni})
        EXPECT_EQ(fileOf(next.files, name), faultless.files.at(name));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Folders, FileFaults, ::testing::Values(inUse(), fresh(), broken()));

TEST(Reports, WhatHasAReportsNameIsReportedAndLeftAlone) {
  const std::pair<std::string, std::string> rows[] = {{"/", "Is a directory"},
                                                      {"@", "It is a link that leads out of this folder"}};
  for (const std::string& report : kReports) {
    for (const auto& [kind, reason] : rows) {
      Files before = inUse();
      before.erase(report);
      before[report + kind] = kind == "@" ? "../outside" : "";
      const Outcome outcome = play(before, kTyped);
      EXPECT_EQ(outcome.status, 0);
      EXPECT_THAT(outcome.console, HasSubstr(report + " does not open.\nMsg:: " + reason +
                                             "\nPrg. Error: 70D5A3E1 DspRegMry70NW\n"));
      EXPECT_EQ(outcome.files.at(report + kind), before.at(report + kind));
      EXPECT_EQ(outcome.files.size(), 4u) << "the other report and the settings are written";
      EXPECT_TRUE(isWholeIni(outcome.files.at(kIni)));
    }
  }
}

// --- memory ---

const std::string kClean =
    "P START\n IN TEXT,LENGTH\n LD GR1,='A'\n CALL SUB\n RET\n"
    "TEXT DS 256\nLENGTH DS 1\nWORDS DC 3,#00FF,'ab''c',P\n END\n"
    "SUB START\n ADDA GR1,=5\n PUSH 0,GR1\n POP GR2\n RET\n END\n";
const std::string kFaulty =
    "P START\n LD GR9,A\n ADDA GR1,NONE\n LAD GR1\n DC 3,\n OUT A\n CALL SUB,\n"
    "a DC 'x\nA DC 99999\nP DS -1\n LD GR1,='''\n RET\n END\nSUB START\n";

TEST(MemoryFaults, ALackEndsARunOrTheProgramButNothingElse) {
  constexpr std::string_view typed = "\n1\np\ntyped\n\n11\ntyped\n\n4\n.\n\n5\np\n\n123\n";
  const std::tuple<const char*, const char*, std::string> sessions[] = {{"ENU", "WP", kClean},
                                                                        {"JPN", "AP", kClean},
                                                                        {"JPN", "WP", kFaulty},
                                                                        {"ENU", "AP", kFaulty},
                                                                        {"JPN", "NH", kFaulty}};
  const auto openDescriptors = [] {
    namespace fs = std::filesystem;
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
  };
  for (const auto& [language, pipeline, source] : sessions) {
    Files files = inUse();
    files["p.txt"] = source;
    files[kIni] = std::string("[Mode]\nLangStr=") + language + "\nFightFunc=" + pipeline + "\n";
    const Outcome faultless = play(files, typed);
    ASSERT_EQ(faultless.status, 0);
    ASSERT_GT(faultless.allocations, 50);
    const auto descriptors = openDescriptors();
    for (const bool lasts : {false, true}) {
      long backAtTheMenu = 0;
      for (long at = 1; at <= faultless.allocations; ++at) {
        SCOPED_TRACE(std::string(pipeline) + ", allocation " + std::to_string(at) +
                     (lasts ? " and later" : ""));
        const Outcome struck = play(files, typed, {.allocation = at, .lasts = lasts});
        if (struck.status == 0 && struck.console != faultless.console) {
          EXPECT_THAT(struck.console, AnyOf(HasSubstr("not enough memory"), HasSubstr("メモリが足りない"),
                                            HasSubstr("Cannot allocate memory")));
          ++backAtTheMenu;
        }
        // without its settings the program speaks English, and so do its reports
        if (struck.console.find(kIni) == std::string::npos) expectWhole(files, struck.files, faultless.files);
      }
      EXPECT_TRUE(backAtTheMenu > 0 || lasts);
    }
    EXPECT_EQ(openDescriptors(), descriptors);
    EXPECT_EQ(play(files, typed).console, faultless.console) << "nothing is left over";
  }
}

// --- the console ---

/// Every command but the one that leaves, the mode selector and questions among them, in both languages.
constexpr std::string_view kRound =
    "\n1\nr.txt\nfirst\nsecond\n\n2\n\n3\n\n4\n.\n\n5\nr.txt\n\n55\n\n1\nq.txt\n\n9\n10\n\n85\nn\n88\nno\n8\n\n"
    "7\n1\n\n7\n2\n\n11\n\n1\nnone.txt\n\n99\nabc\n\n1\nr\nthird\nfourth\n\n9\n7\n3\n\n11\n\n7\n5\n\n1\nq\n\n";

Files ofTheConsole() {
  return {
      {"r.txt",
       "P START\n IN TEXT,LENGTH\n OUT TEXT,LENGTH\n IN TEXT,LENGTH\n RET\nTEXT DS 256\nLENGTH DS 1\n END\n"},
      {"q.txt", "Q START\n LD GR9,A\n XYZ\n DC 3,\n END\n"},
      {kIni, kSettings}};
}

TEST(ConsoleFaults, TheInputMayEndAfterAnyByte) {
  std::string dialogue;
  for (int round = 0; round < 4; ++round) dialogue += kRound;
  RecordProperty("bytes", static_cast<int>(dialogue.size()));
  // A read that finds the end comes once for each prompt that gives up, of which there are few.
  constexpr int kFewCalls = 12;
  for (std::size_t end = 0; end <= dialogue.size(); ++end) {
    SCOPED_TRACE("after byte " + std::to_string(end));
    const Outcome outcome = play(ofTheConsole(), std::string_view(dialogue).substr(0, end));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.files.at(kIni), kSettings);
    EXPECT_LE(outcome.readsAtTheEnd, kFewCalls);
  }
}

TEST(ConsoleFaults, AnOutputThatIsFullOrClosedStopsNoReport) {
  const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
  constexpr int kClosed = -1;
  for (const int output : {full, kClosed}) {
    const Outcome outcome = play(ofTheConsole(), "\n1\nr\nline\nline\n\n123\n", {.output = output});
    EXPECT_EQ(outcome.status, 0);
    for (const std::string& report : kReports) EXPECT_EQ(outcome.files.count(report), 1u);
    EXPECT_TRUE(isWholeIni(outcome.files.at(kIni)));
  }
  ::close(full);
}

TEST(ConsoleFaults, WithoutAReaderTheDialogueEnds) {
  Pipe out;
  out.closeFirst();
  std::string endless;
  for (int i = 0; i < 5000; ++i) endless += "\n4\n.\n";
  const Outcome outcome = play(ofTheConsole(), endless + "123\n", {.output = out.second});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.files.at(kIni), kSettings) << "the command that leaves was not reached";
}

}  // namespace
}  // namespace zelvaro::test
