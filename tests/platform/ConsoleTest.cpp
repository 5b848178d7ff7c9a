// The console as bytes: through pipes and on a real pseudo-terminal.
#include <gtest/gtest.h>
#include <termios.h>

#include <csignal>
#include <thread>

#include "Descriptors.h"
#include "platform/posix/PosixPlatform.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;
using test::Pipe;
using test::received;
using test::send;
using test::Terminal;

TEST(ConsoleOutput, BytesPassUnchangedThroughAPipeHoweverSlowItsReader) {
  const Pipe pipe;
  ::fcntl(pipe.second, F_SETFL, O_NONBLOCK);
  const std::string steering = "\x1B[2J\0\x07\x9B\xC2\x9B あ\r\n\xED\xA0\x80\xF4\x90\x80\x80\u202E"s;
  const std::string rest = std::string(300'000, 'x') + "end";
  std::thread writer([&] {
    ConsoleOutput out(pipe.second);
    out.print(steering);
    EXPECT_EQ(received(pipe.first), "") << "one buffer, flushed before a read and at the end";
    out.print(rest);
  });
  ::usleep(20'000);
  std::string got;
  while (!got.ends_with("end")) got += received(pipe.first);
  writer.join();
  EXPECT_TRUE(got == steering + rest);
}

TEST(ConsoleOutput, ATerminalShowsAndDoesNotObey) {
  const std::pair<std::string, std::string> cases[] = {
      {"plain\ttext\nand ", "plain\ttext\r\nand "},
      {"日本語と𠮷 ga\u3099 \u200D\uFE0F", "日本語と𠮷 ga\u3099 \u200D\uFE0F"},
      {"\x1B[2J\x07\x08\r\x7F\0|"s, "^[[2J^G^H^M^?^@|"},
      {"\u009B31m\u0080\u0085\u00A0", "<U+009B>31m<U+0080><U+0085>\u00A0"},
      {"a\u202Eb\u2066c\u2069\u200F\u061C", "a<U+202E>b<U+2066>c<U+2069><U+200F><U+061C>"},
      {"\u2028\u2029\U000E0041\U000E007F", "<U+2028><U+2029><U+E0041><U+E007F>"},
      {"\x9B|\xE3\x81|\xC3", "\uFFFD|\uFFFD|\uFFFD"},                  // stray and cut
      {"\xC1\x9B|\xE0\x82\x9B|", "\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD|"},  // longer than they need be
      {"\xED\xA0\x80|\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD\uFFFD"}};  // no characters
  for (const auto& [printed, seen] : cases) {
    for (const std::size_t step : {printed.size(), std::size_t{1}}) {
      const Terminal terminal;
      ConsoleOutput out(terminal.second);
      for (std::size_t i = 0; i < printed.size(); i += step)
        out.print(std::string_view(printed).substr(i, step));
      const std::string atOnce = received(terminal.first);
      EXPECT_EQ(atOnce.empty(), printed.find('\n') == printed.npos) << "a line is seen at once";
      out.flush();
      EXPECT_EQ(atOnce + received(terminal.first), seen);
    }
  }
}

/// Whether it is found within a second that nobody follows the console.
bool isFoundGone(PosixPlatform& platform) {
  for (int i = 0; i < 100 && !platform.consoleIsGone(); ++i) ::usleep(10'000);
  return platform.consoleIsGone() && !platform.readLine();
}

TEST(Console, NobodyThereIsNoticedWithoutAWrite) {
  Pipe in, out;
  PosixPlatform piped(in.first, out.second);
  send(in.second, "line\nline\n");
  in.closeSecond();
  ::usleep(300'000);
  EXPECT_FALSE(piped.consoleIsGone()) << "an input that has been closed may still have lines";
  EXPECT_EQ(piped.readLine(), "line");
  out.closeFirst();
  EXPECT_TRUE(isFoundGone(piped));
  for (const bool output : {false, true}) {
    const Pipe other;
    Terminal terminal;
    PosixPlatform platform(output ? other.first : terminal.second, output ? terminal.second : other.second);
    EXPECT_FALSE(platform.consoleIsGone());
    terminal.closeFirst();
    EXPECT_TRUE(isFoundGone(platform));
  }
}

TEST(ConsoleInput, LinesOfAPipeWhateverInterruptsIt) {
  struct sigaction action {};
  action.sa_handler = [](int) {};  // without SA_RESTART: a read or poll in progress is interrupted
  ::sigaction(SIGUSR1, &action, nullptr);
  for (const int mode : {0, O_NONBLOCK}) {
    Pipe pipe;
    ::fcntl(pipe.first, F_SETFL, mode);
    std::thread writer([&pipe, reader = ::pthread_self()] {
      for (int i = 0; i < 3; ++i) {
        ::usleep(5'000);
        ::pthread_kill(reader, SIGUSR1);
      }
      send(pipe.second, "one\r\ntwo\n\nthr\ree\n\0z\n"s + std::string(3'000'000, 'b') + "\nlast");
      pipe.closeSecond();
    });
    ConsoleInput in(pipe.first);
    for (const std::string& line :
         {"one"s, "two"s, ""s, "thr\ree"s, "\0z"s, std::string(ConsoleInput::kLongestLine, 'b'), "last"s}) {
      EXPECT_FALSE(in.hasEnded());
      EXPECT_TRUE(in.readLine() == line) << line.substr(0, 20);
    }
    for (int i = 0; i < 2; ++i) EXPECT_EQ(in.readLine(), std::nullopt);
    EXPECT_TRUE(in.hasEnded());
    writer.join();
  }
  EXPECT_EQ(ConsoleInput(-1).readLine(), std::nullopt);
}

TEST(ConsoleInput, TheEndOfFileKeyEndsOneReadOnly) {
  const Terminal terminal;
  ConsoleInput in(terminal.second);
  using Lines = std::vector<std::optional<std::string>>;
  const std::tuple<std::string, bool, Lines> cases[] = {{"\x04", true, {std::nullopt}},
                                                        {"part\x04", true, {"part"}},
                                                        {"two\nlines\n", true, {"two", "lines"}},
                                                        {"abc\n", false, {"abc"}}};
  for (const auto& [typed, collects, lines] : cases) {  // a terminal that does not collect still has lines
    termios mode{};
    ::tcgetattr(terminal.second, &mode);
    if (!collects) mode.c_lflag &= ~static_cast<tcflag_t>(ICANON);
    ::tcsetattr(terminal.second, TCSANOW, &mode);
    std::thread typist([&, keys = typed] {
      for (const char& c : keys) {
        send(terminal.first, {&c, 1});
        ::usleep(2'000);
      }
    });
    for (const auto& line : lines) EXPECT_EQ(in.readLine(), line);
    EXPECT_FALSE(in.hasEnded());
    typist.join();
  }
}

}  // namespace
}  // namespace zelvaro
