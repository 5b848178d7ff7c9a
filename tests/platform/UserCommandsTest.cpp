// What the menu asks of the outside world: listing, deleting, editors, documents; and how it words what came of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>

#include <csignal>

#include "Descriptors.h"
#include "TemporaryFolder.h"
#include "platform/PosixPlatform.h"
#include "platform/Programs.h"
#include "shell/HelpFile.h"
#include "shell/UserCommands.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;
using test::received;
using test::send;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
namespace fs = std::filesystem;

/// A session of the program in a language, for one command.
class In {
 public:
  In(Platform& platform, Language language) : session_(platform) { session_.wording.language = language; }
  operator TSession&() { return session_; }

 private:
  TSession session_;
};

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
  using Names = std::vector<const char*>;
  const std::tuple<const char*, const char*, Names, std::string> cases[] = {
      {"", "", {}, "none"},
      {"", "", {"sensible-editor"}, "none"},
      {"code -w", "", {"sensible-editor"}, "sensible-editor"},
      {"", "ed", {"sensible-editor"}, "sensible-editor"},
      {"", "", {"sensible-editor", "editor"}, "sensible-editor"},
      {"", "", {"sensible-editor", "vi"}, "sensible-editor"},
      {"code -w", "", {"vi"}, "vi"},
      {"", "", {"vi", "nano"}, "nano"},
      {"", "", {"editor"}, "none"}};
  for (const auto& [visual, editor, installed, own] : cases) {
    fs::remove_all(folder.path("bin"));
    fs::create_directory(folder.path("bin"));
    for (const char* program : installed) folder.writeProgram("bin/"s + program, "");
    ::setenv("VISUAL", visual, 1);
    ::setenv("EDITOR", editor, 1);
    EXPECT_EQ(posix::ownEditor().value_or("none"), own) << testing::PrintToString(installed);
  }
}

TEST_F(UserCommandsTest, ListsAndDeletes) {
  const std::string f = folder.write("f", "");
  listFolder(In(platform, Language::English), folder.path());
  listFolder(In(platform, Language::English), f);
  listFolder(In(platform, Language::English), "no");
  listFolder(In(platform, Language::Japanese), "a\0b"s);
  EXPECT_EQ(shown(), "bin/\nf\n" + f +
                         "\nThe folder 'no' cannot be listed. (No such file or directory)\n"
                         "フォルダ 'a\0b' の一覧を表示できません。 (Invalid argument)\n"s);
  for (const std::string answer : {"", "n", "yy", "いいえ", "y", "Y", " y ", "yes", "はい", "ｙ"}) {
    folder.write("f", "text");
    send(in.second, answer + "\n");
    deleteAfterQuestion(In(platform, Language::Japanese), f);
    const bool isNo = answer.empty() || answer == "n" || answer == "yy" || answer == "いいえ";
    EXPECT_EQ(shown(), "'" + f + "' を削除しますか (y/n)？ 削除しま" + (isNo ? "せんで" : "") + "した。\n")
        << answer;
    EXPECT_EQ(platform.exists(f), isNo) << answer;
  }
  deleteAfterQuestion(In(platform, Language::English), f);
  send(in.second, "y\n");
  deleteAfterQuestion(In(platform, Language::English), folder.path("bin"));
  in.closeSecond();
  deleteAfterQuestion(In(platform, Language::English), folder.write("f", ""));
  EXPECT_EQ(shown(), "There is no file '" + f + "'. \nDelete '" + folder.path("bin") + "' (y/n)? '" +
                         folder.path("bin") + "' cannot be deleted. (Is a directory)\nDelete '" + f +
                         "' (y/n)? It has not been deleted. \n")
      << "the end of the input is no yes";
}

TEST_F(UserCommandsTest, AnEditorGetsARegularFileAndNothingElse) {
  const EditorCommand editor{"\"" +
                             folder.writeProgram("my editor", "for a in \"$@\"; do echo \"<$a>\"; done > '" +
                                                                  folder.path("args") + "'\n/bin/cat >> '" +
                                                                  folder.path("args") + "'\n") +
                             "\" --flag \"two words\""};
  send(in.second, "the dialogue's own line\n");
  showFile(In(platform, Language::English), editor, folder.write("f", ""));
  EXPECT_EQ(folder.read("args"), "<--flag>\n<two words>\n<" + folder.path("f") + ">\n");
  editFile(In(platform, Language::English), editor, "new");
  EXPECT_THAT(folder.read("args"), HasSubstr("<./new>\n")) << "the editor may make it";
  EXPECT_EQ(platform.readLine(), "the dialogue's own line");
  fs::remove(folder.path("args"));
  ASSERT_EQ(::mkfifo(folder.path("fifo").c_str(), 0600), 0);
  showFile(In(platform, Language::English), editor, "new");
  editFile(In(platform, Language::English), editor, folder.path("fifo"));
  editFile(In(platform, Language::Japanese), editor, folder.path("bin"));
  showFile(In(platform, Language::English), editor, "");
  EXPECT_FALSE(platform.exists(folder.path("args")));
  editFile(In(platform, Language::English), {"no-such-editor -x"}, "f");
  editFile(In(platform, Language::Japanese), {folder.write("text", "")}, "f");
  EXPECT_EQ(shown(),
            "'new' cannot be shown. (No such file or directory)\n'" + folder.path("fifo") +
                "' cannot be shown. (Not a regular file)\n'" + folder.path("bin") +
                "' を表示できません。 (Is a directory)\n"
                "The editor 'no-such-editor' cannot be started. (No such file or directory)\nエディタ '" +
                folder.path("text") + "' を起動できません。 (Permission denied)\n");
  fs::permissions(folder.write("text", "touch '" + folder.path("hacked") + "'\n"), fs::perms::owner_all);
  editFile(In(platform, Language::English), {folder.path("text")}, "f");
  EXPECT_THAT(shown(), HasSubstr("cannot be started. (Exec format error)"));
  EXPECT_FALSE(platform.exists(folder.path("hacked"))) << "a shell would have taken it";
}

TEST_F(UserCommandsTest, KeysAndTerminalComeBackFromTheEditor) {
  editFile(In(platform, Language::English),
           {folder.writeProgram("e", "kill -INT $PPID\n/bin/touch '" + folder.path("a") + "'")}, "f");
  EXPECT_TRUE(platform.exists(folder.path("a"))) << "Ctrl+C is the editor's while it runs";
  struct sigaction now {};
  ::sigaction(SIGINT, nullptr, &now);
  EXPECT_EQ(now.sa_handler, SIG_DFL);
  editFile(In(platform, Language::English),
           {folder.writeProgram("d", "kill -INT $$\n/bin/touch '" + folder.path("b") + "'")}, "f");
  EXPECT_FALSE(platform.exists(folder.path("b"))) << "the editor has the signal's usual meaning";
  const test::Terminal terminal;
  PosixPlatform onTerminal(terminal.second, terminal.second);
  termios before{}, after{};
  ::tcgetattr(terminal.second, &before);
  for (const std::string end : {"kill -9 $$", "exit 1"}) {
    const std::string breaking = "/bin/stty raw -echo < "s + ::ttyname(terminal.second) + " && /bin/touch '" +
                                 folder.path("c" + end) + "'\n" + end + "\n";
    editFile(In(onTerminal, Language::English), {folder.writeProgram("b", breaking)}, "f");
    EXPECT_TRUE(platform.exists(folder.path("c" + end)));
    ::tcgetattr(terminal.second, &after);
    EXPECT_TRUE(after.c_lflag == before.c_lflag && after.c_iflag == before.c_iflag &&
                after.c_oflag == before.c_oflag);
  }
}

TEST_F(UserCommandsTest, WithoutAnEditorTheTextIsPrinted) {
  for (const auto& [bytes, text] :
       {std::pair{"あ\r\nlast"s, "あ\nlast\n"}, {"\x82\xA0\n", "あ\n"}, {"", ""}}) {
    editFile(In(platform, Language::English), {""}, folder.write("f", bytes));
    EXPECT_EQ(shown(), text) << "the own editor needs a terminal";
  }
  const test::Terminal terminal;
  PosixPlatform onTerminal(terminal.second, terminal.second);
  folder.writeProgram("bin/nano", "echo \"$1\" > '" + folder.path("args") + "'\n");
  editFile(In(onTerminal, Language::English), {" "}, folder.path("f"));
  EXPECT_EQ(folder.read("args"), folder.path("f") + "\n");
  fs::remove(folder.path("bin/nano"));
  editFile(In(onTerminal, Language::English), {""}, folder.write("f", "line\r\nlast"));
  onTerminal.flush();
  EXPECT_EQ(received(terminal.first), "line\r\nlast\r\n");
}

TEST_F(UserCommandsTest, ATextLongerThanTheScreenIsPrintedPageByPage) {
  const test::Terminal terminal;
  const winsize size{3, 4, 0, 0};
  ::ioctl(terminal.second, TIOCSWINSZ, &size);
  termios mode{};
  ::tcgetattr(terminal.second, &mode);
  mode.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  ::tcsetattr(terminal.second, TCSANOW, &mode);
  PosixPlatform onTerminal(terminal.second, terminal.second);
  const std::string pages[] = {"1\r\n2345\r\n", "6789\r\n\r\n", "ああああ\r\n", "い\r\n\t\r\n",
                               "<U+202E>last\r\n"};
  folder.write("f", "1\n23456789\n\nああああい\n\t\u202Elast");
  for (const auto& [keys, count] : {std::pair{"\n\n\n\n", 5u}, {"\x04", 1u}, {"\n ｑ\n", 2u}}) {
    send(terminal.first, keys);
    editFile(In(onTerminal, Language::English), {""}, folder.path("f"));
    onTerminal.flush();
    std::string expected;
    for (std::size_t i = 0; i < count; ++i)
      expected += (i > 0 ? "-- Enter: next page   q: end of the text -- " : "") + pages[i];
    EXPECT_EQ(received(terminal.first),
              expected + (count < 5 ? "-- Enter: next page   q: end of the text -- " : ""));
  }
}

TEST_F(UserCommandsTest, DocumentsGoToTheDesktopOrAreShown) {
  const std::string binary = folder.write("help.chm", "IT\0SF"s), near = fs::relative(binary);
  folder.writeProgram("bin/xdg-open", "echo \"$1\" > '" + folder.path("opened") + "'\nexec /bin/sleep 2\n");
  openDocument(In(platform, Language::English), folder.write("guide.md", "# Guide"));
  openDocument(In(platform, Language::English), binary);
  openDocument(In(platform, Language::Japanese), near);
  openDocument(In(platform, Language::English), "no");
  EXPECT_EQ(shown(), "# Guide\nIt lies at " + binary + "\n次の場所にあります： " +
                         fs::current_path().string() + "/" + near +
                         "\n'no' cannot be opened. (No such file or directory)\n");
  ::setenv("DISPLAY", ":0", 1);
  const std::int64_t start = platform.performanceCounter();
  for (int i = 0; i < 2; ++i) openDocument(In(platform, Language::English), binary);
  EXPECT_LT(platform.performanceCounter() - start, 1'500'000'000) << "it is not waited for";
  for (int i = 0; i < 200 && folder.read("opened").empty(); ++i) ::usleep(10'000);
  EXPECT_EQ(folder.read("opened"), binary + "\n");
  fs::create_directory(folder.path("docs"));
  folder.write("docs/GUIDE.en.md", "guide");
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  const test::Terminal terminal;
  PosixPlatform onTerminal(terminal.second, terminal.second);
  openHelpFile(In(onTerminal, Language::English));
  openHelpFile(In(platform, Language::English));
  ::unsetenv("DISPLAY");
  openHelpFile(In(onTerminal, Language::English));
  fs::current_path(before);
  EXPECT_EQ(received(terminal.first), "The desktop opens the guide 'docs/GUIDE.en.md'. \r\nguide\r\n");
  EXPECT_EQ(shown(), "guide\n") << "through pipes it is printed";
}

}  // namespace
}  // namespace zelvaro
