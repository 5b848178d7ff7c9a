#include "engine/MachineState.h"

#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

#include "comet2/Services.h"
#include "engine/MachineRows.h"
#include "engine/Trace.h"

namespace zelvaro::engine {
namespace {

constexpr Message inputWanted = notice("input-wanted", args("adr"),
                                       {.ja = "{adr} 番地の IN は、入力を待っています。\n",
                                        .en = "The IN at address {adr} waits for input. \n"});
constexpr Message inputExhausted = notice(
    "input-exhausted", args("adr"),
    {.ja = "入力が終わっているので、{adr} 番地の IN で実行を中止しました。\n",
     .en = "The run has stopped at the IN at address {adr}, because the input has come to its end. \n"});
constexpr Message outputFull =
    notice("output-full", args("adr", "most"),
           {.ja = "出力が {most} バイトを超えたので、{adr} 番地で実行を中止しました。\n",
            .en = "The run has stopped at address {adr}, because its output has more than {most} bytes. \n"});
constexpr Message breakpointReached =
    notice("breakpoint-reached", args("adr"),
           {.ja = "{adr} 番地のブレークポイントに達しました。\n", .en = "Breakpoint at address {adr}. \n"});

/// A free slice ends some looks after its goal, so that it is meant to end so many looks before a target.
constexpr std::int64_t kLooksBefore = 4;
constexpr std::int64_t kLeastMargin = std::int64_t{1} << 15;
/// Up to so many steps are executed one by one.
constexpr std::int64_t kSingleSteps = 16;

/// What an event counts for the limit of output.
std::size_t bytesOf(const Event& e) {
  const std::size_t ofMessage =
      e.message ? sizeof(Finding) + 2 * (e.message->printed.ja.size() + e.message->printed.en.size()) : 0;
  return sizeof(Event) + e.text.size() + ofMessage;
}

/// Stops that come before an instruction is counted.
bool isBeforeStep(Stop stop) {
  return stopsBeforeInstruction(stop) || stop == Stop::Pr || stop == Stop::Register;
}

/// Keeps the messages that come after a stop.
struct FindingSink : DiagSink {
  explicit FindingSink(FamilyId f) : family(f) {}
  void take(const Diagnostic& d) override { findings.push_back(detail::findingOf(d, family)); }
  FamilyId family;
  std::vector<Finding> findings;
};

bool isFinal(Stop stop) {
  return kindOf(stop) != HaltKind::Pause;
}

}  // namespace

Machine::State::State(std::shared_ptr<const detail::Source> s, const RunOptions& o)
    : assembled(std::move(s)),
      source(*assembled.source_),
      options(o),
      m(source.m),
      env_{*this, *this, time_, source.f, source.b.PrgEndAdr},
      guard_(m, env_) {
  m.PR = m.EffAdr = 0;
  at.watchedFrom = guard_.from();
  checkpoints_.add(m, at);
}

Machine::State::State(const State& other) : State(other.assembled.source_, other.options) {
  m = other.m;
  at = other.at;
  stop = other.stop;
  stopMessages = other.stopMessages;
  changes = other.changes;
  breakpoints = other.breakpoints;
  breakpointCount = other.breakpointCount;
  lines = other.lines;
  inputEnds = other.inputEnds;
  margin_ = other.margin_;
  furthest_ = other.furthest_;
  end_ = other.end_;
  checkpoints_ = other.checkpoints_;
  events_ = other.events_;
  eventBytes_ = other.eventBytes_;
  guard_.setFrom(at.watchedFrom);
}

// --- what the run asks for ---

void Machine::State::print(std::string_view utf8) {
  if (!isReplayed()) written_ += utf8.substr(0, options.mostOutput);
}

/// OUT ends with it; everything else is flushed with nothing written.
void Machine::State::flush() {
  if (written_.empty()) return;
  written_.pop_back();  // the line end
  addEvent({Event::Kind::Out, present(), std::exchange(written_, {}), {}});
}

std::optional<std::string> Machine::State::readLine() {
  if (at.linesRead == lines.size()) lines.emplace_back();
  const std::optional<std::string>& line = lines[at.linesRead++];
  if (line && !isReplayed()) addEvent({Event::Kind::In, present(), *line, {}});
  return line;
}

bool Machine::State::inputHasEnded() {
  return at.linesRead > 0 && !lines[at.linesRead - 1];
}

/// The run loop asks now and then, and after each service.  A free slice uses that to end: it sums up its
/// steps, and next when about a quarter of the remaining ones should have been executed.
bool Machine::State::consoleIsGone() {
  if (pace_ != Pace::Free) return false;
  ++looks_;
  if (--nextLook_ > 0) return false;
  const std::int64_t done = present() - at.steps;
  const std::int64_t left = freeUntil_ - at.steps - done;
  nextLook_ = std::max<std::int64_t>(1, left / 4 * looks_ / std::max<std::int64_t>(1, done));
  return left <= 0;
}

void Machine::State::take(const Diagnostic& d) {
  if (d.row->code == "in-prompt" || d.row->code == "out-heading" || isReplayed()) return;
  addEvent({Event::Kind::Message,
            present(),
            {},
            std::make_shared<const Finding>(detail::findingOf(d, source.f.id))});
}

Stop Machine::State::before(std::int32_t number) {
  if (isReplayed()) return Stop::End;
  if (eventBytes_ >= options.mostOutput) return Stop::OutputFull;
  if (number != kSvcIn || at.linesRead < lines.size()) return Stop::End;
  if (!inputEnds) return Stop::InputWanted;
  return options.endedInputIsEmpty ? Stop::End : Stop::InputExhausted;
}

void Machine::State::addEvent(Event event) {
  eventBytes_ += bytesOf(event);
  events_.push_back(std::move(event));
}

// --- slices ---

/// The image of a pace.  What another pace has executed is unknown to it.
Slices& Machine::State::slicesFor(Pace pace, Breaks breaks) {
  const bool heeds = breaks == Breaks::Heeded && breakpointCount != 0;
  std::optional<Slices>& slices = slices_[static_cast<std::size_t>(pace)];
  if (!slices) slices.emplace(Slices{Decoded(m.Memory.data(), source.f.runLimit, pace != Pace::Single)});
  if (!isDecoded_ || pace != pace_ || heeds != heedsBreakpoints_)
    slices->image.forget(heeds ? &breakpoints : nullptr);
  isDecoded_ = true;
  pace_ = pace;
  heedsBreakpoints_ = heeds;
  slices->emptyInputs = at.emptyInputs;
  return *slices;
}

Stop Machine::State::slice(Pace pace, std::int64_t goal, Breaks breaks) {
  constexpr std::int64_t kMostMore = 2;  // steps that a counted slice may execute after the requested ones
  Slices& slices = slicesFor(pace, breaks);
  const Services services{*this, *this, this};
  const int limit = source.f.runLimit;
  Stop s = Stop::Steps;
  if (pace == Pace::Free) {
    freeUntil_ = goal;
    looks_ = 0;
    nextLook_ = 1;
    s = runLoop(m, services, guard_, limit, slices);
    if (s == Stop::NobodyThere) s = Stop::Steps;
  } else {
    std::int64_t left = goal - at.steps - (pace == Pace::Counted ? kMostMore : 0);
    s = runLoop(m, services, guard_, limit, slices, left);
  }
  at.steps += slices.executed;
  at.emptyInputs = slices.emptyInputs;
  at.watchedFrom = guard_.from();
  if (pace == Pace::Free)
    margin_ = std::max({kLeastMargin, kLooksBefore * slices.executed / std::max<std::int64_t>(1, looks_),
                        2 * (at.steps - goal)});
  if (isFinal(s)) noteEnd(s);
  furthest_ = std::max(furthest_, at.steps);
  return s;
}

/// One slice of a walk: to the target, or to where the next checkpoint is due.
Stop Machine::State::sliceTowards(std::int64_t target, Breaks breaks) {
  const std::int64_t left = target - at.steps;
  if (left <= kSingleSteps) return slice(Pace::Single, target, breaks);
  const std::int64_t due = std::max(checkpoints_.due(), at.steps + 2 * kSingleSteps);
  if (left <= 2 * margin_) return slice(Pace::Counted, std::min(target, due), breaks);
  return slice(Pace::Free, std::min(target - margin_, due), breaks);
}

/// Executes up to the state after `target` steps.  A free slice may have gone past it: then the walk returns.
Stop Machine::State::walk(std::int64_t target, Breaks breaks) {
  if (isAtEnd()) return end_->stop;
  Stop s = Stop::Steps;
  if (breaks == Breaks::Heeded && at.steps < target && isAtBreakpoint())
    s = slice(Pace::Single, at.steps + 1, Breaks::Passed);
  while (s == Stop::Steps && at.steps < target) {
    if (at.steps >= checkpoints_.due()) checkpoints_.add(m, at);
    s = sliceTowards(target, breaks);
  }
  if (at.steps > target) returnTo(target);
  // what stops before the step after the target is left to the next call
  if (at.steps == target && isBeforeStep(s)) s = Stop::Steps;
  return s == Stop::Steps && breaks == Breaks::Heeded && isAtBreakpoint() ? Stop::Breakpoint : s;
}

/// From the last checkpoint before that step, by a replay.
void Machine::State::returnTo(std::int64_t step) {
  const Checkpoint& from = checkpoints_.before(step);
  from.copyTo(m);
  at = from.state();
  guard_.setFrom(at.watchedFrom);
  isDecoded_ = false;
  for (Stop s = Stop::Steps; s == Stop::Steps && at.steps < step;)
    s = slice(step - at.steps <= kSingleSteps ? Pace::Single : Pace::Counted, step, Breaks::Passed);
}

/// The message of the store guard comes from the guard itself.
void Machine::State::noteEnd(Stop s) {
  if (end_) return;
  FindingSink sink(source.f.id);
  if (s == Stop::Store && !events_.empty()) {
    sink.findings.push_back(*events_.back().message);
    events_.pop_back();
  } else {
    reportStop(s, m, sink);
  }
  end_ = End{at.steps, s, std::move(sink.findings)};
}

std::vector<Finding> Machine::State::messagesOf(Stop s) {
  FindingSink sink(source.f.id);
  switch (s) {
    case Stop::Steps:
      break;
    case Stop::InputWanted:
      sink.say(inputWanted, m.PR);
      break;
    case Stop::InputExhausted:
      sink.say(inputExhausted, m.PR);
      break;
    case Stop::OutputFull:
      sink.say(outputFull, m.PR, options.mostOutput);
      break;
    case Stop::Breakpoint:
      sink.say(breakpointReached, m.PR);
      break;
    default:
      return end_ ? end_->messages : std::vector<Finding>();
  }
  return std::move(sink.findings);
}

Halt Machine::State::halted(std::int64_t from, Stop s) {
  stop = s;
  stopMessages = messagesOf(s);
  return {s, at.steps - from};
}

bool Machine::State::isAtBreakpoint() const {
  return m.PR >= 0 && m.PR < kAddressSpace && breakpoints[static_cast<std::size_t>(m.PR)];
}

// --- what Machine offers ---

/// If memory runs out in a walk, the machine is at an earlier state, from which it can go on.
template <class Work>
auto Machine::State::withinMemory(Work work) {
  const std::int64_t from = at.steps;
  try {
    return work();
  } catch (const std::bad_alloc&) {
    written_ = {};
    returnTo(std::min(from, furthest_));
    throw;
  }
}

Halt Machine::State::run(std::int64_t count) {
  const std::int64_t from = at.steps;
  const std::int64_t most = std::numeric_limits<std::int64_t>::max() - from;
  changes.clear();
  return withinMemory(
      [&] { return halted(from, walk(from + std::clamp<std::int64_t>(count, 0, most), Breaks::Heeded)); });
}

Halt Machine::State::step() {
  const std::int64_t from = at.steps;
  changes.clear();
  if (isAtEnd()) return halted(from, end_->stop);
  return withinMemory([&] {
    if (at.steps >= checkpoints_.due()) checkpoints_.add(m, at);
    const BeforeStep before(m);
    const Stop s = slice(Pace::Single, from + 1, Breaks::Passed);
    if (at.steps != from) changes = before.changes(m);
    return halted(from, s);
  });
}

void Machine::State::back(std::int64_t count) {
  if (count <= 0) return;
  const std::int64_t step = at.steps - std::min(count, at.steps);
  changes.clear();
  withinMemory([&] {
    returnTo(std::max<std::int64_t>(step, 1) - 1);
    if (step > 0) this->step();
  });
  stop = Stop::Steps;
  stopMessages.clear();
}

Halt Machine::State::goTo(std::int64_t step) {
  const std::int64_t from = at.steps;
  if (step < from) {
    back(from - step);
    return {stop, at.steps - from};
  }
  changes.clear();
  return withinMemory([&] { return halted(from, walk(step, Breaks::Passed)); });
}

void Machine::State::forgetFuture() {
  events_.resize(eventsSoFar().size());
  eventBytes_ = 0;
  for (const Event& e : events_) eventBytes_ += bytesOf(e);
  lines.resize(at.linesRead);
  inputEnds = false;
  furthest_ = at.steps;
  end_.reset();
  checkpoints_.dropAfter(at.steps);
}

void Machine::State::setBreakpoint(int address, bool isSet) {
  if (address < 0 || address >= kAddressSpace) return;
  const auto i = static_cast<std::size_t>(address);
  if (breakpoints[i] == isSet) return;
  breakpoints[i] = isSet;
  breakpointCount += isSet ? 1 : -1;
  isDecoded_ = false;
}

void Machine::State::setAtStart(std::int32_t& cell, std::uint16_t value) {
  if (at.steps != 0) throw std::logic_error("the run has begun");
  cell = value;
  std::erase(lines, std::nullopt);
  events_.clear();
  eventBytes_ = 0;
  furthest_ = 0;
  end_.reset();
  isDecoded_ = false;
  checkpoints_ = {};
  checkpoints_.add(m, at);
}

std::span<const Event> Machine::State::eventsSoFar() const {
  const auto end = std::upper_bound(events_.begin(), events_.end(), at.steps,
                                    [](std::int64_t step, const Event& e) { return step < e.step; });
  return std::span(events_).first(static_cast<std::size_t>(end - events_.begin()));
}

RowList machineRows() {
  return rows(inputWanted, inputExhausted, outputFull, breakpointReached);
}

}  // namespace zelvaro::engine
