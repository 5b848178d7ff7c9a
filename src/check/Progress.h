// How far a long job is, on a terminal only.
#pragma once

#include <chrono>
#include <mutex>

#include "check/Channel.h"

namespace zelvaro::check {

/// Shows "12/1000" on one line of standard error, which end() erases.  Several threads may count.
class Progress {
 public:
  /// `alone`: nothing else is written to the terminal meanwhile; else nothing is shown.
  Progress(Screen& screen, std::size_t count, bool alone);
  void countOne();
  void end();

 private:
  using Clock = std::chrono::steady_clock;

  Screen& screen_;
  std::size_t count_;
  bool shows_;
  std::mutex mutex_;
  std::size_t done_ = 0;
  Clock::time_point next_;  ///< the next time to show it
  bool isShown_ = false;
};

}  // namespace zelvaro::check
