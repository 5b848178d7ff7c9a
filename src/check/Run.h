// The run of an assembled source, with its input, its output and its limits.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "check/Expected.h"
#include "check/Result.h"

namespace zelvaro::check {

/// The next line for IN, or nothing at the end of the input.
using NextLine = std::function<std::optional<std::string>()>;

/// What a run needs besides the machine.
struct RunPlan {
  std::int64_t maxSteps = 0;  ///< 0: no limit
  NextLine input;
  /// Called for each text that OUT writes.
  std::function<void(const std::string&)> output;
  /// Called between two parts of a long run; true gives it up.
  std::function<bool()> givesUp;
};

/// Runs a machine.  Lines of input are given when an IN asks for them.
class Runner {
 public:
  Runner(engine::Machine& machine, const RunPlan& plan) : machine_(machine), plan_(plan) {}

  /// Executes up to `steps` instructions.  Returns Stop::Steps if all of them were executed.
  Stop advance(std::int64_t steps);
  /// Executes one, after which the machine knows its changes.
  Stop advanceOneStep();
  /// Executes to the end, to a stop or to the limit.
  Stop finish();
  /// Steps that the limit allows.
  std::int64_t left() const;
  bool wasGivenUp() const { return givenUp_; }
  /// The messages of the run so far, the stop not included.
  std::vector<RunMessage> takeMessages() { return std::move(messages_); }

 private:
  void passOnEvents();
  void giveInput();

  engine::Machine& machine_;
  const RunPlan& plan_;
  std::size_t passedOn_ = 0;  ///< events
  std::vector<RunMessage> messages_;
  bool givenUp_ = false;
};

/// The status of a run that has stopped, whatever it wrote.
Status statusOf(Stop stop);
/// The messages of the stop: those of the engine.
std::vector<RunMessage> stopMessages(const engine::Machine& machine);
/// The remark on a limit of steps that was reached.
Remark stepLimitRemark(std::int64_t limit);

}  // namespace zelvaro::check
