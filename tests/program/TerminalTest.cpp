// The program on a real pseudo-terminal and through pipes: keys that end something, text that steers a screen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>

#include "platform/TemporaryFolder.h"
#include "program/Program.h"

namespace zelvaro::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::string kSettings = "[Mode]\nLangStr=ENU\nLangInt=1\nFightFunc=WP\n";

class Terminals : public ::testing::Test {
 protected:
  Terminals() {
    folder.write("zelvaro.ini", kSettings);
    folder.write("aaResultantRegMry.txt", "the old result");
  }
  /// Names the file in the menu, so that it is assembled and run.
  static std::string running(const std::string& name) { return "\n1\n" + name + "\n"; }

  TemporaryFolder folder;
};

TEST_F(Terminals, CtrlCEndsARunAtOnceAndLeavesTheFilesWhole) {
  const std::pair<const char*, const char*> runs[] = {
      {"P START\nLOOP OUT TEXT,LENGTH\n JUMP LOOP\n RET\nTEXT DC 'tick'\nLENGTH DC 4\n END\n", "tick"},
      {"P START\n OUT TEXT,LENGTH\n IN TEXT,LENGTH\n RET\nTEXT DC 'tick'\nLENGTH DC 4\n END\n", "tick"}};
  for (const auto& [source, sign] : runs) {
    folder.write("p.txt", source);
    ProgramOnTerminal program(folder.path());
    program.type(running("p.txt"));
    ASSERT_TRUE(program.shows(sign)) << program.screen();
    program.type("\x03");
    const int status = program.wait();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status;
    EXPECT_EQ(folder.read("zelvaro.ini"), kSettings);
    EXPECT_EQ(folder.read("aaResultantRegMry.txt"), "the old result");
    const std::string report = folder.read("aaAssembledRegMry.txt");
    EXPECT_THAT(report, HasSubstr("Stack Area in Main Memory"));
    EXPECT_TRUE(report.ends_with('\n'));
    EXPECT_EQ(folder.entries(), 4u);
  }
}

TEST_F(Terminals, CtrlDInsideINEndsThatINOnly) {
  folder.write("p.txt",
               "P START\n IN TEXT,LENGTH\n LD GR1,LENGTH\n ADDA GR1,ZERO\n ST GR1,MARK\n OUT MARK,ONE\n"
               " IN TEXT,LENGTH\n OUT TEXT,LENGTH\n RET\n"
               "TEXT DS 256\nLENGTH DC 7\nMARK DS 1\nZERO DC '0'\nONE DC 1\n END\n");
  ProgramOnTerminal program(folder.path());
  program.type(running("p.txt"));
  ASSERT_TRUE(program.shows("Input some letters")) << program.screen();
  program.type("\x04");
  ASSERT_TRUE(program.shows("0\r\n")) << "the length of what was typed: " << program.screen();
  ASSERT_TRUE(program.shows("Input some letters")) << program.screen();
  program.type("typed\n");
  ASSERT_TRUE(program.shows("typed\r\n")) << "what the terminal echoes";
  ASSERT_TRUE(program.shows("typed\r\n")) << program.screen();
  program.type("\n123\n");
  ASSERT_TRUE(program.shows("Input a menu number."));
  EXPECT_EQ(program.wait(), 0) << "the menu still listens";
  EXPECT_NE(folder.read("zelvaro.ini"), kSettings);
}

TEST_F(Terminals, TextThatSteersAScreenIsHarmlessThereAndUnchangedThroughAPipe) {
  const std::string steering = "\x1B]0;title\x07\x1B[2J\x1B[31m";
  folder.write("fine.txt",
               "P START\n OUT TEXT,LENGTH\n RET\nTEXT DC '" + steering + "'\nLENGTH DC 19\n END\n");
  folder.write("faulty.txt", "P START\n " + steering + "\xC2\x9B" + "31m GR1\n END\n");
  ProgramOnTerminal program(folder.path());
  program.type(running("fine.txt"));
  ASSERT_TRUE(program.shows("^[]0;title^G^[[2J^[[31m")) << program.screen();
  program.type(running("faulty.txt") + "\n123\n");
  ASSERT_TRUE(program.shows("Error : line 2")) << program.screen();
  program.wait();
  EXPECT_THAT(program.screen(), Not(HasSubstr("\x1B")));
  EXPECT_THAT(program.screen(), Not(HasSubstr("\xC2\x9B")));

  EXPECT_THAT(runProgram(folder.path(), running("fine.txt")).console, HasSubstr(steering));
  EXPECT_THAT(runProgram(folder.path(), running("faulty.txt")).console, HasSubstr(steering));
}

TEST_F(Terminals, ClosedStandardDescriptorsAreNoPlaceForFiles) {
  folder.write("p.txt", "P START\n RET\n END\n");
  // an editor that can print has been handed an open output
  folder.write("zelvaro.ini", kSettings + "[Editor]\nTextEditorIndex=1\nTextEditorPath1=" +
                                  folder.writeProgram("e", "echo text && echo fine > printed\n") + "\n");
  const Ended ended = runProgram(folder.path(), running("p.txt") + "\n2\n\n123\n", {.outputIsClosed = true});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(folder.read("printed"), "fine\n");
  for (const char* name : {"zelvaro.ini", "aaAssembledRegMry.txt", "aaResultantRegMry.txt"})
    EXPECT_THAT(folder.read(name), Not(HasSubstr("Menu:"))) << name;
  EXPECT_THAT(folder.read("zelvaro.ini"), HasSubstr("TextEditorPath2=\n"));
}

}  // namespace
}  // namespace zelvaro::test
