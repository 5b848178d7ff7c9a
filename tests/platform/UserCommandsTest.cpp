// What the menu asks of the outside world: listing, deleting, editors, documents; and how it words what came of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>

#include <csignal>

#include "Descriptors.h"
#include "TemporaryFolder.h"
#include "platform/posix/PosixPlatform.h"
#include "platform/posix/Programs.h"
#include "shell/HelpFile.h"
#include "shell/UserCommands.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;
using test::received;
using test::send;
using ::testing::HasSubstr;
namespace fs = std::filesystem;

/// Sessions through two pipes and on a terminal, with a search path that holds only what a test puts there.
class UserCommandsTest : public ::testing::Test {
 protected:
  UserCommandsTest() : oldPath_(std::getenv("PATH")) {
    fs::create_directory(folder.path("bin"));
    ::setenv("PATH", (folder.path("none") + ":" + folder.path("bin")).c_str(), 1);
    for (const char* variable : {"VISUAL", "EDITOR", "DISPLAY", "WAYLAND_DISPLAY"}) ::unsetenv(variable);
    japanese.wording.language = Language::Japanese;
    english.wording.language = onTerminal.wording.language = Language::English;
  }
  ~UserCommandsTest() override { ::setenv("PATH", oldPath_.c_str(), 1); }

  std::string shown() {
    platform.flush();
    return received(out.first);
  }

  std::string oldPath_;
  test::TemporaryFolder folder;
  test::Pipe in, out;
  test::Terminal terminal;
  PosixPlatform platform{in.first, out.second}, terminalPlatform{terminal.second, terminal.second};
  TSession english{platform}, japanese{platform}, onTerminal{terminalPlatform};
};

TEST_F(UserCommandsTest, ASettingIsAProgramThatExistsOrElseACommandLine) {
  const std::string blank = folder.writeProgram("my editor -x", "");
  folder.writeProgram("bin/my ed", "");
  fs::create_directory(folder.path("a folder"));
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {" \t ", {}},
      {"my ed", {"my ed"}},
      {"code  --wait", {"code", "--wait"}},
      {" \"" + blank + "\"\t", {blank}},
      {"\"" + blank + "\" -n", {blank, "-n"}},
      {blank, {blank}},
      {blank + " -n", {folder.path("my"), "editor", "-x", "-n"}},
      {folder.path("a folder"), {folder.path("a"), "folder"}},
      {"a\"b c\"d \"\" $(x) ; > * 'y z' \"open \\",
       {"ab cd", "", "$(x)", ";", ">", "*", "'y", "z'", "open \\"}}};
  for (const auto& [setting, words] : cases) EXPECT_EQ(posix::editorCommand(setting), words) << setting;
}

TEST_F(UserCommandsTest, TheOwnEditorIsSensibleEditorWhereItHasAChoice) {
  using Names = std::vector<std::string>;
  const std::tuple<const char*, Names, std::string> cases[] = {
      {"", {"sensible-editor"}, "none"},
      {"code -w", {"sensible-editor"}, "sensible-editor"},
      {"", {"sensible-editor", "editor"}, "sensible-editor"},
      {"", {"sensible-editor", "vi"}, "sensible-editor"},
      {"code -w", {"vi"}, "vi"},
      {"", {"vi", "nano"}, "nano"},
      {"", {"editor"}, "none"}};
  for (const auto& [visual, installed, own] : cases) {
    fs::remove_all(folder.path("bin"));
    fs::create_directory(folder.path("bin"));
    for (const std::string& program : installed) folder.writeProgram("bin/" + program, "");
    ::setenv("VISUAL", visual, 1);
    EXPECT_EQ(posix::ownEditor().value_or("none"), own) << testing::PrintToString(installed);
  }
}

TEST_F(UserCommandsTest, ListsAndDeletes) {
  const std::string f = folder.write("f", ""), bin = folder.path("bin");
  listFolder(english, folder.path());
  listFolder(english, f);
  listFolder(english, "no");
  listFolder(japanese, "a\0b"s);
  EXPECT_EQ(shown(), "bin/\nf\n" + f +
                         "\nThe folder 'no' cannot be listed. (No such file or directory)\n"
                         "フォルダ 'a\0b' の一覧を表示できません。 (Invalid argument)\n"s);
  for (const std::string answer : {"", "yy", "いいえ", "y", " Y ", "yes", "はい", "ｙ"}) {
    const bool isNo = answer.empty() || answer == "yy" || answer == "いいえ";
    folder.write("f", "text");
    send(in.second, answer + "\n");
    deleteAfterQuestion(japanese, f);
    EXPECT_EQ(shown(), "'" + f + "' を削除しますか (y/n)？ 削除しま" + (isNo ? "せんで" : "") + "した。\n");
    EXPECT_EQ(platform.exists(f), isNo) << answer;
  }
  deleteAfterQuestion(english, f);
  send(in.second, "y\n");
  deleteAfterQuestion(english, bin);
  in.closeSecond();
  deleteAfterQuestion(english, folder.write("f", ""));
  EXPECT_EQ(shown(), "There is no file '" + f + "'. \nDelete '" + bin + "' (y/n)? '" + bin +
                         "' cannot be deleted. (Is a directory)\nDelete '" + f +
                         "' (y/n)? It has not been deleted. \n")
      << "the end of the input is no yes";
}

TEST_F(UserCommandsTest, AnEditorGetsARegularFileAndNothingElse) {
  const std::string args = folder.path("args"), fifo = folder.path("fifo"), bin = folder.path("bin");
  const std::string program = folder.writeProgram(
      "my editor", "exec > '" + args + "'\nfor a in \"$@\"; do echo \"<$a>\"; done\n/bin/cat\n");
  const EditorCommand editor{"\"" + program + "\" --flag \"two words\""};
  ::dup2(in.first, STDIN_FILENO);  // as in the program: what an editor could inherit is the dialogue's input
  send(in.second, "the dialogue's own line\n");
  showFile(english, editor, folder.write("f", ""));
  EXPECT_EQ(folder.read("args"), "<--flag>\n<two words>\n<" + folder.path("f") + ">\n");
  editFile(english, editor, "new");
  EXPECT_THAT(folder.read("args"), HasSubstr("<./new>\n")) << "the editor may make it";
  EXPECT_EQ(platform.readLine(), "the dialogue's own line");
  fs::remove(args);
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  showFile(english, editor, "new");
  editFile(english, editor, fifo);
  editFile(japanese, editor, bin);
  showFile(english, editor, "");
  EXPECT_FALSE(platform.exists(args));
  const std::string text = folder.write("text", "touch '" + args + "'\n");
  editFile(english, {"no-such-editor -x"}, "f");
  editFile(japanese, {text}, "f");
  fs::permissions(text, fs::perms::owner_all);
  editFile(english, {text}, "f");
  EXPECT_FALSE(platform.exists(args)) << "a shell would have taken it";
  EXPECT_EQ(shown(), "'new' cannot be shown. (No such file or directory)\n'" + fifo +
                         "' cannot be shown. (Not a regular file)\n'" + bin +
                         "' を表示できません。 (Is a directory)\n"
                         "The editor 'no-such-editor' cannot be started. (No such file or directory)\n"
                         "エディタ '" +
                         text + "' を起動できません。 (Permission denied)\nThe editor '" + text +
                         "' cannot be started. (Exec format error)\n");
}

TEST_F(UserCommandsTest, KeysAndTerminalComeBackFromTheEditor) {
  const std::string touched = folder.path("touched"), touch = "/bin/touch '" + touched + "'\n",
                    breaks = "/bin/stty raw -echo < "s + ::ttyname(terminal.second) + "\n";
  const auto mode = [this] {
    termios now{};
    ::tcgetattr(terminal.second, &now);
    return std::tuple(now.c_lflag, now.c_iflag, now.c_oflag);
  };
  const auto usual = mode();
  std::signal(SIGINT, SIG_DFL);  // a script's background job ignores it
  for (const auto& [body, isTouched] :
       {std::pair{"kill -INT $PPID\n" + touch, true},  // Ctrl+C is the editor's,
        {"kill -INT $$\n" + touch, false},             // which it ends
        {breaks + touch + "kill -9 $$", true},
        {breaks + touch + "exit 1", true}}) {
    editFile(onTerminal, {folder.writeProgram("e", body)}, "f");
    EXPECT_EQ(fs::remove(touched), isTouched) << body;
    EXPECT_EQ(mode(), usual) << body;
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_DFL) << body;
  }
}

TEST_F(UserCommandsTest, WithoutAnEditorTheTextIsPrinted) {
  folder.writeProgram("bin/nano", "echo \"$1\" > '" + folder.path("args") + "'\n");
  for (const auto& [bytes, text] :
       {std::pair{"あ\r\nlast"s, "あ\nlast\n"}, {"\x82\xA0\n", "あ\n"}, {"", ""}}) {
    editFile(english, {""}, folder.write("f", bytes));
    EXPECT_EQ(shown(), text) << "the own editor needs a terminal";
  }
  editFile(onTerminal, {" "}, folder.path("f"));
  EXPECT_EQ(folder.read("args"), folder.path("f") + "\n");
  fs::remove(folder.path("bin/nano"));
  editFile(onTerminal, {""}, folder.write("f", "line\r\nlast"));
  terminalPlatform.flush();
  EXPECT_EQ(received(terminal.first), "line\r\nlast\r\n");
}

TEST_F(UserCommandsTest, ATextLongerThanTheScreenIsPrintedPageByPage) {
  const winsize size{3, 4, 0, 0};
  ::ioctl(terminal.second, TIOCSWINSZ, &size);
  termios mode{};
  ::tcgetattr(terminal.second, &mode);
  mode.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  ::tcsetattr(terminal.second, TCSANOW, &mode);
  const std::string pages[] = {"1\r\n2345\r\n", "6789\r\n\r\n", "ああああ\r\n", "い\r\n\t\r\n",
                               "<U+202E>last\r\n"};
  folder.write("f", "1\n23456789\n\nああああい\n\t\u202Elast");
  for (const auto& [keys, count] : {std::pair{"\n\n\n\n", 5u}, {"\x04", 1u}, {"\n ｑ\n", 2u}}) {
    send(terminal.first, keys);
    editFile(onTerminal, {""}, folder.path("f"));
    terminalPlatform.flush();
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
  openDocument(english, folder.write("guide.md", "# Guide"));
  openDocument(english, binary);
  openDocument(japanese, near);
  openDocument(english, "no");
  EXPECT_EQ(shown(), "# Guide\nIt lies at " + binary + "\n次の場所にあります： " +
                         fs::current_path().string() + "/" + near +
                         "\n'no' cannot be opened. (No such file or directory)\n");
  ::setenv("DISPLAY", ":0", 1);
  const std::int64_t start = platform.performanceCounter();
  for (int i = 0; i < 2; ++i) openDocument(english, binary);
  EXPECT_LT(platform.performanceCounter() - start, 1'500'000'000) << "it is not waited for";
  for (int i = 0; i < 200 && folder.read("opened").empty(); ++i) ::usleep(10'000);
  EXPECT_EQ(folder.read("opened"), binary + "\n");
  ::unsetenv("DISPLAY");
  fs::remove(folder.path("bin/xdg-open"));
  ::setenv("WAYLAND_DISPLAY", "w", 1);
  openDocument(english, folder.path("guide.md"));
  EXPECT_EQ(shown(), "# Guide\n") << "without a program for it";
}

TEST_F(UserCommandsTest, TheGuideGoesToTheDesktopOrIsShown) {
  folder.writeProgram("bin/xdg-open", "");
  fs::create_directory(folder.path("docs"));
  folder.write("docs/GUIDE.en.md", "guide");
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  ::setenv("DISPLAY", ":0", 1);
  openHelpFile(onTerminal);
  openHelpFile(english);
  ::unsetenv("DISPLAY");
  openHelpFile(onTerminal);
  ::setenv("LESSOPEN", "|/bin/touch %s", 1);
  folder.writeProgram("bin/less",
                      "echo \"$@ <$LESSOPEN>$LESSSECURE$LESSHISTFILE\" > '" + folder.path("paged") + "'\n");
  openHelpFile(onTerminal);
  ::unsetenv("LESSOPEN");
  fs::current_path(before);
  terminalPlatform.flush();
  EXPECT_EQ(received(terminal.first), "The desktop opens the guide 'docs/GUIDE.en.md'. \r\nguide\r\n");
  EXPECT_EQ(folder.read("paged"),
            "-PsSpace\\: next page  b\\: page before  q\\: end ./docs/GUIDE.en.md <>1-\n");
  EXPECT_EQ(shown(), "guide\n") << "through pipes it is printed";
}

}  // namespace
}  // namespace zelvaro
