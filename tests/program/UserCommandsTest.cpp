// What the menu asks of the outside world: listing, deleting, editors, documents.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "diag/Message.h"
#include "platform/Descriptors.h"
#include "platform/PosixPlatform.h"
#include "platform/Programs.h"
#include "platform/TemporaryFolder.h"
#include "shell/UserCommands.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;
using test::received;
using test::send;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;

/// A session through two pipes, with a search path that holds only what a test puts there.
class UserCommandsTest : public ::testing::Test {
 protected:
  UserCommandsTest() : oldPath_(std::getenv("PATH")) {
    std::filesystem::create_directory(folder.path("bin"));
    ::setenv("PATH", folder.path("bin").c_str(), 1);
    for (const char* variable : {"VISUAL", "EDITOR", "DISPLAY", "WAYLAND_DISPLAY"}) ::unsetenv(variable);
  }
  ~UserCommandsTest() override { ::setenv("PATH", oldPath_.c_str(), 1); }

  std::string shown() {
    platform.flush();
    return received(out.first);
  }
  /// A program that notes its arguments, one a line, and what it finds on its standard input.
  std::string notingProgram(const std::string& name) {
    return folder.writeProgram(name, "for a in \"$@\"; do echo \"<$a>\"; done > '" + folder.path("args") +
                                         "'\n/bin/cat > '" + folder.path("stdin") + "'\n");
  }

  std::string oldPath_;
  test::TemporaryFolder folder;
  test::Pipe in, out;
  PosixPlatform platform{in.first, out.second};
};

TEST(Programs, CommandLinesSplitAtBlanksOutsideQuotes) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"", {}},
      {" \t ", {}},
      {"code  --wait", {"code", "--wait"}},
      {"\"C:\\Program Files\\e.exe\" -n", {"C:\\Program Files\\e.exe", "-n"}},
      {"a\"b c\"d \"\" e", {"ab cd", "", "e"}},
      {"e $(x) `y` ; z > w * ~ 'a b'", {"e", "$(x)", "`y`", ";", "z", ">", "w", "*", "~", "'a", "b'"}},
      {"\"open", {"open"}},
  };
  for (const auto& [line, words] : cases)
    EXPECT_THAT(posix::splitCommandLine(line), ElementsAreArray(words)) << line;
}

TEST_F(UserCommandsTest, ListsAFolderSorted) {
  folder.write("b.txt", "");
  folder.write("A b.txt", "");
  listFolder(platform, kEnglish, folder.path());
  EXPECT_EQ(shown(), "A b.txt\nb.txt\nbin/\n");
  listFolder(platform, kEnglish, folder.path("b.txt"));
  EXPECT_EQ(shown(), folder.path("b.txt") + "\n");
  listFolder(platform, kEnglish, folder.path("none"));
  EXPECT_EQ(shown(),
            "The folder '" + folder.path("none") + "' cannot be listed. (No such file or directory)\n");
  listFolder(platform, kJapanese, folder.path("none"));
  EXPECT_THAT(shown(), HasSubstr("一覧を表示できません"));
}

TEST_F(UserCommandsTest, DeletesOnlyOnYes) {
  for (const char* no : {"", "n", "no", "yy", "delete", "いいえ"}) {
    folder.write("f", "text");
    send(in.second, no + "\n"s);
    deleteAfterQuestion(platform, kEnglish, folder.path("f"));
    EXPECT_TRUE(platform.exists(folder.path("f"))) << no;
    EXPECT_EQ(shown(), "Delete '" + folder.path("f") + "' (y/n)? It has not been deleted. \n");
  }
  for (const char* yes : {"y", "Y", " y ", "はい", "ｙ"}) {
    folder.write("f", "text");
    send(in.second, yes + "\n"s);
    deleteAfterQuestion(platform, kJapanese, folder.path("f"));
    EXPECT_FALSE(platform.exists(folder.path("f"))) << yes;
    EXPECT_EQ(shown(), "'" + folder.path("f") + "' を削除しますか (y/n)？ 削除しました。\n");
  }
}

TEST_F(UserCommandsTest, NothingToDeleteIsNotAskedAbout) {
  send(in.second, "y\n");
  deleteAfterQuestion(platform, kEnglish, folder.path("f"));
  EXPECT_EQ(shown(), "There is no file '" + folder.path("f") + "'. \n");
  deleteAfterQuestion(platform, kEnglish, folder.path("bin"));
  EXPECT_THAT(shown(), HasSubstr("cannot be deleted. (Is a directory)"));
  in.closeSecond();
  folder.write("f", "text");
  deleteAfterQuestion(platform, kEnglish, folder.path("f"));
  EXPECT_TRUE(platform.exists(folder.path("f"))) << "the end of the input is no yes";
}

TEST_F(UserCommandsTest, AnEditorGetsTheFileAsOneArgument) {
  const std::string editor = notingProgram("my editor");
  send(in.second, "the dialogue's own line\n");
  for (const char* name :
       {"plain.txt", "with blank.txt", "a;b$(id)`id`&|>x*.txt", "quo\"te'.txt", "\xFF\x80"}) {
    editFile(platform, kEnglish, {"\"" + editor + "\" --flag \"two words\""}, name);
    EXPECT_EQ(folder.read("args"), "<--flag>\n<two words>\n<"s + name + ">\n");
    EXPECT_EQ(folder.read("stdin"), "");
  }
  editFile(platform, kEnglish, {"\"" + editor + "\""}, "-rf");
  EXPECT_EQ(folder.read("args"), "<./-rf>\n");
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(platform.readLine(), "the dialogue's own line");
}

TEST_F(UserCommandsTest, AMissingEditorIsTold) {
  editFile(platform, kEnglish, {"no-such-editor -x"}, "f");
  EXPECT_EQ(shown(), "The editor 'no-such-editor' cannot be started. (No such file or directory)\n");
  folder.write("text", "not a program");
  editFile(platform, kJapanese, {folder.path("text")}, "f");
  EXPECT_EQ(shown(), "エディタ '" + folder.path("text") + "' を起動できません。 (Permission denied)\n");
}

TEST_F(UserCommandsTest, CtrlCBelongsToTheEditorWhileItRuns) {
  const std::string editor =
      folder.writeProgram("e", "kill -INT $PPID\necho alive > '" + folder.path("done") + "'\n");
  editFile(platform, kEnglish, {editor}, "f");
  EXPECT_EQ(folder.read("done"), "alive\n");
  struct sigaction now {};
  ::sigaction(SIGINT, nullptr, &now);
  EXPECT_EQ(now.sa_handler, SIG_DFL);
  const std::string dying =
      folder.writeProgram("d", "kill -INT $$\necho ignored > '" + folder.path("ignored") + "'\n");
  editFile(platform, kEnglish, {dying}, "f");
  EXPECT_EQ(folder.read("ignored"), "") << "the editor has the signal's usual meaning";
}

TEST_F(UserCommandsTest, TheOwnEditorNeedsATerminal) {
  notingProgram("bin/nano");
  const std::string file = folder.write("f", "line\r\nlast");
  editFile(platform, kEnglish, {""}, file);
  EXPECT_EQ(shown(), "line\nlast\n");

  const test::Terminal terminal;
  PosixPlatform onTerminal(terminal.second, terminal.second);
  // the program's own descriptor 0 is no terminal of this test's, so the editor ends by itself
  folder.writeProgram("bin/nano", "echo \"$1\" > '" + folder.path("args") + "'\n");
  editFile(onTerminal, kEnglish, {" "}, file);
  EXPECT_EQ(folder.read("args"), file + "\n");
  folder.writeProgram("bin/sensible-editor", "echo \"sensible $1\" > '" + folder.path("args") + "'\n");
  editFile(onTerminal, kEnglish, {""}, file);
  EXPECT_EQ(folder.read("args"), "sensible " + file + "\n");
  std::filesystem::remove(folder.path("bin/nano"));  // nothing left that sensible-editor could choose
  editFile(onTerminal, kEnglish, {""}, file);
  onTerminal.flush();
  EXPECT_EQ(received(terminal.first), "line\r\nlast\r\n");
}

TEST_F(UserCommandsTest, FilesAreShownInTheirEncoding) {
  const std::pair<std::string, std::string> cases[] = {
      {"あ\n", "あ\n"},
      {"\xEF\xBB\xBFあ", "あ\n"},
      {"\x82\xA0\n", "あ\n"},
      {"\xFF\xFE\x42\x30\x0D\x00\x0A\x00"s, "あ\n"},
      {"\xFE\xFF\x30\x42", "あ\n"},
      {"", ""},
  };
  for (const auto& [bytes, text] : cases) {
    editFile(platform, kEnglish, {""}, folder.write("f", bytes));
    EXPECT_EQ(shown(), text);
  }
  editFile(platform, kEnglish, {""}, folder.path("none"));
  EXPECT_EQ(shown(), "'" + folder.path("none") + "' cannot be shown. (No such file or directory)\n");
}

TEST_F(UserCommandsTest, DocumentsGoToTheDesktopOrAreShown) {
  const std::string text = folder.write("guide.md", "# Guide");
  const std::string binary = folder.write("help.chm", "IT\0SF"s);
  folder.writeProgram("bin/xdg-open", "echo \"$1\" > '" + folder.path("opened") + "'\nexec /bin/sleep 2\n");
  openDocument(platform, kEnglish, text);
  EXPECT_EQ(shown(), "# Guide\n") << "no display";
  openDocument(platform, kEnglish, binary);
  EXPECT_EQ(shown(), "It lies at " + binary + "\n");
  openDocument(platform, kEnglish, std::filesystem::relative(binary));
  EXPECT_EQ(
      shown(),
      "It lies at " + (std::filesystem::current_path() / std::filesystem::relative(binary)).string() + "\n");
  ::setenv("DISPLAY", ":0", 1);
  const std::int64_t start = platform.performanceCounter();
  openDocument(platform, kEnglish, binary);
  EXPECT_LT(platform.performanceCounter() - start, 1'000'000'000);
  for (int i = 0; i < 200 && folder.read("opened").empty(); ++i) ::usleep(10'000);
  EXPECT_EQ(folder.read("opened"), binary + "\n");
  openDocument(platform, kJapanese, folder.path("none"));
  EXPECT_THAT(shown(), HasSubstr("を開くことができません。 (No such file or directory)"));
}

}  // namespace
}  // namespace zelvaro
