// Hints that a run gives: it is repeated step by step, and each step is looked at.
#include <algorithm>
#include <array>
#include <bitset>
#include <set>

#include "check/Hints.h"
#include "check/Remarks.h"
#include "check/Statements.h"
#include "encode/Instructions.h"

namespace zelvaro::check {
namespace {

constexpr Message stackLeft = notice(
    "hint-stack-left", args("count"),
    {.ja = "このサブルーチンの RET のとき、スタックにまだ {count} 語残っている。"
           "PUSH と同じ数だけ POP しないと、戻り番地が違ってしまう。",
     .en = "At this RET of a subroutine {count} of its words are left on the stack. Without a POP for each "
           "PUSH, RET does not find the return address."});
constexpr Message stackEmpty =
    notice("hint-stack-empty", args("op"),
           {.ja = "スタックにこのサブルーチンの語がないのに {op} が実行された。POP の数が PUSH より多い。",
            .en = "{op} was executed with none of its words on the stack: there is a POP more than PUSH."});
constexpr Message neverWritten =
    notice("hint-never-written", args("label", "address"),
           {.ja = "DS で確保した {label} (番地 {address}) は読まれたが、一度も書き込まれていない。",
            .en = "The word {label} of a DS (address {address}) was read and never written."});
constexpr Message intoData = notice(
    "hint-run-into-data", args("from"),
    {.ja = "データであるこの行が命令として実行された。直前の命令は {from} 行目にある。"
           "RET や JUMP を忘れていないか。",
     .en = "The data of this line was executed as an instruction, after the one of line {from}. Is a RET or "
           "a JUMP missing there?"});

constexpr std::size_t kAddresses = 0x10000;
using Addresses = std::bitset<kAddresses>;

int codeOf(Op op) {
  return instruction(op).adrCode;
}

/// Whether the instruction reads the word at its effective address.
bool readsMemory(int code) {
  return std::ranges::any_of(
      kInstructions, [&](const Instruction& i) { return i.form == OpForm::Both && i.adrCode == code; });
}

class RunWatch {
 public:
  explicit RunWatch(const RunResult& run)
      : run_(run), machine_(run.machine), statements_(run.machine.assembled()), read_(), written_() {
    for (const engine::ListingRow& r : statements_.rows()) {
      const Op op = findOp(std::string_view(r.opcode));
      if (!isDcOrDs(op)) continue;
      for (std::size_t i = 0; i < r.words.size(); ++i) {
        const std::size_t at = (static_cast<std::size_t>(r.address) + i) % kAddresses;
        data_.set(at);
        if (op == Op::DS) reserved_.set(at);
      }
    }
  }

  std::vector<Remark> make() {
    machine_.goTo(0);
    const std::int64_t steps = std::min(run_.steps, kStepsLookedAt);
    for (std::int64_t i = 0; i < steps; ++i) step();
    if (run_.stop == Stop::EmptyStack) add(remark(stackEmpty, run_.machine.line(), "POP"));
    if (steps == run_.steps) addNeverWritten();
    return std::move(hints_);
  }

 private:
  void step() {
    const engine::Registers before = machine_.registers();
    const int pr = before.pr & 0xFFFF;
    const int code = machine_.word(pr) >> 8;
    if (data_.test(static_cast<std::size_t>(pr)) && !wasInData_) {
      wasInData_ = true;
      add(remark(intoData, machine_.assembled().lineOf(pr), lastLine_));
    }
    lastLine_ = machine_.assembled().lineOf(pr);
    machine_.step();
    noteMemory(code, before);
    noteStack(code, before);
  }

  void noteMemory(int code, const engine::Registers& before) {
    const auto address = static_cast<std::size_t>(machine_.effectiveAddress() & 0xFFFF);
    if (readsMemory(code)) {
      read_.set(address);
    } else if (code == codeOf(Op::ST)) {
      written_.set(address);
    } else if (code == codeOf(Op::SVC)) {
      constexpr std::size_t kIn = 1;
      Addresses& used = address == kIn ? written_ : read_;
      used.set(before.gr[2]);
      const int count = machine_.word(before.gr[2]);
      for (int i = 0; i < count; ++i) used.set(static_cast<std::size_t>(before.gr[1] + i) % kAddresses);
    }
  }

  void noteStack(int code, const engine::Registers& before) {
    if (code == codeOf(Op::CALL)) {
      entrySp_.push_back(machine_.registers().sp);
    } else if (code == codeOf(Op::RET) && !entrySp_.empty()) {
      const int left = entrySp_.back() - before.sp;
      entrySp_.pop_back();
      if (left > 0) add(remark(stackLeft, lastLine_, left));
      if (left < 0) add(remark(stackEmpty, lastLine_, "RET"));
    }
  }

  void addNeverWritten() {
    const Addresses never = read_ & reserved_ & ~written_;
    for (const engine::ListingRow& r : statements_.rows()) {
      for (std::size_t i = 0; i < r.words.size(); ++i) {
        const std::size_t at = (static_cast<std::size_t>(r.address) + i) % kAddresses;
        if (!never.test(at)) continue;
        const std::string offset = i == 0 ? "" : "+" + std::to_string(i);
        add(remark(neverWritten, r.line, r.label + offset, static_cast<int>(at)));
        break;  // one for a line
      }
    }
  }

  /// Once for a line and a code.
  void add(Remark remark) {
    if (known_.emplace(remark.line, remark.code).second) hints_.push_back(std::move(remark));
  }

  const RunResult& run_;
  engine::Machine machine_;
  Statements statements_;
  Addresses data_, reserved_;  ///< words of DC and DS; of DS
  Addresses read_, written_;
  std::vector<int> entrySp_;  ///< SP at the beginning of each subroutine that has not returned
  int lastLine_ = 0;
  bool wasInData_ = false;
  std::set<std::pair<int, std::string_view>> known_;
  std::vector<Remark> hints_;
};

}  // namespace

std::vector<Remark> runHints(const RunResult& run) {
  std::vector<Remark> out = RunWatch(run).make();
  if (run.stop == Stop::Steps)
    for (Remark& hint : loopHints(run)) out.push_back(std::move(hint));
  return out;
}

RowList rowsOfRunHints() {
  return rows(stackLeft, stackEmpty, neverWritten, intoData);
}

}  // namespace zelvaro::check
