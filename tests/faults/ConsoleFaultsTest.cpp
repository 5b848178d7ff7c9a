// The console ends early on either side: the input at any byte, the output closed, full or without a reader.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "faults/RealDialogue.h"
#include "platform/Descriptors.h"

namespace zelvaro::test {
namespace {

constexpr std::string_view kSource =
    "P START\n IN TEXT,LENGTH\n OUT TEXT,LENGTH\n IN TEXT,LENGTH\n RET\nTEXT DS 256\nLENGTH DS 1\n END\n";
constexpr std::string_view kFaulty = "Q START\n LD GR9,A\n XYZ\n DC 3,\n END\n";
/// Every command but the one that leaves, the mode selector and questions among them, in both languages.
constexpr std::string_view kRound =
    "\n1\np.txt\nfirst\nsecond\n\n2\n\n3\n\n4\n.\n\n5\np.txt\n\n55\n\n1\nq.txt\n\n9\n10\n\n85\nn\n88\nno\n8\n\n"
    "7\n1\n\n7\n2\n\n11\n\n1\nnone.txt\n\n99\nabc\n\n1\np\nthird\nfourth\n\n9\n7\n3\n\n11\n\n7\n5\n\n1\nq\n\n";
constexpr std::string_view kSettings = "[Mode]\nLangStr=ENU\nLangInt=1\nFightFunc=WP\n";

Files folder() {
  return {{"p.txt", std::string(kSource)},
          {"q.txt", std::string(kFaulty)},
          {"zelvaro.ini", std::string(kSettings)}};
}

TEST(ConsoleFaults, TheInputMayEndBehindAnyByte) {
  std::string dialogue;
  for (int round = 0; round < 4; ++round) dialogue += kRound;
  RecordProperty("bytes", static_cast<int>(dialogue.size()));
  // A read that finds the end comes once for each prompt that gives up, of which there are few.
  constexpr int kFewCalls = 12;
  for (std::size_t end = 0; end <= dialogue.size(); ++end) {
    SCOPED_TRACE("behind byte " + std::to_string(end));
    const Outcome outcome = play(folder(), std::string_view(dialogue).substr(0, end));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.files.at("zelvaro.ini"), kSettings);
    EXPECT_EQ(outcome.files.count("zelvaro.ini.bak"), 0u);
    EXPECT_LE(outcome.readsAtTheEnd, kFewCalls);
  }
}

TEST(ConsoleFaults, AnOutputThatIsFullOrClosedStopsNoReport) {
  const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
  constexpr int kClosed = -1;
  for (const int output : {full, kClosed}) {
    const Outcome outcome = play(folder(), "\n1\np\nline\nline\n\n123\n", {.call = {}, .output = output});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.files.count("aaAssembledRegMry.txt"), 1u);
    EXPECT_EQ(outcome.files.count("aaResultantRegMry.txt"), 1u);
    EXPECT_TRUE(isWholeIni(outcome.files.at("zelvaro.ini")));
  }
  ::close(full);
}

TEST(ConsoleFaults, WithoutAReaderTheDialogueEnds) {
  Pipe out;
  out.closeFirst();
  std::string endless;
  for (int i = 0; i < 5000; ++i) endless += "\n4\n.\n";
  const Outcome outcome = play(folder(), endless + "123\n", {.call = {}, .output = out.second});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.files.at("zelvaro.ini"), kSettings) << "the command that leaves was not reached";
}

}  // namespace
}  // namespace zelvaro::test
