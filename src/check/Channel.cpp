#include "check/Channel.h"

#include <array>
#include <utility>

namespace zelvaro::check {
namespace {

/// SGR sequences by Shade.
constexpr std::array<std::string_view, 5> kColors{"", "\033[1;31m", "\033[1;35m", "\033[1;36m", "\033[1m"};
constexpr std::string_view kNoColor = "\033[0m";

/// A file that waits for its turn keeps as many bytes in memory before it waits with its work, too.
constexpr std::size_t kMostWaiting = std::size_t{16} << 20;

}  // namespace

void Screen::err(std::string_view utf8, Shade shade) {
  out_.flush();
  const bool colored = colored_ && shade != Shade::Plain && !utf8.empty();
  if (colored) err_.printControl(kColors.at(static_cast<std::size_t>(shade)));
  err_.print(utf8);
  if (colored) err_.printControl(kNoColor);
}

void Screen::flush() {
  out_.flush();
  err_.flush();
}

bool Screen::isGone() {
  out_.look();
  return out_.readerIsGone() || out_.hasFailed();
}

void Screen::control(std::string_view bytes) {
  err_.printControl(bytes);
  err_.flush();
}

bool Screen::wroteAll() {
  flush();
  return !out_.hasFailed() && !err_.hasFailed();
}

class OrderedChannels::Ordered : public Channel {
 public:
  Ordered(OrderedChannels& all, std::size_t number) : all_(all), number_(number) {}
  ~Ordered() override {
    const std::lock_guard lock(all_.mutex_);
    all_.closed_[number_] = std::move(pieces_);
    for (auto it = all_.closed_.find(all_.next_); it != all_.closed_.end();
         it = all_.closed_.find(all_.next_)) {
      all_.write(it->second);
      all_.closed_.erase(it);
      ++all_.next_;
    }
    all_.turn_.notify_all();
  }
  Ordered(const Ordered&) = delete;
  Ordered& operator=(const Ordered&) = delete;

  void out(std::string_view utf8) override { put(false, Shade::Plain, utf8); }
  void err(std::string_view utf8, Shade shade) override { put(true, shade, utf8); }
  void flush() override {
    std::unique_lock lock(all_.mutex_);
    if (!hasTurn()) return;
    writeWaiting();
    all_.screen_.flush();
  }
  bool isGone() override {
    const std::lock_guard lock(all_.mutex_);
    return all_.screen_.isGone();
  }

 private:
  bool hasTurn() const { return all_.next_ == number_; }
  void put(bool isErr, Shade shade, std::string_view utf8) {
    std::unique_lock lock(all_.mutex_);
    if (waiting_ > kMostWaiting) all_.turn_.wait(lock, [&] { return hasTurn(); });
    if (pieces_.empty() || pieces_.back().isErr != isErr || pieces_.back().shade != shade)
      pieces_.push_back({isErr, shade, {}});
    pieces_.back().text += utf8;
    waiting_ += utf8.size();
    if (hasTurn()) writeWaiting();
  }
  void writeWaiting() {
    all_.write(pieces_);
    pieces_.clear();
    waiting_ = 0;
  }

  OrderedChannels& all_;
  std::size_t number_;
  Pieces pieces_;
  std::size_t waiting_ = 0;  ///< bytes in pieces_
};

std::unique_ptr<Channel> OrderedChannels::open(std::size_t number) {
  return std::make_unique<Ordered>(*this, number);
}

void OrderedChannels::write(const Pieces& pieces) {
  for (const Piece& p : pieces) {
    if (p.isErr) {
      screen_.err(p.text, p.shade);
    } else {
      screen_.out(p.text);
    }
  }
}

}  // namespace zelvaro::check
