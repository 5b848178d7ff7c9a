// The console as bytes: through pipes, into files and on a real pseudo-terminal.
#include <gtest/gtest.h>
#include <termios.h>

#include <csignal>
#include <thread>

#include "Descriptors.h"
#include "TemporaryFolder.h"
#include "platform/Console.h"
#include "platform/PosixPlatform.h"

namespace zelvaro {
namespace {

using namespace std::string_literals;
using test::Pipe;
using test::received;
using test::send;
using test::Terminal;

TEST(ConsoleOutput, BytesPassUnchangedThroughAPipe) {
  const Pipe pipe;
  const std::string bytes = "\x1B[2J\0\x07\x9B\xC2\x9B あ\r\n"s;
  ConsoleOutput out(pipe.second);
  out.print(bytes);
  EXPECT_EQ(received(pipe.first), "") << "one buffer, flushed before a read and at the end";
  out.flush();
  EXPECT_EQ(received(pipe.first), bytes);
}

TEST(ConsoleOutput, WhatIsLongerThanTheBufferArrivesWhole) {
  const Pipe pipe;
  std::string bytes;
  for (int i = 0; bytes.size() < 1'000'000; ++i) bytes += std::to_string(i) + "\n";
  std::thread writer([&] {
    ConsoleOutput out(pipe.second);
    for (std::size_t i = 0; i < bytes.size(); i += 777) out.print(std::string_view(bytes).substr(i, 777));
  });
  std::string got;
  char part[8192];
  while (got.size() < bytes.size()) {
    const ssize_t n = ::read(pipe.first, part, sizeof part);
    ASSERT_GT(n, 0);
    got.append(part, static_cast<std::size_t>(n));
  }
  writer.join();
  EXPECT_TRUE(got == bytes);
}

TEST(ConsoleOutput, ControlCharactersAreHarmlessOnATerminal) {
  struct Case {
    std::string printed, seen;
  };
  const Case cases[] = {
      {"plain\ttext\n", "plain\ttext\r\n"},
      {"\x1B[2J", "^[[2J"},
      {"\x07\x08\r\x7F\0|"s, "^G^H^M^?^@|"},
      {"\xC2\x9B"
       "31m",
       "<U+009B>31m"},
      {"\xC2\x80\xC2\x85\xC2\xA0", "<U+0080><U+0085>\xC2\xA0"},
      {"日本語と𠮷", "日本語と𠮷"},
      {"\x9B"
       "31m",
       "\uFFFD31m"},  // a control character of a terminal that is not UTF-8
      {"\xE3\x81"
       "A\xC3",
       "\uFFFD"
       "A\uFFFD"},                     // cut characters
      {"\xC1\x9B|", "\uFFFD\uFFFD|"},  // disguises of controls, longer than they need be
      {"\xE0\x82\x9B|", "\uFFFD|"},
      {"\xF0\x80\x82\x9B|", "\uFFFD|"},
  };
  for (const Case& c : cases) {
    const Terminal terminal;
    ConsoleOutput out(terminal.second);
    out.print(c.printed);
    out.flush();
    EXPECT_EQ(received(terminal.first), c.seen);
  }
}

TEST(ConsoleOutput, ACharacterMayArriveInParts) {
  const Terminal terminal;
  ConsoleOutput out(terminal.second);
  for (const char c : "あ\xC2\x9B\x1B["s) out.print({&c, 1});
  out.flush();
  EXPECT_EQ(received(terminal.first), "あ<U+009B>^[[");
}

TEST(ConsoleOutput, ALineIsSeenAtOnceOnATerminal) {
  const Terminal terminal;
  ConsoleOutput out(terminal.second);
  out.print("a line\nand ");
  EXPECT_EQ(received(terminal.first), "a line\r\nand ");
}

TEST(ConsoleOutput, AClosedOutputStopsNeitherTheProgramNorItsFiles) {
  const test::TemporaryFolder folder;
  Pipe pipe;
  pipe.closeFirst();
  PosixPlatform platform(0, pipe.second);
  for (int i = 0; i < 5; ++i) platform.print(std::string(100'000, 'x'));
  platform.flush();
  auto file = platform.createFile(folder.path("report"), nullptr);
  file->write("text");
  EXPECT_TRUE(file->commit());
  EXPECT_EQ(folder.read("report"), "text");
}

TEST(ConsoleOutput, AFullDiskIsGivenUp) {
  const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
  ASSERT_GE(full, 0);
  {
    ConsoleOutput out(full);
    out.print(std::string(1'000'000, 'x'));
  }
  ::close(full);
}

TEST(ConsoleInput, LinesOfAPipe) {
  Pipe pipe;
  send(pipe.second, "one\r\ntwo\n\nthr\ree\n\0z\nlast"s);
  pipe.closeSecond();
  ConsoleInput in(pipe.first);
  for (const std::string& line : {"one"s, "two"s, ""s, "thr\ree"s, "\0z"s, "last"s})
    EXPECT_EQ(in.readLine(), line);
  EXPECT_EQ(in.readLine(), std::nullopt);
  EXPECT_EQ(in.readLine(), std::nullopt);
}

TEST(ConsoleInput, ALongLineIsCutAndItsRestDropped) {
  Pipe pipe;
  std::thread writer([&] {
    send(pipe.second, std::string(1'000'000, 'a') + "\n" + std::string(3'000'000, 'b') + "\nnext\n");
    pipe.closeSecond();
  });
  ConsoleInput in(pipe.first);
  EXPECT_TRUE(in.readLine() == std::string(1'000'000, 'a'));
  EXPECT_TRUE(in.readLine() == std::string(ConsoleInput::kLongestLine, 'b'));
  EXPECT_EQ(in.readLine(), "next");
  writer.join();
}

TEST(ConsoleInput, ASignalOrAnInputThatIsNotReadyEndsNoLine) {
  Pipe pipe;
  ::fcntl(pipe.first, F_SETFL, O_NONBLOCK);
  struct sigaction action {};
  action.sa_handler = [](int) {};  // without SA_RESTART: a read in progress is interrupted
  struct sigaction old {};
  ::sigaction(SIGUSR1, &action, &old);
  const pthread_t reader = ::pthread_self();
  std::thread writer([&] {
    for (int i = 0; i < 3; ++i) {
      ::usleep(5'000);
      ::pthread_kill(reader, SIGUSR1);
    }
    send(pipe.second, "line\n");
  });
  ConsoleInput in(pipe.first);
  EXPECT_EQ(in.readLine(), "line");
  writer.join();
  ::sigaction(SIGUSR1, &old, nullptr);
}

TEST(ConsoleInput, NoInputAtAllHasEnded) {
  ConsoleInput closed(-1);
  EXPECT_EQ(closed.readLine(), std::nullopt);
  const test::TemporaryFolder folder;
  const int fd = ::open(folder.path().c_str(), O_RDONLY | O_CLOEXEC);
  ConsoleInput unreadable(fd);
  EXPECT_EQ(unreadable.readLine(), std::nullopt);
  ::close(fd);
}

TEST(ConsoleInput, TheEndOfFileKeyEndsOneReadOnly) {
  constexpr const char* kCtrlD = "\x04";
  const Terminal terminal;
  ConsoleInput in(terminal.second);
  send(terminal.first, kCtrlD);
  EXPECT_EQ(in.readLine(), std::nullopt);
  send(terminal.first, "part"s + kCtrlD);
  EXPECT_EQ(in.readLine(), "part");
  send(terminal.first, "whole\n");
  EXPECT_EQ(in.readLine(), "whole");
  send(terminal.first, "two\nlines\n");
  EXPECT_EQ(in.readLine(), "two");
  EXPECT_EQ(in.readLine(), "lines");
}

TEST(ConsoleInput, ATerminalThatDoesNotCollectLinesStillHasThem) {
  const Terminal terminal;
  termios mode{};
  ::tcgetattr(terminal.second, &mode);
  mode.c_lflag &= ~static_cast<tcflag_t>(ICANON);
  ::tcsetattr(terminal.second, TCSANOW, &mode);
  ConsoleInput in(terminal.second);
  std::thread typist([&] {
    for (const char c : "abc\n"s) {
      send(terminal.first, {&c, 1});
      ::usleep(2'000);
    }
  });
  EXPECT_EQ(in.readLine(), "abc");
  typist.join();
}

TEST(ConsoleInput, WhatWasPrintedIsSeenBeforeTheRead) {
  Pipe typed;
  const Pipe shown;
  send(typed.second, "answer\n");
  PosixPlatform platform(typed.first, shown.second);
  platform.print("question ");
  EXPECT_EQ(platform.readLine(), "answer");
  EXPECT_EQ(received(shown.first), "question ");
}

}  // namespace
}  // namespace zelvaro
