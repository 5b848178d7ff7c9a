#include "Desk.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "encode/Instructions.h"

namespace zelvaro::web {
namespace {

/// Enough for any exercise, and little enough for a page to show.
constexpr std::size_t kMostOutput = 1u << 20;
constexpr std::size_t kMostStackRows = 256;

bool isData(std::string_view opcode) {
  return opcode == "DC" || opcode == "DS";
}

}  // namespace

void Desk::load(const engine::Assembled& assembled) {
  journey_.reset();
  machine_.reset();
  lines_ = assembled.sourceLines();
  rows_.clear();
  firstOfLine_.clear();
  eventsSent_ = linesGiven_ = 0;
  isPaused_ = isAtBreakpoint_ = false;
  if (!assembled.ok()) return;

  engine::RunOptions options;
  options.mostOutput = kMostOutput;
  machine_.emplace(assembled, options);
  const auto add = [](std::string& words, const std::string& word) {
    if (!word.empty()) words += (words.empty() ? "" : " ") + word;
  };
  for (const engine::ListingRow& r : assembled.listing()) {
    if (r.words.empty()) continue;
    Row& row = rows_[r.address];
    add(row.label, r.label);
    row.statement = r.opcode + (r.operands.empty() ? "" : " " + r.operands);
    if (!isData(r.opcode)) firstOfLine_.emplace(r.line, r.address);
  }
  for (const engine::LiteralRow& r : assembled.literals()) rows_[r.address].statement = r.text;
  setBreakpoints(std::vector<int>(breakpointLines_));
}

engine::Machine& Desk::machine() {
  if (!machine_) throw std::logic_error("there is no program in the machine");
  return *machine_;
}

void Desk::begin(GoKind kind, std::int64_t amount, int address) {
  isPaused_ = isAtBreakpoint_ = false;
  journey_.emplace(machine(), kind, amount, address);
}

bool Desk::slice(std::int64_t steps) {
  if (!journey_ || journey_->slice(steps)) return journey_.has_value();
  isAtBreakpoint_ = journey_->isAtBreakpoint();
  journey_.reset();
  return false;
}

void Desk::pause() {
  isPaused_ = journey_.has_value();
  journey_.reset();
}

int Desk::addressOfLine(int line) const {
  const auto at = firstOfLine_.find(line);
  return at == firstOfLine_.end() ? -1 : at->second;
}

std::vector<int> Desk::setBreakpoints(const std::vector<int>& lines) {
  breakpointLines_ = lines;
  std::vector<int> out;
  if (!machine_) return out;
  for (const int address : machine_->breakpoints()) machine_->clearBreakpoint(address);
  for (const int line : lines) {
    const int address = addressOfLine(line);
    if (address < 0) continue;
    machine_->setBreakpoint(address);
    out.push_back(line);
  }
  return out;
}

void Desk::giveLine(std::string line) {
  machine().giveLine(std::move(line));
  ++linesGiven_;
}

void Desk::forgetFuture() {
  machine().forgetFuture();
  linesGiven_ = machine().linesRead();
}

const char* Desk::stopName() {
  constexpr const char* kNames[] = {
      "End",        "Pr",         "Register",    "Load",           "Store",      "Stack",
      "EmptyStack", "Return",     "Nop",         "Unregistered",   "InputEnded", "Paused",
      "Stepped",    "Breakpoint", "InputWanted", "InputExhausted", "OutputFull"};
  const Stop stop = machine().stop();
  if (stop != Stop::Steps) return kNames[static_cast<std::size_t>(stop)];
  if (isPaused_ || journey_) return "Paused";
  if (isAtBreakpoint_) return "Breakpoint";
  return machine().steps() == 0 ? "Start" : "Stepped";
}

void Desk::putRegisters(Json& out) {
  const engine::Registers r = machine().registers();
  out.list("gr", r.gr);
  out.member("pr", r.pr);
  out.member("sp", r.sp);
  out.member("os", r.os);
  out.member("overflow", r.overflow);
  out.member("sign", r.sign);
  out.member("zero", r.zero);
}

void Desk::putStack(Json& out) {
  const engine::Registers r = machine().registers();
  std::vector<std::uint16_t> stack = machine().stack();
  out.member("stackSize", stack.size());
  stack.resize(std::min(stack.size(), kMostStackRows));
  int address = r.sp, depth = r.os;
  out.objects("stack", stack, [&](std::uint16_t word) {
    // a return address follows the two words of a CALL
    const bool isReturn =
        depth > 0 && word >= 2 && machine().word(word - 2) >> 8 == instruction(Op::CALL).adrCode;
    out.member("address", address++);
    out.member("word", word);
    out.member("depth", isReturn ? depth-- : 0);
    out.member("callLine", isReturn ? machine().assembled().lineOf(word - 2) : 0);
  });
}

void Desk::putEvents(Json& out) {
  constexpr const char* kKinds[] = {"out", "in", "message"};
  const auto events = machine().events();
  const std::size_t from = std::min(eventsSent_, events.size());
  eventsSent_ = events.size();
  out.key("events");
  out.begin('{');
  out.member("from", from);
  out.objects("list", events.subspan(from), [&](const engine::Event& e) {
    out.member("kind", kKinds[static_cast<std::size_t>(e.kind)]);
    out.member("step", e.step);
    out.member("text", e.text);
    if (e.message == nullptr) return;
    out.key("message");
    out.begin('{');
    putFinding(out, *e.message, lines_);
    out.end('}');
  });
  out.end('}');
}

void Desk::putState(Json& out) {
  constexpr const char* kKinds[] = {"end", "guard", "pause"};
  constexpr const char* kPlaces[] = {"GR", "PR", "SP", "OS", "Overflow", "Sign", "Zero", "Memory", "Stack"};
  engine::Machine& m = machine();
  out.member("steps", m.steps());
  out.member("stop", stopName());
  out.member("kind", kKinds[static_cast<std::size_t>(engine::kindOf(m.stop()))]);
  out.objects("messages", m.stopMessages(), [&](const engine::Finding& f) { putFinding(out, f, lines_); });
  out.member("line", m.line());
  putRegisters(out);
  out.member("effectiveAddress", m.effectiveAddress());
  out.objects("changes", m.changes(), [&](const engine::Change& c) {
    out.member("place", kPlaces[static_cast<std::size_t>(c.place)]);
    out.member("index", c.index);
    out.member("before", c.before);
    out.member("after", c.after);
  });
  putStack(out);
  out.member("linesRead", m.linesRead());
  out.member("linesGiven", linesGiven_);
  putEvents(out);
}

void Desk::putMemory(Json& out, int from, int count) {
  constexpr int kWords = 0x10000;
  const engine::Machine& m = machine();
  from = std::clamp(from, 0, kWords);
  std::vector<int> addresses(static_cast<std::size_t>(std::clamp(count, 0, kWords - from)));
  for (std::size_t i = 0; i < addresses.size(); ++i) addresses[i] = from + static_cast<int>(i);
  out.objects(addresses, [&](int address) {
    const auto row = rows_.find(address);
    out.member("address", address);
    out.member("word", m.word(address));
    out.member("count", m.count(address));
    out.member("line", m.assembled().lineOf(address));
    out.member("label", row == rows_.end() ? "" : row->second.label.c_str());
    out.member("statement", row == rows_.end() ? "" : row->second.statement.c_str());
  });
}

void Desk::putCounts(Json& out, std::size_t most) {
  const engine::Machine& m = machine();
  std::map<int, std::uint32_t> counts;
  for (int address = 0; address <= 0xFFFF; ++address) {
    const std::uint32_t count = m.count(address);
    if (count == 0) continue;
    if (const int line = m.assembled().lineOf(address); line > 0)
      counts[line] = std::max(counts[line], count);
  }
  std::vector<std::pair<int, std::uint32_t>> rows(counts.begin(), counts.end());
  if (most > 0) {
    std::stable_sort(rows.begin(), rows.end(), [](auto a, auto b) { return a.second > b.second; });
    rows.resize(std::min(rows.size(), most));
  }
  out.objects(rows, [&](const auto& row) {
    out.member("line", row.first);
    out.member("count", row.second);
  });
}

}  // namespace zelvaro::web
