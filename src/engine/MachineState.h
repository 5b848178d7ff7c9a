// The run of one machine: slices of the run loop, the record of input and events, replays.  Only src/engine/
// includes this.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "comet2/Guards.h"
#include "comet2/RunLoop.h"
#include "engine/Checkpoints.h"
#include "engine/Machine.h"
#include "engine/Quiet.h"
#include "engine/Source.h"

namespace zelvaro::engine {

/// It is the run's console and its sink.  A step that has been executed before, at or before `furthest_`, is
/// a replay: it reads what it read then, and writes no events.
struct Machine::State : QuietPlatform, DiagSink, ServiceGate {
  State(std::shared_ptr<const detail::Source> s, const RunOptions& o);
  State(const State& other);
  State& operator=(const State&) = delete;

  // --- what Machine offers ---
  Halt run(std::int64_t count);
  Halt step();
  void back(std::int64_t count);
  Halt goTo(std::int64_t step);
  void forgetFuture();
  void setBreakpoint(int address, bool isSet);
  /// Sets a cell of `m`, at step 0.
  void setAtStart(std::int32_t& cell, std::uint16_t value);
  std::span<const Event> eventsSoFar() const;

  // --- Platform, DiagSink, ServiceGate ---
  void print(std::string_view utf8) override;
  void flush() override;
  std::optional<std::string> readLine() override;
  bool inputHasEnded() override;
  bool consoleIsGone() override;
  void take(const Diagnostic& d) override;
  Stop before(std::int32_t number) override;

  const Assembled assembled;
  const detail::Source& source;
  const RunOptions options;
  Tcomet2 m;
  RunState at;  ///< of the present state
  Stop stop = Stop::Steps;
  std::vector<Finding> stopMessages;
  std::vector<Change> changes;
  std::vector<bool> breakpoints = std::vector<bool>(kAddressSpace);
  int breakpointCount = 0;
  std::vector<std::optional<std::string>> lines;  ///< the input; nothing: an IN found it ended
  bool inputEnds = false;

 private:
  /// How a slice executes.
  enum class Pace : std::uint8_t {
    Free,     ///< as fast as the dialogue; ends at some step after the goal
    Counted,  ///< ends at the goal or up to two steps before it
    Single    ///< ends at the goal; for few steps
  };
  enum class Breaks : std::uint8_t { Heeded, Passed };

  struct End {
    std::int64_t step;
    Stop stop;
    std::vector<Finding> messages;
  };

  template <class Work>
  auto withinMemory(Work work);
  Stop walk(std::int64_t target, Breaks breaks);
  Stop sliceTowards(std::int64_t target, Breaks breaks);
  Stop slice(Pace pace, std::int64_t goal, Breaks breaks);
  Slices& slicesFor(Pace pace, Breaks breaks);
  void returnTo(std::int64_t step);
  void noteEnd(Stop s);
  Halt halted(std::int64_t from, Stop s);
  std::vector<Finding> messagesOf(Stop s);
  bool isAtEnd() const { return end_ && end_->step == at.steps; }
  bool isAtBreakpoint() const;
  /// The number of the step that is being executed.
  std::int64_t present() const {
    return at.steps + slices_[static_cast<std::size_t>(pace_)]->image.executed();
  }
  bool isReplayed() const { return present() <= furthest_; }
  void addEvent(Event event);

  static constexpr std::int64_t kFirstMargin = std::int64_t{1} << 18;

  TimeData time_;
  RunEnvironment env_;
  GuardedStores guard_;
  std::array<std::optional<Slices>, 3> slices_;  ///< by pace
  Pace pace_ = Pace::Single;                     ///< of the last slice
  bool heedsBreakpoints_ = false;                ///< the last slice was decoded with the breakpoints
  bool isDecoded_ = false;      ///< the image of the last slice belongs to the memory and the breakpoints
  std::int64_t freeUntil_ = 0;  ///< the goal of the free slice
  std::int64_t looks_ = 0;      ///< looks of the free slice so far
  std::int64_t nextLook_ = 0;   ///< looks left until its steps are summed up again
  std::int64_t margin_ = kFirstMargin;  ///< steps before a target at which free slices are to end
  std::int64_t furthest_ = 0;           ///< the steps of the latest state reached
  std::optional<End> end_;              ///< the end of the run, once it has been reached
  Checkpoints checkpoints_;
  std::vector<Event> events_;
  std::size_t eventBytes_ = 0;
  std::string written_;  ///< by the OUT that is being executed
};

}  // namespace zelvaro::engine
