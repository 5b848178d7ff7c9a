// A run as the page asks for it, in slices: to the end, to an address, over a CALL, back to a change ...
#pragma once

#include <cstdint>
#include <vector>

#include "engine/Machine.h"

namespace zelvaro::web {

/// The numbers are those of worker.ts.
enum class GoKind : std::uint8_t { Run, To, Step, Over, Out, Back, GoTo, BackToChange };

class Journey {
 public:
  /// `amount` is the number of steps of Step, Back and GoTo; `address` that of To and BackToChange.
  Journey(engine::Machine& machine, GoKind kind, std::int64_t amount, int address);
  /// Takes off what it has put into the machine.
  ~Journey();
  Journey(const Journey&) = delete;
  Journey& operator=(const Journey&) = delete;

  /// Goes on by `steps` steps at most, or a little more work that a learner does not see. Returns whether there is more to do.
  bool slice(std::int64_t steps);
  /// Whether it has ended at one of the learner's breakpoints.
  bool isAtBreakpoint() const { return isAtBreakpoint_; }

 private:
  bool forth(std::int64_t steps);
  bool over(std::int64_t steps);
  bool toDepth(std::int64_t steps);
  bool toStep(std::int64_t steps);
  bool backToChange(std::int64_t steps);
  void setTemporary(int address);
  bool isTemporary(int address) const;
  bool isLearners(int address) const;
  bool endAtBreakpoint();
  bool runsIntoBreakpoint(std::int64_t& steps);
  bool isInMacro() const;

  engine::Machine& m_;
  GoKind kind_;
  std::int64_t left_;  ///< steps of Step; the step of GoTo
  int address_;
  int line_, depth_;     ///< at the start
  bool isFirst_ = true;  ///< the instruction of Over is still to be executed
  bool isAtBreakpoint_ = false;
  std::vector<int> temporary_;  ///< breakpoints of its own
  // of BackToChange: the steps from `from_` to `until_` are looked through, `found_` is the last change among them
  std::int64_t from_, until_, found_ = -1;
};

}  // namespace zelvaro::web
