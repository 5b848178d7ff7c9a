// What the menu asks of the outside world: listing, deleting, editors, documents; and how it words what came of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <termios.h>

#include <csignal>

#include "Descriptors.h"
#include "TemporaryFolder.h"
#include "diag/Message.h"
#include "platform/PosixPlatform.h"
#include "platform/Programs.h"
#include "shell/UserCommands.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;
using test::received;
using test::send;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
namespace fs = std::filesystem;

/// A session through two pipes, with a search path that holds only what a test puts there.
class UserCommandsTest : public ::testing::Test {
 protected:
  UserCommandsTest() : oldPath_(std::getenv("PATH")) {
    fs::create_directory(folder.path("bin"));
    ::setenv("PATH", (folder.path("none") + ":" + folder.path("bin")).c_str(), 1);
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

TEST_F(UserCommandsTest, ASettingIsAProgramThatExistsOrElseACommandLine) {
  const std::string blank = folder.writeProgram("my editor -x", "");
  folder.writeProgram("bin/ed", "");
  fs::create_directory(folder.path("a folder"));
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"", {}},
      {" \t ", {}},
      {"\"\"", {""}},
      {"ed", {"ed"}},
      {"code  --wait", {"code", "--wait"}},
      {blank, {blank}},
      {" \"" + blank + "\"\t", {blank}},
      {"\"" + blank + "\" -n", {blank, "-n"}},
      {blank + " -n", {folder.path("my"), "editor", "-x", "-n"}},
      {folder.path("a folder"), {folder.path("a"), "folder"}},
      {"\"C:\\Program Files\\e.exe\" -n", {"C:\\Program Files\\e.exe", "-n"}},
      {"a\"b c\"d \"\" e", {"ab cd", "", "e"}},
      {"e $(x) `y` ; z > w * ~ 'a b'", {"e", "$(x)", "`y`", ";", "z", ">", "w", "*", "~", "'a", "b'"}},
      {"\"open", {"open"}},
  };
  for (const auto& [setting, words] : cases)
    EXPECT_THAT(posix::editorCommand(setting), ElementsAreArray(words)) << setting;
}

TEST_F(UserCommandsTest, TheOwnEditorIsSensibleEditorWhereItHasAChoice) {
  struct Case {
    const char *visual, *editor;  ///< the variables
    std::vector<const char*> installed;
    std::optional<std::string> own;
  };
  const Case cases[] = {{"", "", {}, std::nullopt},
                        {"", "", {"sensible-editor"}, std::nullopt},
                        {"code -w", "", {"sensible-editor"}, "sensible-editor"},
                        {"", "ed", {"sensible-editor"}, "sensible-editor"},
                        {"", "", {"sensible-editor", "editor"}, "sensible-editor"},
                        {"", "", {"sensible-editor", "vi"}, "sensible-editor"},
                        {"code -w", "", {"vi"}, "vi"},
                        {"", "", {"vi", "nano"}, "nano"},
                        {"", "", {"editor"}, std::nullopt}};
  for (const Case& c : cases) {
    fs::remove_all(folder.path("bin"));
    fs::create_directories(folder.path("bin/nano-folder"));
    folder.write("bin/noprogram", "");
    for (const char* program : c.installed) folder.writeProgram("bin/"s + program, "");
    ::setenv("VISUAL", c.visual, 1);
    ::setenv("EDITOR", c.editor, 1);
    EXPECT_EQ(posix::ownEditor(), c.own) << testing::PrintToString(c.installed);
  }
  EXPECT_FALSE(posix::isInstalled("noprogram") || posix::isInstalled("nano-folder"));
}

TEST_F(UserCommandsTest, ListsAFolderSorted) {
  folder.write("b.txt", "");
  folder.write("A b.txt", "");
  listFolder(platform, kEnglish, folder.path());
  EXPECT_EQ(shown(), "A b.txt\nb.txt\nbin/\n");
  listFolder(platform, kEnglish, folder.path("b.txt"));
  EXPECT_EQ(shown(), folder.path("b.txt") + "\n");
  listFolder(platform, kEnglish, "no");
  listFolder(platform, kJapanese, "a\0b"s);
  EXPECT_EQ(shown(),
            "The folder 'no' cannot be listed. (No such file or directory)\n"
            "フォルダ 'a\0b' の一覧を表示できません。 (Invalid argument)\n"s);
}

TEST_F(UserCommandsTest, DeletesOnlyOnYes) {
  const std::string f = folder.path("f");
  const auto answered = [&](const std::string& answer, int lang) {
    folder.write("f", "text");
    send(in.second, answer + "\n");
    deleteAfterQuestion(platform, lang, f);
    return shown();
  };
  for (const char* no : {"", "n", "no", "yy", "delete", "いいえ"}) {
    EXPECT_EQ(answered(no, kEnglish), "Delete '" + f + "' (y/n)? It has not been deleted. \n");
    EXPECT_TRUE(platform.exists(f)) << no;
  }
  for (const char* yes : {"y", "Y", " y ", "はい", "ｙ"}) {
    EXPECT_EQ(answered(yes, kJapanese), "'" + f + "' を削除しますか (y/n)？ 削除しました。\n");
    EXPECT_FALSE(platform.exists(f)) << yes;
  }
  deleteAfterQuestion(platform, kEnglish, f);
  EXPECT_EQ(shown(), "There is no file '" + f + "'. \n");
  send(in.second, "y\n");
  deleteAfterQuestion(platform, kEnglish, folder.path("bin"));
  EXPECT_THAT(shown(), HasSubstr("cannot be deleted. (Is a directory)"));
  in.closeSecond();
  folder.write("f", "text");
  deleteAfterQuestion(platform, kEnglish, f);
  EXPECT_TRUE(platform.exists(f)) << "the end of the input is no yes";
}

TEST_F(UserCommandsTest, AnEditorGetsARegularFileAndNothingElse) {
  const EditorCommand editor{"\"" + notingProgram("my editor") + "\" --flag \"two words\""};
  send(in.second, "the dialogue's own line\n");
  showFile(platform, kEnglish, editor, folder.write("f", ""));
  EXPECT_EQ(folder.read("args"), "<--flag>\n<two words>\n<" + folder.path("f") + ">\n");
  EXPECT_EQ(folder.read("stdin"), "");
  editFile(platform, kEnglish, editor, "new");
  EXPECT_THAT(folder.read("args"), HasSubstr("<./new>\n")) << "the editor may make it";
  EXPECT_EQ(platform.readLine(), "the dialogue's own line");
  fs::remove(folder.path("args"));
  ASSERT_EQ(::mkfifo(folder.path("fifo").c_str(), 0600), 0);
  showFile(platform, kEnglish, editor, "new");
  editFile(platform, kEnglish, editor, folder.path("fifo"));
  editFile(platform, kJapanese, editor, folder.path("bin"));
  showFile(platform, kEnglish, editor, "");
  EXPECT_EQ(shown(), "'new' cannot be shown. (No such file or directory)\n'" + folder.path("fifo") +
                         "' cannot be shown. (Not a regular file)\n'" + folder.path("bin") +
                         "' を表示できません。 (Is a directory)\n");
  EXPECT_FALSE(platform.exists(folder.path("args")));
  folder.write("text", "not a program");
  editFile(platform, kEnglish, {"no-such-editor -x"}, "f");
  editFile(platform, kJapanese, {folder.path("text")}, "f");
  EXPECT_EQ(shown(),
            "The editor 'no-such-editor' cannot be started. (No such file or directory)\n"
            "エディタ '" +
                folder.path("text") + "' を起動できません。 (Permission denied)\n");
}

TEST_F(UserCommandsTest, KeysAndTerminalComeBackFromTheEditor) {
  const std::string editor =
      folder.writeProgram("e", "kill -INT $PPID\necho alive > '" + folder.path("done") + "'\n");
  editFile(platform, kEnglish, {editor}, "f");
  EXPECT_EQ(folder.read("done"), "alive\n") << "Ctrl+C is the editor's while it runs";
  struct sigaction now {};
  ::sigaction(SIGINT, nullptr, &now);
  EXPECT_EQ(now.sa_handler, SIG_DFL);
  const std::string dying =
      folder.writeProgram("d", "kill -INT $$\necho ignored > '" + folder.path("ignored") + "'\n");
  editFile(platform, kEnglish, {dying}, "f");
  EXPECT_EQ(folder.read("ignored"), "") << "the editor has the signal's usual meaning";

  const test::Terminal terminal;
  const std::string tty = ::ttyname(terminal.second);
  PosixPlatform onTerminal(terminal.second, terminal.second);
  termios before{}, after{};
  ::tcgetattr(terminal.second, &before);
  for (const char* end : {"kill -9 $$", "exit 1"}) {
    const std::string breaking =
        folder.writeProgram("b", "/bin/stty raw -echo < " + tty + " && echo done > '" +
                                     folder.path("broken") + "'\n" + end + "\n");
    editFile(onTerminal, kEnglish, {breaking}, "f");
    EXPECT_EQ(folder.read("broken"), "done\n");
    ::tcgetattr(terminal.second, &after);
    EXPECT_EQ(after.c_lflag, before.c_lflag);
    EXPECT_EQ(after.c_iflag, before.c_iflag);
    EXPECT_EQ(after.c_oflag, before.c_oflag);
  }
}

TEST_F(UserCommandsTest, WithoutAnEditorTheTextIsPrinted) {
  const std::pair<std::string, std::string> texts[] = {{"あ\r\nlast", "あ\nlast\n"},
                                                       {"\x82\xA0\n", "あ\n"},
                                                       {"\xFF\xFE\x42\x30\x0D\x00\x0A\x00"s, "あ\n"},
                                                       {"", ""}};
  for (const auto& [bytes, text] : texts) {
    editFile(platform, kEnglish, {""}, folder.write("f", bytes));
    EXPECT_EQ(shown(), text) << "the own editor needs a terminal";
  }
  const test::Terminal terminal;
  PosixPlatform onTerminal(terminal.second, terminal.second);
  // the program's own descriptor 0 is no terminal of this test's, so the editor ends by itself
  folder.writeProgram("bin/nano", "echo \"$1\" > '" + folder.path("args") + "'\n");
  editFile(onTerminal, kEnglish, {" "}, folder.path("f"));
  EXPECT_EQ(folder.read("args"), folder.path("f") + "\n");
  fs::remove(folder.path("bin/nano"));
  editFile(onTerminal, kEnglish, {""}, folder.write("f", "line\r\nlast"));
  onTerminal.flush();
  EXPECT_EQ(received(terminal.first), "line\r\nlast\r\n");
}

TEST_F(UserCommandsTest, DocumentsGoToTheDesktopOrAreShown) {
  const std::string text = folder.write("guide.md", "# Guide");
  const std::string binary = folder.write("help.chm", "IT\0SF"s);
  folder.writeProgram("bin/xdg-open", "echo \"$1\" > '" + folder.path("opened") + "'\nexec /bin/sleep 2\n");
  openDocument(platform, kEnglish, text);
  EXPECT_EQ(shown(), "# Guide\n") << "no display";
  openDocument(platform, kEnglish, binary);
  openDocument(platform, kJapanese, fs::relative(binary));
  openDocument(platform, kEnglish, "no");
  openDocument(platform, kJapanese, "no");
  EXPECT_EQ(shown(), "It lies at " + binary + "\n次の場所にあります： " + fs::current_path().string() + "/" +
                         fs::relative(binary).string() + "\n" +
                         "'no' cannot be opened. (No such file or directory)\n"
                         "'no' を開くことができません。 (No such file or directory)\n");
  ::setenv("DISPLAY", ":0", 1);
  const std::int64_t start = platform.performanceCounter();
  for (int i = 0; i < 2; ++i) openDocument(platform, kEnglish, binary);
  EXPECT_LT(platform.performanceCounter() - start, 1'500'000'000) << "it is not waited for";
  for (int i = 0; i < 200 && folder.read("opened").empty(); ++i) ::usleep(10'000);
  EXPECT_EQ(folder.read("opened"), binary + "\n");
}

}  // namespace
}  // namespace zelvaro
