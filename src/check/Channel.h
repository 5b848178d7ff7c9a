// Where the results of a file go.  Files that are processed at once write in the order of the command line.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Console.h"

namespace zelvaro::check {

/// What a piece of text is; a colour shows it, if colours are on.
enum class Shade : std::uint8_t { Plain, Error, Warning, Note, Quote };

/// The two streams of one file.
class Channel {
 public:
  virtual ~Channel() = default;
  virtual void out(std::string_view utf8) = 0;
  virtual void err(std::string_view utf8, Shade shade = Shade::Plain) = 0;
  /// Passes on what waits in a buffer, before a read.
  virtual void flush() = 0;
  /// Whether nobody reads standard output any more.
  virtual bool isGone() = 0;
};

/// Standard output and standard error.  One thread at a time may use it.
class Screen : public Channel {
 public:
  explicit Screen(bool colored) : colored_(colored) {}
  void out(std::string_view utf8) override { out_.print(utf8); }
  void err(std::string_view utf8, Shade shade) override;
  void flush() override;
  bool isGone() override;
  /// Whether everything has been written; flushes first.
  bool wroteAll();
  void setColored(bool colored) { colored_ = colored; }
  /// Writes to standard error at once what moves on a terminal.
  void control(std::string_view bytes);
  bool errIsTerminal() const { return err_.isTerminal(); }

 private:
  ConsoleOutput out_{1}, err_{2};
  bool colored_;
};

/// The channels of files that are processed at once, numbered from 0.  The first one that is not closed writes
/// directly, the others into a buffer until their turn has come.
class OrderedChannels {
 public:
  explicit OrderedChannels(Screen& screen) : screen_(screen) {}
  /// Destroying the channel closes it.
  std::unique_ptr<Channel> open(std::size_t number);

 private:
  class Ordered;
  struct Piece {
    bool isErr;
    Shade shade;
    std::string text;
  };
  using Pieces = std::vector<Piece>;
  void write(const Pieces& pieces);

  Screen& screen_;
  std::mutex mutex_;
  std::condition_variable turn_;
  std::size_t next_ = 0;                  ///< the number that writes directly
  std::map<std::size_t, Pieces> closed_;  ///< those whose turn has not come
};

}  // namespace zelvaro::check
