// The console as bytes: one buffered sink, one line reader.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zelvaro {

/// The byte sink.  On a terminal it is written line by line, and what could steer the terminal or mislead its
/// reader is made visible; into a pipe or a file the bytes pass as they are, 64 KiB at a time.  An output that fails is
/// given up: later text is dropped, and the program goes on with its files.
class ConsoleOutput {
 public:
  explicit ConsoleOutput(int fd);
  ~ConsoleOutput() { flush(); }
  ConsoleOutput(const ConsoleOutput&) = delete;
  ConsoleOutput& operator=(const ConsoleOutput&) = delete;

  void print(std::string_view utf8);
  void flush();
  bool isTerminal() const { return terminal_; }
  /// Whether the other end of the pipe has been closed, or the terminal has hung up, as far as a write or a
  /// look has shown it: nobody will see what is printed from here on.
  bool readerIsGone() const { return readerIsGone_; }
  /// Asks the system whether the reader is gone.
  void look();
  /// Drops all that is still to be printed: its reader is gone.
  void giveUp() { failed_ = readerIsGone_ = true; }

 private:
  void append(std::string_view bytes);
  void appendHarmless(std::string_view utf8);
  void writeOut();

  int fd_;
  bool terminal_;
  bool failed_ = false;
  bool readerIsGone_ = false;
  std::string buffer_;
  std::string begun_;  ///< the first bytes of a character that has not come whole, on a terminal
};

/// Lines from a descriptor, through a buffer of its own.  Nothing is ever sought or rewound.
class ConsoleInput {
 public:
  /// The longest line that is kept, in bytes; what lies beyond is read and dropped.
  static constexpr std::size_t kLongestLine = std::size_t{1} << 20;

  explicit ConsoleInput(int fd);

  /// The next line without its line end, or nothing at the end of the input.  On a terminal the
  /// end-of-file key ends this one line: what was typed before it is the line, and with nothing before
  /// it there is no line; a later call reads on.
  std::optional<std::string> readLine();
  bool isTerminal() const { return terminal_; }
  int descriptor() const { return fd_; }
  /// Whether no later call can find a line: this is no terminal, and a read has found the end.
  bool hasEnded() const { return ended_ && !terminal_; }
  /// Whether this is a terminal whose other side is gone; asks the system.
  bool hasHungUp() const;

 private:
  bool refill();
  bool endsByKey() const;

  int fd_;
  bool terminal_;
  bool ended_ = false;
  std::string buffer_;
  std::size_t next_ = 0;  ///< first byte of the buffer that is not yet taken
};

}  // namespace zelvaro
