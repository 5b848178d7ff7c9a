#include "Journey.h"

#include <algorithm>

#include "encode/Instructions.h"

namespace zelvaro::web {
namespace {

constexpr std::int64_t kFirstWindow = 4096, kLastWindow = std::int64_t{1} << 20;
constexpr int kMostHits = 256;  ///< breakpoints of its own that a slice passes

bool hasCode(int word, Op op) {
  return word >> 8 == instruction(op).adrCode;
}

}  // namespace

Journey::Journey(engine::Machine& machine, GoKind kind, std::int64_t amount, int address)
    : m_(machine),
      kind_(kind),
      left_(amount),
      address_(address),
      line_(machine.line()),
      depth_(machine.registers().os),
      from_(machine.steps()),
      until_(machine.steps()) {
  if (kind_ == GoKind::To) setTemporary(address_);
  if (kind_ == GoKind::Out) --depth_;
}

Journey::~Journey() {
  for (const int address : temporary_) m_.clearBreakpoint(address);
}

void Journey::setTemporary(int address) {
  const std::vector<int> set = m_.breakpoints();
  if (std::binary_search(set.begin(), set.end(), address)) return;
  m_.setBreakpoint(address);
  temporary_.push_back(address);
}

bool Journey::slice(std::int64_t steps) {
  switch (kind_) {
    case GoKind::Run:
    case GoKind::To:
      return forth(steps);
    case GoKind::Step:
      if (left_ == 1) return m_.step(), false;
      steps = std::min(steps, left_);
      left_ -= steps;
      return forth(steps) && left_ > 0;
    case GoKind::Over:
      return over(steps);
    case GoKind::Out:
      return toDepth(steps);
    case GoKind::Back:
      return m_.back(left_), false;
    case GoKind::GoTo:
      return toStep(steps);
    case GoKind::BackToChange:
      return backToChange(steps);
  }
  return false;
}

bool Journey::isTemporary(int address) const {
  return std::find(temporary_.begin(), temporary_.end(), address) != temporary_.end();
}

/// Whether the learner has set a breakpoint there.
bool Journey::isLearners(int address) const {
  const std::vector<int> set = m_.breakpoints();
  return std::binary_search(set.begin(), set.end(), address) && !isTemporary(address);
}

bool Journey::endAtBreakpoint() {
  isAtBreakpoint_ = true;
  return false;
}

/// Runs; takes off what was executed. A breakpoint at the end of the steps counts, as the next call would pass over it.
bool Journey::runsIntoBreakpoint(std::int64_t& steps) {
  const engine::Halt halt = steps == 1 ? m_.step() : m_.run(steps);  // step() knows its changes
  steps -= halt.executed;
  if (halt.stop == Stop::Breakpoint) return true;
  if (halt.stop != Stop::Steps) return false;
  const std::vector<int> set = m_.breakpoints();
  return std::binary_search(set.begin(), set.end(), m_.registers().pr);
}

bool Journey::forth(std::int64_t steps) {
  if (!runsIntoBreakpoint(steps)) return m_.stop() == Stop::Steps;
  return isTemporary(m_.registers().pr) ? false : endAtBreakpoint();
}

/// IN, OUT, RPUSH and RPOP are several instructions of one line.
bool Journey::isInMacro() const {
  const engine::Assembled& a = m_.assembled();
  const int pr = m_.registers().pr;
  return pr > 0 && a.lineOf(pr) == a.lineOf(pr - 1) && m_.line() == line_;
}

bool Journey::over(std::int64_t steps) {
  if (isFirst_) {
    const bool isCall = hasCode(m_.word(m_.registers().pr), Op::CALL);
    isFirst_ = false;
    if (m_.step().stop != Stop::Steps) return false;
    if (!isCall) {
      while (line_ != 0 && isInMacro())
        if (m_.step().stop != Stop::Steps) return false;
      return false;
    }
    if (m_.registers().os <= depth_) return false;
  }
  return toDepth(steps);
}

/// Runs until the depth of CALL is depth_ or less: from RET to RET.
bool Journey::toDepth(std::int64_t steps) {
  if (depth_ < 0) return forth(steps);
  if (temporary_.empty())
    for (int address = 0; address <= 0xFFFF; ++address)
      if (hasCode(m_.word(address), Op::RET)) setTemporary(address);
  for (int hits = 0; steps > 0 && hits < kMostHits; ++hits) {
    const engine::Registers r = m_.registers();
    if (hasCode(m_.word(r.pr), Op::RET)) {
      const bool isLast = r.os == depth_ + 1;
      --steps;
      if (m_.step().stop != Stop::Steps || isLast) return false;
      if (isLearners(m_.registers().pr)) return endAtBreakpoint();
    } else if (runsIntoBreakpoint(steps)) {
      if (!isTemporary(m_.registers().pr)) return endAtBreakpoint();
    } else if (m_.stop() != Stop::Steps) {
      return false;
    }
  }
  return true;
}

bool Journey::toStep(std::int64_t steps) {
  const std::int64_t next = std::min(left_, m_.steps() + steps);
  return m_.goTo(next).stop == Stop::Steps && next < left_;
}

/// Looks for the last change window by window, each one before the other; the next slice goes on in the window.
bool Journey::backToChange(std::int64_t steps) {
  if (m_.steps() == until_ || from_ == until_) {
    if (found_ >= 0 || until_ == 0) {
      m_.goTo(std::max<std::int64_t>(found_, 0));
      return false;
    }
    // the windows grow: a change is likely to be near
    const std::int64_t size = std::min(std::max(kFirstWindow, 4 * (until_ - from_)), kLastWindow);
    until_ = from_;
    if (until_ == 0) return true;
    from_ = std::max<std::int64_t>(until_ - size, 0);
    m_.goTo(from_);
  }
  for (std::int64_t i = std::min<std::int64_t>(steps, 20'000); i > 0 && m_.steps() < until_; --i) {
    const std::uint16_t before = m_.word(address_);
    m_.step();
    if (m_.word(address_) != before) found_ = m_.steps();
  }
  return true;
}

}  // namespace zelvaro::web
