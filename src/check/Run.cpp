#include "check/Run.h"

#include <algorithm>
#include <limits>

#include "check/Remarks.h"

namespace zelvaro::check {
namespace {

constexpr Message stepLimit =
    notice("step-limit", args("count"),
           {.ja = "命令を {count} 回実行しても終わらないので、実行を打ち切った。",
            .en = "The run was stopped, as it had not come to an end after {count} steps."});

/// After as many steps output is passed on, and a reader that has gone is noticed.
constexpr std::int64_t kSlice = 4'000'000;

}  // namespace

Stop Runner::advance(std::int64_t steps) {
  while (steps > 0) {
    const engine::Halt halt = machine_.run(steps);
    steps -= halt.executed;
    passOnEvents();
    if (halt.stop != Stop::InputWanted) return halt.stop;
    giveInput();
  }
  return Stop::Steps;
}

Stop Runner::advanceOneStep() {
  engine::Halt halt = machine_.step();
  while (halt.stop == Stop::InputWanted) {
    giveInput();
    halt = machine_.step();
  }
  passOnEvents();
  return halt.stop;
}

void Runner::giveInput() {
  if (std::optional<std::string> line = plan_.input()) {
    machine_.giveLine(std::move(*line));
  } else {
    machine_.endInput();
  }
}

std::int64_t Runner::left() const {
  constexpr std::int64_t kNone = std::numeric_limits<std::int64_t>::max();
  return plan_.maxSteps == 0 ? kNone : std::max<std::int64_t>(0, plan_.maxSteps - machine_.steps());
}

Stop Runner::finish() {
  for (;;) {
    const std::int64_t part = std::min(kSlice, left());
    if (part == 0) return Stop::Steps;
    const Stop stop = advance(part);
    if (stop != Stop::Steps) return stop;
    // the next call would pass over a breakpoint here
    const std::vector<int> breakpoints = machine_.breakpoints();
    if (std::find(breakpoints.begin(), breakpoints.end(), machine_.registers().pr) != breakpoints.end())
      return Stop::Breakpoint;
    if (!plan_.givesUp || !plan_.givesUp()) continue;
    givenUp_ = true;
    return Stop::NobodyThere;
  }
}

void Runner::passOnEvents() {
  const auto events = machine_.events();
  for (; passedOn_ < events.size(); ++passedOn_) {
    const engine::Event& e = events[passedOn_];
    if (e.kind == engine::Event::Kind::Out && plan_.output) plan_.output(e.text);
    if (e.kind == engine::Event::Kind::Message) messages_.push_back({*e.message, false});
  }
}

Status statusOf(Stop stop) {
  switch (stop) {
    case Stop::End:
      return Status::Clean;
    case Stop::Steps:
    case Stop::InputExhausted:
    case Stop::OutputFull:
      return Status::Limit;
    case Stop::NobodyThere:
      return Status::File;
    default:
      return Status::Guard;
  }
}

std::vector<RunMessage> stopMessages(const engine::Machine& machine) {
  std::vector<RunMessage> out;
  for (const engine::Finding& f : machine.stopMessages()) {
    out.push_back({f, true});
    if (out.back().finding.line == 0) out.back().finding.line = machine.line();
  }
  return out;
}

Remark stepLimitRemark(std::int64_t limit) {
  return remark(stepLimit, 0, limit);
}

RowList rowsOfRun() {
  return rows(stepLimit);
}

}  // namespace zelvaro::check
