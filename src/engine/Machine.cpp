#include "engine/Machine.h"

#include <algorithm>
#include <stdexcept>

#include "engine/MachineState.h"
#include "engine/Trace.h"

namespace zelvaro::engine {

HaltKind kindOf(Stop stop) {
  switch (stop) {
    case Stop::End:
      return HaltKind::End;
    case Stop::NobodyThere:
    case Stop::Steps:
    case Stop::Breakpoint:
    case Stop::InputWanted:
    case Stop::InputExhausted:
    case Stop::OutputFull:
      return HaltKind::Pause;
    default:
      return HaltKind::Guard;
  }
}

Machine::Machine(const Assembled& assembled, const RunOptions& options) {
  if (!assembled.ok()) throw std::invalid_argument("the source has no image");
  s_ = std::make_unique<State>(assembled.source_, options);
}

Machine::Machine(const Machine& other) : s_(std::make_unique<State>(*other.s_)) {}

Machine& Machine::operator=(const Machine& other) {
  if (this != &other) s_ = std::make_unique<State>(*other.s_);
  return *this;
}

Machine::Machine(Machine&&) noexcept = default;
Machine& Machine::operator=(Machine&&) noexcept = default;
Machine::~Machine() = default;

void Machine::giveLine(std::string line) {
  s_->lines.emplace_back(std::move(line));
  s_->inputEnds = false;
}

void Machine::endInput() {
  s_->inputEnds = true;
}

std::size_t Machine::linesRead() const {
  return s_->at.linesRead;
}

void Machine::setWord(int address, std::uint16_t value) {
  if (address < 0 || address >= kAddressSpace) throw std::out_of_range("not an address");
  s_->setAtStart(s_->m.Memory[static_cast<std::size_t>(address)], value);
}

void Machine::setRegister(int gr, std::uint16_t value) {
  if (gr < 0 || gr > kMostRegister) throw std::out_of_range("not a general register");
  s_->setAtStart(s_->m.GR[static_cast<std::size_t>(gr)], value);
}

Halt Machine::run(std::int64_t steps) {
  return s_->run(steps);
}

Halt Machine::step() {
  return s_->step();
}

void Machine::back(std::int64_t steps) {
  s_->back(steps);
}

Halt Machine::goTo(std::int64_t step) {
  return s_->goTo(step);
}

void Machine::forgetFuture() {
  s_->forgetFuture();
}

void Machine::setBreakpoint(int address) {
  s_->setBreakpoint(address, true);
}

void Machine::clearBreakpoint(int address) {
  s_->setBreakpoint(address, false);
}

std::vector<int> Machine::breakpoints() const {
  std::vector<int> out;
  for (int adr = 0; adr < kAddressSpace; ++adr)
    if (s_->breakpoints[static_cast<std::size_t>(adr)]) out.push_back(adr);
  return out;
}

std::int64_t Machine::steps() const {
  return s_->at.steps;
}

Stop Machine::stop() const {
  return s_->stop;
}

std::span<const Finding> Machine::stopMessages() const {
  return s_->stopMessages;
}

Registers Machine::registers() const {
  return registersOf(s_->m);
}

std::uint16_t Machine::word(int address) const {
  const Cells& cells = s_->m.Memory;
  return static_cast<std::uint16_t>(cells[static_cast<std::size_t>(unsignedWord(address))]);
}

std::vector<std::uint16_t> Machine::memory(int from, int count) const {
  std::vector<std::uint16_t> out(static_cast<std::size_t>(std::max(count, 0)));
  for (int i = 0; i < count; ++i) out[static_cast<std::size_t>(i)] = word(from + i);
  return out;
}

std::uint32_t Machine::count(int address) const {
  const Cells& counts = s_->m.ExecCount;
  return static_cast<std::uint32_t>(counts[static_cast<std::size_t>(unsignedWord(address))]);
}

std::vector<std::uint16_t> Machine::stack() const {
  std::vector<std::uint16_t> out;
  for (int sp = std::max(s_->m.SP, kFirstSP - kStackDepth); sp < kFirstSP; ++sp)
    out.push_back(static_cast<std::uint16_t>(s_->m.StackArea[static_cast<std::size_t>(kFirstSP - sp)]));
  return out;
}

int Machine::line() const {
  return s_->assembled.lineOf(s_->m.PR);
}

int Machine::effectiveAddress() const {
  return s_->m.EffAdr;
}

std::span<const Change> Machine::changes() const {
  return s_->changes;
}

std::span<const Event> Machine::events() const {
  return s_->eventsSoFar();
}

std::string Machine::report(const ReportOptions& options) const {
  Tcomet2 m = s_->m;
  m.setMaxExecCount();
  return s_->source.report(std::move(m), ResultantRegFile, options);
}

const Assembled& Machine::assembled() const {
  return s_->assembled;
}

}  // namespace zelvaro::engine
