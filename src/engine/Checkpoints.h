// The states of a run that a step back returns to.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "comet2/Comet2.h"

namespace zelvaro::engine {

/// What a run changes besides the machine.
struct RunState {
  std::int64_t steps = 0;
  std::size_t linesRead = 0;
  std::int32_t watchedFrom = 0;  ///< StoreWatch::from()
  int emptyInputs = 0;           ///< Slices::emptyInputs
};

/// Cells in pages that checkpoints share while they are equal.
class Pages {
 public:
  /// Copies the cells; pages equal to those of `before` are shared with it.
  Pages(Cells& cells, const Pages* before);
  void copyTo(Cells& cells) const;

 private:
  static constexpr std::size_t kPage = 256;
  using Page = std::array<std::int32_t, kPage>;
  std::vector<std::shared_ptr<const Page>> pages_;  ///< null: all cells are 0
};

class Checkpoint {
 public:
  Checkpoint(Tcomet2& m, const RunState& state, const Checkpoint* before);
  const RunState& state() const { return state_; }
  void copyTo(Tcomet2& m) const;

 private:
  RunState state_;
  Pages memory_, counts_;
  std::array<std::int32_t, 9> fields_{};
  decltype(Tcomet2::StackArea) stack_;
  decltype(Tcomet2::GR) gr_;
};

/// The checkpoints of one run.  Their number is bounded: when it is reached, every second one is dropped and
/// their distance doubles.  So the steps from a checkpoint to any later state are at most a fixed part of the
/// run, or the first distance.
class Checkpoints {
 public:
  static constexpr std::int64_t kFirstDistance = std::int64_t{1} << 21;

  /// The number of steps at which the next one is due.
  std::int64_t due() const { return all_.empty() ? 0 : all_.back().state().steps + distance_; }
  void add(Tcomet2& m, const RunState& state);
  /// The last one at or before that many steps.
  const Checkpoint& before(std::int64_t steps) const;
  /// Drops those after that many steps.
  void dropAfter(std::int64_t steps);

 private:
  static constexpr std::size_t kMost = 128;

  std::vector<Checkpoint> all_;
  std::int64_t distance_ = kFirstDistance;
};

}  // namespace zelvaro::engine
