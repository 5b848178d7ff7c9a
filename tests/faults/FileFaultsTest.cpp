// Every operation on the settings and the reports goes wrong once, in every way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "diag/MsgBase.h"
#include "faults/RealDialogue.h"

namespace zelvaro::test {
namespace {

using Kind = CallFault::Kind;
using ::testing::AnyOf;
using ::testing::HasSubstr;

const std::string kIni = "zelvaro.ini";
const std::string kIniBak = "zelvaro.ini.bak";
const std::string kReports[] = {std::string(AssembledRegFile), std::string(ResultantRegFile)};

constexpr std::string_view kSource =
    "P START\n LD GR1,A\n ADDA GR1,B\n OUT TEXT,LENGTH\n RET\n"
    "A DC 3\nB DC 4\nTEXT DC 'sum'\nLENGTH DC 3\n END\n";
/// Assembles, runs and leaves: writes both reports and the settings.
constexpr std::string_view kTyped = "\n1\np\n\n123\n";

constexpr const char* kSourceDoesNotOpen = "does not open on binary mode";

/// A folder in use: old reports, and settings that leaving will change.
Files inUse() {
  return {{"p.txt", std::string(kSource)},
          {kIni, "[Mode]\nLangStr=ENU\nLangInt=1\nFightFunc=WP\n"},
          {kReports[0], "the old report"},
          {kReports[1], "the old result"}};
}
Files fresh() {
  return {{"p.txt", std::string(kSource)}};
}

std::string fileOf(const Files& files, const std::string& name) {
  const auto at = files.find(name);
  return at == files.end() ? "(none)" : at->second;
}

/// Old file or new one, never half.
void expectWhole(const Files& before, const Files& after, const Files& faultless) {
  for (const std::string& report : kReports) {
    const std::string text = fileOf(after, report);
    EXPECT_TRUE(text == fileOf(before, report) || text == fileOf(faultless, report)) << report << ":\n"
                                                                                     << text;
  }
  const std::string ini = fileOf(after, kIni);
  EXPECT_TRUE(ini == fileOf(before, kIni) || isWholeIni(ini)) << ini;
  if (after.count(kIniBak) != 0) {
    const std::string bak = fileOf(after, kIniBak);
    EXPECT_TRUE(before.count(kIni) != 0 ? bak == before.at(kIni) : isWholeIni(bak)) << bak;
  }
}

std::size_t temporaryFiles(const Files& files) {
  std::size_t out = 0;
  for (const auto& [name, bytes] : files) out += name.ends_with(".tmp") ? 1 : 0;
  return out;
}

class FileFaults : public ::testing::TestWithParam<Files> {};

TEST_P(FileFaults, AFailureLeavesOldOrNewAndIsTold) {
  const Files before = GetParam();
  const Outcome faultless = play(before, kTyped);
  ASSERT_EQ(faultless.status, 0);
  ASSERT_GT(faultless.calls, 20);
  RecordProperty("calls", faultless.calls);
  for (const int error : {ENOSPC, EDQUOT, EACCES, EROFS, EMFILE, EIO}) {
    for (int at = 1; at <= faultless.calls; ++at) {
      SCOPED_TRACE("call " + std::to_string(at) + ": " + std::strerror(error));
      const Outcome struck = play(before, kTyped, {.call = {Kind::Fails, at, error}});
      EXPECT_EQ(struck.status, 0);
      EXPECT_EQ(temporaryFiles(struck.files), 0u);
      expectWhole(before, struck.files, faultless.files);
      if (struck.files != faultless.files) {
        EXPECT_THAT(struck.console, AnyOf(HasSubstr(std::strerror(error)), HasSubstr(kSourceDoesNotOpen)));
      }
    }
  }
}

TEST_P(FileFaults, AnInterruptionOrAShortWriteChangesNothing) {
  const Files before = GetParam();
  const Outcome faultless = play(before, kTyped);
  for (const CallFault fault : {CallFault{Kind::Fails, 0, EINTR}, CallFault{Kind::FallsShort, 0, 0}}) {
    for (int at = 1; at <= faultless.calls; ++at) {
      SCOPED_TRACE("call " + std::to_string(at) + (fault.error != 0 ? " interrupted" : " short"));
      const Outcome struck = play(before, kTyped, {.call = {fault.kind, at, fault.error}});
      EXPECT_EQ(struck.status, 0);
      EXPECT_EQ(struck.console, faultless.console);
      EXPECT_EQ(struck.files, faultless.files);
    }
  }
}

TEST_P(FileFaults, AKillLeavesOldOrNewAndTheNextStartGoesOn) {
  const Files before = GetParam();
  const Outcome faultless = play(before, kTyped);
  for (const Kind kind : {Kind::KillsBefore, Kind::KillsHalfway, Kind::KillsBehind}) {
    for (int at = 1; at <= faultless.calls; ++at) {
      SCOPED_TRACE("call " + std::to_string(at) + ", kind " + std::to_string(static_cast<int>(kind)));
      const Outcome killed = playInChild(before, kTyped, {.call = {kind, at, 0}});
      ASSERT_TRUE(WIFSIGNALED(killed.status) && WTERMSIG(killed.status) == SIGKILL);
      EXPECT_LE(temporaryFiles(killed.files), 1u);
      expectWhole(before, killed.files, faultless.files);

      Outcome next = play(killed.files, kTyped);
      EXPECT_EQ(next.status, 0);
      std::erase_if(next.files, [](const auto& file) { return file.first.ends_with(".tmp"); });
      EXPECT_EQ(next.files, faultless.files);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Folders, FileFaults, ::testing::Values(inUse(), fresh()),
                         [](const auto& c) { return c.index == 0 ? "InUse" : "Fresh"; });

TEST(Reports, AFolderInThePlaceOfAReportIsToldAndLeftAlone) {
  for (const std::string& report : kReports) {
    Files before = fresh();
    before[report + "/"] = "";
    const Outcome outcome = play(before, kTyped);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.console, HasSubstr(report + " does not open.\nMsg:: Is a directory\n"));
    EXPECT_EQ(outcome.files.count(report + "/"), 1u);
    EXPECT_EQ(outcome.files.size(), 4u) << "the other report and the settings are written";
    EXPECT_TRUE(isWholeIni(fileOf(outcome.files, kIni)));
  }
}

}  // namespace
}  // namespace zelvaro::test
