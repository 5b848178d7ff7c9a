// The console as bytes: one buffered sink, one line reader.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Platform.h"

namespace zelvaro {

/// The byte sink.  On a terminal it is written line by line, and characters that could control the terminal
/// or mislead its reader are made visible.  To a pipe or a file the bytes are written unchanged, 64 KiB at a
/// time.  After a failed write all later text is dropped, and the program continues with its files.
class ConsoleOutput {
 public:
  explicit ConsoleOutput(int fd);
  ~ConsoleOutput() { flush(); }
  ConsoleOutput(const ConsoleOutput&) = delete;
  ConsoleOutput& operator=(const ConsoleOutput&) = delete;

  void print(std::string_view utf8);
  /// The same for a text of this program's own that may control the terminal, as the colour of a word.
  void printControl(std::string_view bytes);
  void flush();
  bool isTerminal() const { return terminal_; }
  /// Whether a write has failed: text is missing at the other end.
  bool hasFailed() const { return failed_; }
  /// Of the terminal; the usual size where the terminal does not know its own.
  ConsoleSize size() const;
  /// Whether a write or a poll has found that the other end of the pipe is closed or that the terminal has
  /// hung up: nobody will see what is printed from here on.
  bool readerIsGone() const { return readerIsGone_; }
  /// Polls the descriptor for a reader that is gone.
  void look();
  /// Drops the text that is still in the buffer: its reader is gone.
  void giveUp() { failed_ = readerIsGone_ = true; }

 private:
  static constexpr std::size_t kBuffer = std::size_t{64} * 1024;

  void append(std::string_view bytes);
  void appendHarmless(std::string_view utf8);
  void writeOut();

  int fd_;
  bool terminal_;
  bool failed_ = false;
  bool readerIsGone_ = false;
  std::string buffer_;
  std::string begun_;  ///< on a terminal: the first bytes of a character whose rest has not arrived yet
};

/// Lines from a descriptor, through a buffer of its own.  It never seeks or rewinds.
class ConsoleInput {
 public:
  /// The longest line that is kept, in bytes; the rest of a longer line is read and dropped.
  static constexpr std::size_t kLongestLine = std::size_t{1} << 20;

  explicit ConsoleInput(int fd);

  /// The next line without its line end, or nothing at the end of the input.  On a terminal the
  /// end-of-file key ends this one line: what was typed before it is the line, and with nothing before
  /// it there is no line; a later call reads on.
  std::optional<std::string> readLine();
  bool isTerminal() const { return terminal_; }
  int descriptor() const { return fd_; }
  /// Whether no later call can return a line: this is not a terminal, and a read has reached the end.
  bool hasEnded() const { return ended_ && !terminal_; }
  /// Whether this is a terminal that has hung up; polls the descriptor.
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
