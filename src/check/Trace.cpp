#include "check/Trace.h"

#include <fmt/format.h>

#include <algorithm>

namespace zelvaro::check {
namespace {

using engine::Change;

std::string placeName(const Change& c, const Statements& statements) {
  switch (c.place) {
    case Change::Place::GR:
      return fmt::format("GR{}", c.index);
    case Change::Place::PR:
      return "PR";
    case Change::Place::SP:
      return "SP";
    case Change::Place::OS:
      return "CALLs";
    case Change::Place::Overflow:
      return "OF";
    case Change::Place::Sign:
      return "SF";
    case Change::Place::Zero:
      return "ZF";
    case Change::Place::Stack:
      return fmt::format("stack #{:04X}", c.index);
    case Change::Place::Memory:
      break;
  }
  const std::string& label = statements.labelAt(c.index);
  return label.empty() ? fmt::format("#{:04X}", c.index) : fmt::format("{} #{:04X}", label, c.index);
}

bool isWord(Change::Place place) {
  return place == Change::Place::GR || place == Change::Place::Memory || place == Change::Place::Stack;
}

std::string changeText(const Change& c, const Statements& statements) {
  const std::string name = placeName(c, statements);
  if (isWord(c.place))
    return fmt::format("{} #{:04X} -> #{:04X} ({} -> {})", name, c.before & 0xFFFF, c.after & 0xFFFF,
                       static_cast<std::int16_t>(c.before), static_cast<std::int16_t>(c.after));
  const bool isAddress = c.place == Change::Place::PR || c.place == Change::Place::SP;
  return isAddress ? fmt::format("{} #{:04X} -> #{:04X}", name, c.before, c.after)
                   : fmt::format("{} {} -> {}", name, c.before, c.after);
}

/// Whether PR has only gone on to the next instruction.
bool goesOn(const Change& c) {
  return c.place == Change::Place::PR && c.after > c.before && c.after <= c.before + 2;
}

/// The last lines of a trace.
class LastLines {
 public:
  LastLines(const TracePlan& plan, const engine::Machine& machine)
      : plan_(plan), statements_(machine.assembled()) {}
  ~LastLines() {
    for (const std::string& line : lines_) plan_.print(line);
  }
  LastLines(const LastLines&) = delete;
  LastLines& operator=(const LastLines&) = delete;
  /// Takes the step that the machine has just made.
  void take(const engine::Machine& machine, int address) {
    std::string line = traceLine(statements_, machine, address);
    if (plan_.last == 0) return plan_.print(line);
    lines_.push_back(std::move(line));
    if (static_cast<std::int64_t>(lines_.size()) > plan_.last) lines_.pop_front();
  }

 private:
  const TracePlan& plan_;
  Statements statements_;
  std::deque<std::string> lines_;
};

/// Makes one step, which may wait for input, and takes its line.
Stop stepTraced(Runner& runner, engine::Machine& machine, LastLines& lines) {
  const int address = machine.registers().pr;
  const std::int64_t before = machine.steps();
  const Stop stop = runner.advanceOneStep();
  if (machine.steps() != before) lines.take(machine, address);
  return stop;
}

/// Runs without a trace up to an address, or to another stop.
Stop runUpTo(Runner& runner, engine::Machine& machine, int address) {
  if (machine.registers().pr == address) return Stop::Breakpoint;
  machine.setBreakpoint(address);
  const Stop stop = runner.finish();
  machine.clearBreakpoint(address);
  return stop;
}

/// The whole run first, then the last steps once more.
Stop runThenTraceLast(Runner& runner, engine::Machine& machine, const TracePlan& plan) {
  const Stop stop = runner.finish();
  engine::Machine again = machine;
  const Statements statements(machine.assembled());
  const std::int64_t steps = std::min(plan.last, again.steps());
  again.back(steps);
  for (std::int64_t i = 0; i < steps; ++i) {
    const int address = again.registers().pr;
    again.step();
    plan.print(traceLine(statements, again, address));
  }
  return stop;
}

}  // namespace

std::string traceLine(const Statements& statements, const engine::Machine& machine, int address) {
  std::string out =
      fmt::format("{:>8}  #{:04X}  {:<28}", machine.steps(), address, statements.textAt(machine, address));
  std::string separator = "  ";
  for (const Change& c : machine.changes()) {
    if (goesOn(c)) continue;
    out += separator + changeText(c, statements);
    separator = ", ";
  }
  out.erase(out.find_last_not_of(' ') + 1);
  return out + '\n';
}

Stop runTraced(Runner& runner, engine::Machine& machine, const TracePlan& plan) {
  if (plan.last > 0 && !plan.from && !plan.until) return runThenTraceLast(runner, machine, plan);
  LastLines lines(plan, machine);
  bool traces = !plan.from;
  while (runner.left() > 0) {
    if (!traces) {
      const Stop stop = plan.from ? runUpTo(runner, machine, *plan.from) : runner.finish();
      if (stop != Stop::Breakpoint) return stop;
      traces = true;
    }
    const bool isLast = plan.until && machine.registers().pr == *plan.until;
    const Stop stop = stepTraced(runner, machine, lines);
    if (stop != Stop::Steps) return stop;
    if (isLast) traces = false;
  }
  return Stop::Steps;
}

}  // namespace zelvaro::check
