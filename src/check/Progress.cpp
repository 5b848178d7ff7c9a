#include "check/Progress.h"

#include <fmt/format.h>

namespace zelvaro::check {
namespace {

/// A shorter job shows nothing; a longer one is shown anew as often.
constexpr auto kInterval = std::chrono::milliseconds(500);

}  // namespace

Progress::Progress(Screen& screen, std::size_t count, bool alone)
    : screen_(screen),
      count_(count),
      shows_(alone && screen.errIsTerminal()),
      next_(Clock::now() + kInterval) {}

void Progress::countOne() {
  if (!shows_) return;
  const std::lock_guard lock(mutex_);
  ++done_;
  const auto now = Clock::now();
  if (now < next_ || done_ == count_) return;
  next_ = now + kInterval;
  isShown_ = true;
  screen_.control(fmt::format("\r{}/{}", done_, count_));
}

void Progress::end() {
  if (isShown_) screen_.control("\r\033[K");
}

}  // namespace zelvaro::check
