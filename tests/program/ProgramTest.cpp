// The built program among strangers: names of every kind, real editors, terminals that steer or hang up.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>
#include <thread>

#include "program/Program.h"

namespace zelvaro::test {
namespace {

using namespace std::string_literals;
using ::testing::HasSubstr;
using ::testing::Not;
using Console = WatchedProgram::Console;
namespace fs = std::filesystem;

const std::string kSettings = "[Mode]\nLangStr=ENU\nLangInt=1\nFightFunc=WP\n";

class Program : public ::testing::Test {
 protected:
  Program() { folder.write("zelvaro.ini", kSettings); }
  void useEditor(const std::string& setting, const std::string& last = "p.txt") {
    folder.write("zelvaro.ini", kSettings + "[Src]\nLastSrcFile=" + last +
                                    "\n[Editor]\nTextEditorIndex=1\nTextEditorPath1=" + setting + "\n");
  }
  /// A source that prints "tick" and then executes a statement for ever.
  void writeLoop(const std::string& statement) {
    folder.write("p.txt", "P START\n OUT TEXT,LENGTH\nQ " + statement +
                              "\n JUMP Q\nSUB RET\nTEXT DC 'tick'\nLENGTH DC 4\n END\n");
  }
  std::string shown(const std::string& typed) { return runProgram(folder.path(), typed).console; }
  /// Names the file in the menu, so that it is assembled and run.
  static std::string running(const std::string& name) { return "\n1\n" + name + "\n"; }

  TemporaryFolder folder, editor;
};

TEST_F(Program, ATypedNameIsOneFileAndNothingElse) {
  // as the folder has it, and as it is typed
  std::vector<std::pair<std::string, std::string>> names = {
      {"sub/in.txt", "sub\\in.txt"}, {"sub/in.txt", "\"sub/in.txt\""}, {"a b.txt", "\"a b\""}};
  for (const std::string plain : {"a b", "x;touch hacked", "$(touch hacked)", "`touch hacked`", "-rf",
                                  "+!touch hacked", "a|touch hacked", "a&touch hacked&", "a>hacked", "*", "?",
                                  "~", "$HOME", "%s%n", "it's", "日本語", "\xFF\x80\x82", "a\x1B[2Jb", "#x"})
    names.emplace_back(plain + ".txt", plain + ".txt");
  fs::create_directory(folder.path("sub"));
  useEditor("\"" +
            editor.writeProgram("my editor", "exec > '" + editor.path("args") +
                                                 "'\nfor a in \"$@\"; do echo \"<$a>\"; done\ncat\n") +
            "\" --wait");
  for (const auto& [onDisk, typed] : names) {
    folder.write(onDisk, "P START\n OUT A,L\n RET\nA DC 'It runs.'\nL DC 8\n END\n");
    fs::create_directories(folder.path("d" + onDisk));
    folder.write("d" + onDisk + "/inside", "");
    const std::string console = shown(running(typed) + "\n5\n" + typed + "\n\n4\nd" + onDisk + "\n");
    EXPECT_THAT(console, HasSubstr("It runs."));
    EXPECT_THAT(console, HasSubstr("\ninside\n"));
    EXPECT_EQ(editor.read("args"), "<--wait>\n<./" + onDisk + ">\n");
  }
  fs::remove(editor.path("args"));
  for (const std::string typed : {"none;touch hacked", "/dev/zero", "..", "\"\""}) {
    const Ended ended = runProgram(folder.path(), running(typed) + "\n5\n" + typed + "\n\n99\n");
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.console, HasSubstr("Try it again!\n")) << "the dialogue goes on to its last command";
  }
  EXPECT_FALSE(fs::exists(folder.path("hacked")) || fs::exists(editor.path("args")));
}

TEST_F(Program, NoNameIsACommandForTheRealEditors) {
  fs::create_directories(folder.path("scp:/a"));
  for (const auto& [program, quit] : {std::pair{"/usr/bin/vim.basic", ":q!\r"},
                                      {"/usr/bin/vim.tiny", ":q!\r"},
                                      {"/usr/bin/nano", "\x18"}}) {
    ASSERT_TRUE(fs::exists(program)) << "test.sh installs it";
    for (const std::string name :
         {"+!touch hacked", "+3", "-ctouch hacked", "|touch hacked", "!touch hacked", ":!touch hacked",
          "=system('touch hacked')", " touch hacked", "scp://a/b"}) {
      folder.write(name, "the text of it\n");
      useEditor(program, "\"" + name + "\"");
      WatchedProgram running(folder.path());
      running.type("\n55\n");
      EXPECT_TRUE(running.shows("the text of it")) << program << name << running.screen();
      running.type(quit);
      EXPECT_TRUE(running.shows("Press Enter key")) << program << name << running.screen();
      running.type("\n123\n");
      EXPECT_EQ(running.wait(), 0);
      EXPECT_FALSE(fs::exists(folder.path("hacked")));
    }
  }
}

TEST_F(Program, TheGuideIsInAPagerThatStartsNothing) {
  fs::create_directory(folder.path("docs"));
  folder.write("docs/GUIDE.en.md", "# Guide\n" + std::string(100, '\n') + "its end\n");
  WatchedProgram running(folder.path());
  running.type("\n10\n");
  ASSERT_TRUE(running.shows("# Guide") && running.shows("q: end")) << running.screen();
  for (const char* command : {"!touch hacked", "|$touch hacked", "v", ":e zelvaro.ini"}) {
    running.type(std::string(command, command[0] == ':' ? 2 : 1) + "\r");
    EXPECT_TRUE(running.shows("not available") && running.shows("q: end")) << running.screen();
  }
  running.type("Gq");
  EXPECT_TRUE(running.shows("its end") && running.shows("Press Enter key")) << running.screen();
  running.type("\n123\n");
  EXPECT_EQ(running.wait(), 0);
}

TEST_F(Program, CtrlCEndsARunAtOnceAndLeavesTheFilesWhole) {
  folder.write("aaResultantRegMry.txt", "the old result");
  for (const char* statement : {"NOP", "IN TEXT,LENGTH"}) {
    writeLoop(statement);
    WatchedProgram program(folder.path());
    program.type(running("p.txt"));
    ASSERT_TRUE(program.shows("tick")) << program.screen();
    program.type("\x03");
    const int status = program.wait();
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status;
    EXPECT_EQ(folder.read("zelvaro.ini"), kSettings);
    EXPECT_EQ(folder.read("aaResultantRegMry.txt"), "the old result");
    EXPECT_THAT(folder.read("aaAssembledRegMry.txt"), HasSubstr("Stack Area in Main Memory"));
    EXPECT_EQ(folder.entries(), 4u);
  }
}

TEST_F(Program, TextThatSteersAScreenIsHarmlessThereAndUnchangedThroughAPipe) {
  const std::string steering = "\x1B]0;title\x07\x1B[2J\u202E\u2028",
                    harmless = "^[]0;title^G^[[2J<U+202E><U+2028>";
  folder.write("fine.txt",
               "P START\n OUT TEXT,LENGTH\n RET\nTEXT DC '" + steering + "'\nLENGTH DC 16\n END\n");
  folder.write("faulty.txt", "P START\n " + steering + "\u009B31m GR1\n END\n");
  folder.write(steering, "");
  const std::string typed = running("fine.txt") + running("faulty.txt") + "\n4\n.\n\n123\n";
  WatchedProgram program(folder.path());
  program.type(typed);
  for (const std::string& shown : {harmless + "\r\n", harmless + "<U+009B>31m", harmless + "\r\n"})
    EXPECT_TRUE(program.shows(shown)) << "by OUT, by a diagnostic and in the listing";
  EXPECT_EQ(program.wait(), 0);
  for (const char* raw : {"\x1B", "\u009B", "\u202E", "\u2028"})
    EXPECT_THAT(program.screen(), Not(HasSubstr(raw)));
  EXPECT_THAT(shown(typed), HasSubstr(steering + "\n"));
}

TEST_F(Program, ClosedStandardDescriptorsAreNoPlaceForFiles) {
  folder.write("p.txt", "P START\n RET\n END\n");
  // an editor that can print has been handed an open output
  useEditor(folder.writeProgram("e", "echo text && echo fine > printed\n"));
  const Ended ended = runProgram(folder.path(), running("p.txt") + "\n2\n\n123\n", "exec >&- 2>&-");
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(folder.read("printed"), "fine\n");
  for (const char* name : {"zelvaro.ini", "aaAssembledRegMry.txt", "aaResultantRegMry.txt"})
    EXPECT_THAT(folder.read(name), Not(HasSubstr("Menu:"))) << name;
  EXPECT_THAT(folder.read("zelvaro.ini"), HasSubstr("TextEditorPath2=\n"));
}

TEST_F(Program, ARunEndsWhenNobodyIsThere) {
  for (const char* statement : {"OUT TEXT,LENGTH", "NOP", "CALL SUB", "IN TEXT,LENGTH"}) {
    writeLoop(statement);
    for (const Console console : {Console::Terminal, Console::Pipes}) {
      WatchedProgram program(folder.path(), console);
      program.type(running("p.txt"));
      ASSERT_TRUE(program.shows("tick")) << statement << program.screen();
      program.leave();
      EXPECT_EQ(program.wait(), 0) << statement;
      EXPECT_TRUE(fs::remove(folder.path("aaResultantRegMry.txt"))) << "the run has come to its report";
      EXPECT_EQ(folder.read("zelvaro.ini"), kSettings) << "and the dialogue to its end";
    }
  }
  const std::string console = shown(running("p.txt"));
  EXPECT_THAT(console, HasSubstr("executed 100 times in a row although the input has come to its end."));
  std::size_t prompts = 0;
  for (std::size_t at = 0; (at = console.find("Input some letters", at)) != console.npos; ++at) ++prompts;
  EXPECT_EQ(prompts, 100u);
}

TEST_F(Program, SettingsThatCannotBeReadAreNeitherMovedNorWritten) {
  const fs::path ini = folder.path("zelvaro.ini");
  for (const auto& [rights, bytes, words] :
       {std::tuple{0600u, kSettings + std::string(1 << 20, ';'), "larger than 1 MiB"},
        {0000u, kSettings, "cannot be read: Permission denied"}}) {
    if (rights == 0 && ::geteuid() == 0) continue;
    folder.write("zelvaro.ini", bytes);
    fs::permissions(ini, fs::perms{rights});
    const Ended ended = runProgram(folder.path(), "\n123\n");
    EXPECT_THAT(ended.console, HasSubstr(words));
    EXPECT_LE(ended.peakMiB, 32u);
    EXPECT_EQ(folder.entries(), 1u);
    EXPECT_EQ(fs::status(ini).permissions(), fs::perms{rights});
    fs::permissions(ini, fs::perms{0600});
    EXPECT_EQ(folder.read("zelvaro.ini"), bytes);
  }
}

TEST_F(Program, ThreeAtOnceKeepWhatTheyDoNotUnderstand) {
  for (int round = 0; round < 10; ++round) {
    for (const auto& e : fs::directory_iterator(folder.path())) fs::remove(e);
    folder.write("zelvaro.ini", "[Mode\n");
    folder.write("zelvaro.ini.bak", "an older one");
    std::vector<std::thread> programs;
    for (int i = 0; i < 3; ++i)
      programs.emplace_back([&] { EXPECT_EQ(runProgram(folder.path(), "\n").status, 0); });
    for (std::thread& p : programs) p.join();
    EXPECT_EQ(folder.read("zelvaro.ini.bak"), "an older one");
    EXPECT_TRUE(fs::exists(folder.path("zelvaro.ini.bak2")));
    EXPECT_THAT(folder.read("zelvaro.ini"), HasSubstr("TextEditorPath2=\n"));
    for (const auto& e : fs::directory_iterator(folder.path())) {
      const std::string name = e.path().filename();
      EXPECT_TRUE(name.starts_with("zelvaro.ini")) << name;
      EXPECT_TRUE(name.size() <= 15 || folder.read(name) == "[Mode\n") << name;
    }
  }
}

}  // namespace
}  // namespace zelvaro::test
