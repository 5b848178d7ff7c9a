// The trace of a run: a line for each step.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "check/Run.h"
#include "check/Statements.h"

namespace zelvaro::check {

struct TracePlan {
  std::optional<int> from, until;                 ///< addresses
  std::int64_t last = 0;                          ///< only as many lines before the stop; 0: all
  std::function<void(const std::string&)> print;  ///< takes a line with its line end
};

/// Runs to the end or to a stop, as Runner::finish, and prints the trace.
Stop runTraced(Runner& runner, engine::Machine& machine, const TracePlan& plan);

/// The line of the step that the machine has just made at `address`.
std::string traceLine(const Statements& statements, const engine::Machine& machine, int address);

}  // namespace zelvaro::check
